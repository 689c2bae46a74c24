// The run loop against a bare switch loop without checks and counts, over the same words: a loop of six instructions
// with memory operands.

#include "Timing.h"
#include "machine/Tcomet2.h"

#include <array>
#include <cstdio>
#include <memory>

using namespace tolvane;

namespace {

constexpr int Rounds = 20; // of 65,536 turns each
constexpr double Instructions = 6.0 * 65536 * Rounds;

constexpr std::array<int, 21> Words = {
    0x1010, 19,    // LOOP LD GR1,SUM
    0x2210, 20,    //      ADDL GR1,ONE
    0x1110, 19,    //      ST GR1,SUM
    0x3230, 19,    //      XOR GR3,SUM
    0x2320, 20,    //      SUBL GR2,ONE
    0x6200, 0,     //      JNZ LOOP
    0x2340, 20,    //      SUBL GR4,ONE
    0x6200, 0,     //      JNZ LOOP
    0x8100, 0,  0, //      RET
    0,             // SUM  DC 0
    1,             // ONE  DC 1
};

void Prepare(Tcomet2& machine) {
    machine.InitComet2();
    machine.ReservedWords = static_cast<int>(Words.size());
    for (std::size_t a = 0; a < Words.size(); ++a)
        machine.Memory[a] = Words[a];
    machine.GR[4] = Rounds;
}

// What an interpreter of these words does at the least.
void RunBare(Tcomet2& machine) {
    int* const memory = machine.Memory.data();
    int* const gr = machine.GR.data();
    int pr = 0;
    int result = 1;
    int fovf = 0;
    for (;;) {
        const int w = memory[pr];
        const int r = (w >> 4) & 7;
        const int x = w & 7;
        const int e = x == 0 ? memory[pr + 1] & 0xFFFF : (memory[pr + 1] + gr[x]) & 0xFFFF;
        int value = 0;
        switch ((w >> 8) & 0xFF) {
        case 0x10:
            gr[r] = result = static_cast<std::int16_t>(memory[e]);
            fovf = 0;
            pr += 2;
            break;
        case 0x11:
            memory[e] = gr[r];
            pr += 2;
            break;
        case 0x12:
            gr[r] = e;
            pr += 2;
            break;
        case 0x22:
            value = (gr[r] & 0xFFFF) + (memory[e] & 0xFFFF);
            gr[r] = value & 0xFFFF;
            result = static_cast<std::int16_t>(value);
            fovf = value > 0xFFFF;
            pr += 2;
            break;
        case 0x23:
            value = (gr[r] & 0xFFFF) - (memory[e] & 0xFFFF);
            gr[r] = value & 0xFFFF;
            result = static_cast<std::int16_t>(value);
            fovf = value < 0;
            pr += 2;
            break;
        case 0x32:
            gr[r] ^= memory[e];
            result = static_cast<std::int16_t>(gr[r]);
            fovf = 0;
            pr += 2;
            break;
        case 0x61:
            pr = result < 0 ? e : pr + 2;
            break;
        case 0x62:
            pr = result != 0 ? e : pr + 2;
            break;
        case 0x63:
            pr = result == 0 ? e : pr + 2;
            break;
        case 0x64:
            pr = e;
            break;
        case 0x66:
            pr = fovf != 0 ? e : pr + 2;
            break;
        default:
            machine.PR = pr;
            return;
        }
    }
}

} // namespace

int main() {
    const auto machine = std::make_unique<Tcomet2>();
    const auto prepare = [&] { Prepare(*machine); };
    double bare = 1e9;
    double full = 1e9;
    for (int i = 0; i < 60; ++i) { // by turns and shortly, so that a busy system hinders both
        bare = std::min(bare, bench::LeastSeconds(1, prepare, [&] { RunBare(*machine); }));
        full = std::min(full, bench::LeastSeconds(1, prepare, [&] { machine->Run3(); }));
    }
    std::printf("\nbare loop  %8.1f million instructions a second\n", Instructions / bare / 1e6);
    std::printf("run loop   %8.1f million instructions a second\n", Instructions / full / 1e6);
    std::printf("ratio      %8.2f\n", bare / full);
}
