#pragma once
// The fields of a line: label, opcode word, operand text.

#include "records/Records.h"

namespace tolvane {

// Splits the lines of a program, END included: strLine to strOp, with its opcode, and strOprndCom. The first line of
// the program with a long operand text is told in a Warning that counts nowhere.
template <class Ch> void SplitFields(int prg);
// Removes the blanks at both ends of strOprndCom.
template <class Ch> void TrimOprndCom(int prg);

} // namespace tolvane
