#pragma once
// Full-width characters, which CASL II allows only in comments and character constants: the routines that explain
// such a fault where another check has failed, and the pass that tidies operand text.

#include "records/Records.h"

namespace tolvane {

// Reports the first full-width space of a text. Its position; 0 if there is none or it stands at the front.
template <class Ch> int AnalystZenKSpace20(View<Ch> text, int line);
// Reports a full-width character. -2 with an Error, else 0, or 1 for a text with single-byte characters.
template <class Ch> int AnalystZenKMozi(View<Ch> text, int line);
template <class Ch> int AnalystZenKakuMoziStr(View<Ch> text, int line);
// Say that a START or END is glued to a full-width space. -1 (behind the word) or -2 (before it) with an Error, else 0.
template <class Ch> int DetSTARTatZenKakuSpace();
template <class Ch> int DetENDatZenKakuSpace();
// Say why a START or END that is present was not taken for an instruction. -1 with an Error, else 0.
template <class Ch> int CkSTART_LR();
template <class Ch> int CkEnd_LR();
// Tidies comments, tabs and spaces in the operand text of START, POP, DS, IN, OUT, CALL, PUSH, SVC and DC, over the
// whole file. 0.
template <class Ch> int TrimZenOprndCom();
// The same as a pass: the whole file is swept with every program. 0.
template <class Ch> int TrimZenOprndComOfFile(int prg);

} // namespace tolvane
