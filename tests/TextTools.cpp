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

std::string MaskBuild(const std::string& line) {
    return line.starts_with("Built for ") ? "Built for <system>\n" : line;
}

std::string MaskDate(const std::string& line) {
    static const std::regex English(R"((Sun|Mon|Tue|Wed|Thu|Fri|Sat) [A-Z][a-z]{2} [ \d]\d \d\d:\d\d:\d\d \d{4})");
    static const std::regex Japanese("\\d+年\\d+月\\d+日 \\d+時\\d+分\\d+秒");
    if (line.find("File: ") == std::string::npos) return line;
    return std::regex_replace(std::regex_replace(line, English, "<date>"), Japanese, "<date>");
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

std::string MaskConsole(const std::string& text, const std::string& folder) {
    std::string out;
    for (const std::string& line : Lines(Replaced(text, folder, "<folder>")))
        out += MaskRunTime(MaskTimeLine(MaskBuild(line)));
    return out;
}

std::string MaskDump(const std::string& shiftJis) {
    std::string out;
    for (const std::string& line : Lines(Utf8From932(shiftJis)))
        out += MaskDate(line);
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
