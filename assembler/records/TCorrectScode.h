#pragma once
// The object of the per-line checks: its counters, the tables and the flags that the checks share. One object,
// reached through `cs`. The checks themselves are the routines of assembler/lines and assembler/operands.

#include "driver/TMsgBase.h"

#include <array>
#include <string_view>

namespace tolvane {

inline constexpr std::array<std::string_view, 8> RegisterNames = {"GR0", "GR1", "GR2", "GR3",
                                                                  "GR4", "GR5", "GR6", "GR7"};

class TCorrectScode : public TMsgBase {
public:
    std::int32_t LabelMax = 8;

    // Of the operand that was last looked at: 1 if it ended in a comma. Starts at 0 in every assembly.
    std::int8_t CommaAriFlag = 0;
    // 1 if the operand that was asked about is not empty.
    std::int8_t NextOprndAriFlag = 0;

    // Forgets everything of the assembly. Lang and the counters stay.
    void Reset();
};

extern TCorrectScode* const cs;

} // namespace tolvane
