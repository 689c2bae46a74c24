#pragma once
// The diagnostics of an assembly and its run as records, in order of arrival. One object, reached through `store`.

#include "messages/Msg.h"

#include <string>
#include <vector>

namespace tolvane {

struct MsgRec {
    const Msg* row;
    Severity severity;
    Place place;
    std::vector<Arg> args;
    bool queued;  // DspMsgStore prints it
    bool counted; // it raised the counter of its severity

    // The console lines, head included, without their line ends, in the language and wording in force. The row's own
    // line breaks part them; empty ones at the front are left out, at most nine are kept, and an empty one ends them.
    std::vector<std::string> Lines() const;
};

class TMsgStore {
public:
    std::vector<MsgRec> Records;

    // Prints the lines of each queued record, and an empty line behind each.
    void DspMsgStore() const;
    void ClearMsgStore() { Records.clear(); }
};

extern TMsgStore* const store;

} // namespace tolvane
