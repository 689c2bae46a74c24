#pragma once
// The trace: a line on the standard error for each instruction that was executed, with what it has changed.
//
//   #0006 LOOP     ADDA GR1, GR2            GR1=#0003 Fzero=0

#include "image/LinkedImage.h"
#include "machine/Tcomet2.h"

#include <string>

namespace tolvane::run {

// " GR1=#0003 Fzero=0": the registers and flags that are not what they were.
std::string ChangedRegisters(const Registers& before);
// Appends " [#0012]=#0003".
void AddCell(std::string& row, int address, int cell);
void TraceStep(const image::LinkedImage& image, const Step& step);

} // namespace tolvane::run
