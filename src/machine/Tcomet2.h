#pragma once
// The simulated COMET II: a 16-bit word machine with eight general registers, a program register, a stack pointer and
// three flags. One object, reached through `comet2`; the linker, the run loop and the dumps read and write it directly.

#include "messages/TMsgBase.h"

#include <array>
#include <cstdint>

namespace tolvane {

inline constexpr int AddressCount = 65536;      // addressable words
inline constexpr int MemoryCells = 65535 + 100; // with the spare ones
inline constexpr int MaxImageWords = 65035;     // addresses 0 to 65034
inline constexpr int StackWords = 500;          // SP runs from 65535 down to 65035
inline constexpr int StackCells = StackWords + 10;
inline constexpr int StackBottom = 65535;

// Why a run has ended.
enum class Stop : std::uint8_t {
    None,                // it has not
    End,                 // RET at the outermost level, EXIT
    PrBeyondMemory,      // S1
    BadRegister,         // S2
    OperandBeyondMemory, // S3
    NotANop,             // S4
    StoreBeyondMemory,   // S5
    UnknownCode,         // S6
    ReturnWithoutStack,  // S7
    StackFull,           // S8
};

class Tcomet2 {
public:
    int OS = 0; // CALLs that have not returned
    std::array<int, MemoryCells> Memory{};
    std::array<int, MemoryCells> RunCount{}; // executions of the instruction whose first word stands there
    int MaxRunCount = 0;
    std::array<int, MemoryCells> LineOfWord{}; // the source line that owns the word, or -1
    std::array<int, StackCells> Stack{};       // element i stands for address 65535 - i
    std::array<int, 8> GR{};
    int PR = 0;
    int EffAdr = 0;
    int SP = StackBottom;
    int Fovf = 0;
    int Fsign = 0;
    int Fzero = 0;
    int ReservedWords = 0; // the first address behind the image

    Tcomet2() { InitComet2(); }
    // The state before a run: memory, stack, registers, flags and counts 0, SP 65535, LineOfWord -1.
    void InitComet2();
    // Runs from address 0 to the program's end or to a stop; see Run.cpp. The result is not used.
    int Run3();

private:
    // The run loop. Leaves registers and flags as the last instruction left them.
    Stop Execute();
    int st511(int address);
    int ret581();
    bool PushWord(int word);
    void DspStop(Stop stop) const;
    void DspOperandBeyondMemory() const;

    void OsSvc(int number);
    void OsIn();
    void OsOut() const;

    // Print a row, as Say and Tell do; a person who watches sees it at once.
    static void Print(const Msg& msg, Args args = {});
    static void TellStop(const Msg& msg, Args args = {});
    static void TellWarning(const Msg& msg, Args args);
};

extern Tcomet2* const comet2;

} // namespace tolvane
