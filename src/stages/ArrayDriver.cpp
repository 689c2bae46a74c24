#include "lines/ArrayLines.h"
#include "lines/Boundaries.h"
#include "lines/Fields.h"
#include "lines/Labels.h"
#include "lines/Normalising.h"
#include "lines/ZenKaku.h"
#include "linker/Linker.h"
#include "operands/ArrayDcDs.h"
#include "operands/Extraction.h"
#include "operands/Handlers.h"
#include "operands/Literals.h"
#include "stages/LineDriver.h"

namespace tolvane {

namespace {

struct Step {
    bool (*run)(int prg);    // false stops the driver
    bool checkAfter = false; // stop if an Error is counted
};
constexpr bool Check = true;

// A pass that refuses nothing, or whose Errors are counted.
template <auto pass> bool Sweep(int prg) {
    pass(prg);
    return true;
}

constexpr Step Steps[] = {
    {StartEnd<char>},
    {Sweep<FindLabels<char>>},
    {op30, Check},
    // the operand edits
    {SearchApostForNonCharConstOP<char>},
    {edit30c<char>},
    {edit50<char>},
    {CkLiteral15<char>},
    {Sweep<CkStrConstLiteral<char>>},
    {Sweep<TrimZenOprndComOfFile<char>>},
    {Sweep<TrimOprndCom<char>>},
    {Sweep<CopyOprndComStrToChH<char>>},
    {Sweep<operand20m15<char>>},
    {ExtractAllOprnds<char>},
    {OpCk<char>, Check},
    // the DC and DS lines
    {dcds10},
    {dcds30},
    {dcdsWordKazu40, Check},
    {Sweep<dcdsMemoryIn30>, Check},
    // addresses
    {AdrCk3},
    {CkMaxMemory},
};

bool RunSteps(int prg) {
    for (const Step& step : Steps)
        if (!step.run(prg) || (step.checkAfter && ErrorSum() > 0)) return false;
    return true;
}

} // namespace

void AnalyseArrayLines() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        if (!RunSteps(prg)) return;
    if (ErrorSum() > 0) return;
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        if (!SetMemory25(prg)) return;
}

} // namespace tolvane
