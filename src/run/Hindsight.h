#pragma once
// A run seen once more, instruction by instruction, for a hint that the fast run does not show.

#include "hints/RunHints.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tolvane::run {

class Hindsight {
public:
    // In front of the run: keeps the machine as it stands, if the image can draw the hint.
    explicit Hindsight(const image::LinkedImage& linked);

    // What an IN of the run has read, nothing at the end of the input.
    void Keep(const std::optional<MachineIo::Line>& line);
    // Behind the run of so many instructions: goes through the first of them again. The machine is then as it was.
    std::optional<hints::Hint> Look(std::int64_t executed);

private:
    const image::LinkedImage& image;
    std::unique_ptr<RunState> start; // null where there is nothing to look for
    std::vector<std::optional<MachineIo::Line>> lines;
    std::size_t next = 0;
};

} // namespace tolvane::run
