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

// The words of a section's head. Blanks part them but within quotation marks; \t \r \xHH \\ stand for characters.
std::vector<std::string> Words(std::string_view line);
// A line of each word. A word that ends with "\c" is a line without its end.
std::string JoinedLines(const std::vector<std::string>& words);

// A text of a transcript in the encoding of a file: utf-8, utf-8-bom, cp932, utf-16le and utf-16be (with mark and
// Windows line ends), or bytes from hexadecimal digits: hex.
std::string Encoded(const std::string& text, const std::string& encoding);
// What a console printed, from cp932 or euc-jp to UTF-8. With any other name it is UTF-8.
std::string Decoded(const std::string& bytes, const std::string& encoding);

// Console text with <time> for the times, <system> for the build line and <folder> for the working directory.
std::string MaskConsole(const std::string& text, const std::string& folder);
// A text that many transcripts share. Each "*" in it stands for characters of one line, which the "*" of the name show.
struct Mark {
    std::string name; // "<title *>"
    std::string text;
};
std::string Marked(std::string text, const std::vector<Mark>& marks);
// A dump, from Shift_JIS to UTF-8, with <date> for the date and of neighbouring cells of zero the first alone.
std::string MaskDump(const std::string& shiftJis);

// Empty for equal texts. Otherwise the lines round the first difference, "-" expected and "+" found, with the blanks
// at line ends and missing line ends made visible.
std::string Difference(std::string_view expected, std::string_view found);

// A list file: lines of a text, a tab and the reason why it is listed; "#" begins a comment line.
std::map<std::string, std::string> ReadReasons(const std::filesystem::path& path);

} // namespace tolvane::tests
