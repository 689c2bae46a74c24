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

std::optional<std::string> TypedLines::Typed(const Msg& prompt, Kind kind) {
    const char* const words = prompt.For(modeFlags->Lang, WordingNWW);
    if (kind == Kind::Command && editor.IsReady()) return editor.Next(words);
    console::Write(words);
    return console::ReadLine(LineLimit);
}

std::optional<std::string> TypedLines::Next(const Msg& prompt, Kind kind) {
    wasInterrupted = false;
    auto line = file ? file->Next(LineLimit) : std::nullopt;
    const bool isTyped = !line && console::InputIsTerminal();
    if (line)
        Say(prompt);
    else
        line = Typed(prompt, kind);
    wasInterrupted = !line && signals::TakeInterrupt();
    if (wasInterrupted) line.emplace();
    if (!isTyped || !line || wasInterrupted) console::Write(line.value_or("") + "\n");
    return line;
}

} // namespace tolvane::debug
