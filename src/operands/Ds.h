#pragma once
// DS: words with the value 0. They are held as their count, word_kazu, alone.

#include "records/Records.h"

namespace tolvane {

// Checks the operand. False with an Error.
template <class Ch> bool OprndAtDS(int line);
// Reads the count. False with an Error.
template <class Ch> bool SetWordKazuAtDS(int line);
// Sets the words of all DS lines of a program.
template <class Ch> void SetMryInAtDS(int prg);

} // namespace tolvane
