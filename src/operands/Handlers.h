#pragma once
// The machine-instruction handlers: the pass that turns operands into first words and word counts.

#include "records/Records.h"

namespace tolvane {

// Runs the handler of each line of a program, END included. 0, or -2 if an opcode has no handler.
template <class Ch> int OpCk(int prg);

} // namespace tolvane
