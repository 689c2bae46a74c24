#pragma once
// Full-width characters, which CASL II allows only in comments and character constants: the routines that explain
// such a fault where another check has failed, and the pass that tidies operand text.

#include "records/Records.h"

namespace tolvane {

// Reports a full-width space in a text.
template <class Ch> void AnalystZenKSpace20(View<Ch> text, int line);
// Reports a full-width character.
template <class Ch> void AnalystZenKMozi(View<Ch> text, int line);
template <class Ch> void AnalystZenKakuMoziStr(View<Ch> text, int line);
// Say that a START or END is glued to a full-width space.
template <class Ch> void DetSTARTatZenKakuSpace();
template <class Ch> void DetENDatZenKakuSpace();
// Say why a START or END that is present was not taken for an instruction.
template <class Ch> void CkSTART_LR();
template <class Ch> void CkEnd_LR();
// Tidies comments, tabs and spaces in the operand text of START, POP, DS, IN, OUT, CALL, PUSH, SVC and DC, over the
// whole file.
template <class Ch> void TrimZenOprndCom();
// The same as a pass: the whole file is swept with every program.
template <class Ch> void TrimZenOprndComOfFile(int prg);

} // namespace tolvane
