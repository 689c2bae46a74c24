#pragma once
// A text of the program as data: one row of a catalogue, in both languages, with its variants by wording.
//
// A row's text may hold tags in braces:
//   {0} {1} ...  an argument as it stands         {0q}  quoted: a blank, the text in double quotation marks, a blank
//   {0o}         a number as "1st", "2nd", ...    {0x}  a 32-bit cell in upper-case hexadecimal digits
//   {0x4}        the same with at least four digits, filled with zeros
//   {prefix}     the prefix of the severity: "Error : "
//   {atline}     "line 12: "                      {line}   {prefix}{atline}, the head of most diagnostics
//   {atconst}    "line 12:  Constant Nr=1: "      {const}  {prefix}{atconst}
//   {nr}         the line's number alone          {k}      the constant's number alone
// "\n" breaks the console line.

#include "text/Text.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>

namespace tolvane {

// The wordings. A variant of a row names those that it stands for, as a set of bits.
enum Wording : unsigned {
    WordingNWW = 1, // NWW, NwW, NaW: the base text of every row
    WordingWP = 2,
    WordingNA = 4,
    WordingAP = 8,
    WordingNH = 16,
};

// The room that owns a row. The pipeline table says by room whether a diagnostic is printed at once or queued.
enum class Room : std::uint8_t {
    Driver,
    Input,
    Lines,    // lines, program boundaries, names
    Operands, // operands, constants and the address walk
    Numbers,  // the numeric constants, shared by all wide pipelines
    Linker,
    Machine,
    Reports,
};

// Another wording of a row. A null text means that this language keeps the base text.
struct Variant {
    unsigned wordings = 0;
    const char* en = nullptr;
    const char* ja = nullptr;
};

struct Msg {
    Room room;
    const char* en;
    const char* ja;
    std::array<Variant, 4> variants;

    constexpr Msg(Room owner, const char* english, const char* japanese, Variant v0 = {}, Variant v1 = {},
                  Variant v2 = {}, Variant v3 = {})
        : room(owner), en(english), ja(japanese), variants{v0, v1, v2, v3} {}

    // A text that is the same in both languages.
    constexpr Msg(Room owner, const char* both) : Msg(owner, both, both) {}

    // The text for a language (0 Japanese, else English) and one wording.
    const char* For(int lang, Wording wording) const;
};

// Console text that is already UTF-8: a path, a name of the system.
struct Utf8Arg {
    const std::string& text;
};

// An argument of a row: a number, source text of either kind, or console text. Held as UTF-8 or as a number.
class Arg {
public:
    Arg(int n) : number(n), isNumber(true) {}
    Arg(long n) : number(n), isNumber(true) {}
    Arg(long long n) : number(n), isNumber(true) {}
    Arg(std::size_t n) : number(static_cast<long long>(n)), isNumber(true) {}
    Arg(const TextW& wide);
    Arg(const TextA& shiftJis);
    Arg(Utf8Arg utf8) : text(utf8.text) {}
    Arg(const char* ascii) : text(ascii) {}

    std::string text;
    long long number = 0;
    bool isNumber = false;
};
using Args = std::initializer_list<Arg>;

enum class Severity { Error, Warning, Note, Memo };

// Where a diagnostic belongs: a zero-based source line and, for a constant of the line, its zero-based number.
struct Place {
    int line = -1;
    int constant = 0;

    Place() = default;
    Place(int sourceLine, int constantNr = 0) : line(sourceLine), constant(constantNr) {}
};
inline const Place NoLine{};

// "1st", "2nd", "3rd", otherwise the number and "th", also for 21, 22 and 23.
std::string OrdinalStr(long long n);
// A blank, the text in double quotation marks, a blank.
std::string QuoteStr(const std::string& utf8);
// The severity's prefix in a language: "Error : ", "エラー： ".
const char* SeverityPrefix(Severity severity, int lang);
// The head of a diagnostic on a source line, and on a constant of one.
std::string LineHead(Severity severity, int line, int lang);
std::string ConstHead(Severity severity, int line, int constant, int lang);

// The row's text with its tags filled in, as UTF-8. An argument that is not given leaves its tag empty.
std::string Compose(const char* text, int lang, Severity severity, Place place, Args args);

} // namespace tolvane
