#pragma once
// DC: words with given contents.

#include "records/Records.h"

namespace tolvane {

// Cleans chOprndCom of a DC or DS line. 0, or 1 with an Error.
template <class Ch> int OprndAtDCtoChH(int line);
// Requires an operand, cleans further, splits the constants and checks each. 0, or -1 with an Error.
template <class Ch> int OprndAtDC(int line);
// The steps of OprndAtDC: dc45 requires an operand, cleans chOprndCom and refuses what is no list; then the text is
// split into vecDcConst; CkDC33 judges each constant up to the first that is given up. 0, or -1 with an Error that
// ended the step.
template <class Ch> int dc45(int line);
template <class Ch> int TakeOutOprndsAtDC(int line);
template <class Ch> int CkDC33(int line);
// Counts the words of a DC line. 0, or -1 with an Error.
template <class Ch> int SetWordKazuAtDC(int line);
// Sets the kinds and values of all DC lines of a program.
template <class Ch> void SetMryInAtDC(int prg);

} // namespace tolvane
