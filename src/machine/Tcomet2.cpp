#include "machine/Tcomet2.h"

#include "platform/Console.h"

namespace tolvane {

void Tcomet2::InitComet2() {
    OS = 0;
    Memory.fill(0);
    RunCount.fill(0);
    MaxRunCount = 0;
    LineOfWord.fill(-1);
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
