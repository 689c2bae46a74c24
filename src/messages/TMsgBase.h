#pragma once
// The base of the main objects: language, pipeline, the names of the dump files, the four counters, and the one way
// in which a diagnostic is composed, printed, queued and counted.

#include "messages/Msg.h"
#include "messages/Pipeline.h"

#include <cstdint>

namespace tolvane {

class TMsgBase {
public:
    std::int32_t Lang = 1; // 0 Japanese, 1 English
    const Pipeline* Pipe = &DefaultPipeline();

    const char* AssembledDumpName = "aaAssembledRegMry.txt";
    const char* ResultantDumpName = "aaResultantRegMry.txt";

    std::int32_t ErrorKazu = 0;
    std::int32_t WarningKazu = 0;
    std::int32_t NoteKazu = 0;
    std::int32_t MemoKazu = 0;

    // A diagnostic: composes the row for this object's language and wording, ends it with a line end, prints or
    // queues it as the pipeline says, and raises the counter of the severity by one.
    void Error(Place place, const Msg& msg, Args args = {});
    void Warning(Place place, const Msg& msg, Args args = {});
    void Note(Place place, const Msg& msg, Args args = {});
    void Memo(Place place, const Msg& msg, Args args = {});
    // A diagnostic that raises no counter.
    void Explain(Severity severity, Place place, const Msg& msg, Args args = {}) const;
    // Prints the row as it stands, without a line end of its own; no counter, no record.
    void Say(const Msg& msg, Args args = {}) const;
    // Say with the heads that belong to a line.
    void SayAt(Severity severity, Place place, const Msg& msg, Args args = {}) const;
    // The row's text as UTF-8 in this object's language and wording.
    std::string TextOf(const Msg& msg, Args args = {}) const;

    void ClearCounters();
};

} // namespace tolvane
