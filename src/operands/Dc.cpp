#include "operands/Dc.h"

#include "operands/AddressConstants.h"
#include "operands/DcMsgs.h"
#include "operands/Numbers.h"
#include "records/Lines.h"

#include <algorithm>
#include <optional>

namespace tolvane {

namespace {

// Behind the character at i, or behind the whole character constant that opens there.
template <class Ch> std::size_t NextUnit(View<Ch> text, std::size_t i) {
    if (text[i] != Ch('\'')) return i + 1;
    const std::size_t close = FindClosingApost(text, i);
    return close == npos ? text.size() : close + 1;
}

// Runs of blanks become one, and the comment is cut off; character constants stay as they are.
template <class Ch> Text<Ch> WithoutComment(View<Ch> text) {
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
template <class Ch> Text<Ch> WithoutBlanksAtCommas(View<Ch> text) {
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

// What a cleaning has made of a text: the text itself if it is still the same.
template <class Ch> View<Ch> Kept(View<Ch> text, const Text<Ch>& cleaned) {
    return cleaned == text ? text : b->Keep<Ch>(cleaned);
}

enum class Closed { Yes, No, Empty };

// Whether all character constants of the text are closed and none is empty.
template <class Ch> Closed CkClosed(View<Ch> text) {
    Closed state = Closed::Yes;
    for (std::size_t i = 0; i < text.size(); i = NextUnit(text, i)) {
        if (text[i] != Ch('\'')) continue;
        const std::size_t close = FindClosingApost(text, i);
        if (close == npos) return Closed::No;
        if (close == i + 1) state = Closed::Empty;
    }
    return state;
}

template <class Ch> void CkHexConst(Place place, View<Ch> text) {
    const std::size_t n = text.size() - 1;
    if (!std::all_of(text.begin() + 1, text.end(), IsHexDigit<Ch>)) cs->Error(place, DcMsg.HexBadDigit, {text});
    if (n > HexDigits) cs->Error(place, DcMsg.HexTooLong, {text, n});
    if (n < HexDigits) cs->Error(place, n == 1 ? DcMsg.HexOneDigit : DcMsg.HexTooShort, {text, n});
}

// More digits than other characters make it a bad number, else a label that begins with a digit.
template <class Ch> void CkDecConst(Place place, View<Ch> text) {
    const auto begin = text.begin() + (IsSign(text[0]) ? 1 : 0);
    const auto digits = std::count_if(begin, text.end(), IsDigit<Ch>);
    const auto others = text.end() - begin - digits;
    if (others == 0) return;
    cs->Error(place, digits > others ? DcMsg.DecNonNumeral : DcMsg.NumeralFirst, {text});
}

// The label of a constant; the name of another program passes here and is refused when it gets no value. False if
// nothing has the name.
template <class Ch> bool CkLabelConst(Place place, View<Ch> text) {
    if (!std::all_of(text.begin(), text.end(), IsLabelChar<Ch>)) cs->Error(place, DcMsg.LabelBadChar, {text});
    if (text.size() > cs->LabelMax) cs->Error(place, DcMsg.LabelTooLong, {text, text.size()});
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

template <class Ch> bool CkCharConst(Place place, View<Ch> text) {
    const std::size_t close = FindClosingApost(text, 0);
    if (close != npos && close + 1 == text.size()) return true;
    cs->Error(place, DcMsg.CharConstBadEnd, {text});
    return false;
}

template <class Ch> bool RefuseFirstChar(Place place, View<Ch> text) {
    cs->Error(place, DcMsg.BadFirstChar, {text});
    if (text[0] == Ch('"')) cs->Error(place, DcMsg.DoubleQuote);
    return false;
}

// Judges one constant. False if the rest of the line is given up.
template <class Ch> bool CkConstant(Place place, TDcConst<Ch>& constant) {
    const View<Ch> text = constant.strConst;
    const Ch c = text[0];
    if (c == Ch('#')) {
        constant.DataTypeStrFlag = DcKind::Hex;
        CkHexConst(place, text);
        return true;
    }
    if (IsDigit(c) || IsSign(c)) {
        constant.DataTypeStrFlag = DcKind::Dec;
        CkDecConst(place, text);
        return true;
    }
    if (IsUpper(c)) {
        constant.DataTypeStrFlag = DcKind::AdrConst;
        return CkLabelConst(place, text);
    }
    if (c == Ch('\'')) {
        constant.DataTypeStrFlag = DcKind::CharConst;
        return CkCharConst(place, text);
    }
    return RefuseFirstChar(place, text);
}

struct WordCount {
    int words;
    std::optional<DcKind> kind;   // without one the kind stays
    const Msg* refusal = nullptr; // why the constant has no words
};

template <class Ch> WordCount CountWords(View<Ch> text) {
    const Ch c = At(text, 0);
    const Ch next = At(text, 1);
    const bool mark = c == Ch('#') || IsSign(c);
    if (text.empty() || (mark && text.size() == 1)) return {0, std::nullopt, &DcMsg.EmptyConstant};
    if (c == Ch('\'')) return {CountWordKazuAtCharConst(text), DcKind::CharConst};
    if (c == Ch('#')) return {1, DcKind::Hex};
    if (IsDigit(c) || (IsSign(c) && IsDigit(next))) return {1, DcKind::Dec};
    if (IsSign(c)) return {0, std::nullopt};
    if (IsUpper(c)) return {1, DcKind::AdrConst};
    return {0, std::nullopt, &DcMsg.UnknownKind};
}

// Sets kind and value of one constant. Its words, of which none counts as one.
template <class Ch> int SetConstant(int prg, Place place, TDcConst<Ch>& constant) {
    const View<Ch> text = constant.strConst;
    const Ch c = At(text, 0);
    if (c == Ch('\'')) {
        constant.DataTypeStrFlag = DcKind::MoziRetuConst;
        return std::max(CountWordKazuAtCharConst(text), 1);
    }
    if (c == Ch('#')) {
        constant.ConstValue = HexStrToIntG(text, place.line, place.constant);
        constant.DataTypeStrFlag = DcKind::Hex;
        return 1;
    }
    if (IsDigit(c) || IsSign(c)) {
        std::size_t end = 0;
        constant.ConstValue = ReadDecimal(text, end);
        constant.DataTypeStrFlag = DcKind::Dec;
        if (constant.ConstValue < WordMin || WordMax < constant.ConstValue)
            cs->Note(place, DcMsg.DecOutOfRange, {constant.ConstValue});
        return 1;
    }
    constant.DataTypeStrFlag = DcKind::AdrConst;
    const int target = FindLabelLine<Ch>(prg, text);
    if (target < 0) {
        cs->Error(place, DcMsg.NoAddressConstant, {text});
        return 1;
    }
    SrcData<Ch>& label = LineAt<Ch>(target);
    constant.ConstValue = label.AbAdr;
    label.fLabelInUse = true;
    return 1;
}

template <class Ch> void SetLineMryInAtDC(int prg, int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    int words = 0;
    int k = 0;
    for (TDcConst<Ch>& constant : b->Constants(src))
        words += SetConstant(prg, {line, k++}, constant);
    src.word_kazu = words;
}

bool Refuse(int line, const Msg& msg, Args args = {}) {
    cs->Error(line, msg, args);
    return false;
}

// One piece of a list of constants: blanks and a comma take the blanks behind them along, a character constant is
// whole.
template <class Ch> struct ListPiece {
    std::size_t begin;
    std::size_t end;
    bool isBlank;
    bool isComma;
    bool endsText;    // nothing but blanks behind it
    bool beforeComma; // a comma behind it, with or without blanks between

    ListPiece(View<Ch> text, std::size_t at) : begin(at), isBlank(IsBlank(text[at])), isComma(text[at] == Ch(',')) {
        const std::size_t behind = std::min(FindNonBlank(text, at + 1), text.size());
        end = isBlank || isComma ? behind : NextUnit(text, at);
        endsText = behind == text.size();
        beforeComma = !endsText && text[behind] == Ch(',');
    }
};

// Whether a text is a list: no two commas in a row, no text behind a blank, no sign or "#" apart from its number. A
// comma at the end is only noted.
template <class Ch> bool CkList(int line, View<Ch> text) {
    for (std::size_t i = 0; i < text.size();) {
        const ListPiece<Ch> piece(text, i);
        const bool textBehindBlank = piece.isBlank && !piece.endsText && !piece.beforeComma;
        if (textBehindBlank && modeFlags->Pipe->dcTextBehindBlank)
            return Refuse(line, DcMsg.ConstantOrComment, {text.substr(piece.end)});
        if (piece.isComma && piece.beforeComma) return Refuse(line, DcMsg.DoubleComma);
        if (piece.isComma && piece.endsText) cs->Note(line, DcMsg.CommaAtEnd, {text});
        const bool apart = IsBlank(At(text, i + 1));
        if (IsSign(text[i]) && apart) return Refuse(line, DcMsg.BlankBehindSign);
        if (text[i] == Ch('#') && apart) return Refuse(line, DcMsg.BlankBehindHexMark);
        i = piece.end;
    }
    return true;
}

// Blanks round a comma and at the end go, others stay.
template <class Ch> Text<Ch> WithoutBlanksAtCommasAndEnd(View<Ch> text) {
    Text<Ch> out;
    for (std::size_t i = 0; i < text.size();) {
        const ListPiece<Ch> piece(text, i);
        if (piece.isComma)
            out += Ch(',');
        else if (!piece.isBlank || !(piece.endsText || piece.beforeComma))
            out.append(text, i, piece.end - i);
        i = piece.end;
    }
    return out;
}

} // namespace

template <class Ch> bool OprndAtDCtoChH(int line) {
    SlimView<Ch>& kept = LineAt<Ch>(line).chOprndCom;
    const View<Ch> text = Kept<Ch>(kept, WithoutComment<Ch>(kept));
    kept = text;
    const Closed closed = CkClosed(text);
    if (closed != Closed::Yes) {
        cs->Error(line, closed == Closed::No ? DcMsg.CharsNotClosed : DcMsg.NoCharacter, {text});
        return false;
    }
    kept = Kept(text, WithoutBlanksAtCommas(text));
    return true;
}

template <class Ch> void OprndAtDC(int line) {
    if (!dc45<Ch>(line)) return;
    TakeOutOprndsAtDC<Ch>(line);
    CkDC33<Ch>(line);
}

template <class Ch> bool dc45(int line) {
    SlimView<Ch>& kept = LineAt<Ch>(line).chOprndCom;
    const View<Ch> text = kept;
    if (text.empty()) return Refuse(line, DcMsg.NoOperand);
    if (!CkList(line, text)) return false;
    kept = Kept(text, WithoutBlanksAtCommasAndEnd(text));
    return true;
}

template <class Ch> void TakeOutOprndsAtDC(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const View<Ch> text = src.chOprndCom;
    auto& constants = b->Apart<Ch>().vecDcConst;
    src.dcFirst = static_cast<std::int32_t>(constants.size());
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = begin;
        while (end < text.size() && text[end] != Ch(','))
            end = NextUnit(text, end);
        TDcConst<Ch>& constant = constants.emplace_back();
        constant.strConst = text.substr(begin, end - begin);
        if (text[begin] == Ch('\'')) constant.DataTypeStrFlag = DcKind::CharConst;
        begin = end + 1;
    }
    src.dcKazu = static_cast<std::int32_t>(constants.size()) - src.dcFirst;
}

template <class Ch> bool CkDC33(int line) {
    int k = 0;
    for (TDcConst<Ch>& constant : b->Constants(LineAt<Ch>(line))) {
        constant.strConst = TrimBlank(constant.strConst);
        const Place place{line, k++};
        if (!constant.strConst.empty() && !CkConstant(place, constant)) return false;
    }
    return true;
}

template <class Ch> bool SetWordKazuAtDC(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    int total = 0;
    int k = 0;
    for (TDcConst<Ch>& constant : b->Constants(src)) {
        const WordCount count = CountWords(constant.strConst);
        ++k;
        if (count.refusal != nullptr) return Refuse(line, *count.refusal, {constant.strConst, k});
        if (count.kind) constant.DataTypeStrFlag = *count.kind;
        total += count.words;
    }
    src.word_kazu = total;
    return true;
}

template <class Ch> void SetMryInAtDC(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line)
        if (HasShape(LineAt<Ch>(line).op, Shape::Dc)) SetLineMryInAtDC<Ch>(prg, line);
}

TOLVANE_BOTH_KINDS(OprndAtDCtoChH)
TOLVANE_BOTH_KINDS(OprndAtDC)
TOLVANE_BOTH_KINDS(dc45)
TOLVANE_BOTH_KINDS(TakeOutOprndsAtDC)
TOLVANE_BOTH_KINDS(CkDC33)
TOLVANE_BOTH_KINDS(SetWordKazuAtDC)
TOLVANE_BOTH_KINDS(SetMryInAtDC)

} // namespace tolvane
