#include "debug/TypedLines.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "platform/Signals.h"

namespace tolvane::debug {

namespace {

constexpr std::size_t LineLimit = 4096; // characters

} // namespace

TypedLines::TypedLines(const std::optional<std::string>& commands) {
    if (commands) file.emplace(*commands);
}

std::optional<std::string> TypedLines::Next(const Msg& prompt) {
    wasInterrupted = false;
    Say(prompt);
    auto line = file ? file->Next(LineLimit) : std::nullopt;
    const bool isTyped = !line && console::InputIsTerminal();
    if (!line) line = console::ReadLine(LineLimit);
    wasInterrupted = !line && signals::TakeInterrupt();
    if (wasInterrupted) line.emplace();
    if (!isTyped || wasInterrupted) console::Write(line.value_or("") + "\n");
    return line;
}

} // namespace tolvane::debug
