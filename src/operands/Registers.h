#pragma once
// Registers and index registers, the commas round an address operand, and the words for what is no register.

#include "records/Records.h"

namespace tolvane {

// The first operand of each shape. The result is the count of all Errors of cs so far, not a verdict on this line.
template <class Ch> int CkOpTypeOprndOne(int line, const char* op);
// `name` is the name of the instruction, `missing` what is said when there is no operand.
template <class Ch> int CkOpTypeOprndOneAdr(int line, const char* op, const Msg& name, const Msg& missing);
template <class Ch> int CkOpTypeOprndOnePop(int line, const char* op);
// Whether operand 1 is a register name, with or without a comma; an Error if the comma is missing.
template <class Ch> bool GRxComma(int line);
// The same; the comma is of no use behind the register of POP, and no other opcode takes the register at all.
template <class Ch> bool GRxLabelAll(int line, const char* op);
// The second register of r1,r2. 0 if it is good, else 1.
template <class Ch> int r2(int line);
// The commas round address operand n. 0, 1 or 2; no caller reads it.
template <class Ch> int CkAdrOperand(int line, int n);
// The index register, whose place is operand n. 0 if it is good or absent, 1 with an Error.
template <class Ch> int RegX(int line, int n);
// Why a word is no register, or no index register. The number of faults found.
template <class Ch> int AnalystRegMozi(const Text<Ch>& text, int line);
template <class Ch> int AnalystIndexReg(int line, int n);
// Warns of GR8 or GR9 as the second operand, where they are labels.
template <class Ch> void AnalystGR89(int line);

} // namespace tolvane
