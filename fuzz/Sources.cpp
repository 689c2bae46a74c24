// The bytes of a source: read, assembled, linked and run in a pipeline and language that the first byte chooses.

#include "Fuzz.h"
#include "input/Readers.h"
#include "messages/TMsgStore.h"
#include "records/Records.h"
#include "reports/Dump.h"
#include "stages/Stages.h"

#include <array>

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::array<const char*, 7> Pipelines = {"WP", "NWW", "NwW", "NaW", "NA", "AP", "NH"};
    if (size == 0) return 0;
    const fuzz::Silence silence;
    TMsgBase sums;
    BeginAssembly(sums, *FindPipeline(Pipelines[data[0] % Pipelines.size()]), data[0] / 128);
    const std::string bytes = fuzz::AsString(data + 1, size - 1);
    if (ReadSourceBytes("source.txt", &bytes) != 0) return 0;
    const bool good = RunStages(sums) && RunLink(sums) == 0;
    TOLVANE_MUST(good == (sums.ErrorKazu == 0));
    for (const MsgRec& record : store->Records)
        TOLVANE_MUST(!record.Lines().empty());
    store->DspMsgStore();
    if (!good) return 0;
    comet2->Io = &fuzz::Io;
    comet2->RunLimited(fuzz::Instructions);
    TOLVANE_MUST(!DumpText(*comet2, "dump.txt").empty());
    return 0;
}
