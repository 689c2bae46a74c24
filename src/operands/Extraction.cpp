#include "operands/Extraction.h"

#include "lines/RegisterNames.h"
#include "operands/Dc.h"
#include "operands/ExtractionMsgs.h"
#include "operands/HandlerMsgs.h"
#include "operands/Registers.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// Passes over ='...', doubled apostrophes included. False with an Error.
template <class Ch> bool SkipCharLiteral(int line, View<Ch> text, std::size_t& from) {
    from += 2;
    for (;;) {
        const Ch c = At(text, from);
        const Ch next = At(text, from + 1);
        if (c == Ch(0)) {
            if (modeFlags->Pipe->explainsOpenLiteral) cs->Error(line, ExtractionMsg.LiteralApostExample);
            cs->Error(line, ExtractionMsg.LiteralNotClosed, {text});
            return false;
        }
        if (c == Ch('\'') && next != Ch('\'')) {
            if (next == Ch(',') || IsBlank(next) || next == Ch(0)) break;
            cs->Error(line, ExtractionMsg.LiteralBadClose, {text});
            return false;
        }
        from += c == Ch('\'') ? 2 : 1;
    }
    ++from;
    return true;
}

enum class Cut { GoesOn, EndsText, Refused };

template <class Ch> void SkipBlanks(View<Ch> text, std::size_t& from) {
    while (IsBlank(At(text, from)))
        ++from;
}

// An operand and the comma that ended it, with the blanks between them left out.
template <class Ch> View<Ch> WithCommaAt(View<Ch> text, std::size_t begin, std::size_t end, std::size_t comma) {
    if (comma == end) return text.substr(begin, end + 1 - begin);
    return b->Keep<Ch>(Text<Ch>(text.substr(begin, end - begin)) += Ch(','));
}

// Cuts the next operand out of the text. It ends at its comma, which it keeps, at a blank, or with the text.
template <class Ch> Cut ExtractOprnd5(int line, View<Ch> text, std::size_t& from, SlimView<Ch>& operand) {
    const std::size_t begin = from;
    for (;;) {
        const Ch c = At(text, from);
        const Ch next = At(text, from + 1);
        if (c == Ch(0) || c == Ch(',') || (IsBlank(c) && next == Ch(','))) break;
        if (c == Ch('=') && next == Ch('\'')) {
            if (SkipCharLiteral(line, text, from)) continue;
            operand = text.substr(begin, from - begin);
            return Cut::Refused;
        }
        if (IsBlank(c)) {
            operand = text.substr(begin, from++ - begin);
            return Cut::GoesOn;
        }
        ++from;
    }
    const std::size_t end = from;
    operand = text.substr(begin, end - begin);
    SkipBlanks(text, from);
    if (At(text, from) != Ch(',')) return Cut::EndsText;
    operand = WithCommaAt(text, begin, end, from++);
    SkipBlanks(text, from);
    return Cut::GoesOn;
}

// Cuts three operands; what follows them is the fourth as it stands.
template <class Ch> void CutOprnds(int line, SrcData<Ch>& src) {
    const View<Ch> text = src.chOprndCom;
    std::size_t from = 0;
    Cut cut = Cut::GoesOn;
    for (int nr = 1; nr <= 3 && cut == Cut::GoesOn && At(text, from) != Ch(0); ++nr) {
        cut = ExtractOprnd5(line, text, from, src.Oprnd(nr));
        src.fThreeOprnds = nr == 3 && cut != Cut::Refused;
    }
    if (cut == Cut::GoesOn && At(text, from) != Ch(0)) src.Oprnd(4) = text.substr(from);
}

// True if operand n is not empty.
template <class Ch> bool CkNextOprndAriWithComma(int line, int n) {
    return !Oprnd<Ch>(line, n).empty();
}

} // namespace

template <class Ch> bool SearchApostForNonCharConstOP(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || HasShape(src.op, Shape::Dc)) continue;
        if (src.op == nullptr) { // a word on a START line
            cs->Error(line, HandlerMsg.NoHandler, {src.strOp});
            return false;
        }

        const std::size_t semicolon = Find<Ch>(src.strOprndCom, ";");
        if (semicolon == npos) continue;
        if (semicolon == 0 && modeFlags->Pipe->refusesLeadSemicolon) {
            cs->Error(line, ExtractionMsg.LeadSemicolon, {line});
            continue;
        }
        src.strOprndCom = src.strOprndCom.substr(0, semicolon);
    }
    return true;
}

template <class Ch> void CopyOprndComStrToChH(int prg) {
    const auto limit = static_cast<std::size_t>(modeFlags->Pipe->oprndLimit);
    bool told = false;
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        src.chOprndCom = src.strOprndCom;
        if (limit == 0 || src.strOprndCom.size() <= limit) continue;
        src.chOprndCom = src.strOprndCom.substr(0, limit);
        if (!told) Tell(Severity::Warning, line, ExtractionMsg.OperandTooLong, {limit, src.strOprndCom.size()});
        told = true;
    }
}

template <class Ch> void operand20m15(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (!HasShape(src.op, Shape::Dc)) CutOprnds(line, src);
    }
}

template <class Ch> bool ExtractAllOprnds(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) continue;
        if (src.op == nullptr) {
            cs->Error(line, ExtractionMsg.UnknownOp, {src.strOp});
            return false;
        }
        switch (src.op->shape) {
        case Shape::RegisterOrAddress:
        case Shape::RegisterAddress:
        case Shape::InOut:
            break;
        case Shape::Address:
            src.word_kazu = 2;
            break;
        case Shape::Dc:
            if (!modeFlags->Pipe->dcDsHavePasses) OprndAtDCtoChH<Ch>(line);
            break;
        default:
            src.word_kazu = 1;
        }
    }
    return true;
}

// Looks at the comma behind the address operand. It leaves CommaAriFlag to the handlers.
template <class Ch> void CkCommas(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        const Opcode* op = LineAt<Ch>(line).op;
        if (op == nullptr || op->shape > Shape::Address) continue;
        const int n = op->shape == Shape::Address ? 1 : 2;
        const View<Ch> operand = Oprnd<Ch>(line, n);
        if (op->shape == Shape::RegisterOrAddress && IsRegister(WithoutComma(operand))) continue;

        const bool comma = EndsInComma(operand);
        const bool next = CkNextOprndAriWithComma<Ch>(line, n + 1);
        if (comma && !next) cs->Error(line, ExtractionMsg.NextOperandExpected, {n});
        if (!comma && next) cs->Error(line, ExtractionMsg.CommaExpected, {n, n + 1});
    }
}

template <class Ch> bool EndsInComma(View<Ch> operand) {
    return !operand.empty() && operand.back() == Ch(',');
}

template <class Ch> View<Ch> WithoutComma(View<Ch> operand) {
    return EndsInComma(operand) ? operand.substr(0, operand.size() - 1) : operand;
}

template <class Ch> void GetCommaAriFlagForNextOprnd(int line, int n) {
    cs->CommaAriFlag = EndsInComma<Ch>(Oprnd<Ch>(line, n)) ? 1 : 0;
}

bool CommaNextOprnd3(const char* place) {
    if (cs->CommaAriFlag != 0 && cs->CommaAriFlag != 1) cs->Error(NoLine, ExtractionMsg.CommaFlagBroken, {place});
    return cs->CommaAriFlag == 1;
}

template <class Ch> void DetStrConstGL10(std::size_t& pos, View<Ch> text) {
    if (At(text, pos) == Ch('\''))
        ++pos;
    else
        Say(ExtractionMsg.NotAtApostrophe, {text.substr(std::min(pos, text.size()), 1)});
    for (;;) {
        while (At(text, pos) != Ch(0) && At(text, pos) != Ch('\''))
            ++pos;
        if (At(text, pos) == Ch(0) || At(text, pos + 1) != Ch('\'')) return;
        pos += 2;
    }
}

template <class Ch> bool IsStrConstClosedGL10(int line, std::size_t pos, View<Ch> text) {
    if (At(text, pos) != Ch(0)) {
        if (At(text, pos) != Ch('\'')) return true;
        const Ch behind = At(text, FindNonBlank(text, pos + 1));
        if (behind == Ch(0) || behind == Ch(',') || behind == Ch(';')) return true;
    }
    cs->Error(line, ExtractionMsg.StrNotClosed, {text});
    return false;
}

TOLVANE_BOTH_KINDS(SearchApostForNonCharConstOP)
TOLVANE_BOTH_KINDS(CopyOprndComStrToChH)
TOLVANE_BOTH_KINDS(operand20m15)
TOLVANE_BOTH_KINDS(ExtractAllOprnds)
TOLVANE_BOTH_KINDS(CkCommas)
TOLVANE_BOTH_KINDS(EndsInComma)
TOLVANE_BOTH_KINDS(WithoutComma)
TOLVANE_BOTH_KINDS(GetCommaAriFlagForNextOprnd)
TOLVANE_BOTH_KINDS(DetStrConstGL10)
TOLVANE_BOTH_KINDS(IsStrConstClosedGL10)

} // namespace tolvane
