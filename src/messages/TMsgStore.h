#pragma once
// The diagnostics of an assembly and its run as records, in order of arrival. One object, reached through `store`.

#include "messages/Msg.h"
#include "text/Arena.h"

#include <string>
#include <vector>

namespace tolvane {

struct MsgRec {
    const Msg* row;
    std::span<const KeptArg> args; // kept by the store
    Place place;
    Severity severity;
    bool queued;  // DspMsgStore prints it
    bool counted; // it raised the counter of its severity

    // The console lines, head included, without their line ends, in the language and wording in force. The row's own
    // line breaks part them; empty ones at the front are left out, at most nine are kept, and an empty one ends them.
    std::vector<std::string> Lines() const;
};

class TMsgStore {
public:
    std::vector<MsgRec> Records;

    // Makes a record, which keeps copies of the arguments.
    const MsgRec& Append(Severity severity, Place place, const Msg& msg, Args args, bool queued, bool counted);
    // Prints the lines of each queued record, and an empty line behind each.
    void DspMsgStore() const;
    void ClearMsgStore();

private:
    Arena<char> texts;
    Arena<KeptArg> keptArgs;
};

extern TMsgStore* const store;

} // namespace tolvane
