#pragma once
// Where commands come from: first from a file, then from the standard input.

#include "debug/LineEditor.h"
#include "messages/Msg.h"
#include "run/Inputs.h"

#include <optional>
#include <string>

namespace tolvane::debug {

class TypedLines {
public:
    // The text of a file of commands, or nothing.
    explicit TypedLines(const std::optional<std::string>& commands);

    // A command can be edited and comes back from the history; a line for IN is taken as it is typed.
    enum class Kind { Command, Input };
    // The next line, behind a prompt; shown behind it where it is not typed on a terminal. Nothing at the end of the
    // input; an empty line at Ctrl+C, and then WasInterrupted.
    std::optional<std::string> Next(const Msg& prompt, Kind kind);
    bool WasInterrupted() const { return wasInterrupted; }

private:
    std::optional<std::string> Typed(const Msg& prompt, Kind kind);

    std::optional<run::InputLines> file;
    LineEditor editor;
    bool wasInterrupted = false;
};

} // namespace tolvane::debug
