#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"
#include "operands/AddressConstants.h"
#include "operands/Macros.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// Where the next word lies. A file may ask for more words than an address can count: addresses then stand still at
// the ceiling, and `total` alone goes on, until the size check refuses the file.
struct Running {
    static constexpr std::int64_t Ceiling = 1 << 30;

    int abs = 0;
    std::int64_t total = 0;

    void Advance(std::int64_t words) {
        total += words;
        abs = static_cast<int>(std::min(abs + words, Ceiling));
    }
};

// A line takes the running address, which advances by its words.
template <class Ch> void PlaceLine(int line, Running& at) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.AbAdr = at.abs;
    at.Advance(src.word_kazu);
}

// A line whose address operand is refused gets no address.
template <class Ch> void WalkTwoWords(int line, int adrOperand, Running& at) {
    if (CkAdrConst20<Ch>(line, adrOperand)) PlaceLine<Ch>(line, at);
}

// START begins the program with NOP, or with a jump to its operand.
template <class Ch> void WalkStart(int prg, int line, Running& at) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (src.word_kazu == 1)
        src.first_word = 0;
    else
        CkStartAdrOperand<Ch>(prg, line);
    PlaceLine<Ch>(line, at);
}

template <class Ch> void WalkInOut(int line, Running& at) {
    MacroIN<Ch>(line, 1);
    MacroIN<Ch>(line, 2);
    InOut1<Ch>(line);
    PlaceLine<Ch>(line, at);
}

// Gives one line its address. False if its word count is none that its opcode can have.
template <class Ch> bool WalkLine(int prg, int line, Running& at) {
    const SrcData<Ch>& src = LineAt<Ch>(line);
    const int words = src.word_kazu;
    switch (src.op->shape) {
    case Shape::RegisterOrAddress:
    case Shape::Register:
        if (words == 1) {
            PlaceLine<Ch>(line, at);
            return true;
        }
        [[fallthrough]];
    case Shape::RegisterAddress:
    case Shape::Address:
        if (words != 2 || src.op->shape == Shape::Register) return false;
        WalkTwoWords<Ch>(line, src.op->shape == Shape::Address ? 1 : 2, at);
        return true;
    case Shape::NoOperand:
    case Shape::Dc:
    case Shape::Ds:
        PlaceLine<Ch>(line, at);
        return true;
    case Shape::Start:
        WalkStart<Ch>(prg, line, at);
        return words == 1 || words == 2;
    case Shape::InOut:
        WalkInOut<Ch>(line, at);
        return words == InOutWords;
    case Shape::RpushRpop:
        PlaceLine<Ch>(line, at);
        return true;
    case Shape::End:
        break;
    }
    return false;
}

// The literal of a line takes the next addresses, and the line its first address.
template <class Ch> void PlaceLiteral(SrcData<Ch>& src, TLiteConst<Ch>& literal, Running& at) {
    literal.AbAdr = at.abs;
    src.second_word = at.abs;
    at.Advance(literal.LiteWordKazu);
}

// Says where the next program begins, or where the image ends.
template <class Ch> void SetBehindProgram(int prg, int address) {
    if (prg + 1 < static_cast<int>(b->Prg<Ch>().size())) {
        PrgAt<Ch>(prg + 1).AbAdrAtStart = address;
        return;
    }
    comet2->ReservedWords = address;
}

} // namespace

template <class Ch> void AdrCk53(int prg) {
    PrgData<Ch>& program = PrgAt<Ch>(prg);
    Running at;
    at.abs = program.AbAdrAtStart;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || (src.op != nullptr && WalkLine<Ch>(prg, line, at))) continue;
        cs->Error(line, LinkerMsg.NoWalkForOp, {src.strOp, line, src.word_kazu});
        return;
    }
    program.AbAdrAtLite = at.abs;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (TLiteConst<Ch>* literal = b->Literal(src)) PlaceLiteral(src, *literal, at);
    }
    program.PrgWordKazu = at.total;
    program.AbAdrAtEnd = at.abs - 1;
    SetBehindProgram<Ch>(prg, at.abs);
}

TOLVANE_BOTH_KINDS(AdrCk53)

} // namespace tolvane
