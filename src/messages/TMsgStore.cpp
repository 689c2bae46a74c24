#include "messages/TMsgStore.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane {

namespace {

// Gives the console lines of a record to `take`, one after the other in the same text.
template <class Take> void ForEachLineOf(const MsgRec& record, Take take) {
    constexpr int most = 9;
    std::string line;
    int taken = 0;
    std::string_view text = record.row->For(modeFlags->Lang, modeFlags->Pipe->wording);
    while (!text.empty() && taken < most) {
        line.clear();
        ComposeText(line, TakeLine(text), record.severity, record.place, record.args, console::IsTerminal());
        if (line.empty() && taken > 0) return;
        if (line.empty()) continue;
        take(line);
        ++taken;
    }
}

} // namespace

std::vector<std::string> MsgRec::Lines() const {
    std::vector<std::string> lines;
    ForEachLineOf(*this, [&lines](const std::string& line) { lines.push_back(line); });
    return lines;
}

const MsgRec& TMsgStore::Append(Severity severity, Place place, const Msg& msg, Args args, bool queued, bool counted) {
    KeptArg* const room = keptArgs.Room(args.size());
    std::transform(args.begin(), args.end(), room, [this](const Arg& arg) {
        KeptArg kept = arg;
        kept.text = KeepText(texts, arg.text);
        return kept;
    });
    return Records.emplace_back(MsgRec{&msg, keptArgs.Take(args.size()), place, severity, queued, counted});
}

void TMsgStore::ClearMsgStore() {
    Records.clear();
    texts.Clear();
    keptArgs.Clear();
}

void TMsgStore::DspMsgStore() const {
    std::string text;
    for (const MsgRec& record : Records) {
        if (!record.queued) continue;
        text.clear();
        ForEachLineOf(record, [&text](const std::string& line) {
            text += IsAscii(ViewA(line)) ? line : Utf8(WideUtf8Lossy(line));
            text += '\n';
        });
        console::Write(text += '\n');
    }
}

} // namespace tolvane
