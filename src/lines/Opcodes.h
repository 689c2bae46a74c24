#pragma once
// Opcode recognition.

#include "records/Records.h"

namespace tolvane {

// Whether the word is one of the 36 words of CASL II.
template <class Ch> bool IsCaslWord(const Text<Ch>& word);
template <class Ch> bool IsDcOrDs(const Text<Ch>& op) {
    return Is(op, "DC") || Is(op, "DS");
}
// Every opcode word of a program must be known; the first that is not is explained. 0, or minus ErrorKazu of cs.
template <class Ch> int CkOpStr(int prg);
// The Error for an unknown word, and behind it whatever its likely causes have to say. The array pipeline leaves out
// the bare row of the full-width space.
template <class Ch> void ExplainUnknownOp(int line);
// Reports a comma behind the opcode word. 1 with an Error, else 0.
template <class Ch> int AnalystOP(int line);

} // namespace tolvane
