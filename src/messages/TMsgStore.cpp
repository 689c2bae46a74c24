#include "messages/TMsgStore.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane {

std::vector<std::string> MsgRec::Lines() const {
    constexpr std::size_t most = 9;
    std::vector<std::string> lines;
    std::string_view text = row->For(modeFlags->Lang, modeFlags->Pipe->wording);
    while (!text.empty() && lines.size() < most) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string line;
        ComposeText(line, text.substr(0, end), severity, place, args, console::IsTerminal());
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!line.empty())
            lines.push_back(std::move(line));
        else if (!lines.empty())
            break;
    }
    return lines;
}

const MsgRec& TMsgStore::Append(Severity severity, Place place, const Msg& msg, Args args, bool queued, bool counted) {
    KeptArg* const room = keptArgs.Room(args.size());
    std::transform(args.begin(), args.end(), room, [this](const Arg& arg) {
        KeptArg kept = arg;
        kept.text = KeepText(texts, arg.text);
        return kept;
    });
    return Records.emplace_back(MsgRec{&msg, severity, place, keptArgs.Take(args.size()), queued, counted});
}

void TMsgStore::ClearMsgStore() {
    Records.clear();
    texts.Clear();
    keptArgs.Clear();
}

void TMsgStore::DspMsgStore() const {
    for (const MsgRec& record : Records) {
        if (!record.queued) continue;
        for (const std::string& line : record.Lines()) {
            console::Write(IsAscii(ViewA(line)) ? line : Utf8(WideUtf8Lossy(line)));
            console::Write("\n");
        }
        console::Write("\n");
    }
}

} // namespace tolvane
