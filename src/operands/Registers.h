#pragma once
// Registers and index registers, the commas round an address operand, and the words for what is no register.

#include "records/Records.h"

namespace tolvane {

// The first operand of each shape, under the name of the instruction. False if any check of cs has failed so far, on
// whatever line: from the first Error on, the handlers judge first operands alone.
template <class Ch> bool CkOpTypeOprndOne(int line);
// `name` is the name of the instruction, `missing` what is said when there is no operand.
template <class Ch> bool CkOpTypeOprndOneAdr(int line, const Msg& name, const Msg& missing);
template <class Ch> bool CkOpTypeOprndOnePop(int line);
// The second register of r1,r2. Whether it is good.
template <class Ch> bool r2(int line);
// The commas round address operand n. Two words for the line, if they stand right.
template <class Ch> void CkAdrOperand(int line, int n);
// The index register, whose place is operand n; it may be absent.
template <class Ch> void RegX(int line, int n);
// Warns of GR8 or GR9 as the second operand, where they are labels.
template <class Ch> void AnalystGR89(int line);

} // namespace tolvane
