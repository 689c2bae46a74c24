#pragma once
// The trace: a line on the standard error for each instruction that was executed, with what it has changed.
//
//   #0006 LOOP     ADDA GR1, GR2            GR1=#0003 Fzero=0

#include "image/LinkedImage.h"
#include "machine/Tcomet2.h"

namespace tolvane::run {

void TraceStep(const image::LinkedImage& image, const Step& step);

} // namespace tolvane::run
