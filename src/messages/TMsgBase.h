#pragma once
// The one way in which the program says something: a row of a catalogue, composed for the language and the wording of
// `modeFlags`, printed or queued as the pipeline says; and the base of the main objects with their four counters.

#include "messages/ModeFlags.h"
#include "messages/Msg.h"

#include <cstdint>

namespace tolvane {

// Appends the text with its tags filled in for the language and wording in force, as UTF-8.
void ComposeText(std::string& out, std::string_view text, Severity severity, Place place, std::span<const KeptArg> args,
                 bool forTerminal = false);
// The text of a row.
std::string TextOf(const Msg& msg, Args args = {});
// Prints the row as it stands, without a line end of its own; no counter, no record.
void Say(const Msg& msg, Args args = {});
// The same with the heads of its place, and with a record: for diagnostics that no counter and no queue knows.
void Tell(Severity severity, Place place, const Msg& msg, Args args = {});
// A diagnostic that raises no counter. It is ended with a line end, printed at once or not, queued and recorded.
void Explain(Severity severity, Place place, const Msg& msg, Args args = {});

class TMsgBase {
public:
    std::int32_t ErrorKazu = 0;
    std::int32_t WarningKazu = 0;
    std::int32_t NoteKazu = 0;
    std::int32_t MemoKazu = 0;

    // Explain, and the counter of the severity raised by one.
    void Error(Place place, const Msg& msg, Args args = {});
    void Warning(Place place, const Msg& msg, Args args = {});
    void Note(Place place, const Msg& msg, Args args = {});
    void Memo(Place place, const Msg& msg, Args args = {});

    void ClearCounters();
};

} // namespace tolvane
