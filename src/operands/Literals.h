#pragma once
// Literals: constants written in the place of an address.

#include "records/Records.h"

namespace tolvane {

// Checks the text of the literals of a program. False if an Error is counted.
template <class Ch> bool CkLiteral15(int prg);
// Checks that character literals are closed, and takes the blanks off the commas.
template <class Ch> void CkStrConstLiteral(int prg);
// Makes the record of a character literal; `text` holds its apostrophes, and is none below 3 characters.
template <class Ch> void SetLiteCharConstMryIn(int line, View<Ch> text);
// Makes the record of a number literal, or renews its value; the address stays.
template <class Ch> void SetLiteNumber(int line, int value);

} // namespace tolvane
