#include "lines/Fields.h"

#include "lines/LinesMsgs.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// The length of operand text from which on a line is called long, in every pipeline.
constexpr std::size_t LongOprndCom = 225;

// The steps of SplitFields for one line: the text behind the label field; the opcode word; the text behind it.
template <class Ch> View<Ch> TakeOutLabelRest(const SrcData<Ch>& src) {
    const std::size_t blank = FindBlank<Ch>(src.strLine);
    return blank == npos ? View<Ch>() : TrimLeftBlank(src.strLine.substr(blank));
}

template <class Ch> void TakeOutOpStr(SrcData<Ch>& src, View<Ch> rest) {
    src.strOp = rest.substr(0, FindBlank(rest));
    src.op = FindOpcode<Ch>(src.strOp, modeFlags->Pipe->hasExit);
}

template <class Ch> void TakeOutOprndComStr(SrcData<Ch>& src, View<Ch> rest) {
    const std::size_t behindOp = std::min(src.strOp.size() + 1, rest.size());
    src.strOprndCom = TrimLeftBlank(rest.substr(behindOp));
}

} // namespace

template <class Ch> void SplitFields(int prg) {
    bool told = false;
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        const View<Ch> rest = TakeOutLabelRest(src);
        TakeOutOpStr(src, rest);
        TakeOutOprndComStr(src, rest);
        if (src.strOprndCom.size() <= LongOprndCom || told) continue;
        Tell(Severity::Warning, line, LinesMsg.LongLine, {src.strOprndCom.size()});
        told = true;
    }
}

template <class Ch> void TrimOprndCom(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line)
        LineAt<Ch>(line).strOprndCom = TrimBlank<Ch>(LineAt<Ch>(line).strOprndCom);
}

TOLVANE_BOTH_KINDS(SplitFields)
TOLVANE_BOTH_KINDS(TrimOprndCom)

} // namespace tolvane
