#pragma once
// DC: words with given contents.

#include "records/Records.h"

namespace tolvane {

// Cleans chOprndCom of a DC or DS line. False with an Error.
template <class Ch> bool OprndAtDCtoChH(int line);
// Requires an operand, cleans further, splits the constants and checks each.
template <class Ch> void OprndAtDC(int line);
// The steps of OprndAtDC: dc45 requires an operand, cleans chOprndCom and refuses what is no list; then the text is
// split into vecDcConst; CkDC33 judges each constant up to the first that is given up. False with an Error that
// ended the step.
template <class Ch> bool dc45(int line);
template <class Ch> void TakeOutOprndsAtDC(int line);
template <class Ch> bool CkDC33(int line);
// Counts the words of a DC line. False with an Error.
template <class Ch> bool SetWordKazuAtDC(int line);
// Sets the kinds and values of all DC lines of a program.
template <class Ch> void SetMryInAtDC(int prg);

} // namespace tolvane
