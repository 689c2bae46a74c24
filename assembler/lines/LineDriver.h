#pragma once
// The analysis of the lines: the passes of each program in their order.

#include "assembler/records/Records.h"

namespace tolvane {

// Runs all passes over all programs and stops at the first pass that leaves an Error behind. 0, or the negative
// result of a pass that reports through it, which ends the cycle.
template <class Ch> int AnalyseLines();

// The field split of a program's lines, END included: strLine to strLabel, strRest, strOp, strOprndCom and chOprndCom.
// The first line of the program with a long operand text is told in a Warning that counts nowhere.
template <class Ch> void TakeOutLabelRest(int prg);
template <class Ch> void TakeOutOpStr(int prg);
template <class Ch> void TakeOutOprndComStr(int prg);

} // namespace tolvane
