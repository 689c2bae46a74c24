#include "TextTools.h"

#include "text/Convert.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

namespace tolvane::tests {

namespace {

constexpr const char* MarkEnd = "\x1F"; // behind a mark, until it is known what follows

// A register or a memory cell of a dump that is empty and has no name.
bool IsEmptyCell(const std::string& line) {
    static const std::regex Empty(
        R"(^(  GR\d|#[0-9A-F]{4}: *\d+: +): +:#0000: +0: +\+0: 0000 0000 0000 0000:( 0:)?\n$)");
    return (line[0] == '#' || line[0] == ' ') && std::regex_match(line, Empty);
}

std::string MaskedLine(const std::string& line) {
    static const std::regex Number(R"(\d+(\.\d)?)");
    static const std::regex RunTime(
        R"(^(in )?(1 micro second or less|\d+(\.\d+)? sec|\d+(\.\d)? msec ?)(\. | 実行時間 ))");
    static const std::regex Date(
        R"((Sun|Mon|Tue|Wed|Thu|Fri|Sat) [A-Z][a-z]{2} [ \d]\d \d\d:\d\d:\d\d \d{4}|\d+年\d+月\d+日 \d+時\d+分\d+秒)");
    if (line.starts_with("Built for ")) return "Built for <system>\n";
    if (line.find("msec =(ReadFile") != std::string::npos) return std::regex_replace(line, Number, "<time>");
    if (line.find("File: ") != std::string::npos) return std::regex_replace(line, Date, "<date>");
    return std::regex_replace(line, RunTime, "$1<time>$5");
}

// How much of the text from `at` on is as the pattern says; 0 if it is not. Fills the name's "*".
std::size_t MatchLength(const std::string& text, std::size_t at, const std::string& pattern, std::string& name) {
    std::size_t i = at;
    std::size_t p = 0;
    for (;;) {
        const std::size_t star = std::min(pattern.find('*', p), pattern.size());
        const std::size_t found = text.find(pattern.substr(p, star - p), i);
        const std::string skipped = text.substr(i, found - i);
        if (found == std::string::npos || skipped.find('\n') != std::string::npos) return 0;
        if (p == 0 && found != i) return 0;
        if (p != 0) name.replace(name.find('*'), 1, skipped);
        i = found + star - p;
        if (star == pattern.size()) return i - at;
        p = star + 1;
    }
}

} // namespace

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteFile(const std::filesystem::path& path, std::string_view text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::vector<std::string> Lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

std::string Replaced(std::string text, std::string_view part, std::string_view by) {
    for (std::size_t p = text.find(part); p != std::string::npos; p = text.find(part, p + by.size()))
        text.replace(p, part.size(), by);
    return text;
}

std::vector<std::string> Words(std::string_view line) {
    std::vector<std::string> words;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool parts = line[i] == ' ' && !quoted;
        if (!parts && !inWord) words.emplace_back();
        inWord = !parts;
        if (parts) continue;
        if (line[i] == '"') {
            quoted = !quoted;
        } else if (line[i] != '\\') {
            words.back() += line[i];
        } else if (line[++i] == 'x') {
            words.back() += static_cast<char>(std::stoi(std::string(line.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            words.back() += line[i] == 't' ? '\t' : line[i];
        }
    }
    return words;
}

std::string Encoded(const std::string& text, const std::string& encoding) {
    if (encoding == "utf-8") return text;
    if (encoding == "utf-8-bom") return "\xEF\xBB\xBF" + text;
    if (encoding == "cp932") return Narrow932(WideUtf8(text).value_or(u""));
    std::string bytes;
    if (encoding[0] == 'x') {
        for (int times = std::stoi(encoding.substr(1)); times > 0; --times)
            bytes += text;
    } else {
        const bool little = encoding == "utf-16le";
        for (const char16_t unit : u"\uFEFF" + WideUtf8(Replaced(text, "\n", "\r\n")).value_or(u"")) {
            bytes += static_cast<char>(little ? unit & 0xFF : unit >> 8);
            bytes += static_cast<char>(little ? unit >> 8 : unit & 0xFF);
        }
    }
    return bytes;
}

std::string Decoded(const std::string& bytes, const std::string& encoding) {
    if (encoding == "cp932") return Utf8From932(bytes);
    return encoding == "euc-jp" ? Utf8From932(EucTo932(bytes)) : bytes;
}

std::string Masked(const std::string& text) {
    std::string out;
    std::size_t cells = 0;
    for (const std::string& line : Lines(text + "\n")) {
        const bool empty = IsEmptyCell(line);
        if (!empty && cells > 1) out += "<and " + std::to_string(cells - 1) + " more>\n";
        cells = empty ? cells + 1 : 0;
        if (cells < 2) out += MaskedLine(line);
    }
    out.pop_back();
    return out;
}

std::string Marked(std::string text, const std::vector<Mark>& marks) {
    for (const Mark& mark : marks) {
        const std::string head = mark.text.substr(0, mark.text.find('*'));
        for (std::size_t at = text.find(head); at != std::string::npos; at = text.find(head, at + 1)) {
            std::string name = mark.name + MarkEnd;
            if (const std::size_t length = MatchLength(text, at, mark.text, name); length != 0)
                text.replace(at, length, name);
        }
    }
    // Marks that follow each other share a line.
    return Replaced(Replaced(std::move(text), std::string(MarkEnd) + "<", " <"), MarkEnd, "\n");
}

std::map<std::string, std::string> ReadReasons(const std::filesystem::path& path) {
    std::map<std::string, std::string> reasons;
    for (std::string line : Lines(ReadFile(path))) {
        if (line.back() == '\n') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        const std::size_t tab = std::min(line.find('\t'), line.size());
        reasons[line.substr(0, tab)] = line.substr(std::min(tab + 1, line.size()));
    }
    return reasons;
}

} // namespace tolvane::tests
