#pragma once
// The dump of registers, memory and stack as a text file.

#include "machine/Tcomet2.h"
#include "platform/Clocks.h"

#include <string>

namespace tolvane {

// The dumps behind an assembly and behind a run.
inline constexpr const char* AssembledDumpName = "aaAssembledRegMry.txt";
inline constexpr const char* ResultantDumpName = "aaResultantRegMry.txt";

// Writes the dump in the pipeline's form to a file of the current directory. 0, or 1 with a message if it does not
// open.
int DspRegMry(const Tcomet2& machine, const std::string& fileName);
// The bytes of the file: Shift_JIS text.
std::string DumpText(const Tcomet2& machine, const std::string& fileName);
// The date of a dump in the language in force, as UTF-8. The English form ends its line.
std::string DumpDate(const platform::LocalTime& now);

} // namespace tolvane
