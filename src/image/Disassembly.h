#pragma once
// Words of memory as text: hexadecimal digits, and instructions as the machine reads them.

#include <string>

namespace tolvane::image {

// "#" and four hexadecimal digits of the low half.
std::string Hex(int word);
// The words of the instruction that begins with `word`: 1 or 2; 1 if it is none.
int WordsOf(int word);
// The instruction as the machine reads it: "ADDA GR1, #0012". Of a word that it refuses, the hexadecimal digits.
std::string Disassembled(int word, int second);

} // namespace tolvane::image
