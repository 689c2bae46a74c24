#pragma once

#include <set>
#include <string>

namespace tolvane::tests {

// Makes a test of every case of tests/books/*.book. With `rewrite` the expectations are written from what happened.
void RegisterBooks(bool rewrite);
// The names of the rows that the books expect.
std::set<std::string> RowsOfBooks();

} // namespace tolvane::tests
