#pragma once
// The dump of registers, memory and stack as a text file.

#include "machine/Tcomet2.h"

#include <string>

namespace tolvane {

// Writes the dump in the pipeline's form to a file of the current directory. 0, or 1 with a message if it does not open.
int DspRegMry(const Tcomet2& machine, const std::string& fileName);

} // namespace tolvane
