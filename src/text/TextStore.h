#pragma once
// Texts that live as long as their store: kept in large blocks, handed out as views, forgotten all at once.

#include "text/Text.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace tolvane {

template <class Ch> class TextStore {
public:
    // A copy of the text, valid until Clear.
    View<Ch> Keep(View<Ch> text) {
        if (text.empty()) return {};
        Ch* const place = Room(text.size());
        std::copy(text.begin(), text.end(), place);
        used += text.size();
        return View<Ch>(place, text.size());
    }
    // A place for at most `most` units, which Take turns into a text: for what is converted straight into the store.
    Ch* Room(std::size_t most) {
        if (blocks.empty() || most > free - used) AddBlock(most);
        return blocks.back().get() + used;
    }
    View<Ch> Take(std::size_t length) {
        const View<Ch> text(blocks.back().get() + used, length);
        used += length;
        return text;
    }
    void Clear() {
        blocks.clear();
        free = used = 0;
    }

private:
    static constexpr std::size_t BlockSize = std::size_t{256} * 1024;

    std::vector<std::unique_ptr<Ch[]>> blocks;
    std::size_t free = 0; // units of the last block
    std::size_t used = 0; // of them

    void AddBlock(std::size_t least) {
        free = std::max(least, BlockSize / sizeof(Ch));
        blocks.push_back(std::make_unique_for_overwrite<Ch[]>(free));
        used = 0;
    }
};

} // namespace tolvane
