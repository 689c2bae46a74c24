#include "operands/Macros.h"

#include "lines/Labels.h"
#include "lines/Normalising.h"
#include "lines/RegisterNames.h"
#include "operands/Extraction.h"
#include "operands/MacroMsgs.h"
#include "operands/Registers.h"
#include "records/Lines.h"

#include <span>

namespace tolvane {

namespace {

constexpr std::array<int, 5> InOutHead = {0x7001, 0, // PUSH 0,GR1
                                          0x7002, 0, // PUSH 0,GR2
                                          0x1210};   // LAD  GR1,operand 1
constexpr int LadGR2 = 0x1220;                       // LAD  GR2,operand 2
constexpr int Svc = 0xF000;                          // SVC  1 or 2
constexpr int SvcIn = 1;
constexpr int SvcOut = 2;
constexpr std::array<int, 2> InOutTail = {0x7120, 0x7110}; // POP GR2, POP GR1

// PUSH 0,GR1 to PUSH 0,GR7.
constexpr std::array<int, RpushWords> RpushTable = {0x7001, 0,      0x7002, 0,      0x7003, 0,      0x7004,
                                                    0,      0x7005, 0,      0x7006, 0,      0x7007, 0};
// POP GR7 to POP GR1.
constexpr std::array<int, RpopWords> RpopTable = {0x7170, 0x7160, 0x7150, 0x7140, 0x7130, 0x7120, 0x7110};

template <class Ch> void CutLastBlank(Text<Ch>& text) {
    if (!text.empty() && IsBlank(text.back())) text.pop_back();
}

// "#", a sign and a digit, or the beginning of a literal.
template <class Ch> bool BeginsLikeSignOrLiteral(const Text<Ch>& s) {
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
    const Text<Ch>& s = Oprnd<Ch>(line, n);
    if (s.empty() || IsRegisterWordOrComma(s)) return;
    if (!IsUpper(s.front()))
        cs->Error(line, MacroMsg.NoAddressConstant, {s});
    else
        cs->Error(line, n == 1 ? MacroMsg.Undefined1 : MacroMsg.Undefined2, {s});
}

// Adds the address of the label that operand n names. False, with an Error where none has been told, if there is none.
template <class Ch> bool AddLabelAddress(int line, int n) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const Text<Ch>& label = Oprnd<Ch>(line, n);
    const int target = label.empty() ? -1 : FindLabelLine<Ch>(src.PrgNr, label);
    if (target < 0) {
        ReportUndefined<Ch>(line, n);
        return false;
    }
    LineAt<Ch>(target).fLabelInUse = true;
    src.vecWord.push_back(LineAt<Ch>(target).AbAdr);
    return true;
}

template <class Ch> void BuildAt(int line, std::span<const int> values, int& abs) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.AbAdr = abs;
    src.word_kazu = static_cast<std::int32_t>(values.size());
    src.vecWord.assign(values.begin(), values.end());
    abs += src.word_kazu;
}

} // namespace

template <class Ch> int macro2(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.word_kazu = InOutWords;
    if (!HasShape(src.op, Shape::InOut)) {
        cs->Error(line, MacroMsg.NoInOut, {src.strOp});
        return 1;
    }
    Text<Ch>& first = src.chOprnd[1];
    if (EndsInComma(first)) {
        first = WithoutComma(first);
        CutLastBlank(first);
    } else {
        cs->Error(line, MacroMsg.NoComma);
    }
    Text<Ch>& second = src.chOprnd[2];
    if (EndsInComma(second)) {
        second = WithoutComma(second);
        cs->Warning(line, MacroMsg.CommaBehindOperand2);
    }
    if (!second.empty() && IsBlank(second.back())) {
        CutLastBlank(second);
        src.chOprnd[3].clear();
    }
    return 0;
}

template <class Ch> int macroR2(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (!HasShape(src.op, Shape::RpushRpop)) {
        cs->Error(line, MacroMsg.NoRpushRpop, {src.strOp});
        return 1;
    }
    src.word_kazu = Is(src.strOp, "RPUSH") ? RpushWords : RpopWords;
    if (OpNoOperand(line, src.chOprnd[1]) >= 1) return 0;
    for (std::size_t i = 1; i <= 3; ++i)
        src.chOprnd[i].clear();
    return 0;
}

template <class Ch> int MacroIN(int line, int n) {
    const Text<Ch>& op = LineAt<Ch>(line).strOp;
    const Text<Ch>& s = Oprnd<Ch>(line, n);
    if (s.empty()) {
        if (!cs->AnyErrorSoFar()) cs->Error(line, MacroMsg.NoOperand, {op});
        return 1;
    }
    if (IsDigit(s.front())) {
        cs->Error(line, MacroMsg.Digit);
        return 1;
    }
    if (BeginsLikeSignOrLiteral(s)) {
        cs->Error(line, MacroMsg.SignOrLiteral);
        return 1;
    }
    if (!IsUpper(s.front())) return 0; // left for InOut1 to report

    if (CkMozi(s) > 0) cs->Error(line, MacroMsg.BadCharacter, {s});
    if (s.size() > static_cast<std::size_t>(cs->LabelMax)) {
        cs->Error(line, MacroMsg.TooLong, {s, s.size()});
        return 1;
    }
    if (IsRegisterWordOrComma(s)) {
        cs->Error(line, MacroMsg.ReservedWord, {op});
        return 1;
    }
    return 0;
}

template <class Ch> int InOut1(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.vecWord.clear();
    for (const int value : InOutHead)
        src.vecWord.push_back(value);
    if (!AddLabelAddress<Ch>(line, 1)) return 1;
    src.vecWord.push_back(LadGR2);
    if (!AddLabelAddress<Ch>(line, 2)) return 1;
    src.vecWord.push_back(Svc);
    if (!HasShape(src.op, Shape::InOut)) {
        cs->Error(line, MacroMsg.InOutBroken);
        return 1;
    }
    src.vecWord.push_back(Is(src.strOp, "IN") ? SvcIn : SvcOut);
    for (const int value : InOutTail)
        src.vecWord.push_back(value);
    return 0;
}

template <class Ch> void MacroRPUSH(int line, int& abs) {
    BuildAt<Ch>(line, RpushTable, abs);
}
template <class Ch> void MacroRPOP(int line, int& abs) {
    BuildAt<Ch>(line, RpopTable, abs);
}

TOLVANE_BOTH_KINDS(macro2)
TOLVANE_BOTH_KINDS(macroR2)
TOLVANE_BOTH_KINDS(MacroIN)
TOLVANE_BOTH_KINDS(InOut1)
TOLVANE_BOTH_KINDS(MacroRPUSH)
TOLVANE_BOTH_KINDS(MacroRPOP)

} // namespace tolvane
