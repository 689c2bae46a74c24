#include "lines/Boundaries.h"

#include "lines/LinesMsgs.h"
#include "lines/ZenKaku.h"
#include "records/Lines.h"

#include <algorithm>

namespace tolvane {

namespace {

// The lines that hold a word, in file order.
template <class Ch> std::vector<int> LinesWith(std::string_view word, WordRule rule) {
    std::vector<int> lines;
    for (int line = 0; line < LineKazu<Ch>(); ++line)
        if (HoldsWord(LineAt<Ch>(line).strLine, word, rule)) lines.push_back(line);
    return lines;
}

// Only the array pipeline asks what stands behind START and END.
WordRule LettersRule() {
    return {false, cs->Pipe->isArray};
}
WordRule BoundaryRule() {
    return {true, cs->Pipe->isArray};
}
constexpr WordRule RetRule = {true, false};

// Fills the table of START or END lines. -1 stands behind the last entry; entries beyond the table are not kept.
void FillTable(std::array<std::int32_t, MaxPrgKazu + 1>& table, const std::vector<int>& lines) {
    const std::size_t kept = std::min(lines.size(), table.size());
    std::copy_n(lines.begin(), kept, table.begin());
    if (kept < table.size()) table[kept] = -1;
}

template <class Ch> bool BeginsWithBlank(int line) {
    return IsBlank(At(LineAt<Ch>(line).strLine, 0));
}

// START and END must pair up, in number and in order.
template <class Ch> int CkPairs(const std::vector<int>& starts, const std::vector<int>& ends) {
    if (starts.size() > ends.size()) {
        po->Error(NoLine, LinesMsg.MoreStarts, {Utf8Arg{po->LastAssembledSrcFilePath}, starts.size(), ends.size()});
        CkEnd_LR<Ch>();
        return -4;
    }
    if (starts.size() < ends.size()) {
        po->Error(NoLine, LinesMsg.MoreEnds, {Utf8Arg{po->LastAssembledSrcFilePath}, starts.size(), ends.size()});
        return -5;
    }
    for (std::size_t k = 0; k < starts.size(); ++k)
        if (starts[k] >= ends[k]) {
            po->Error(ends[k], LinesMsg.EndBeforeItsStart);
            return -6;
        }
    for (std::size_t k = 0; k + 1 < starts.size(); ++k)
        if (starts[k + 1] < ends[k]) {
            po->Error(ends[k], LinesMsg.NextStartBeforeEnd);
            return -7;
        }
    return 0;
}

// Warns of the first program that holds no RET.
template <class Ch> void CkRet(const std::vector<int>& starts, const std::vector<int>& ends) {
    for (std::size_t k = 0; k < starts.size(); ++k) {
        bool found = false;
        for (int line = starts[k]; line <= ends[k] && !found; ++line)
            found = HoldsWord(LineAt<Ch>(line).strLine, "RET", RetRule);
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

template <class Ch> int StartEnd10() {
    po->StartLine = 0;
    po->EndLine = 330;
    const std::vector<int> starts = LinesWith<Ch>("START", LettersRule());
    if (starts.empty()) {
        po->Error(NoLine, LinesMsg.NoStartLetters);
        DetSTARTatZenKakuSpace<Ch>();
        CkSTART_LR<Ch>();
        return -1;
    }
    po->StartLine = starts.back();

    const std::vector<int> ends = LinesWith<Ch>("END", LettersRule());
    if (ends.empty()) {
        po->Error(NoLine, LinesMsg.NoEndLetters);
        DetENDatZenKakuSpace<Ch>();
        CkEnd_LR<Ch>();
        return -3;
    }
    po->EndLine = ends.back();

    if (po->StartLine <= po->EndLine) return 0;
    po->Error(po->StartLine, LinesMsg.StartBehindEnd);
    return -4;
}

template <class Ch> int StartEnd20() {
    const std::vector<int> starts = LinesWith<Ch>("START", BoundaryRule());
    FillTable(b->StartLines, starts);
    if (starts.empty()) {
        po->Error(NoLine, LinesMsg.NoStartWord);
        return -1;
    }
    po->StartLine = starts.back();
    if (BeginsWithBlank<Ch>(po->StartLine)) po->Error(po->StartLine, LinesMsg.LastStartWithoutLabel);

    const std::vector<int> ends = LinesWith<Ch>("END", BoundaryRule());
    FillTable(b->EndLines, ends);
    if (ends.empty()) {
        po->Error(NoLine, LinesMsg.NoEndWord);
        CkEnd_LR<Ch>();
        return -3;
    }
    po->EndLine = ends.back();
    if (!BeginsWithBlank<Ch>(po->EndLine)) po->Error(po->EndLine, LinesMsg.LastEndWithLabel);

    const bool tooMany = starts.size() > MaxPrgKazu;
    if (tooMany) po->Error(NoLine, LinesMsg.TooManyStarts);
    if (ends.size() > MaxPrgKazu) po->Error(NoLine, LinesMsg.TooManyEnds);
    if (const int fault = CkPairs<Ch>(starts, ends); fault != 0) return fault;
    if (tooMany) return -po->ErrorKazu;

    const int kazu = static_cast<int>(starts.size());
    po->PrgKazu = kazu;
    b->SetPrgKazuInFile(kazu);
    po->Say(kazu == 1 ? LinesMsg.OnePrg : LinesMsg.ManyPrgs, {kazu});
    CkRet<Ch>(starts, ends);
    MakePrgs<Ch>(starts, ends);
    return po->ErrorKazu < 1 ? 0 : -po->ErrorKazu;
}

template <class Ch> int StartEnd(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    const Text<Ch>& start = LineAt<Ch>(program.StartLine).strSrc;
    if (start.empty()) return 1;
    if (IsBlank(start.front())) {
        cs->Error(program.StartLine, LinesMsg.StartWithoutLabel);
        return 1;
    }
    const Text<Ch>& end = LineAt<Ch>(program.EndLine).strSrc;
    if (end.empty()) return 1;
    if (!IsBlank(end.front())) {
        cs->Error(program.EndLine, LinesMsg.EndWithLabel, {end});
        return 1;
    }
    for (int line = program.StartLine; line < program.EndLine; ++line)
        LineAt<Ch>(line).PrgNr = prg;
    return 0;
}

template <class Ch> int IsAnySrcOutsideSartEnd() {
    for (int prg = 0; prg + 1 < b->GetPrgKazuInFile(); ++prg)
        for (int line = PrgAt<Ch>(prg).EndLine + 1; line < PrgAt<Ch>(prg + 1).StartLine; ++line) {
            const Text<Ch> text = TrimBlank(LineAt<Ch>(line).strLine);
            if (text.empty()) continue;
            const bool isZenSpace = text == ZenSpace<Ch>();
            cs->Error(line, isZenSpace ? LinesMsg.ZenSpaceBetweenPrgs : LinesMsg.SrcBetweenPrgs, {text});
            return -1;
        }
    return 0;
}

template int StartEnd10<char16_t>();
template int StartEnd10<char>();
template int StartEnd20<char16_t>();
template int StartEnd20<char>();
template int StartEnd<char16_t>(int);
template int StartEnd<char>(int);
template int IsAnySrcOutsideSartEnd<char16_t>();
template int IsAnySrcOutsideSartEnd<char>();

} // namespace tolvane
