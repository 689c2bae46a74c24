#include "lines/Opcodes.h"

#include "lines/Labels.h"
#include "lines/LinesMsgs.h"
#include "lines/Normalising.h"
#include "lines/ZenKaku.h"
#include "records/Lines.h"

namespace tolvane {

template <class Ch> int CkOpStr(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line <= program.EndLine; ++line) {
        const SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || src.op != nullptr) continue;
        ExplainUnknownOp<Ch>(line);
        return -cs->ErrorKazu;
    }
    return 0;
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

template <class Ch> int AnalystOP(int line) {
    const View<Ch> op = LineAt<Ch>(line).strOp;
    if (op.empty() || op.back() != Ch(',')) return 0;
    cs->Error(line, LinesMsg.CommaBehindOp);
    return 1;
}

TOLVANE_BOTH_KINDS(CkOpStr)
TOLVANE_BOTH_KINDS(ExplainUnknownOp)
TOLVANE_BOTH_KINDS(AnalystOP)

} // namespace tolvane
