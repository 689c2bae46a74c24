#pragma once
// The machine-instruction handlers: the pass that turns operands into first words and word counts.

#include "records/Records.h"

namespace tolvane {

// Runs the handler of each line of a program, END included. False if an opcode has no handler.
template <class Ch> bool OpCk(int prg);

} // namespace tolvane
