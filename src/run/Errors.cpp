#include "run/Errors.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "text/Text.h"

#include <algorithm>
#include <utility>

namespace tolvane::run {

namespace {

constexpr std::size_t LargeOutput = 65536;
constexpr const char* SeverityNames[] = {"error", "warning", "note", "memo"};

std::string pending;

} // namespace

void WriteErr(std::string_view utf8) {
    while (!utf8.empty()) {
        const std::size_t end = std::min(utf8.find('\n'), utf8.size());
        AppendVisibly(pending, utf8.substr(0, end));
        if (end < utf8.size()) pending += '\n';
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
    }
    if (pending.size() >= LargeOutput) FlushErr();
}

void FlushErr() {
    console::WriteError(pending);
    pending.clear();
}

std::vector<std::string> TextLines(const MsgRec& record) {
    const int lang = modeFlags->Lang;
    const Wording wording = modeFlags->Pipe->wording;
    std::string text;
    Compose(text, record.row->For(lang, wording),
            {lang, wording, record.severity, record.place, record.args, false, true});
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = TrimZenBlankUtf8(text.substr(begin, end - begin));
        if (!line.empty()) lines.push_back(std::move(line));
        begin = end + 1;
    }
    return lines;
}

void PrintDiagnostic(const std::string& file, int line, Severity severity, const std::vector<std::string>& lines) {
    WriteErr(file);
    if (line >= 0) WriteErr(":" + std::to_string(line + 1));
    WriteErr(std::string(": ") + SeverityNames[static_cast<int>(severity)] + ":");
    const char* before = " ";
    for (const std::string& text : lines) {
        WriteErr(before + text + "\n");
        before = "  ";
    }
    if (lines.empty()) WriteErr("\n");
}

} // namespace tolvane::run
