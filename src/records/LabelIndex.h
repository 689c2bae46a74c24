#pragma once
// The labels of a program by name: an open hash table, since a big source has more labels than all else that it looks
// up.

#include "text/Text.h"

#include <cstdint>
#include <vector>

namespace tolvane {

template <class Ch> class LabelIndex {
public:
    // Forgets all labels and makes room for as many.
    void Prepare(std::size_t labels) {
        std::size_t size = 16;
        while (size < 2 * labels)
            size *= 2;
        slots.assign(size, Slot{});
    }
    // The line that has been entered for the label; the given one, entered now, if it is the first. Not for more labels
    // than room was made for.
    std::int32_t Enter(View<Ch> label, std::int32_t line) {
        Slot& slot = slots[Place(label)];
        if (slot.line < 0) slot = {label, line};
        return slot.line;
    }
    // The line of the label, -1 if there is none.
    std::int32_t Find(View<Ch> label) const { return slots.empty() ? -1 : slots[Place(label)].line; }

private:
    struct Slot {
        View<Ch> label;
        std::int32_t line = -1;
    };
    std::vector<Slot> slots; // a power of two, at least half of them free

    // The slot of the label, or the free one where it belongs.
    std::size_t Place(View<Ch> label) const {
        std::uint64_t hash = 0;
        for (const Ch c : label)
            hash = (hash ^ static_cast<std::uint64_t>(c)) * 0x9E3779B97F4A7C15U;
        const std::size_t mask = slots.size() - 1;
        std::size_t i = (hash >> 32) & mask;
        while (slots[i].line >= 0 && slots[i].label != label)
            i = (i + 1) & mask;
        return i;
    }
};

} // namespace tolvane
