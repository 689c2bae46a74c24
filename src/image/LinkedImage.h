#pragma once
// A linked image and the source lines that it was made of, as UTF-8, for everything that tells of an address.

#include "records/Opcode.h"

#include <string>
#include <vector>

namespace tolvane::image {

struct LineText {
    std::string source; // as read
    std::string label;
    std::string code;           // opcode and operands, empty for a line without an opcode
    bool ends = false;          // an END line
    bool isInstruction = false; // its words are there to be executed: no DC, no DS
    const Opcode* opcode = nullptr;
    int address = 0;         // of its first word
    int literalAddress = -1; // of its literal, -1 without one
};

class LinkedImage {
public:
    // Takes the words as they stand in the machine: behind a successful link, in front of the run. Valid until the next
    // assembly begins.
    LinkedImage();

    int LineCount() const;
    LineText TextOf(int line) const;
    // The line that owns the word at an address, -1 if none does.
    int LineOf(int address) const;
    // The nearest label of the same program at an address or in front of it: "LOOP", "LOOP+2"; empty without one.
    std::string LabelAt(int address) const;

    // Whether an instruction of the source begins at the address, and the words there are still those of the link.
    bool IsAsLinked(int address, int word, int second) const;
    // The instruction at an address, given its words when it was executed: its line's text, or, where the program has
    // changed it or the source has none there, as the machine reads it.
    std::string InstructionText(int address, int word, int second) const;
    // The address with its label and the instruction that stands there now: "#0006 LOOP+2: ADDA GR1, GR2".
    std::string PlaceText(int address) const;

private:
    std::vector<int> linked; // the words behind the link
};

} // namespace tolvane::image
