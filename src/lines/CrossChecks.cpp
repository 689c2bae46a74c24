#include "lines/CrossChecks.h"

#include "lines/LinesMsgs.h"
#include "records/Lines.h"

namespace tolvane {

// One walk finds what comparing all pairs would: the first line whose label comes again, and where it first does.
template <class Ch> void CkLabelDouble(int prg, const std::vector<int>& labelled) {
    LabelIndex<Ch>& index = PrgAt<Ch>(prg).LabelLine;
    index.Prepare(b->Src<Ch>(), labelled.size());
    int firstLine = -1;
    int againLine = -1;
    for (const int line : labelled) {
        const int entered = index.Enter(line);
        if (entered == line || (firstLine >= 0 && entered >= firstLine)) continue;
        firstLine = entered;
        againLine = line;
    }
    if (firstLine < 0) return;
    cs->Error(againLine, LinesMsg.LabelDouble, {LineAt<Ch>(firstLine).strLabel, firstLine + 1, againLine + 1});
}

template <class Ch> void CkPrgNameDouble() {
    const int kazu = b->GetPrgKazuInFile();
    for (int i = 0; i < kazu; ++i)
        for (int j = i + 1; j < kazu; ++j) {
            const PrgData<Ch>& one = PrgAt<Ch>(i);
            const PrgData<Ch>& other = PrgAt<Ch>(j);
            if (one.strPrgName != other.strPrgName) continue;
            b->Error(other.StartLine, LinesMsg.PrgNameDouble,
                     {one.strPrgName, i + 1, one.StartLine + 1, j + 1, other.StartLine + 1});
            return;
        }
}

template <class Ch> void CkLabelInUse() {
    for (const PrgData<Ch>& program : b->Prg<Ch>())
        for (int line = program.StartLine + 1; line < program.EndLine; ++line) {
            const SrcData<Ch>& src = LineAt<Ch>(line);
            if (!src.strLabel.empty() && !src.fLabelInUse) b->Note(line, LinesMsg.LabelUnreferenced, {src.strLabel});
        }
}

template <class Ch> void CkPrgNameInUse() {
    for (int prg = 1; prg < b->GetPrgKazuInFile(); ++prg) {
        const PrgData<Ch>& program = PrgAt<Ch>(prg);
        if (!program.fCalled) b->Warning(program.StartLine, LinesMsg.PrgNeverCalled, {program.strPrgName});
    }
}

TOLVANE_BOTH_KINDS(CkLabelDouble)
TOLVANE_BOTH_KINDS(CkPrgNameDouble)
TOLVANE_BOTH_KINDS(CkLabelInUse)
TOLVANE_BOTH_KINDS(CkPrgNameInUse)

} // namespace tolvane
