#include "lines/ArrayLines.h"

#include "lines/Fields.h"
#include "lines/LinesMsgs.h"
#include "lines/Opcodes.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

constexpr int RunsOfBlanks = 2; // in front of the opcode word and behind it
constexpr int MostOpErrors = 3; // op30 goes on to the next line up to here

TextA WithShortRuns(ViewA line) {
    TextA out;
    int runs = 0;
    for (std::size_t i = 0; i < line.size();) {
        if (!IsBlank(line[i]) || runs == RunsOfBlanks) {
            out += line[i++];
            continue;
        }
        out += ' ';
        ++runs;
        i = std::min(FindNonBlank(line, i), line.size());
    }
    return out;
}

void EditLine(SrcDataA& src) {
    const TextA shortened = WithShortRuns(src.strSrc);
    src.strLine = shortened == ViewA(src.strSrc) ? ViewA(src.strSrc) : b->Keep<char>(shortened);
    const std::size_t p = FindNonBlank<char>(src.strLine);
    if (p == npos) {
        src.strLine = ViewA(" ");
    } else if (src.strLine[p] == ';') {
        src.strLine = {};
    }
}

bool HoldsText(const SrcDataA& src) {
    return FindNonBlank<char>(src.strLine) != npos;
}

// START and END have no place between the two.
bool IsInnerOp(const Opcode* op) {
    return op != nullptr && op->shape != Shape::Start && op->shape != Shape::End;
}

// The first word that is too long to be an opcode.
bool CkOpLength(const PrgDataA& program) {
    const int limit = modeFlags->Pipe->limits.opLength;
    for (int line = program.StartLine; line <= program.EndLine; ++line) {
        const ViewA op = LineAt<char>(line).strOp;
        if (op.size() <= static_cast<std::size_t>(limit)) continue;
        cs->Error(line, LinesMsg.OpTooLong, {op, limit});
        return false;
    }
    return true;
}

bool CkOpWords(const PrgDataA& program) {
    const int before = cs->ErrorKazu;
    for (int line = program.StartLine + 1; line < program.EndLine; ++line) {
        const SrcDataA& src = LineAt<char>(line);
        if (src.strOp.empty() || IsInnerOp(src.op)) continue;
        ExplainUnknownOp<char>(line);
        if (cs->ErrorKazu - before > MostOpErrors) break;
    }
    return cs->ErrorKazu == before;
}

// From the first DC or DS on there is nothing else up to END.
bool CkPlaceOfDcDs(const PrgDataA& program) {
    bool found = false;
    for (int line = program.StartLine + 1; line < program.EndLine; ++line) {
        const SrcDataA& src = LineAt<char>(line);
        if (src.strOp.empty()) continue;
        if (IsDcOrDs(src.op)) {
            found = true;
        } else if (found) {
            cs->Error(line, LinesMsg.DcDsNotAtEnd);
            return false;
        }
    }
    return true;
}

} // namespace

void editN() {
    for (SrcDataA& src : b->vecSrcA)
        EditLine(src);
    if (std::any_of(b->vecSrcA.begin(), b->vecSrcA.end(), HoldsText)) return;
    po->Error(NoLine, LinesMsg.EmptySource);
}

bool op30(int prg) {
    SplitFields<char>(prg);
    const PrgDataA& program = PrgAt<char>(prg);
    return CkOpLength(program) && CkOpWords(program) && CkPlaceOfDcDs(program);
}

} // namespace tolvane
