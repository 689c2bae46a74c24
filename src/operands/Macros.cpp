#include "operands/Macros.h"

#include "lines/Labels.h"
#include "lines/Normalising.h"
#include "lines/RegisterNames.h"
#include "operands/Extraction.h"
#include "operands/MacroMsgs.h"
#include "operands/Registers.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

template <class Ch> View<Ch> WithoutLastBlank(View<Ch> text) {
    return !text.empty() && IsBlank(text.back()) ? text.substr(0, text.size() - 1) : text;
}

// "#", a sign and a digit, or the beginning of a literal.
template <class Ch> bool BeginsLikeSignOrLiteral(View<Ch> s) {
    const Ch first = At(s, 0);
    const Ch second = At(s, 1);
    if (first == Ch('#')) return true;
    if (IsSign(first)) return IsDigit(second);
    if (first != Ch('=')) return false;
    if (second == Ch('#') || second == Ch('\'') || IsDigit(second)) return true;
    return IsSign(second) && IsDigit(At(s, 2));
}

// Why the label of operand n was not found. MacroIN has told of a register name and of an operand that is not there.
template <class Ch> void ReportUndefined(int line, int n) {
    const View<Ch> s = Oprnd<Ch>(line, n);
    if (s.empty() || IsRegisterWordOrComma(s)) return;
    if (!IsUpper(s.front()))
        cs->Error(line, MacroMsg.NoAddressConstant, {s});
    else
        cs->Error(line, n == 1 ? MacroMsg.Undefined1 : MacroMsg.Undefined2, {s});
}

// Finds the address of the label that operand n names. False, with an Error where none has been told, if there is none.
template <class Ch> bool FindLabelAddress(int line, int n, std::int32_t& address) {
    const View<Ch> label = Oprnd<Ch>(line, n);
    const int target = label.empty() ? -1 : FindLabelLine<Ch>(LineAt<Ch>(line).PrgNr, label);
    if (target < 0) {
        ReportUndefined<Ch>(line, n);
        return false;
    }
    LineAt<Ch>(target).fLabelInUse = true;
    address = LineAt<Ch>(target).AbAdr;
    return true;
}

} // namespace

template <class Ch> void macro2(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.word_kazu = InOutWords;
    if (!HasShape(src.op, Shape::InOut)) {
        cs->Error(line, MacroMsg.NoInOut, {src.strOp});
        return;
    }
    const View<Ch> first = Oprnd<Ch>(line, 1);
    if (EndsInComma(first)) {
        src.Oprnd(1) = WithoutLastBlank(WithoutComma(first));
    } else {
        cs->Error(line, MacroMsg.NoComma);
    }
    View<Ch> second = src.Oprnd(2);
    if (EndsInComma(second)) {
        second = WithoutComma(second);
        cs->Warning(line, MacroMsg.CommaBehindOperand2);
    }
    src.Oprnd(2) = WithoutLastBlank(second);
    if (src.Oprnd(2).size() < second.size()) src.Oprnd(3) = {};
}

template <class Ch> void macroR2(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (!HasShape(src.op, Shape::RpushRpop)) {
        cs->Error(line, MacroMsg.NoRpushRpop, {src.strOp});
        return;
    }
    src.word_kazu = static_cast<int>(WordsOfRpushRpop(src).size());
    if (!OpNoOperand<Ch>(line, src.Oprnd(1))) return;
    for (int n = 1; n <= 3; ++n)
        src.Oprnd(n) = {};
}

template <class Ch> void MacroIN(int line, int n) {
    const View<Ch> op = LineAt<Ch>(line).strOp;
    const View<Ch> s = Oprnd<Ch>(line, n);
    if (s.empty()) {
        if (!cs->AnyErrorSoFar()) cs->Error(line, MacroMsg.NoOperand, {op});
        return;
    }
    if (IsDigit(s.front())) {
        cs->Error(line, MacroMsg.Digit);
        return;
    }
    if (BeginsLikeSignOrLiteral(s)) {
        cs->Error(line, MacroMsg.SignOrLiteral);
        return;
    }
    if (!IsUpper(s.front())) return; // left for InOut1 to report

    if (CkMozi(s) > 0) cs->Error(line, MacroMsg.BadCharacter, {s});
    if (s.size() > cs->LabelMax) {
        cs->Error(line, MacroMsg.TooLong, {s, s.size()});
        return;
    }
    if (IsRegisterWordOrComma(s)) cs->Error(line, MacroMsg.ReservedWord, {op});
}

template <class Ch> void InOut1(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (!FindLabelAddress<Ch>(line, 1, src.first_word)) return;
    if (!FindLabelAddress<Ch>(line, 2, src.second_word)) return;
    if (!HasShape(src.op, Shape::InOut)) cs->Error(line, MacroMsg.InOutBroken);
}

template <class Ch> InOutCode WordsOfInOut(const SrcData<Ch>& src) {
    return {0x7001, 0,               // PUSH 0,GR1
            0x7002, 0,               // PUSH 0,GR2
            0x1210, src.first_word,  // LAD  GR1,operand 1
            0x1220, src.second_word, // LAD  GR2,operand 2
            0xF000, src.op->service, // SVC  1 or 2
            0x7120, 0x7110};         // POP  GR2, POP GR1
}

TOLVANE_BOTH_KINDS(macro2)
TOLVANE_BOTH_KINDS(macroR2)
TOLVANE_BOTH_KINDS(MacroIN)
TOLVANE_BOTH_KINDS(InOut1)
TOLVANE_BOTH_KINDS(WordsOfInOut)

} // namespace tolvane
