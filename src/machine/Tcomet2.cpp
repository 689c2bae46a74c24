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

void Tcomet2::TellStop(const Msg& msg, Args args) {
    Tell(Severity::Error, NoLine, msg, args);
    console::FlushSoon();
}

void Tcomet2::TellWarning(const Msg& msg, Args args) {
    Tell(Severity::Warning, NoLine, msg, args);
    console::FlushSoon();
}

} // namespace tolvane
