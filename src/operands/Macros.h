#pragma once
// The macro instructions IN, OUT, RPUSH and RPOP.

#include "records/Records.h"

#include <array>
#include <span>

namespace tolvane {

inline constexpr int InOutWords = 12;
using InOutCode = std::array<int, InOutWords>;

// PUSH 0,GR1 to PUSH 0,GR7, and POP GR7 to POP GR1.
inline constexpr std::array<int, 14> RpushCode = {0x7001, 0,      0x7002, 0,      0x7003, 0,      0x7004,
                                                  0,      0x7005, 0,      0x7006, 0,      0x7007, 0};
inline constexpr std::array<int, 7> RpopCode = {0x7170, 0x7160, 0x7150, 0x7140, 0x7130, 0x7120, 0x7110};

// In the handler pass: commas and word counts of IN and OUT; of RPUSH and RPOP.
template <class Ch> void macro2(int line);
template <class Ch> void macroR2(int line);
// In the address walk: checks operand n of IN or OUT; finds the addresses of both operands.
template <class Ch> void MacroIN(int line, int n);
template <class Ch> void InOut1(int line);

// The words of a macro instruction.
template <class Ch> InOutCode WordsOfInOut(const SrcData<Ch>& src);
template <class Ch> std::span<const int> WordsOfRpushRpop(const SrcData<Ch>& src) {
    if (src.op->pushes) return RpushCode;
    return RpopCode;
}

} // namespace tolvane
