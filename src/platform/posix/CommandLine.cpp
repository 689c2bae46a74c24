#include "platform/CommandLine.h"

namespace tolvane::platform {

char** CommandLineWords(int&, char** argv) {
    return argv;
}

} // namespace tolvane::platform
