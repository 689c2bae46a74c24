#pragma once
// Placing the programs one behind the other, resolving names, the size check, writing the image.
//
// The image of a program: its START word or words, its lines in source order, its literals in the order of the lines
// that use them. The next program follows. Every address is absolute from the moment it is assigned.

#include "records/Records.h"

namespace tolvane {

// The address walk over one program: addresses of its lines, address operands, literals behind the lines, and the
// start of the next program. It runs once at the end of the analysis, when references to what lies further down read
// no address yet, and once more in the link.
template <class Ch> void AdrCk53(int prg);
// Whether the whole file fits below the stack area; if not, with an Error.
template <class Ch> bool CkMaxMrySize();
// The link: second walk, size check, image. False with an Error.
template <class Ch> bool Link31();

// Which source line owns each word of the image, for all programs; a literal belongs to the line that uses it.
template <class Ch> void SetLineOfWord();
// Which lines of a program go to memory.
enum class Taken { Instructions, Constants, All };
// Pieces of SetMemory: the words of the lines, DC and DS being the constants; the words of the literals. `address` is
// where the next word goes.
template <class Ch> void SetLinesInMemory(int prg, Taken taken, int& address);
template <class Ch> void SetLiteralsInMemory(int prg, int& address);

// The array pipeline, whose machine is smaller.

// AdrCk53, and the words of the literals added to those of the file. False if an Error is counted.
bool AdrCk3(int prg);
// Whether a program fits, with the constants and literals of the file so far; if not, with an Error.
bool CkMaxMemory(int prg);
// Writes the words of a program, to an empty machine if it is the first program, with the sums checked again:
// instructions, then DC and DS, then literals. False with an Error.
bool SetMemory25(int prg);
// The link: second walk and image, program by program. False with an Error.
bool Link2();

} // namespace tolvane
