// A run that is taken back and forth, against plain runs of as many instructions and against a look at each moment:
// what learners write, and words by chance, in all pipelines.

#include "debugger/Debugger.h"

#include "platform/Console.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace tolvane::tests {

namespace {

using namespace debugger;

constexpr Moment End = 6'000; // of the runs that are looked at
constexpr Moment Stretch = 32;

using Words = std::vector<int>;
using Lines = std::vector<std::string>;

// fib(GR1) with two CALLs a level.
const Words Recursion = {0x1210, 9,      0x8000, 5,      0x8800, 0x1220, 1,     0x4412, 0x6100,
                         24,     0x7001, 0,      0x1211, 0xFFFF, 0x8000, 5,     0x7120, 0x7002,
                         0,      0x1212, 0xFFFE, 0x8000, 5,      0x7110, 0x8100};
// Lines for ever, each printed; IN and OUT of a buffer, counts in between.
const Words Echo = {0x1210, 20, 0x1220, 19, 0xF000, 1, 0xF000, 2, 0x1230, 9, 0x1233, 0xFFFF, 0x1200, 0, 0x6400, 4};
// An instruction that counts its own operand up, and grows into the memory behind.
const Words SelfModifying = {0x1210, 1,  0x1110, 9, 0x1220, 1,  0x2620, 0x1211, 0,      0x1240, 0,
                             0x1010, 10, 0x2210, 5, 0x1110, 10, 0x1141, 0x2000, 0x6400, 9};

class Random {
public:
    explicit Random(unsigned seed) : numbers(seed) {}
    int Below(Moment n) { return static_cast<int>(numbers() % static_cast<std::uint64_t>(n)); }
    // Instructions that mostly stay among themselves.
    Words Program() {
        static constexpr int Codes[] = {0x00, 0x10, 0x11, 0x11, 0x12, 0x12, 0x14, 0x20, 0x22, 0x26, 0x31,
                                        0x40, 0x41, 0x51, 0x61, 0x62, 0x63, 0x64, 0x65, 0x66, 0x70, 0x71,
                                        0x80, 0x80, 0x81, 0x81, 0xF0, 0xF0, 0x24, 0x25, 0x36, 0x52};
        Words words;
        for (int i = 0; i < 40; ++i) {
            words.push_back(Codes[Below(std::size(Codes))] << 8 | Below(8) << 4 | Below(4));
            if (Below(40) != 0) words.push_back(words.back() >> 12 == 0xF ? Below(4) : Below(80));
        }
        words[0] &= 0xFF0F;
        return words;
    }

private:
    std::mt19937_64 numbers;
};

// A plain run: its state, what it has printed, and how many lines it has read.
struct Plain {
    Tcomet2 machine;
    RunState state;
    std::string written;
    const Lines* typed = nullptr;
    std::size_t reads = 0;
    std::size_t told = 0;
    Stop stop = Stop::LimitReached;

    void Run(const Words& words, Moment moment) {
        Load(machine, words);
        const MachineIo io{[](void* self, const std::string& line) { static_cast<Plain*>(self)->written += line; },
                           [](void* self, std::size_t) -> std::optional<MachineIo::Line> {
                               Plain& p = *static_cast<Plain*>(self);
                               if (p.reads++ >= p.typed->size()) return std::nullopt;
                               const std::string& line = (*p.typed)[p.reads - 1];
                               return MachineIo::Line{line, line.size()};
                           },
                           [](void*, const Msg&, Args) {}, this,
                           [](void* self, Severity, const Msg&, Args) { ++static_cast<Plain*>(self)->told; }};
        machine.Io = &io;
        written.clear();
        reads = told = 0;
        machine.BeginRun();
        stop = moment == 0 ? Stop::LimitReached : machine.RunLimited(moment);
        machine.Keep(state);
    }
    static void Load(Tcomet2& machine, const Words& words) {
        machine.InitComet2();
        std::copy(words.begin(), words.end(), machine.Memory.begin());
        machine.ReservedWords = static_cast<int>(words.size());
    }
};

bool SameState(const RunState& a, const RunState& b) {
    const auto same = [](const Registers& r, const Registers& s) {
        return r.GR == s.GR && r.PR == s.PR && r.SP == s.SP && r.Fovf == s.Fovf && r.Fsign == s.Fsign &&
               r.Fzero == s.Fzero;
    };
    return a.OS == b.OS && a.Memory == b.Memory && a.RunCount == b.RunCount && a.Stack == b.Stack &&
           same(a.registers, b.registers) && a.EffAdr == b.EffAdr && a.StoreWarned == b.StoreWarned &&
           a.InputEnds == b.InputEnds;
}

class Debugging : public testing::Test {
protected:
    void TearDown() override { modeFlags->Pipe = &DefaultPipeline(); }

    // The run stands where a plain one would.
    void Compare(const History& past, const Words& words, const Lines& typed) {
        plain->typed = &typed;
        plain->Run(words, past.Now());
        past.Machine().Keep(*state);
        EXPECT_TRUE(SameState(*state, plain->state)) << "at " << past.Now() << " of " << past.Latest();
        std::string written;
        for (std::size_t i = 0; i < past.OutputCount(); ++i)
            written += past.Output()[i].text;
        EXPECT_EQ(written, plain->written);
        EXPECT_EQ(past.ReadCount(), plain->reads);
        std::size_t told = 0;
        for (const History::Note& note : past.Notes())
            told += note.severity != Severity::Note && note.moment <= past.Now() ? 1U : 0U;
        EXPECT_EQ(told, plain->told);
        const bool isEnd = past.StopHere() != Stop::None && past.StopHere() != Stop::InputWanted;
        EXPECT_EQ(isEnd ? past.StopHere() : Stop::LimitReached, plain->stop);
        EXPECT_LE(past.CheckpointCount(), History::UsualCheckpoints);
    }

    void GoAbout(const Words& words, Random& random) {
        Plain::Load(*machine, words);
        History past(*machine, Stretch);
        Lines typed;
        for (int i = 0; i < 12 && !HasFailure(); ++i) {
            const Moment to = random.Below(3) == 0 ? past.Latest() - 20 + random.Below(30) : random.Below(End);
            std::int64_t budget = 0;
            do {
                budget = 1 + random.Below(End);
            } while (!past.Approach(to, budget));
            EXPECT_TRUE(past.Now() == std::max<Moment>(to, 0) || past.StopHere() != Stop::None);
            Compare(past, words, typed);
            if (random.Below(2) == 0) continue;
            if (past.ReadCount() < past.Reads().size()) typed.resize(past.ReadCount());
            typed.push_back(std::string(static_cast<std::size_t>(random.Below(9)), static_cast<char>('a' + i)));
            past.Type(typed.back());
        }
    }

    std::unique_ptr<Tcomet2> machine = std::make_unique<Tcomet2>();
    std::unique_ptr<Plain> plain = std::make_unique<Plain>();
    std::unique_ptr<RunState> state = std::make_unique<RunState>();
};

TEST_F(Debugging, EachMomentIsThatOfAPlainRun) {
    Random random(1);
    for (const char* pipeline : {"WP", "NWW", "NwW", "NaW", "NA", "AP", "NH"}) {
        modeFlags->Pipe = FindPipeline(pipeline);
        for (const Words& words : {Recursion, Echo, SelfModifying})
            GoAbout(words, random);
        for (int i = 0; i < 6 && !HasFailure(); ++i)
            GoAbout(random.Program(), random);
    }
}

// Where a task ends, found by a look at each moment.
struct Moments {
    std::vector<Registers> at;
    std::vector<std::vector<int>> cells;
    std::vector<bool> isHit; // a breakpoint or the aim stands there

    // The next moment on the way at which one of the two has happened; a change is met behind or in front of it.
    Moment From(Moment now, Way way) const {
        const int step = way == Way::On ? 1 : -1;
        for (Moment m = now + step; m > 0 && m < Last(); m += step)
            if (isHit[Index(m)] || cells[Index(way == Way::On ? m - 1 : m)] != cells[Index(way == Way::On ? m : m + 1)])
                return m;
        return way == Way::On ? Last() : 0;
    }
    Moment Last() const { return static_cast<Moment>(at.size()) - 1; }
    static std::size_t Index(Moment m) { return static_cast<std::size_t>(m); }
};

TEST_F(Debugging, TasksEndWhereALookAtEachMomentFindsIt) {
    Random random(7);
    int found = 0;
    for (int round = 0; round < 60 && !HasFailure(); ++round) {
        const Words words = round % 3 == 0 ? Recursion : round % 3 == 1 ? SelfModifying : random.Program();
        Plain::Load(*machine, words);
        Debugger run(*machine, Stretch);
        run.Past().EndInput();
        for (int i = random.Below(4); i > 0; --i)
            run.SetBreakpoint(random.Below(30));
        const Cell choices[] = {{Cell::Kind::GR, 1}, {Cell::Kind::Fzero}, {Cell::Kind::SP}, {Cell::Kind::Word, 10}};
        if (random.Below(2) == 0) run.SetWatch(choices[random.Below(4)]);
        Moments moments;
        for (Moment m = 0; m <= 1'500 && run.Past().GoTo(m) && run.Now() == m; ++m) {
            const Tcomet2& at = *machine;
            moments.at.push_back({at.GR, at.PR, at.SP, at.Fovf, at.Fsign, at.Fzero});
            moments.cells.emplace_back();
            for (const Cell& cell : run.Watches())
                moments.cells.back().push_back(ValueOf(at, cell));
        }
        for (int i = 0; i < 12 && !HasFailure(); ++i) {
            const Way way = random.Below(2) == 0 ? Way::On : Way::Back;
            const Moment now = random.Below(moments.Last() + 1);
            const int aim = random.Below(3) == 0 ? random.Below(30) : -1;
            run.Past().GoTo(now);
            moments.isHit.clear();
            for (const Registers& at : moments.at)
                moments.isHit.push_back(at.PR == aim || std::find(run.Breakpoints().begin(), run.Breakpoints().end(),
                                                                  at.PR) != run.Breakpoints().end());
            if (aim >= 0)
                run.BeginUntil(aim, way);
            else
                run.BeginRun(way);
            while (!run.Work(1 + random.Below(100)) && run.Now() < moments.Last() + 2'000) {
            }
            const Moment expected = moments.From(now, way);
            if (expected == moments.Last()) continue;
            EXPECT_EQ(run.Now(), expected) << round << ": from " << now << ' ' << aim;
            found += expected > 0 ? 1 : 0;
        }
    }
    EXPECT_GT(found, 100);
}

TEST_F(Debugging, OverAndOutAndWhoAndCallsInARecursion) {
    Plain::Load(*machine, Recursion);
    Debugger run(*machine, Stretch);
    run.BeginGo(End);
    run.Finish();
    const Moment end = run.Now();
    const int value = machine->GR[1];
    run.BeginWho({Cell::Kind::GR, 1});
    ASSERT_TRUE(run.Finish().change);
    EXPECT_EQ(run.Result().change->after, value);
    EXPECT_EQ(run.Now(), end);
    for (const Moment call : {1, 20, 38}) {
        run.BeginGo(call);
        run.Finish();
        while (machine->Memory[static_cast<std::size_t>(machine->PR)] >> 8 != 0x80) {
            run.BeginGo(run.Now() + 1);
            run.Finish();
        }
        const Moment at = run.Now();
        const int pr = machine->PR;
        const int sp = machine->SP;
        run.BeginOver(Way::On);
        run.Finish();
        const Moment behind = run.Now();
        EXPECT_EQ(machine->PR, pr + 2);
        EXPECT_EQ(machine->SP, sp);
        run.BeginOver(Way::Back);
        run.Finish();
        EXPECT_EQ(run.Now(), at);
        run.BeginGo(at + 2);
        run.Finish();
        EXPECT_EQ(run.Calls().front().address, pr);
        EXPECT_EQ(run.Calls().front().routine, 5);
        run.BeginOut(Way::Back);
        run.Finish();
        EXPECT_EQ(run.Now(), at);
        run.BeginGo(at + 2);
        run.Finish();
        run.BeginOut(Way::On);
        run.Finish();
        EXPECT_EQ(run.Now(), behind);
    }
}

} // namespace

} // namespace tolvane::tests
