#include "operands/Handlers.h"

#include "lines/Normalising.h"
#include "lines/RegisterNames.h"
#include "lines/ZenKaku.h"
#include "operands/Dc.h"
#include "operands/Ds.h"
#include "operands/Extraction.h"
#include "operands/HandlerMsgs.h"
#include "operands/Macros.h"
#include "operands/Registers.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// Takes the comma off a first operand that has been found to be a register. Its digit.
template <class Ch> int TakeRegister1(SrcData<Ch>& src) {
    src.Oprnd(1) = src.Oprnd(1).substr(0, 3);
    return RegisterDigit<Ch>(src.Oprnd(1));
}

// r1,r2 or r,adr[,x]: ld2, adda2, suba2, addl2, subl2, and2, or2, xor2, cpa2, cpl2.
template <class Ch> void RegisterOrAddressHandler(int line, const Instruction& row) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = 0;
    if (modeFlags->Pipe->ld2LooksFirst && row.noOperands != nullptr && src.Oprnd(1).empty()) {
        cs->Error(line, *row.noOperands);
        return;
    }
    if (!CkOpTypeOprndOne<Ch>(line)) return;
    src.first_word = TakeRegister1(src) << 4;

    const View<Ch> second = src.Oprnd(2);
    if (second.empty()) cs->Error(line, *row.missing);
    if (row.exactRegister2 ? IsRegister(second) : BeginsWithRegister(second)) {
        src.first_word |= RegisterDigit(second);
        if (!r2<Ch>(line)) return;
        src.word_kazu = 1;
        src.first_word |= src.op->registerCode << 8;
        return;
    }
    CkAdrOperand<Ch>(line, 2);
    if (src.word_kazu == 2) src.first_word |= src.op->code << 8;
    RegX<Ch>(line, 3);
}

// The Error for r1,r2 where only r,adr is allowed, told at once in every pipeline.
template <class Ch> void DspSyntaxErrorMsg(int line) {
    cs->Error(line, HandlerMsg.SyntaxError, {LineAt<Ch>(line).strOp});
}

template <class Ch> void ReportForm(int line, const Instruction& row) {
    const Msg* own = modeFlags->Pipe->srl2OwnForm && row.optionalForm != nullptr ? row.optionalForm : row.form;
    if (own != nullptr)
        cs->Error(line, *own);
    else
        DspSyntaxErrorMsg<Ch>(line);
}

// r,adr[,x] alone: st2, lad2, sla2, sra2, sll2, srl2.
template <class Ch> void RegisterAddressHandler(int line, const Instruction& row) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = 0;
    if (!CkOpTypeOprndOne<Ch>(line)) return;
    const int digit = TakeRegister1(src);

    if (src.Oprnd(2).empty()) cs->Error(line, *row.missing);
    if (row.warnsOfGR89) AnalystGR89<Ch>(line);
    if (IsRegisterWordUpTo<Ch>(src.Oprnd(2), row.lastFormDigit)) {
        ReportForm<Ch>(line, row);
        return;
    }
    src.first_word = src.op->code << 8 | digit << 4;
    CkAdrOperand<Ch>(line, 2);
    RegX<Ch>(line, 3);
}

// adr[,x]: jmi2, jnz2, jze2, jump2, jpl2, jov2, push2, call2, svc2.
template <class Ch> void AddressHandler(int line, const Instruction& row) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = 0;
    if (!CkOpTypeOprndOneAdr<Ch>(line, *row.name, *row.missing)) return;
    src.first_word = src.op->code << 8;
    CkAdrOperand<Ch>(line, 1);
    if (src.word_kazu != 2) cs->Error(line, HandlerMsg.WordKazuBroken);
    if (row.warning != nullptr) cs->Warning(line, *row.warning);
    RegX<Ch>(line, 2);
}

// r: pop2. What stands behind the register is dropped.
template <class Ch> void RegisterHandler(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = src.op->code << 8;
    if (!CkOpTypeOprndOnePop<Ch>(line)) return;
    src.first_word |= TakeRegister1(src) << 4;
    src.word_kazu = 1;
    for (int n = 2; n <= 4; ++n)
        src.Oprnd(n) = {};
}

// NOP, END, RET and EXIT: the code alone.
template <class Ch> void NoOperandHandler(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (!OpNoOperand<Ch>(line, src.Oprnd(1))) return;
    src.chOprnd = {};
    src.word_kazu = 1;
    src.first_word = src.op->code << 8;
}

template <class Ch> void DcHandler(int line) {
    if (modeFlags->Pipe->dcDsHavePasses) return;
    OprndAtDCtoChH<Ch>(line);
    OprndAtDC<Ch>(line);
    SetWordKazuAtDC<Ch>(line);
}

template <class Ch> void DsHandler(int line) {
    if (modeFlags->Pipe->dcDsHavePasses) return;
    OprndAtDCtoChH<Ch>(line);
    if (OprndAtDS<Ch>(line)) SetWordKazuAtDS<Ch>(line);
}

template <class Ch> void RunHandler(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const Instruction* row = InstructionOf(*src.op);
    switch (src.op->shape) {
    case Shape::RegisterOrAddress:
        return RegisterOrAddressHandler<Ch>(line, *row);
    case Shape::RegisterAddress:
        return RegisterAddressHandler<Ch>(line, *row);
    case Shape::Address:
        return AddressHandler<Ch>(line, *row);
    case Shape::Register:
        return RegisterHandler<Ch>(line);
    case Shape::NoOperand:
    case Shape::End:
        return NoOperandHandler<Ch>(line);
    case Shape::RpushRpop:
        return macroR2<Ch>(line);
    case Shape::InOut:
        return macro2<Ch>(line);
    case Shape::Start:
        src.word_kazu = src.Oprnd(1).empty() ? 1 : 2;
        return;
    case Shape::Dc:
        return DcHandler<Ch>(line);
    case Shape::Ds:
        return DsHandler<Ch>(line);
    }
}

// A word that is no opcode. The passes before let none through but one in front of END in the array pipeline.
template <class Ch> void RefuseOp(int line) {
    const View<Ch> op = LineAt<Ch>(line).strOp;
    cs->Error(line, HandlerMsg.NoHandler, {op});
    AnalystZenKSpace20(op, line);
}

} // namespace

template <class Ch> bool OpCk(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line <= program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) {
            if (modeFlags->Pipe->refusesLabelAlone && !src.strLabel.empty())
                cs->Error(line, HandlerMsg.NoOpBehindLabel);
            continue;
        }
        if (src.op == nullptr) {
            RefuseOp<Ch>(line);
            return false;
        }
        RunHandler<Ch>(line);
    }
    return true;
}

TOLVANE_BOTH_KINDS(OpCk)

} // namespace tolvane
