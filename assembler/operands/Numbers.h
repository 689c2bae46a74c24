#pragma once
// The numbers of operands. k is the zero-based number of the constant on its line, for the head of a diagnostic.

#include "assembler/records/Records.h"

namespace tolvane {

// 0 if the text is a decimal number, -1 with an Error.
template <class Ch> int CkDecConstG(const Text<Ch>& text, int line, int k);
// The value, with a Warning outside -32768 to 32767. A longer number gives 2147483647 or -2147483648.
template <class Ch> int DecStrToIntG(const Text<Ch>& text, int line, int k);
// 0 if the text is "#" and four hexadecimal digits, -1 to -4 with an Error.
template <class Ch> int CkHexConstG(const Text<Ch>& text, int line, int k);
// The value of the leading digits behind "#"; reports when the number ends before the text does.
template <class Ch> int HexStrToIntG(const Text<Ch>& text, int line, int k);
// The number of characters of a character constant, given with its apostrophes.
template <class Ch> int CountWordKazuAtCharConst(const Text<Ch>& text);
// The value of a text of an optional sign and leading digits, held to 32 bits; `end` is where the number ends.
template <class Ch> int ReadDecimal(const Text<Ch>& text, std::size_t& end);

} // namespace tolvane
