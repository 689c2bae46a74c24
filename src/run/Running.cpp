#include "run/Running.h"

#include "machine/MachineMsgs.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Tracing.h"
#include "text/Convert.h"

#include <algorithm>
#include <optional>
#include <set>
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
    std::optional<InputLines> input;
    bool standardInput;
    const Program& program;
    std::set<int> told;    // the addresses of SVCs of which the OS has said something
    std::string swallowed; // the stop in the words of the console, which are told as diagnostics
};

void PrintAt(const Program& program, int address, Severity severity, std::vector<std::string> lines) {
    lines.push_back(program.image.PlaceText(address));
    PrintDiagnostic(program.file, program.image.LineOf(address), severity, lines);
}

// Both streams may go to one terminal or file, so that each is written out before the other goes on.
void WriteOut(void* context, const std::string& line) {
    FlushErr();
    console::WriteTo(nullptr);
    console::Write(line);
    console::FlushSoon();
    console::WriteTo(&static_cast<Streams*>(context)->swallowed);
}

// A line of the standard input; a mark of UTF-8 at its front is no character.
std::optional<MachineIo::Line> ReadTyped(bool isFirst, std::size_t limit) {
    std::optional<std::string> line = console::ReadLine(limit);
    if (!line) return std::nullopt;
    const std::size_t mark = isFirst ? line->size() - WithoutUtf8Mark(*line).size() : 0;
    const std::size_t valid = console::LastLineValidLength();
    return MachineIo::Line{line->substr(mark), valid - std::min(valid, mark)};
}

std::optional<MachineIo::Line> ReadIn(void* context, std::size_t limit) {
    Streams& streams = *static_cast<Streams*>(context);
    FlushErr();
    if (streams.standardInput && !streams.input) return ReadTyped(std::exchange(inputIsFresh, false), limit);
    std::optional<std::string> line = streams.input ? streams.input->Next(limit) : std::nullopt;
    if (!line) return std::nullopt;
    const std::size_t valid = line->size();
    return MachineIo::Line{std::move(*line), valid};
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

} // namespace

int RunProgram(const Options& options, const image::LinkedImage& image, const std::string& file, bool standardInput) {
    const Program program{image, file};
    Streams streams{std::nullopt, standardInput, program, {}, {}};
    if (options.input) streams.input.emplace(*options.input);
    const std::size_t firstRecord = store->Records.size();
    const MachineIo io{WriteOut, ReadIn, SayOnce, &streams};
    comet2->Io = &io;
    console::WriteTo(&streams.swallowed);
    const auto traceInOrder = [&image](const Step& step) {
        console::Flush();
        TraceStep(image, step);
    };
    const Stop stop =
        options.trace ? comet2->RunTraced(options.limit, traceInOrder) : comet2->RunLimited(options.limit);
    console::WriteTo(nullptr);
    comet2->Io = &DialogueIo;
    const auto counts = comet2->RunCount.begin();
    comet2->MaxRunCount = *std::max_element(counts, counts + MaxImageWords);
    console::Flush();
    return TellEnd(options, program, firstRecord, stop);
}

} // namespace tolvane::run
