#pragma once
// The DC and DS lines in the array pipeline: passes of their own behind the instructions, with limits.

namespace tolvane {

// Counts the DC and DS lines of the file so far, and cuts the constants of a program's DC lines. 0, or 1 after an
// Error.
int dcds10(int prg);
// Judges the constants and the counts. 0, or 1 after an Error.
int dcds30(int prg);
// Counts the words of each line. 0, or 1 after an Error.
int dcdsWordKazu40(int prg);
// Sets the values, and adds the words to those of the file. 0; errors are counted.
int dcdsMemoryIn30(int prg);

} // namespace tolvane
