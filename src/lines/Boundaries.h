#pragma once
// Program boundaries: the START and END lines of a file, their pairing, and the program records. The array pipeline
// takes START and END only with a blank or the end of the line behind the word.

#include "records/Records.h"

namespace tolvane {

// A rough search for the words START and END, in this order.
template <class Ch> void StartEnd10();
// Finds START, END and RET as words, pairs them, prints the number of programs and makes their records.
template <class Ch> void StartEnd20();
// Checks the label field of a program's START and END lines and marks its lines. False if one is refused.
template <class Ch> bool StartEnd(int prg);
// Refuses text between two programs.
template <class Ch> void IsAnySrcOutsideSartEnd();

} // namespace tolvane
