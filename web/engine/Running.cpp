// The machine of the page: one run, taken to any of its moments.

#include "Engine.h"
#include "debugger/Debugger.h"
#include "image/Disassembly.h"
#include "reports/Dump.h"
#include "run/Errors.h"

#include <algorithm>
#include <emscripten/bind.h>

namespace tolvane::web {

namespace {

using debugger::Cell;
using debugger::Debugger;
using debugger::History;
using debugger::Moment;
using debugger::Way;
using debugger::Why;

// Checkpoints of half a megabyte each.
constexpr std::size_t MostCheckpoints = 96;
constexpr std::size_t MostEntries = 2000; // of the console, the latest
constexpr int MostStackWords = 200;

struct Loaded {
    image::LinkedImage image;
    Debugger debugger{*comet2, History::UsualStretch, MostCheckpoints};
    std::vector<int> instructions; // the address of each line's first, -1 without one

    Loaded() {
        for (int line = 0; line < image.LineCount(); ++line) {
            const image::LineText text = image.TextOf(line);
            instructions.push_back(text.isInstruction && image.LineOf(text.address) == line ? text.address : -1);
        }
    }
};
std::optional<Loaded> loaded;

Cell CellOf(const std::string& kind, int index) {
    using Kind = Cell::Kind;
    if (kind == "GR") return {Kind::GR, index};
    if (kind == "SP") return {Kind::SP};
    if (kind == "OF") return {Kind::Fovf};
    if (kind == "SF") return {Kind::Fsign};
    if (kind == "ZF") return {Kind::Fzero};
    return {Kind::Word, index};
}

// Whether the source is sound; then its program stands in the machine at moment 0.
val Load(const std::string& source, const std::string& pipeline, int language) {
    loaded.reset();
    const bool good = Assemble(source, pipeline, language);
    val result = val::object();
    result.set("good", good);
    result.set("diagnostics", Diagnostics(good));
    if (good) loaded.emplace();
    return result;
}

// --- Tasks: begun, then worked on in pieces.

bool Begin(const std::string& task, bool back, double number) {
    if (!loaded) return false;
    Debugger& debugger = loaded->debugger;
    const Way way = back ? Way::Back : Way::On;
    if (task == "go") debugger.BeginGo(static_cast<Moment>(number));
    if (task == "run") debugger.BeginRun(way);
    if (task == "over") debugger.BeginOver(way);
    if (task == "out") debugger.BeginOut(way);
    if (task == "until") debugger.BeginUntil(static_cast<int>(number), way);
    if (task == "resume") debugger.Resume();
    return true;
}

bool BeginWho(const std::string& kind, int index) {
    if (!loaded) return false;
    loaded->debugger.BeginWho(CellOf(kind, index));
    return true;
}

bool Work(double budget) {
    return loaded->debugger.Work(static_cast<std::int64_t>(budget));
}

// One instruction after the other, for a run that is slow enough to be watched, up to a mark: "arrived", "breakpoint",
// "watch" or "stopped".
std::string Pace(int instructions) {
    Debugger& debugger = loaded->debugger;
    const auto values = [&debugger = debugger] {
        std::vector<int> found;
        for (const Cell& cell : debugger.Watches())
            found.push_back(debugger::ValueOf(debugger.Machine(), cell));
        return found;
    };
    const std::vector<int> before = values();
    for (int i = 0; i < instructions; ++i) {
        debugger.BeginGo(debugger.Now() + 1);
        if (debugger.Finish().why == Why::Stopped || debugger.Past().StopHere() != Stop::None) return "stopped";
        if (values() != before) return "watch";
        const auto& breakpoints = debugger.Breakpoints();
        if (std::find(breakpoints.begin(), breakpoints.end(), debugger.Machine().PR) != breakpoints.end())
            return "breakpoint";
    }
    return "arrived";
}

val Outcome() {
    val result = val::object();
    const debugger::Outcome& outcome = loaded->debugger.Result();
    static constexpr const char* Names[] = {"arrived", "breakpoint", "watch",    "stopped",
                                            "start",   "found",      "notFound", "interrupted"};
    result.set("why", std::string(Names[static_cast<int>(outcome.why)]));
    if (!outcome.change) return result;
    const debugger::Change& change = *outcome.change;
    result.set("moment", static_cast<double>(change.moment));
    result.set("line", loaded->image.LineOf(change.address));
    result.set("address", change.address);
    result.set("label", loaded->image.LabelAt(change.address));
    result.set("text", loaded->image.InstructionText(change.address, change.word, change.second));
    result.set("before", change.before);
    result.set("after", change.after);
    return result;
}

// --- What is shown

val StackWords(const Debugger& debugger) {
    const Tcomet2& machine = debugger.Machine();
    const std::vector<debugger::Call> calls = debugger.Calls();
    val array = val::array();
    const int end = std::min(StackBottom, machine.SP + MostStackWords);
    for (int address = machine.SP; address < end; ++address) {
        val entry = val::object();
        entry.set("address", address);
        entry.set("value", machine.Stack[static_cast<std::size_t>(StackBottom - address)] & 0xFFFF);
        const auto isHere = [address](const debugger::Call& call) { return call.stackAddress == address; };
        const auto call = std::find_if(calls.begin(), calls.end(), isHere);
        if (call != calls.end()) {
            entry.set("routine", call->routine < 0 ? std::string() : loaded->image.LabelAt(call->routine));
            entry.set("line", loaded->image.LineOf(call->address));
        }
        array.call<void>("push", entry);
    }
    return array;
}

val Entry(const char* kind, const std::string& text) {
    val entry = val::object();
    entry.set("kind", std::string(kind));
    entry.set("text", text);
    return entry;
}

val NoteEntry(const History::Note& note) {
    const int line = loaded->image.LineOf(note.address);
    const std::vector<std::string> lines = run::TextLines({note.row, note.args, line, note.severity, false, false});
    std::string text;
    for (const std::string& each : lines)
        text += each + "\n";
    val entry = Entry(note.severity == Severity::Error ? "error" : "note", text);
    entry.set("place", loaded->image.PlaceText(note.address));
    entry.set("line", line);
    return entry;
}

// What was printed, typed and told up to now, in its order; of much the latest.
val Console() {
    const History& past = loaded->debugger.Past();
    std::size_t printed = past.OutputCount();
    std::size_t read = past.ReadCount();
    const auto& notes = past.Notes();
    std::size_t told = notes.size();
    while (told > 0 && notes[told - 1].moment > past.Now())
        --told;
    std::vector<val> entries;
    while (printed + read + told > 0 && entries.size() < MostEntries) {
        const Moment out = printed > 0 ? past.Output()[printed - 1].moment : -1;
        const Moment in = read > 0 ? past.Reads()[read - 1].moment : -1;
        const Moment note = told > 0 ? notes[told - 1].moment : -1;
        if (note >= out && note >= in)
            entries.push_back(NoteEntry(notes[--told]));
        else if (in >= out) {
            const auto& line = past.Reads()[--read].text;
            entries.push_back(line ? Entry("in", *line) : Entry("end", ""));
        } else
            entries.push_back(Entry("out", past.Output()[--printed].text));
    }
    val array = val::array();
    if (printed + read + told > 0 || past.ForgottenLines() > 0) array.call<void>("push", Entry("more", ""));
    for (auto each = entries.rbegin(); each != entries.rend(); ++each)
        array.call<void>("push", *each);
    return array;
}

// The same mark, the same console.
std::string ConsoleMark() {
    const History& past = loaded->debugger.Past();
    const auto& notes = past.Notes();
    const auto told =
        std::count_if(notes.begin(), notes.end(), [&](const auto& note) { return note.moment <= past.Now(); });
    std::string mark;
    for (const auto part : {static_cast<std::int64_t>(past.OutputCount()), static_cast<std::int64_t>(past.ReadCount()),
                            static_cast<std::int64_t>(told), past.ForgottenLines()})
        mark += std::to_string(part) + " ";
    return mark + std::to_string(modeFlags->Lang);
}

// How often each line has been executed.
val Counts() {
    const Tcomet2& machine = loaded->debugger.Machine();
    val counts = val::array();
    for (const int address : loaded->instructions)
        counts.call<void>("push", address < 0 ? 0 : machine.RunCount[static_cast<std::size_t>(address)]);
    return counts;
}

val State() {
    const Debugger& debugger = loaded->debugger;
    const History& past = debugger.Past();
    const Tcomet2& machine = debugger.Machine();
    val state = val::object();
    state.set("now", static_cast<double>(past.Now()));
    state.set("latest", static_cast<double>(past.Latest()));
    state.set("isEnd", past.StopHere() != Stop::None && past.StopHere() != Stop::InputWanted);
    state.set("isFault", past.StopHere() > Stop::End && past.StopHere() != Stop::InputWanted);
    state.set("wantsInput", past.StopHere() == Stop::InputWanted);
    state.set("waiting", static_cast<int>(past.Waiting().size()));
    val registers = val::array();
    for (const int value : machine.GR)
        registers.call<void>("push", value & 0xFFFF);
    state.set("gr", registers);
    state.set("pr", machine.PR & 0xFFFF);
    state.set("sp", machine.SP);
    state.set("of", machine.Fovf);
    state.set("sf", machine.Fsign);
    state.set("zf", machine.Fzero);
    state.set("line", loaded->image.LineOf(machine.PR & 0xFFFF));
    state.set("stack", StackWords(debugger));
    return state;
}

// A row of the memory: words of one line, or of none.
val MemoryRow(int address, int count) {
    const auto& memory = loaded->debugger.Machine().Memory;
    val row = val::object();
    val words = val::array();
    for (int i = 0; i < count; ++i)
        words.call<void>("push", memory[static_cast<std::size_t>(address + i)] & 0xFFFF);
    row.set("address", address);
    row.set("words", words);
    const int line = loaded->image.LineOf(address);
    row.set("line", line);
    if (line < 0) return row;
    const image::LineText text = loaded->image.TextOf(line);
    if (text.address == address) {
        row.set("label", text.label);
        row.set("text", text.code);
    } else if (text.literalAddress == address)
        row.set("text", std::string("="));
    return row;
}

val MemoryRows(int first, int rows) {
    constexpr int Most = 4; // words of a row
    val array = val::array();
    int address = first;
    for (int i = 0; i < rows && address < AddressCount; ++i) {
        const int line = loaded->image.LineOf(address);
        const int literal = line < 0 ? -1 : loaded->image.TextOf(line).literalAddress;
        int count = 1;
        while (count < Most && address + count < AddressCount && address + count != literal &&
               loaded->image.LineOf(address + count) == line)
            ++count;
        array.call<void>("push", MemoryRow(address, count));
        address += count;
    }
    return array;
}

// An address: its words as an instruction, and whose it is.
val WordAt(int address) {
    const auto& memory = loaded->debugger.Machine().Memory;
    const int word = memory[static_cast<std::size_t>(address)] & 0xFFFF;
    const int second = memory[static_cast<std::size_t>(address + 1)] & 0xFFFF;
    val result = val::object();
    result.set("value", word);
    result.set("second", second);
    result.set("wordCount", image::WordsOf(word));
    result.set("instruction", image::Disassembled(word, second));
    result.set("label", loaded->image.LabelAt(address));
    result.set("line", loaded->image.LineOf(address));
    result.set("isInstruction", loaded->image.IsAsLinked(address, word, second));
    return result;
}

// --- Input, breakpoints, watched cells

void Type(const std::string& line) {
    loaded->debugger.Past().Type(line);
}
void EndInput() {
    loaded->debugger.Past().EndInput();
}

// The breakpoints stand in front of these lines; one without an instruction is passed over.
void SetBreakpoints(const val& lines) {
    Debugger& debugger = loaded->debugger;
    for (const int address : std::vector<int>(debugger.Breakpoints()))
        debugger.DeleteBreakpoint(address);
    for (const int line : emscripten::vecFromJSArray<int>(lines)) {
        const auto i = static_cast<std::size_t>(line);
        if (i < loaded->instructions.size() && loaded->instructions[i] >= 0)
            debugger.SetBreakpoint(loaded->instructions[i]);
    }
}

void SetWatch(const std::string& kind, int index, bool isOn) {
    if (isOn)
        loaded->debugger.SetWatch(CellOf(kind, index));
    else
        loaded->debugger.DeleteWatch(CellOf(kind, index));
}

void SetLanguage(int language) {
    modeFlags->Lang = language;
}

// The dump of the machine as it stands, as the programs write it.
std::string Dump(const std::string& name) {
    const auto counts = comet2->RunCount.begin();
    comet2->MaxRunCount = *std::max_element(counts, counts + MaxImageWords);
    return DumpText(loaded->debugger.Machine(), name);
}

} // namespace

EMSCRIPTEN_BINDINGS(running) {
    emscripten::function("load", &Load);
    emscripten::function("begin", &Begin);
    emscripten::function("beginWho", &BeginWho);
    emscripten::function("work", &Work);
    emscripten::function("pace", &Pace);
    emscripten::function("outcome", &Outcome);
    emscripten::function("state", &State);
    emscripten::function("console", &Console);
    emscripten::function("consoleMark", &ConsoleMark);
    emscripten::function("counts", &Counts);
    emscripten::function("memoryRows", &MemoryRows);
    emscripten::function("wordAt", &WordAt);
    emscripten::function("type", &Type);
    emscripten::function("endInput", &EndInput);
    emscripten::function("setBreakpoints", &SetBreakpoints);
    emscripten::function("setWatch", &SetWatch);
    emscripten::function("setLanguage", &SetLanguage);
    emscripten::function("dump", &Dump);
}

} // namespace tolvane::web
