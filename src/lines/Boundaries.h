#pragma once
// Program boundaries: the START and END lines of a file, their pairing, and the program records. The array pipeline
// takes START and END only with a blank or the end of the line behind the word.

#include "records/Records.h"

namespace tolvane {

// A rough search for the words START and END. 0; -1 no START, -3 no END, -4 START behind END.
template <class Ch> int StartEnd10();
// Finds START, END and RET as words, pairs them, prints the number of programs and makes their records. 0, or a
// negative value after an Error.
template <class Ch> int StartEnd20();
// Checks the label field of a program's START and END lines and marks its lines. 0, or 1.
template <class Ch> int StartEnd(int prg);
// Refuses text between two programs. 0, or -1 with an Error.
template <class Ch> int IsAnySrcOutsideSartEnd();

} // namespace tolvane
