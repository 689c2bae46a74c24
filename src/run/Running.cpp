#include "run/Running.h"

#include "image/Disassembly.h"
#include "machine/MachineMsgs.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "run/Comparison.h"
#include "run/Errors.h"
#include "run/GradeMsgs.h"
#include "run/Hindsight.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Tracing.h"
#include "text/Convert.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace tolvane::run {

namespace {

// What is told of: the image, and its source as it is named.
struct Program {
    const image::LinkedImage& image;
    const std::string& file;
};

bool inputIsFresh = true; // nothing of the standard input has been read

struct Streams {
    std::optional<InputLines> input = {};
    bool standardInput;
    const Program& program;
    std::set<int> told = {};     // the addresses of SVCs of which the OS has said something
    std::string swallowed = {};  // the stop in the words of the console, which are told as diagnostics
    std::size_t mostPrinted = 0; // bytes that are kept
    std::string printed = {};
    Tracer* tracer = nullptr;
    Hindsight* hindsight = nullptr; // with hints
    std::vector<hints::Hint> overruns = {};
};

void PrintAt(const Program& program, int address, Severity severity, std::vector<std::string> lines) {
    lines.push_back(program.image.PlaceText(address));
    PrintDiagnostic(program.file, program.image.LineOf(address), severity, lines);
}

// Both streams may go to one terminal or file, so that each is written out before the other goes on.
void WriteOut(void* context, const std::string& line) {
    Streams& streams = *static_cast<Streams*>(context);
    FlushErr();
    console::WriteTo(nullptr);
    console::Write(line);
    console::FlushSoon();
    console::WriteTo(&streams.swallowed);
    if (streams.printed.size() <= streams.mostPrinted) streams.printed += line;
    if (streams.tracer != nullptr) streams.tracer->SetText(line);
}

// A line of the standard input; a mark of UTF-8 at its front is no character.
std::optional<MachineIo::Line> ReadTyped(bool isFirst, std::size_t limit) {
    if (isFirst) console::SkipMark();
    std::optional<std::string> line = console::ReadLine(limit);
    if (!line) return std::nullopt;
    return MachineIo::Line{std::move(*line), console::LastLineValidLength()};
}

std::optional<MachineIo::Line> NextLine(Streams& streams, std::size_t limit) {
    if (streams.standardInput && !streams.input) return ReadTyped(std::exchange(inputIsFresh, false), limit);
    std::optional<std::string> line = streams.input ? streams.input->Next(limit) : std::nullopt;
    if (!line) return std::nullopt;
    const std::size_t valid = line->size();
    return MachineIo::Line{std::move(*line), valid};
}

std::optional<MachineIo::Line> ReadIn(void* context, std::size_t limit) {
    Streams& streams = *static_cast<Streams*>(context);
    FlushErr();
    auto line = NextLine(streams, limit);
    if (streams.hindsight != nullptr) streams.hindsight->Keep(line);
    if (streams.tracer != nullptr)
        streams.tracer->SetText(line ? std::optional<std::string_view>(line->text) : std::nullopt);
    return line;
}

void LookAtStored(void* context, int buffer, int characters) {
    Streams& streams = *static_cast<Streams*>(context);
    const auto hint = hints::Overrun(streams.program.image, buffer, characters);
    const auto isTold = [&](const hints::Hint& told) { return told.line == hint->line; };
    if (hint && std::none_of(streams.overruns.begin(), streams.overruns.end(), isTold))
        streams.overruns.push_back(*hint);
}

void TellHints(const Program& program, const std::vector<hints::Hint>& hints) {
    for (const hints::Hint& hint : hints)
        PrintDiagnostic(program.file, hint.line, Severity::Note, {hint.text});
}

// A service that does not exist and input that cannot be read are told once for each instruction.
void SayOnce(void* context, const Msg& msg, Args args) {
    Streams& streams = *static_cast<Streams*>(context);
    if (!streams.told.insert(comet2->PR).second) return;
    const std::vector<KeptArg> kept(args.begin(), args.end());
    const MsgRec record{&msg, kept, streams.program.image.LineOf(comet2->PR), Severity::Note, false, false};
    PrintAt(streams.program, comet2->PR, record.severity, TextLines(record));
}

// Where a run that has left its program behind did so: the last instruction of the image if the machine has gone on
// from there word by word, else the address itself.
int LeavingAddress(int address) {
    const auto behind = static_cast<std::size_t>(comet2->ReservedWords);
    if (address < comet2->ReservedWords || comet2->RunCount[behind] == 0) return address;
    int last = comet2->ReservedWords - 1;
    while (last > 0 && comet2->RunCount[static_cast<std::size_t>(last)] == 0)
        --last;
    return last;
}

// The diagnostics of the run: a warning of a store at its instruction, and the stop, which may have been told in
// several records.
void PrintRunRecords(const Program& program, std::size_t first, int address) {
    std::vector<std::string> stop;
    for (std::size_t i = first; i < store->Records.size(); ++i) {
        const MsgRec& record = store->Records[i];
        const std::vector<std::string> lines = TextLines(record);
        if (record.row == &MachineMsg.StoreWarning)
            PrintAt(program, static_cast<int>(record.args[2].number), record.severity, lines);
        else
            stop.insert(stop.end(), lines.begin(), lines.end());
    }
    if (!stop.empty()) PrintAt(program, address, Severity::Error, stop);
}

int TellEnd(const Options& options, const Program& program, std::size_t firstRecord, Stop stop) {
    const int address = comet2->FaultAddress(stop);
    PrintRunRecords(program, firstRecord, stop == Stop::PrBeyondMemory ? LeavingAddress(address) : address);
    switch (stop) {
    case Stop::None:
    case Stop::End:
        return AllEnded;
    case Stop::LimitReached:
        PrintAt(program, address, Severity::Error, {TextOf(RunMsg.LimitReached, {options.limit})});
        return LimitWasReached;
    case Stop::Interrupted:
        PrintAt(program, address, Severity::Error, {TextOf(RunMsg.Interrupted)});
        return CtrlC;
    case Stop::InputEnded:
        PrintAt(program, address, Severity::Error, {TextOf(RunMsg.InputEnded)});
        return MachineStopped;
    default:
        return MachineStopped;
    }
}

// The number of instructions that were executed, unless one was 4,294,967,296 times.
std::int64_t Executed() {
    const auto add = [](std::int64_t sum, int count) { return sum + static_cast<unsigned>(count); };
    return std::accumulate(comet2->RunCount.begin(), comet2->RunCount.end(), std::int64_t{0}, add);
}

// Registers, flags and the number of instructions that were executed.
void TellRegisters() {
    std::string row;
    for (std::size_t n = 0; n < comet2->GR.size(); ++n)
        row += "GR" + std::to_string(n) + "=" + image::Hex(comet2->GR[n]) + (n == 7 ? "\n" : " ");
    row += "PR=" + image::Hex(comet2->PR) + " SP=" + image::Hex(comet2->SP);
    for (const auto& [name, flag] :
         {std::pair(" Fovf=", comet2->Fovf), std::pair(" Fsign=", comet2->Fsign), std::pair(" Fzero=", comet2->Fzero)})
        row += name + std::to_string(flag);
    WriteErr(row + "\n" + TextOf(RunMsg.Executed, {Executed()}));
}

// The first line of the output that is not the one that is expected.
int Compare(const Options& options, const Program& program, const std::string& printed) {
    const auto difference = FirstDifference(*options.expected, printed);
    if (!difference) return AllEnded;
    PrintDiagnostic(program.file, -1, Severity::Error,
                    {TextOf(RunMsg.OutputDiffers, {difference->line + 1}),
                     TextOf(GradeMsg.Expected, {Utf8Arg{difference->expected}}),
                     TextOf(GradeMsg.Printed, {Utf8Arg{difference->printed}})});
    return WrongOutput;
}

} // namespace

int RunProgram(const Options& options, const image::LinkedImage& image, const std::string& file, bool standardInput) {
    const Program program{image, file};
    Streams streams{.standardInput = standardInput, .program = program};
    if (options.input) streams.input.emplace(*options.input);
    if (options.expected) streams.mostPrinted = options.expected->size() + 1;
    std::optional<Tracer> tracer;
    if (options.trace) streams.tracer = &tracer.emplace(image, options.last);
    std::optional<Hindsight> hindsight;
    if (options.hints) streams.hindsight = &hindsight.emplace(image);
    const std::size_t firstRecord = store->Records.size();
    MachineIo io{WriteOut, ReadIn, SayOnce, &streams};
    if (options.hints) io.stored = LookAtStored;
    comet2->Io = &io;
    console::WriteTo(&streams.swallowed);
    const auto traceInOrder = [&tracer](const Step& step) {
        console::Flush();
        tracer->Observe(step);
    };
    const Stop stop =
        options.trace ? comet2->RunTraced(options.limit, traceInOrder) : comet2->RunLimited(options.limit);
    if (tracer) tracer->PrintKept();
    console::WriteTo(nullptr);
    comet2->Io = &DialogueIo;
    const auto counts = comet2->RunCount.begin();
    comet2->MaxRunCount = *std::max_element(counts, counts + MaxImageWords);
    console::Flush();
    const int ended = TellEnd(options, program, firstRecord, stop);
    TellHints(program, streams.overruns);
    const auto misled = hindsight ? hindsight->Look(Executed()) : std::nullopt;
    if (misled) TellHints(program, {*misled});
    if (options.registers) TellRegisters();
    return ended == AllEnded && options.expected ? Compare(options, program, streams.printed) : ended;
}

} // namespace tolvane::run
