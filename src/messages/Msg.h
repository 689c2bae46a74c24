#pragma once
// A text of the program as data: one row of a catalogue, in both languages, with its variants by wording; and what a
// diagnostic adds to it: severity, place, arguments.
//
// A row's text may hold tags in braces:
//   {0} {1} ...  an argument as it stands         {0q}  quoted: a blank, the text in double quotation marks, a blank
//   {0o}         a number as "1st", "2nd", ...    {0x}  a 32-bit cell in upper-case hexadecimal digits
//   {0x4}        the same with at least four digits, filled with zeros
//   {prefix}     the prefix of the severity: "Error : "
//   {atline}     "line 12: "                      {line}   {prefix}{atline}, the head of most diagnostics
//   {atconst}    "line 12:  Constant Nr=1: "      {const}  {prefix}{atconst}
//   {nr}         the line's number alone          {k}      the constant's number alone
//   {body}       ends a head that the text spells out itself; {constbody} one that has told the constant, too
//   {join}       a line break behind a line that only names what the next one is about
// "\n" breaks the console line.
//
// Where severity and line are told by other means, a text is composed without its heads: the tags of severity and line
// and all in front of {body} are left out, {constbody} tells the constant's number, a joined line goes on behind a
// colon, and blanks never double.

#include "text/Text.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
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

// Another wording of a row. A null text means that this language keeps the base text.
struct Variant {
    unsigned wordings = 0;
    const char* en = nullptr;
    const char* ja = nullptr;
};

struct Msg {
    const char* en;
    const char* ja;
    std::array<Variant, 4> variants;
    bool ofOperands = false; // said by the passes over operands, whose moment of printing is the pipeline's choice

    constexpr Msg(const char* english, const char* japanese, Variant v0 = {}, Variant v1 = {}, Variant v2 = {},
                  Variant v3 = {})
        : en(english), ja(japanese), variants{v0, v1, v2, v3} {}

    // A text that is the same in both languages.
    constexpr Msg(const char* both) : Msg(both, both) {}

    // The text for a language (0 Japanese, else English) and one wording.
    const char* For(int lang, Wording wording) const;
};

// Makes the rows of the catalogues whose diagnostics are `ofOperands`.
struct OperandRows {
    constexpr Msg operator()(const char* en, const char* ja, Variant v0 = {}, Variant v1 = {}, Variant v2 = {},
                             Variant v3 = {}) const {
        Msg msg(en, ja, v0, v1, v2, v3);
        msg.ofOperands = true;
        return msg;
    }
    constexpr Msg operator()(const char* both) const { return operator()(both, both); }
};

// Console text that is already UTF-8: a path, a name of the system.
struct Utf8Arg {
    const std::string& text;
};

// An argument of a row as a record keeps it: a number, UTF-8 text that lies elsewhere, or another row, which is worded
// in the language in force.
struct KeptArg {
    SlimView<char> text;
    bool isNumber = false;
    long long number = 0;
    const Msg* row = nullptr;
};

// An argument as a check hands it over: a number, source text of either kind, console text, or another row.
class Arg {
public:
    Arg(int n) : number(n), isNumber(true) {}
    Arg(long n) : number(n), isNumber(true) {}
    Arg(long long n) : number(n), isNumber(true) {}
    Arg(std::size_t n) : number(static_cast<long long>(n)), isNumber(true) {}
    Arg(ViewW wide);
    Arg(ViewA shiftJis);
    template <class Ch> Arg(SlimView<Ch> kept) : Arg(View<Ch>(kept)) {}
    Arg(const TextA& shiftJis) : Arg(ViewA(shiftJis)) {}
    Arg(const TextW& wide) : Arg(ViewW(wide)) {}
    Arg(Utf8Arg utf8) : text(utf8.text) {}
    Arg(const char* ascii) : text(ascii) {}
    Arg(const Msg& named) : row(&named) {}

    operator KeptArg() const { return {ViewA(text), isNumber, number, row}; }

    std::string text;
    long long number = 0;
    const Msg* row = nullptr;
    bool isNumber = false;
};
using Args = std::initializer_list<Arg>;

enum class Severity : std::uint8_t { Error, Warning, Note, Memo };

// Where a diagnostic belongs: a zero-based source line and, for a constant of the line, its zero-based number.
struct Place {
    int line = -1;
    int constant = 0;

    Place() = default;
    Place(int sourceLine, int constantNr = 0) : line(sourceLine), constant(constantNr) {}
};
inline const Place NoLine{};

// What the tags of a text are filled in from.
struct Filling {
    int lang;
    Wording wording;
    Severity severity;
    Place place;
    std::span<const KeptArg> args;
    bool forTerminal = false; // control characters of texts are shown as "^X"
    bool headless = false;    // without heads: of them the constant's number alone is left
};
// Appends a text of a source or a name, which must not move the cursor of a terminal or worse: control characters but
// the tab as "^X", those of ISO 6429 as "^[X".
void AppendVisibly(std::string& out, std::string_view text);
// What stands behind the head that a row's text spells out.
std::string_view WithoutHead(std::string_view text);
// Takes the first console line, without its line break, off a row's text.
std::string_view TakeLine(std::string_view& text);
// Appends the text with its tags filled in, as UTF-8. An argument that is not given leaves its tag empty.
void Compose(std::string& out, std::string_view text, const Filling& filling);

} // namespace tolvane
