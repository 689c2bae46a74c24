#pragma once
// Literals: constants written in the place of an address.

#include "records/Records.h"

namespace tolvane {

// Checks the text of the literals of a program. 0, or -1 if an Error is counted.
template <class Ch> int CkLiteral15(int prg);
// Judges the first character literal of the text.
template <class Ch> void CkMoziLiteral(int line, View<Ch> text);
// Checks that character literals are closed, and takes the blanks off the commas. 0.
template <class Ch> int CkStrConstLiteral(int prg);
// The text without the blanks at the commas left of the first "=", cut at a semicolon there.
template <class Ch> View<Ch> TrimOprndComComma(View<Ch> text);
// Makes the record of a character literal; `text` holds its apostrophes. 0, or -1 for a text below 3 characters.
template <class Ch> int SetLiteCharConstMryIn(int line, View<Ch> text);
// Makes the record of a number literal, or renews its value; the address stays.
template <class Ch> void SetLiteNumber(int line, int value);

// The text without the blanks behind its first "=".
template <class Ch> View<Ch> WithoutBlanksBehindEqual(View<Ch> text);

} // namespace tolvane
