// The bytes of a source: read, assembled, linked, run and dumped.

#include "Fuzz.h"
#include "input/Readers.h"
#include "messages/TMsgStore.h"
#include "reports/Dump.h"
#include "stages/Stages.h"

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = fuzz::Begin(data, size);
    TMsgBase sums;
    BeginAssembly(sums, *modeFlags->Pipe, modeFlags->Lang);
    if (ReadSourceBytes("source.txt", &bytes) != 0) return 0;
    const bool good = RunStages(sums) && RunLink(sums);
    TOLVANE_MUST(good == (sums.ErrorKazu == 0)); // who is refused is told why
    for (const MsgRec& record : store->Records)
        TOLVANE_MUST(!record.Lines().empty());
    store->DspMsgStore();
    if (!good) return 0;
    TOLVANE_MUST(0 <= comet2->ReservedWords && comet2->ReservedWords <= MaxImageWords);
    fuzz::typed = bytes;
    comet2->RunLimited(20'000);
    if (size % 16 == 0) TOLVANE_MUST(!DumpText(*comet2, "dump.txt").empty()); // it takes longer than all the rest
    return 0;
}
