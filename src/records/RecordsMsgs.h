#pragma once
// What the owners of the records say of broken invariants.

#include "messages/Msg.h"

namespace tolvane {

inline constexpr const char* LabelKazuDifferText =
    "Prg Error: CorrectScodeとLabelSpaceで求めたLabelKazuInFileが一致しない。\n"
    "LabelKazuInFile(TLabelSpace::, CorrectScoed::)=({0}, {1})\n"
    "CopyLabel(), LabelSpace  ADD36CB0\n";

struct RecordsCatalogue {
    Msg NegativePrgKazu{"PrgError: kazu is negative. kazu={0}  TBasicData::SetPrgKazuInFile(int)\n"};
    // {0} the rows of the label table, {1} the count of cs
    Msg LabelKazuDiffer{LabelKazuDifferText};
};
inline constexpr RecordsCatalogue RecordsMsg;

} // namespace tolvane
