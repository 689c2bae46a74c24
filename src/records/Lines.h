#pragma once
// What the passes over lines share: the records by number, and the search for words in a line.

#include "records/Records.h"

#include <string_view>
#include <type_traits>

namespace tolvane {

template <class Ch> SrcData<Ch>& LineAt(int line) {
    return b->Src<Ch>()[static_cast<std::size_t>(line)];
}
template <class Ch> PrgData<Ch>& PrgAt(int prg) {
    return b->Prg<Ch>()[static_cast<std::size_t>(prg)];
}
template <class Ch> int LineKazu() {
    return static_cast<int>(b->Src<Ch>().size());
}

// Position of the pattern at or behind `from`, npos if it does not occur. Narrow text is walked character by
// character, so that the second byte of a two-byte character is never taken for a letter.
template <class Ch> std::size_t FindMozi(View<Ch> text, std::type_identity_t<View<Ch>> pattern, std::size_t from = 0);
template <class Ch> bool ContainsMozi(View<Ch> text, std::type_identity_t<View<Ch>> pattern) {
    return FindMozi(text, pattern) != npos;
}

// What must stand beside a word for it to count.
struct WordRule {
    bool blankBefore = false;
    bool blankOrEndBehind = false;
};
// Whether the word occurs anywhere in the text under the rule. It may be a part of a longer word.
template <class Ch> bool HoldsWord(View<Ch> text, std::string_view word, WordRule rule);

} // namespace tolvane
