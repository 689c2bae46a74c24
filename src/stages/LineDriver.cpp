#include "stages/LineDriver.h"

#include "lines/Fields.h"
#include "lines/Labels.h"
#include "lines/Normalising.h"
#include "lines/Opcodes.h"
#include "lines/ZenKaku.h"
#include "linker/Linker.h"
#include "operands/Dc.h"
#include "operands/Ds.h"
#include "operands/Extraction.h"
#include "operands/Handlers.h"
#include "operands/Literals.h"

namespace tolvane {

namespace {

template <class Ch> void CkCommasIfAsked(int prg) {
    if (modeFlags->Pipe->commaPass) CkCommas<Ch>(prg);
}

template <class Ch> void SetMryInAtDsAndDc(int prg) {
    SetMryInAtDS<Ch>(prg);
    SetMryInAtDC<Ch>(prg);
}

// A pass whose result stops the array driver; here the count of Errors alone stops.
template <auto pass> void Shared(int prg) {
    pass(prg);
}

// The passes of a program. Each reads what those above it have written and may rely on their checks.
template <class Ch>
constexpr void (*Passes[])(int prg) = {
    FindLabels<Ch>,
    SplitFields<Ch>,
    CkOpStr<Ch>,
    Shared<SearchApostForNonCharConstOP<Ch>>,
    Shared<edit30c<Ch>>,
    Shared<edit50<Ch>>,
    Shared<CkLiteral15<Ch>>,
    CkStrConstLiteral<Ch>,
    TrimZenOprndComOfFile<Ch>,
    TrimOprndCom<Ch>,
    CopyOprndComStrToChH<Ch>,
    operand20m15<Ch>,
    Shared<ExtractAllOprnds<Ch>>,
    CkCommasIfAsked<Ch>,
    Shared<OpCk<Ch>>,
    SetMryInAtDsAndDc<Ch>,
    AdrCk53<Ch>,
};

} // namespace

template <class Ch> void AnalyseLines() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        for (const auto pass : Passes<Ch>) {
            pass(prg);
            if (ErrorSum() > 0) return;
        }
}

TOLVANE_BOTH_KINDS(AnalyseLines)

} // namespace tolvane
