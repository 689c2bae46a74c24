#include "messages/TMsgStore.h"

#include "platform/Console.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane {

namespace {

// The store's own prefixes, by kind: Japanese, English. The Japanese Memo ends in a full-width semicolon.
constexpr const char* StorePrefixes[7][2] = {
    {"エラー： ", "Error: "},
    {"警告： ", "Warning: "},
    {"仕様 ", "Spec. "},
    {"注意： ", "Note: "},
    {"メモ； ", "Memo: "},
    {"_DEBUG: ", "_DEBUG: "},
    {"", ""},
};

struct KindRow {
    std::int32_t kind;
    int prefix;
};

KindRow KindOf(Severity severity) {
    switch (severity) {
    case Severity::Error:
        return {100, 0};
    case Severity::Warning:
        return {200, 1};
    case Severity::Note:
        return {400, 3};
    case Severity::Memo:
        break;
    }
    return {500, 4};
}

} // namespace

void TMsgStore::Append(Severity severity, Place place, const std::string& text, Args args) {
    MsgRecW record;
    const KindRow row = KindOf(severity);
    record.Kind = row.kind;
    record.Line = place.line;
    record.Prefix = WideUtf8Lossy(StorePrefixes[row.prefix][Lang == 0 ? 0 : 1]);
    for (const Arg& arg : args) {
        if (arg.isNumber) continue;
        record.Subject = WideUtf8Lossy(QuoteStr(arg.text));
        break;
    }
    std::size_t begin = text.find_first_not_of('\n');
    for (std::size_t n = 0; begin < text.size() && n < record.Text.size(); ++n) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        record.Text[n] = WideUtf8Lossy(text.substr(begin, end - begin));
        begin = end + 1;
    }
    Records.push_back(std::move(record));
}

void TMsgStore::DspMsgStore() const {
    for (const MsgRecW& record : Records) {
        for (const TextW& line : record.Text) {
            if (line.empty()) break;
            console::Write(Utf8(line) + "\n");
        }
        console::Write("\n");
    }
}

} // namespace tolvane
