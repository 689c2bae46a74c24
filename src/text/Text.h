#pragma once
// Text of the two kinds in which source lines are held, and the small questions that every check asks of it.
//
//   wide    char16_t  UTF-16 code units; one unit is one character and one machine word
//   narrow  char      Shift_JIS bytes (code page 932)
//
// Console text and paths are UTF-8 in std::string and are not handled here, but for the trims.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace tolvane {

template <class Ch> using Text = std::basic_string<Ch>;
using TextW = Text<char16_t>;
using TextA = Text<char>;
// Text that somebody else holds.
template <class Ch> using View = std::basic_string_view<Ch>;
using ViewW = View<char16_t>;
using ViewA = View<char>;

// The same in 12 bytes instead of 16, for records of which there are many. A text has less than 4 G characters.
template <class Ch> class SlimView {
public:
    SlimView() = default;
    SlimView(View<Ch> text) : length(static_cast<std::uint32_t>(text.size())) {
        const Ch* const begin = text.data();
        std::memcpy(address.data(), &begin, sizeof begin);
    }
    operator View<Ch>() const {
        const Ch* begin = nullptr;
        std::memcpy(&begin, address.data(), sizeof begin);
        return View<Ch>(begin, length);
    }
    bool empty() const { return length == 0; }
    std::size_t size() const { return length; }
    Ch operator[](std::size_t i) const { return View<Ch>(*this)[i]; }
    View<Ch> substr(std::size_t from, std::size_t count = std::string::npos) const {
        return View<Ch>(*this).substr(from, count);
    }

private:
    std::array<std::uint32_t, sizeof(const Ch*) / sizeof(std::uint32_t)> address{};
    std::uint32_t length = 0;
};

inline constexpr std::size_t npos = std::string::npos;

template <class Ch> inline constexpr bool IsWide = sizeof(Ch) == 2;

// Instantiates a routine for both kinds, at the end of the file that defines it.
#define TOLVANE_BOTH_KINDS(routine)                                                                                    \
    template decltype(routine<char16_t>) routine<char16_t>;                                                            \
    template decltype(routine<char>) routine<char>;

// The character at i, or the terminator 0 when i lies behind the end.
template <class Ch> constexpr Ch At(View<Ch> text, std::size_t i) {
    return i < text.size() ? text[i] : Ch(0);
}

template <class Ch> constexpr bool IsBlank(Ch c) {
    return c == Ch(' ') || c == Ch('\t');
}
template <class Ch> constexpr bool IsDigit(Ch c) {
    return Ch('0') <= c && c <= Ch('9');
}
template <class Ch> constexpr bool IsUpper(Ch c) {
    return Ch('A') <= c && c <= Ch('Z');
}
template <class Ch> constexpr bool IsLower(Ch c) {
    return Ch('a') <= c && c <= Ch('z');
}
template <class Ch> constexpr bool IsSign(Ch c) {
    return c == Ch('+') || c == Ch('-');
}
// 0 to 9 and A to F; small letters are no hexadecimal digits of CASL II.
template <class Ch> constexpr bool IsHexDigit(Ch c) {
    return IsDigit(c) || (Ch('A') <= c && c <= Ch('F'));
}
// A character that a label may hold: A to Z and 0 to 9.
template <class Ch> constexpr bool IsLabelChar(Ch c) {
    return IsUpper(c) || IsDigit(c);
}

// A sum of answers in the width of the characters, so that the compiler asks many of them at once.
template <class Ch> using Units = std::make_unsigned_t<Ch>;

// Whether the character occurs. Most texts lack what the passes ask for, so all of it is looked at, many characters at
// a time.
template <class Ch> bool Has(View<Ch> text, char c) {
    Units<Ch> found = 0;
    for (const Ch each : text)
        found = static_cast<Units<Ch>>(found | static_cast<Units<Ch>>(each == Ch(c)));
    return found != 0;
}

// The characters from 1 to 7E, which are the same in every code.
template <class Ch> constexpr bool IsAsciiChar(Ch c) {
    return Ch(0) < c && c < Ch(0x7F);
}
// Whether a text has no others; how many of them stand at its front.
template <class Ch> bool IsAscii(View<Ch> text) {
    Units<Ch> others = 0;
    for (const Ch c : text)
        others = static_cast<Units<Ch>>(others | static_cast<Units<Ch>>(!IsAsciiChar(c)));
    return others == 0;
}
template <class Ch> std::size_t AsciiLength(View<Ch> text) {
    std::size_t end = 0;
    while (end < text.size() && IsAsciiChar(text[end]))
        ++end;
    return end;
}

// An ASCII literal as text of either kind.
template <class Ch> Text<Ch> Lit(std::string_view ascii) {
    return Text<Ch>(ascii.begin(), ascii.end());
}

template <class Ch> bool MatchesAt(View<Ch> text, std::size_t pos, std::string_view ascii) {
    if (text.size() < pos + ascii.size()) return false;
    for (std::size_t i = 0; i < ascii.size(); ++i)
        if (text[pos + i] != Ch(ascii[i])) return false;
    return true;
}
// The text equals the ASCII literal, whole and exactly.
template <class Ch> bool Is(View<Ch> text, std::string_view ascii) {
    return text.size() == ascii.size() && MatchesAt(text, 0, ascii);
}
template <class Ch> bool BeginsWith(View<Ch> text, std::string_view ascii) {
    return MatchesAt(text, 0, ascii);
}
// Position of the ASCII literal at or behind `from`, npos if it does not occur.
template <class Ch> std::size_t Find(View<Ch> text, std::string_view ascii, std::size_t from = 0) {
    const Ch first = static_cast<Ch>(ascii.front());
    std::size_t at = text.find(first, from);
    while (at != npos && !MatchesAt(text, at, ascii))
        at = text.find(first, at + 1);
    return at;
}

// Position of the first blank (space or tab) at or behind `from`; of the first character that is none; npos if none.
template <class Ch> std::size_t FindBlank(View<Ch> text, std::size_t from = 0) {
    while (from < text.size() && !IsBlank(text[from]))
        ++from;
    return from < text.size() ? from : npos;
}
template <class Ch> std::size_t FindNonBlank(View<Ch> text, std::size_t from = 0) {
    while (from < text.size() && IsBlank(text[from]))
        ++from;
    return from < text.size() ? from : npos;
}

// The text without spaces and tabs at the left end, the right end, both ends.
template <class Ch> View<Ch> TrimLeftBlank(View<Ch> text);
template <class Ch> View<Ch> TrimRightBlank(View<Ch> text);
template <class Ch> View<Ch> TrimBlank(View<Ch> text);

// UTF-8 text of the console without spaces, full-width spaces and tabs at the left end, spaces and full-width spaces at
// the right end.
std::string TrimZenBlankUtf8(const std::string& text);

// The full-width space: U+3000, or the bytes 81 40.
template <class Ch> constexpr View<Ch> ZenSpace() {
    if constexpr (IsWide<Ch>)
        return u"\u3000";
    else
        return "\x81\x40";
}
// Length in units of the character that begins at i: 2 for a two-byte character of narrow text, else 1.
template <class Ch> std::size_t CharLength(View<Ch> text, std::size_t i);
// Position of the first full-width space, npos if there is none. Narrow text is walked character by character.
template <class Ch> std::size_t FindZenSpace(View<Ch> text, std::size_t from = 0);
// Whether a character that takes two bytes in code page 932 begins at i. False behind the end.
template <class Ch> bool IsZenKakuAt(View<Ch> text, std::size_t i);

} // namespace tolvane
