#pragma once
// Address constants: labels, program names, decimal and hexadecimal numbers, literals.

#include "records/Records.h"

namespace tolvane {

// Checks operand n of a line and sets second_word. False if that ended in an Error.
template <class Ch> bool CkAdrConst20(int line, int n);
// Checks the operand of a program's START and sets the words of its line.
template <class Ch> void CkStartAdrOperand(int prg, int line);

// The program other than `own` that has the name; -1 if there is none.
template <class Ch> int FindOtherProgram(int own, View<Ch> name);

} // namespace tolvane
