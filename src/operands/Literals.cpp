#include "operands/Literals.h"

#include "operands/Extraction.h"
#include "operands/LiteralMsgs.h"
#include "operands/Numbers.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// The end of the text, a blank or a comma ends a number.
template <class Ch> bool EndsNumber(View<Ch> text, std::size_t i) {
    return i >= text.size() || IsBlank(text[i]) || text[i] == Ch(',');
}

template <class Ch> void CkDecLiteral(int line, View<Ch> text, std::size_t digits) {
    std::size_t i = digits;
    while (IsDigit(At(text, i)))
        ++i;
    if (!EndsNumber(text, i)) cs->Error(line, LiteralMsg.DecNonNumeral);
}

template <class Ch> void CkHexLiteral(int line, View<Ch> text, std::size_t digits) {
    std::size_t i = digits;
    while (IsHexDigit(At(text, i)))
        ++i;
    if (!EndsNumber(text, i)) cs->Error(line, LiteralMsg.HexBadDigit);
    if (i - digits != 4) cs->Error(line, LiteralMsg.HexLength);
}

// Where the mark stands with a character behind it that `fits`; npos if nowhere.
template <class Ch, class Fits>
std::size_t FindMark(View<Ch> text, std::string_view mark, Fits fits, std::size_t from = 0) {
    for (std::size_t p = Find(text, mark, from); p != npos; p = Find(text, mark, p + 1))
        if (p + mark.size() < text.size() && fits(text[p + mark.size()])) return p;
    return npos;
}

// Judges the first character literal of the text.
template <class Ch> void CkMoziLiteral(int line, View<Ch> text) {
    const std::size_t open = Find(text, "='") + 1;
    const std::size_t close = FindClosingApost(text, open);
    const Ch behind = close == npos ? Ch('?') : At(text, close + 1);
    const bool ends = behind == Ch(0) || behind == Ch(',') || behind == Ch(';') || IsBlank(behind);
    if (!ends) cs->Error(line, LiteralMsg.CharsNotClosed, {text});
    if (CountWordKazuAtCharConst(text.substr(open)) == 0) cs->Error(line, LiteralMsg.NoCharacter);
}

// The text without the blanks behind its first "=".
template <class Ch> View<Ch> WithoutBlanksBehindEqual(View<Ch> text) {
    if (!Has(text, '=')) return text;
    const std::size_t p = text.find(Ch('='));
    if (!IsBlank(At(text, p + 1))) return text;
    return b->Keep<Ch>(Text<Ch>(text.substr(0, p + 1)) += TrimLeftBlank(text.substr(p + 1)));
}

// The first form that fits decides. A sign is passed over: the digits behind it are judged with their address.
template <class Ch> void CkLiteralForm(int line, View<Ch> operands) {
    const View<Ch> t = WithoutBlanksBehindEqual(operands);
    const std::size_t p = Find(t, "=");
    if (IsDigit(At(t, p + 1))) return CkDecLiteral(line, t, p + 1);

    const std::size_t sign = std::min(FindMark(t, "=+", IsDigit<Ch>), FindMark(t, "=-", IsDigit<Ch>));
    if (sign != npos) {
        const std::size_t later = FindMark(t, "=", IsDigit<Ch>, sign + 1);
        if (later != npos) CkDecLiteral(line, t, later + 1);
        return;
    }
    if (const std::size_t hex = FindMark(t, "=#", IsHexDigit<Ch>); hex != npos) return CkHexLiteral(line, t, hex + 2);
    if (FindMark(t, "='", [](Ch) { return true; }) != npos) return CkMoziLiteral(line, t);
    cs->Error(line, LiteralMsg.NoLiteral, {operands});
}

// Whether a semicolon occurs, or a blank beside a comma.
template <class Ch> bool NeedsTrim(View<Ch> text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == Ch(';')) return true;
        if (text[i] != Ch(',')) continue;
        if ((i > 0 && IsBlank(text[i - 1])) || IsBlank(At(text, i + 1))) return true;
    }
    return false;
}

// The record of the line's literal, made if there is none.
template <class Ch> TLiteConst<Ch>& LiteralOf(SrcData<Ch>& src) {
    auto& literals = b->Apart<Ch>().vecLite;
    if (src.lite < 0) {
        src.lite = static_cast<std::int32_t>(literals.size());
        literals.emplace_back();
    }
    return literals[static_cast<std::size_t>(src.lite)];
}

// The text without the blanks at the commas left of the first "=", cut at a semicolon there.
template <class Ch> View<Ch> TrimOprndComComma(View<Ch> text) {
    const std::size_t end = std::min(text.find(Ch('=')), text.size());
    if (!NeedsTrim(text.substr(0, end))) return text;
    Text<Ch> out;
    std::size_t i = 0;
    while (i < end) {
        const Ch c = text[i];
        if (c == Ch(';')) return b->Keep<Ch>(out);
        // Of a run of blanks in front of a comma only the last one goes.
        if (IsBlank(c) && i + 1 < end && text[i + 1] == Ch(',')) {
            ++i;
            continue;
        }
        out += c;
        ++i;
        if (c == Ch(',')) i = std::min(FindNonBlank(text, i), end);
    }
    return b->Keep<Ch>(out += text.substr(end));
}

} // namespace

template <class Ch> bool CkLiteral15(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (!Has<Ch>(src.strOprndCom, '=')) continue;
        if (src.op != nullptr && !src.op->takesLiteral) continue;
        CkLiteralForm<Ch>(line, src.strOprndCom);
    }
    return !cs->AnyErrorSoFar();
}

template <class Ch> void CkStrConstLiteral(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (HasShape(src.op, Shape::Dc)) continue;
        const View<Ch> work = WithoutBlanksBehindEqual<Ch>(src.strOprndCom);
        if (std::size_t pos = Find(work, "='"); pos != npos) {
            DetStrConstGL10(++pos, work);
            if (!IsStrConstClosedGL10(line, pos, work)) cs->Error(line, LiteralMsg.CharsExample, {work});
        }
        src.strOprndCom = TrimOprndComComma(work);
    }
}

template <class Ch> void SetLiteCharConstMryIn(int line, View<Ch> text) {
    if (text.size() < 3) return;
    TLiteConst<Ch>& literal = LiteralOf(LineAt<Ch>(line));
    literal.strLite = text;
    literal.LiteWordKazu = std::max(CountWordKazuAtCharConst(text), 1);
    literal.AbAdr = 0;
}

template <class Ch> void SetLiteNumber(int line, int value) {
    LiteralOf(LineAt<Ch>(line)).LiteValue = value;
}

TOLVANE_BOTH_KINDS(CkLiteral15)
TOLVANE_BOTH_KINDS(CkStrConstLiteral)
TOLVANE_BOTH_KINDS(SetLiteCharConstMryIn)
TOLVANE_BOTH_KINDS(SetLiteNumber)

} // namespace tolvane
