#pragma once
// The label table of the array pipeline, from which its dump takes the labels. One object, reached through
// `labelSpace`; it is filled after a clean assembly and empty otherwise.

#include "text/Text.h"

#include <cstdint>
#include <vector>

namespace tolvane {

struct TLabelRow {
    TextA LabelName; // at most 14 characters
    std::int32_t LabelAdr;
};

class TLabelSpace {
public:
    std::vector<TLabelRow> Rows; // in line order

    // Fills the table from the line records. The count of `cs` must be the same. 0.
    int CopyLabel();
    void Free();
};

extern TLabelSpace* const labelSpace;

} // namespace tolvane
