// Words of memory as a program: wherever a debugger goes in its run, and whatever is typed there, the machine stands as
// behind a plain run of as many instructions.

#include "Fuzz.h"
#include "debugger/Debugger.h"
#include "messages/TMsgStore.h"

#include <memory>

using namespace tolvane;
using namespace tolvane::debugger;

namespace {

void Load(Tcomet2& machine, const std::uint8_t* data, std::size_t words) {
    machine.InitComet2();
    for (std::size_t i = 0; i < words; ++i)
        machine.Memory[i] = data[2 * i] << 8 | data[2 * i + 1];
    machine.ReservedWords = static_cast<int>(words);
}

// What a plain run reads: the lines that the debugger's run has read.
void TypeAsIn(const History& past, std::string& lines) {
    lines.clear();
    for (std::size_t i = 0; i < past.ReadCount(); ++i)
        lines += past.Reads()[i].text.value_or("") + "\n";
    fuzz::typed = lines;
}

void MustBeAsPlain(const History& past, const std::uint8_t* data, std::size_t words) {
    static Tcomet2 plain;
    static RunState expected;
    static RunState found;
    std::string lines;
    Load(plain, data, words);
    plain.Io = &fuzz::Io;
    TypeAsIn(past, lines);
    if (past.Now() > 0)
        plain.RunLimited(past.Now());
    else
        plain.BeginRun();
    plain.Keep(expected);
    past.Machine().Keep(found);
    TOLVANE_MUST(expected.Memory == found.Memory && expected.RunCount == found.RunCount);
    TOLVANE_MUST(expected.Stack == found.Stack && expected.OS == found.OS && expected.EffAdr == found.EffAdr);
    TOLVANE_MUST(expected.registers.GR == found.registers.GR && expected.registers.PR == found.registers.PR);
}

void Begin(Debugger& debugger, int task, int number) {
    const Way way = (task & 1) != 0 ? Way::On : Way::Back;
    if (task < 100) return debugger.BeginGo(number * 8);
    if (task < 140) return debugger.BeginOver(way);
    if (task < 160) return debugger.BeginOut(way);
    if (task < 200) return debugger.BeginRun(way);
    if (task < 220) return debugger.BeginUntil(number, way);
    debugger.BeginWho({number % 2 == 0 ? Cell::Kind::GR : Cell::Kind::Word, number % 8});
}

} // namespace

// The first bytes are tasks, the rest is the program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t Tasks = 16;
    constexpr Moment Most = 4'000;
    if (size < Tasks + 2) return 0;
    fuzz::Begin(data, size);
    const std::uint8_t* const program = data + Tasks;
    const std::size_t words = std::min<std::size_t>((size - Tasks) / 2, MaxImageWords);
    Load(*comet2, program, words);
    Debugger debugger(*comet2, 64);
    debugger.SetBreakpoint(data[0] % 64);
    if (data[1] % 4 == 0) debugger.SetWatch({Cell::Kind::GR, data[1] / 4 % 8});
    for (std::size_t i = 0; i + 1 < Tasks; i += 2) {
        Begin(debugger, data[i], data[i + 1]);
        while (debugger.Now() < Most && !debugger.Work(200)) {
        }
        MustBeAsPlain(debugger.Past(), program, words);
        TOLVANE_MUST(debugger.Past().CheckpointCount() <= History::UsualCheckpoints);
        if (data[i] % 3 == 0) debugger.Past().Type(std::string(data[i + 1] % 8, 'x'));
    }
    store->ClearMsgStore();
    return 0;
}
