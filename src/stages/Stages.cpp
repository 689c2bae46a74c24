#include "stages/Stages.h"

#include "lines/ArrayLines.h"
#include "lines/Boundaries.h"
#include "lines/CrossChecks.h"
#include "lines/Labels.h"
#include "lines/Normalising.h"
#include "linker/Linker.h"
#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"
#include "records/Records.h"
#include "records/TLabelSpace.h"
#include "stages/LineDriver.h"

namespace tolvane {

namespace {

template <class Ch> void Normalise() {
    modeFlags->Pipe->normalising == Normalising::editN ? editN() : editNWB<Ch>();
}

template <class Ch> void SettlePrograms() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg) {
        StartEnd<Ch>(prg);
        StripComment<Ch>(prg);
    }
}

template <class Ch> void CkPrgNames() {
    for (int prg = 0; prg < b->GetPrgKazuInFile(); ++prg)
        CkPrgName<Ch>(prg);
}

template <class Ch> void Analyse() {
    modeFlags->Pipe->analysis == Analysis::Tables ? AnalyseArrayLines() : AnalyseLines<Ch>();
}

// The stages of an assembly. An Error stops it.
template <class Ch>
constexpr void (*Stages[])() = {
    Normalise<Ch>,      TabsToBlanks<Ch>,           StartEnd10<Ch>,     StartEnd20<Ch>,
    SettlePrograms<Ch>, IsAnySrcOutsideSartEnd<Ch>, CkPrgNames<Ch>,     CkPrgNameDouble<Ch>,
    Analyse<Ch>,        CkLabelInUse<Ch>,           CkPrgNameInUse<Ch>,
};

template <class Ch> bool RunStagesOf(TMsgBase& game) {
    for (const auto stage : Stages<Ch>) {
        stage();
        SumMsgKazu(game);
        if (game.ErrorKazu > 0) return false;
    }
    return true;
}

} // namespace

void BeginAssembly(TMsgBase& game, const Pipeline& pipeline, int language) {
    modeFlags->Pipe = &pipeline;
    modeFlags->Lang = language == 0 ? 0 : 1;
    b->Reset();
    cs->Reset();
    labelSpace->Free();
    store->ClearMsgStore();
    for (TMsgBase* object : {&game, static_cast<TMsgBase*>(b), static_cast<TMsgBase*>(cs), static_cast<TMsgBase*>(po)})
        object->ClearCounters();
}

bool RunStages(TMsgBase& game) {
    comet2->InitComet2();
    return modeFlags->Pipe->text == TextKind::Wide ? RunStagesOf<char16_t>(game) : RunStagesOf<char>(game);
}

bool RunLink(TMsgBase& game) {
    const Pipeline& pipeline = *modeFlags->Pipe;
    const bool good = pipeline.analysis == Analysis::Tables ? Link2()
                      : pipeline.text == TextKind::Wide     ? Link31<char16_t>()
                                                            : Link31<char>();
    SumMsgKazu(game);
    if (!good) return false;
    if (pipeline.dumpsLabelSpace) {
        cs->CountLabels();
        labelSpace->CopyLabel();
    }
    return true;
}

} // namespace tolvane
