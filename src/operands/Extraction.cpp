#include "operands/Extraction.h"

#include "lines/RegisterNames.h"
#include "operands/Dc.h"
#include "operands/ExtractionMsgs.h"
#include "operands/Instructions.h"
#include "operands/Registers.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// How the counts of a line are preset.
enum class Preset { Nothing, TwoWords, Constants, OneOperand, NoOperand, Start, Unknown };

template <class Ch> Preset PresetOf(const Text<Ch>& op) {
    if (const Instruction* instruction = FindInstruction(op)) {
        if (instruction->shape == Shape::Register) return Preset::OneOperand;
        return instruction->shape == Shape::Address ? Preset::TwoWords : Preset::Nothing;
    }
    if (Is(op, "IN") || Is(op, "OUT")) return Preset::Nothing;
    if (Is(op, "DC")) return Preset::Constants;
    if (Is(op, "DS")) return Preset::OneOperand;
    if (Is(op, "START")) return Preset::Start;
    for (const char* word : {"RPUSH", "RPOP", "RET", "NOP", "END"})
        if (Is(op, word)) return Preset::NoOperand;
    return Is(op, "EXIT") && modeFlags->Pipe->hasExit ? Preset::NoOperand : Preset::Unknown;
}

// What stands behind the opcode of an instruction that needs no operand is a comment.
template <class Ch> void KeepNoOprndComment(SrcData<Ch>& src) {
    if (!src.strOprndCom.empty() && src.strComment.empty()) src.strComment = TrimZenBlank(src.strOprndCom);
}

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

// Cuts operand nr out of chOprndCom. An operand ends at its comma, which it keeps, at a blank, or with the text.
// 0: go on with the next operand; 1: nothing more can be cut.
template <class Ch> int ExtractOprnd5(int line, SrcData<Ch>& src, std::size_t& nr, std::size_t& from) {
    const Text<Ch>& text = src.chOprndCom;
    Text<Ch>& operand = src.chOprnd[nr];
    operand.clear();
    for (;;) {
        const Ch c = At(text, from);
        const Ch next = At(text, from + 1);
        if (c == Ch(0) || c == Ch(',') || (IsBlank(c) && next == Ch(','))) break;
        if (c == Ch('=') && next == Ch('\'')) {
            if (!CopyCharLiteral(line, text, operand, from)) return 1;
            continue;
        }
        ++from;
        if (IsBlank(c)) {
            ++nr;
            return 0;
        }
        operand += c;
    }
    ++nr;
    while (IsBlank(At(text, from)))
        ++from;
    if (At(text, from) != Ch(',')) return 1;
    operand += Ch(',');
    ++from;
    while (IsBlank(At(text, from)))
        ++from;
    return 0;
}

template <class Ch> void CutOprnds(int line, SrcData<Ch>& src) {
    std::size_t nr = 1;
    std::size_t from = 0;
    while (At(src.chOprndCom, from) != Ch(0)) {
        if (nr > 3) {
            src.chOprnd[nr] = src.chOprndCom.substr(from);
            break;
        }
        if (ExtractOprnd5(line, src, nr, from) != 0) break;
    }
    src.oprnd_kazu = static_cast<std::int32_t>(nr) - 1;
    if (nr > 3) return;
    for (std::size_t i = 1; i <= nr; ++i)
        src.strOprnd[i] = src.chOprnd[i];
    for (std::size_t i = nr + 1; i <= 4; ++i)
        src.chOprnd[i].clear();
}

} // namespace

template <class Ch> int SearchApostForNonCharConstOP(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) continue;
        const Preset preset = PresetOf(src.strOp);
        if (preset == Preset::Constants) continue;
        if (preset == Preset::Unknown) return -1;

        const std::size_t semicolon = Find(src.strOprndCom, ";");
        if (semicolon == npos) continue;
        if (semicolon == 0 && modeFlags->Pipe->refusesLeadSemicolon) {
            cs->Error(line, ExtractionMsg.LeadSemicolon, {line});
            continue;
        }
        src.strComment = src.strOprndCom.substr(semicolon);
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
        if (Is(src.strOp, "DC")) continue;
        if (src.chOprndCom.empty())
            for (std::size_t i = 1; i <= 4; ++i)
                src.chOprnd[i].clear();
        else
            CutOprnds(line, src);
    }
    return 0;
}

template <class Ch> int ExtractAllOprnds(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) continue;
        switch (PresetOf(src.strOp)) {
        case Preset::Nothing:
            break;
        case Preset::TwoWords:
            src.word_kazu = 2;
            break;
        case Preset::Constants:
            if (!modeFlags->Pipe->dcDsHavePasses) OprndAtDCtoChH<Ch>(line);
            break;
        case Preset::OneOperand:
            KeepNoOprndComment(src);
            src.oprnd_kazu = 1;
            src.word_kazu = 1;
            src.second_word = 0;
            break;
        case Preset::NoOperand:
            KeepNoOprndComment(src);
            src.oprnd_kazu = 0;
            src.word_kazu = 1;
            break;
        case Preset::Start:
            src.oprnd_kazu = 0;
            src.word_kazu = 1;
            src.first_word = 0;
            src.second_word = 0;
            break;
        case Preset::Unknown:
            cs->Error(line, ExtractionMsg.UnknownOp, {src.strOp});
            return -1;
        }
    }
    return 0;
}

// Looks at the comma behind the address operand. It leaves CommaAriFlag to the handlers.
template <class Ch> int CkCommas(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line) {
        const Instruction* instruction = FindInstruction(LineAt<Ch>(line).strOp);
        if (instruction == nullptr || instruction->shape == Shape::Register) continue;
        const int n = instruction->shape == Shape::Address ? 1 : 2;
        const Text<Ch>& operand = Oprnd<Ch>(line, n);
        if (instruction->shape == Shape::RegisterOrAddress && IsRegister(WithoutComma(operand))) continue;

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
