#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"
#include "operands/AddressConstants.h"
#include "operands/Dc.h"
#include "records/Lines.h"

#include <algorithm>
#include <string_view>

namespace tolvane {

namespace {

template <class Ch> int PrgKazu() {
    return static_cast<int>(b->Prg<Ch>().size());
}

// A number takes one word, a character literal one word a character.
int LiteralWords(const TLiteConst& literal) {
    return std::max(static_cast<int>(literal.vecLiteMozi.size()), 1);
}

template <class Ch> bool HasLiteral(const SrcData<Ch>& src) {
    return !src.strOp.empty() && src.word_kazu != 0 && !src.vecLite.empty();
}

void OwnWords(int line, int address, int words) {
    for (int a = address; a < address + words && a <= MaxImageWords; ++a)
        comet2->LineOfWord[static_cast<std::size_t>(a)] = line;
}

void Store(int& address, int value) {
    comet2->Memory[static_cast<std::size_t>(address++)] = value;
}

template <class Ch> void StoreDc(const SrcData<Ch>& src, int& address) {
    for (std::size_t k = 0; k < src.vecDcConst.size(); ++k) {
        const TDcConst<Ch>& constant = src.vecDcConst[k];
        switch (constant.DataTypeStrFlag) {
        case DcKind::Dec:
        case DcKind::Hex:
        case DcKind::AdrConst:
            Store(address, constant.ConstValue);
            break;
        case DcKind::CharConst:
        case DcKind::MoziRetuConst:
            for (const int code : constant.vecMozi)
                Store(address, code);
            break;
        case DcKind::Const:
            const char* kind = DcKindNames[static_cast<std::size_t>(constant.DataTypeStrFlag)];
            cs->Error(NoLine, LinkerMsg.StrangeKind, {constant.strConst, k, kind});
        }
    }
}

template <class Ch> void StoreLine(const SrcData<Ch>& src, int& address) {
    switch (src.op->shape) {
    case Shape::Dc:
        return StoreDc(src, address);
    case Shape::Ds:
        for (int i = 0; i < src.word_kazu; ++i)
            Store(address, 0);
        return;
    case Shape::InOut:
    case Shape::RpushRpop:
        for (const int word : src.vecWord)
            Store(address, word);
        return;
    default:
        Store(address, src.first_word);
        if (src.word_kazu == 2) Store(address, src.second_word);
    }
}

void StoreLiteral(const TLiteConst& literal, int& address) {
    if (literal.vecLiteMozi.empty()) Store(address, literal.LiteValue);
    for (const int code : literal.vecLiteMozi)
        Store(address, code);
}

} // namespace

template <class Ch> void SetLineOfWord() {
    for (const PrgData<Ch>& program : b->Prg<Ch>()) {
        for (int line = program.StartLine; line < program.EndLine; ++line) {
            const SrcData<Ch>& src = LineAt<Ch>(line);
            if (!src.strOp.empty()) OwnWords(line, src.AbAdr, src.word_kazu);
            if (HasLiteral(src)) OwnWords(line, src.vecLite[0].AbAdr, LiteralWords(src.vecLite[0]));
        }
    }
}

template <class Ch> void SetLinesInMemory(int prg, Taken taken, int& address) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) continue;
        const Taken kind = IsDcOrDs(src.op) ? Taken::Constants : Taken::Instructions;
        if (taken == Taken::All || taken == kind) StoreLine(src, address);
    }
}

template <class Ch> void SetLiteralsInMemory(int prg, int& address) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (HasLiteral(src)) StoreLiteral(src.vecLite[0], address);
    }
}

template <class Ch> void SetMemory(int prg) {
    int address = PrgAt<Ch>(prg).AbAdrAtStart;
    SetLinesInMemory<Ch>(prg, Taken::All, address);
    SetLiteralsInMemory<Ch>(prg, address);
}

template <class Ch> int Link31() {
    const int programs = PrgKazu<Ch>();
    for (int prg = 0; prg < programs; ++prg)
        SetMryInAtDC<Ch>(prg);
    for (int prg = 0; prg < programs; ++prg) {
        AdrCk53<Ch>(prg);
        if (ErrorSum() > 0) return ~prg;
    }
    if (CkMaxMrySize<Ch>() < 0) return -2;
    if (modeFlags->Pipe->buildsLineOfWord) SetLineOfWord<Ch>();
    for (int prg = 0; prg < programs; ++prg)
        SetMemory<Ch>(prg);
    return 0;
}

TOLVANE_BOTH_KINDS(SetLineOfWord)
TOLVANE_BOTH_KINDS(SetLinesInMemory)
TOLVANE_BOTH_KINDS(SetLiteralsInMemory)
TOLVANE_BOTH_KINDS(SetMemory)
TOLVANE_BOTH_KINDS(Link31)

} // namespace tolvane
