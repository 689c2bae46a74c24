// Words of memory: whatever they are, a run ends by a stop or at its limit, a traced one in the same way, and the
// machine can be dumped.

#include "Fuzz.h"
#include "messages/TMsgStore.h"
#include "reports/Dump.h"

using namespace tolvane;

namespace {

constexpr std::int64_t Traced = 500; // instructions

void Load(const std::string& bytes) {
    comet2->InitComet2();
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        comet2->Memory[i / 2] = byte(i) << 8 | byte(i + 1);
    comet2->ReservedWords = static_cast<int>(bytes.size() / 2);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Tcomet2 untraced;
    const unsigned choice = fuzz::Choice(data, size);
    const fuzz::Silence silence;
    modeFlags->Pipe = FindPipeline(fuzz::Pipelines[choice / 2 % fuzz::Pipelines.size()]);
    modeFlags->Lang = static_cast<int>(choice % 2);
    const std::string bytes = fuzz::AsString(data, std::min<std::size_t>(size, 2 * MaxImageWords));
    const auto run = [&](auto how) {
        const fuzz::Typing typing(bytes);
        Load(bytes);
        return how();
    };

    const Stop stop = run([] { return comet2->RunLimited(Traced); });
    untraced = *comet2;
    TOLVANE_MUST(run([] { return comet2->RunTraced(Traced, [](const Step&) {}); }) == stop);
    TOLVANE_MUST(comet2->PR == untraced.PR && comet2->SP == untraced.SP && comet2->GR == untraced.GR);
    TOLVANE_MUST(comet2->Memory == untraced.Memory && comet2->Stack == untraced.Stack);
    TOLVANE_MUST(comet2->RunCount == untraced.RunCount && comet2->OS == untraced.OS);

    run([] { return comet2->RunLimited(fuzz::Instructions); });
    if (choice % 16 == 0) TOLVANE_MUST(!DumpText(*comet2, "dump.txt").empty());
    store->ClearMsgStore();
    return 0;
}
