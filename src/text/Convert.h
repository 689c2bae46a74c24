#pragma once
// Conversions between code page 932, EUC-JP, UTF-8 and UTF-16. They need no locale and no converter of the system.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

// Whether the byte begins a two-byte character of code page 932: 81 to 9F and E0 to FC.
constexpr bool IsLeadByte932(unsigned char c) {
    return (0x81 <= c && c <= 0x9F) || (0xE0 <= c && c <= 0xFC);
}

// Bytes that a UTF-16 unit takes in code page 932: 1 or 2, 0 if it has no place there.
int ByteLength932(char16_t unit);

// Code page 932 to UTF-16. What is not valid becomes U+30FB, never an error: a lead byte takes the byte behind it
// along, a lead byte at the end stands for itself.
std::u16string Wide932(std::string_view bytes);
// Whether every byte belongs to a character of code page 932.
bool IsValid932(std::string_view bytes);
// UTF-16 to code page 932. What has no place there becomes "?", a pair of surrogates one "?".
std::string Narrow932(std::u16string_view wide);

// The first unit of a pair of surrogates.
constexpr bool IsHighSurrogate(char16_t unit) {
    return 0xD800 <= unit && unit <= 0xDBFF;
}

// The byte-order mark of UTF-8; a text without it.
inline constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view WithoutUtf8Mark(std::string_view text) {
    return text.starts_with(Utf8Mark) ? text.substr(Utf8Mark.size()) : text;
}
// Bytes of the valid UTF-8 character that begins at i; 0 if none does (overlong forms and surrogates are not valid).
std::size_t Utf8Length(std::string_view utf8, std::size_t i);
// UTF-8 to UTF-16, strictly: nothing if the text is not valid.
std::optional<std::u16string> WideUtf8(std::string_view utf8);
// UTF-8 to UTF-16; a byte that belongs to no character becomes U+FFFD.
std::u16string WideUtf8Lossy(std::string_view utf8);
// UTF-16 to UTF-8. A pair of surrogates is joined, a lone half becomes U+FFFD.
std::string Utf8(std::u16string_view wide);
void AppendUtf8(std::string& out, std::u16string_view wide);
// Code page 932 to UTF-8.
std::string Utf8From932(std::string_view bytes);

// Bytes of the EUC-JP character that begins at i, 1 where none does.
std::size_t EucLength(std::string_view euc, std::size_t i);
// EUC-JP (half-width kana included, without the supplementary set) to code page 932 and back; "?" for what has no
// place in the other.
std::string EucTo932(std::string_view euc);
std::string EucFrom932(std::string_view bytes);

} // namespace tolvane
