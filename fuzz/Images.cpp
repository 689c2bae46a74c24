// Words of memory, registers and stack pointer: whatever they are, a run ends by a stop or at its limit.

#include "Fuzz.h"
#include "messages/TMsgStore.h"
#include "reports/Dump.h"

#include <cstring>

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Silence silence;
    modeFlags->Pipe = FindPipeline(size % 2 == 0 ? "WP" : "NH");
    comet2->InitComet2();
    for (std::size_t i = 0; i + 1 < size && i / 2 < 4096; i += 2)
        comet2->Memory[i / 2] = data[i] << 8 | data[i + 1];
    comet2->ReservedWords = static_cast<int>(size / 4);
    comet2->Io = &fuzz::Io;
    comet2->RunLimited(fuzz::Instructions);
    TOLVANE_MUST(!DumpText(*comet2, "dump.txt").empty());
    store->ClearMsgStore();
    return 0;
}
