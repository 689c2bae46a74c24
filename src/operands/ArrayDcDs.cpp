#include "operands/ArrayDcDs.h"

#include "operands/Dc.h"
#include "operands/DcMsgs.h"
#include "operands/Ds.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// Runs a check on every DC line and another on every DS line of a program. 1 if one of them gave a result other than 0.
template <class OnDc, class OnDs> int ForDcAndDs(int prg, OnDc onDc, OnDs onDs) {
    int result = 0;
    const PrgDataA& program = PrgAt<char>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const Opcode* op = LineAt<char>(line).op;
        if (HasShape(op, Shape::Dc) && onDc(line) != 0) result = 1;
        if (HasShape(op, Shape::Ds) && onDs(line) != 0) result = 1;
    }
    return result;
}

// All lines of the file so far count, those of the programs before included.
int CkDcDsLines(int prg) {
    ForDcAndDs(
        prg, [](int) { return ++cs->DcLineKazu; }, [](int) { return ++cs->DsLineKazu; });
    const int limit = modeFlags->Pipe->limits.dcdsLines;
    const int sum = cs->DcLineKazu + cs->DsLineKazu;
    if (sum <= limit) return 0;
    cs->Error(NoLine, DcMsg.TooManyDcDs, {limit, cs->DcLineKazu, cs->DsLineKazu, sum});
    return 1;
}

int dcTakeOutOperand(int line) {
    TakeOutOprndsAtDC<char>(line);
    const auto limit = static_cast<std::size_t>(modeFlags->Pipe->limits.dcConstants);
    const auto n = static_cast<std::size_t>(LineAt<char>(line).dcKazu);
    if (n <= limit) return 0;
    cs->Error(line, DcMsg.TooManyConstants, {limit, n});
    return 1;
}

int dc40N(int line) {
    if (OprndAtDCtoChH<char>(line) != 0 || dc45<char>(line) != 0) return 1;
    return dcTakeOutOperand(line);
}

} // namespace

int dcds10(int prg) {
    if (CkDcDsLines(prg) != 0) return 1;
    return ForDcAndDs(prg, dc40N, OprndAtDCtoChH<char>);
}

int dcds30(int prg) {
    return ForDcAndDs(prg, CkDC33<char>, OprndAtDS<char>);
}

int dcdsWordKazu40(int prg) {
    return ForDcAndDs(prg, SetWordKazuAtDC<char>, SetWordKazuAtDS<char>);
}

int dcdsMemoryIn30(int prg) {
    SetMryInAtDS<char>(prg);
    SetMryInAtDC<char>(prg);
    const auto addWords = [](int line) { return cs->max_rl_memory_d += LineAt<char>(line).word_kazu; };
    ForDcAndDs(prg, addWords, addWords);
    return 0;
}

} // namespace tolvane
