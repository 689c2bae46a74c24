#include "operands/Dc.h"

#include "operands/AddressConstants.h"
#include "operands/DcMsgs.h"
#include "operands/Numbers.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

constexpr std::size_t HexDigits = 4;

// Behind the character at i, or behind the whole character constant that opens there.
template <class Ch> std::size_t NextUnit(const Text<Ch>& text, std::size_t i) {
    if (text[i] != Ch('\'')) return i + 1;
    const std::size_t close = FindClosingApost(text, i);
    return close == npos ? text.size() : close + 1;
}

// Runs of blanks become one, and the comment is cut off; character constants stay as they are.
template <class Ch> Text<Ch> WithoutComment(const Text<Ch>& text) {
    Text<Ch> out;
    for (std::size_t i = 0; i < text.size() && text[i] != Ch(';');) {
        if (IsBlank(text[i])) {
            out += Ch(' ');
            i = std::min(FindNonBlank(text, i), text.size());
            continue;
        }
        const std::size_t next = NextUnit(text, i);
        out.append(text, i, next - i);
        i = next;
    }
    return out;
}

// Removes the single blank on either side of a comma.
template <class Ch> Text<Ch> WithoutBlanksAtCommas(const Text<Ch>& text) {
    Text<Ch> out;
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == Ch(' ') && At(text, i + 1) == Ch(',')) {
            ++i;
        } else if (text[i] == Ch(',')) {
            out += Ch(',');
            i += At(text, i + 1) == Ch(' ') ? 2 : 1;
        } else {
            const std::size_t next = NextUnit(text, i);
            out.append(text, i, next - i);
            i = next;
        }
    }
    return out;
}

enum class Closed { Yes, No, Empty };

// Whether all character constants of the text are closed and none is empty.
template <class Ch> Closed CkClosed(const Text<Ch>& text) {
    Closed state = Closed::Yes;
    for (std::size_t i = 0; i < text.size(); i = NextUnit(text, i)) {
        if (text[i] != Ch('\'')) continue;
        const std::size_t close = FindClosingApost(text, i);
        if (close == npos) return Closed::No;
        if (close == i + 1) state = Closed::Empty;
    }
    return state;
}

template <class Ch> void CkHexConst(Place place, const Text<Ch>& text) {
    const std::size_t n = text.size() - 1;
    if (!std::all_of(text.begin() + 1, text.end(), IsHexDigit<Ch>)) cs->Error(place, DcMsg.HexBadDigit, {text});
    if (n > HexDigits) cs->Error(place, DcMsg.HexTooLong, {text, n});
    if (n < HexDigits) cs->Error(place, n == 1 ? DcMsg.HexOneDigit : DcMsg.HexTooShort, {text, n});
}

// More digits than other characters make it a bad number, else a label that begins with a digit.
template <class Ch> void CkDecConst(Place place, const Text<Ch>& text) {
    const auto begin = text.begin() + (IsSign(text[0]) ? 1 : 0);
    const auto digits = std::count_if(begin, text.end(), IsDigit<Ch>);
    const auto others = text.end() - begin - digits;
    if (others == 0) return;
    cs->Error(place, digits > others ? DcMsg.DecNonNumeral : DcMsg.NumeralFirst, {text});
}

// The label of a constant; the name of another program passes here and is refused when it gets no value. False if
// nothing has the name.
template <class Ch> bool CkLabelConst(Place place, const Text<Ch>& text) {
    if (!std::all_of(text.begin(), text.end(), IsLabelChar<Ch>)) cs->Error(place, DcMsg.LabelBadChar, {text});
    if (text.size() > AdrConstMax) cs->Error(place, DcMsg.LabelTooLong, {text, text.size()});
    SrcData<Ch>& src = LineAt<Ch>(place.line);
    if (const int other = FindOtherProgram(src.PrgNr, text); other >= 0) {
        PrgAt<Ch>(other).fCalled = true;
        src.fLabelInUse = true;
        return true;
    }
    if (const int target = FindLabelLine(src.PrgNr, text); target >= 0) {
        LineAt<Ch>(target).fLabelInUse = true;
        return true;
    }
    cs->Error(place, DcMsg.LabelUndefined, {text});
    return false;
}

template <class Ch> bool CkCharConst(Place place, const Text<Ch>& text) {
    const std::size_t close = FindClosingApost(text, 0);
    if (close != npos && close + 1 == text.size()) return true;
    cs->Error(place, DcMsg.CharConstBadEnd, {text});
    return false;
}

template <class Ch> bool RefuseFirstChar(Place place, const Text<Ch>& text) {
    cs->Error(place, DcMsg.BadFirstChar, {text});
    if (text[0] == Ch('"')) cs->Error(place, DcMsg.DoubleQuote);
    return false;
}

// Judges one constant. False if the rest of the line is given up.
template <class Ch> bool CkConstant(Place place, TDcConst<Ch>& constant) {
    const Text<Ch>& text = constant.strConst;
    const Ch c = text[0];
    if (c == Ch('#')) {
        constant.DataTypeStrFlag = "Hex";
        CkHexConst(place, text);
        return true;
    }
    if (IsDigit(c) || IsSign(c)) {
        constant.DataTypeStrFlag = "Dec";
        CkDecConst(place, text);
        return true;
    }
    if (IsUpper(c)) {
        constant.DataTypeStrFlag = "AdrConst";
        return CkLabelConst(place, text);
    }
    if (c == Ch('\'')) {
        constant.DataTypeStrFlag = "CharConst";
        return CkCharConst(place, text);
    }
    return RefuseFirstChar(place, text);
}

struct WordCount {
    int words;
    const char* kind;             // null: the kind stays
    const Msg* refusal = nullptr; // why the constant has no words
};

template <class Ch> WordCount CountWords(const Text<Ch>& text) {
    const Ch c = At(text, 0);
    const Ch next = At(text, 1);
    const bool mark = c == Ch('#') || IsSign(c);
    if (text.empty() || (mark && text.size() == 1)) return {0, nullptr, &DcMsg.EmptyConstant};
    if (c == Ch('\'')) return {CountWordKazuAtCharConst(text), "CharConst"};
    if (c == Ch('#')) return {1, "Hex"};
    if (IsDigit(c) || (IsSign(c) && IsDigit(next))) return {1, "Dec"};
    if (IsSign(c)) return {0, nullptr};
    if (IsUpper(c)) return {1, "AdrConst"};
    return {0, nullptr, &DcMsg.UnknownKind};
}

// Sets kind, value and characters of one constant.
template <class Ch> void SetConstant(int prg, Place place, TDcConst<Ch>& constant) {
    const Text<Ch>& text = constant.strConst;
    const Ch c = At(text, 0);
    constant.ConstWordKazu = 1;
    constant.vecMozi.clear();
    if (c == Ch('\'')) {
        ForEachMozi(text, 0, [&](int code) { constant.vecMozi.push_back({1, code, 0}); });
        constant.ConstWordKazu = static_cast<int>(constant.vecMozi.size());
        constant.DataTypeStrFlag = "MoziRetuConst";
    } else if (c == Ch('#')) {
        constant.ConstValue = HexStrToIntG(text, place.line, place.constant);
        constant.DataTypeStrFlag = "Hex";
    } else if (IsDigit(c) || IsSign(c)) {
        std::size_t end = 0;
        constant.ConstValue = ReadDecimal(text, end);
        constant.DataTypeStrFlag = "Dec";
        if (constant.ConstValue < WordMin || WordMax < constant.ConstValue)
            cs->Note(place, DcMsg.DecOutOfRange, {constant.ConstValue});
    } else {
        constant.DataTypeStrFlag = "AdrConst";
        const int target = FindLabelLine(prg, text);
        if (target < 0) {
            cs->Error(place, DcMsg.NoAddressConstant, {text});
            return;
        }
        SrcData<Ch>& label = LineAt<Ch>(target);
        constant.ConstValue = label.AbAdr;
        label.fLabelInUse = true;
    }
}

template <class Ch> void SetLineMryInAtDC(int prg, int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.vecWord.clear();
    for (std::size_t k = 0; k < src.vecDcConst.size(); ++k) {
        TDcConst<Ch>& constant = src.vecDcConst[k];
        SetConstant(prg, {line, static_cast<int>(k)}, constant);
        if (constant.vecMozi.empty()) src.vecWord.push_back({constant.ConstValue, 0, 0, 0, "DC"});
        for (const TMoziWord& mozi : constant.vecMozi)
            src.vecWord.push_back({mozi.Code, 0, 0, 0, "DC"});
    }
    src.word_kazu = static_cast<int>(src.vecWord.size());
    src.oprnd_kazu = static_cast<int>(src.vecDcConst.size());
}

int Refuse(int line, const Msg& msg, Args args = {}) {
    cs->Error(line, msg, args);
    return -1;
}

} // namespace

template <class Ch> int OprndAtDCtoChH(int line) {
    Text<Ch>& text = LineAt<Ch>(line).chOprndCom;
    text = WithoutComment(text);
    const Closed closed = CkClosed(text);
    if (closed != Closed::Yes) {
        cs->Error(line, closed == Closed::No ? DcMsg.CharsNotClosed : DcMsg.NoCharacter, {text});
        return 1;
    }
    text = WithoutBlanksAtCommas(text);
    return 0;
}

template <class Ch> int OprndAtDC(int line) {
    if (dc45<Ch>(line) < 0) return -1;
    TakeOutOprndsAtDC<Ch>(line);
    return CkDC33<Ch>(line);
}

template <class Ch> int dc45(int line) {
    Text<Ch>& text = LineAt<Ch>(line).chOprndCom;
    if (text.empty()) return Refuse(line, DcMsg.NoOperand);
    Text<Ch> out;
    for (std::size_t i = 0; i < text.size();) {
        const Ch c = text[i];
        const std::size_t behind = std::min(FindNonBlank(text, i + 1), text.size()); // the next character that counts
        const bool atEnd = behind == text.size();
        if (IsBlank(c)) {
            const bool dropped = atEnd || text[behind] == Ch(',');
            if (!dropped && modeFlags->Pipe->dcTextBehindBlank)
                return Refuse(line, DcMsg.ConstantOrComment, {text.substr(behind)});
            if (!dropped) out.append(text, i, behind - i);
            i = behind;
            continue;
        }
        if (c == Ch(',')) {
            if (!atEnd && text[behind] == Ch(',')) return Refuse(line, DcMsg.DoubleComma);
            if (atEnd) cs->Note(line, DcMsg.CommaAtEnd, {text});
            out += c;
            i = behind;
            continue;
        }
        if (IsSign(c) && IsBlank(At(text, i + 1))) return Refuse(line, DcMsg.BlankBehindSign);
        if (c == Ch('#') && IsBlank(At(text, i + 1))) return Refuse(line, DcMsg.BlankBehindHexMark);
        const std::size_t next = NextUnit(text, i);
        out.append(text, i, next - i);
        i = next;
    }
    text = out;
    return 0;
}

template <class Ch> int TakeOutOprndsAtDC(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const Text<Ch>& text = src.chOprndCom;
    src.vecDcConst.clear();
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin;
        while (end < text.size() && text[end] != Ch(','))
            end = NextUnit(text, end);
        TDcConst<Ch> constant;
        constant.strConst = text.substr(begin, end - begin);
        constant.DataTypeStrFlag = text[begin] == Ch('\'') ? "CharConst" : "Const";
        src.vecDcConst.push_back(constant);
        begin = end + 1;
    }
    return 0;
}

template <class Ch> int CkDC33(int line) {
    auto& constants = LineAt<Ch>(line).vecDcConst;
    for (std::size_t k = 0; k < constants.size(); ++k) {
        constants[k].strConst = TrimBlank(constants[k].strConst);
        if (constants[k].strConst.empty()) continue;
        if (!CkConstant({line, static_cast<int>(k)}, constants[k])) return -1;
    }
    return 0;
}

template <class Ch> int SetWordKazuAtDC(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    int total = 0;
    for (std::size_t k = 0; k < src.vecDcConst.size(); ++k) {
        TDcConst<Ch>& constant = src.vecDcConst[k];
        const WordCount count = CountWords(constant.strConst);
        if (count.refusal != nullptr) return Refuse(line, *count.refusal, {constant.strConst, k + 1});
        if (count.kind != nullptr) constant.DataTypeStrFlag = count.kind;
        total += count.words;
    }
    src.word_kazu = total;
    return 0;
}

template <class Ch> int SetMryInAtDC(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line)
        if (Is(LineAt<Ch>(line).strOp, "DC")) SetLineMryInAtDC<Ch>(prg, line);
    return 0;
}

template <class Ch> int DetDefLine(int) {
    return 0;
}

TOLVANE_BOTH_KINDS(OprndAtDCtoChH)
TOLVANE_BOTH_KINDS(OprndAtDC)
TOLVANE_BOTH_KINDS(dc45)
TOLVANE_BOTH_KINDS(TakeOutOprndsAtDC)
TOLVANE_BOTH_KINDS(CkDC33)
TOLVANE_BOTH_KINDS(SetWordKazuAtDC)
TOLVANE_BOTH_KINDS(SetMryInAtDC)
TOLVANE_BOTH_KINDS(DetDefLine)

} // namespace tolvane
