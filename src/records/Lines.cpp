#include "records/Lines.h"

namespace tolvane {

template <class Ch> std::size_t FindMozi(View<Ch> text, std::type_identity_t<View<Ch>> pattern, std::size_t from) {
    if constexpr (IsWide<Ch>) return text.find(pattern, from);
    for (std::size_t i = from; i + pattern.size() <= text.size(); i += CharLength(text, i))
        if (text.compare(i, pattern.size(), pattern) == 0) return i;
    return npos;
}

template <class Ch> bool HoldsWord(View<Ch> text, std::string_view word, WordRule rule) {
    for (const char letter : word)
        if (!Has(text, letter)) return false;
    const Text<Ch> pattern = Lit<Ch>(word);
    for (std::size_t at = FindMozi<Ch>(text, pattern); at != npos; at = FindMozi<Ch>(text, pattern, at + 1)) {
        const std::size_t behind = at + pattern.size();
        const bool goodBefore = !rule.blankBefore || (at > 0 && IsBlank(text[at - 1]));
        const bool goodBehind = !rule.blankOrEndBehind || behind == text.size() || IsBlank(text[behind]);
        if (goodBefore && goodBehind) return true;
    }
    return false;
}

TOLVANE_BOTH_KINDS(FindMozi)
TOLVANE_BOTH_KINDS(HoldsWord)

} // namespace tolvane
