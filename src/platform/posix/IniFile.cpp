#include "platform/IniFile.h"

#include "platform/Descriptor.h"
#include "platform/Files.h"
#include "text/Convert.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

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

std::string BesideName(const std::string& name) {
    return name + ".unfinished.tmp";
}

// Whether the open file still is the one of that name.
bool IsNamed(const Descriptor& file, const std::string& name) {
    struct stat opened {};
    struct stat named {};
    return fstat(file.Get(), &opened) == 0 && lstat(name.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

// Who writes the file beside the settings holds its lock; one that nobody holds was left by a program that was killed.
bool Lock(const Descriptor& file) {
    return flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void RemoveLeftover(const std::string& beside) {
    const Descriptor file(open(beside.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.Get() >= 0 && Lock(file) && IsNamed(file, beside)) unlink(beside.c_str());
}

// Makes the file beside the settings, with its lock. Another program that ends in the same folder is waited for.
Descriptor MakeBeside(const std::string& beside, mode_t mode) {
    constexpr int tries = 200;
    constexpr useconds_t pause = 5000;
    for (int i = 0; i < tries; ++i) {
        if (i > 0) usleep(pause);
        Descriptor file(open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (file.Get() >= 0 && Lock(file) && IsNamed(file, beside)) return file;
        if (file.Get() < 0 && errno != EEXIST) break;
        RemoveLeftover(beside);
    }
    return Descriptor(-1);
}

// Writes the whole file beside the old one and puts it in its place, so that neither a full disk nor the end of this
// program costs the old file. False if none can be made there.
bool WriteBeside(const std::string& name, std::string_view bytes, const struct stat* replaced) {
    const std::string beside = BesideName(name);
    const Descriptor file = MakeBeside(beside, replaced != nullptr ? 0600 : 0666);
    if (file.Get() < 0) return false;
    bool good = replaced == nullptr || fchmod(file.Get(), replaced->st_mode & 07777) == 0;
    good = good && WriteBytes(file.Get(), bytes) && fsync(file.Get()) == 0;
    good = good && rename(beside.c_str(), name.c_str()) == 0;
    if (!good) unlink(beside.c_str());
    return true;
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

// The bytes of the file, empty for one that is not there; nothing for one that is there and cannot be read.
std::optional<std::string> OldBytes(const std::string& path) {
    if (auto bytes = ReadFile(path)) return bytes;
    struct stat status {};
    if (stat(SystemPath(path).c_str(), &status) != 0 && errno == ENOENT) return "";
    return std::nullopt;
}

} // namespace

IniFile::IniFile(const std::string& path) : name(ResolvedName(SystemPath(path))), old(OldBytes(path)) {
    RemoveLeftover(BesideName(name));
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

void IniFile::Write() const {
    std::string bytes;
    for (const std::string& line : lines)
        bytes += line;
    if (!old || bytes == *old) return;
    struct stat status {};
    const bool isThere = lstat(name.c_str(), &status) == 0;
    if (isThere && access(name.c_str(), W_OK) != 0 && !S_ISLNK(status.st_mode)) return;
    // A link to nothing, a second name and a file of somebody else would be lost by a file put in their place.
    const bool isOurs = S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == geteuid();
    if (isThere && !isOurs) return WriteOver(name, bytes, *old);
    if (!WriteBeside(name, bytes, isThere ? &status : nullptr)) WriteOver(name, bytes, *old);
}

} // namespace tolvane::platform
