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
// counted; it is executed. A nibble above 7 is allowed where the instruction has no such field: both in NOP and RET, r
// in the jumps, PUSH, CALL and SVC, x in POP. NOP asks for a whole cell of 0.
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
#include <limits>

namespace tolvane {

namespace {

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

// The high bits of the nibbles r and x that must be 0, by code: an instruction may leave a nibble unused.
constexpr int NibbleR = 0x80;
constexpr int NibbleX = 0x08;
constexpr std::array<std::uint8_t, 256> CheckedNibbles = [] {
    std::array<std::uint8_t, 256> checked{};
    checked.fill(NibbleR | NibbleX);
    checked[0x00] = checked[0x81] = 0;
    for (auto code : {0x61U, 0x62U, 0x63U, 0x64U, 0x65U, 0x66U, 0x70U, 0x80U, 0xF0U})
        checked[code] = NibbleX;
    checked[0x71] = NibbleR;
    return checked;
}();

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
    if (modeFlags->Pipe->clearsRunCount) std::fill(RunCount.begin(), RunCount.begin() + 65000, 0);
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

// What the instruction at PR is going to write.
Step Tcomet2::NextStep() const {
    const auto cell = [this](int address) { return Memory[static_cast<std::size_t>(address)]; };
    const int w = cell(PR);
    const auto x = static_cast<std::size_t>(w & 7);
    const int e = Unsigned(cell(PR + 1) + (x == 0 ? 0 : GR[x]));
    Step step{w, {GR, PR, SP, Fovf, Fsign, Fzero}, {}};
    if ((w >> 8 & 0xFF) == 0x11) step.written[0] = {e, 1};
    if ((w >> 8 & 0xFF) == 0xF0 && e == ServiceIn) step.written = {{{Unsigned(GR[2]), 1}, {Unsigned(GR[1]), 0}}};
    return step;
}

// The loop has been left because of a signal. SIGTERM and SIGHUP end the program behind its output.
Stop Tcomet2::Attend() {
    console::Flush();
    return signals::TakeInterrupt() ? Stop::Interrupted : Stop::None;
}

template <bool limited> Stop Tcomet2::Execute(std::int64_t instructions) {
    const int storeGuard = modeFlags->Pipe->storeGuard;
    const int reserved = ReservedWords;

    // Addresses and register numbers are indices here, so that none is extended at each use.
    auto pr = static_cast<std::size_t>(PR);
    auto e = static_cast<std::size_t>(EffAdr);
    Flags flags{Fzero != 0 ? 0 : (Fsign != 0 ? -1 : 1), Fovf};

    // The first address that is neither an instruction's nor a memory operand's. What the loop compares PR with is its
    // copy in LoopLimit: a stop and a signal pull that down to 0, so that the loop asks for nothing else.
    const auto limit = static_cast<std::size_t>(modeFlags->Pipe->maxMemory) + 1;
    Stop stop = Stop::None;
    const auto end = [&stop](Stop reason) {
        stop = reason;
        signals::LoopLimit.store(0, std::memory_order_relaxed);
    };
    // Whether the memory operand at an address may be read.
    const auto readable = [limit, &end](std::size_t address) {
        if (address < limit) return true;
        end(Stop::OperandBeyondMemory);
        return false;
    };

    signals::SetLoopLimit(limit);
    for (;;) {
        if constexpr (limited) {
            if (instructions == 0 && stop == Stop::None) stop = Stop::LimitReached;
            if (stop == Stop::LimitReached) break;
        }
        const int w = Memory[pr];
        const auto code = static_cast<std::uint8_t>(w >> 8);
        const bool badNibble = (w & CheckedNibbles[code]) != 0;
        // One branch for all ways out: two would slow every turn.
        if ((pr >= signals::LoopLimit.load(std::memory_order_relaxed)) | badNibble) [[unlikely]] {
            if (stop == Stop::None && pr >= limit) stop = Stop::PrBeyondMemory;
            if (stop == Stop::None && badNibble) stop = Stop::BadRegister;
            if (stop == Stop::None) stop = Attend();
            if (stop != Stop::None) break;
            signals::SetLoopLimit(limit);
            continue;
        }
        if constexpr (limited) --instructions;
        RunCount[pr] = static_cast<int>(static_cast<unsigned>(RunCount[pr]) + 1U);

        const std::size_t r = static_cast<unsigned>(w >> 4) & 7U;
        const std::size_t x = static_cast<unsigned>(w) & 7U;
        e = static_cast<std::uint16_t>(Unsigned(Memory[pr + 1]) + (x == 0 ? 0 : Unsigned(GR[x])));
        switch (code) {
        case 0x00: // NOP
            if (w == 0)
                ++pr;
            else
                end(Stop::NotANop);
            break;
        case 0x10: // LD
            if (!readable(e)) break;
            GR[r] = Load(Memory[e], flags);
            pr += 2;
            break;
        case 0x14:
            GR[r] = Load(GR[x], flags);
            ++pr;
            break;
        case 0x11: // ST
            if (const int a = static_cast<int>(e); x != 0 && (a >= storeGuard || (a >= reserved && !StoreWarned))) {
                StoreWarned = true;
                PR = static_cast<int>(pr) + 1;
                if (st511(a) == StoreRefused) {
                    end(Stop::StoreBeyondMemory);
                    break;
                }
            }
            Memory[e] = GR[r];
            pr += 2;
            break;
        case 0x12: // LAD
            GR[r] = static_cast<int>(e);
            pr += 2;
            break;
        case 0x20: // ADDA
            if (!readable(e)) break;
            GR[r] = AddArithmetic(GR[r], Memory[e], flags);
            pr += 2;
            break;
        case 0x24:
            GR[r] = AddArithmetic(GR[r], GR[x], flags);
            ++pr;
            break;
        case 0x21: // SUBA
            if (!readable(e)) break;
            GR[r] = SubArithmetic(GR[r], Memory[e], flags);
            pr += 2;
            break;
        case 0x25:
            GR[r] = SubArithmetic(GR[r], GR[x], flags);
            ++pr;
            break;
        case 0x22: // ADDL
            if (!readable(e)) break;
            GR[r] = AddLogical(GR[r], Memory[e], flags);
            pr += 2;
            break;
        case 0x26:
            GR[r] = AddLogical(GR[r], GR[x], flags);
            ++pr;
            break;
        case 0x23: // SUBL
            if (!readable(e)) break;
            GR[r] = SubLogical(GR[r], Memory[e], flags);
            pr += 2;
            break;
        case 0x27:
            GR[r] = SubLogical(GR[r], GR[x], flags);
            ++pr;
            break;
        case 0x30: // AND
            if (!readable(e)) break;
            GR[r] = Logical(GR[r] & Memory[e], flags);
            pr += 2;
            break;
        case 0x34:
            GR[r] = Logical(GR[r] & GR[x], flags);
            ++pr;
            break;
        case 0x31: // OR
            if (!readable(e)) break;
            GR[r] = Logical(GR[r] | Memory[e], flags);
            pr += 2;
            break;
        case 0x35:
            GR[r] = Logical(GR[r] | GR[x], flags);
            ++pr;
            break;
        case 0x32: // XOR
            if (!readable(e)) break;
            GR[r] = Logical(GR[r] ^ Memory[e], flags);
            pr += 2;
            break;
        case 0x36:
            GR[r] = Logical(GR[r] ^ GR[x], flags);
            ++pr;
            break;
        case 0x40: // CPA: the difference has the sign and the zero of the comparison
            if (!readable(e)) break;
            flags = {Signed(GR[r]) - Signed(Memory[e]), 0};
            pr += 2;
            break;
        case 0x44:
            flags = {Signed(GR[r]) - Signed(GR[x]), 0};
            ++pr;
            break;
        case 0x41: // CPL
            if (!readable(e)) break;
            flags = {Unsigned(GR[r]) - Unsigned(Memory[e]), 0};
            pr += 2;
            break;
        case 0x45:
            flags = {Unsigned(GR[r]) - Unsigned(GR[x]), 0};
            ++pr;
            break;
        case 0x50:
            GR[r] = sla550(GR[r], static_cast<int>(e), flags);
            pr += 2;
            break;
        case 0x51:
            GR[r] = sra551(GR[r], static_cast<int>(e), flags);
            pr += 2;
            break;
        case 0x52:
            GR[r] = sll652(GR[r], static_cast<int>(e), flags);
            pr += 2;
            break;
        case 0x53:
            GR[r] = srl653(GR[r], static_cast<int>(e), flags);
            pr += 2;
            break;
        case 0x61: // JMI
            pr = flags.result < 0 ? e : pr + 2;
            break;
        case 0x62: // JNZ
            pr = flags.result != 0 ? e : pr + 2;
            break;
        case 0x63: // JZE
            pr = flags.result == 0 ? e : pr + 2;
            break;
        case 0x64: // JUMP
            pr = e;
            break;
        case 0x65: // JPL
            pr = flags.result > 0 ? e : pr + 2;
            break;
        case 0x66: // JOV
            pr = flags.fovf != 0 ? e : pr + 2;
            break;
        case 0x70: // PUSH
            if (PushWord(static_cast<int>(e)))
                pr += 2;
            else
                end(Stop::StackFull);
            break;
        case 0x71: // POP
            GR[r] = SP > StackBottom ? 0 : Stack[static_cast<std::size_t>(StackBottom - SP)];
            if (SP < std::numeric_limits<int>::max()) ++SP;
            ++pr;
            break;
        case 0x80: // CALL
            if (OS < std::numeric_limits<int>::max()) ++OS;
            if (PushWord(static_cast<int>(pr) + 2))
                pr = e;
            else
                end(Stop::StackFull);
            break;
        case 0x81: // RET
            if (OS == 0) {
                end(Stop::End);
                break;
            }
            --OS;
            if (ret581() == ReturnRefused)
                end(Stop::ReturnWithoutStack);
            else
                pr = static_cast<std::size_t>(PR);
            break;
        case 0x88: // EXIT
            ++pr;
            end(Stop::End);
            break;
        case 0xF0:                     // SVC
            PR = static_cast<int>(pr); // for what the OS says
            if (const Stop asked = OsSvc(static_cast<int>(e)); asked != Stop::None)
                end(asked);
            else
                pr += 2;
            break;
        default:
            end(Stop::UnknownCode);
            break;
        }
    }
    PR = static_cast<int>(pr) + (StandsOnSecondWord(stop) ? 1 : 0);
    EffAdr = static_cast<int>(e);
    Fovf = flags.fovf;
    Fsign = flags.result < 0 ? 1 : 0;
    Fzero = flags.result == 0 ? 1 : 0;
    return stop;
}

int Tcomet2::FaultAddress(Stop stop) const {
    return PR - (StandsOnSecondWord(stop) ? 1 : 0);
}

// The guard of an indexed store: refuses it from the limit on, else warns. PR stands on the second word.
int Tcomet2::st511(int address) {
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
