#pragma once
// What tolvane-run reads beside the command line: sources and the text for IN.

#include <cstddef>
#include <optional>
#include <string>

namespace tolvane::run {

// Why a file that platform::ReadFile has refused cannot be read, in the system's words.
std::string WhyNotRead(const std::string& path);

// The standard input in a file of its own, as the readers want it; the file goes with the object.
class StandardInputFile {
public:
    StandardInputFile();
    ~StandardInputFile();
    StandardInputFile(const StandardInputFile&) = delete;
    StandardInputFile& operator=(const StandardInputFile&) = delete;

    // Empty if the system has no room for it.
    const std::string& Path() const { return path; }

private:
    std::string path;
};

// The lines of a text for IN. Text that is not UTF-8 is read as Shift_JIS.
class InputLines {
public:
    explicit InputLines(const std::string& bytes);
    // The next line without its line end, at most `limit` characters of it; nothing at the end.
    std::optional<std::string> Next(std::size_t limit);

private:
    std::u16string rest;
};

} // namespace tolvane::run
