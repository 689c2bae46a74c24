#include "TextTools.h"

#include "text/Convert.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

namespace tolvane::tests {

namespace {

constexpr std::size_t LinesBefore = 3;
constexpr std::size_t LinesShown = 8;
constexpr const char* MarkEnd = "\x1F"; // behind a mark, until it is known what follows

// "(0.1, 12.3, 0.2) msec =" at the front of a time line.
std::string MaskTimeLine(const std::string& line) {
    static const std::regex TimeLine(R"(^\(\d+(\.\d)?, \d+(\.\d)?(, \d+(\.\d)?)?\) msec =)");
    std::smatch match;
    if (!std::regex_search(line, match, TimeLine)) return line;
    const char* masked = match[3].matched ? "(<time>, <time>, <time>) msec =" : "(<time>, <time>) msec =";
    return masked + match.suffix().str();
}

// The run time at the end of a run: "in 12.3 msec. " and its Japanese form.
std::string MaskRunTime(const std::string& line) {
    static const std::regex RunTime(
        R"(^(in )?(1 micro second or less|\d+(\.\d+)? sec|\d+(\.\d)? msec ?)(\. | 実行時間 ))");
    return std::regex_replace(line, RunTime, "$1<time>$5");
}

// A register or a memory cell of a dump that is empty and has no name.
bool IsCellOfZero(const std::string& line) {
    static const std::regex Zero(
        R"(^(  GR\d|#[0-9A-F]{4}: *\d+: +): +:#0000: +0: +\+0: 0000 0000 0000 0000:( 0:)?\n$)");
    return std::regex_match(line, Zero);
}

std::string MaskBuild(const std::string& line) {
    return line.starts_with("Built for ") ? "Built for <system>\n" : line;
}

std::string MaskDate(const std::string& line) {
    static const std::regex English(R"((Sun|Mon|Tue|Wed|Thu|Fri|Sat) [A-Z][a-z]{2} [ \d]\d \d\d:\d\d:\d\d \d{4})");
    static const std::regex Japanese("\\d+年\\d+月\\d+日 \\d+時\\d+分\\d+秒");
    if (line.find("File: ") == std::string::npos) return line;
    return std::regex_replace(std::regex_replace(line, English, "<date>"), Japanese, "<date>");
}

// How much of the text from `at` on is as the pattern says; 0 if it is not. Fills the name's "*".
std::size_t MatchLength(const std::string& text, std::size_t at, const std::string& pattern, std::string& name) {
    std::size_t i = at;
    for (std::size_t p = 0; p < pattern.size(); ++p) {
        if (pattern[p] == '*') {
            const std::size_t end = text.find(pattern[p + 1], i);
            const std::string found = text.substr(i, end - i);
            if (end == std::string::npos || found.find('\n') != std::string::npos) return 0;
            name.replace(name.find('*'), 1, found);
            i = end;
        } else if (i == text.size() || text[i++] != pattern[p]) {
            return 0;
        }
    }
    return i - at;
}

std::string Visible(std::string line) {
    const bool ended = !line.empty() && line.back() == '\n';
    if (ended) line.pop_back();
    std::string blanks;
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t' || line.back() == '\r')) {
        blanks.insert(0, line.back() == ' ' ? "·" : line.back() == '\t' ? "→" : "␍");
        line.pop_back();
    }
    return line + blanks + (ended ? "\n" : "⟨no line end⟩\n");
}

std::string Show(const char* mark, const std::vector<std::string>& lines, std::size_t first) {
    std::string out;
    for (std::size_t i = first; i < lines.size() && i < first + LinesShown; ++i)
        out += mark + Visible(lines[i]);
    if (first + LinesShown < lines.size()) out += std::string(mark) + "...\n";
    if (first >= lines.size()) out += std::string(mark) + "⟨the end⟩\n";
    return out;
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
        const bool ends = line[i] == ' ' && !quoted;
        if (!ends && !inWord) words.emplace_back();
        inWord = !ends;
        if (ends) continue;
        if (line[i] == '"') {
            quoted = !quoted;
            continue;
        }
        const bool escape = line[i] == '\\' && i + 1 < line.size();
        const char c = escape ? line[++i] : line[i];
        std::string& word = words.back();
        if (escape && c == 'x') {
            word += static_cast<char>(std::stoi(std::string(line.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else if (escape && c == 'c') {
            word += "\\c";
        } else {
            word += escape && c == 't' ? '\t' : escape && c == 'r' ? '\r' : c;
        }
    }
    return words;
}

std::string JoinedLines(const std::vector<std::string>& words) {
    std::string lines;
    for (const std::string& word : words)
        lines += word.ends_with("\\c") ? word.substr(0, word.size() - 2) : word + "\n";
    return lines;
}

std::string Encoded(const std::string& text, const std::string& encoding) {
    if (encoding == "utf-8-bom") return "\xEF\xBB\xBF" + text;
    if (encoding[0] == 'x') {
        std::string all;
        for (int times = std::stoi(encoding.substr(1)); times > 0; --times)
            all += text;
        return all;
    }
    if (encoding == "cp932") return Narrow932(WideUtf8(text).value_or(u""));
    std::string bytes;
    if (encoding == "hex") {
        std::istringstream digits(text);
        for (std::string two; digits >> two;)
            bytes += static_cast<char>(std::stoi(two, nullptr, 16));
    } else if (encoding == "utf-16le" || encoding == "utf-16be") {
        const bool little = encoding == "utf-16le";
        for (const char16_t unit : u"\uFEFF" + WideUtf8(Replaced(text, "\n", "\r\n")).value_or(u"")) {
            bytes += static_cast<char>(little ? unit & 0xFF : unit >> 8);
            bytes += static_cast<char>(little ? unit >> 8 : unit & 0xFF);
        }
    } else {
        return text;
    }
    return bytes;
}

std::string Decoded(const std::string& bytes, const std::string& encoding) {
    if (encoding == "cp932") return Utf8From932(bytes);
    if (encoding != "euc-jp") return bytes;
    std::string shiftJis;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (static_cast<signed char>(bytes[i]) >= 0 || i + 1 == bytes.size()) {
            shiftJis += bytes[i];
            continue;
        }
        const int row = static_cast<unsigned char>(bytes[i]) - 0xA0;
        const int cell = static_cast<unsigned char>(bytes[++i]) - 0xA0;
        const int trail = row % 2 == 0 ? 0x9E : cell < 64 ? 0x3F : 0x40;
        shiftJis += static_cast<char>((row + 1) / 2 + (row <= 62 ? 0x80 : 0xC0));
        shiftJis += static_cast<char>(cell + trail);
    }
    return Utf8From932(shiftJis);
}

std::string MaskConsole(const std::string& text, const std::string& folder) {
    std::string out;
    for (const std::string& line : Lines(Replaced(text, folder, "<folder>")))
        out += MaskDate(MaskRunTime(MaskTimeLine(MaskBuild(line))));
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

std::string MaskDump(const std::string& shiftJis) {
    std::string out;
    std::size_t zeros = 0;
    const auto tellZeros = [&] {
        if (zeros > 1) out += "<and " + std::to_string(zeros - 1) + " more>\n";
        zeros = 0;
    };
    for (const std::string& line : Lines(Utf8From932(shiftJis))) {
        if (!IsCellOfZero(line)) tellZeros();
        if (!IsCellOfZero(line) || zeros++ == 0) out += MaskDate(line);
    }
    tellZeros();
    return out;
}

std::string Difference(std::string_view expected, std::string_view found) {
    if (expected == found) return {};
    const std::vector<std::string> want = Lines(expected);
    const std::vector<std::string> have = Lines(found);
    std::size_t first = 0;
    while (first < want.size() && first < have.size() && want[first] == have[first])
        ++first;

    std::string out = "first difference in line " + std::to_string(first + 1) + " (- expected, + found)\n";
    for (std::size_t i = first < LinesBefore ? 0 : first - LinesBefore; i < first; ++i)
        out += "  " + Visible(want[i]);
    return out + Show("- ", want, first) + Show("+ ", have, first);
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
