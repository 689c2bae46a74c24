#pragma once
// Texts of the tests: files, the words and encodings of transcripts, and masks for what no two runs share.

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

// The words of a section's head. Blanks part them but within quotation marks; \t \xHH \\ \" stand for characters.
std::vector<std::string> Words(std::string_view line);

// A text of a transcript in the encoding of a file: utf-8, utf-8-bom, cp932, utf-16le and utf-16be (with mark and
// Windows line ends), or the text as many times as in x310.
std::string Encoded(const std::string& text, const std::string& encoding);
// What a console printed, from cp932 or euc-jp to UTF-8. With any other name it is UTF-8.
std::string Decoded(const std::string& bytes, const std::string& encoding);

// Text of the console or of a dump with <time>, <date> and <system>, and of neighbouring empty cells the first alone.
std::string Masked(const std::string& text);

// A text that many transcripts share. Each "*" in it stands for characters of one line, which the "*" of the name show.
struct Mark {
    std::string name; // "<title *>"
    std::string text;
};
std::string Marked(std::string text, const std::vector<Mark>& marks);

// A list file: lines of a text, a tab and the reason why it is listed; "#" begins a comment line.
std::map<std::string, std::string> ReadReasons(const std::filesystem::path& path);

} // namespace tolvane::tests
