#pragma once
// Which explanations belong to a printed line, or to some words.

#include "explain/Explanations.h"

#include <string_view>
#include <vector>

namespace tolvane::explain {

struct Found {
    std::vector<const Explanation*> entries; // the best first
    std::size_t equals = 0;                  // so many of them fit equally well; 0: none fits, they are only near
};

// What fits to a text in either language, as UTF-8: one or more lines as a program has printed them, with their heads,
// or words such as a person would use, in any case and width. Where nothing fits, the nearest three.
Found Find(std::string_view text);

} // namespace tolvane::explain
