#include "debugger/History.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace tolvane::debugger {

namespace {

// Output that ends a piece of the run, so that no piece lasts long.
constexpr std::size_t PieceOutput = 1'000'000;
// The checkpoints stand the closer the nearer they are to now; up to this share of the run they count as near.
constexpr Moment NearShare = 32;

std::size_t SizeOf(const History::OutputLine& line) {
    return line.text.size() + sizeof line;
}

// How many of the records, which stand in their order, lie at a moment or in front of it.
template <class Records> std::size_t CountUpTo(const Records& records, Moment moment) {
    const auto behind = std::upper_bound(records.begin(), records.end(), moment,
                                         [](Moment m, const auto& record) { return m < record.moment; });
    return static_cast<std::size_t>(behind - records.begin());
}

template <class Records> void Cut(Records& records, Moment moment) {
    records.erase(records.begin() + static_cast<std::ptrdiff_t>(CountUpTo(records, moment)), records.end());
}

} // namespace

History::History(Tcomet2& linked, Moment stretchLength, std::size_t most)
    : stretch(stretchLength), mostCheckpoints(most),
      machine(linked), io{WriteOut, ReadIn,   KeepNote,
                          this,     KeepTold, [](void* self) { return static_cast<History*>(self)->IsReady(); }} {
    machine.BeginRun();
    KeepCheckpoint();
}

Stop History::LatestStop() const {
    const bool isAnswered = end == Stop::InputWanted && (!waiting.empty() || inputEnded);
    return isAnswered ? Stop::None : end;
}

bool History::Approach(Moment target, std::int64_t& budget) {
    TakeNearest(std::max<Moment>(target, 0));
    while (now < target && CanGoOn() && budget > 0 && !interrupted) {
        budget -= RunPiece(std::min({target - now, budget, stretch - now % stretch}));
        if (now % stretch == 0 && CanGoOn()) KeepCheckpoint();
    }
    return now >= target || !CanGoOn();
}

bool History::GoTo(Moment target) {
    std::int64_t budget = std::numeric_limits<std::int64_t>::max();
    return Approach(target, budget);
}

bool History::TakeInterrupt() {
    return std::exchange(interrupted, false);
}

// Takes up the last checkpoint in front of the target, unless the machine stands between the two.
void History::TakeNearest(Moment target) {
    const Checkpoint& nearest = checkpoints[CountUpTo(checkpoints, target) - 1];
    if (nearest.moment <= now && now <= target) return;
    machine.TakeUp(*nearest.state);
    now = nearest.moment;
    nextRead = ReadCount();
}

bool History::WatchTo(Moment to, const Watched& watched) {
    const int bits = *watched.cell & watched.bits;
    changed = false;
    while (now < to && !changed)
        RunPiece(to - now, &watched);
    return changed || (*watched.cell & watched.bits) != bits; // by the instruction that ends the run
}

std::int64_t History::RunPiece(std::int64_t instructions, const Watched* watched) {
    pieceLength = instructions;
    pieceOutput = 0;
    const std::size_t firstNote = notes.size();
    const MachineIo* const others = std::exchange(machine.Io, &io);
    const Stop stop = watched == nullptr ? machine.GoOn(instructions) : machine.GoOnWatching(instructions, *watched);
    machine.Io = others;

    const std::int64_t executed = pieceLength - machine.Left;
    now += executed;
    if (now > latest) {
        latest = now;
        end = Stop::None;
    }
    if (stop == Stop::Changed)
        changed = true;
    else if (stop == Stop::Interrupted)
        interrupted = true;
    else if (stop != Stop::LimitReached)
        end = stop;
    for (std::size_t i = firstNote; i < notes.size(); ++i)
        if (notes[i].severity == Severity::Error) notes[i].address = machine.FaultAddress(stop);
    return executed + static_cast<std::int64_t>(pieceOutput);
}

void History::KeepCheckpoint() {
    const std::size_t place = CountUpTo(checkpoints, now);
    if (place > 0 && checkpoints[place - 1].moment == now) return;
    std::unique_ptr<RunState> state = checkpoints.size() < mostCheckpoints ? nullptr : Thin();
    if (!state) state.reset(new RunState);
    machine.Keep(*state);
    const auto behind = checkpoints.begin() + static_cast<std::ptrdiff_t>(CountUpTo(checkpoints, now));
    checkpoints.insert(behind, {now, std::move(state)});
}

// Removes the checkpoint whose neighbours stand closest together, measured by their distance from now, and gives its
// room back. The one at 0 stays.
std::unique_ptr<RunState> History::Thin() {
    const auto worth = [this](std::size_t i) {
        const Moment next = i + 1 < checkpoints.size() ? checkpoints[i + 1].moment : std::max(latest, now) + stretch;
        const Moment distance = std::abs(now - checkpoints[i].moment) + latest / NearShare + stretch;
        return static_cast<double>(next - checkpoints[i - 1].moment) / static_cast<double>(distance);
    };
    std::size_t least = 1;
    double leastWorth = worth(1);
    for (std::size_t i = 2; i < checkpoints.size(); ++i) {
        const double other = worth(i);
        if (other >= leastWorth) continue;
        least = i;
        leastWorth = other;
    }
    std::unique_ptr<RunState> room = std::move(checkpoints[least].state);
    checkpoints.erase(checkpoints.begin() + static_cast<std::ptrdiff_t>(least));
    return room;
}

void History::Type(std::string line) {
    if (ReadCount() < reads.size()) ForgetAfterNow();
    waiting.push_back(std::move(line));
    inputEnded = false;
}

void History::EndInput() {
    if (ReadCount() < reads.size()) ForgetAfterNow();
    inputEnded = true;
}

void History::ForgetAfterNow() {
    Cut(checkpoints, now);
    Cut(reads, now);
    Cut(notes, now);
    Cut(output, now);
    nextRead = reads.size();
    outputSize = 0;
    for (const OutputLine& line : output)
        outputSize += SizeOf(line);
    toldOf.clear();
    for (const Note& note : notes)
        if (note.severity == Severity::Note) toldOf.insert(note.address);
    waiting.clear();
    latest = now;
    end = Stop::None;
}

std::size_t History::ReadCount() const {
    return CountUpTo(reads, now);
}

std::size_t History::OutputCount() const {
    return CountUpTo(output, now);
}

void History::WriteOut(void* self, const std::string& line) {
    History& history = *static_cast<History*>(self);
    history.pieceOutput += line.size();
    if (history.IsNew()) {
        history.output.push_back({history.Called(), line});
        history.outputSize += SizeOf(history.output.back());
    }
    while (history.outputSize > MostOutput) {
        history.outputSize -= SizeOf(history.output.front());
        history.output.pop_front();
        ++history.forgottenLines;
    }
    if (history.pieceOutput < PieceOutput) return;
    history.pieceLength -= history.machine.Left;
    history.machine.Left = 0;
}

std::optional<MachineIo::Line> History::ReadIn(void* self, std::size_t) {
    History& history = *static_cast<History*>(self);
    if (history.nextRead == history.reads.size()) {
        history.reads.push_back({history.Called(), std::nullopt});
        if (!history.waiting.empty()) {
            history.reads.back().text = std::move(history.waiting.front());
            history.waiting.pop_front();
        }
    }
    const std::optional<std::string>& text = history.reads[history.nextRead++].text;
    if (!text) return std::nullopt;
    return MachineIo::Line{*text, text->size()};
}

void History::KeepNote(void* self, const Msg& msg, Args args) {
    History& history = *static_cast<History*>(self);
    if (!history.IsNew() || !history.toldOf.insert(history.machine.PR).second) return;
    history.AddNote(Severity::Note, history.machine.PR, msg, args);
}

// PR stands on the second word of a store.
void History::KeepTold(void* self, Severity severity, const Msg& msg, Args args) {
    History& history = *static_cast<History*>(self);
    if (history.IsNew()) history.AddNote(severity, history.machine.PR - 1, msg, args);
}

void History::AddNote(Severity severity, int address, const Msg& msg, Args args) {
    notes.push_back({Called(), address, severity, &msg, {args.begin(), args.end()}});
}

} // namespace tolvane::debugger
