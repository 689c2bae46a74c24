#include "lines/Opcodes.h"

#include "lines/Labels.h"
#include "lines/LinesMsgs.h"
#include "lines/Normalising.h"
#include "lines/ZenKaku.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// Reports a comma behind the opcode word.
template <class Ch> void AnalystOP(int line) {
    const View<Ch> op = LineAt<Ch>(line).strOp;
    if (!op.empty() && op.back() == Ch(',')) cs->Error(line, LinesMsg.CommaBehindOp);
}

} // namespace

template <class Ch> void CkOpStr(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line <= program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || src.op != nullptr) continue;
        ExplainUnknownOp<Ch>(line);
        return;
    }
}

template <class Ch> void ExplainUnknownOp(int line) {
    const View<Ch> op = LineAt<Ch>(line).strOp;
    cs->Error(line, LinesMsg.UnknownOp, {op});
    AnalystZenKSpace20(op, line);
    if (modeFlags->Pipe->tellsZenSpaceInOp && FindZenSpace(op) != npos) cs->Error(line, LinesMsg.ZenSpaceInOp);
    RemoveNoOprndOpSemiColn<Ch>(line);
    if (CkSmallMozi(op) > 0) cs->Error(line, LinesMsg.SmallMoziInOp, {op});
    AnalystOP<Ch>(line);
}

TOLVANE_BOTH_KINDS(CkOpStr)
TOLVANE_BOTH_KINDS(ExplainUnknownOp)

} // namespace tolvane
