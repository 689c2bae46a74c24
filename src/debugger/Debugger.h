#pragma once
// Questions to a run and its past: go on or back to a place, to a breakpoint, to a change; who changed what last; which
// CALLs are open. A task is begun and then worked on in pieces, so that whoever asks can stop it or do something else
// in between.
//
//   debugger.BeginRun(Way::On);
//   while (!debugger.Work(10'000'000)) ...
//   debugger.Result()

#include "debugger/History.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tolvane::debugger {

// What can be watched and asked for.
struct Cell {
    enum class Kind : std::uint8_t { GR, SP, Fovf, Fsign, Fzero, Word };
    Kind kind;
    int index = 0; // of a GR: its number, of a word: its address
    friend bool operator==(const Cell&, const Cell&) = default;
};
// Registers and words: the 16 bits without their sign; SP as it stands.
int ValueOf(const Tcomet2& machine, const Cell& cell);

// An instruction that has changed a cell.
struct Change {
    Cell cell;
    Moment moment; // in front of it
    int address;
    int word; // its words when it was executed
    int second;
    int before; // values of the cell
    int after;
};

// A CALL that has not returned, as the stack tells: the word there is the address behind a CALL that has been executed.
struct Call {
    int address;      // of the CALL
    int routine;      // what it calls; -1 if an index register takes part
    int stackAddress; // of the return address
};

enum class Way : std::uint8_t { On, Back };

enum class Why : std::uint8_t {
    Arrived,     // where the task was to go
    Breakpoint,  // in front of the instruction at Result().index of Breakpoints()
    Watch,       // On: behind the instruction of Result().change; Back: in front of it
    Stopped,     // the run goes no further: Past().StopHere() tells the reason, InputWanted for one
    Start,       // moment 0 was reached on the way back
    Found,       // Who: Result().change
    NotFound,    // Who: it has not changed since the start
    Interrupted, // by Ctrl+C, at some moment of the way
};

struct Outcome {
    Why why = Why::Arrived;
    std::size_t index = 0; // in Breakpoints() or Watches()
    std::optional<Change> change;
};

class Debugger {
public:
    // The machine's linked program at moment 0; see History.
    explicit Debugger(Tcomet2& linked = *comet2, Moment stretch = History::UsualStretch,
                      std::size_t mostCheckpoints = History::UsualCheckpoints)
        : past(linked, stretch, mostCheckpoints) {}

    // For typing, output and notes. Now must not be moved behind the back of a task.
    History& Past() { return past; }
    const History& Past() const { return past; }
    Moment Now() const { return past.Now(); }
    const Tcomet2& Machine() const { return past.Machine(); }

    // In the order in which they were set. Setting one again does nothing; addresses are 0 to 65535.
    const std::vector<int>& Breakpoints() const { return breakpoints; }
    void SetBreakpoint(int address);
    void DeleteBreakpoint(int address);
    const std::vector<Cell>& Watches() const { return watches; }
    void SetWatch(const Cell& cell);
    void DeleteWatch(const Cell& cell);

    // The tasks. Each forgets the one before, and begins from now. All but BeginGo and BeginWho end at breakpoints and
    // watched changes on their way, too; what lies at now itself does not count.
    void BeginGo(Moment target); // to a moment, or as far as the run goes
    void BeginOver(Way way);     // one instruction; a CALL with all that it does until its RET is one
    void BeginOut(Way way);      // behind the RET of the innermost open CALL; Back: in front of that CALL
    void BeginUntil(int address, Way way);
    void BeginRun(Way way);
    void BeginWho(const Cell& cell); // now is the same behind it

    // Works on the task, and executes about so many instructions for it. True when it is done.
    bool Work(std::int64_t budget);
    // Works until it is done.
    const Outcome& Finish();
    const Outcome& Result() const { return result; }
    // Begins a task again that has stopped in front of an IN, from there and with its old aim.
    void Resume();

    // The innermost first.
    std::vector<Call> Calls() const;

private:
    enum class Phase : std::uint8_t { Going, LookingBack, Beginning, Exploring, Rewinding, Landing, Done };
    // A place that ends a search, where SP is right there.
    struct Aim {
        int address;
        int leastSp;
        int mostSp;
    };
    struct Hit {
        Moment moment;
        Outcome outcome;
    };
    // What a piece is run through for: a change, told by its moment or by the one in front of it.
    struct Probe {
        Watched watched;
        Moment back;
        Outcome outcome;
    };

    void BeginSearch(Way way, std::optional<Aim> aim);
    void Step(std::int64_t& budget);
    void LookBack(std::int64_t& budget);
    void BeginPiece(std::int64_t& budget);
    void Explore(std::int64_t& budget);
    void Rewind(std::int64_t& budget);
    void Scan();
    void ScanFor(const Probe& probe);
    void ScanForAim();
    std::vector<Probe> Probes() const;
    bool IsBetter(Moment moment) const;
    void EndPiece();
    void Land(std::int64_t& budget);
    void LandAt(Moment target, const Outcome& outcome);
    void EndAsStopped();

    std::vector<int> MarkCounts() const;
    bool IsAim() const;
    Change ChangeFrom(Moment moment, const Cell& cell);
    bool IsInterrupted();

    History past;
    std::vector<int> breakpoints;
    std::vector<Cell> watches;

    Phase phase = Phase::Done;
    bool isSearch = false; // the task, or a way to a moment
    Outcome result;
    Moment target = 0;            // of Going and Landing
    std::optional<Aim> behindRet; // of LookingBack

    // A search
    Way way = Way::On;
    bool isWho = false;
    bool wasInterrupted = false;
    Moment origin = 0; // where it began
    std::optional<Aim> aim;
    std::vector<int> marks;  // addresses
    std::vector<Cell> cells; // watched
    Moment pieceBegin = 0;
    Moment pieceEnd = 0;
    Moment pieceLength = 0;
    bool hasCounts = false;
    std::vector<int> counts; // of the marks, in front of the piece and behind it
    std::vector<int> countsBehind;
    std::optional<Hit> hit;
};

} // namespace tolvane::debugger
