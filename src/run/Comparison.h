#pragma once
// What a program has printed against what is expected of it.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tolvane::run {

struct Difference {
    std::size_t line; // from 0
    std::string expected, printed;
};

// The text of a file as it is compared: without a mark at its front and without carriage returns.
std::string AsExpected(std::string bytes);
std::vector<std::string> LinesOf(const std::string& text);
// The first line, as it is shown, that two texts do not share; a line end that is missing at the end is no difference.
std::optional<Difference> FirstDifference(const std::string& expected, const std::string& printed);
// Line n in quotation marks, with what is not seen as "^X" or "<U+3000>"; behind the last one the word for nothing.
std::string ShownLine(const std::vector<std::string>& lines, std::size_t n);

} // namespace tolvane::run
