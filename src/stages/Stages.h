#pragma once
// The stages of the assembler in their order, from the normalised lines to the cross checks of names.

#include "messages/TMsgBase.h"

namespace tolvane {

// Passes the source through the stages of the game's pipeline and sums the counters into `game` after each. False
// when a stage stopped the cycle.
bool RunStages(TMsgBase& game);
// The link of the pipeline's kind of text. 0, or a negative value.
int RunLink(TMsgBase& game);

} // namespace tolvane
