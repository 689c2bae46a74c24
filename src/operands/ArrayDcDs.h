#pragma once
// The DC and DS lines in the array pipeline: passes of their own behind the instructions, with limits.

namespace tolvane {

// Counts the DC and DS lines of the file so far, and cuts the constants of a program's DC lines. False after an
// Error.
bool dcds10(int prg);
// Judges the constants and the counts. False after an Error.
bool dcds30(int prg);
// Counts the words of each line. False after an Error.
bool dcdsWordKazu40(int prg);
// Sets the values, and adds the words to those of the file; errors are counted.
void dcdsMemoryIn30(int prg);

} // namespace tolvane
