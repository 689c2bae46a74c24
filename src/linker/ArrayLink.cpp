// The link of the array pipeline: a memory of its own size, checked program by program and again while it is filled.

#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"
#include "operands/Dc.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

bool IsMacro(const SrcDataA& src) {
    return HasShape(src.op, Shape::InOut) || HasShape(src.op, Shape::RpushRpop);
}

// The words of a program's lines without DC and DS.
int InstructionWords(const PrgDataA& program) {
    int words = 0;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const SrcDataA& src = LineAt<char>(line);
        if (src.strOp.empty() || IsDcOrDs(src.op)) continue;
        if (!IsMacro(src) && (src.word_kazu < 0 || 2 < src.word_kazu)) cs->Error(line, LinkerMsg.StrangeWordKazu);
        words += src.word_kazu;
    }
    return words;
}

int DcDsWords(const PrgDataA& program) {
    int words = 0;
    for (int line = program.StartLine; line < program.EndLine; ++line)
        if (IsDcOrDs(LineAt<char>(line).op)) words += LineAt<char>(line).word_kazu;
    return words;
}

int LiteralWords(const PrgDataA& program) {
    return program.AbAdrAtEnd + 1 - program.AbAdrAtLite;
}

// The first program finds an empty machine.
void ClearForFirst(int prg) {
    if (prg == 0) comet2->InitComet2();
}

// Whether a total fits; if not, with an Error on the line.
bool CkMaxMemory2(int total, int line) {
    const int limit = modeFlags->Pipe->limits.imageWords;
    if (total <= limit) return true;
    if (total > AddressCount)
        cs->Error(line, LinkerMsg.BeyondAllAddresses, {total});
    else
        cs->Error(line, LinkerMsg.BeyondMemory, {total, limit});
    return false;
}

// Refuses an image that would reach beyond the memory.
bool Exceeds(int total, int line) {
    if (total <= modeFlags->Pipe->limits.imageWords) return false;
    Tell(Severity::Error, NoLine, LinkerMsg.LinkerError);
    CkMaxMemory2(total, line);
    return true;
}

} // namespace

bool AdrCk3(int prg) {
    AdrCk53<char>(prg);
    if (ErrorSum() > 0) return false;
    cs->max_rl_memory_l += LiteralWords(PrgAt<char>(prg));
    return true;
}

bool CkMaxMemory(int prg) {
    const PrgDataA& program = PrgAt<char>(prg);
    const Limits& limits = modeFlags->Pipe->limits;
    const int n = InstructionWords(program);
    const int d = cs->max_rl_memory_d;
    if (d > limits.dcdsWords) {
        cs->Error(NoLine, LinkerMsg.BeyondDcDsWords, {d - limits.dcdsWords});
        return false;
    }
    const int l = cs->max_rl_memory_l;
    if (l > limits.literalWords) {
        cs->Error(NoLine, LinkerMsg.BeyondLiteralWords, {l - limits.literalWords});
        return false;
    }
    return CkMaxMemory2(n + d + l, program.EndLine);
}

bool SetMemory25(int prg) {
    ClearForFirst(prg);
    const PrgDataA& program = PrgAt<char>(prg);
    int address = program.AbAdrAtStart;
    SetLinesInMemory<char>(prg, Taken::Instructions, address);
    if (Exceeds(address + DcDsWords(program), program.EndLine)) return false;
    SetLinesInMemory<char>(prg, Taken::Constants, address);
    if (Exceeds(address + LiteralWords(program), program.EndLine)) return false;
    SetLiteralsInMemory<char>(prg, address);
    comet2->ReservedWords = address;
    return true;
}

bool Link2() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg) {
        SetMryInAtDC<char>(prg);
        AdrCk53<char>(prg);
        if (ErrorSum() > 0) return false;
        if (SetMemory25(prg)) continue;
        cs->Error(NoLine, LinkerMsg.LinkRefused, {modeFlags->Pipe->limits.imageWords});
        return false;
    }
    return true;
}

} // namespace tolvane
