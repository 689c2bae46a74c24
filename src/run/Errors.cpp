#include "run/Errors.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "text/Text.h"

#include <algorithm>

namespace tolvane::run {

namespace {

constexpr std::size_t LargeOutput = 65536;
constexpr const char* SeverityNames[] = {"error", "warning", "note", "memo"};

// Severities that a row spells out itself.
constexpr std::string_view SpelledHeads[] = {
    "Error : ", "Error: ",  "Warning: ", "WARNING: ", "Runtime Error: ", "--> OS: ",       "--> ",
    "-> ",      "エラー：", "警告：",    "警告:",     "警告： ",         "実行時エラー：",
};

std::string pending;

bool RemovePrefix(std::string& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text = TrimZenBlankUtf8(text.substr(prefix.size()));
    return true;
}

// "line 12", "line=12", "line= 12", "12行目" at the front, which some rows spell out.
bool RemoveLineNr(std::string& text, int line) {
    const std::string nr = std::to_string(line + 1);
    for (const std::string& spelled : {"line " + nr, "line=" + nr, "line= " + nr, nr + "行目"}) {
        const bool longer = spelled.size() < text.size() && IsDigit(text[spelled.size()]);
        if (!longer && RemovePrefix(text, spelled)) return true;
    }
    return false;
}

void RemoveHeads(std::string& text, int line) {
    const auto removeOne = [&text, line] {
        if (RemovePrefix(text, ":") || RemovePrefix(text, "：")) return true;
        for (const std::string_view head : SpelledHeads)
            if (RemovePrefix(text, head)) return true;
        return line >= 0 && RemoveLineNr(text, line);
    };
    while (removeOne()) {
    }
}

// One blank for several and none between a quoted word and its colon or full stop, one colon for two; what is quoted
// stays as it is.
std::string WithSingleBlanks(const std::string& text) {
    std::string out;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        const char next = At(std::string_view(text), i + 1);
        const bool doubled = text[i] == ' ' && next == ' ';
        const bool beforeSign = text[i] == ' ' && (next == ':' || next == '.') && out.ends_with('"');
        const bool secondColon = text[i] == ':' && next == ' ' && out.ends_with("： ");
        if (secondColon) ++i;
        if (quoted || (!doubled && !beforeSign && !secondColon)) out += text[i];
    }
    return out;
}

// Whether a line only names what the next one is about.
bool OnlyNames(const std::string& text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.find('"', 1) == text.size() - 1;
    return quoted || text.ends_with(":") || text.ends_with("：");
}

} // namespace

void WriteErr(std::string_view utf8) {
    pending += utf8;
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
            {lang, wording, record.severity, record.place, record.args, console::IsErrorTerminal(), true});
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = WithSingleBlanks(TrimZenBlankUtf8(text.substr(begin, end - begin)));
        begin = end + 1;
        if (lines.empty()) RemoveHeads(line, record.place.line);
        if (line.empty()) continue;
        if (lines.size() == 1 && OnlyNames(lines.front()))
            lines.front() += (lines.front().ends_with("\"") ? ": " : " ") + line;
        else
            lines.push_back(line);
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
