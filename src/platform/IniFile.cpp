#include "platform/IniFile.h"

#include "platform/Descriptor.h"
#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace tolvane::platform {

namespace {

constexpr std::size_t ValueLimit = 255;
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
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
    if (i == 0 && text.starts_with(Utf8Mark)) text.remove_prefix(Utf8Mark.size());
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

// The value as it is read: without blanks round it and without one pair of quotation marks.
std::string ValueOf(std::string_view text) {
    std::string_view value = Trim(text);
    for (char mark : {'"', '\''}) {
        const bool paired = value.size() >= 2 && value.front() == mark && value.back() == mark;
        if (!paired || value.find(mark, 1) != value.size() - 1) continue;
        value = value.substr(1, value.size() - 2);
        break;
    }
    return std::string(value.substr(0, ValueLimit));
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

std::optional<std::string> FindValue(const std::string& section, const std::string& key, const std::string& path) {
    const std::vector<std::string> lines = LinesOf(ReadFile(path).value_or(""));
    const Finding found = FindKey(lines, section, key);
    if (!found.keyLine) return std::nullopt;
    const std::string_view line = LineText(lines, *found.keyLine);
    return ValueOf(line.substr(*FindEqual(line, key) + 1));
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

// Writes the whole file beside the old one and puts it in its place, so that a full disk never costs the old file.
bool WriteBeside(const std::string& name, std::string_view bytes, mode_t mode) {
    const std::string beside = name + "." + std::to_string(getpid()) + ".tmp";
    Descriptor file(open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (file.Get() < 0) return false;
    bool good = mode == 0 || fchmod(file.Get(), mode) == 0;
    good = WriteBytes(file.Get(), bytes) && good;
    good = file.Close() && good;
    good = good && rename(beside.c_str(), name.c_str()) == 0;
    if (!good) unlink(beside.c_str());
    return good;
}

// Writes over the old bytes; if that fails, puts them back, for which the disk still has the room.
void WriteOver(const std::string& name, std::string_view bytes, std::string_view old) {
    const Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
    if (file.Get() < 0) return;
    std::string_view kept = bytes;
    if (!WriteBytes(file.Get(), bytes)) {
        kept = old;
        if (lseek(file.Get(), 0, SEEK_SET) != 0 || !WriteBytes(file.Get(), old)) return;
    }
    while (ftruncate(file.Get(), static_cast<off_t>(kept.size())) != 0 && errno == EINTR)
        continue;
}

// The file that a symbolic link stands for; the name itself where there is none.
std::string ResolvedName(const std::string& name) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(name.c_str(), nullptr), &std::free);
    return real ? real.get() : name;
}

void WriteIni(const std::string& path, std::string_view bytes, std::string_view old) {
    const std::string name = ResolvedName(SystemPath(path));
    struct stat status {};
    const bool isThere = lstat(name.c_str(), &status) == 0;
    if (isThere && access(name.c_str(), W_OK) != 0 && !S_ISLNK(status.st_mode)) return;
    // A link to nothing, a second name and a file of somebody else would be lost by a file put in their place.
    const bool isOurs = S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == geteuid();
    const mode_t mode = isThere ? status.st_mode & 07777 : 0;
    if ((!isThere || isOurs) && WriteBeside(name, bytes, mode)) return;
    WriteOver(name, bytes, old);
}

// The bytes of the file, empty for one that is not there; nothing for one that is there and cannot be read.
std::optional<std::string> OldBytes(const std::string& path) {
    if (auto bytes = ReadFile(path)) return bytes;
    struct stat status {};
    if (stat(SystemPath(path).c_str(), &status) != 0 && errno == ENOENT) return "";
    return std::nullopt;
}

} // namespace

std::string GetIniStr(const std::string& section, const std::string& key, const std::string& def,
                      const std::string& path) {
    return FindValue(section, key, path).value_or(def);
}

int GetIniInt(const std::string& section, const std::string& key, int def, const std::string& path) {
    const auto value = FindValue(section, key, path);
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

void PutIniStr(const std::string& section, const std::string& key, const std::string& value, const std::string& path) {
    const auto old = OldBytes(path);
    if (!old) return;
    std::vector<std::string> lines = LinesOf(*old);
    const Finding found = FindKey(lines, section, key);
    const std::string entry = key + "=" + value.substr(0, value.find_first_of("\r\n")); // a value is one line
    if (found.keyLine) {
        std::string& line = lines[*found.keyLine];
        line = entry + std::string(LineEndOf(line));
    } else if (found.lastLine) {
        InsertLines(lines, *found.lastLine + 1, {entry});
    } else {
        InsertLines(lines, lines.size(), {"[" + section + "]", entry});
    }
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line;
    if (bytes != *old) WriteIni(path, bytes, *old);
}

void PutIniInt(const std::string& section, const std::string& key, int value, const std::string& path) {
    PutIniStr(section, key, std::to_string(value), path);
}

} // namespace tolvane::platform
