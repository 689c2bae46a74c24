#pragma once
// Placing the programs one behind the other, resolving names, the size check, writing the image.

#include "assembler/records/Records.h"

namespace tolvane {

// The address walk over one program: addresses of its lines, address operands, literals behind the lines, and the
// start of the next program. 0, or -1 for a line that no branch fits.
template <class Ch> int AdrCk53(int prg);
// Whether the whole file fits below the stack area. 0, or -1 or -2 with an Error.
template <class Ch> int CkMaxMrySize();
// The link: second walk, size check, image. `game` receives the sums of the counters. 0, or a negative value.
template <class Ch> int Link31(TMsgBase& game);

} // namespace tolvane
