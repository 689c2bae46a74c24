// The COMET II as this machine runs it.
//
// Registers. GR0 to GR7 and every cell of memory and stack are 32 bits wide and hold a 16-bit word in their low half.
// Arithmetic, comparisons, flags and addresses take the low half; the high half is what the last write left: LD, ADDA,
// SUBA, SLA, SRA and SRL store sign-extended, LAD, ADDL, SUBL and SLL zero-extended, ST, PUSH, POP, AND, OR and XOR all
// 32 bits. PR is the address of the next instruction. SP counts down from 65535; the top of the stack is
// Stack[65535 - SP], apart from memory, so that no address reaches it. POP tests nothing: with SP above 65535 it gives
// 0. Flags: Fovf overflow, Fsign bit 15 of the result, Fzero result 0.
//
// Words. Bits 15 to 8 are the code, 7 to 4 the register r, 3 to 0 the index register x, or r2 in a form r1,r2. A
// two-word instruction has its address adr in the second word. The effective address E is adr for x = 0, else
// (adr + GRx) modulo 65536.
//
//   00 NOP                  20 24 ADDA   30 34 AND   50 SLA   61 JMI    70 PUSH   88 EXIT
//   10 LD  r,adr,x          21 25 SUBA   31 35 OR    51 SRA   62 JNZ    71 POP    F0 SVC
//   14 LD  r1,r2            22 26 ADDL   32 36 XOR   52 SLL   63 JZE    80 CALL
//   11 ST                   23 27 SUBL   40 44 CPA   53 SRL   64 JUMP   81 RET
//   12 LAD                               41 45 CPL            65 JPL, 66 JOV
//
// A turn of the loop: PR above the memory limit ends the run; the nibbles r and x are checked; the instruction is
// counted; it is executed. A signal is seen at the same comparison, because it pulls the limit down to 0. A nibble
// above 7 is allowed where the instruction has no such field: both in NOP and RET, r in the jumps, PUSH, CALL and SVC,
// x in POP. NOP asks for a whole cell of 0.
//
// Memory operands above the limit end the run; LAD, shifts, PUSH, jumps, CALL and SVC take E as it is. ST without an
// index register is not watched at all. With one it warns once in a run of a store behind the image, and ends the run
// at the store limit. Programs may rewrite themselves: every word is fetched when it is executed.

#include "machine/MachineMsgs.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "platform/Signals.h"
#include "timing/TTimeVcl.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tolvane {

namespace {

constexpr std::size_t CountedCells = 65000; // whose counts a run begins anew
constexpr int StoreRefused = 999;
constexpr int ReturnRefused = 99;

constexpr int Unsigned(int cell) {
    return cell & 0xFFFF;
}
constexpr int Signed(int cell) {
    return static_cast<std::int16_t>(cell & 0xFFFF);
}
constexpr int Bit(int value, int n) {
    return (value >> n) & 1;
}

// The flags between two instructions: `result` is negative for Fsign 1 and zero for Fzero 1.
struct Flags {
    int result;
    int fovf;
};

inline int Load(int operand, Flags& flags) {
    flags = {Signed(operand), 0};
    return flags.result;
}

inline int AddArithmetic(int gr, int operand, Flags& flags) {
    const int sum = Signed(gr) + Signed(operand);
    flags = {Signed(sum), sum != Signed(sum)};
    return flags.result;
}

inline int SubArithmetic(int gr, int operand, Flags& flags) {
    const int difference = Signed(gr) - Signed(operand);
    flags = {Signed(difference), difference != Signed(difference)};
    return flags.result;
}

inline int AddLogical(int gr, int operand, Flags& flags) {
    const int sum = Unsigned(gr) + Unsigned(operand);
    flags = {Signed(sum), sum > 0xFFFF};
    return Unsigned(sum);
}

inline int SubLogical(int gr, int operand, Flags& flags) {
    const int difference = Unsigned(gr) - Unsigned(operand);
    flags = {Signed(difference), difference < 0};
    return Unsigned(difference);
}

// The end of AND, OR and XOR.
inline int Logical(int cell, Flags& flags) {
    flags = {Signed(cell), 0};
    return cell;
}

// The shifts, by n of 0 to 65535. Fovf is the last bit shifted out.
inline int sla550(int gr, int n, Flags& flags) {
    const int v = Unsigned(gr);
    const int bits = n < 16 ? (v << n) & 0x7FFF : 0;
    flags = {Signed((v & 0x8000) | bits), 1 <= n && n <= 15 ? Bit(v, 15 - n) : 0};
    return flags.result;
}

inline int sra551(int gr, int n, Flags& flags) {
    const int count = std::min(n, 16);
    flags = {Signed(gr) >> count, count > 0 ? Bit(Unsigned(gr), std::min(count - 1, 15)) : 0};
    return flags.result;
}

inline int sll652(int gr, int n, Flags& flags) {
    const int v = Unsigned(gr);
    const int shifted = n <= 16 ? Unsigned(v << n) : 0;
    flags = {Signed(shifted), 1 <= n && n <= 16 ? Bit(v, 16 - n) : 0};
    return shifted;
}

inline int srl653(int gr, int n, Flags& flags) {
    const int v = Unsigned(gr);
    flags = {Signed(n <= 16 ? v >> n : 0), 1 <= n && n <= 16 ? Bit(v, n - 1) : 0};
    return flags.result;
}

// The high bits of the nibbles r and x: 0 in a field that names a register. An instruction may leave a field unused.
constexpr int NibbleR = 0x80;
constexpr int NibbleX = 0x08;

// Whether the stop is met when the second word of its instruction has been fetched, so that PR stands there.
bool StandsOnSecondWord(Stop stop) {
    return stop == Stop::OperandBeyondMemory || stop == Stop::StoreBeyondMemory || stop == Stop::StackFull;
}

} // namespace

void Tcomet2::BeginRun() {
    EffAdr = 0;
    PR = 0;
    MaxRunCount = 0;
    StoreWarned = false;
    InputEnds = 0;
    if (modeFlags->Pipe->clearsRunCount) std::memset(RunCount.data(), 0, CountedCells * sizeof RunCount[0]);
}

Stop Tcomet2::Run3() {
    Print(MachineMsg.Start);
    console::Flush();
    BeginRun();
    timer->SetRunStart();

    const Stop stop = [this] {
        const signals::Running running;
        return Execute<false>(0);
    }();
    if (stop == Stop::Interrupted || stop == Stop::InputEnded) return stop;
    if (stop == Stop::UnknownCode) {
        DspStop(stop);
        return stop;
    }
    timer->SetRunEnd();
    DspStop(stop);
    if (stop != Stop::OperandBeyondMemory) Print(MachineMsg.End);
    Print(MachineMsg.RunTime, {Utf8Arg{timer->DetTimeDiff_General("RunTime")}});
    return stop;
}

Stop Tcomet2::RunLimited(std::int64_t instructions) {
    BeginRun();
    const signals::Running running;
    const Stop stop = instructions > 0 ? Execute<true>(instructions) : Execute<false>(0);
    DspStop(stop);
    return stop;
}

Stop Tcomet2::RunTraced(std::int64_t instructions, const Observer& observe) {
    BeginRun();
    const signals::Running running;
    for (std::int64_t done = 0; instructions <= 0 || done < instructions; ++done) {
        Step step = NextStep();
        InputCells = 0;
        const Stop stop = Execute<true>(1);
        if (stop == Stop::LimitReached || stop == Stop::End) {
            step.written[1].cells = InputCells;
            observe(step);
        }
        if (stop == Stop::LimitReached) continue;
        DspStop(stop);
        return stop;
    }
    return Stop::LimitReached;
}

Stop Tcomet2::GoOn(std::int64_t instructions) {
    return Told(Execute<true>(instructions));
}

Stop Tcomet2::GoOnWatching(std::int64_t instructions, const Watched& watched) {
    return Told(Execute<true, true>(instructions, watched));
}

Stop Tcomet2::Told(Stop stop) {
    if (stop == Stop::LimitReached)
        Left = 0;
    else
        DspStop(stop);
    return stop;
}

Registers Tcomet2::RegistersNow() const {
    return {GR, PR, SP, Fovf, Fsign, Fzero};
}

// What the instruction at PR is going to write.
Step Tcomet2::NextStep() const {
    const auto cell = [this](int address) { return Memory[static_cast<std::size_t>(address)]; };
    const int w = cell(PR);
    const auto x = static_cast<std::size_t>(w & 7);
    const int e = Unsigned(cell(PR + 1) + (x == 0 ? 0 : GR[x]));
    Step step{w, cell(PR + 1), RegistersNow(), {}};
    if ((w >> 8 & 0xFF) == 0x11) step.written[0] = {e, 1};
    if ((w >> 8 & 0xFF) == 0xF0 && e == ServiceIn) step.written = {{{Unsigned(GR[2]), 1}, {Unsigned(GR[1]), 0}}};
    return step;
}

// The loop has been left because of a signal. SIGTERM and SIGHUP end the program behind its output.
Stop Tcomet2::Attend() {
    const bool interrupted = signals::TakeInterrupt();
    console::Flush();
    return interrupted ? Stop::Interrupted : Stop::None;
}

template <bool limited, bool watching>
Stop Tcomet2::Execute(std::int64_t instructions, [[maybe_unused]] const Watched& watched) {
    const int storeGuard = modeFlags->Pipe->storeGuard;
    const int reserved = ReservedWords;

    // Addresses and register numbers are indices here, so that none is extended at each use.
    auto pr = static_cast<std::size_t>(PR);
    auto e = static_cast<std::size_t>(EffAdr);
    Flags flags{Fzero != 0 ? 0 : (Fsign != 0 ? -1 : 1), Fovf};

    // The first address that is neither an instruction's nor a memory operand's. PR is compared with the copy of it in
    // LoopLimit, which signals pull down to 0.
    const auto limit = static_cast<std::size_t>(modeFlags->Pipe->maxMemory) + 1;
    Stop stop = Stop::None;
    int w = 0;
    std::size_t r = 0;
    std::size_t x = 0;

    [[maybe_unused]] const auto see = [&]() __attribute__((always_inline)) {
        return (*watched.cell & watched.bits) ^ (flags.fovf & watched.fovf) ^
               (static_cast<int>(flags.result < 0) & watched.fsign) ^
               (static_cast<int>(flags.result == 0) & watched.fzero);
    };
    [[maybe_unused]] const int seen = watching ? see() : 0;

// clang-format off
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wpedantic" // labels as values
// How an operation is reached. WebAssembly has no jump to an address from a table, and takes a switch. Elsewhere each
// operation jumps to the next one itself, so that the processor can tell their successors apart.
#ifdef __wasm__
#define OPERATION(code) case 0x##code
#define UNKNOWN_OPERATION default
#define TO_OPERATION() goto operation
#else
#define OPERATION(code) op_##code
#define UNKNOWN_OPERATION op_unknown
#define TO_OPERATION() goto* operations[static_cast<std::uint8_t>(w >> 8)]
#define L(code) &&op_##code
#define ____ &&op_unknown
    static const void* const operations[256] = {
        L(00), ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(10), L(11), L(12), ____, L(14), ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(20), L(21), L(22), L(23), L(24), L(25), L(26), L(27), ____, ____, ____, ____, ____, ____, ____, ____,
        L(30), L(31), L(32), ____, L(34), L(35), L(36), ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(40), L(41), ____, ____, L(44), L(45), ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(50), L(51), L(52), L(53), ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        ____, L(61), L(62), L(63), L(64), L(65), L(66), ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(70), L(71), ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(80), L(81), ____, ____, ____, ____, ____, ____, L(88), ____, ____, ____, ____, ____, ____, ____,
        ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
        L(F0), ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____, ____,
    };
#undef L
#undef ____
#endif

// The turn from the instruction before to the operation of the next one.
#define TURN()                                                                                                         \
    do {                                                                                                               \
        if constexpr (watching)                                                                                        \
            if (see() != seen) STOP(Stop::Changed);                                                                    \
        if constexpr (limited)                                                                                         \
            if (instructions-- == 0) STOP(Stop::LimitReached);                                                         \
        w = Memory[pr];                                                                                                \
        if (pr >= signals::LoopLimit.load(std::memory_order_relaxed)) [[unlikely]] goto beyond;                        \
        TO_OPERATION();                                                                                                \
    } while (false)
#define STOP(reason)                                                                                                   \
    do {                                                                                                               \
        stop = reason;                                                                                                 \
        goto out;                                                                                                      \
    } while (false)

// How an operation begins: its nibbles, which must be below 8 where they name a register, and its count.
#define ONE_WORD(code, nibbles) BEGIN(OPERATION(code), nibbles)
#define BEGIN(operation, nibbles)                                                                                      \
    operation:                                                                                                         \
        if ((w & (nibbles)) != 0) [[unlikely]] goto badRegister;                                                       \
        RunCount[pr] = static_cast<int>(static_cast<unsigned>(RunCount[pr]) + 1U);                                     \
        r = static_cast<unsigned>(w >> 4) & 7U;                                                                        \
        x = static_cast<unsigned>(w) & 7U;
#define EFFECTIVE_ADDRESS() e = static_cast<std::uint16_t>(Unsigned(Memory[pr + 1]) + (x == 0 ? 0 : Unsigned(GR[x])))
#define TWO_WORDS(code, nibbles)                                                                                       \
    ONE_WORD(code, nibbles)                                                                                            \
        EFFECTIVE_ADDRESS();
// For those who are called in the middle of a run.
#define KEEP_LEFT()                                                                                                    \
    do {                                                                                                               \
        if constexpr (limited) Left = instructions;                                                                    \
    } while (false)
// Refuses a memory operand that may not be read.
#define READABLE if (e >= limit) [[unlikely]] STOP(Stop::OperandBeyondMemory)
// How an operation ends. A jump that is taken ends in a branch of its own: PR then follows from what the processor
// expects, and does not wait for the flags.
#define GO_TO(address)                                                                                                 \
    do {                                                                                                               \
        pr = address;                                                                                                  \
        TURN();                                                                                                        \
    } while (false)
#define NEXT(words) GO_TO(pr + words)
#define JUMP_IF(condition)                                                                                             \
    do {                                                                                                               \
        if (condition) GO_TO(e);                                                                                       \
        NEXT(2);                                                                                                       \
    } while (false)

again:
    signals::SetLoopLimit(limit);
    TURN();
#ifdef __wasm__
operation:
    switch (static_cast<std::uint8_t>(w >> 8)) {
#endif
    ONE_WORD(00, 0) // NOP
        if (w != 0) STOP(Stop::NotANop);
        NEXT(1);
    TWO_WORDS(10, NibbleR | NibbleX) // LD
        READABLE;
        GR[r] = Load(Memory[e], flags);
        NEXT(2);
    ONE_WORD(14, NibbleR | NibbleX)
        GR[r] = Load(GR[x], flags);
        NEXT(1);
    TWO_WORDS(11, NibbleR | NibbleX) // ST
        if (const int a = static_cast<int>(e); x != 0 && (a >= storeGuard || (a >= reserved && !StoreWarned))) {
            StoreWarned = true;
            PR = static_cast<int>(pr) + 1;
            KEEP_LEFT();
            if (st511(a) == StoreRefused) STOP(Stop::StoreBeyondMemory);
        }
        Memory[e] = GR[r];
        NEXT(2);
    TWO_WORDS(12, NibbleR | NibbleX) // LAD
        GR[r] = static_cast<int>(e);
        NEXT(2);
    TWO_WORDS(20, NibbleR | NibbleX) // ADDA
        READABLE;
        GR[r] = AddArithmetic(GR[r], Memory[e], flags);
        NEXT(2);
    ONE_WORD(24, NibbleR | NibbleX)
        GR[r] = AddArithmetic(GR[r], GR[x], flags);
        NEXT(1);
    TWO_WORDS(21, NibbleR | NibbleX) // SUBA
        READABLE;
        GR[r] = SubArithmetic(GR[r], Memory[e], flags);
        NEXT(2);
    ONE_WORD(25, NibbleR | NibbleX)
        GR[r] = SubArithmetic(GR[r], GR[x], flags);
        NEXT(1);
    TWO_WORDS(22, NibbleR | NibbleX) // ADDL
        READABLE;
        GR[r] = AddLogical(GR[r], Memory[e], flags);
        NEXT(2);
    ONE_WORD(26, NibbleR | NibbleX)
        GR[r] = AddLogical(GR[r], GR[x], flags);
        NEXT(1);
    TWO_WORDS(23, NibbleR | NibbleX) // SUBL
        READABLE;
        GR[r] = SubLogical(GR[r], Memory[e], flags);
        NEXT(2);
    ONE_WORD(27, NibbleR | NibbleX)
        GR[r] = SubLogical(GR[r], GR[x], flags);
        NEXT(1);
    TWO_WORDS(30, NibbleR | NibbleX) // AND
        READABLE;
        GR[r] = Logical(GR[r] & Memory[e], flags);
        NEXT(2);
    ONE_WORD(34, NibbleR | NibbleX)
        GR[r] = Logical(GR[r] & GR[x], flags);
        NEXT(1);
    TWO_WORDS(31, NibbleR | NibbleX) // OR
        READABLE;
        GR[r] = Logical(GR[r] | Memory[e], flags);
        NEXT(2);
    ONE_WORD(35, NibbleR | NibbleX)
        GR[r] = Logical(GR[r] | GR[x], flags);
        NEXT(1);
    TWO_WORDS(32, NibbleR | NibbleX) // XOR
        READABLE;
        GR[r] = Logical(GR[r] ^ Memory[e], flags);
        NEXT(2);
    ONE_WORD(36, NibbleR | NibbleX)
        GR[r] = Logical(GR[r] ^ GR[x], flags);
        NEXT(1);
    TWO_WORDS(40, NibbleR | NibbleX) // CPA: the difference has the sign and the zero of the comparison
        READABLE;
        flags = {Signed(GR[r]) - Signed(Memory[e]), 0};
        NEXT(2);
    ONE_WORD(44, NibbleR | NibbleX)
        flags = {Signed(GR[r]) - Signed(GR[x]), 0};
        NEXT(1);
    TWO_WORDS(41, NibbleR | NibbleX) // CPL
        READABLE;
        flags = {Unsigned(GR[r]) - Unsigned(Memory[e]), 0};
        NEXT(2);
    ONE_WORD(45, NibbleR | NibbleX)
        flags = {Unsigned(GR[r]) - Unsigned(GR[x]), 0};
        NEXT(1);
    TWO_WORDS(50, NibbleR | NibbleX)
        GR[r] = sla550(GR[r], static_cast<int>(e), flags);
        NEXT(2);
    TWO_WORDS(51, NibbleR | NibbleX)
        GR[r] = sra551(GR[r], static_cast<int>(e), flags);
        NEXT(2);
    TWO_WORDS(52, NibbleR | NibbleX)
        GR[r] = sll652(GR[r], static_cast<int>(e), flags);
        NEXT(2);
    TWO_WORDS(53, NibbleR | NibbleX)
        GR[r] = srl653(GR[r], static_cast<int>(e), flags);
        NEXT(2);
    TWO_WORDS(61, NibbleX) // JMI
        JUMP_IF(flags.result < 0);
    TWO_WORDS(62, NibbleX) // JNZ
        JUMP_IF(flags.result != 0);
    TWO_WORDS(63, NibbleX) // JZE
        JUMP_IF(flags.result == 0);
    TWO_WORDS(64, NibbleX) // JUMP
        GO_TO(e);
    TWO_WORDS(65, NibbleX) // JPL
        JUMP_IF(flags.result > 0);
    TWO_WORDS(66, NibbleX) // JOV
        JUMP_IF(flags.fovf != 0);
    TWO_WORDS(70, NibbleX) // PUSH
        if (!PushWord(static_cast<int>(e))) STOP(Stop::StackFull);
        NEXT(2);
    ONE_WORD(71, NibbleR) // POP
        GR[r] = SP > StackBottom ? 0 : Stack[static_cast<std::size_t>(StackBottom - SP)];
        if (SP < std::numeric_limits<int>::max()) ++SP;
        NEXT(1);
    TWO_WORDS(80, NibbleX) // CALL
        if (OS < std::numeric_limits<int>::max()) ++OS;
        if (!PushWord(static_cast<int>(pr) + 2)) STOP(Stop::StackFull);
        GO_TO(e);
    ONE_WORD(81, 0) // RET
        if (OS == 0) STOP(Stop::End);
        --OS;
        if (ret581() == ReturnRefused) STOP(Stop::ReturnWithoutStack);
        GO_TO(static_cast<std::size_t>(PR));
    ONE_WORD(88, NibbleR | NibbleX) // EXIT
        ++pr;
        STOP(Stop::End);
    ONE_WORD(F0, NibbleX) // SVC
        EffAdr = static_cast<int>(e); // for an IN that is taken back
        EFFECTIVE_ADDRESS();
        PR = static_cast<int>(pr); // for what the OS says
        KEEP_LEFT();
        stop = OsSvc(static_cast<int>(e));
        if constexpr (limited) instructions = Left; // OUT may have made them fewer
        if (stop == Stop::InputWanted) goto wanting;
        if (stop != Stop::None) goto out;
        NEXT(2);
    BEGIN(UNKNOWN_OPERATION, NibbleR | NibbleX)
        STOP(Stop::UnknownCode);
#ifdef __wasm__
    }
#endif
#undef OPERATION
#undef UNKNOWN_OPERATION
#undef TO_OPERATION
#undef TURN
#undef STOP
#undef BEGIN
#undef ONE_WORD
#undef TWO_WORDS
#undef EFFECTIVE_ADDRESS
#undef KEEP_LEFT
#undef READABLE
#undef GO_TO
#undef NEXT
#undef JUMP_IF
#pragma GCC diagnostic pop
    // clang-format on

beyond:
    if (pr >= limit) {
        stop = Stop::PrBeyondMemory;
        goto out;
    }
    if constexpr (limited) ++instructions; // this turn has not been one
    stop = Attend();
    if (stop == Stop::None) goto again;
    goto out;
wanting:
    if constexpr (limited) ++instructions;
    RunCount[pr] = static_cast<int>(static_cast<unsigned>(RunCount[pr]) - 1U);
    e = static_cast<std::size_t>(EffAdr);
    goto out;
badRegister:
    stop = Stop::BadRegister;
out:
    PR = static_cast<int>(pr) + (StandsOnSecondWord(stop) ? 1 : 0);
    EffAdr = static_cast<int>(e);
    if constexpr (limited) Left = instructions;
    Fovf = flags.fovf;
    Fsign = flags.result < 0 ? 1 : 0;
    Fzero = flags.result == 0 ? 1 : 0;
    return stop;
}

int Tcomet2::FaultAddress(Stop stop) const {
    return PR - (StandsOnSecondWord(stop) ? 1 : 0);
}

// The guard of an indexed store: refuses it from the limit on, else warns. PR stands on the second word.
int Tcomet2::st511(int address) const {
    const int a = PR - 1;
    if (address >= modeFlags->Pipe->storeLimit) {
        TellStop(MachineMsg.StoreBeyondMemory, {modeFlags->Pipe->storeLimit, a});
        return StoreRefused;
    }
    const auto cell = static_cast<std::size_t>(a);
    const int size =
        modeFlags->Lang == 0 ? ReservedWords - 1 : ReservedWords; // the Japanese text names the last address
    TellWarning(MachineMsg.StoreWarning, {size, address, a, Memory[cell], RunCount[cell]});
    return 0;
}

int Tcomet2::ret581() {
    if (SP > StackBottom) return ReturnRefused;
    PR = Unsigned(Stack[static_cast<std::size_t>(StackBottom - SP)]);
    ++SP;
    return 0;
}

// False if the word is one too many. Above the bottom of the stack there is no element, and nothing is written.
bool Tcomet2::PushWord(int word) {
    --SP;
    const int i = StackBottom - SP;
    if (i > StackWords) return false;
    if (i >= 0) Stack[static_cast<std::size_t>(i)] = word;
    return true;
}

void Tcomet2::DspStop(Stop stop) const {
    const int w = Memory[static_cast<std::size_t>(PR)];
    switch (stop) {
    case Stop::PrBeyondMemory:
        TellStop(MachineMsg.PrBeyondMemory, {modeFlags->Pipe->maxMemory, PR});
        return;
    case Stop::BadRegister:
        TellStop(MachineMsg.BadRegister, {w, PR});
        return;
    case Stop::OperandBeyondMemory:
        return DspOperandBeyondMemory();
    case Stop::NotANop:
        TellStop(MachineMsg.NotANop, {w, PR});
        return;
    case Stop::UnknownCode:
        TellStop(MachineMsg.UnknownCode, {w, PR});
        return;
    case Stop::ReturnWithoutStack:
        TellStop(MachineMsg.ReturnWithoutStack, {SP});
        return;
    case Stop::StackFull:
        TellStop(MachineMsg.StackFull, {PR - 1});
        return;
    case Stop::StoreBeyondMemory: // st511 has told it
    case Stop::End:
    case Stop::LimitReached:
    case Stop::Interrupted:
    case Stop::InputEnded:
    case Stop::InputWanted:
    case Stop::Changed:
    case Stop::None:
        return;
    }
}

void Tcomet2::DspOperandBeyondMemory() const {
    const int a = PR - 1;
    const int first = Memory[static_cast<std::size_t>(a)];
    const int second = Memory[static_cast<std::size_t>(PR)];
    const int named = Memory[static_cast<std::size_t>(Unsigned(second))];
    TellStop(MachineMsg.OperandBeyondMemory);
    TellStop(MachineMsg.OperandWords, {Signed(a), a, first, Signed(PR), PR, second});
    TellStop(MachineMsg.OperandCell, {Signed(second), Unsigned(named), Signed(named)});
}

} // namespace tolvane
