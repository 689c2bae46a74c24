#include "lines/Boundaries.h"

#include "lines/LinesMsgs.h"
#include "lines/ZenKaku.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// The lines that hold a word, in file order; of the given ones, those that hold it under a stricter rule.
template <class Ch> std::vector<int> LinesWith(std::string_view word, WordRule rule) {
    std::vector<int> lines;
    for (int line = 0; line < LineKazu<Ch>(); ++line)
        if (HoldsWord<Ch>(LineAt<Ch>(line).strLine, word, rule)) lines.push_back(line);
    return lines;
}
template <class Ch> std::vector<int> OfThoseWith(std::vector<int> lines, std::string_view word, WordRule rule) {
    std::erase_if(lines, [&](int line) { return !HoldsWord<Ch>(LineAt<Ch>(line).strLine, word, rule); });
    return lines;
}

WordRule LettersRule() {
    return {false, modeFlags->Pipe->boundaryEndsInBlank};
}
WordRule BoundaryRule() {
    return {true, modeFlags->Pipe->boundaryEndsInBlank};
}
constexpr WordRule RetRule = {true, false};

template <class Ch> bool BeginsWithBlank(int line) {
    return IsBlank(At<Ch>(LineAt<Ch>(line).strLine, 0));
}

// START and END must pair up, in number and in order.
template <class Ch> bool CkPairs(const std::vector<int>& starts, const std::vector<int>& ends) {
    if (starts.size() > ends.size()) {
        po->Error(NoLine, LinesMsg.MoreStarts, {Utf8Arg{po->LastAssembledSrcFilePath}, starts.size(), ends.size()});
        CkEnd_LR<Ch>();
        return false;
    }
    if (starts.size() < ends.size()) {
        po->Error(NoLine, LinesMsg.MoreEnds, {Utf8Arg{po->LastAssembledSrcFilePath}, starts.size(), ends.size()});
        return false;
    }
    for (std::size_t k = 0; k < starts.size(); ++k)
        if (starts[k] >= ends[k]) {
            po->Error(ends[k], LinesMsg.EndBeforeItsStart);
            return false;
        }
    for (std::size_t k = 0; k + 1 < starts.size(); ++k)
        if (starts[k + 1] < ends[k]) {
            po->Error(ends[k], LinesMsg.NextStartBeforeEnd);
            return false;
        }
    return true;
}

// Warns of the first program that holds no RET.
template <class Ch> void CkRet(const std::vector<int>& starts, const std::vector<int>& ends) {
    for (std::size_t k = 0; k < starts.size(); ++k) {
        bool found = false;
        for (int line = starts[k]; line <= ends[k] && !found; ++line)
            found = HoldsWord<Ch>(LineAt<Ch>(line).strLine, "RET", RetRule);
        if (found) continue;
        po->Warning(ends[k], LinesMsg.NoRet, {k + 1});
        return;
    }
}

template <class Ch> void MakePrgs(const std::vector<int>& starts, const std::vector<int>& ends) {
    auto& programs = b->Prg<Ch>();
    programs.clear();
    for (std::size_t k = 0; k < starts.size(); ++k) {
        PrgData<Ch> program;
        program.StartLine = starts[k];
        program.EndLine = ends[k];
        programs.push_back(std::move(program));
    }
}

} // namespace

template <class Ch> void StartEnd10() {
    const std::vector<int>& starts = b->StartLines = LinesWith<Ch>("START", LettersRule());
    if (starts.empty()) {
        po->Error(NoLine, LinesMsg.NoStartLetters);
        DetSTARTatZenKakuSpace<Ch>();
        CkSTART_LR<Ch>();
        return;
    }

    const std::vector<int>& ends = b->EndLines = LinesWith<Ch>("END", LettersRule());
    if (ends.empty()) {
        po->Error(NoLine, LinesMsg.NoEndLetters);
        DetENDatZenKakuSpace<Ch>();
        CkEnd_LR<Ch>();
        return;
    }
    if (starts.back() <= ends.back()) return;
    po->Error(starts.back(), LinesMsg.StartBehindEnd);
}

template <class Ch> void StartEnd20() {
    const std::vector<int> starts = OfThoseWith<Ch>(b->StartLines, "START", BoundaryRule());
    if (starts.empty()) {
        po->Error(NoLine, LinesMsg.NoStartWord);
        return;
    }
    if (BeginsWithBlank<Ch>(starts.back())) po->Error(starts.back(), LinesMsg.LastStartWithoutLabel);

    const std::vector<int> ends = OfThoseWith<Ch>(b->EndLines, "END", BoundaryRule());
    if (ends.empty()) {
        po->Error(NoLine, LinesMsg.NoEndWord);
        CkEnd_LR<Ch>();
        return;
    }
    if (!BeginsWithBlank<Ch>(ends.back())) po->Error(ends.back(), LinesMsg.LastEndWithLabel);

    const bool tooMany = starts.size() > MaxPrgKazu;
    if (tooMany) po->Error(NoLine, LinesMsg.TooManyStarts);
    if (ends.size() > MaxPrgKazu) po->Error(NoLine, LinesMsg.TooManyEnds);
    if (!CkPairs<Ch>(starts, ends)) return;
    if (tooMany) return;

    const int kazu = static_cast<int>(starts.size());
    b->SetPrgKazuInFile(kazu);
    Say(kazu == 1 ? LinesMsg.OnePrg : LinesMsg.ManyPrgs, {kazu});
    CkRet<Ch>(starts, ends);
    MakePrgs<Ch>(starts, ends);
}

template <class Ch> bool StartEnd(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    const View<Ch> start = LineAt<Ch>(program.StartLine).strSrc;
    if (start.empty()) return false;
    if (IsBlank(start.front())) {
        cs->Error(program.StartLine, LinesMsg.StartWithoutLabel);
        return false;
    }
    const View<Ch> end = LineAt<Ch>(program.EndLine).strSrc;
    if (end.empty()) return false;
    if (!IsBlank(end.front())) {
        cs->Error(program.EndLine, LinesMsg.EndWithLabel, {end});
        return false;
    }
    for (int line = program.StartLine; line < program.EndLine; ++line)
        LineAt<Ch>(line).PrgNr = static_cast<std::int8_t>(prg);
    return true;
}

template <class Ch> void IsAnySrcOutsideSartEnd() {
    for (int prg = 0; prg + 1 < b->GetPrgKazuInFile(); ++prg)
        for (int line = PrgAt<Ch>(prg).EndLine + 1; line < PrgAt<Ch>(prg + 1).StartLine; ++line) {
            const View<Ch> text = TrimBlank<Ch>(LineAt<Ch>(line).strLine);
            if (text.empty()) continue;
            const bool isZenSpace = text == ZenSpace<Ch>();
            cs->Error(line, isZenSpace ? LinesMsg.ZenSpaceBetweenPrgs : LinesMsg.SrcBetweenPrgs, {text});
            return;
        }
}

TOLVANE_BOTH_KINDS(StartEnd10)
TOLVANE_BOTH_KINDS(StartEnd20)
TOLVANE_BOTH_KINDS(StartEnd)
TOLVANE_BOTH_KINDS(IsAnySrcOutsideSartEnd)

} // namespace tolvane
