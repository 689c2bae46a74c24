#pragma once
// The run of a linked program: IN and OUT, the limit, the trace, and what is said about its end.

#include "image/LinkedImage.h"
#include "run/Options.h"

#include <string>

namespace tolvane::run {

// Runs the program in the machine, whose image it is; `file` is its source as it is told. Without standard input IN has
// no input, unless the options have some. The exit status.
int RunProgram(const Options& options, const image::LinkedImage& image, const std::string& file, bool standardInput);

} // namespace tolvane::run
