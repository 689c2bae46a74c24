#include "operands/Handlers.h"

#include "lines/Normalising.h"
#include "lines/Opcodes.h"
#include "lines/RegisterNames.h"
#include "lines/ZenKaku.h"
#include "operands/Dc.h"
#include "operands/Ds.h"
#include "operands/Extraction.h"
#include "operands/Instructions.h"
#include "operands/Macros.h"
#include "operands/Registers.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// Takes the comma off a first operand that has been found to be a register. Its digit.
template <class Ch> int TakeRegister1(SrcData<Ch>& src) {
    src.chOprnd[1].resize(3);
    return RegisterDigit(src.chOprnd[1]);
}

// r1,r2 or r,adr[,x]: ld2, adda2, suba2, addl2, subl2, and2, or2, xor2, cpa2, cpl2.
template <class Ch> void RegisterOrAddressHandler(int line, const Instruction& op) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = 0;
    if (modeFlags->Pipe->ld2LooksFirst && op.noOperands != nullptr && src.chOprnd[1].empty()) {
        cs->Error(line, *op.noOperands);
        return;
    }
    if (CkOpTypeOprndOne<Ch>(line, op.op) > 0) return;
    src.first_word = TakeRegister1(src) << 4;

    const Text<Ch>& second = src.chOprnd[2];
    if (second.empty()) cs->Error(line, *op.missing);
    if (op.exactRegister2 ? IsRegister(second) : BeginsWithRegister(second)) {
        src.first_word |= RegisterDigit(second);
        if (op.exactRegister2) src.oprnd_kazu = 2;
        if (r2<Ch>(line) != 0) return;
        src.word_kazu = 1;
        src.first_word |= op.registerCode << 8;
        return;
    }
    CkAdrOperand<Ch>(line, 2);
    if (src.word_kazu == 2) src.first_word |= op.code << 8;
    RegX<Ch>(line, 3);
}

template <class Ch> void ReportForm(int line, const Instruction& op) {
    const Msg* own = modeFlags->Pipe->srl2OwnForm && op.optionalForm != nullptr ? op.optionalForm : op.form;
    if (own != nullptr) {
        cs->Error(line, *own);
        return;
    }
    DspSyntaxErrorMsg<Ch>(line, op.op);
}

// r,adr[,x] alone: st2, lad2, sla2, sra2, sll2, srl2.
template <class Ch> void RegisterAddressHandler(int line, const Instruction& op) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = 0;
    if (CkOpTypeOprndOne<Ch>(line, op.op) > 0) return;
    const int digit = TakeRegister1(src);

    if (src.chOprnd[2].empty()) cs->Error(line, *op.missing);
    if (op.warnsOfGR89) AnalystGR89<Ch>(line);
    if (IsRegisterWordUpTo(src.chOprnd[2], op.lastFormDigit)) {
        ReportForm<Ch>(line, op);
        return;
    }
    src.first_word = op.code << 8 | digit << 4;
    CkAdrOperand<Ch>(line, 2);
    RegX<Ch>(line, 3);
}

// adr[,x]: jmi2, jnz2, jze2, jump2, jpl2, jov2, push2, call2, svc2.
template <class Ch> void AddressHandler(int line, const Instruction& op) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = 0;
    if (CkOpTypeOprndOneAdr<Ch>(line, op.op, *op.name, *op.missing) > 0) return;
    src.first_word = op.code << 8;
    CkAdrOperand<Ch>(line, 1);
    if (src.word_kazu != 2) cs->Error(line, HandlerMsg.WordKazuBroken);
    if (op.warning != nullptr) cs->Warning(line, *op.warning);
    RegX<Ch>(line, 2);
}

// r: pop2. What stands behind the register is dropped.
template <class Ch> void RegisterHandler(int line, const Instruction& op) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = op.code << 8;
    if (CkOpTypeOprndOnePop<Ch>(line, op.op) > 0) return;
    src.first_word |= TakeRegister1(src) << 4;
    src.second_word = 0;
    src.oprnd_kazu = 1;
    src.word_kazu = 1;
    for (std::size_t i = 2; i <= 4; ++i)
        src.chOprnd[i].clear();
}

template <class Ch> void RunHandler(int line, const Instruction& op) {
    switch (op.shape) {
    case Shape::RegisterOrAddress:
        return RegisterOrAddressHandler<Ch>(line, op);
    case Shape::RegisterAddress:
        return RegisterAddressHandler<Ch>(line, op);
    case Shape::Address:
        return AddressHandler<Ch>(line, op);
    case Shape::Register:
        return RegisterHandler<Ch>(line, op);
    }
}

// NOP, END, RET and EXIT.
template <class Ch> void NoOperandHandler(int line, int word) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (OpNoOperand(line, src.chOprnd[1]) >= 1) return;
    for (std::size_t i = 1; i <= 4; ++i)
        src.chOprnd[i].clear();
    src.oprnd_kazu = 0;
    src.word_kazu = 1;
    src.first_word = word;
    src.second_word = 0;
}

// Runs the handler of a line that has an opcode. False, with an Error, if there is none.
template <class Ch> bool HandleLine(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const Text<Ch>& op = src.strOp;
    if (const Instruction* instruction = FindInstruction(op)) {
        RunHandler<Ch>(line, *instruction);
    } else if (modeFlags->Pipe->dcDsHavePasses && IsDcOrDs(op)) {
        // passes of their own follow
    } else if (Is(op, "DC")) {
        OprndAtDCtoChH<Ch>(line);
        OprndAtDC<Ch>(line);
        SetWordKazuAtDC<Ch>(line);
    } else if (Is(op, "DS")) {
        OprndAtDCtoChH<Ch>(line);
        if (OprndAtDS<Ch>(line) == 0) SetWordKazuAtDS<Ch>(line);
    } else if (Is(op, "IN") || Is(op, "OUT")) {
        macro2<Ch>(line);
    } else if (Is(op, "RPUSH") || Is(op, "RPOP")) {
        macroR2<Ch>(line);
    } else if (Is(op, "NOP") || Is(op, "END")) {
        NoOperandHandler<Ch>(line, 0);
    } else if (Is(op, "RET")) {
        NoOperandHandler<Ch>(line, RetWord);
    } else if (Is(op, "EXIT") && modeFlags->Pipe->hasExit) {
        NoOperandHandler<Ch>(line, ExitWord);
    } else if (Is(op, "START")) {
        src.word_kazu = src.chOprnd[1].empty() ? 1 : 2;
    } else {
        cs->Error(line, HandlerMsg.NoHandler, {op});
        AnalystZenKSpace20(op, line);
        return false;
    }
    return true;
}

} // namespace

template <class Ch> int OpCk(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line <= program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) {
            if (modeFlags->Pipe->refusesLabelAlone && !src.strLabel.empty())
                cs->Error(line, HandlerMsg.NoOpBehindLabel);
            continue;
        }
        if (!HandleLine<Ch>(line)) return -2;
    }
    return 0;
}

template <class Ch> void DspSyntaxErrorMsg(int line, const char* op) {
    cs->Error(line, HandlerMsg.SyntaxError, {op});
}

TOLVANE_BOTH_KINDS(OpCk)
TOLVANE_BOTH_KINDS(DspSyntaxErrorMsg)

} // namespace tolvane
