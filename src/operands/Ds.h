#pragma once
// DS: words with the value 0. They are held as their count, word_kazu, alone.

#include "records/Records.h"

namespace tolvane {

// Checks the operand. 0, or the negated error count.
template <class Ch> int OprndAtDS(int line);
// Reads the count. 0, or negative with an Error.
template <class Ch> int SetWordKazuAtDS(int line);
// Sets the words of all DS lines of a program.
template <class Ch> void SetMryInAtDS(int prg);

} // namespace tolvane
