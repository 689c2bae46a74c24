// Words of memory: whatever they are, a run ends by a stop or at its limit, a traced one in the same way, and the
// machine can be dumped.

#include "Fuzz.h"
#include "messages/TMsgStore.h"
#include "reports/Dump.h"

using namespace tolvane;

namespace {

std::size_t printed = 0;

// Long texts that are printed again and again take their time, and show nothing.
void Print(void*, const std::string& line) {
    constexpr std::size_t most = 1 << 20;
    printed += line.size();
    if (printed > most) fuzz::PressCtrlC();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Tcomet2 untraced;
    const std::string bytes = fuzz::Begin(data, std::min<std::size_t>(size, 2 * MaxImageWords));
    MachineIo io = fuzz::Io;
    io.write = Print;
    const auto begin = [&] {
        fuzz::typed = bytes;
        printed = 0;
        signals::interrupt = false;
        comet2->Io = &io;
        comet2->InitComet2();
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
            comet2->Memory[i / 2] = data[i] << 8 | data[i + 1];
        comet2->ReservedWords = static_cast<int>(bytes.size() / 2);
    };

    begin();
    const Stop stop = comet2->RunLimited(2'000);
    untraced = *comet2;
    begin();
    TOLVANE_MUST(comet2->RunTraced(2'000, [](const Step&) {}) == stop);
    signals::interrupt = false;
    TOLVANE_MUST(comet2->PR == untraced.PR && comet2->SP == untraced.SP && comet2->GR == untraced.GR);
    TOLVANE_MUST(comet2->Memory == untraced.Memory && comet2->Stack == untraced.Stack);
    TOLVANE_MUST(comet2->RunCount == untraced.RunCount && comet2->OS == untraced.OS);
    if (size % 16 == 0) TOLVANE_MUST(!DumpText(*comet2, "dump.txt").empty());
    comet2->Io = &fuzz::Io;
    store->ClearMsgStore();
    return 0;
}
