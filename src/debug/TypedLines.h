#pragma once
// Where commands come from: first from a file, then from the standard input.

#include "messages/Msg.h"
#include "run/Inputs.h"

#include <optional>
#include <string>

namespace tolvane::debug {

class TypedLines {
public:
    // The text of a file of commands, or nothing.
    explicit TypedLines(const std::optional<std::string>& commands);

    // The next line, behind a prompt; shown behind it where it is not typed on a terminal. Nothing at the end of the
    // input; an empty line at Ctrl+C, and then WasInterrupted.
    std::optional<std::string> Next(const Msg& prompt);
    bool WasInterrupted() const { return wasInterrupted; }

private:
    std::optional<run::InputLines> file;
    bool wasInterrupted = false;
};

} // namespace tolvane::debug
