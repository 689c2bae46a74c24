#pragma once
// The case books, tests/books/*.book, as data. tests/README.md tells their form.

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace tolvane {

using Strings = std::vector<std::string>;

inline constexpr std::array<const char*, 7> PipelineNames = {"NWW", "NwW", "NaW", "WP", "NA", "AP", "NH"};
inline constexpr unsigned EveryPipeline = 0x7F;

// What is told of a case in some of the pipelines: "--> E AddressMsg.HexTooLong" or "== 1210 0000".
struct Telling {
    unsigned pipelines = EveryPipeline;
    std::string text;
};
struct Case {
    Strings rule;          // in English and in Japanese
    Strings frame;         // of a line alone, which stands where the frame has "*"; empty for a whole source
    bool run = false;      // what is good is run, and told by its registers and flags instead of its words
    std::size_t begin = 0; // its lines in the book
    std::size_t end = 0;
    Strings source; // as the book has it
    std::vector<Telling> tellings;
};
struct Book {
    std::filesystem::path path;
    Strings text;
    std::vector<Case> cases;
};

// The books of a folder, in the order of their names.
std::vector<Book> ReadBooks(const std::filesystem::path& folder);
// The whole source of a case, line by line.
Strings SourceOf(const Case& c);
// The line of the frame where the case stands.
int LineInFrame(const Case& c);

Strings Split(const std::string& text, char separator);
std::string WithoutBlanksBehind(const std::string& text);
// \t a tab, \s a blank, \n the end of a line, \\ a backslash, \rep{250}{x} a text many times.
std::string Unescaped(const std::string& text);

} // namespace tolvane
