#pragma once
// Small things that live as long as their arena: kept in large blocks and forgotten all at once. Texts above all.

#include "text/Text.h"

#include <algorithm>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

namespace tolvane {

template <class T> class Arena {
    static_assert(std::is_trivially_destructible_v<T>);

public:
    // A place for at most `most` things, of which Take keeps the first.
    T* Room(std::size_t most) {
        if (blocks.empty() || most > size - used) AddBlock(most);
        return blocks.back().get() + used;
    }
    // They are valid until Clear.
    std::span<T> Take(std::size_t count) {
        const std::span<T> taken(blocks.back().get() + used, count);
        used += count;
        return taken;
    }
    void Clear() {
        blocks.clear();
        size = used = 0;
    }

private:
    // Small sources need one small block, which the heap gives again and again at no cost.
    static constexpr std::size_t LeastBytes = std::size_t{8} * 1024;
    static constexpr std::size_t MostBytes = std::size_t{256} * 1024;

    std::vector<std::unique_ptr<T[]>> blocks;
    std::size_t size = 0; // of the last block
    std::size_t used = 0; // of it

    void AddBlock(std::size_t least) {
        size = std::max(least, std::clamp(2 * size, LeastBytes / sizeof(T), MostBytes / sizeof(T)));
        blocks.emplace_back(new T[size]); // left as it is, unlike that of make_unique
        used = 0;
    }
};

// A copy of the text that lives as long as the arena, to be edited or as it is.
template <class Ch> std::span<Ch> CopyText(Arena<Ch>& texts, std::type_identity_t<View<Ch>> text) {
    if (text.empty()) return {};
    std::copy(text.begin(), text.end(), texts.Room(text.size()));
    return texts.Take(text.size());
}
template <class Ch> View<Ch> KeepText(Arena<Ch>& texts, std::type_identity_t<View<Ch>> text) {
    const std::span<Ch> kept = CopyText(texts, text);
    return View<Ch>(kept.data(), kept.size());
}

} // namespace tolvane
