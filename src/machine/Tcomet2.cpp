#include "machine/Tcomet2.h"

#include "platform/Console.h"

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

void Tcomet2::Keep(RunState& state) const {
    state.OS = OS;
    state.Memory = Memory;
    state.RunCount = RunCount;
    state.Stack = Stack;
    state.registers = {GR, PR, SP, Fovf, Fsign, Fzero};
    state.EffAdr = EffAdr;
    state.StoreWarned = StoreWarned;
    state.InputEnds = InputEnds;
}

void Tcomet2::TakeUp(const RunState& state) {
    OS = state.OS;
    Memory = state.Memory;
    RunCount = state.RunCount;
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
