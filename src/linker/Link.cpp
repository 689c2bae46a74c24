#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"
#include "operands/AddressConstants.h"
#include "operands/Dc.h"
#include "operands/Macros.h"
#include "operands/Numbers.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

template <class Ch> int PrgKazu() {
    return static_cast<int>(b->Prg<Ch>().size());
}

void OwnWords(int line, int address, int words) {
    for (int a = address; a < address + words && a <= MaxImageWords; ++a)
        comet2->LineOfWord[static_cast<std::size_t>(a)] = line;
}

void Store(int& address, int value) {
    comet2->Memory[static_cast<std::size_t>(address++)] = value;
}

template <class Ch> void StoreMozi(View<Ch> text, int& address) {
    ForEachMozi(text, 0, [&address](int code) { Store(address, code); });
}

template <class Ch> void StoreDc(const SrcData<Ch>& src, int& address) {
    int k = 0;
    for (const TDcConst<Ch>& constant : b->Constants(src)) {
        switch (constant.DataTypeStrFlag) {
        case DcKind::Dec:
        case DcKind::Hex:
        case DcKind::AdrConst:
            Store(address, constant.ConstValue);
            break;
        case DcKind::CharConst:
        case DcKind::MoziRetuConst:
            StoreMozi(constant.strConst, address);
            break;
        case DcKind::Const:
            const char* kind = DcKindNames[static_cast<std::size_t>(constant.DataTypeStrFlag)];
            cs->Error(NoLine, LinkerMsg.StrangeKind, {constant.strConst, k, kind});
        }
        ++k;
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
        for (const int word : WordsOfInOut(src))
            Store(address, word);
        return;
    case Shape::RpushRpop:
        for (const int word : WordsOfRpushRpop(src))
            Store(address, word);
        return;
    default:
        Store(address, src.first_word);
        if (src.word_kazu == 2) Store(address, src.second_word);
    }
}

template <class Ch> void StoreLiteral(const TLiteConst<Ch>& literal, int& address) {
    const int begin = address;
    StoreMozi(literal.strLite, address);
    if (address == begin) Store(address, literal.LiteValue);
}

// Writes the words of one program into the machine's memory.
template <class Ch> void SetMemory(int prg) {
    int address = PrgAt<Ch>(prg).AbAdrAtStart;
    SetLinesInMemory<Ch>(prg, Taken::All, address);
    SetLiteralsInMemory<Ch>(prg, address);
}

} // namespace

template <class Ch> void SetLineOfWord() {
    for (const PrgData<Ch>& program : b->Prg<Ch>()) {
        for (int line = program.StartLine; line < program.EndLine; ++line) {
            const SrcData<Ch>& src = LineAt<Ch>(line);
            if (!src.strOp.empty()) OwnWords(line, src.AbAdr, src.word_kazu);
            if (const auto* literal = b->Literal(src)) OwnWords(line, literal->AbAdr, literal->LiteWordKazu);
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
        if (const auto* literal = b->Literal(LineAt<Ch>(line))) StoreLiteral(*literal, address);
    }
}

template <class Ch> bool Link31() {
    const int programs = PrgKazu<Ch>();
    for (int prg = 0; prg < programs; ++prg)
        SetMryInAtDC<Ch>(prg);
    for (int prg = 0; prg < programs; ++prg) {
        AdrCk53<Ch>(prg);
        if (ErrorSum() > 0) return false;
    }
    if (!CkMaxMrySize<Ch>()) return false;
    if (modeFlags->Pipe->buildsLineOfWord) SetLineOfWord<Ch>();
    for (int prg = 0; prg < programs; ++prg)
        SetMemory<Ch>(prg);
    return true;
}

TOLVANE_BOTH_KINDS(SetLineOfWord)
TOLVANE_BOTH_KINDS(SetLinesInMemory)
TOLVANE_BOTH_KINDS(SetLiteralsInMemory)
TOLVANE_BOTH_KINDS(Link31)

} // namespace tolvane
