#include "ProgramRun.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace tolvane::tests {

namespace {

constexpr std::size_t MostOutput = 16 << 20;

// The ends of the console: the test's two, and the two that become the program's standard input and output.
struct Console {
    int write = -1, read = -1;
    int stdIn = -1, stdOut = -1;
};

bool OpenPipes(Console& console) {
    int input[2];
    int output[2];
    if (pipe(input) != 0 || pipe(output) != 0) return false;
    console = {input[1], output[0], input[0], output[1]};
    return true;
}

// A terminal without echo, so that what is typed does not mix with what is printed, and with plain line ends.
bool OpenTerminal(Console& console) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) return false;
    const int slave = open(ptsname(master), O_RDWR | O_NOCTTY);
    termios modes{};
    if (slave < 0 || tcgetattr(slave, &modes) != 0) return false;
    modes.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    modes.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    tcsetattr(slave, TCSANOW, &modes);
    console = {dup(master), master, slave, dup(slave)};
    return true;
}

[[noreturn]] void BecomeProgram(const ProgramCall& call, const Console& console) {
    setsid();
    if (call.terminal) ioctl(console.stdIn, TIOCSCTTY, 0);
    dup2(console.stdIn, STDIN_FILENO);
    dup2(console.stdOut, STDOUT_FILENO);
    dup2(console.stdOut, STDERR_FILENO);
    for (const int fd : {console.write, console.read, console.stdIn, console.stdOut})
        close(fd);
    std::signal(SIGPIPE, SIG_DFL);

    std::string program = call.program;
    char* arguments[] = {program.data(), nullptr};
    std::vector<std::string> environment = call.environment;
    std::vector<char*> names;
    for (std::string& line : environment)
        names.push_back(line.data());
    names.push_back(nullptr);
    if (chdir(call.folder.c_str()) == 0) execve(arguments[0], arguments, names.data());
    static constexpr char Sorry[] = "The program cannot be started.\n";
    if (write(STDERR_FILENO, Sorry, sizeof Sorry - 1) < 0) _exit(126);
    _exit(127);
}

// At a terminal the end of the input is typed, too: once at the beginning of a line, twice within one.
std::string WithEndOfInput(const ProgramCall& call) {
    if (!call.terminal) return call.typed;
    const bool atLineStart = call.typed.empty() || call.typed.back() == '\n';
    return call.typed + (atLineStart ? "\x04" : "\x04\x04");
}

// Types and reads until the program has closed its output. False if it took too long or printed without end.
bool Converse(const ProgramCall& call, Console& console, std::string& output) {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::seconds(call.timeoutSeconds);
    const std::string typed = WithEndOfInput(call);
    std::size_t done = 0;
    fcntl(console.write, F_SETFL, O_NONBLOCK);
    while (output.size() < MostOutput) {
        if (done == typed.size() && console.write >= 0) {
            close(console.write);
            console.write = -1;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        pollfd ends[2] = {{console.read, POLLIN, 0}, {console.write, POLLOUT, 0}};
        const int ready = left <= 0 ? 0 : poll(ends, 2, static_cast<int>(left));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) return false;
        if (ends[1].revents != 0) {
            const ssize_t n = write(console.write, typed.data() + done, typed.size() - done);
            if (n > 0) done += static_cast<std::size_t>(n);
            if (n < 0 && errno != EAGAIN && errno != EINTR) done = typed.size(); // nobody reads any more
        }
        if (ends[0].revents != 0) {
            char buffer[4096];
            const ssize_t n = read(console.read, buffer, sizeof buffer);
            if (n < 0 && (errno == EAGAIN || errno == EINTR)) continue;
            if (n <= 0) return true; // a terminal whose last user has gone reports an error
            output.append(buffer, static_cast<std::size_t>(n));
        }
    }
    return false;
}

std::string TroubleOf(int status) {
    if (WIFSIGNALED(status)) return std::string("The program was ended by a signal: ") + strsignal(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) return "The program's exit status was " + std::to_string(WEXITSTATUS(status));
    return {};
}

} // namespace

ProgramRun RunProgram(const ProgramCall& call) {
    Console console;
    if (!(call.terminal ? OpenTerminal(console) : OpenPipes(console))) return {"", "No console could be made."};
    // The terminal's read end is its write end, too, so the flag is for both.
    for (const int fd : {console.write, console.read})
        fcntl(fd, F_SETFD, FD_CLOEXEC);

    const pid_t child = fork();
    if (child < 0) return {"", "No process could be made."};
    if (child == 0) BecomeProgram(call, console);
    close(console.stdIn);
    close(console.stdOut);

    ProgramRun run;
    const bool ended = Converse(call, console, run.output);
    if (!ended) kill(-child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    for (const int fd : {console.write, console.read}) {
        if (fd >= 0) close(fd);
    }
    run.trouble = ended ? TroubleOf(status)
                        : "The program did not end within " + std::to_string(call.timeoutSeconds) +
                              " seconds, or printed without end.";
    return run;
}

} // namespace tolvane::tests
