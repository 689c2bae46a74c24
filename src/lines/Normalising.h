#pragma once
// The routines that bring the text of a line into the form of the later checks, and those that refuse its spacing.
// Blank means space or tab; the full-width space is none.

#include "records/Records.h"

namespace tolvane {

// Recognises comment lines and blank lines, trims the right end, leaves one leading blank. An Error when the
// file has no line with text.
template <class Ch> void editNWB();
// Cuts the comments off the lines of a program, END left out.
template <class Ch> void StripComment(int prg);
// Refuse a blank behind =+, =- and =# in an operand text, the blanks behind the first "=" left out. False at the
// first Error.
template <class Ch> bool edit30c(int prg);
// Refuses a blank behind "+", "-" and "#". False at the first Error.
template <class Ch> bool edit50(int prg);
// Explains an unknown word that is an instruction without operands run together with its comment.
template <class Ch> void RemoveNoOprndOpSemiColn(int line);
// Refuses operand text of an instruction without operands. False with an Error.
template <class Ch> bool OpNoOperand(int line, View<Ch> firstOperand);
// Replaces the tabs outside character constants by blanks, over the whole file.
template <class Ch> void TabsToBlanks();

} // namespace tolvane
