#include "ProgramRun.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace tolvane::tests {

namespace {

constexpr unsigned MostSeconds = 20;
constexpr std::size_t MostOutput = 16 << 20;

// The program's standard input and output, and the end at which its output is read.
struct Console {
    int input = -1, output = -1, read = -1;
};

Console OpenPipe(const std::string& typed) {
    Console console;
    int ends[2];
    std::FILE* file = std::tmpfile();
    if (file == nullptr || pipe(ends) != 0) return console;
    std::fwrite(typed.data(), 1, typed.size(), file);
    std::rewind(file);
    console = {dup(fileno(file)), ends[1], ends[0]};
    std::fclose(file);
    return console;
}

// A terminal without echo, so that what is typed does not mix with what is printed, and with plain line ends. The end
// of the input is typed, too.
Console OpenTerminal(const std::string& typed) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) return {};
    const int slave = open(ptsname(master), O_RDWR | O_NOCTTY);
    termios modes{};
    if (slave < 0 || tcgetattr(slave, &modes) != 0) return {};
    modes.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    modes.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    tcsetattr(slave, TCSANOW, &modes);
    const std::string all = typed + "\x04";
    if (write(master, all.data(), all.size()) != static_cast<ssize_t>(all.size())) return {};
    return {slave, dup(slave), master};
}

[[noreturn]] void BecomeProgram(const ProgramCall& call, const Console& console) {
    setsid();
    if (call.terminal) ioctl(console.input, TIOCSCTTY, 0);
    dup2(console.input, STDIN_FILENO);
    dup2(console.output, STDOUT_FILENO);
    dup2(console.output, STDERR_FILENO);
    for (const int fd : {console.input, console.output, console.read})
        close(fd);
    alarm(MostSeconds); // the signal ends a program that does not end by itself

    std::vector<char*> environment;
    for (const std::string& line : call.environment)
        environment.push_back(const_cast<char*>(line.c_str()));
    environment.push_back(nullptr);
    char* arguments[] = {const_cast<char*>(call.program.c_str()), nullptr};
    if (chdir(call.folder.c_str()) == 0) execve(arguments[0], arguments, environment.data());
    _exit(127);
}

std::string TroubleOf(int status) {
    if (WIFSIGNALED(status)) return std::string("The program was ended by a signal: ") + strsignal(WTERMSIG(status));
    if (WEXITSTATUS(status) != 0) return "The program's exit status was " + std::to_string(WEXITSTATUS(status));
    return {};
}

} // namespace

ProgramRun RunProgram(const ProgramCall& call) {
    const Console console = call.terminal ? OpenTerminal(call.typed) : OpenPipe(call.typed);
    if (console.read < 0) return {"", "No console could be made."};
    const pid_t child = fork();
    if (child < 0) return {"", "No process could be made."};
    if (child == 0) BecomeProgram(call, console);
    close(console.input);
    close(console.output);

    ProgramRun run;
    char buffer[4096];
    ssize_t n = 0; // a terminal whose last user has gone reports an error
    while (run.output.size() < MostOutput && (n = read(console.read, buffer, sizeof buffer)) > 0)
        run.output.append(buffer, static_cast<std::size_t>(n));
    close(console.read);
    int status = 0;
    waitpid(child, &status, 0);
    run.trouble = TroubleOf(status);
    return run;
}

std::filesystem::path ProgramFolder() {
    const char* other = std::getenv("TOLVANE_PROGRAMS");
    return other != nullptr ? std::filesystem::path(other) : std::filesystem::path(TOLVANE_RUN).parent_path();
}

} // namespace tolvane::tests
