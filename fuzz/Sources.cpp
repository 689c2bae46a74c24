// The bytes of a source: read, assembled, linked and run in a pipeline and language that the last byte chooses.

#include "Fuzz.h"
#include "input/Readers.h"
#include "messages/TMsgStore.h"
#include "records/Records.h"
#include "reports/Dump.h"
#include "stages/Stages.h"

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const unsigned choice = fuzz::Choice(data, size);
    const fuzz::Silence silence;
    TMsgBase sums;
    BeginAssembly(sums, *FindPipeline(fuzz::Pipelines[choice / 2 % fuzz::Pipelines.size()]), choice % 2);
    const std::string bytes = fuzz::AsString(data, size);
    if (ReadSourceBytes("source.txt", &bytes) != 0) return 0;
    const bool good = RunStages(sums) && RunLink(sums) == 0;
    TOLVANE_MUST(good == (sums.ErrorKazu == 0)); // who is refused is told why
    for (const MsgRec& record : store->Records)
        TOLVANE_MUST(!record.Lines().empty());
    store->DspMsgStore();
    if (!good) return 0;
    TOLVANE_MUST(0 <= comet2->ReservedWords && comet2->ReservedWords <= MaxImageWords);
    const fuzz::Typing typing(bytes);
    comet2->RunLimited(fuzz::Instructions);
    if (choice % 16 == 0) TOLVANE_MUST(!DumpText(*comet2, "dump.txt").empty()); // most of the time, if it were always
    return 0;
}
