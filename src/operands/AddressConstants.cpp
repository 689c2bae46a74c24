#include "operands/AddressConstants.h"

#include "lines/Labels.h"
#include "lines/RegisterNames.h"
#include "lines/ZenKaku.h"
#include "operands/AddressMsgs.h"
#include "operands/Literals.h"
#include "operands/Numbers.h"
#include "operands/Registers.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

constexpr int JumpCode = 0x6400;

template <class Ch> bool SetAddress(SrcData<Ch>& src, int value) {
    src.second_word = value;
    return true;
}

// The form of a name. Characters that are not allowed are reported and the look-up goes on. False if it is too long.
template <class Ch> bool CkNameForm(int line, View<Ch> name) {
    int pos = 0;
    if (DetNonLabelMoziPos(name, pos)) {
        cs->Error(line, AddressMsg.NameBadChar, {name});
        AnalystZenKMozi(name, line);
    }
    if (CkSmallMozi(name) != 0) cs->Error(line, AddressMsg.NameSmallLetter, {name});
    if (name.size() <= cs->LabelMax) return true;
    cs->Error(line, AddressMsg.NameTooLong, {name, name.size()});
    return false;
}

// A name: that of another program before a label of the own one.
template <class Ch> bool NameAddress(int line, View<Ch> name) {
    if (!CkNameForm(line, name)) return false;
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (int other = FindOtherProgram(src.PrgNr, name); other >= 0) {
        PrgData<Ch>& prg = PrgAt<Ch>(other);
        prg.fCalled = true;
        src.fLabelInUse = true;
        if (!src.op->reachesPrograms) cs->Warning(line, AddressMsg.OutsideProgram);
        return SetAddress(src, prg.AbAdrAtStart);
    }
    if (int target = FindLabelLine(src.PrgNr, name); target >= 0) {
        SrcData<Ch>& label = LineAt<Ch>(target);
        label.fLabelInUse = true;
        return SetAddress(src, label.AbAdr);
    }
    cs->Error(line, AddressMsg.NameUndefined, {name});
    AnalystZenKSpace20(name, line);
    return false;
}

// "#" and four digits. A number that is too long draws two Errors and still gets a value.
template <class Ch> bool HexAddress(int line, View<Ch> text) {
    const std::size_t n = text.size() - 1;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (IsHexDigit(text[i])) continue;
        cs->Error(line, AddressMsg.HexBadDigit, {text});
        break;
    }
    if (n == 0) {
        cs->Error(line, AddressMsg.HexEmpty);
        return false;
    }
    if (n < 4) {
        cs->Error(line, n == 1 ? AddressMsg.HexOneDigit : AddressMsg.HexTooShort, {text, n});
        return false;
    }
    if (n > 4) {
        cs->Error(line, AddressMsg.HexTooLong, {text});
        cs->Error(line, AddressMsg.HexTooLongBy, {text, n});
    }
    return SetAddress(LineAt<Ch>(line), HexStrToIntG(text, line, 0));
}

// A decimal number of any size, of which the low 16 bits count. `nonNumeral` and `outOfRange` are the rows of its
// form, with or without a sign.
template <class Ch> bool DecAddress(int line, View<Ch> text, const Msg& nonNumeral, const Msg& outOfRange) {
    std::size_t end = 0;
    const int value = ReadDecimal(text, end);
    if (end < text.size()) {
        cs->Error(line, nonNumeral, {text});
        return false;
    }
    if (value < WordMin || AddressMax < value) cs->Note(line, outOfRange);
    return SetAddress(LineAt<Ch>(line), value & 0xFFFF);
}

// "='", "=#", "=" with a digit or with a sign and a digit: the texts that are read as a literal.
template <class Ch> bool IsLiteral(View<Ch> text) {
    const Ch c = At(text, 1);
    if (At(text, 0) != Ch('=')) return false;
    return c == Ch('\'') || c == Ch('#') || IsDigit(c) || (IsSign(c) && IsDigit(At(text, 2)));
}

// A literal. Its address is final only at the end of the walk. A bad number counts here once more than in its check.
template <class Ch> bool LiteralAddress(int line, View<Ch> operand) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const View<Ch> constant = operand.substr(1);
    if (constant[0] == Ch('\'')) {
        SetLiteCharConstMryIn(line, constant);
    } else {
        const bool hex = constant[0] == Ch('#');
        if (hex ? !CkHexConstG(constant, line, 0) : !CkDecConstG(constant, line, 0)) {
            ++cs->ErrorKazu;
            return false;
        }
        if (hex)
            SetLiteNumber<Ch>(line, HexStrToIntG(constant, line, 0));
        else
            SetLiteNumber<Ch>(line, DecStrToIntG(constant, line, 0));
    }
    if (const TLiteConst<Ch>* literal = b->Literal(src)) src.second_word = literal->AbAdr;
    return true;
}

// The two words of a START with an operand: a jump to the address.
template <class Ch> void SetStartJump(SrcData<Ch>& src, int address) {
    src.first_word = JumpCode;
    src.second_word = address;
    src.word_kazu = 2;
}

template <class Ch> int FindProgram(View<Ch> name) {
    return FindOtherProgram(-1, name);
}

// Reports the first character of the text outside A to Z and 0 to 9, and sets its position.
template <class Ch> void DetNonAdrConstMoziPosAW(View<Ch> text, int line, int& pos) {
    if (DetNonLabelMoziPos(text, pos)) cs->Error(line, AddressMsg.UnsuitableChar, {text, pos + 1});
}

} // namespace

template <class Ch> int FindOtherProgram(int own, View<Ch> name) {
    const auto& programs = b->Prg<Ch>();
    for (std::size_t i = 0; i < programs.size(); ++i)
        if (static_cast<int>(i) != own && programs[i].strPrgName == name) return static_cast<int>(i);
    return -1;
}

template <class Ch> bool CkAdrConst20(int line, int n) {
    const View<Ch> s = LineAt<Ch>(line).Oprnd(n);
    const Ch c = At(s, 0);
    if (IsRegisterWord(s)) return true;
    if (IsUpper(c)) return NameAddress(line, s);
    if (c == Ch('#')) return HexAddress(line, s);
    if (IsSign(c) && IsDigit(At(s, 1)))
        return DecAddress(line, s, AddressMsg.DecSignedNonNumeral, AddressMsg.DecSignedOutOfRange);
    if (IsDigit(c)) {
        if (DecAddress(line, s, AddressMsg.DecNonNumeral, AddressMsg.DecOutOfRange)) return true;
        AnalystZenKSpace20(s, line);
        return false;
    }
    if (IsLiteral(s)) return LiteralAddress(line, s);
    int pos = 0;
    DetNonAdrConstMoziPosAW(s, line, pos);
    ++cs->ErrorKazu; // one diagnostic, two Errors
    return false;
}

template <class Ch> void CkStartAdrOperand(int prg, int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (src.fThreeOprnds) { // they count as none
        src.first_word = 0;
        src.word_kazu = 1;
        return;
    }
    const View<Ch> t = src.Oprnd(1);
    int pos = 0;
    if (DetNonLabelMoziPos(t.substr(1), pos)) {
        cs->Error(line, AddressMsg.StartBadChar, {t});
        if (modeFlags->Pipe->startAnalystZenKaku) AnalystZenKakuMoziStr(t, line);
    }
    if (t.size() > cs->LabelMax) {
        cs->Error(line, AddressMsg.StartTooLong, {t, t.size()});
        return;
    }
    if (int target = FindLabelLine(prg, t); target >= 0) {
        SrcData<Ch>& label = LineAt<Ch>(target);
        label.fLabelInUse = true;
        SetStartJump(src, label.AbAdr);
        return;
    }
    if (int named = FindProgram(t); named >= 0) {
        if (!modeFlags->Pipe->startNamesProgram) {
            cs->Error(line, AddressMsg.StartIsProgram);
            return;
        }
        PrgData<Ch>& program = PrgAt<Ch>(named);
        SrcData<Ch>& start = LineAt<Ch>(program.StartLine);
        program.fCalled = true;
        start.fLabelInUse = true;
        SetStartJump(src, start.AbAdr);
        return;
    }
    cs->Error(line, AddressMsg.StartUndefined, {t});
    AnalystZenKSpace20(t, line);
}

TOLVANE_BOTH_KINDS(FindOtherProgram)
TOLVANE_BOTH_KINDS(CkAdrConst20)
TOLVANE_BOTH_KINDS(CkStartAdrOperand)

} // namespace tolvane
