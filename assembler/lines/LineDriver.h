#pragma once
// The analysis of the lines: the passes of each program in their order.

#include "assembler/records/Records.h"

namespace tolvane {

// Runs all passes over all programs and stops at the first pass that leaves an Error behind. 0, or the negative
// result of the pass that stopped it.
template <class Ch> int AnalyseLines();

// The field split: strLine to strLabel, strRest, strOp, strOprndCom and chOprndCom.
template <class Ch> void TakeOutLabelRest(int prg);
template <class Ch> void TakeOutOpStr(int prg);
template <class Ch> void TakeOutOprndComStr(int prg);

} // namespace tolvane
