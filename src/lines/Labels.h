#pragma once
// The label field: 1 to 8 characters, the first A to Z, the others A to Z or 0 to 9, no register name.

#include "records/Records.h"

namespace tolvane {

// Checks and stores a program's name.
template <class Ch> void CkPrgName(int prg);
// Label35G over the lines of a program, END included.
template <class Ch> void FindLabels(int prg);
// Finds and checks the labels of the lines from first to last, duplicates included; errors are counted.
template <class Ch> void Label35G(int prg, int first, int last);
// Position of the first character that is not A to Z or 0 to 9; 0 if there is none or it stands at the front.
template <class Ch> int CkMozi(View<Ch> text);
// Position, counted from 1, of the first character that is a to z; 0 if there is none.
template <class Ch> int CkSmallMozi(View<Ch> text);
// Whether a character that is not A to Z or 0 to 9 occurs, position 0 included; sets its position.
template <class Ch> bool DetNonLabelMoziPos(View<Ch> text, int& pos);

} // namespace tolvane
