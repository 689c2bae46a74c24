#pragma once
// The fields of a line: label, opcode word, operand text.

#include "records/Records.h"

namespace tolvane {

// Splits the lines of a program, END included: strLine to strOp, with its opcode, and strOprndCom. The first line of
// the program with a long operand text is told in a Warning that counts nowhere. 0.
template <class Ch> int SplitFields(int prg);
// The steps of SplitFields for one line: the text behind the label field; the opcode word; the text behind it.
template <class Ch> View<Ch> TakeOutLabelRest(const SrcData<Ch>& src);
template <class Ch> void TakeOutOpStr(SrcData<Ch>& src, View<Ch> rest);
template <class Ch> void TakeOutOprndComStr(SrcData<Ch>& src, View<Ch> rest);
// Removes the blanks at both ends of strOprndCom. 0.
template <class Ch> int TrimOprndCom(int prg);

} // namespace tolvane
