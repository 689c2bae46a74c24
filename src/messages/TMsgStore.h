#pragma once
// The queue of diagnostics of the wide pipelines, in order of arrival.

#include "messages/TMsgBase.h"

#include <array>
#include <vector>

namespace tolvane {

struct MsgRecW {
    std::int32_t Kind = 0; // 100 Error, 200 Warning, 400 Note, 500 Memo
    std::int32_t Line = 0; // zero-based, -1 without a line
    TextW Prefix;
    TextW Subject;             // the text complained of, quoted
    std::array<TextW, 9> Text; // the console lines, head included; the first empty one ends them
};

class TMsgStore : public TMsgBase {
public:
    std::vector<MsgRecW> Records;

    // Makes the record of a composed diagnostic. Line ends of the text part its lines; leading ones are left out.
    void Append(Severity severity, Place place, const std::string& text, Args args);
    // Prints the lines of each record up to the first empty one, and an empty line behind each record.
    void DspMsgStore() const;
    void ClearMsgStore() { Records.clear(); }
};

extern TMsgStore* const store;

} // namespace tolvane
