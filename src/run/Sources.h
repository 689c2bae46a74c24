#pragma once
// One source from its file to its dumps.

#include "run/Options.h"

#include <string>

namespace tolvane::run {

// How a file is named in diagnostics.
std::string Told(const std::string& file);
// Assembles, links and runs one file; the exit status.
int RunFile(const Options& options, const std::string& file);

} // namespace tolvane::run
