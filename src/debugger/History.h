#pragma once
// A run that can be taken to any of its moments. The past is not stored but run again: from the nearest checkpoint,
// with the lines that IN has read then. What it has printed and told is kept once, with its moment.

#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tolvane::debugger {

// The number of instructions that have been executed since the start of the run. An instruction that stops the machine
// is one of them, so that the last moment of a run that has ended stands behind it.
using Moment = std::int64_t;

class History {
public:
    static constexpr Moment UsualStretch = 1'000'000;
    static constexpr std::size_t UsualCheckpoints = 96; // half a megabyte each
    // Output that is kept, in bytes with a share for each line; of more the oldest lines are forgotten.
    static constexpr std::size_t MostOutput = 16'777'216;

    struct OutputLine {
        Moment moment;    // behind the OUT
        std::string text; // UTF-8 with its line end
    };
    // What the machine or its OS has told of: a store or a stop, an unknown service, input that is no text. The notes
    // of the OS are kept once for each instruction.
    struct Note {
        Moment moment; // behind the instruction
        int address;   // of the instruction
        Severity severity;
        const Msg* row;
        std::vector<KeptArg> args; // numbers
    };
    struct InputLine {
        Moment moment;                   // behind the IN that has read it
        std::optional<std::string> text; // nothing: the end of the input
    };

    // The machine's linked program at moment 0. While the object is used, the machine runs for it alone, and neither
    // pipeline nor program change.
    //
    // Checkpoints of the recent past are `stretch` moments apart; at most so many (3 or more) are kept.
    explicit History(Tcomet2& linked = *comet2, Moment stretch = UsualStretch,
                     std::size_t mostCheckpoints = UsualCheckpoints);
    History(const History&) = delete;
    History& operator=(const History&) = delete;

    Moment Now() const { return now; }
    // The latest moment that the run has reached.
    Moment Latest() const { return latest; }
    // Why there is no moment behind Latest: the end of the run, or InputWanted; None where it goes on.
    Stop LatestStop() const;
    // The same for Now: None at an earlier moment.
    Stop StopHere() const { return now == latest ? LatestStop() : Stop::None; }

    // Goes towards a moment, back or on, and executes at most `budget` instructions, which are taken off it. True when
    // it has got there, or as far as the run goes. False with an empty budget, or if Ctrl+C has stopped it on its way:
    // `now` is then a moment of the way, and the call is repeated.
    bool Approach(Moment target, std::int64_t& budget);
    // Without a budget; Ctrl+C alone stops it.
    bool GoTo(Moment target);
    // To a moment that has been reached before and is near, so that Ctrl+C waits. WatchTo ends behind the first
    // instruction that changes what is watched, StepTo goes instruction by instruction until `done`; true, if they did.
    bool WatchTo(Moment to, const Watched& watched);
    template <class Done> bool StepTo(Moment to, Done done);
    // Whether Ctrl+C has come since the last question. The caller lets a signals::Running live.
    bool TakeInterrupt();

    // A line for IN, behind those that are waiting. Where an IN has read something after now, what came after now and
    // the lines that are waiting are forgotten.
    void Type(std::string line);
    // The input ends behind the lines that are waiting.
    void EndInput();
    // What the INs up to now have read is reads[0] to reads[ReadCount() - 1].
    const std::vector<InputLine>& Reads() const { return reads; }
    std::size_t ReadCount() const;
    const std::deque<std::string>& Waiting() const { return waiting; }
    bool HasInputEnded() const { return inputEnded; }

    // All output up to Latest; that up to now are the first OutputCount() lines.
    const std::deque<OutputLine>& Output() const { return output; }
    std::size_t OutputCount() const;
    // Lines at the beginning that have been forgotten.
    std::int64_t ForgottenLines() const { return forgottenLines; }
    // All notes up to Latest, in their order.
    const std::vector<Note>& Notes() const { return notes; }

    const Tcomet2& Machine() const { return machine; }
    Moment Stretch() const { return stretch; }
    std::size_t CheckpointCount() const { return checkpoints.size(); }

private:
    struct Checkpoint {
        Moment moment;
        std::unique_ptr<RunState> state;
    };

    void TakeNearest(Moment target);
    // Executes at most so many instructions. What that has cost: they, and a share for what they have printed.
    std::int64_t RunPiece(std::int64_t instructions, const Watched* watched = nullptr);
    void KeepCheckpoint();
    std::unique_ptr<RunState> Thin();
    void ForgetAfterNow();
    // The moment behind the instruction that has called the OS, and whether it is one that the run has not seen.
    Moment Called() const { return now + pieceLength - machine.Left; }
    bool IsNew() const { return Called() > latest; }
    bool IsReady() const { return nextRead < reads.size() || !waiting.empty() || inputEnded; }
    bool CanGoOn() const { return StopHere() == Stop::None; }

    static void WriteOut(void* self, const std::string& line);
    static std::optional<MachineIo::Line> ReadIn(void* self, std::size_t limit);
    static void KeepNote(void* self, const Msg& msg, Args args);
    static void KeepTold(void* self, Severity severity, const Msg& msg, Args args);
    void AddNote(Severity severity, int address, const Msg& msg, Args args);

    const Moment stretch;
    const std::size_t mostCheckpoints;
    Tcomet2& machine;
    MachineIo io;
    Moment now = 0;
    Moment latest = 0;
    Stop end = Stop::None;        // at `latest`
    std::int64_t pieceLength = 0; // instructions of the piece that is run
    std::size_t pieceOutput = 0;  // bytes that it has printed
    bool interrupted = false;
    bool changed = false;                // what was watched, by the last piece
    std::vector<Checkpoint> checkpoints; // by moment, the first at 0

    std::vector<InputLine> reads;
    std::size_t nextRead = 0;
    std::deque<std::string> waiting;
    bool inputEnded = false;

    std::deque<OutputLine> output;
    std::size_t outputSize = 0;
    std::int64_t forgottenLines = 0;
    std::vector<Note> notes;
    std::set<int> toldOf; // the addresses of the services that have been told of
};

template <class Done> bool History::StepTo(Moment to, Done done) {
    while (now < to) {
        RunPiece(1);
        if (done()) return true;
    }
    return false;
}

} // namespace tolvane::debugger
