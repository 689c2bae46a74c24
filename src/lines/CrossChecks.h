#pragma once
// Names against each other: duplicates, labels that nothing refers to, programs that nobody calls.

#include "records/Records.h"

namespace tolvane {

// The first pair of equal labels of a program, whose lines with a label are given, is an Error. Fills the
// program's index of labels.
template <class Ch> void CkLabelDouble(int prg, const std::vector<int>& labelled);
// The first pair of equal program names is an Error.
template <class Ch> void CkPrgNameDouble();
// A Note for every label that is not referred to.
template <class Ch> void CkLabelInUse();
// A Warning for every program but the first that nobody calls.
template <class Ch> void CkPrgNameInUse();

} // namespace tolvane
