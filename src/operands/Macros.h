#pragma once
// The macro instructions IN, OUT, RPUSH and RPOP.

#include "records/Records.h"

namespace tolvane {

inline constexpr int InOutWords = 12;
inline constexpr int RpushWords = 14;
inline constexpr int RpopWords = 7;

// In the handler pass: commas and word counts of IN and OUT; of RPUSH and RPOP. 0, or 1 for another word.
template <class Ch> int macro2(int line);
template <class Ch> int macroR2(int line);
// In the address walk: checks operand n of IN or OUT, 0 or 1; builds their words without addresses, 0 or 1.
template <class Ch> int MacroIN(int line, int n);
template <class Ch> int InOut1(int line);
// Build the words of RPUSH and RPOP at the running address, and advance it.
template <class Ch> void MacroRPUSH(int line, int& abs);
template <class Ch> void MacroRPOP(int line, int& abs);

} // namespace tolvane
