#pragma once
// The records and the objects that own them, and the one look-up that every room shares.

#include "records/TBasicData.h"
#include "records/TCorrectScode.h"
#include "records/TPO.h"

namespace tolvane {

// The Errors of b, cs and po together; the stages stop when it is above 0.
inline int ErrorSum() {
    return b->ErrorKazu + cs->ErrorKazu + po->ErrorKazu;
}
// Overwrites the counters of the application object with the sums of those of b, cs and po.
inline void SumMsgKazu(TMsgBase& game) {
    game.ErrorKazu = ErrorSum();
    game.WarningKazu = b->WarningKazu + cs->WarningKazu + po->WarningKazu;
    game.NoteKazu = b->NoteKazu + cs->NoteKazu + po->NoteKazu;
    game.MemoKazu = b->MemoKazu + cs->MemoKazu + po->MemoKazu;
}

// The line of the program that holds the label, from its START line up to the line before END; -1 if there is none.
template <class Ch> int FindLabelLine(int prg, View<Ch> label) {
    return b->Prg<Ch>()[static_cast<std::size_t>(prg)].LabelLine.Find(label);
}

} // namespace tolvane
