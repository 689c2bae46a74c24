#include "lines/Opcodes.h"
#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"
#include "operands/AddressConstants.h"
#include "operands/Instructions.h"
#include "operands/Macros.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// Where the next word lies. A file may ask for more words than an address can count: addresses then stand still at
// the ceiling, and `total` alone goes on, until the size check refuses the file.
struct Running {
    static constexpr std::int64_t Ceiling = 1 << 30;

    int rel = 0;
    int abs = 0;
    std::int64_t total = 0;

    void Advance(std::int64_t words) {
        total += words;
        rel = static_cast<int>(std::min(rel + words, Ceiling));
        abs = static_cast<int>(std::min(abs + words, Ceiling));
    }
};

// The words of a line that are known by now take the running addresses, which advance by all words of the line.
template <class Ch> void PlaceLine(int line, Running& at) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.RlAdr = at.rel;
    src.AbAdr = at.abs;
    int offset = 0;
    for (TWordRec& word : src.vecWord) {
        word.RlAdr = at.rel + offset;
        word.AbAdr = at.abs + offset;
        word.Line = line;
        ++offset;
    }
    at.Advance(src.word_kazu);
}

// A line whose address operand is refused gets neither addresses nor words.
template <class Ch> void WalkTwoWords(int line, int adrOperand, Running& at) {
    if (CkAdrConst20<Ch>(line, adrOperand) != 0) return;
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.vecWord = {{.Value = src.first_word}, {.Value = src.second_word}};
    PlaceLine<Ch>(line, at);
}

template <class Ch> void WalkOneWord(int line, int word, Running& at) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    src.first_word = word;
    src.vecWord = {{.Value = word}};
    PlaceLine<Ch>(line, at);
}

// START begins the program with NOP, or with a jump to its operand.
template <class Ch> void WalkStart(int prg, int line, Running& at) {
    if (LineAt<Ch>(line).word_kazu == 1) return WalkOneWord<Ch>(line, 0, at);
    CkStartAdrOperand<Ch>(prg, line);
    PlaceLine<Ch>(line, at);
}

template <class Ch> void WalkInOut(int line, Running& at) {
    MacroIN<Ch>(line, 1);
    MacroIN<Ch>(line, 2);
    InOut1<Ch>(line);
    PlaceLine<Ch>(line, at);
}

template <class Ch> void WalkPushPop(int line, bool push, Running& at) {
    if (push)
        MacroRPUSH<Ch>(line, at.rel, at.abs);
    else
        MacroRPOP<Ch>(line, at.rel, at.abs);
    at.total += LineAt<Ch>(line).word_kazu;
    at.Advance(0);
}

// A machine instruction in the form that its word count names. False if it has no such form.
template <class Ch> bool WalkInstruction(int line, const Instruction& instruction, Running& at) {
    const SrcData<Ch>& src = LineAt<Ch>(line);
    const bool hasOneWord = instruction.shape == Shape::Register || instruction.shape == Shape::RegisterOrAddress;
    if (src.word_kazu == 1 && hasOneWord) {
        WalkOneWord<Ch>(line, src.first_word, at);
        return true;
    }
    if (src.word_kazu == 2 && instruction.shape != Shape::Register) {
        WalkTwoWords<Ch>(line, instruction.shape == Shape::Address ? 1 : 2, at);
        return true;
    }
    return false;
}

// Gives one line its addresses and words. False if no branch fits.
template <class Ch> bool WalkLine(int prg, int line, Running& at) {
    const SrcData<Ch>& src = LineAt<Ch>(line);
    const Text<Ch>& op = src.strOp;
    const int words = src.word_kazu;
    if (const Instruction* instruction = FindInstruction(op); instruction != nullptr)
        return WalkInstruction<Ch>(line, *instruction, at);
    if (IsDcOrDs(op))
        PlaceLine<Ch>(line, at);
    else if (Is(op, "START") && (words == 1 || words == 2))
        WalkStart<Ch>(prg, line, at);
    else if ((Is(op, "IN") || Is(op, "OUT")) && words == InOutWords)
        WalkInOut<Ch>(line, at);
    else if (Is(op, "RPUSH") || Is(op, "RPOP"))
        WalkPushPop<Ch>(line, Is(op, "RPUSH"), at);
    else if (Is(op, "NOP"))
        WalkOneWord<Ch>(line, 0, at);
    else if (Is(op, "RET"))
        WalkOneWord<Ch>(line, RetWord, at);
    else if (Is(op, "EXIT"))
        WalkOneWord<Ch>(line, ExitWord, at);
    else
        return false;
    return true;
}

// The literal of a line takes the next addresses, and the line its first address.
template <class Ch> void PlaceLiteral(SrcData<Ch>& src, Running& at) {
    if (src.vecLite.size() > 1) cs->Error(NoLine, LinkerMsg.MoreThanOneLiteral, {src.vecLite.size()});
    TLiteConst<Ch>& literal = src.vecLite[0];
    literal.RlAdr = at.rel;
    literal.AbAdr = at.abs;
    SetSecondWord(src, at.abs);
    int offset = 0;
    for (TLiteMozi& mozi : literal.vecLiteMozi)
        mozi.AbAdr = at.abs + offset++;
    at.Advance(std::max(offset, 1));
}

// Says where the next program begins, or where the image ends.
template <class Ch> void SetBehindProgram(int prg, int address) {
    if (prg + 1 < static_cast<int>(b->Prg<Ch>().size())) {
        PrgAt<Ch>(prg + 1).AbAdrAtStart = address;
        return;
    }
    b->SetReservedWords(address);
    comet2->ReservedWords = address;
}

} // namespace

template <class Ch> int AdrCk53(int prg) {
    PrgData<Ch>& program = PrgAt<Ch>(prg);
    Running at;
    at.abs = program.AbAdrAtStart;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || WalkLine<Ch>(prg, line, at)) continue;
        cs->Error(line, LinkerMsg.NoWalkForOp, {src.strOp, line, src.word_kazu});
        return -1;
    }
    program.AbAdrAtLite = at.abs;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (!src.strOp.empty() && src.word_kazu != 0 && !src.vecLite.empty()) PlaceLiteral(src, at);
    }
    program.PrgWordKazu = at.total;
    program.AbAdrAtEnd = at.abs - 1;
    SetBehindProgram<Ch>(prg, at.abs);
    return 0;
}

TOLVANE_BOTH_KINDS(AdrCk53)

} // namespace tolvane
