#pragma once
// DC: words with given contents.

#include "assembler/records/Records.h"

namespace tolvane {

// Cleans chOprndCom of a DC or DS line. 0, or 1 with an Error.
template <class Ch> int OprndAtDCtoChH(int line);
// Requires an operand, cleans further, splits the constants and checks each. 0 or more, negative with an Error.
template <class Ch> int OprndAtDC(int line);
// Counts the words of a DC line. 0, or negative with an Error.
template <class Ch> int SetWordKazuAtDC(int line);
// Sets the kinds and values of all DC lines of a program. 0; errors are counted.
template <class Ch> int SetMryInAtDC(int prg);
// Walks the lines of a program for the last one that is not DC or DS; it reports nothing. 0.
template <class Ch> int DetDefLine(int prg);

} // namespace tolvane
