// tolvane-debug: runs a program step by step, on and back.

#include "debug/DebugMsgs.h"
#include "debug/Options.h"
#include "debug/Session.h"
#include "messages/TMsgBase.h"
#include "messages/TMsgStore.h"
#include "platform/CommandLine.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Sources.h"

#include <cstdlib>
#include <new>

namespace tolvane::debug {

namespace {

[[noreturn]] void EndWithoutOutput(const console::Loss& loss) {
    if (!loss.readerGone) run::WriteErr(TextOf(DebugMsg.OutputLost, {Utf8Arg{loss.why}}));
    run::FlushErr();
    std::_Exit(run::WrongUse);
}

std::vector<std::string> LinesOf(const std::optional<std::string>& text) {
    std::vector<std::string> all;
    if (!text) return all;
    run::InputLines lines(*text);
    while (auto line = lines.Next(text->size()))
        all.push_back(std::move(*line));
    return all;
}

int Debug(const Options& options, const std::string& source) {
    const std::string told = run::Told(options.source);
    const bool isAssembled = run::Assemble(options.assembly, told, source);
    run::PrintRecords(told, source, isAssembled);
    run::FlushErr();
    if (!isAssembled) return run::SourceErrors;
    const image::LinkedImage image;
    TypedLines typed(options.commands);
    Session(image, typed, LinesOf(options.assembly.input)).Run();
    return run::AllEnded;
}

int Run(int argc, char** argv) {
    int status = run::AllEnded;
    const auto options = ReadOptions(argc, argv, status);
    if (!options) return status;
    const platform::Once source = run::ReadInput(options->source);
    if (source.end == platform::Once::End::Read) return Debug(*options, source.bytes);
    if (source.end == platform::Once::End::Interrupted) return run::CtrlC;
    const std::string why = run::WhyNotRead(source);
    run::PrintDiagnostic(run::Told(options->source), -1, Severity::Error, {TextOf(RunMsg.NotRead, {Utf8Arg{why}})});
    return run::WrongUse;
}

int Main(int argc, char** argv) {
    console::Start(EndWithoutOutput);
    try {
        const int status = Run(argc, argv);
        run::FlushErr();
        console::Flush();
        return status;
    } catch (const std::bad_alloc&) {
        console::WriteTo(nullptr);
        console::WriteError(DebugMsg.MemoryEnded.For(modeFlags->Lang, WordingNWW));
        return run::WrongUse;
    }
}

} // namespace

} // namespace tolvane::debug

int main(int argc, char** argv) {
    char** const words = tolvane::platform::CommandLineWords(argc, argv);
    return tolvane::debug::Main(argc, words);
}
