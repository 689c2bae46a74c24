#include "stages/LineDriver.h"

#include "lines/Labels.h"
#include "lines/LinesMsgs.h"
#include "lines/Normalising.h"
#include "lines/Opcodes.h"
#include "lines/ZenKaku.h"
#include "linker/Linker.h"
#include "operands/Dc.h"
#include "operands/Ds.h"
#include "operands/Extraction.h"
#include "operands/Handlers.h"
#include "operands/Literals.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

// The length of operand text from which on a line is called long, in every pipeline.
constexpr std::size_t LongOprndCom = 225;

template <class Ch> int CkCommasIfAsked(int prg) {
    return cs->Pipe->commaPass ? CkCommas<Ch>(prg) : 0;
}

template <class Ch> int SetMryInAtDsAndDc(int prg) {
    SetMryInAtDS<Ch>(prg);
    SetMryInAtDC<Ch>(prg);
    return 0;
}

// What is asked behind a pass.
enum After : unsigned {
    GoOn = 0,
    Check = 1,          // stop if an Error is counted
    StopIfNegative = 2, // stop at a negative result
    ReturnNegative = 4, // stop at a negative result and return it
};

struct Pass {
    int (*run)(int prg);
    unsigned after;
};

// The passes of a program. Each reads what those above it have written and may rely on their Checks.
template <class Ch>
constexpr Pass Passes[] = {
    {FindLabels<Ch>, Check},
    {SplitFields<Ch>, GoOn},
    {CkOpStr<Ch>, ReturnNegative},
    {DetDefLine<Ch>, ReturnNegative | Check},
    {SearchApostForNonCharConstOP<Ch>, Check},
    {CopyOprndComToLine<Ch>, GoOn},
    {edit30c<Ch>, StopIfNegative | Check},
    {edit50<Ch>, Check},
    {CutComment<Ch>, GoOn},
    {CkLiteral15<Ch>, StopIfNegative | Check},
    {CkStrConstLiteral<Ch>, StopIfNegative | Check},
    {TrimZenOprndComOfFile<Ch>, GoOn},
    {TrimOprndCom<Ch>, GoOn},
    {CopyOprndComStrToChH<Ch>, GoOn},
    {operand20m15<Ch>, Check},
    {ExtractAllOprnds<Ch>, Check},
    {CkCommasIfAsked<Ch>, Check},
    {OpCk<Ch>, Check},
    {SetMryInAtDsAndDc<Ch>, Check},
    {AdrCk53<Ch>, Check},
};

// Runs the passes of one program. True if the driver goes on; else `result` is what it returns.
template <class Ch> bool RunPasses(int prg, int& result) {
    for (const Pass& pass : Passes<Ch>) {
        const int returned = pass.run(prg);
        if ((pass.after & ReturnNegative) != 0 && returned < 0) {
            result = returned;
            return false;
        }
        if ((pass.after & StopIfNegative) != 0 && returned < 0) return false;
        if ((pass.after & Check) != 0 && ErrorSum() > 0) return false;
    }
    return true;
}

} // namespace

template <class Ch> int FindLabels(int prg) {
    return Label35G<Ch>(prg, PrgAt<Ch>(prg).StartLine, PrgAt<Ch>(prg).EndLine);
}

template <class Ch> int AnalyseLines() {
    int result = 0;
    const int programs = static_cast<int>(b->Prg<Ch>().size());
    for (int prg = 0; prg < programs; ++prg)
        if (!RunPasses<Ch>(prg, result)) return result;
    return 0;
}

// A line with a blank in column 1 gets an empty label.
template <class Ch> void TakeOutLabelRest(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strLine.empty()) continue;
        const std::size_t blank = FindBlank(src.strLine);
        src.strLabel = src.strLine.substr(0, blank);
        src.strRest = blank == npos ? Text<Ch>() : TrimLeftBlank(src.strLine.substr(blank));
    }
}

template <class Ch> void TakeOutOpStr(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        src.strOp = src.strRest.substr(0, FindBlank(src.strRest));
    }
}

template <class Ch> void TakeOutOprndComStr(int prg) {
    const std::size_t limit = cs->Pipe->oprndLimit == 0 ? npos : static_cast<std::size_t>(cs->Pipe->oprndLimit);
    bool told = false;
    for (int line = PrgAt<Ch>(prg).StartLine; line <= PrgAt<Ch>(prg).EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (src.strOp.empty() || src.strRest.empty()) continue;
        const std::size_t behindOp = src.strOp.size() + 1;
        src.strOprndCom = behindOp < src.strRest.size() ? TrimLeftBlank(src.strRest.substr(behindOp)) : Text<Ch>();
        if (src.strOprndCom.size() > LongOprndCom && !told) {
            cs->SayAt(Severity::Warning, line, LinesMsg.LongLine, {src.strOprndCom.size()});
            told = true;
        }
        src.chOprndCom = src.strOprndCom.substr(0, limit);
    }
}

template <class Ch> int SplitFields(int prg) {
    TakeOutLabelRest<Ch>(prg);
    TakeOutOpStr<Ch>(prg);
    TakeOutOprndComStr<Ch>(prg);
    return 0;
}

template <class Ch> int CopyOprndComToLine(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line)
        LineAt<Ch>(line).strLine = LineAt<Ch>(line).strOprndCom;
    return 0;
}

template <class Ch> int TrimOprndCom(int prg) {
    for (int line = PrgAt<Ch>(prg).StartLine; line < PrgAt<Ch>(prg).EndLine; ++line)
        LineAt<Ch>(line).strOprndCom = TrimBlank(LineAt<Ch>(line).strOprndCom);
    return 0;
}

template <class Ch> int TrimZenOprndComOfFile(int) {
    return TrimZenOprndCom<Ch>();
}

template int FindLabels<char16_t>(int);
template int FindLabels<char>(int);
template int AnalyseLines<char16_t>();
template int AnalyseLines<char>();
template void TakeOutLabelRest<char16_t>(int);
template void TakeOutLabelRest<char>(int);
template void TakeOutOpStr<char16_t>(int);
template void TakeOutOpStr<char>(int);
template void TakeOutOprndComStr<char16_t>(int);
template void TakeOutOprndComStr<char>(int);
template int SplitFields<char16_t>(int);
template int SplitFields<char>(int);
template int CopyOprndComToLine<char16_t>(int);
template int CopyOprndComToLine<char>(int);
template int TrimOprndCom<char16_t>(int);
template int TrimOprndCom<char>(int);
template int TrimZenOprndComOfFile<char16_t>(int);
template int TrimZenOprndComOfFile<char>(int);

} // namespace tolvane
