#pragma once
// The instructions of a linked image, and where the run goes from each.

#include "image/LinkedImage.h"

#include <vector>

namespace tolvane::hints {

struct Instruction {
    int address;
    int words;
    int line;
    int code; // operation code
    int r, x; // fields
    int second;
    bool isService; // one of those that an IN or OUT consists of
};

// Whether the run may go on with the instruction behind this one.
bool GoesOn(const Instruction& instruction);

class Program {
public:
    // In front of the run, as the image itself.
    explicit Program(const image::LinkedImage& linked);

    const image::LinkedImage& Image() const { return image; }
    // In the order of their addresses.
    const std::vector<Instruction>& All() const { return all; }
    // The instruction that begins at an address; null if none does.
    const Instruction* At(int address) const;
    // Whether the word at an address belongs to an instruction.
    bool IsCode(int address) const;
    // Whether the run may come to an instruction; and by jumps alone, in the main program.
    bool IsReached(const Instruction& instruction) const { return Has(reached, instruction); }
    bool IsMain(const Instruction& instruction) const { return Has(main, instruction); }
    // Whether a CALL names the address.
    bool IsCalled(int address) const { return called[static_cast<std::size_t>(address)]; }
    // Where the run may go from an instruction, but for CALL, behind which it comes back.
    std::vector<const Instruction*> Next(const Instruction& instruction) const;
    // The instruction that a CALL names, null if that is none or is not known before the run.
    const Instruction* Called(const Instruction& instruction) const;

private:
    bool Has(const std::vector<bool>& set, const Instruction& instruction) const;
    void AddLine(int line);
    std::vector<bool> Reach(bool throughCalls) const;

    const image::LinkedImage& image;
    std::vector<Instruction> all;
    std::vector<int> indexAt;        // by address: of the instruction to which the word belongs, -1 without one
    std::vector<bool> reached, main; // by index
    std::vector<bool> called;        // by address
};

} // namespace tolvane::hints
