#include "debug/Session.h"

#include "debug/DebugMsgs.h"
#include "image/Disassembly.h"
#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "run/RunMsgs.h"
#include "run/Tracing.h"

#include <algorithm>
#include <limits>
#include <sstream>

namespace tolvane::debug {

namespace {

using debugger::Cell;
using debugger::Moment;
using debugger::Way;
using debugger::Why;
using image::Hex;

constexpr std::int64_t Slice = 10'000'000;
constexpr std::size_t MostLines = 20; // of input and output that are shown at once
constexpr int MostWords = 8;          // of changes
constexpr int LinesAround = 5;
constexpr int MostCells = 256; // of a stretch

std::vector<std::string> Split(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

void Print(const std::string& line) {
    std::string shown;
    AppendVisibly(shown, line);
    console::Write(shown + "\n");
}

Way WayOf(const std::vector<std::string>& words) {
    const std::string back = "back";
    return words.size() > 1 && back.starts_with(words.back()) ? Way::Back : Way::On;
}

int MemoryAt(int address) {
    return comet2->Memory[static_cast<std::size_t>(address)];
}

int CellOf(const std::vector<int>& kept, int address) {
    const auto i = static_cast<std::size_t>(address);
    return i < kept.size() ? kept[i] : 0;
}

// Of many words the first ones.
class ChangedCells {
public:
    void Add(int address, int before, int after) {
        if (((before ^ after) & 0xFFFF) == 0) return;
        if (++count <= MostWords) run::AddCell(row, address, after);
    }
    std::string Text() const {
        return count <= MostWords ? row : row + TextOf(DebugMsg.MoreWords, {count - MostWords});
    }

private:
    std::string row;
    int count = 0;
};

} // namespace

const Session::Command Session::Commands[] = {
    {"step", &Session::Step},   {"back", &Session::Back},   {"over", &Session::Over},       {"out", &Session::Out},
    {"until", &Session::Until}, {"run", &Session::RunOn},   {"reverse", &Session::Reverse}, {"go", &Session::Go},
    {"break", &Session::Break}, {"watch", &Session::Watch}, {"delete", &Session::Delete},   {"who", &Session::Who},
    {"show", &Session::Show},   {"list", &Session::List},   {"type", &Session::Type},       {"help", &Session::Help},
    {"quit", &Session::Quit},   {"close", &Session::Close},
};

Session::Session(const image::LinkedImage& linked, TypedLines& typed, const std::vector<std::string>& input)
    : image(linked), lines(typed), places(linked) {
    for (const std::string& line : input)
        debugger.Past().Type(line);
    debugger.Machine().Keep(*before);
}

void Session::Run() {
    Say(DebugMsg.Welcome);
    ShowPlace();
    while (!hasQuit) {
        const auto line = lines.Next(DebugMsg.Prompt, TypedLines::Kind::Command);
        if (!line) return;
        if (!lines.WasInterrupted()) Obey(*line);
    }
}

// The first command that begins with what is typed.
void Session::Obey(const std::string& line) {
    if (!Split(line).empty()) last = line;
    const Words words = Split(last);
    if (words.empty()) return;
    for (const Command& command : Commands)
        if (std::string_view(command.name).starts_with(words.front())) return (this->*command.obey)(words);
    Say(DebugMsg.NoCommand, {Utf8Arg{words.front()}});
}

bool Session::HasWord(const Words& words, const Msg& needed) const {
    if (words.size() > 1) return true;
    Say(DebugMsg.WordMissing, {Utf8Arg{words.front()}, needed});
    return false;
}

std::optional<std::int64_t> Session::CountOf(const Words& words) const {
    const auto count = words.size() > 1 ? NumberOf(words[1]) : 1;
    if (count && *count > 0) return count;
    Say(DebugMsg.NoNumber, {Utf8Arg{words[1]}});
    return std::nullopt;
}

void Session::Step(const Words& words) {
    const auto count = CountOf(words);
    if (!count) return;
    const Moment most = std::numeric_limits<Moment>::max();
    debugger.BeginGo(*count < most - debugger.Now() ? debugger.Now() + *count : most);
    Finish();
}

void Session::Back(const Words& words) {
    const auto count = CountOf(words);
    if (!count) return;
    debugger.BeginGo(debugger.Now() - *count);
    Finish();
}

void Session::Over(const Words& words) {
    debugger.BeginOver(WayOf(words));
    Finish();
}

void Session::Out(const Words& words) {
    debugger.BeginOut(WayOf(words));
    Finish();
}

void Session::Until(const Words& words) {
    if (!HasWord(words, DebugMsg.PlaceWord)) return;
    const auto address = places.AddressOf(words[1], Pr());
    if (!address) return;
    debugger.BeginUntil(*address, words.size() > 2 ? WayOf(words) : Way::On);
    Finish();
}

void Session::RunOn(const Words&) {
    debugger.BeginRun(Way::On);
    Finish();
}

void Session::Reverse(const Words&) {
    debugger.BeginRun(Way::Back);
    Finish();
}

void Session::Go(const Words& words) {
    if (!HasWord(words, DebugMsg.MomentWord)) return;
    const auto moment = words[1] == "end" ? std::numeric_limits<Moment>::max() : NumberOf(words[1]);
    if (!moment) return Say(DebugMsg.NoMoment, {Utf8Arg{words[1]}});
    debugger.BeginGo(*moment);
    Finish();
}

void Session::Finish() {
    debugger.Machine().Keep(*before);
    told = debugger.Now();
    for (;;) {
        while (!debugger.Work(Slice)) {
        }
        const bool wants = debugger.Result().why == Why::Stopped && debugger.Past().StopHere() == Stop::InputWanted;
        ShowNews(told);
        told = debugger.Now();
        if (!wants || !Ask()) break;
        debugger.Resume();
    }
    ShowChanges();
    ShowReason();
    ShowPlace();
}

bool Session::Ask() {
    auto line = lines.Next(DebugMsg.InPrompt, TypedLines::Kind::Input);
    if (line && !lines.WasInterrupted()) {
        debugger.Past().Type(std::move(*line));
        return true;
    }
    if (!line) Say(DebugMsg.InputEnds);
    return false;
}

// Output and notes behind a moment, up to now.
void Session::ShowNews(Moment since) {
    const debugger::History& past = debugger.Past();
    const auto isOlder = [since](const auto& record) { return record.moment <= since; };
    const auto first = std::find_if_not(past.Output().begin(), past.Output().end(), isOlder);
    ShowOutput(static_cast<std::size_t>(first - past.Output().begin()), past.OutputCount());
    for (const debugger::History::Note& note : past.Notes())
        if (note.moment > since && note.moment <= debugger.Now()) ShowNote(note);
}

void Session::ShowOutput(std::size_t first, std::size_t end) {
    if (first >= end) return;
    const std::size_t shown = std::max(first, end - std::min(end, MostLines));
    if (shown > first) Say(DebugMsg.MoreOutput, {shown - first});
    for (std::size_t i = shown; i < end; ++i)
        console::Write(debugger.Past().Output()[i].text);
}

void Session::ShowNote(const debugger::History::Note& note) {
    const MsgRec record{note.row, note.args, NoLine, note.severity, false, false};
    for (const std::string& line : run::TextLines(record))
        Print(line);
    if (note.severity != Severity::Error) Print("  " + places.PlaceText(note.address));
}

// What is another than where the run stood before.
void Session::ShowChanges() {
    const Tcomet2& machine = debugger.Machine();
    ChangedCells cells;
    const auto used = static_cast<int>(std::max<std::size_t>(before->Memory.size(), AddressCount));
    for (int address = 0; address < std::min(used, AddressCount); ++address)
        cells.Add(address, CellOf(before->Memory, address), MemoryAt(address));
    for (int sp = std::max(machine.SP, StackBottom - StackWords); sp < StackBottom; ++sp) {
        const auto i = static_cast<std::size_t>(StackBottom - sp);
        const bool isNew = sp < before->registers.SP;
        cells.Add(sp, isNew ? ~machine.Stack[i] : before->Stack[i], machine.Stack[i]);
    }
    const std::string row = run::ChangedRegisters(before->registers, machine.RegistersNow()) + cells.Text();
    if (!row.empty()) Print(" " + row);
}

void Session::ShowReason() {
    const debugger::Outcome& result = debugger.Result();
    const Stop stop = debugger.Past().StopHere();
    switch (result.why) {
    case Why::Breakpoint: {
        const int address = debugger.Breakpoints()[result.index];
        return Say(DebugMsg.AtBreakpoint, {NumberOfItem({Cell::Kind::Word, address}, false)});
    }
    case Why::Watch: {
        const std::string change = places.ChangeText(*result.change);
        return Say(DebugMsg.AtWatch, {NumberOfItem(result.change->cell, true), Utf8Arg{change}});
    }
    case Why::Start:
        return Say(DebugMsg.AtStart);
    case Why::Interrupted:
        return Say(DebugMsg.Interrupted);
    case Why::Arrived:
    case Why::Stopped:
    case Why::Found:
    case Why::NotFound:
        break;
    }
    if (stop == Stop::None) return;
    if (stop == Stop::InputWanted) return Say(DebugMsg.Waits);
    if (stop == Stop::InputEnded) return Say(DebugMsg.EndedInput);
    Say(stop == Stop::End ? DebugMsg.Ended : DebugMsg.StoppedByMachine);
}

void Session::ShowPlace() {
    Print("[" + std::to_string(debugger.Now()) + "] " + places.PlaceText(Pr()));
}

void Session::Break(const Words& words) {
    if (words.size() < 2) return ShowItems();
    if (const auto address = places.AddressOf(words[1], Pr())) AddItem({Cell::Kind::Word, *address}, false);
}

void Session::Watch(const Words& words) {
    if (words.size() < 2) return ShowItems();
    if (const auto cell = places.CellOf(words[1], Pr())) AddItem(*cell, true);
}

int Session::NumberOfItem(const Cell& cell, bool isWatch) const {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const Item& i) { return i.isWatch == isWatch && i.cell == cell; });
    return found == items.end() ? 0 : found->number;
}

void Session::AddItem(const Cell& cell, bool isWatch) {
    if (NumberOfItem(cell, isWatch) == 0) items.push_back({++lastNumber, isWatch, cell});
    if (isWatch)
        debugger.SetWatch(cell);
    else
        debugger.SetBreakpoint(cell.index);
    const std::string text = ItemText(cell, isWatch);
    Say(isWatch ? DebugMsg.WatchIs : DebugMsg.BreakpointIs, {NumberOfItem(cell, isWatch), Utf8Arg{text}});
}

std::string Session::ItemText(const Cell& cell, bool isWatch) const {
    return isWatch ? places.ValueText(cell, debugger::ValueOf(debugger.Machine(), cell)) : places.PlaceText(cell.index);
}

void Session::ShowItems() {
    if (items.empty()) return Say(DebugMsg.NothingSet);
    for (const Item& item : items) {
        const std::string text = ItemText(item.cell, item.isWatch);
        Say(item.isWatch ? DebugMsg.WatchIs : DebugMsg.BreakpointIs, {item.number, Utf8Arg{text}});
    }
}

void Session::Delete(const Words& words) {
    if (!HasWord(words, DebugMsg.NumberWord)) return;
    const auto number = NumberOf(words[1]);
    const auto found = std::find_if(items.begin(), items.end(), [&](const Item& i) { return i.number == number; });
    if (found == items.end()) return Say(DebugMsg.NoSuchItem, {Utf8Arg{words[1]}});
    if (found->isWatch)
        debugger.DeleteWatch(found->cell);
    else
        debugger.DeleteBreakpoint(found->cell.index);
    items.erase(found);
    Say(DebugMsg.Deleted, {Utf8Arg{words[1]}});
}

void Session::Who(const Words& words) {
    if (!HasWord(words, DebugMsg.CellWord)) return;
    const auto cell = places.CellOf(words[1], Pr());
    if (!cell) return;
    debugger.BeginWho(*cell);
    while (!debugger.Work(Slice)) {
    }
    const debugger::Outcome& result = debugger.Result();
    const std::string name = places.NameOf(*cell);
    if (result.why == Why::Interrupted) return Say(DebugMsg.Interrupted);
    if (!result.change) return Say(DebugMsg.NotChanged, {Utf8Arg{name}});
    Print(places.ChangeText(*result.change));
    Say(DebugMsg.GoThere, {static_cast<long long>(result.change->moment)});
}

void Session::Show(const Words& words) {
    if (words.size() < 2) return ShowRegisters();
    const auto isWord = [&words](std::string_view word) { return word == words[1]; };
    if (isWord("stack")) return ShowStack();
    if (isWord("calls")) return ShowCalls();
    if (isWord("input")) return ShowInput();
    if (!isWord("output")) return ShowCells(words[1]);
    if (debugger.Past().OutputCount() == 0) return Say(DebugMsg.NoOutput);
    if (debugger.Past().ForgottenLines() > 0)
        Say(DebugMsg.MoreOutput, {static_cast<long long>(debugger.Past().ForgottenLines())});
    for (std::size_t i = 0; i < debugger.Past().OutputCount(); ++i)
        console::Write(debugger.Past().Output()[i].text);
}

void Session::ShowRegisters() {
    const Tcomet2& machine = debugger.Machine();
    const Registers& old = before->registers;
    const auto show = [&](const Cell& cell, int was) {
        const int value = debugger::ValueOf(machine, cell);
        const bool isChanged = cell.kind == Cell::Kind::GR ? value != (was & 0xFFFF) : value != was;
        Print((isChanged ? "* " : "  ") + places.ValueText(cell, value));
    };
    for (int n = 0; n < 8; ++n)
        show({Cell::Kind::GR, n}, old.GR[static_cast<std::size_t>(n)]);
    Print("  PR=" + places.PlaceText(Pr()));
    show({Cell::Kind::SP}, old.SP);
    show({Cell::Kind::Fovf}, old.Fovf);
    show({Cell::Kind::Fsign}, old.Fsign);
    show({Cell::Kind::Fzero}, old.Fzero);
}

// The top first.
void Session::ShowStack() {
    const Tcomet2& machine = debugger.Machine();
    if (machine.SP >= StackBottom) return Say(DebugMsg.StackIsEmpty);
    const auto calls = debugger.Calls();
    for (int sp = std::max(machine.SP, StackBottom - StackWords); sp < StackBottom; ++sp) {
        const int word = machine.Stack[static_cast<std::size_t>(StackBottom - sp)] & 0xFFFF;
        std::string text = Hex(sp) + "=" + Hex(word) + " (" + std::to_string(word);
        if ((word & 0x8000) != 0) text += ", " + std::to_string(word - 0x10000);
        text += ")";
        for (const debugger::Call& call : calls)
            if (call.stackAddress == sp) text += "  " + places.PlaceText(call.address);
        Print(text);
    }
}

// The innermost first: the routine, and the CALL that it will return behind.
void Session::ShowCalls() {
    const auto calls = debugger.Calls();
    if (calls.empty()) return Say(DebugMsg.NoCalls);
    for (const debugger::Call& call : calls) {
        const std::string label = call.routine < 0 ? "" : image.LabelAt(call.routine);
        const std::string routine = call.routine < 0 ? "" : Hex(call.routine) + (label.empty() ? "" : " " + label);
        Print(routine + " <- " + places.PlaceText(call.address));
    }
}

void Session::ShowInput() {
    const debugger::History& past = debugger.Past();
    if (past.ReadCount() == 0 && past.Waiting().empty() && !past.HasInputEnded()) return Say(DebugMsg.NoInput);
    const std::string end = TextOf(RunMsg.EndOfInput);
    const std::size_t shown = past.ReadCount() - std::min(past.ReadCount(), MostLines);
    if (shown > 0) Say(DebugMsg.MoreInput, {shown});
    for (std::size_t i = shown; i < past.ReadCount(); ++i)
        Say(DebugMsg.LineRead, {Utf8Arg{past.Reads()[i].text.value_or(end)}});
    for (const std::string& line : past.Waiting())
        Say(DebugMsg.LineWaits, {Utf8Arg{line}});
    if (past.HasInputEnded()) Say(DebugMsg.LineWaits, {Utf8Arg{end}});
}

void Session::ShowCells(const std::string& what) {
    const std::size_t dots = what.find("..");
    const auto first = places.CellOf(what.substr(0, dots), Pr());
    if (!first) return;
    const auto end = dots == std::string::npos ? first : places.CellOf(what.substr(dots + 2), Pr());
    if (!end) return;
    if (first->kind != Cell::Kind::Word || end->kind != Cell::Kind::Word)
        return Print(places.ValueText(*first, debugger::ValueOf(debugger.Machine(), *first)));
    for (int a = first->index; a <= std::max(first->index, std::min(end->index, first->index + MostCells - 1)); ++a) {
        const Cell cell{Cell::Kind::Word, a};
        Print(places.ValueText(cell, debugger::ValueOf(debugger.Machine(), cell)));
    }
}

void Session::List(const Words& words) {
    const auto address = words.size() > 1 ? places.AddressOf(words[1], Pr()) : Pr();
    if (!address) return;
    const int middle = image.LineOf(*address);
    if (middle < 0) return Print(places.PlaceText(*address));
    const int current = image.LineOf(Pr());
    const int end = std::min(middle + LinesAround + 1, image.LineCount());
    for (int line = std::max(0, middle - LinesAround); line < end; ++line)
        ShowLine(line, current);
}

// "* > 12  #0006 2412       LOOP ADDA GR1,GR2": breakpoint, current line, number, address, words, source.
void Session::ShowLine(int line, int current) {
    constexpr std::size_t NrWidth = 5;
    constexpr int MostShown = 3;
    const int first = places.FirstAddress(line);
    bool isBreakpoint = false;
    std::string shown = first < 0 ? "     " : Hex(first);
    int count = 0;
    for (int a = first; a >= 0 && image.LineOf(a) == line; ++a) {
        isBreakpoint = isBreakpoint || NumberOfItem({Cell::Kind::Word, a}, false) != 0;
        if (++count <= MostShown) shown += " " + Hex(MemoryAt(a)).substr(1);
    }
    shown.resize(NrWidth + 5 * MostShown, ' ');
    std::string nr = std::to_string(line + 1);
    nr.insert(0, NrWidth - std::min(NrWidth, nr.size()), ' ');
    Print(std::string(isBreakpoint ? "*" : " ") + (line == current ? ">" : " ") + nr + " " + shown + "  " +
          image.TextOf(line).source);
}

// All behind the first blank behind the command.
void Session::Type(const Words& words) {
    if (!HasWord(words, DebugMsg.TextWord)) return;
    const std::size_t command = last.find(words.front());
    const Moment latest = debugger.Past().Latest();
    debugger.Past().Type(last.substr(command + words.front().size() + 1));
    TellForgotten(latest);
    Say(DebugMsg.LineKept);
}

void Session::Close(const Words&) {
    const Moment latest = debugger.Past().Latest();
    debugger.Past().EndInput();
    TellForgotten(latest);
    Say(DebugMsg.EndKept);
}

void Session::TellForgotten(Moment latest) const {
    if (debugger.Past().Latest() != latest) Say(DebugMsg.FutureForgotten, {static_cast<long long>(debugger.Now())});
}

void Session::Help(const Words&) {
    Say(DebugMsg.Help);
}

void Session::Quit(const Words&) {
    hasQuit = true;
}

} // namespace tolvane::debug
