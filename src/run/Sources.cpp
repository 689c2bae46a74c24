#include "run/Sources.h"

#include "image/Listing.h"
#include "input/Readers.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "records/Records.h"
#include "reports/Dump.h"
#include "run/Errors.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Running.h"
#include "stages/Stages.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace tolvane::run {

namespace {

namespace fs = std::filesystem;

std::string Told(const std::string& file) {
    return file == StandardInput ? "<stdin>" : file;
}

std::string StemOf(const std::string& file) {
    return file == StandardInput ? "stdin" : fs::path(platform::SystemPath(file)).stem().string();
}

// What the dumps of a file are named after: its name without suffix, or, where that is not its own, its whole path.
std::string DumpStem(const Options& options, const std::string& file) {
    std::string stem = StemOf(file);
    const auto sameStem = [&](const std::string& other) { return StemOf(other) == stem; };
    if (std::count_if(options.files.begin(), options.files.end(), sameStem) == 1) return stem;
    std::string path = platform::SystemPath(file);
    path.erase(0, fs::path(path).root_name().string().size()); // a drive
    std::replace(path.begin(), path.end(), '/', '-');
    return path;
}

int WriteDump(const Options& options, const std::string& file, const char* which) {
    if (!options.dump) return AllEnded;
    const std::string name = DumpStem(options, file) + which;
    const std::string path = *options.dump + "/" + name;
    std::string bytes;
    const auto failure = platform::WriteFile(path, console::InUsersCode(DumpText(*comet2, name), bytes));
    if (!failure) return AllEnded;
    PrintDiagnostic(path, -1, Severity::Error, {TextOf(RunMsg.NotWritten, {Utf8Arg{*failure}})});
    return WrongUse;
}

// The diagnostics of the assembly, in the order of the checks.
void PrintRecords(const std::string& file) {
    for (const MsgRec& record : store->Records)
        PrintDiagnostic(file, record.place.line, record.severity, TextLines(record));
}

// Reads, assembles and links. What the steps say beside their diagnostics is nobody's here.
bool Assemble(const Options& options, const std::string& file) {
    std::optional<StandardInputFile> standardInput;
    if (file == StandardInput) standardInput.emplace();
    const std::string& path = standardInput ? standardInput->Path() : file;
    TMsgBase game;
    BeginAssembly(game, *options.pipeline, options.lang);
    po->LastAssembledSrcFilePath = Told(file);
    std::string swallowed;
    console::WriteTo(&swallowed);
    const bool assembled = ReadSource(path) == 0 && RunStages(game) && RunLink(game) >= 0;
    console::WriteTo(nullptr);
    return assembled;
}

int AssembleAndRun(const Options& options, const std::string& file) {
    const std::string told = Told(file);
    const bool assembled = Assemble(options, file);
    PrintRecords(told);
    if (!assembled) {
        if (store->Records.empty()) PrintDiagnostic(told, -1, Severity::Error, {TextOf(RunMsg.NotAssembled)});
        return SourceErrors;
    }
    const image::LinkedImage image;
    if (options.words) WriteErr(image::ListedWords(image));
    const int dumped = WriteDump(options, file, ".assembled.txt");
    if (options.check) return dumped;
    const bool inputIsFree =
        std::find(options.files.begin(), options.files.end(), StandardInput) == options.files.end();
    const int ran = RunProgram(options, image, told, inputIsFree);
    return std::max({ran, dumped, WriteDump(options, file, ".result.txt")});
}

} // namespace

int RunFile(const Options& options, const std::string& file) {
    if (file == StandardInput || platform::ReadFile(file)) return AssembleAndRun(options, file);
    const std::string why = WhyNotRead(file);
    PrintDiagnostic(file, -1, Severity::Error, {TextOf(RunMsg.NotRead, {Utf8Arg{why}})});
    return WrongUse;
}

} // namespace tolvane::run
