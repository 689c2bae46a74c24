#pragma once
// Names against each other: duplicates, labels that nothing refers to, programs that nobody calls.

#include "records/Records.h"

namespace tolvane {

// The first pair of equal labels of a program, whose lines with a label are given. 0, or -1 with an Error. Fills the
// program's index of labels.
template <class Ch> int CkLabelDouble(int prg, const std::vector<int>& labelled);
// The first pair of equal program names. 0, or a negative value with an Error.
template <class Ch> int CkPrgNameDouble();
// A Note for every label that is not referred to. 0.
template <class Ch> int CkLabelInUse();
// A Warning for every program but the first that nobody calls. 0.
template <class Ch> int CkPrgNameInUse();

} // namespace tolvane
