#pragma once
// Literals: constants written in the place of an address.

#include "records/Records.h"

namespace tolvane {

// Checks the text of the literals of a program. 0, or -1 if an Error is counted.
template <class Ch> int CkLiteral15(int prg);
// Checks that character literals are closed, and takes the blanks off the commas. 0.
template <class Ch> int CkStrConstLiteral(int prg);
// Makes the record of a character literal; `text` holds its apostrophes. 0, or -1 for a text below 3 characters.
template <class Ch> int SetLiteCharConstMryIn(int line, View<Ch> text);
// Makes the record of a number literal, or renews its value; the address stays.
template <class Ch> void SetLiteNumber(int line, int value);

} // namespace tolvane
