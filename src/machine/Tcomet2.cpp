#include "machine/Tcomet2.h"

#include "platform/Console.h"

#include <algorithm>
#include <cstring>

namespace tolvane {

void Tcomet2::InitComet2() {
    OS = 0;
    std::memset(Memory.data(), 0, sizeof Memory);
    std::memset(RunCount.data(), 0, sizeof RunCount);
    MaxRunCount = 0;
    std::memset(LineOfWord.data(), 0xFF, sizeof LineOfWord); // -1 everywhere
    Stack.fill(0);
    GR.fill(0);
    PR = 0;
    EffAdr = 0;
    SP = StackBottom;
    Fovf = Fsign = Fzero = 0;
    ReservedWords = 0;
}

void Tcomet2::Print(const Msg& msg, Args args) {
    Say(msg, args);
    console::FlushSoon();
}

void Tcomet2::TellStop(const Msg& msg, Args args) const {
    Io->tell(Io->context, Severity::Error, msg, args);
}

void Tcomet2::TellWarning(const Msg& msg, Args args) const {
    Io->tell(Io->context, Severity::Warning, msg, args);
}

void MachineIo::TellDiagnostic(void*, Severity severity, const Msg& msg, Args args) {
    Tell(severity, NoLine, msg, args);
    console::FlushSoon();
}

namespace {

using Table = std::array<int, MemoryCells>;

// Most programs use a small part of the tables. Whole blocks are looked at, which is fast.
std::size_t UsedCells(const Table& table) {
    constexpr std::size_t Block = 1024;
    std::size_t end = table.size();
    while (end > 0) {
        const std::size_t begin = (end - 1) / Block * Block;
        int any = 0;
        for (std::size_t i = begin; i < end; ++i)
            any |= table[i];
        if (any != 0) break;
        end = begin;
    }
    while (end > 0 && table[end - 1] == 0)
        --end;
    return end;
}

void KeepTable(const Table& table, std::vector<int>& kept) {
    kept.assign(table.begin(), table.begin() + static_cast<std::ptrdiff_t>(UsedCells(table)));
}

void TakeUpTable(const std::vector<int>& kept, Table& table) {
    const auto end = std::copy(kept.begin(), kept.end(), table.begin());
    std::fill(end, table.end(), 0);
}

} // namespace

void Tcomet2::Keep(RunState& state) const {
    state.OS = OS;
    KeepTable(Memory, state.Memory);
    KeepTable(RunCount, state.RunCount);
    state.Stack = Stack;
    state.registers = {GR, PR, SP, Fovf, Fsign, Fzero};
    state.EffAdr = EffAdr;
    state.StoreWarned = StoreWarned;
    state.InputEnds = InputEnds;
}

void Tcomet2::TakeUp(const RunState& state) {
    OS = state.OS;
    TakeUpTable(state.Memory, Memory);
    TakeUpTable(state.RunCount, RunCount);
    Stack = state.Stack;
    GR = state.registers.GR;
    PR = state.registers.PR;
    SP = state.registers.SP;
    Fovf = state.registers.Fovf;
    Fsign = state.registers.Fsign;
    Fzero = state.registers.Fzero;
    EffAdr = state.EffAdr;
    StoreWarned = state.StoreWarned;
    InputEnds = state.InputEnds;
}

} // namespace tolvane
