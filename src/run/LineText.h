#pragma once
// The source lines of a linked image as UTF-8, for everything that tells of an address. The one place of this room
// that knows the line records.

#include <string>

namespace tolvane::run {

struct LineText {
    std::string source; // as read
    std::string label;
    std::string code;        // opcode and operands, empty for a line without an opcode
    bool ends = false;       // an END line
    int address = 0;         // of its first word
    int literalAddress = -1; // of its literal, -1 without one
};

int LineCount();
LineText TextOfLine(int line);
// Lets LineOfAddress know the lines in every pipeline. After the link.
void PrepareLines();
// The line that owns the word at an address, -1 if none does.
int LineOfAddress(int address);
// The address with its label and the source text of its instruction: "#0006 LOOP+2: ADDA GR1, GR2".
std::string PlaceText(int address);

// The instruction of one or two words as it stands in memory: "ADDA GR1, #0012".
std::string Disassembled(int word, int second);
// "#" and four hexadecimal digits.
std::string Hex(int word);

} // namespace tolvane::run
