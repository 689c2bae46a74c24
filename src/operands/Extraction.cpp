#include "operands/Extraction.h"

#include "lines/RegisterNames.h"
#include "operands/Dc.h"
#include "operands/ExtractionMsgs.h"
#include "operands/Registers.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// Copies ='...' to the operand, doubled apostrophes as they are. False with an Error.
template <class Ch> bool CopyCharLiteral(int line, const Text<Ch>& text, Text<Ch>& operand, std::size_t& from) {
    operand += text.substr(from, 2);
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
        const std::size_t length = c == Ch('\'') ? 2 : 1;
        operand += text.substr(from, length);
        from += length;
    }
    operand += text[from++];
    return true;
}

enum class Cut { GoesOn, EndsText, Refused };

template <class Ch> void SkipBlanks(const Text<Ch>& text, std::size_t& from) {
    while (IsBlank(At(text, from)))
        ++from;
}

// Cuts the next operand out of the text. It ends at its comma, which it keeps, at a blank, or with the text.
template <class Ch> Cut ExtractOprnd5(int line, const Text<Ch>& text, std::size_t& from, Text<Ch>& operand) {
    for (;;) {
        const Ch c = At(text, from);
        const Ch next = At(text, from + 1);
        if (c == Ch(0) || c == Ch(',') || (IsBlank(c) && next == Ch(','))) break;
        if (c == Ch('=') && next == Ch('\'')) {
            if (!CopyCharLiteral(line, text, operand, from)) return Cut::Refused;
            continue;
        }
        ++from;
        if (IsBlank(c)) return Cut::GoesOn;
        operand += c;
    }
    SkipBlanks(text, from);
    if (At(text, from) != Ch(',')) return Cut::EndsText;
    operand += text[from++];
    SkipBlanks(text, from);
    return Cut::GoesOn;
}

// Cuts three operands; what follows them is the fourth as it stands.
template <class Ch> void CutOprnds(int line, SrcData<Ch>& src) {
    const Text<Ch>& text = src.chOprndCom;
    std::size_t from = 0;
    Cut cut = Cut::GoesOn;
    for (std::size_t nr = 1; nr <= 3 && cut == Cut::GoesOn && At(text, from) != Ch(0); ++nr) {
        cut = ExtractOprnd5(line, text, from, src.chOprnd[nr]);
        src.fThreeOprnds = nr == 3 && cut != Cut::Refused;
    }
    if (cut == Cut::GoesOn && At(text, from) != Ch(0)) src.chOprnd[4] = text.substr(from);
}

} // namespace

template <class Ch> int SearchApostForNonCharConstOP(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || HasShape(src.op, Shape::Dc)) continue;
        if (src.op == nullptr) return -1;

        const std::size_t semicolon = Find(src.strOprndCom, ";");
        if (semicolon == npos) continue;
        if (semicolon == 0 && modeFlags->Pipe->refusesLeadSemicolon) {
            cs->Error(line, ExtractionMsg.LeadSemicolon, {line});
            continue;
        }
        src.strOprndCom.resize(semicolon);
    }
    return 0;
}

template <class Ch> int CopyOprndComStrToChH(int prg) {
    const auto limit = static_cast<std::size_t>(modeFlags->Pipe->oprndLimit);
    bool told = false;
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        src.chOprndCom = src.strOprndCom;
        if (limit == 0 || src.strOprndCom.size() <= limit) continue;
        src.chOprndCom.resize(limit);
        if (!told) Tell(Severity::Warning, line, ExtractionMsg.OperandTooLong, {limit, src.strOprndCom.size()});
        told = true;
    }
    return 0;
}

template <class Ch> int operand20m15(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (!HasShape(src.op, Shape::Dc)) CutOprnds(line, src);
    }
    return 0;
}

template <class Ch> int ExtractAllOprnds(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) continue;
        if (src.op == nullptr) {
            cs->Error(line, ExtractionMsg.UnknownOp, {src.strOp});
            return -1;
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
    return 0;
}

// Looks at the comma behind the address operand. It leaves CommaAriFlag to the handlers.
template <class Ch> int CkCommas(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        const Opcode* op = LineAt<Ch>(line).op;
        if (op == nullptr || op->shape > Shape::Address) continue;
        const int n = op->shape == Shape::Address ? 1 : 2;
        const Text<Ch>& operand = Oprnd<Ch>(line, n);
        if (op->shape == Shape::RegisterOrAddress && IsRegister(WithoutComma(operand))) continue;

        const bool comma = EndsInComma(operand);
        const bool next = CkNextOprndAriWithComma<Ch>(line, n + 1);
        if (comma && !next) cs->Error(line, ExtractionMsg.NextOperandExpected, {n});
        if (!comma && next) cs->Error(line, ExtractionMsg.CommaExpected, {n, n + 1});
    }
    return 0;
}

template <class Ch> bool EndsInComma(const Text<Ch>& operand) {
    return !operand.empty() && operand.back() == Ch(',');
}

template <class Ch> Text<Ch> WithoutComma(const Text<Ch>& operand) {
    return EndsInComma(operand) ? operand.substr(0, operand.size() - 1) : operand;
}

template <class Ch> void GetCommaAriFlagForNextOprnd(int line, int n) {
    cs->CommaAriFlag = EndsInComma(Oprnd<Ch>(line, n)) ? 1 : 0;
}

bool CommaNextOprnd3(const char* place) {
    if (cs->CommaAriFlag != 0 && cs->CommaAriFlag != 1) cs->Error(NoLine, ExtractionMsg.CommaFlagBroken, {place});
    return cs->CommaAriFlag == 1;
}

template <class Ch> bool CkNextOprndAriWithComma(int line, int n) {
    return !Oprnd<Ch>(line, n).empty();
}

template <class Ch> void DetStrConstGL10(std::size_t& pos, const Text<Ch>& text) {
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

template <class Ch> int IsStrConstClosedGL10(int line, std::size_t& pos, const Text<Ch>& text) {
    if (At(text, pos) != Ch(0)) {
        if (At(text, pos) != Ch('\'')) return 0;
        const Ch behind = At(text, pos + 1);
        if (behind == Ch(0)) return 10;
        if (behind == Ch(',')) return 20;
        if (behind == Ch(';')) return 30;
        ++pos;
        while (IsBlank(At(text, pos)))
            ++pos;
        if (At(text, pos) == Ch(',')) return 40;
        if (At(text, pos) == Ch(';')) return 50;
        if (At(text, pos) == Ch(0)) return 60;
    }
    cs->Error(line, ExtractionMsg.StrNotClosed, {text});
    return -1;
}

TOLVANE_BOTH_KINDS(SearchApostForNonCharConstOP)
TOLVANE_BOTH_KINDS(CopyOprndComStrToChH)
TOLVANE_BOTH_KINDS(operand20m15)
TOLVANE_BOTH_KINDS(ExtractAllOprnds)
TOLVANE_BOTH_KINDS(CkCommas)
TOLVANE_BOTH_KINDS(EndsInComma)
TOLVANE_BOTH_KINDS(WithoutComma)
TOLVANE_BOTH_KINDS(GetCommaAriFlagForNextOprnd)
TOLVANE_BOTH_KINDS(CkNextOprndAriWithComma)
TOLVANE_BOTH_KINDS(DetStrConstGL10)
TOLVANE_BOTH_KINDS(IsStrConstClosedGL10)

} // namespace tolvane
