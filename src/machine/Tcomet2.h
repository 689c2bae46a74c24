#pragma once
// The simulated COMET II: a 16-bit word machine with eight general registers, a program register, a stack pointer and
// three flags. One object, reached through `comet2`; the linker, the run loop and the dumps read and write it directly.

#include "messages/TMsgBase.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

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
    LimitReached,        // of RunLimited and RunTraced
    Interrupted,         // Ctrl+C
    InputEnded,          // IN has met the end of the input again and again
    InputWanted,         // GoOn: IN has no line yet. The machine stands in front of it and has counted nothing
    Changed,             // GoOnWatching: the last instruction has changed what is watched
};

// Where the text of OUT goes and that of IN comes from. `context` is handed on.
struct MachineIo {
    struct Line {
        std::string text;        // UTF-8
        std::size_t validLength; // bytes of it in front of the first ones that were no character
    };
    void (*write)(void* context, const std::string& line); // UTF-8 with its line end
    // Nothing at the end of the input; what lies beyond `limit` characters is dropped.
    std::optional<Line> (*read)(void* context, std::size_t limit);
    // What the virtual OS has to say of the SVC at PR.
    void (*say)(void* context, const Msg& msg, Args args);
    void* context;
    // A stop or a warning of the machine; a stop may be told in several rows.
    void (*tell)(void* context, Severity severity, const Msg& msg, Args args) = TellDiagnostic;
    // Whether `read` may be called now; else the run stops in front of the IN. Null: always.
    bool (*isReady)(void* context) = nullptr;
    // An IN has stored so many characters from an address on. Null: nobody is interested.
    void (*stored)(void* context, int buffer, int characters) = nullptr;

    // Into the store, and printed.
    static void TellDiagnostic(void* context, Severity severity, const Msg& msg, Args args);
};
// The console, with a head in front of each text and each question.
extern const MachineIo DialogueIo;

struct Registers {
    std::array<int, 8> GR{};
    int PR = 0;
    int SP = StackBottom;
    int Fovf = 0;
    int Fsign = 0;
    int Fzero = 0;
};

// What one instruction has done, beside the machine as it stands behind it. Two stretches of memory at the most are
// written, both by IN.
struct Step {
    struct Stretch {
        int first;
        int cells; // 0: nothing
    };
    int word;         // the instruction's first word; its address is before.PR
    int second;       // the word behind it
    Registers before; // the registers in front of it
    std::array<Stretch, 2> written;
};
using Observer = std::function<void(const Step&)>;

// All that a run goes on from, between two instructions. What a run does not change is left out.
struct RunState {
    int OS;
    std::vector<int> Memory; // without the zeros at the end
    std::vector<int> RunCount;
    std::array<int, StackCells> Stack;
    Registers registers;
    int EffAdr;
    bool StoreWarned;
    int InputEnds;
};

// Some bits of a cell of the machine, and those of the flags whose bit is 1.
struct Watched {
    const int* cell = nullptr;
    int bits = 0;
    int fovf = 0;
    int fsign = 0;
    int fzero = 0;
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
    // A machine whose tables nobody has touched yet, so that a program that assembles nothing pays nothing for them.
    enum class Later { Init };
    constexpr explicit Tcomet2(Later) {}
    // The state before a run: memory, stack, registers, flags and counts 0, SP 65535, LineOfWord -1.
    void InitComet2();
    const MachineIo* Io = &DialogueIo;

    // The runs. Each goes from address 0 to the program's end or to a stop; see Run.cpp. PR is then the address of the
    // next instruction, of the one that was not executed, or of its second word, see FaultAddress.
    //
    // In words: the start, the end, the run time.
    Stop Run3();
    // Without words of its own; a stop is told as a diagnostic. At most so many instructions, 0 or below: any number.
    Stop RunLimited(std::int64_t instructions);
    // The same, slower, and the observer is called behind each instruction that was executed.
    Stop RunTraced(std::int64_t instructions, const Observer& observe);
    // A run in pieces: what a run begins with, and at most so many instructions (1 or more) of it from where it stands.
    // Signals are noted for it while a signals::Running lives. Nothing goes on behind a stop but LimitReached,
    // Interrupted and InputWanted.
    void BeginRun();
    Stop GoOn(std::int64_t instructions);
    // The same, but it ends behind the first instruction that changes what is watched and does not end the run.
    Stop GoOnWatching(std::int64_t instructions, const Watched& watched);
    // Of the instructions that GoOn was given, those that are left: behind it, and while the Io is called, whose
    // `write` may make them fewer. An instruction that meets a stop is one that was executed.
    std::int64_t Left = 0;
    void Keep(RunState& state) const;
    Registers RegistersNow() const;
    void TakeUp(const RunState& state);
    // The address of the instruction at which a stop was met.
    int FaultAddress(Stop stop) const;

    static constexpr int ServiceIn = 1;
    static constexpr int ServiceOut = 2;

private:
    // The run loop. Leaves registers and flags as the last instruction left them.
    template <bool limited, bool watching = false> Stop Execute(std::int64_t instructions, const Watched& watched = {});
    Stop Told(Stop stop);
    Stop Attend();
    Step NextStep() const;
    int st511(int address) const;
    int ret581();
    bool PushWord(int word);
    void DspStop(Stop stop) const;
    void DspOperandBeyondMemory() const;

    Stop OsSvc(int number); // None if the run goes on
    Stop OsIn();
    void OsOut() const;

    // Prints a row, as Say does; a person who watches sees it at once.
    static void Print(const Msg& msg, Args args = {});
    void TellStop(const Msg& msg, Args args = {}) const;
    void TellWarning(const Msg& msg, Args args) const;

    bool StoreWarned = false; // in this run
    int InputEnds = 0;        // INs in a row that have met the end of the input
    int InputCells = 0;       // characters that the last IN has stored
};

extern Tcomet2* const comet2;

} // namespace tolvane
