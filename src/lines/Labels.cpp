#include "lines/Labels.h"

#include "lines/CrossChecks.h"
#include "lines/LinesMsgs.h"
#include "lines/RegisterNames.h"
#include "lines/ZenKaku.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

template <class Ch> bool BeginsWithBlankOrIsEmpty(View<Ch> text) {
    return text.empty() || IsBlank(text.front());
}

// A word that fills its line alone is a label without an instruction.
template <class Ch> void TakeOutLabel(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (BeginsWithBlankOrIsEmpty<Ch>(src.strLine)) {
        src.strLabel = {};
        return;
    }
    const std::size_t blank = FindBlank<Ch>(src.strLine);
    src.strLabel = src.strLine.substr(0, blank);
    if (blank == npos) cs->Error(line, LinesMsg.LabelAlone, {src.strLabel});
}

template <class Ch> void CkLabelFirstLetter(int line) {
    const View<Ch> label = LineAt<Ch>(line).strLabel;
    if (!label.empty() && !IsUpper(label.front())) cs->Error(line, LinesMsg.LabelFirstLetter, {label});
}

// False for a label with a character that is not allowed.
template <class Ch> bool CkLabelMozi(int line) {
    const View<Ch> label = LineAt<Ch>(line).strLabel;
    int pos = 0;
    const bool found = DetNonLabelMoziPos(label, pos) && (pos > 0 || modeFlags->Pipe->firstLabelCharCounts);
    if (!found) return true;
    cs->Error(line, LinesMsg.LabelMozi, {label});
    AnalystZenKSpace20(label, line);
    return false;
}

template <class Ch> void CkLabelLength(int line) {
    const View<Ch> label = LineAt<Ch>(line).strLabel;
    if (label.size() > cs->LabelMax) cs->Error(line, LinesMsg.LabelTooLong, {label, label.size()});
}

// The names of the registers are the only reserved words.
template <class Ch> void CkLabelReserved(int line) {
    const View<Ch> label = LineAt<Ch>(line).strLabel;
    if (IsRegister(label)) cs->Error(line, LinesMsg.LabelReserved, {label});
}

// The faults of a program's name, the first one only. Whether it has none.
template <class Ch> bool CkPrgNameMozi(View<Ch> label, int line) {
    if (!IsUpper(At(label, 0))) {
        cs->Error(line, LinesMsg.PrgNameFirstLetter, {label});
        return false;
    }
    if (const int pos = CkMozi(label); pos != 0) {
        cs->Error(line, LinesMsg.PrgNameMozi, {label, pos + 1});
        if (const int small = CkSmallMozi(label); small != 0)
            cs->Error(line, LinesMsg.PrgNameSmallMozi, {label, small});
        return false;
    }
    if (label.size() > cs->LabelMax) {
        cs->Error(line, LinesMsg.PrgNameTooLong, {label, label.size()});
        return false;
    }
    if (IsRegister(label)) {
        cs->Error(line, LinesMsg.PrgNameReserved, {label});
        return false;
    }
    return true;
}

} // namespace

template <class Ch> void CkPrgName(int prg) {
    PrgData<Ch>& program = PrgAt<Ch>(prg);
    const int line = program.StartLine;
    SrcData<Ch>& src = LineAt<Ch>(line);
    if (BeginsWithBlankOrIsEmpty<Ch>(src.strLine)) {
        cs->Error(line, LinesMsg.PrgWithoutName);
        return;
    }
    const View<Ch> label = src.strLine.substr(0, FindBlank<Ch>(src.strLine));
    AnalystZenKSpace20(label, line);
    if (!CkPrgNameMozi(label, line)) return;
    program.strPrgName = label;
    src.strLabel = label;
}

// One sweep for each rule. Each runs to its end whatever the others found; the one for the characters stops at its
// first find.
template <class Ch> void Label35G(int prg, int first, int last) {
    std::vector<int> labelled;
    for (int line = first; line <= last; ++line) {
        TakeOutLabel<Ch>(line);
        if (!LineAt<Ch>(line).strLabel.empty()) labelled.push_back(line);
    }
    for (const int line : labelled)
        CkLabelFirstLetter<Ch>(line);
    for (const int line : labelled)
        if (!CkLabelMozi<Ch>(line)) break;
    for (const int line : labelled)
        CkLabelLength<Ch>(line);
    for (const int line : labelled)
        CkLabelReserved<Ch>(line);
    CkLabelDouble<Ch>(prg, labelled);
}

template <class Ch> void FindLabels(int prg) {
    Label35G<Ch>(prg, PrgAt<Ch>(prg).StartLine, PrgAt<Ch>(prg).EndLine);
}

template <class Ch> int CkMozi(View<Ch> text) {
    int pos = 0;
    return DetNonLabelMoziPos(text, pos) ? pos : 0;
}

template <class Ch> int CkSmallMozi(View<Ch> text) {
    for (std::size_t i = 0; i < text.size(); i += CharLength(text, i))
        if (IsLower(text[i])) return static_cast<int>(i) + 1;
    return 0;
}

template <class Ch> bool DetNonLabelMoziPos(View<Ch> text, int& pos) {
    const auto bad = std::find_if_not(text.begin(), text.end(), [](Ch c) { return IsLabelChar(c); });
    if (bad == text.end()) return false;
    pos = static_cast<int>(bad - text.begin());
    return true;
}

TOLVANE_BOTH_KINDS(FindLabels)
TOLVANE_BOTH_KINDS(CkPrgName)
TOLVANE_BOTH_KINDS(Label35G)
TOLVANE_BOTH_KINDS(CkMozi)
TOLVANE_BOTH_KINDS(CkSmallMozi)
TOLVANE_BOTH_KINDS(DetNonLabelMoziPos)

} // namespace tolvane
