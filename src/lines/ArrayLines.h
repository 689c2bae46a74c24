#pragma once
// What the array pipeline does in its own way: the normalising of the lines and the opcode words.

namespace tolvane {

// Recognises comment lines and blank lines; the first two runs of blanks of a line become one space each, so that
// label, opcode and operands stand one space apart. An Error when the file has no line with text.
void editN();
// Splits the fields of a program's lines, looks up every opcode word, EXIT included, and keeps DC and DS behind the
// instructions. False after any Error.
bool op30(int prg);

} // namespace tolvane
