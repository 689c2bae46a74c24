#pragma once
// The analysis of the lines: the passes of each program in their order.

namespace tolvane {

// Runs all passes over all programs and stops at the first pass that leaves an Error behind.
template <class Ch> void AnalyseLines();
// The same in the array pipeline, whose passes stop the analysis by their results as well, and which fills the memory
// as soon as its lines are analysed.
void AnalyseArrayLines();

} // namespace tolvane
