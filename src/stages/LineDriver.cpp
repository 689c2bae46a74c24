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

template <class Ch> int CkCommasIfAsked(int prg) {
    return modeFlags->Pipe->commaPass ? CkCommas<Ch>(prg) : 0;
}

template <class Ch> int SetMryInAtDsAndDc(int prg) {
    SetMryInAtDS<Ch>(prg);
    SetMryInAtDC<Ch>(prg);
    return 0;
}

// The passes of a program. Each reads what those above it have written and may rely on their checks. The results say
// no more than the count of Errors does.
template <class Ch>
constexpr int (*Passes[])(int prg) = {
    FindLabels<Ch>,
    SplitFields<Ch>,
    CkOpStr<Ch>,
    SearchApostForNonCharConstOP<Ch>,
    edit30c<Ch>,
    edit50<Ch>,
    CkLiteral15<Ch>,
    CkStrConstLiteral<Ch>,
    TrimZenOprndComOfFile<Ch>,
    TrimOprndCom<Ch>,
    CopyOprndComStrToChH<Ch>,
    operand20m15<Ch>,
    ExtractAllOprnds<Ch>,
    CkCommasIfAsked<Ch>,
    OpCk<Ch>,
    SetMryInAtDsAndDc<Ch>,
    AdrCk53<Ch>,
};

} // namespace

template <class Ch> int AnalyseLines() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        for (const auto pass : Passes<Ch>) {
            pass(prg);
            if (ErrorSum() > 0) return -1;
        }
    return 0;
}

TOLVANE_BOTH_KINDS(AnalyseLines)

} // namespace tolvane
