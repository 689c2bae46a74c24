#include "platform/IniFile.h"

#include "platform/Files.h"
#include "platform/NewFile.h"
#include "platform/SettingsFile.h"
#include "text/Convert.h"

#include <algorithm>
#include <climits>
#include <string_view>

namespace tolvane::platform {

namespace {

constexpr int ValueLimit = 255; // characters
constexpr std::string_view Blanks = " \t\r\n";

std::string_view Trim(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(Blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(Blanks) + 1 - begin);
}

char Small(char c) {
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view x, std::string_view y) {
    return std::equal(x.begin(), x.end(), y.begin(), y.end(), [](char a, char c) { return Small(a) == Small(c); });
}

// The lines with their line ends.
std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        lines.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return lines;
}

// A line without the byte-order mark that an editor may have put in front of the first one.
std::string_view LineText(const std::vector<std::string>& lines, std::size_t i) {
    std::string_view text = lines[i];
    if (i == 0) text = WithoutUtf8Mark(text);
    return text;
}

// The name in a "[section]" line.
std::optional<std::string_view> SectionOf(std::string_view line) {
    const std::string_view text = Trim(line);
    if (!text.starts_with('[')) return std::nullopt;
    return Trim(text.substr(1, text.find(']') - 1));
}

// Position of the "=" in the line of a key.
std::optional<std::size_t> FindEqual(std::string_view line, std::string_view key) {
    const std::size_t equal = line.find('=');
    if (equal == std::string_view::npos || Trim(line).starts_with(';')) return std::nullopt;
    if (!SameName(Trim(line.substr(0, equal)), key)) return std::nullopt;
    return equal;
}

// The beginning of a value as far as it is kept. A character of UTF-8 is one, and so is a doubled backslash, which is
// one separator of a path.
std::string_view CutValue(std::string_view value) {
    const auto isTail = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    std::size_t end = 0;
    for (int character = 0; character < ValueLimit && end < value.size(); ++character) {
        const std::size_t begin = end++;
        if (value.substr(begin, 2) == "\\\\") ++end;
        while (end < value.size() && end < begin + 4 && isTail(value[end]))
            ++end;
    }
    return value.substr(0, end);
}

// The value as it is read: without blanks round it and without one pair of quotation marks. Marks that have others of
// their kind between them are no pair, unless they stand doubled at both ends.
std::string ValueOf(std::string_view text) {
    std::string_view value = Trim(text);
    for (const char mark : {'"', '\''}) {
        const std::string doubled(2, mark);
        if (value.size() < 2 || value.front() != mark || value.back() != mark) continue;
        const bool twice = value.size() >= 4 && value.starts_with(doubled) && value.ends_with(doubled);
        if (!twice && value.find(mark, 1) != value.size() - 1) continue;
        value = value.substr(1, value.size() - 2);
        break;
    }
    return std::string(CutValue(value));
}

// The value as it is written, so that reading gives it back; as it stands where no marks can do that.
std::string WrittenValue(const std::string& value) {
    const std::string text = value.substr(0, value.find('\n')); // a value is one line
    for (const char* mark : {"", "'", "\""}) {
        const std::string written = mark + text + mark;
        if (ValueOf(written) == CutValue(text)) return written;
    }
    return text;
}

// Where a key stands in the lines, and where one of its section can be added.
struct Finding {
    std::optional<std::size_t> keyLine;
    std::optional<std::size_t> lastLine; // the last line of the section that is not blank
};

Finding FindKey(const std::vector<std::string>& lines, const std::string& section, const std::string& key) {
    Finding found;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = LineText(lines, i);
        if (const auto name = SectionOf(line)) {
            if (found.lastLine) return found; // the first section of a name is the one that counts
            if (SameName(*name, section)) found.lastLine = i;
        } else if (found.lastLine && FindEqual(line, key)) {
            found.keyLine = i;
            return found;
        } else if (found.lastLine && !Trim(line).empty()) {
            found.lastLine = i;
        }
    }
    return found;
}

std::string_view LineEndOf(std::string_view line) {
    if (line.ends_with("\r\n")) return "\r\n";
    return line.ends_with('\n') ? "\n" : "";
}

// Adds lines behind a position; a last line without its line end gets one first.
void InsertLines(std::vector<std::string>& lines, std::size_t at, const std::vector<std::string>& added) {
    const bool isCrLf = !lines.empty() && LineEndOf(lines[0]) == "\r\n";
    const std::string lineEnd = isCrLf ? "\r\n" : "\n";
    if (at > 0 && LineEndOf(lines[at - 1]).empty() && lines[at - 1] != Utf8Mark) lines[at - 1] += lineEnd;
    for (const std::string& line : added)
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at++), line + lineEnd);
}

} // namespace

IniFile::IniFile(const std::string& path) : name(ResolvedName(SystemPath(path))), old(ReadSettings(path)) {
    RemoveLeftovers(name);
    if (old) lines = LinesOf(*old);
}

std::optional<std::string> IniFile::FindValue(const std::string& section, const std::string& key) const {
    const Finding found = FindKey(lines, section, key);
    if (!found.keyLine) return std::nullopt;
    const std::string_view line = LineText(lines, *found.keyLine);
    return ValueOf(line.substr(*FindEqual(line, key) + 1));
}

std::string IniFile::GetStr(const std::string& section, const std::string& key, const std::string& def) const {
    return FindValue(section, key).value_or(def);
}

int IniFile::GetInt(const std::string& section, const std::string& key, int def) const {
    const auto value = FindValue(section, key);
    if (!value) return def;
    const bool isNegative = value->starts_with('-');
    long long number = 0;
    for (std::size_t i = isNegative || value->starts_with('+') ? 1 : 0; i < value->size(); ++i) {
        const char c = (*value)[i];
        if (c < '0' || '9' < c) break;
        number = std::min<long long>(number * 10 + (c - '0'), INT_MAX);
    }
    return static_cast<int>(isNegative ? -number : number);
}

void IniFile::PutStr(const std::string& section, const std::string& key, const std::string& value) {
    const Finding found = FindKey(lines, section, key);
    const std::string entry = key + "=" + WrittenValue(value);
    if (found.keyLine) {
        std::string& line = lines[*found.keyLine];
        line = entry + std::string(LineEndOf(line));
    } else if (found.lastLine) {
        InsertLines(lines, *found.lastLine + 1, {entry});
    } else {
        InsertLines(lines, lines.size(), {"[" + section + "]", entry});
    }
}

void IniFile::PutInt(const std::string& section, const std::string& key, int value) {
    PutStr(section, key, std::to_string(value));
}

std::optional<std::string> IniFile::Write() const {
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line;
    if (!old || bytes == *old || WriteSettings(name, bytes, *old)) return std::nullopt;
    return LastFailure();
}

} // namespace tolvane::platform
