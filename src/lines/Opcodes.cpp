#include "lines/Opcodes.h"

#include "lines/Labels.h"
#include "lines/LinesMsgs.h"
#include "lines/Normalising.h"
#include "lines/ZenKaku.h"
#include "records/Lines.h"

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

constexpr std::array<std::string_view, 36> CaslWords = {
    // assembler instructions
    "START", "END", "DC", "DS",
    // machine instructions
    "LD", "LAD", "ST", "ADDA", "SUBA", "ADDL", "SUBL", "AND", "OR", "XOR", "CPA", "CPL", "SRA", "SRL", "SLA", "SLL",
    "JPL", "JMI", "JZE", "JNZ", "JOV", "JUMP", "CALL", "RET", "PUSH", "POP", "NOP", "SVC",
    // macro instructions
    "IN", "OUT", "RPUSH", "RPOP"};

} // namespace

template <class Ch> bool IsCaslWord(const Text<Ch>& word) {
    return std::any_of(CaslWords.begin(), CaslWords.end(), [&word](std::string_view w) { return Is(word, w); });
}

template <class Ch> int CkOpStr(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line <= program.EndLine; ++line) {
        const Text<Ch>& op = LineAt<Ch>(line).strOp;
        if (op.empty() || IsCaslWord(op)) continue;
        ExplainUnknownOp<Ch>(line);
        return -cs->ErrorKazu;
    }
    return 0;
}

template <class Ch> void ExplainUnknownOp(int line) {
    const Text<Ch>& op = LineAt<Ch>(line).strOp;
    cs->Error(line, LinesMsg.UnknownOp, {op});
    AnalystZenKSpace20(op, line);
    if (modeFlags->Pipe->tellsZenSpaceInOp && FindZenSpace(op) != npos) cs->Error(line, LinesMsg.ZenSpaceInOp);
    RemoveNoOprndOpSemiColn<Ch>(line);
    if (CkSmallMozi(op) > 0) cs->Error(line, LinesMsg.SmallMoziInOp, {op});
    AnalystOP<Ch>(line);
}

template <class Ch> int AnalystOP(int line) {
    const Text<Ch>& op = LineAt<Ch>(line).strOp;
    if (op.empty() || op.back() != Ch(',')) return 0;
    cs->Error(line, LinesMsg.CommaBehindOp);
    return 1;
}

TOLVANE_BOTH_KINDS(IsCaslWord)
TOLVANE_BOTH_KINDS(CkOpStr)
TOLVANE_BOTH_KINDS(ExplainUnknownOp)
TOLVANE_BOTH_KINDS(AnalystOP)

} // namespace tolvane
