#pragma once
// The numbers of operands. k is the zero-based number of the constant on its line, for the head of a diagnostic.

#include "records/Records.h"

#include <type_traits>

namespace tolvane {

inline constexpr std::size_t HexDigits = 4; // of a hexadecimal constant

// A word takes the values from WordMin to WordMax; of any other the low 16 bits are stored.
inline constexpr int WordMin = -32768;
inline constexpr int WordMax = 32767;
inline constexpr int AddressMax = 65535;

// Whether the text is a decimal number; if not, with an Error.
template <class Ch> bool CkDecConstG(View<Ch> text, int line, int k);
// The value, with a Warning outside -32768 to 32767. A longer number gives 2147483647 or -2147483648.
template <class Ch> int DecStrToIntG(View<Ch> text, int line, int k);
// Whether the text is "#" and four hexadecimal digits; if not, with an Error.
template <class Ch> bool CkHexConstG(View<Ch> text, int line, int k);
// The value of the leading digits behind "#", held to 32 bits. An Error when the number ends before the text does.
template <class Ch> int HexStrToIntG(View<Ch> text, int line, int k);
// The number of characters of a character constant, given with its apostrophes; 0 for any other text.
template <class Ch> int CountWordKazuAtCharConst(View<Ch> text);
// The value of a text of an optional sign and leading digits, held to 32 bits; `end` is where the number ends, 0 if
// there is no digit.
template <class Ch> int ReadDecimal(View<Ch> text, std::size_t& end);

// The closing apostrophe of the character constant that opens at `open`, doubled ones passed over; npos if none.
template <class Ch> std::size_t FindClosingApost(View<Ch> text, std::size_t open);
// Hands the code of each character of the constant that opens at `open` to `take`, a doubled apostrophe once. One
// character is one word of memory; narrow text counts by bytes.
template <class Ch, class Take> void ForEachMozi(View<Ch> text, std::size_t open, Take take) {
    for (std::size_t i = open + 1; i < text.size(); ++i) {
        if (text[i] == Ch('\'')) {
            if (At(text, i + 1) != Ch('\'')) return;
            ++i;
        }
        take(static_cast<int>(static_cast<std::make_unsigned_t<Ch>>(text[i])));
    }
}

} // namespace tolvane
