// Runs that are limited, traced or stopped from outside, where a simulated program's text goes, and what becomes of the
// console's text under signals and without a reader.

#include "TextTools.h"
#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"
#include "platform/Console.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tolvane::tests {

namespace fs = std::filesystem;

namespace {

std::unique_ptr<Tcomet2> MachineOf(std::initializer_list<int> words) {
    auto machine = std::make_unique<Tcomet2>();
    std::copy(words.begin(), words.end(), machine->Memory.begin());
    machine->ReservedWords = 0x2000;
    modeFlags->Pipe = &DefaultPipeline();
    modeFlags->Lang = 1;
    return machine;
}

// What the simulated program says and is told.
struct Talk {
    std::vector<std::string> lines;
    std::string written;
    std::size_t reads = 0;
};
MachineIo IoOf(Talk& talk) {
    return {[](void* context, const std::string& line) { static_cast<Talk*>(context)->written += line; },
            [](void* context, std::size_t) -> std::optional<MachineIo::Line> {
                Talk& t = *static_cast<Talk*>(context);
                if (t.reads++ >= t.lines.size()) return std::nullopt;
                const std::string& line = t.lines[t.reads - 1];
                return MachineIo::Line{line, line.size()};
            },
            [](void*, const Msg&, Args) {}, &talk};
}

// The program in a folder of its own, with its standard files as pipes.
class Child {
public:
    static constexpr std::size_t MostOutput = 4 << 20;

    explicit Child(const std::string& source, int outputFile = -1) {
        folder = fs::temp_directory_path() / ("tolvane-run-control-" + std::to_string(getpid()));
        fs::create_directory(folder);
        std::ofstream(folder / "p.txt") << source;
        int in[2];
        int out[2];
        int err[2];
        if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0) return;
        process = fork();
        if (process == 0) {
            dup2(in[0], STDIN_FILENO);
            dup2(outputFile < 0 ? out[1] : outputFile, STDOUT_FILENO);
            dup2(err[1], STDERR_FILENO);
            if (chdir(folder.c_str()) == 0) execl(TOLVANE_PROGRAM, TOLVANE_PROGRAM, nullptr);
            _exit(127);
        }
        for (const int end : {in[0], out[1], err[1]})
            close(end);
        input = in[1];
        output = out[0];
        error = err[0];
    }
    ~Child() {
        kill(process, SIGKILL);
        for (const int end : {input, output, error})
            if (end >= 0) close(end);
        fs::remove_all(folder);
    }

    void Type(const std::string& text) { ASSERT_EQ(write(input, text.data(), text.size()), std::ssize(text)); }
    void EndInput() { close(std::exchange(input, -1)); }
    void StopReading() { close(std::exchange(output, -1)); }
    // Reads what the program prints until a text has come. False if none comes for a long time.
    bool Shows(const std::string& text) {
        while (printed.find(text) == std::string::npos)
            if (!ReadMore(output, printed)) return false;
        return true;
    }
    // Its status when it has ended by itself, 1000 and the signal's number when by that.
    int End() {
        while (output >= 0 && printed.size() < MostOutput && ReadMore(output, printed))
            continue;
        if (printed.size() >= MostOutput) kill(process, SIGKILL); // it prints without end
        while (ReadMore(error, told))
            continue;
        int status = 0;
        waitpid(process, &status, 0);
        return WIFSIGNALED(status) ? 1000 + WTERMSIG(status) : WEXITSTATUS(status);
    }
    bool Has(const char* file) const { return fs::exists(folder / file); }

    pid_t process = -1;
    std::string printed;
    std::string told; // on the standard error
    fs::path folder;

private:
    bool ReadMore(int file, std::string& text) const {
        pollfd end{file, POLLIN, 0};
        char buffer[4096];
        if (poll(&end, 1, 30'000) <= 0) {
            kill(process, SIGKILL); // it hangs
            return false;
        }
        const ssize_t got = read(file, buffer, sizeof buffer);
        if (got > 0) text.append(buffer, static_cast<std::size_t>(got));
        return got > 0;
    }

    int input = -1;
    int output = -1;
    int error = -1;
};

constexpr const char* StartRun = "\n1\np\n";
constexpr const char* SaysAndLoops = "P START\n OUT T,N\nL JUMP L\n RET\nT DC 'HELLO'\nN DC 5\n END\n";
constexpr const char* Reads = "P START\nL IN T,N\n JUMP L\n RET\nT DS 9\nN DS 1\n END\n";

} // namespace

TEST(RunControl, LimitCountsInstructions) {
    const auto endless = MachineOf({0x1210, 1, 0x6400, 0}); // LAD, JUMP
    EXPECT_EQ(endless->RunLimited(7), Stop::LimitReached);
    EXPECT_EQ(endless->RunCount[0], 4);
    EXPECT_EQ(endless->RunCount[2], 3);
    EXPECT_EQ(endless->PR, 2) << "the instruction that was not executed";

    const auto three = [] { return MachineOf({0x1210, 1, 0x1220, 2, 0x8100}); };
    EXPECT_EQ(three()->RunLimited(2), Stop::LimitReached);
    EXPECT_EQ(three()->RunLimited(3), Stop::End);
    EXPECT_EQ(three()->RunLimited(0), Stop::End);

    store->ClearMsgStore();
    const auto refused = MachineOf({0, 0x1012, 64999});
    refused->GR[2] = 2;
    std::string words;
    console::WriteTo(&words);
    const Stop stop = refused->RunLimited(9);
    console::WriteTo(nullptr);
    EXPECT_EQ(stop, Stop::OperandBeyondMemory);
    EXPECT_EQ(refused->FaultAddress(stop), 1);
    EXPECT_FALSE(store->Records.empty());
    EXPECT_EQ(words.find("starts running"), std::string::npos);
}

TEST(RunControl, TraceShowsEachInstruction) {
    // LAD GR2,3; ST GR2,20,GR2; CALL 10; SVC 1; RET; 10: SUBA GR3,GR3; RET
    const auto machine = MachineOf({0x1220, 3, 0x1122, 20, 0x8000, 10, 0xF000, 1, 0x8100, 0, 0x2533, 0x8100});
    Talk talk{{"ab"}, "", 0};
    const MachineIo io = IoOf(talk);
    machine->Io = &io;
    machine->GR[1] = 30;
    std::string trace;
    const auto observe = [&](const Step& step) {
        trace += std::to_string(step.before.PR) + ">" + std::to_string(machine->PR);
        for (std::size_t r = 0; r < 8; ++r)
            if (machine->GR[r] != step.before.GR[r]) trace += " GR" + std::to_string(r);
        if (machine->Fzero != step.before.Fzero) trace += " Z";
        if (machine->SP != step.before.SP) trace += " SP";
        for (const Step::Stretch& stretch : step.written)
            if (stretch.cells > 0) trace += " " + std::to_string(stretch.first) + "+" + std::to_string(stretch.cells);
        trace += "; ";
    };
    EXPECT_EQ(machine->RunTraced(0, observe), Stop::End);
    EXPECT_EQ(trace, "0>2 GR2; 2>4 23+1; 4>10 SP; 10>11 Z; 11>6 SP; 6>8 3+1 30+2; 8>8; ");
    EXPECT_EQ(machine->Memory[31], 'b');

    trace.clear();
    EXPECT_EQ(MachineOf({0x6400, 0})->RunTraced(3, [&](const Step&) { trace += "x"; }), Stop::LimitReached);
    EXPECT_EQ(trace, "xxx");

    trace.clear(); // an instruction behind which PR cannot go on has been executed; one that is refused has not
    EXPECT_EQ(MachineOf({0x6400, 65001})->RunTraced(9, [&](const Step&) { trace += "x"; }), Stop::PrBeyondMemory);
    EXPECT_EQ(MachineOf({0x1289})->RunTraced(9, [&](const Step&) { trace += "y"; }), Stop::BadRegister);
    EXPECT_EQ(trace, "x");
}

TEST(RunControl, InputThatHasEndedEndsTheRun) {
    const auto machine = MachineOf({0x1210, 30, 0x1220, 20, 0xF000, 1, 0x6400, 4});
    Talk talk{{"a", "b"}, "", 0};
    const MachineIo io = IoOf(talk);
    machine->Io = &io;
    EXPECT_EQ(machine->RunLimited(1'000'000), Stop::InputEnded);
    EXPECT_EQ(talk.reads, 1002U);
    EXPECT_EQ(machine->PR, 4);
}

TEST(RunControl, InterruptStopsTheSimulatedProgram) {
    for (const char* source : {SaysAndLoops, Reads}) {
        Child child(source);
        child.Type(StartRun);
        EXPECT_TRUE(child.Shows(source == Reads ? "at the end of your input. \n" : "HELLO\n")) << "OUT has to be seen";
        kill(child.process, SIGINT);
        EXPECT_EQ(child.End(), 130);
        EXPECT_NE(child.told.find(source == Reads ? ", line 2." : ", line 3."), std::string::npos) << child.told;
        EXPECT_EQ(std::count(child.told.begin(), child.told.end(), '\n'), 1);
        EXPECT_TRUE(child.Has("aaResultantRegMry.txt") && child.Has("tolvane_Win.ini"));
    }
    Child ended(Reads);
    ended.Type(StartRun);
    ended.EndInput();
    EXPECT_EQ(ended.End(), 130);
    EXPECT_NE(ended.told.find("at the end of the input, at address "), std::string::npos) << ended.told;
    EXPECT_TRUE(ended.Has("aaResultantRegMry.txt") && ended.Has("tolvane_Win.ini"));
}

TEST(RunControl, SignalsEndTheProgramBehindItsOutput) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        Child atPrompt(SaysAndLoops);
        EXPECT_TRUE(atPrompt.Shows("Press your Enter key"));
        kill(atPrompt.process, signal);
        EXPECT_EQ(atPrompt.End(), 1000 + signal);
        if (signal == SIGINT) continue;
        Child running(SaysAndLoops);
        running.Type(StartRun);
        EXPECT_TRUE(running.Shows("The comet2 starts running"));
        EXPECT_TRUE(running.Shows("HELLO\n"));
        kill(running.process, signal);
        EXPECT_EQ(running.End(), 1000 + signal);
        EXPECT_FALSE(running.Has("tolvane_Win.ini"));
    }
}

TEST(RunControl, OutputThatIsLostEndsTheProgram) {
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    Child onFullDisk(SaysAndLoops, full);
    close(full);
    EXPECT_EQ(onFullDisk.End(), 1);
    EXPECT_NE(onFullDisk.told.find("output cannot be written: "), std::string::npos);

    Child unread(SaysAndLoops);
    EXPECT_TRUE(unread.Shows("Press your Enter key"));
    unread.StopReading();
    unread.Type("\n");
    EXPECT_EQ(unread.End(), 1);
    EXPECT_NE(unread.told.find("output cannot be written: "), std::string::npos);
}

} // namespace tolvane::tests
