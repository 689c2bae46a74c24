#pragma once
// The dumps of a source below the folder of --dump: its own folders are kept, and no two sources share a name.
//
//   anna/ex1.txt -> DIR/anna/ex1.assembled.txt, DIR/anna/ex1.result.txt

#include "run/Options.h"

#include <string>

namespace tolvane::run {

enum class Dumped { Assembled, Result };

// Writes a dump of the machine as it stands into the folder that the options name; the exit status. A source of the
// call is not written over.
int WriteDump(const Options& options, const std::string& source, Dumped dumped);
// Removes both dumps of the source that earlier calls have left, also under the name that it had then.
void RemoveDumps(const Options& options, const std::string& source);

} // namespace tolvane::run
