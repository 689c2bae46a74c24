// The run loop against two bare interpreters of the same words, which check and count nothing: a switch in a loop, and
// a loop whose operations each jump to the next one's code themselves ("direct-threaded").

#include "Timing.h"
#include "machine/Tcomet2.h"

#include <array>
#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

using namespace tolvane;

namespace {

struct Program {
    const char* name;
    int counter; // the register that counts the rounds down
    int rounds;  // of 65,536 turns each
    std::vector<int> words;
};

const Program Six{"six instructions",
                  4,
                  20,
                  {
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
                  }};

const Program EveryKind{"every kind of instruction",
                        5,
                        3,
                        {
                            0x1010, 84,           // 0  LOOP LD   GR1,A
                            0x1020, 85,           // 2       LD   GR2,B
                            0x1270, 2,            // 4       LAD  GR7,2
                            0x1037, 84,           // 6       LD   GR3,A,GR7
                            0x1441,               // 8       LD   GR4,GR1
                            0x2010, 85,           // 9       ADDA GR1,B
                            0x2414,               // 11      ADDA GR1,GR4
                            0x2127, 84,           // 12      SUBA GR2,A,GR7
                            0x2521,               // 14      SUBA GR2,GR1
                            0x2230, 87,           // 15      ADDL GR3,ONE
                            0x2631,               // 17      ADDL GR3,GR1
                            0x2330, 84,           // 18      SUBL GR3,A
                            0x2732,               // 20      SUBL GR3,GR2
                            0x1130, 88,           // 21      ST   GR3,T
                            0x1117, 87,           // 23      ST   GR1,ONE,GR7
                            0x3030, 89,           // 25      AND  GR3,T2
                            0x3443,               // 27      AND  GR4,GR3
                            0x3140, 84,           // 28      OR   GR4,A
                            0x3534,               // 30      OR   GR3,GR4
                            0x3230, 85,           // 31      XOR  GR3,B
                            0x3631,               // 33      XOR  GR3,GR1
                            0x4030, 84,           // 34      CPA  GR3,A
                            0x6100, 38,           // 36      JMI  38
                            0x4412,               // 38      CPA  GR1,GR2
                            0x6500, 41,           // 39      JPL  41
                            0x4110, 85,           // 41      CPL  GR1,B
                            0x6300, 45,           // 43      JZE  45
                            0x4522,               // 45      CPL  GR2,GR2
                            0x6300, 49,     0,    // 46      JZE  49
                            0x6200, 0,            // 49      JNZ  LOOP
                            0x5010, 1,            // 51      SLA  GR1,1
                            0x6600, 55,           // 53      JOV  55
                            0x5110, 2,            // 55      SRA  GR1,2
                            0x5220, 3,            // 57      SLL  GR2,3
                            0x5327, 0,            // 59      SRL  GR2,0,GR7
                            0x7001, 0,            // 61      PUSH 0,GR1
                            0x7130,               // 63      POP  GR3
                            0x8000, 82,           // 64      CALL SUB
                            0x6400, 69,     0,    // 66      JUMP 69
                            0,                    // 69      NOP
                            0x1244, 1,            // 70      LAD  GR4,1,GR4
                            0x2360, 87,           // 72      SUBL GR6,ONE
                            0x6200, 0,            // 74      JNZ  LOOP
                            0x2350, 87,           // 76      SUBL GR5,ONE
                            0x6200, 0,            // 78      JNZ  LOOP
                            0x8100, 0,            // 80      RET
                            0x2500,               // 82 SUB  SUBA GR0,GR0
                            0x8100,               // 83      RET
                            5,      0xFFFD,       // 84 A, B
                            12,     1,      0, 0, // 86, ONE, T, T2
                        }};

void Prepare(const Program& program, Tcomet2& machine) {
    machine.InitComet2();
    machine.ReservedWords = static_cast<int>(program.words.size());
    std::copy(program.words.begin(), program.words.end(), machine.Memory.begin());
    machine.GR[static_cast<std::size_t>(program.counter)] = program.rounds;
}

// The registers of a bare interpreter, and what it does with them.
struct Bare {
    explicit Bare(Tcomet2& machine) : memory(machine.Memory.data()), gr(machine.GR.data()) {}

    int* const memory;
    int* const gr;
    int stack[StackWords] = {};
    int sp = StackWords;
};

#define BARE_STATE                                                                                                     \
    int* const memory = bare.memory;                                                                                   \
    int* const gr = bare.gr;                                                                                           \
    int* const stack = bare.stack;                                                                                     \
    int sp = bare.sp;                                                                                                  \
    int pr = 0;                                                                                                        \
    int result = 1;                                                                                                    \
    int fovf = 0;                                                                                                      \
    int w = 0;                                                                                                         \
    int r = 0;                                                                                                         \
    int x = 0;                                                                                                         \
    int e = 0;                                                                                                         \
    const auto AddA = [&](int operand) __attribute__((always_inline)) {                                                \
        const int sum = static_cast<std::int16_t>(gr[r]) + static_cast<std::int16_t>(operand);                         \
        gr[r] = result = static_cast<std::int16_t>(sum);                                                               \
        fovf = sum != result;                                                                                          \
    };                                                                                                                 \
    const auto SubA = [&](int operand) __attribute__((always_inline)) {                                                \
        const int difference = static_cast<std::int16_t>(gr[r]) - static_cast<std::int16_t>(operand);                  \
        gr[r] = result = static_cast<std::int16_t>(difference);                                                        \
        fovf = difference != result;                                                                                   \
    };                                                                                                                 \
    const auto AddL = [&](int operand) __attribute__((always_inline)) {                                                \
        const int sum = (gr[r] & 0xFFFF) + (operand & 0xFFFF);                                                         \
        gr[r] = sum & 0xFFFF;                                                                                          \
        result = static_cast<std::int16_t>(sum);                                                                       \
        fovf = sum > 0xFFFF;                                                                                           \
    };                                                                                                                 \
    const auto SubL = [&](int operand) __attribute__((always_inline)) {                                                \
        const int difference = (gr[r] & 0xFFFF) - (operand & 0xFFFF);                                                  \
        gr[r] = difference & 0xFFFF;                                                                                   \
        result = static_cast<std::int16_t>(difference);                                                                \
        fovf = difference < 0;                                                                                         \
    };                                                                                                                 \
    const auto SetLogical = [&](int value) __attribute__((always_inline)) {                                            \
        gr[r] = value;                                                                                                 \
        result = static_cast<std::int16_t>(value);                                                                     \
        fovf = 0;                                                                                                      \
    }

#define BARE_FETCH                                                                                                     \
    w = memory[pr];                                                                                                    \
    r = w >> 4 & 7;                                                                                                    \
    x = w & 7;                                                                                                         \
    e = x == 0 ? memory[pr + 1] & 0xFFFF : (memory[pr + 1] + gr[x]) & 0xFFFF

// clang-format off
[[gnu::noinline]] void RunSwitch(Bare& bare) {
    BARE_STATE;
    for (;;) {
        BARE_FETCH;
        switch (w >> 8 & 0xFF) {
#define OPERATION(code) case code:
#define NEXT break;
#include "BareOperations.inc"
#undef OPERATION
#undef NEXT
        default:
            return;
        }
    }
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic" // labels as values
#ifdef __clang__
#pragma clang diagnostic ignored "-Winitializer-overrides"
#pragma clang diagnostic ignored "-Wc99-designator"
#endif
[[gnu::noinline]] void RunThreaded(Bare& bare) {
    BARE_STATE;
    static std::array<const void*, 256> labels;
    labels.fill(&&unknown);
#define OPERATION(code) labels[code] = &&label_##code; if (false) { label_##code:
#define NEXT BARE_FETCH; goto* labels[static_cast<std::size_t>(w >> 8 & 0xFF)]; }
#include "BareOperations.inc"
#undef OPERATION
#undef NEXT
    BARE_FETCH;
    goto* labels[static_cast<std::size_t>(w >> 8 & 0xFF)];
unknown:
    return;
}
#pragma GCC diagnostic pop
// clang-format on

void Compare(const Program& program) {
    const auto machine = std::make_unique<Tcomet2>();
    const auto prepare = [&] { Prepare(program, *machine); };
    prepare();
    machine->RunLimited(0);
    const double instructions = std::accumulate(machine->RunCount.begin(), machine->RunCount.end(), 0.0);
    double plainSwitch = 1e9;
    double threaded = 1e9;
    double full = 1e9;
    for (int i = 0; i < 100; ++i) { // by turns and shortly, so that a busy system hinders all of them
        const auto bare = [&](void (*run)(Bare&)) {
            return bench::LeastSeconds(1, prepare, [&] {
                Bare state(*machine);
                run(state);
            });
        };
        plainSwitch = std::min(plainSwitch, bare(RunSwitch));
        threaded = std::min(threaded, bare(RunThreaded));
        full = std::min(full, bench::LeastSeconds(1, prepare, [&] { machine->RunLimited(0); }));
    }
    const auto speed = [instructions](double seconds) { return instructions / seconds / 1e6; };
    std::printf("%-26s  switch %5.0f  threaded %5.0f  run loop %5.0f million instructions a second; ratios %.2f %.2f\n",
                program.name, speed(plainSwitch), speed(threaded), speed(full), plainSwitch / full, threaded / full);
}

} // namespace

int main() {
    modeFlags->Pipe = &DefaultPipeline();
    Compare(Six);
    Compare(EveryKind);
}
