#pragma once
// The command line of tolvane-debug.

#include "run/Options.h"

#include <optional>
#include <string>

namespace tolvane::debug {

struct Options {
    run::Options assembly;               // language, pipeline, the text for IN
    std::optional<std::string> commands; // the text of a file
    std::string source;
};

// Reads the command line and sets the language. Nothing, and the exit status, where there is nothing to do.
std::optional<Options> ReadOptions(int argc, char** argv, int& status);

} // namespace tolvane::debug
