#include "lines/Fields.h"

#include "lines/LinesMsgs.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// The length of operand text from which on a line is called long, in every pipeline.
constexpr std::size_t LongOprndCom = 225;

} // namespace

template <class Ch> void TakeOutLabelRest(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        const std::size_t blank = FindBlank(src.strLine);
        src.strRest = blank == npos ? Text<Ch>() : TrimLeftBlank(src.strLine.substr(blank));
    }
}

template <class Ch> void TakeOutOpStr(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        src.strOp = src.strRest.substr(0, FindBlank(src.strRest));
        src.op = FindOpcode(src.strOp, modeFlags->Pipe->hasExit);
    }
}

template <class Ch> void TakeOutOprndComStr(int prg) {
    bool told = false;
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty()) continue;
        const std::size_t behindOp = src.strOp.size() + 1;
        src.strOprndCom = behindOp < src.strRest.size() ? TrimLeftBlank(src.strRest.substr(behindOp)) : Text<Ch>();
        if (src.strOprndCom.size() <= LongOprndCom || told) continue;
        Tell(Severity::Warning, line, LinesMsg.LongLine, {src.strOprndCom.size()});
        told = true;
    }
}

template <class Ch> int SplitFields(int prg) {
    TakeOutLabelRest<Ch>(prg);
    TakeOutOpStr<Ch>(prg);
    TakeOutOprndComStr<Ch>(prg);
    return 0;
}

template <class Ch> int TrimOprndCom(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line)
        LineAt<Ch>(line).strOprndCom = TrimBlank(LineAt<Ch>(line).strOprndCom);
    return 0;
}

TOLVANE_BOTH_KINDS(SplitFields)
TOLVANE_BOTH_KINDS(TakeOutLabelRest)
TOLVANE_BOTH_KINDS(TakeOutOpStr)
TOLVANE_BOTH_KINDS(TakeOutOprndComStr)
TOLVANE_BOTH_KINDS(TrimOprndCom)

} // namespace tolvane
