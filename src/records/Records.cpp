#include "records/Records.h"

#include "records/RecordsMsgs.h"
#include "records/TLabelSpace.h"

#include <algorithm>

namespace tolvane {

namespace {

bool HasLabel(const SrcDataA& src) {
    return IsUpper(At<char>(src.strLabel, 0));
}

} // namespace

void TBasicData::SetPrgKazuInFile(int kazu) {
    if (kazu < 0) {
        Say(RecordsMsg.NegativePrgKazu, {kazu});
        return;
    }
    prgKazuInFile = kazu;
}

void TBasicData::Reset() {
    vecSrcA = {};
    vecSrcW = {};
    vecPrgA.clear();
    vecPrgW.clear();
    apartA.Clear();
    apartW.Clear();
    StartLines.clear();
    EndLines.clear();
    prgKazuInFile = 0;
}

void TCorrectScode::CountLabels() {
    LabelKazuInFile = static_cast<std::int32_t>(std::count_if(b->vecSrcA.begin(), b->vecSrcA.end(), HasLabel));
}

void TCorrectScode::Reset() {
    CommaAriFlag = 0;
    DcLineKazu = DsLineKazu = 0;
    max_rl_memory_d = max_rl_memory_l = 0;
    LabelKazuInFile = 0;
}

int TLabelSpace::CopyLabel() {
    constexpr std::size_t longest = 14;
    Rows.clear();
    Rows.reserve(static_cast<std::size_t>(cs->LabelKazuInFile));
    for (const SrcDataA& src : b->vecSrcA) {
        if (HasLabel(src)) Rows.push_back({TextA(src.strLabel.substr(0, longest)), src.AbAdr});
    }
    const auto kazu = static_cast<std::int32_t>(Rows.size());
    if (kazu != cs->LabelKazuInFile) Say(RecordsMsg.LabelKazuDiffer, {kazu, cs->LabelKazuInFile});
    return 0;
}

void TLabelSpace::Free() {
    Rows.clear();
}

} // namespace tolvane
