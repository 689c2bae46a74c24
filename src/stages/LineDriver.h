#pragma once
// The analysis of the lines: the passes of each program in their order.

#include "records/Records.h"

namespace tolvane {

// Runs all passes over all programs and stops at the first pass that leaves an Error behind. 0, or the negative
// result of a pass that reports through it, which ends the cycle.
template <class Ch> int AnalyseLines();

// Label35G over the lines of a program, END included. 0.
template <class Ch> int FindLabels(int prg);
// The field split of a program's lines, END included: strLine to strLabel, strRest, strOp, strOprndCom and chOprndCom.
// The first line of the program with a long operand text is told in a Warning that counts nowhere.
template <class Ch> void TakeOutLabelRest(int prg);
template <class Ch> void TakeOutOpStr(int prg);
template <class Ch> void TakeOutOprndComStr(int prg);
// The three of them. 0.
template <class Ch> int SplitFields(int prg);
// strLine becomes strOprndCom: from here on the edit passes work on the operand text alone. 0.
template <class Ch> int CopyOprndComToLine(int prg);
// Removes the blanks at both ends of strOprndCom. 0.
template <class Ch> int TrimOprndCom(int prg);
// TrimZenOprndCom as a pass: it sweeps the whole file with every program. 0.
template <class Ch> int TrimZenOprndComOfFile(int prg);

} // namespace tolvane
