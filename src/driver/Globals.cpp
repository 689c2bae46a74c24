// The main objects, built before main in this order; each lives until the end of the process.

#include "driver/Settings.h"
#include "input/TMoziCode.h"
#include "machine/Tcomet2.h"
#include "messages/ModeFlags.h"
#include "messages/TMsgStore.h"
#include "records/Records.h"
#include "records/TLabelSpace.h"
#include "timing/TTimeVcl.h"

namespace tolvane {

namespace {

TBasicData basicData;
TMsgStore msgStore;
TModeFlags theModeFlags;
TMoziCode theMoziCode;
TTimeVcl theTimer;
TLStd theTools;
TPO thePO;
ToolWin theToolWin;
constinit Tcomet2 machine{Tcomet2::Later::Init};
TCorrectScode correctScode;
TLabelSpace theLabelSpace;

} // namespace

constinit TBasicData* const b = &basicData;
constinit TMsgStore* const store = &msgStore;
constinit TModeFlags* const modeFlags = &theModeFlags;
constinit TMoziCode* const moziCode = &theMoziCode;
constinit TTimeVcl* const timer = &theTimer;
constinit TLStd* const tools = &theTools;
constinit TPO* const po = &thePO;
constinit ToolWin* const toolWin = &theToolWin;
constinit Tcomet2* const comet2 = &machine;
constinit TCorrectScode* const cs = &correctScode;
constinit TLabelSpace* const labelSpace = &theLabelSpace;

} // namespace tolvane
