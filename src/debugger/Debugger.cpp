// Breakpoints cost nothing until they are hit: the machine counts the executions of each address anyway. A search runs
// the program piece by piece, at full speed, and looks at those counts behind each. Only a piece in which one of them
// has changed is run again, instruction by instruction. Watched cells have no such counts: for them every piece is.

#include "debugger/Debugger.h"

#include <algorithm>
#include <limits>

namespace tolvane::debugger {

namespace {

constexpr Moment FirstPiece = 1'000; // pieces grow up to the stretch between two checkpoints
constexpr Moment Growth = 8;
constexpr Moment ScanCost = 2; // an instruction that is looked at takes as long as so many others
constexpr int CallCode = 0x80;
constexpr int RetCode = 0x81;

int CodeAt(const Tcomet2& machine, int address) {
    return machine.Memory[static_cast<std::size_t>(address)] >> 8 & 0xFF;
}

int CountAt(const Tcomet2& machine, int address) {
    return machine.RunCount[static_cast<std::size_t>(address)];
}

bool IsCallExecuted(const Tcomet2& machine, int address) {
    return address >= 0 && CodeAt(machine, address) == CallCode && CountAt(machine, address) != 0;
}

template <class T> void AddOnce(std::vector<T>& list, const T& value) {
    if (std::find(list.begin(), list.end(), value) == list.end()) list.push_back(value);
}

template <class T> void Remove(std::vector<T>& list, const T& value) {
    list.erase(std::remove(list.begin(), list.end(), value), list.end());
}

Watched WatchedOf(const Tcomet2& machine, const Cell& cell) {
    const auto index = static_cast<std::size_t>(cell.index);
    switch (cell.kind) {
    case Cell::Kind::GR:
        return {&machine.GR[index], 0xFFFF};
    case Cell::Kind::SP:
        return {&machine.SP, -1};
    case Cell::Kind::Fovf:
        return {&machine.SP, 0, 1, 0, 0};
    case Cell::Kind::Fsign:
        return {&machine.SP, 0, 0, 1, 0};
    case Cell::Kind::Fzero:
        return {&machine.SP, 0, 0, 0, 1};
    case Cell::Kind::Word:
        break;
    }
    return {&machine.Memory[index], 0xFFFF};
}

// A moment that is near, whatever signals come.
void NearGoTo(History& past, Moment moment) {
    while (!past.GoTo(moment))
        past.TakeInterrupt();
}

} // namespace

int ValueOf(const Tcomet2& machine, const Cell& cell) {
    const auto index = static_cast<std::size_t>(cell.index);
    switch (cell.kind) {
    case Cell::Kind::GR:
        return machine.GR[index] & 0xFFFF;
    case Cell::Kind::SP:
        return machine.SP;
    case Cell::Kind::Fovf:
        return machine.Fovf;
    case Cell::Kind::Fsign:
        return machine.Fsign;
    case Cell::Kind::Fzero:
        return machine.Fzero;
    case Cell::Kind::Word:
        break;
    }
    return machine.Memory[index] & 0xFFFF;
}

void Debugger::SetBreakpoint(int address) {
    AddOnce(breakpoints, address);
}

void Debugger::DeleteBreakpoint(int address) {
    Remove(breakpoints, address);
}

void Debugger::SetWatch(const Cell& cell) {
    AddOnce(watches, cell);
}

void Debugger::DeleteWatch(const Cell& cell) {
    Remove(watches, cell);
}

void Debugger::BeginGo(Moment moment) {
    result = {moment < 0 ? Why::Start : Why::Arrived, 0, {}};
    wasInterrupted = false;
    past.TakeInterrupt(); // one of an earlier task
    target = std::max<Moment>(moment, 0);
    phase = Phase::Going;
    isSearch = false;
}

void Debugger::Resume() {
    result = {};
    phase = isSearch ? Phase::Beginning : Phase::Going;
}

void Debugger::BeginOver(Way wanted) {
    const Tcomet2& machine = Machine();
    const int sp = machine.SP;
    if (wanted == Way::Back) {
        BeginGo(Now() - 1);
        behindRet.reset();
        if (IsCallExecuted(machine, machine.PR - 2)) behindRet = Aim{machine.PR - 2, sp, sp};
        phase = Phase::LookingBack;
    } else if (CodeAt(machine, machine.PR) == CallCode) {
        BeginSearch(Way::On, Aim{machine.PR + 2, sp, std::numeric_limits<int>::max()});
    } else {
        BeginGo(Now() + 1);
    }
}

void Debugger::BeginOut(Way wanted) {
    const std::vector<Call> calls = Calls();
    if (calls.empty()) return BeginSearch(wanted, std::nullopt);
    const Call& call = calls.front();
    const int sp = call.stackAddress + 1;
    if (wanted == Way::On)
        BeginSearch(wanted, Aim{call.address + 2, sp, std::numeric_limits<int>::max()});
    else
        BeginSearch(wanted, Aim{call.address, sp, sp});
}

void Debugger::BeginUntil(int address, Way wanted) {
    BeginSearch(wanted, Aim{address, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
}

void Debugger::BeginRun(Way wanted) {
    BeginSearch(wanted, std::nullopt);
}

void Debugger::BeginWho(const Cell& cell) {
    BeginSearch(Way::Back, std::nullopt);
    isWho = true;
    marks.clear();
    cells = {cell};
}

void Debugger::BeginSearch(Way wanted, std::optional<Aim> place) {
    result = {};
    way = wanted;
    aim = place;
    isWho = false;
    wasInterrupted = false;
    past.TakeInterrupt();
    origin = Now();
    marks = breakpoints;
    if (aim) marks.push_back(aim->address);
    cells = watches;
    hit.reset();
    pieceBegin = pieceEnd = origin;
    pieceLength = FirstPiece;
    phase = Phase::Beginning;
    isSearch = true;
}

bool Debugger::Work(std::int64_t budget) {
    while (phase != Phase::Done && budget > 0)
        Step(budget);
    return phase == Phase::Done;
}

const Outcome& Debugger::Finish() {
    while (!Work(std::numeric_limits<std::int64_t>::max())) {
    }
    return result;
}

void Debugger::Step(std::int64_t& budget) {
    switch (phase) {
    case Phase::Going:
    case Phase::Landing:
        return Land(budget);
    case Phase::LookingBack:
        return LookBack(budget);
    case Phase::Beginning:
        return BeginPiece(budget);
    case Phase::Exploring:
        return Explore(budget);
    case Phase::Rewinding:
        return Rewind(budget);
    case Phase::Done:
        return;
    }
}

// Ctrl+C ends a task where it stands. A piece that has been run is looked at before.
bool Debugger::IsInterrupted() {
    if (past.TakeInterrupt()) wasInterrupted = true;
    return wasInterrupted;
}

// The way back of a search has been gone before, and is gone to its end.
void Debugger::Land(std::int64_t& budget) {
    const bool hasArrived = past.Approach(target, budget);
    const bool isCut = IsInterrupted() && !hasArrived && phase == Phase::Going;
    if (!hasArrived && !isCut) return;
    if (isCut)
        result.why = Why::Interrupted;
    else if (Now() != target)
        result.why = Why::Stopped;
    phase = Phase::Done;
}

void Debugger::EndAsStopped() {
    result.why = Why::Stopped;
    phase = Phase::Done;
}

void Debugger::LandAt(Moment moment, const Outcome& outcome) {
    result = outcome;
    target = moment;
    phase = Phase::Landing;
}

// One instruction back; behind a RET to its CALL.
void Debugger::LookBack(std::int64_t& budget) {
    if (!past.Approach(target, budget) && !IsInterrupted()) return;
    phase = Phase::Done;
    if (wasInterrupted)
        result.why = Why::Interrupted;
    else if (behindRet && CodeAt(Machine(), Machine().PR) == RetCode)
        BeginSearch(Way::Back, behindRet);
}

void Debugger::BeginPiece(std::int64_t& budget) {
    const Moment stretch = past.Stretch();
    if (way == Way::Back && marks.empty() && cells.empty()) pieceBegin = 0;
    if (way == Way::On) {
        pieceBegin = Now();
        pieceEnd = std::min(pieceBegin + pieceLength, (pieceBegin / stretch + 1) * stretch);
    } else {
        pieceEnd = pieceBegin;
        if (pieceEnd == 0) return LandAt(isWho ? origin : 0, {isWho ? Why::NotFound : Why::Start, 0, {}});
        pieceBegin = std::max(pieceEnd - pieceLength, (pieceEnd - 1) / stretch * stretch);
    }
    pieceLength = std::min(pieceLength * Growth, stretch);
    phase = Phase::Exploring;
    hasCounts = false;
    --budget;
}

void Debugger::Explore(std::int64_t& budget) {
    if (!hasCounts) {
        if (!past.Approach(pieceBegin, budget) && !IsInterrupted()) return;
        counts = MarkCounts();
        hasCounts = true;
    }
    if (!wasInterrupted && !past.Approach(pieceEnd, budget) && !IsInterrupted()) return;
    if (way == Way::On) pieceEnd = Now();
    countsBehind = MarkCounts();
    const bool isSuspicious = !cells.empty() || countsBehind != counts;
    if (isSuspicious && !(wasInterrupted && way == Way::Back))
        phase = Phase::Rewinding;
    else
        EndPiece();
}

void Debugger::Rewind(std::int64_t& budget) {
    if (!past.Approach(pieceBegin, budget)) {
        if (IsInterrupted() && way == Way::Back) EndPiece();
        return;
    }
    budget -= (pieceEnd - pieceBegin) * ScanCost;
    Scan();
    EndPiece();
}

// Looks for the first hit of the piece on the way on, for the last one on the way back.
void Debugger::Scan() {
    for (const Probe& probe : Probes())
        ScanFor(probe);
    if (aim) ScanForAim();
    NearGoTo(past, pieceEnd);
}

// An instruction at a breakpoint changes its own count.
std::vector<Debugger::Probe> Debugger::Probes() const {
    std::vector<Probe> probes;
    const Tcomet2& machine = Machine();
    for (std::size_t i = 0; i < std::min(marks.size(), breakpoints.size()); ++i)
        if (countsBehind[i] != counts[i])
            probes.push_back(
                {{&machine.RunCount[static_cast<std::size_t>(marks[i])], -1}, 1, {Why::Breakpoint, i, {}}});
    for (std::size_t i = 0; i < cells.size(); ++i)
        probes.push_back({WatchedOf(machine, cells[i]), way == Way::On ? 0 : 1, {Why::Watch, i, {}}});
    return probes;
}

bool Debugger::IsBetter(Moment moment) const {
    if (moment == origin) return false;
    if (!hit) return true;
    return way == Way::On ? moment < hit->moment : moment > hit->moment;
}

void Debugger::ScanFor(const Probe& probe) {
    NearGoTo(past, pieceBegin);
    while (past.WatchTo(pieceEnd, probe.watched)) {
        const Moment moment = Now() - probe.back;
        if (IsBetter(moment)) hit = Hit{moment, probe.outcome};
        if (Now() == pieceEnd || (hit && way == Way::On)) return;
    }
}

void Debugger::ScanForAim() {
    NearGoTo(past, pieceBegin);
    const auto look = [this] {
        if (Now() < pieceEnd && IsAim() && IsBetter(Now())) hit = Hit{Now(), {}};
        return hit && way == Way::On && Now() >= hit->moment;
    };
    if (!look()) past.StepTo(pieceEnd, look);
}

void Debugger::EndPiece() {
    phase = Phase::Beginning;
    if (hit) {
        if (hit->outcome.why == Why::Watch) {
            const Moment changeAt = way == Way::On ? hit->moment - 1 : hit->moment;
            hit->outcome.change = ChangeFrom(changeAt, cells[hit->outcome.index]);
            if (isWho) hit->outcome.why = Why::Found;
        }
        return LandAt(isWho ? origin : hit->moment, hit->outcome);
    }
    if (IsInterrupted()) {
        result.why = Why::Interrupted;
        phase = Phase::Done;
        if (isWho) LandAt(origin, result);
        return;
    }
    if (way == Way::Back || past.StopHere() == Stop::None) return;
    EndAsStopped();
    if (past.StopHere() != Stop::InputWanted || Now() == origin) return;
    const auto found = std::find(breakpoints.begin(), breakpoints.end(), Machine().PR);
    if (IsAim())
        result = {};
    else if (found != breakpoints.end())
        result = {Why::Breakpoint, static_cast<std::size_t>(found - breakpoints.begin()), {}};
}

bool Debugger::IsAim() const {
    const Tcomet2& machine = Machine();
    return aim && machine.PR == aim->address && machine.SP >= aim->leastSp && machine.SP <= aim->mostSp;
}

// What the instruction at a moment of the past does to a cell. The machine stands behind it then.
Change Debugger::ChangeFrom(Moment moment, const Cell& cell) {
    NearGoTo(past, moment);
    const Tcomet2& machine = Machine();
    const auto pr = static_cast<std::size_t>(machine.PR);
    Change change{cell, moment, machine.PR, machine.Memory[pr], machine.Memory[pr + 1], ValueOf(machine, cell), 0};
    NearGoTo(past, moment + 1);
    change.after = ValueOf(machine, cell);
    return change;
}

std::vector<int> Debugger::MarkCounts() const {
    std::vector<int> executions;
    for (const int address : marks)
        executions.push_back(CountAt(Machine(), address));
    return executions;
}

std::vector<Call> Debugger::Calls() const {
    const Tcomet2& machine = Machine();
    std::vector<Call> calls;
    for (int sp = std::max(machine.SP, StackBottom - StackWords); sp < StackBottom; ++sp) {
        const int behind = machine.Stack[static_cast<std::size_t>(StackBottom - sp)] & 0xFFFF;
        if (!IsCallExecuted(machine, behind - 2)) continue;
        const auto call = static_cast<std::size_t>(behind - 2);
        const bool isIndexed = (machine.Memory[call] & 7) != 0;
        calls.push_back({behind - 2, isIndexed ? -1 : machine.Memory[call + 1] & 0xFFFF, sp});
    }
    return calls;
}

} // namespace tolvane::debugger
