#include "operands/ArrayDcDs.h"

#include "operands/Dc.h"
#include "operands/DcMsgs.h"
#include "operands/Ds.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// Runs a check on every DC line and another on every DS line of a program. False if one of them was.
template <class OnDc, class OnDs> bool ForDcAndDs(int prg, OnDc onDc, OnDs onDs) {
    bool good = true;
    const PrgDataA& program = PrgAt<char>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const Opcode* op = LineAt<char>(line).op;
        if (HasShape(op, Shape::Dc) && !onDc(line)) good = false;
        if (HasShape(op, Shape::Ds) && !onDs(line)) good = false;
    }
    return good;
}

// All lines of the file so far count, those of the programs before included.
bool CkDcDsLines(int prg) {
    const PrgDataA& program = PrgAt<char>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const Opcode* op = LineAt<char>(line).op;
        if (HasShape(op, Shape::Dc)) ++cs->DcLineKazu;
        if (HasShape(op, Shape::Ds)) ++cs->DsLineKazu;
    }
    const int limit = modeFlags->Pipe->limits.dcdsLines;
    const int sum = cs->DcLineKazu + cs->DsLineKazu;
    if (sum <= limit) return true;
    cs->Error(NoLine, DcMsg.TooManyDcDs, {limit, cs->DcLineKazu, cs->DsLineKazu, sum});
    return false;
}

bool dcTakeOutOperand(int line) {
    TakeOutOprndsAtDC<char>(line);
    const auto limit = static_cast<std::size_t>(modeFlags->Pipe->limits.dcConstants);
    const auto n = static_cast<std::size_t>(LineAt<char>(line).dcKazu);
    if (n <= limit) return true;
    cs->Error(line, DcMsg.TooManyConstants, {limit, n});
    return false;
}

bool dc40N(int line) {
    return OprndAtDCtoChH<char>(line) && dc45<char>(line) && dcTakeOutOperand(line);
}

} // namespace

bool dcds10(int prg) {
    return CkDcDsLines(prg) && ForDcAndDs(prg, dc40N, OprndAtDCtoChH<char>);
}

bool dcds30(int prg) {
    return ForDcAndDs(prg, CkDC33<char>, OprndAtDS<char>);
}

bool dcdsWordKazu40(int prg) {
    return ForDcAndDs(prg, SetWordKazuAtDC<char>, SetWordKazuAtDS<char>);
}

void dcdsMemoryIn30(int prg) {
    SetMryInAtDS<char>(prg);
    SetMryInAtDC<char>(prg);
    const PrgDataA& program = PrgAt<char>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line)
        if (IsDcOrDs(LineAt<char>(line).op)) cs->max_rl_memory_d += LineAt<char>(line).word_kazu;
}

} // namespace tolvane
