#pragma once
// What tolvane-run reads beside the command line: sources and the text for IN.

#include "platform/Files.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tolvane::run {

// What can be read once: a file, a pipe, a device, and "-" for the standard input. At most 64 MB.
platform::Once ReadInput(const std::string& path);
// Why it could not be read.
std::string WhyNotRead(const platform::Once& once);

// The lines of a text for IN. Text that is not UTF-8 is read as Shift_JIS.
class InputLines {
public:
    explicit InputLines(const std::string& bytes);
    // The next line without its line end, at most `limit` characters of it; nothing at the end.
    std::optional<std::string> Next(std::size_t limit);

private:
    std::u16string text;
    std::size_t next = 0; // where the next line begins
};

} // namespace tolvane::run
