#pragma once
// The dump of registers, memory and stack as a text file.

#include "machine/Tcomet2.h"
#include "platform/Clocks.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane {

// The dumps behind an assembly and behind a run.
inline constexpr const char* AssembledDumpName = "aaAssembledRegMry.txt";
inline constexpr const char* ResultantDumpName = "aaResultantRegMry.txt";

// Writes the dump, which tells `fileName` in its head, in the pipeline's form and the user's code to a file, which is
// replaced when the new one is whole. The system's message if it cannot be written, else nothing.
std::optional<std::string> WriteDumpFile(const Tcomet2& machine, const std::string& path, const std::string& fileName);
// The same in the current directory. 0, or 1 with a message.
int DspRegMry(const Tcomet2& machine, const std::string& fileName);
// Gives the text of the file, UTF-8, to `take` in pieces of some whole rows, about 64 KB; all of it in one text.
using DumpPiece = std::function<void(std::string_view)>;
void WriteDump(const Tcomet2& machine, const std::string& fileName, const DumpPiece& take);
std::string DumpText(const Tcomet2& machine, const std::string& fileName);
// The date of a dump in the language in force, as UTF-8. The English form ends its line.
std::string DumpDate(const platform::LocalTime& now);

} // namespace tolvane
