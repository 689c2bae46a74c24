// A run that can be taken back: against the plain limited loop on the way on, and how long its questions take in a run
// of 1,000,000,000 instructions. Times are those of the processor.

#include "debugger/Debugger.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <memory>
#include <vector>

using namespace tolvane;
using namespace tolvane::debugger;

namespace {

constexpr Moment Long = 1'000'000'000;
constexpr Moment Middle = 100'000'000;
constexpr int Untouched = 0x200;

//       LAD  GR2,1
//       ST   GR2,#0200
// A     ADDA GR1,GR2
//       ST   GR1,B
//       LD   GR3,B
//       ADDL GR4,GR3
//       XOR  GR5,GR4
//       JUMP A
//       NOP
// B     DS   1
constexpr int Program[] = {0x1220, 1,      0x1120, Untouched, 0x2412, 0x1110, 14, 0x1030,
                           14,     0x2643, 0x3654, 0x6400,    4,      0,      0};
constexpr int NeverExecuted = 13;

void Prepare(Tcomet2& machine) {
    machine.InitComet2();
    machine.ReservedWords = static_cast<int>(std::size(Program));
    std::copy(std::begin(Program), std::end(Program), machine.Memory.begin());
}

template <class Work> double Seconds(Work work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

template <class Work> double MedianSeconds(int times, Work work) {
    std::vector<double> all;
    for (int i = 0; i < times; ++i)
        all.push_back(Seconds([&] { work(i); }));
    std::nth_element(all.begin(), all.begin() + times / 2, all.end());
    return all[static_cast<std::size_t>(times) / 2];
}

void CompareWithPlainLoop(Tcomet2& machine) {
    double plain = 1e9;
    double debugged = 1e9;
    for (int i = 0; i < 9; ++i) { // by turns, so that a busy system hinders both
        Prepare(machine);
        plain = std::min(plain, Seconds([&] { machine.RunLimited(Middle); }));
        Prepare(machine);
        Debugger debugger(machine);
        debugger.SetBreakpoint(NeverExecuted);
        debugger.BeginRun(Way::On);
        debugged = std::min(debugged, Seconds([&] { debugger.Work(Middle); }));
        debugged *= static_cast<double>(Middle) / static_cast<double>(debugger.Now());
    }
    std::printf("on with a breakpoint   %7.0f million instructions a second, %.2f of the plain loop\n",
                Middle / debugged * 1e-6, plain / debugged);
}

void ShowWatch(Tcomet2& machine, const Cell& cell, const char* what) {
    Prepare(machine);
    Debugger debugger(machine);
    debugger.BeginGo(10);
    debugger.Finish();
    debugger.SetWatch(cell);
    debugger.BeginRun(Way::On);
    const double time = Seconds([&] { debugger.Work(Middle); });
    std::printf("watching %-13s %7.0f million instructions a second\n", what,
                static_cast<double>(debugger.Now()) / time * 1e-6);
}

void ShowWho(Tcomet2& machine, const Cell& cell, const char* what) {
    Prepare(machine);
    Debugger debugger(machine);
    debugger.BeginGo(Middle);
    debugger.Finish();
    debugger.BeginWho(cell);
    const double time = Seconds([&] { debugger.Finish(); });
    std::printf("who changed %-10s %7.2f s, %lld instructions back\n", what, time,
                debugger.Result().change ? static_cast<long long>(Middle - debugger.Result().change->moment) : -1LL);
}

void ShowJumps(Tcomet2& machine) {
    Prepare(machine);
    Debugger debugger(machine);
    const auto go = [&debugger](Moment moment) {
        debugger.BeginGo(moment);
        debugger.Finish();
    };
    go(Long);
    std::printf("a step back            %7.2f ms\n", MedianSeconds(201, [&](int) { go(debugger.Now() - 1); }) * 1e3);
    std::srand(1);
    const double jump = MedianSeconds(101, [&](int) { go(std::rand() % Long); });
    std::printf("a jump to any moment   %7.2f ms\n", jump * 1e3);
    go(Long);
    std::printf("a step back behind it  %7.2f ms\n", MedianSeconds(201, [&](int) { go(debugger.Now() - 1); }) * 1e3);
    debugger.SetBreakpoint(0);
    debugger.BeginRun(Way::Back);
    std::printf("back to a breakpoint   %7.2f s, 1,000,000,000 instructions back\n",
                Seconds([&] { debugger.Finish(); }));
}

} // namespace

int main() {
    modeFlags->Pipe = &DefaultPipeline();
    const auto machine = std::make_unique<Tcomet2>();
    CompareWithPlainLoop(*machine);
    ShowWatch(*machine, {Cell::Kind::Word, Untouched}, "a word");
    ShowWatch(*machine, {Cell::Kind::GR, 7}, "a register");
    ShowWho(*machine, {Cell::Kind::Word, Untouched}, "a word");
    ShowWho(*machine, {Cell::Kind::GR, 2}, "a register");
    ShowJumps(*machine);
}
