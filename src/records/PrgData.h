#pragma once
// The record of one program, from its START line to its END line.

#include "records/LabelIndex.h"

#include <cstdint>

namespace tolvane {

template <class Ch> struct PrgData {
    std::int64_t PrgWordKazu = 0; // wider than an address: a refused size is printed as it is
    std::int32_t AbAdrAtStart = 0;
    std::int32_t AbAdrAtLite = 0;
    std::int32_t AbAdrAtEnd = 0;
    View<Ch> strPrgName;
    bool fCalled = false; // another program, or a START operand, names this program
    std::int32_t StartLine = 0;
    std::int32_t EndLine = 0;

    // First line of each label, START line included; filled when the labels have been checked.
    LabelIndex<Ch> LabelLine;
};
using PrgDataW = PrgData<char16_t>;
using PrgDataA = PrgData<char>;

} // namespace tolvane
