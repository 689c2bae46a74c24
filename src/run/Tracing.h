#pragma once
// The trace: a line on the standard error for each instruction that was executed, with the operands that it has read
// and what it has changed. IN and OUT, which are macros, are one line each.
//
//   #0006 LOOP     ADDA GR1,GR2  (1, 2)             GR1=#0003 Fzero=0
//   #0007          CPA GR1,=3  (3 : 3)              Fzero=1
//   #0009          JNZ LOOP  not taken
//   #000B          OUT TEXT,LENGTH  "Hello"

#include "image/LinkedImage.h"
#include "machine/Tcomet2.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::run {

// " GR1=#0003 Fzero=0": the registers and flags that are not what they were.
std::string ChangedRegisters(const Registers& before, const Registers& after);
// Appends " [#0012]=#0003".
void AddCell(std::string& row, int address, int cell);

class Tracer {
public:
    static constexpr int MostKept = 100'000;

    // With `last` above 0 only so many lines are kept, at most MostKept, and the last of them printed at the end.
    Tracer(const image::LinkedImage& linked, int last);
    // An instruction that the machine has just executed.
    void Observe(const Step& step);
    // What IN has read or OUT has written, in UTF-8, before the instruction is observed; nothing at the end of the
    // input.
    void SetText(std::optional<std::string_view> line);
    void PrintKept() const;

private:
    // An instruction with what is gone when the machine goes on.
    struct Executed {
        Step step;
        Registers after;
        int operand = 0;            // the last that it has read
        std::optional<int> address; // of the word that it has written
        int value = 0;              // of that word
        std::string text;           // of IN or OUT
    };
    bool IsInService(const Step& step) const;
    Executed WithEffects(const Step& step) const;
    std::string RowOf(const Executed& executed) const;

    const image::LinkedImage& image;
    std::vector<bool> services; // by address: a word of an IN or OUT
    std::size_t most;
    std::vector<Executed> kept; // in a ring
    std::size_t count = 0;
    std::string text; // of the last IN or OUT
};

} // namespace tolvane::run
