#pragma once
// The labels of a program by name: an open hash table, since a big source has more labels than all else that it looks
// up.

#include "records/SrcData.h"

#include <cstdint>
#include <vector>

namespace tolvane {

template <class Ch> class LabelIndex {
public:
    // Forgets all labels and makes room for as many; `records` are the lines that they stand in.
    void Prepare(const SrcLines<Ch>& records, std::size_t labels) {
        std::size_t size = 16;
        while (size < 2 * labels)
            size *= 2;
        lines = &records;
        slots.assign(size, Free);
    }
    // The line that has been entered for the label of a line: the line itself if it is the first. Not for more labels
    // than room was made for.
    std::int32_t Enter(std::int32_t line) {
        std::int32_t& slot = slots[Place(LabelOf(line))];
        if (slot == Free) slot = line;
        return slot;
    }
    // The line of the label, -1 if there is none.
    std::int32_t Find(View<Ch> label) const { return slots.empty() ? Free : slots[Place(label)]; }

private:
    static constexpr std::int32_t Free = -1;

    const SrcLines<Ch>* lines = nullptr;
    std::vector<std::int32_t> slots; // a power of two, at least half of them free

    View<Ch> LabelOf(std::int32_t line) const { return (*lines)[static_cast<std::size_t>(line)].strLabel; }
    // The slot of the label, or the free one where it belongs.
    std::size_t Place(View<Ch> label) const {
        std::uint64_t hash = 0;
        for (const Ch c : label)
            hash = (hash ^ static_cast<std::uint64_t>(c)) * 0x9E3779B97F4A7C15U;
        const std::size_t mask = slots.size() - 1;
        std::size_t i = static_cast<std::size_t>(hash >> 32) & mask;
        while (slots[i] != Free && LabelOf(slots[i]) != label)
            i = (i + 1) & mask;
        return i;
    }
};

} // namespace tolvane
