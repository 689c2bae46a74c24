#pragma once
// The analysis of the lines: the passes of each program in their order.

namespace tolvane {

// Runs all passes over all programs and stops at the first pass that leaves an Error behind. 0, or -1 when one did.
template <class Ch> int AnalyseLines();
// The same in the array pipeline, whose passes stop the analysis by their results as well, and which fills the memory
// as soon as its lines are analysed.
int AnalyseArrayLines();

} // namespace tolvane
