#pragma once
// Texts of the tests: files, masks for what no two runs share, and readable differences.

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::tests {

std::string ReadFile(const std::filesystem::path& path); // empty for a file that is not there
void WriteFile(const std::filesystem::path& path, std::string_view text);

// The lines of a text, each with its line end if it has one.
std::vector<std::string> Lines(std::string_view text);
// All places of `part` replaced.
std::string Replaced(std::string text, std::string_view part, std::string_view by);

// Console text with <time> for the times, <system> for the build line and <folder> for the working directory.
std::string MaskConsole(const std::string& text, const std::string& folder);
// A dump, from Shift_JIS to UTF-8, with <date> for the date.
std::string MaskDump(const std::string& shiftJis);

// Empty for equal texts. Otherwise the lines round the first difference, "-" expected and "+" found, with the blanks
// at line ends and missing line ends made visible.
std::string Difference(std::string_view expected, std::string_view found);

// A list file: lines of a text, a tab and the reason why it is listed; "#" begins a comment line.
std::map<std::string, std::string> ReadReasons(const std::filesystem::path& path);

} // namespace tolvane::tests
