#pragma once
// Grading: a program is run with each input of a folder, and what it prints is compared with what is expected.
//
//   input-1.txt, output-1.txt, input-2.txt, ...   what IN reads and what must be printed
//   rules.txt                                     what is demanded besides, a line each, where it is there:
//     keeps LABEL        GR1 to GR7 are the same in front of each CALL of LABEL and behind it
//     looks LABEL N      at most N different words of the line of LABEL are read in a case
//     recursion N        a subroutine calls itself, at least N calls deep, in one of the cases

#include "run/Options.h"

#include <string>

namespace tolvane::run {

// Grades a source, given its name and its bytes, by the folder of the options and tells the verdicts on the standard
// output; the exit status.
int Grade(const Options& options, const std::string& told, const std::string& source);

} // namespace tolvane::run
