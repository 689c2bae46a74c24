// tolvane-run: assembles and runs sources without a dialogue, for scripts, editors and teachers.

#include "messages/TMsgBase.h"
#include "platform/CommandLine.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "run/Explain.h"
#include "run/Options.h"
#include "run/RunMsgs.h"
#include "run/Sources.h"

#include <algorithm>
#include <cstdlib>

namespace tolvane::run {

namespace {

[[noreturn]] void EndWithoutOutput(const char* why) {
    FlushErr();
    console::WriteError(TextOf(RunMsg.OutputLost, {why}));
    std::_Exit(WrongUse);
}

int Main(int argc, char** argv) {
    console::Start(EndWithoutOutput);
    int status = AllEnded;
    const auto options = ReadOptions(argc, argv, status);
    if (options && options->explain) {
        status = Explain(*options->explain);
    } else if (options) {
        for (const std::string& file : options->files) {
            status = std::max(status, RunFile(*options, file));
            FlushErr();
            if (status == CtrlC) break;
        }
    }
    console::Flush();
    return status;
}

} // namespace

} // namespace tolvane::run

int main(int argc, char** argv) {
    char** const words = tolvane::platform::CommandLineWords(argc, argv);
    return tolvane::run::Main(argc, words);
}
