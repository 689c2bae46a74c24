#pragma once
// Placing the programs one behind the other, resolving names, the size check, writing the image.
//
// The image of a program: its START word or words, its lines in source order, its literals in the order of the lines
// that use them. The next program follows. Every address is absolute from the moment it is assigned.

#include "assembler/records/Records.h"

namespace tolvane {

// The address walk over one program: addresses of its lines, address operands, literals behind the lines, and the
// start of the next program. It runs once at the end of the analysis, when references to what lies further down read
// no address yet, and once more in the link. 0, or -1 for a line that no branch fits.
template <class Ch> int AdrCk53(int prg);
// Whether the whole file fits below the stack area. 0, or -1 or -2 with an Error.
template <class Ch> int CkMaxMrySize();
// The link: second walk, size check, image. `game` receives the sums of the counters. 0; the complement of the index
// of a program with an Error; -2 if the size is refused.
template <class Ch> int Link31(TMsgBase& game);

// Which source line owns each word of the image, for all programs; a literal belongs to the line that uses it.
template <class Ch> void SetLineOfWord();
// Writes the words of one program into the machine's memory. An unknown kind of constant counts at `game`.
template <class Ch> void SetMemory(TMsgBase& game, int prg);

} // namespace tolvane
