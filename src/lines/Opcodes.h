#pragma once
// Opcodes: what is said of a word that is none.

#include "records/Records.h"

namespace tolvane {

// Every opcode word of a program must be known; the first that is not is explained.
template <class Ch> void CkOpStr(int prg);
// The Error for an unknown word, and behind it whatever its likely causes have to say. The array pipeline leaves out
// the bare row of the full-width space.
template <class Ch> void ExplainUnknownOp(int line);

} // namespace tolvane
