#pragma once
// What the owners of the records say of broken invariants.

#include "driver/Msg.h"

namespace tolvane {

struct RecordsCatalogue {
    Msg NegativePrgKazu{Room::Lines, "PrgError: kazu is negative. kazu={0}  TBasicData::SetPrgKazuInFile(int)\n",
                        "PrgError: kazu is negative. kazu={0}  TBasicData::SetPrgKazuInFile(int)\n"};
    Msg EditorIndexOutOfRange{Room::Driver,
                              "PrgError: index < 0 || 2 < index\n"
                              "The index was corrected to be zero.\n"
                              "TBasicData::SetTextEdIndex(int)\n",
                              "PrgError: index < 0 || 2 < index\n"
                              "The index was corrected to be zero.\n"
                              "TBasicData::SetTextEdIndex(int)\n"};
};
inline constexpr RecordsCatalogue RecordsMsg;

} // namespace tolvane
