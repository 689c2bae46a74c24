#pragma once
// One source from its file to its dumps.

#include "run/Options.h"

#include <string>

namespace tolvane::run {

// How a file is named in diagnostics.
std::string Told(const std::string& file);
// Assembles and links the bytes of a source. What the steps say beside their diagnostics is nobody's here.
bool Assemble(const Options& options, const std::string& told, const std::string& source);
// Prints the diagnostics of the assembly, in the order of the checks; of one that has failed at least one.
void PrintRecords(const std::string& told, const std::string& source, bool assembled);
// Assembles, links and runs or grades one file; the exit status.
int RunFile(const Options& options, const std::string& file);

} // namespace tolvane::run
