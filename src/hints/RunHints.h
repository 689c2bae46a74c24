#pragma once
// What shows only while a program runs: a line that is longer than its room, and a RET that takes what PUSH has put on
// the stack.

#include "hints/Hints.h"
#include "machine/Tcomet2.h"

#include <array>
#include <optional>

namespace tolvane::hints {

// Of an IN, whose SVC stands at PR and which has stored so many characters from an address on: whether they are more
// than its DS has words. Nothing if they are not, or if no DS stands there.
std::optional<Hint> Overrun(const image::LinkedImage& image, int buffer, int characters);

// Sees the instructions of a run, from its beginning, one after the other.
class ReturnWatch {
public:
    explicit ReturnWatch(const image::LinkedImage& linked) : image(linked) { pushers.fill(-1); }

    // Whether the image has both CALL and PUSH or RPUSH, without which there is nothing to find.
    static bool IsNeeded(const image::LinkedImage& image);
    void Observe(const Step& step);
    // The first RET that took the word of a PUSH.
    const std::optional<Hint>& Found() const { return found; }

private:
    const image::LinkedImage& image;
    std::array<int, StackCells>
        pushers{}; // by word of the stack: the address of the PUSH that has put it there; else -1
    std::optional<Hint> found;
};

} // namespace tolvane::hints
