#include "assembler/records/Records.h"

#include "assembler/records/RecordsMsgs.h"

namespace tolvane {

void TBasicData::SetPrgKazuInFile(int kazu) {
    if (kazu < 0) {
        Say(RecordsMsg.NegativePrgKazu, {kazu});
        return;
    }
    prgKazuInFile = kazu;
}

void TBasicData::SetTextEdIndex(int index) {
    if (index < 0 || 2 < index) {
        Say(RecordsMsg.EditorIndexOutOfRange);
        index = 0;
    }
    TextEditorIndex = index;
}

void TBasicData::Reset() {
    vecSrcA.clear();
    vecSrcW.clear();
    vecPrgA.clear();
    vecPrgW.clear();
    StartLines.fill(0);
    EndLines.fill(0);
    prgKazuInFile = 0;
    SrcFilePath.clear();
}

void TCorrectScode::Reset() {
    CommaAriFlag = 0;
    NextOprndAriFlag = 0;
}

void TPO::Reset() {
    StartLine = 0;
    EndLine = 0;
    PrgKazu = 0;
}

} // namespace tolvane
