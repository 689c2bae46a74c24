#include "run/Sources.h"

#include "hints/Hints.h"
#include "image/Listing.h"
#include "input/Readers.h"
#include "input/TMoziCode.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "records/Records.h"
#include "run/DumpFiles.h"
#include "run/Errors.h"
#include "run/Grading.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Running.h"
#include "stages/Stages.h"
#include "text/Convert.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tolvane::run {

namespace {

// A few Japanese characters in UTF-8 are Shift_JIS as well, as which they are then read.
bool MayBeUtf8(const std::string& source) {
    const bool asShiftJis = modeFlags->Pipe->reader != Reader::Array && moziCode->CodePage == 932;
    return asShiftJis && !IsAscii(ViewA(source)) && WideUtf8(source);
}

int WarningStatus(const Options& options) {
    const auto isWarning = [](const MsgRec& record) { return record.severity == Severity::Warning; };
    const bool counts = options.warningsCount && std::any_of(store->Records.begin(), store->Records.end(), isWarning);
    return counts ? SourceErrors : AllEnded;
}

int AssembleAndRun(const Options& options, const std::string& file, const std::string& source) {
    const std::string told = Told(file);
    const bool assembled = Assemble(options, told, source);
    PrintRecords(told, source, assembled);
    if (!assembled) {
        if (options.dump) RemoveDumps(options, file);
        return SourceErrors;
    }
    const image::LinkedImage image;
    if (options.hints)
        for (const hints::Hint& hint : hints::HintsOf(image))
            PrintDiagnostic(told, hint.line, Severity::Note, {hint.text});
    if (options.words) WriteErr(image::ListedWords(image));
    const auto dump = [&](Dumped dumped) { return options.dump ? WriteDump(options, file, dumped) : AllEnded; };
    const int dumped = dump(Dumped::Assembled);
    if (options.check) return std::max(dumped, WarningStatus(options));
    const bool inputIsFree =
        std::find(options.files.begin(), options.files.end(), StandardInput) == options.files.end();
    const int ran = RunProgram(options, image, told, inputIsFree);
    return std::max({ran, dumped, dump(Dumped::Result), WarningStatus(options)});
}

} // namespace

// What two checks say of one line in the same words is
// told once, and a row that is nothing but a head is not told.
void PrintRecords(const std::string& file, const std::string& source, bool assembled) {
    if (MayBeUtf8(source)) PrintDiagnostic(file, -1, Severity::Note, {TextOf(RunMsg.MaybeUtf8)});
    std::set<std::pair<int, std::vector<std::string>>> told;
    for (const MsgRec& record : store->Records) {
        const std::vector<std::string> lines = TextLines(record);
        const int line = record.place.line;
        if (lines.empty() || (line >= 0 && !told.emplace(line, lines).second)) continue;
        PrintDiagnostic(file, line, record.severity, lines);
    }
    if (!assembled && store->Records.empty()) PrintDiagnostic(file, -1, Severity::Error, {TextOf(RunMsg.NotAssembled)});
}

bool Assemble(const Options& options, const std::string& told, const std::string& source) {
    TMsgBase game;
    BeginAssembly(game, *options.pipeline, options.lang);
    po->LastAssembledSrcFilePath = told;
    std::string swallowed;
    console::WriteTo(&swallowed);
    const bool assembled = ReadSourceBytes(told, &source) == 0 && RunStages(game) && RunLink(game);
    console::WriteTo(nullptr);
    return assembled;
}

std::string Told(const std::string& file) {
    return file == StandardInput ? "<stdin>" : file;
}

int RunFile(const Options& options, const std::string& file) {
    const platform::Once source = ReadInput(file);
    if (source.end == platform::Once::End::Read)
        return options.grade ? Grade(options, Told(file), source.bytes) : AssembleAndRun(options, file, source.bytes);
    if (source.end == platform::Once::End::Interrupted) return CtrlC;
    const std::string why = WhyNotRead(source);
    PrintDiagnostic(Told(file), -1, Severity::Error, {TextOf(RunMsg.NotRead, {Utf8Arg{why}})});
    return WrongUse;
}

} // namespace tolvane::run
