#pragma once
// Cutting the operand text of a line into operands, the comma helpers, and the scanners of string constants.

#include "records/Records.h"

namespace tolvane {

// Operand n of a line.
template <class Ch> SlimView<Ch>& Oprnd(int line, int n) {
    return b->Src<Ch>()[static_cast<std::size_t>(line)].Oprnd(n);
}

// Splits the comment off the lines whose opcode takes no character constant. False with an Error for an unknown
// opcode.
template <class Ch> bool SearchApostForNonCharConstOP(int prg);
// Renews chOprndCom from strOprndCom, cut to the pipeline's limit.
template <class Ch> void CopyOprndComStrToChH(int prg);
// Cuts chOprndCom of every line but DC into chOprnd; errors are counted.
template <class Ch> void operand20m15(int prg);
// Presets word_kazu of each line by opcode, and cleans the text of DC lines. False for an unknown opcode.
template <class Ch> bool ExtractAllOprnds(int prg);
// The pass of the pipelines with commaPass: a comma with nothing behind it, or a missing one.
template <class Ch> void CkCommas(int prg);

template <class Ch> bool EndsInComma(View<Ch> operand);
// The operand without the comma that ended it.
template <class Ch> View<Ch> WithoutComma(View<Ch> operand);
// Sets CommaAriFlag from the last character of operand n.
template <class Ch> void GetCommaAriFlagForNextOprnd(int line, int n);
// True if CommaAriFlag is 1. `place` names the caller, for the self-check of the flag.
bool CommaNextOprnd3(const char* place);

// Moves pos from the opening apostrophe of a string constant to the closing one, or to the end of the text.
template <class Ch> void DetStrConstGL10(std::size_t& pos, View<Ch> text);
// Judges what DetStrConstGL10 left. Whether the constant is closed; if not, with an Error.
template <class Ch> bool IsStrConstClosedGL10(int line, std::size_t pos, View<Ch> text);

} // namespace tolvane
