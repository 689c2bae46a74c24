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
    int (*run)(int prg);     // a result other than 0 stops the driver
    bool checkAfter = false; // stop if an Error is counted
};
constexpr bool Check = true;

constexpr Step Steps[] = {
    {StartEnd<char>},
    {FindLabels<char>},
    {op30, Check},
    // the operand edits
    {SearchApostForNonCharConstOP<char>},
    {edit30c<char>},
    {edit50<char>},
    {CkLiteral15<char>},
    {CkStrConstLiteral<char>},
    {TrimZenOprndComOfFile<char>},
    {TrimOprndCom<char>},
    {CopyOprndComStrToChH<char>},
    {operand20m15<char>},
    {ExtractAllOprnds<char>},
    {OpCk<char>, Check},
    // the DC and DS lines
    {dcds10},
    {dcds30},
    {dcdsWordKazu40, Check},
    {dcdsMemoryIn30, Check},
    // addresses
    {AdrCk3},
    {CkMaxMemory},
};

bool RunSteps(int prg) {
    for (const Step& step : Steps)
        if (step.run(prg) != 0 || (step.checkAfter && ErrorSum() > 0)) return false;
    return true;
}

} // namespace

void AnalyseArrayLines() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        if (!RunSteps(prg)) return;
    if (ErrorSum() > 0) return;
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        if (SetMemory25(prg) < 0) return;
}

} // namespace tolvane
