// The program under signals, at the end of its input and without a reader of its output.

#include "InFolder.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <utility>

namespace tolvane::tests {

namespace {

class RunControl : public InFolder {};

// The program with its standard files as pipes.
class Child {
public:
    explicit Child(const std::string& source, const char* outputFile = nullptr) {
        WriteFile("p.txt", source);
        fs::remove("aaResultantRegMry.txt");
        fs::remove("tolvane_Win.ini");
        int in[2];
        int out[2];
        int err[2];
        if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0) return;
        process = fork();
        if (process == 0) {
            dup2(in[0], STDIN_FILENO);
            dup2(outputFile == nullptr ? out[1] : open(outputFile, O_WRONLY | O_CLOEXEC), STDOUT_FILENO);
            dup2(err[1], STDERR_FILENO);
            execl(TOLVANE_PROGRAM, TOLVANE_PROGRAM, nullptr);
            _exit(127);
        }
        for (const int end : {in[0], out[1], err[1]})
            close(end);
        input = in[1];
        output = out[0];
        error = err[0];
    }
    ~Child() {
        for (const int end : {input, output, error})
            if (end >= 0) close(end);
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
        while (output >= 0 && ReadMore(output, printed))
            continue;
        while (ReadMore(error, told))
            continue;
        int status = 0;
        waitpid(process, &status, 0);
        return WIFSIGNALED(status) ? 1000 + WTERMSIG(status) : WEXITSTATUS(status);
    }

    pid_t process = -1;
    std::string told; // on the standard error

private:
    bool ReadMore(int file, std::string& text) const {
        constexpr std::size_t MostOutput = 4 << 20;
        pollfd end{file, POLLIN, 0};
        char buffer[4096];
        if (text.size() > MostOutput || poll(&end, 1, 30'000) <= 0) {
            kill(process, SIGKILL); // it prints without end, or hangs
            return false;
        }
        const ssize_t got = read(file, buffer, sizeof buffer);
        if (got > 0) text.append(buffer, static_cast<std::size_t>(got));
        return got > 0;
    }

    std::string printed;
    int input = -1;
    int output = -1;
    int error = -1;
};

constexpr const char* SaysAndLoops = "P START\n OUT T,N\nL JUMP L\n RET\nT DC 'HELLO'\nN DC 5\n END\n";
constexpr const char* Reads = "P START\nL IN T,N\n JUMP L\n RET\nT DS 9\nN DS 1\n END\n";
constexpr const char* ToldLost = "output cannot be written: ";

TEST_F(RunControl, WhatStopsTheSimulatedProgramSavesItsState) {
    struct Case {
        const char* source;
        const char* shown;  // OUT and the question of IN have to be seen
        bool isInterrupted; // or its input ends
        const char* told;
    };
    const Case cases[] = {
        {SaysAndLoops, "HELLO\n", true, ", line 3."},
        {Reads, "at the end of your input. \n", true, ", line 2."},
        {Reads, "", false, "at the end of the input, at address "},
    };
    for (const Case& c : cases) {
        Child child(c.source);
        child.Type("\n1\np\n");
        EXPECT_TRUE(child.Shows(c.shown));
        if (c.isInterrupted)
            kill(child.process, SIGINT);
        else
            child.EndInput();
        EXPECT_EQ(child.End(), 130);
        EXPECT_NE(child.told.find(c.told), std::string::npos) << child.told;
        EXPECT_EQ(std::count(child.told.begin(), child.told.end(), '\n'), 1);
        EXPECT_TRUE(fs::exists("aaResultantRegMry.txt") && fs::exists("tolvane_Win.ini"));
    }
}

TEST_F(RunControl, SignalsEndTheProgramBehindItsOutput) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        for (const bool running : {false, true}) {
            if (running && signal == SIGINT) continue;
            Child child(SaysAndLoops);
            if (running) child.Type("\n1\np\n");
            EXPECT_TRUE(child.Shows(running ? "HELLO\n" : "Press your Enter key"));
            kill(child.process, signal);
            EXPECT_EQ(child.End(), 1000 + signal);
            EXPECT_FALSE(fs::exists("tolvane_Win.ini"));
        }
    }
}

TEST_F(RunControl, OutputThatIsLostEndsTheProgram) {
    Child onFullDisk(SaysAndLoops, "/dev/full");
    EXPECT_EQ(onFullDisk.End(), 1);
    EXPECT_NE(onFullDisk.told.find(ToldLost), std::string::npos);

    Child unread(SaysAndLoops);
    EXPECT_TRUE(unread.Shows("Press your Enter key"));
    unread.StopReading();
    unread.Type("\n");
    EXPECT_EQ(unread.End(), 1);
    EXPECT_NE(unread.told.find(ToldLost), std::string::npos);
}

} // namespace

} // namespace tolvane::tests
