#pragma once
// The assembler as a function: a fresh beginning, the source into the records, the stages, the link. Everything that
// an assembly leaves stands in the records (`b`), in the diagnostics (`store`) and in the machine (`comet2`); the next
// BeginAssembly forgets it. The steps may be repeated in one process any number of times.

#include "messages/TMsgBase.h"

namespace tolvane {

// Chooses pipeline and language (0 Japanese, else English), forgets the assembly before but for its image, and clears
// the counters of all main objects and of `game`. The readers or the caller then fill `strSrc` of the records of the
// pipeline's kind.
void BeginAssembly(TMsgBase& game, const Pipeline& pipeline, int language);
// Empties the machine, passes the source through the stages of the pipeline and sums the counters into `game`. False
// when a stage stopped the assembly.
bool RunStages(TMsgBase& game);
// The link of the pipeline, which fills the machine's memory, and the sum of the counters. False with an Error.
bool RunLink(TMsgBase& game);

} // namespace tolvane
