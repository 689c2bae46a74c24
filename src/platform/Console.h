#pragma once
// The console: one output buffer for everything that the program prints, and reads of whole lines. Text is UTF-8 on
// the program's side; outside it is UTF-8, Shift_JIS or EUC-JP as the user's locale names it (UTF-8 without one).

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane::console {

// Why a standard file takes no more.
struct Loss {
    std::string why;         // the system's words
    bool readerGone = false; // the reader of a pipe has all it wanted
};
// Takes care that no output is lost: from now on the buffer is written out before a signal ends the program, and `lost`
// is told when the standard output takes no more.
void Start(void (*lost)(const Loss& loss));

// Appends to the buffer, which is written out before a read, at Flush, at exit and when it is large.
void Write(std::string_view utf8);
void Flush();
// At once where a person watches, else within a tenth of a second of a running simulated program.
void FlushSoon();
// Goes to the standard error at once.
void WriteError(std::string_view utf8);
// Whether something of it has been lost.
bool IsErrorLost();
// From now on what is written is appended to `text` as UTF-8; null: it goes to the standard output again.
void WriteTo(std::string* text);

// Text as the bytes of a text file that the user's other programs read: in the console's code. `bytes` holds them where
// they are not those of the text.
std::string_view InUsersCode(std::string_view utf8, std::string& bytes);

// What such a file begins with where its code has to be told; else nothing.
std::string_view UsersMark();

// One line without its line end; what lies beyond `limit` characters is dropped with the line. Nothing at the end of
// the input, or when a signal stops the simulated program that reads; a last line without its line end is a line.
std::optional<std::string> ReadLine(std::size_t limit);

// Passes over a mark of UTF-8, in whatever code the console is. For the front of the input.
void SkipMark();

// The next byte of the input, for an editor of lines; -1 where ReadLine has nothing. What is buffered goes to both.
int ReadByte();
bool InputIsUtf8();

// Bytes of the last line's text in front of the first ones that were not valid in the console's code.
std::size_t LastLineValidLength();

// Whether a person watches the output.
bool IsTerminal();
bool IsErrorTerminal();
// Whether a person types the input.
bool InputIsTerminal();

} // namespace tolvane::console
