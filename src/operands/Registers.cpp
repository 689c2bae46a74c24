#include "operands/Registers.h"

#include "lines/Labels.h"
#include "lines/RegisterNames.h"
#include "lines/ZenKaku.h"
#include "operands/Extraction.h"
#include "operands/RegisterMsgs.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

const Msg& NthOperandExpected(int n) {
    if (n == 1) return RegisterMsg.FirstOperandExpected;
    return n == 2 ? RegisterMsg.SecondOperandExpected : RegisterMsg.AnotherOperandExpected;
}

template <class Ch> void AnalystIndexReg(int line, int n) {
    const View<Ch> s = Oprnd<Ch>(line, n);
    if (Is(s, "GR0")) cs->Error(line, RegisterMsg.IndexIsGR0);
    if (s.size() == 3 && BeginsWithGR89(s)) cs->Error(line, RegisterMsg.IndexIsGR89);
    if (IsDigit(At(s, 0))) cs->Error(line, RegisterMsg.IndexFirstDigit, {s});
    if (CkSmallMozi(s) > 0) cs->Error(line, RegisterMsg.IndexSmallLetter, {s});
}

template <class Ch> void RefuseIndex(int line, int n) {
    const View<Ch> s = Oprnd<Ch>(line, n);
    cs->Error(line, RegisterMsg.NoExactIndex, {s});
    if (modeFlags->Pipe->regXDoubleComma && s.front() == Ch(',')) cs->Error(line, RegisterMsg.DoubleComma, {s});
    AnalystZenKSpace20(s, line);
    AnalystIndexReg<Ch>(line, n);
}

// Puts the index register into the first word. GR0 is none; what stands behind the register is dropped.
template <class Ch> void TakeIndex(int line, int n) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const View<Ch> s = Oprnd<Ch>(line, n);
    const bool comma = At(s, 3) == Ch(',');
    Oprnd<Ch>(line, n) = s.substr(0, 3);
    const int digit = RegisterDigit(s.substr(0, 3));
    if (digit == 0) {
        cs->Error(line, RegisterMsg.IndexGR0);
        return;
    }
    if (comma) cs->Warning(line, RegisterMsg.CommaBehindIndex);
    Oprnd<Ch>(line, n + 1) = {};
    src.first_word |= digit;
    src.word_kazu = 2;
}

// Why a word is no register.
template <class Ch> void AnalystRegMozi(View<Ch> text, int line) {
    if (BeginsWithGR89(text)) Explain(Severity::Error, line, RegisterMsg.NoSuchRegister);
    if (IsDigit(At(text, 0))) cs->Error(line, RegisterMsg.RegisterFirstDigit, {text});
    if (CkSmallMozi(text) > 0) cs->Error(line, RegisterMsg.RegisterSmallLetter, {text});
}

// Whether operand 1 is a register name, with or without a comma; an Error if the comma is missing.
template <class Ch> bool GRxComma(int line) {
    const View<Ch> s = Oprnd<Ch>(line, 1);
    const View<Ch> name = WithoutComma(s);
    if (!IsRegister(name)) return false;
    if (!EndsInComma(s)) cs->Error(line, RegisterMsg.NoCommaBehindRegister, {name});
    return true;
}

// The same; the comma is of no use behind the register of POP, and no other opcode takes the register at all.
template <class Ch> bool GRxLabelAll(int line) {
    const View<Ch> s = Oprnd<Ch>(line, 1);
    const View<Ch> name = WithoutComma(s);
    if (!IsRegister(name)) return false;
    const SrcData<Ch>& src = LineAt<Ch>(line);
    if (!HasShape(src.op, Shape::Register))
        cs->Error(line, RegisterMsg.RegisterInsteadOfAddress, {src.strOp});
    else if (EndsInComma(s))
        cs->Warning(line, RegisterMsg.CommaBehindPopRegister, {name});
    return true;
}

} // namespace

template <class Ch> bool CkOpTypeOprndOne(int line) {
    const View<Ch> s = Oprnd<Ch>(line, 1);
    const View<Ch> op = LineAt<Ch>(line).strOp;
    if (s.empty()) cs->Error(line, RegisterMsg.NoRegister, {op});
    if (BeginsWithRegister(s) && GRxComma<Ch>(line)) {
        if (IsRegister(s)) cs->Error(line, RegisterMsg.NothingBehindRegister, {op});
        return !cs->AnyErrorSoFar();
    }
    cs->Error(line, RegisterMsg.NoExactRegister, {s, op});
    AnalystZenKSpace20(s, line);
    AnalystRegMozi(s, line);
    return false;
}

template <class Ch> bool CkOpTypeOprndOneAdr(int line, const Msg& name, const Msg& missing) {
    const View<Ch> s = Oprnd<Ch>(line, 1);
    const View<Ch> op = LineAt<Ch>(line).strOp;
    if (BeginsWithRegister(s) && GRxLabelAll<Ch>(line))
        cs->Error(line, RegisterMsg.RegisterAsFirstOperand, {op});
    else if (s.empty())
        cs->Error(line, missing, {name, op});
    return !cs->AnyErrorSoFar();
}

template <class Ch> bool CkOpTypeOprndOnePop(int line) {
    const View<Ch> s = Oprnd<Ch>(line, 1);
    const View<Ch> op = LineAt<Ch>(line).strOp;
    if (s.empty()) {
        cs->Error(line, RegisterMsg.NoPopRegister, {op});
        return false;
    }
    if (BeginsWithRegister(s) && GRxLabelAll<Ch>(line)) return !cs->AnyErrorSoFar();
    cs->Error(line, RegisterMsg.NoExactPopRegister, {s, op});
    AnalystRegMozi(s, line);
    return false;
}

template <class Ch> bool r2(int line) {
    const View<Ch> s = Oprnd<Ch>(line, 2);
    if (IsRegister(s)) {
        Oprnd<Ch>(line, 4) = {}; // what stands behind a blank is a comment
        return true;
    }
    if (!IsRegister(WithoutComma(s))) {
        cs->Error(line, RegisterMsg.BadRegister2, {s});
        AnalystZenKSpace20(s, line);
        return false;
    }
    if (Oprnd<Ch>(line, 3).empty()) {
        cs->Warning(line, RegisterMsg.CommaBehindRegister2);
        return true;
    }
    Oprnd<Ch>(line, 2) = WithoutComma(s);
    Oprnd<Ch>(line, 3) = {};
    cs->Warning(line, RegisterMsg.TextBehindRegister2);
    return true;
}

template <class Ch> void CkAdrOperand(int line, int n) {
    const View<Ch> s = Oprnd<Ch>(line, n);
    if (Is(TrimLeftBlank(s), ",")) {
        cs->Error(line, RegisterMsg.LoneComma);
        return;
    }
    if (s.empty()) {
        cs->Error(line, NthOperandExpected(n), {n});
        return;
    }
    GetCommaAriFlagForNextOprnd<Ch>(line, n);
    const bool comma = EndsInComma(s);
    const View<Ch> next = Oprnd<Ch>(line, n + 1);
    if (!comma && !next.empty()) {
        cs->Error(line, RegisterMsg.NoCommaBehindAddress, {next, s});
        return;
    }
    if (comma && next.empty()) cs->Warning(line, RegisterMsg.CommaBehindAddress, {n});
    Oprnd<Ch>(line, n) = WithoutComma(s);
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.word_kazu = 2;
    src.second_word = 0;
}

template <class Ch> void RegX(int line, int n) {
    const View<Ch> s = Oprnd<Ch>(line, n);
    // As CkAdrOperand has seen it behind the address; without an address, as it was seen on an earlier line.
    const bool comma = CommaNextOprnd3("RegX");
    if (comma && s.empty())
        cs->Error(line, RegisterMsg.NoIndexBehindComma, {Oprnd<Ch>(line, n - 1)});
    else if (!comma && !Oprnd<Ch>(line, n + 1).empty())
        cs->Error(line, RegisterMsg.NoCommaBeforeIndex, {s});
    else if (s.empty())
        LineAt<Ch>(line).word_kazu = 2;
    else if (!IsRegisterWordOrComma(s))
        RefuseIndex<Ch>(line, n);
    else
        TakeIndex<Ch>(line, n);
}

template <class Ch> void AnalystGR89(int line) {
    const View<Ch> s = Oprnd<Ch>(line, 2);
    if (s.size() == 3 && BeginsWithGR89(s)) cs->Warning(line, RegisterMsg.GR89AsLabel, {s});
}

TOLVANE_BOTH_KINDS(CkOpTypeOprndOne)
TOLVANE_BOTH_KINDS(CkOpTypeOprndOneAdr)
TOLVANE_BOTH_KINDS(CkOpTypeOprndOnePop)
TOLVANE_BOTH_KINDS(r2)
TOLVANE_BOTH_KINDS(CkAdrOperand)
TOLVANE_BOTH_KINDS(RegX)
TOLVANE_BOTH_KINDS(AnalystGR89)

} // namespace tolvane
