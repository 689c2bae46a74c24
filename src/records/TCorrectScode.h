#pragma once
// The object of the per-line checks: its counters, the tables and the flags that the checks share. One object,
// reached through `cs`. The checks themselves are the routines of lines/ and operands/.

#include "messages/TMsgBase.h"

namespace tolvane {

class TCorrectScode : public TMsgBase {
public:
    static constexpr std::size_t LabelMax = 8;

    // Of the operand that was last looked at: 1 if it ended in a comma. Starts at 0 in every assembly.
    std::int8_t CommaAriFlag = 0;

    // The sums of a file that the limits of the array pipeline bound.
    std::int32_t DcLineKazu = 0;
    std::int32_t DsLineKazu = 0;
    std::int32_t max_rl_memory_d = 0; // words of DC and DS
    std::int32_t max_rl_memory_l = 0; // words of literals
    std::int32_t LabelKazuInFile = 0; // labels of a clean assembly

    // Whether a check has failed on any line of the assembly so far.
    bool AnyErrorSoFar() const { return ErrorKazu > 0; }
    // Sets LabelKazuInFile to the number of line records whose label begins with A to Z.
    void CountLabels();
    // Forgets everything of the assembly. The counters of diagnostics stay.
    void Reset();
};

extern TCorrectScode* const cs;

} // namespace tolvane
