#include "stages/Stages.h"

#include "lines/ArrayLines.h"
#include "lines/Boundaries.h"
#include "lines/CrossChecks.h"
#include "lines/Labels.h"
#include "lines/Normalising.h"
#include "linker/Linker.h"
#include "stages/LineDriver.h"

namespace tolvane {

namespace {

// The sum of the counters after a stage. True when the cycle goes on.
bool Check(TMsgBase& game) {
    SumMsgKazu(game);
    return game.ErrorKazu == 0;
}

// The array pipeline fills the memory as soon as its lines are analysed.
int AnalyseArray(TMsgBase& game) {
    if (AnalyseArrayLines() < 0 || ErrorSum() > 0) return -1;
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        if (SetMemory25(game, prg) < 0) return -1;
    return 0;
}

template <class Ch> bool RunStagesOf(TMsgBase& game) {
    for (auto& line : b->Src<Ch>())
        line.strLine = line.strSrc;
    if ((game.Pipe->isArray ? editN() : editNWB<Ch>()) < 0 || !Check(game)) return false;
    TabsToBlanks<Ch>();
    if (StartEnd10<Ch>() < 0 || !Check(game)) return false;
    if (StartEnd20<Ch>() < 0 || !Check(game)) return false;

    const int programs = b->GetPrgKazuInFile();
    for (int i = 0; i < programs; ++i) {
        StartEnd<Ch>(i);
        StripComment<Ch>(i);
    }
    if (!Check(game)) return false;
    IsAnySrcOutsideSartEnd<Ch>();
    if (!Check(game)) return false;
    for (int i = 0; i < programs; ++i)
        CkPrgName<Ch>(i);
    if (!Check(game)) return false;
    if (CkPrgNameDouble<Ch>() < 0 || !Check(game)) return false;

    if ((game.Pipe->isArray ? AnalyseArray(game) : AnalyseLines<Ch>()) < 0 || !Check(game)) return false;
    CkLabelInUse<Ch>();
    CkPrgNameInUse<Ch>();
    return Check(game);
}

} // namespace

bool RunStages(TMsgBase& game) {
    return game.Pipe->text == TextKind::Wide ? RunStagesOf<char16_t>(game) : RunStagesOf<char>(game);
}

int RunLink(TMsgBase& game) {
    if (game.Pipe->isArray) return Link2(game);
    return game.Pipe->text == TextKind::Wide ? Link31<char16_t>(game) : Link31<char>(game);
}

} // namespace tolvane
