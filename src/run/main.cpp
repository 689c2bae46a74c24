// tolvane-run: assembles and runs sources without a dialogue, for scripts, editors and teachers.

#include "machine/Tcomet2.h"
#include "messages/TMsgBase.h"
#include "messages/TMsgStore.h"
#include "platform/CommandLine.h"
#include "platform/Console.h"
#include "records/Records.h"
#include "run/Errors.h"
#include "run/Explain.h"
#include "run/Options.h"
#include "run/RunMsgs.h"
#include "run/Sources.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace tolvane::run {

namespace {

[[noreturn]] void EndWithoutOutput(const console::Loss& loss) {
    if (!loss.readerGone) WriteErr(TextOf(RunMsg.OutputLost, {Utf8Arg{loss.why}}));
    FlushErr();
    std::_Exit(WrongUse);
}

// One file; where the memory does not suffice for it, there may be enough for the next.
int RunOne(const Options& options, const std::string& file) {
    try {
        return RunFile(options, file);
    } catch (const std::bad_alloc&) {
        console::WriteTo(nullptr);
        comet2->Io = &DialogueIo;
        b->Reset();
        store->ClearMsgStore();
        PrintDiagnostic(Told(file), -1, Severity::Error, {TextOf(RunMsg.OutOfMemory)});
        return WrongUse;
    }
}

int Run(int argc, char** argv) {
    int status = AllEnded;
    const auto options = ReadOptions(argc, argv, status);
    if (options && options->explain) {
        status = Explain(*options->explain);
    } else if (options) {
        for (const std::string& file : options->files) {
            status = std::max(status, RunOne(*options, file));
            FlushErr();
            if (status == CtrlC) break;
        }
    }
    console::Flush();
    FlushErr();
    return console::IsErrorLost() ? std::max<int>(status, WrongUse) : status;
}

int Main(int argc, char** argv) {
    console::Start(EndWithoutOutput);
    try {
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        console::WriteTo(nullptr);
        console::WriteError(RunMsg.MemoryEnded.For(modeFlags->Lang, WordingNWW));
        return WrongUse;
    }
}

} // namespace

} // namespace tolvane::run

int main(int argc, char** argv) {
    char** const words = tolvane::platform::CommandLineWords(argc, argv);
    return tolvane::run::Main(argc, words);
}
