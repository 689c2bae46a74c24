#pragma once
// What stands behind --explain.

#include <string>

namespace tolvane::run {

// Prints the explanations that fit: to a line as it was printed, or to some words in either language; the titles of all
// for an empty text. The exit status.
int Explain(const std::string& words);

} // namespace tolvane::run
