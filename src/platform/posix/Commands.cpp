#include "platform/Commands.h"

#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Signals.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <spawn.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

extern "C" char** environ; // not every system has it in a header

namespace tolvane::platform {

namespace {

constexpr std::string_view DefaultEditor = "notepad.exe";

// A name is bytes up to the first zero.
std::string UpToZero(const std::string& text) {
    return text.c_str();
}

// The name of a file or folder as no program takes it for an option.
std::string PlainName(const std::string& path) {
    const std::string name = SystemPath(UpToZero(path));
    return name.starts_with('-') ? "./" + name : name;
}

// As a shell says it of what it cannot start.
constexpr int NotExecutable = 126;
constexpr int NotFound = 127;

// What a program expects to find of its signals, whatever this one does with its own.
sigset_t Defaults(bool interrupts, bool quits) {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    sigaddset(&set, SIGXFSZ);
    if (interrupts) sigaddset(&set, SIGINT);
    if (quits) sigaddset(&set, SIGQUIT);
    return set;
}

// Starts the shell; 0, or the system's number for the error.
int Start(pid_t& child, char* const* arguments, const sigset_t& defaults) {
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    const int failure = posix_spawn(&child, "/bin/sh", nullptr, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
    return failure;
}

// Waits; 0, or the system's number for the error of a shell that has found nothing to start.
int WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno == EINTR)
            signals::EndIfAsked();
        else
            return 0;
    if (!WIFEXITED(status)) return 0;
    if (WEXITSTATUS(status) == NotFound) return ENOENT;
    return WEXITSTATUS(status) == NotExecutable ? EACCES : 0;
}

// Runs a script in the shell until it ends. Meanwhile Ctrl + C is the business of what was started. Names and commands
// are parameters of the script: the shell never reads a name as a part of its text. 0, or the system's number for the
// error of what could not be started.
int RunShell(std::string script, std::vector<std::string> parameters) {
    console::Flush();
    std::string shell = "sh";
    std::string option = "-c";
    std::vector<char*> arguments{shell.data(), option.data(), script.data(), shell.data()};
    for (std::string& parameter : parameters)
        arguments.push_back(parameter.data());
    arguments.push_back(nullptr);

    const auto interrupt = std::signal(SIGINT, SIG_IGN);
    const auto quit = std::signal(SIGQUIT, SIG_IGN);
    pid_t child = 0;
    int failure = Start(child, arguments.data(), Defaults(interrupt != SIG_IGN, quit != SIG_IGN));
    if (failure == 0) failure = WaitFor(child);
    std::signal(SIGINT, interrupt);
    std::signal(SIGQUIT, quit);
    return failure;
}

// Where nobody sits in front of a terminal, an editor would wait for keys that never come.
bool IsDialogue() {
    return isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
}

// A pipe or a device never ends, or waits for somebody who writes.
bool IsEndless(const std::string& name) {
    struct stat status {};
    return stat(name.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

// The editor of the user's environment, or the first one that the system has; without a terminal the file is printed.
int RunDefaultEditor(const std::string& name) {
    if (!IsDialogue())
        return IsEndless(name) ? 0 : RunShell(R"(command -v cat >/dev/null || exit 127; exec cat "$1")", {name});
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        const char* command = std::getenv(variable);
        if (command == nullptr || *command == '\0') continue;
        if (RunShell(R"(eval "$1 \"\$2\"")", {command, name}) == 0) return 0;
    }
    return RunShell(R"(for editor in nano less more vi cat; do
            command -v "$editor" >/dev/null 2>&1 && exec "$editor" "$1"
        done
        exit 127)",
                    {name});
}

// A command that is the name of a program, blanks and all, is one word. Any other one is read as the shell reads it, so
// that it can hold options.
int RunOwnEditor(const std::string& command, const std::string& name) {
    std::string text;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const bool doubled = command.compare(i, 2, "\\\\") == 0;
        text += doubled ? '/' : command[i];
        if (doubled) ++i;
    }
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    return RunShell(R"(if command -v "$1" >/dev/null 2>&1; then "$1" "$2"; else eval "$1 \"\$2\""; fi)", {text, name});
}

// What the user is told; nothing where something was started.
std::optional<std::string> Told(int failure) {
    if (failure == 0) return std::nullopt;
    return std::system_category().message(failure);
}

} // namespace

std::optional<std::string> RunEditor(const std::string& command, const std::string& file) {
    const std::string own = UpToZero(command);
    const bool isDefault = own.empty() || own == DefaultEditor;
    return Told(isDefault ? RunDefaultEditor(PlainName(file)) : RunOwnEditor(own, PlainName(file)));
}

std::optional<std::string> ListFolder(const std::string& folder) {
    std::vector<std::string> parameters;
    if (!UpToZero(folder).empty()) parameters.push_back(PlainName(folder));
    return Told(RunShell(R"(if command -v dir >/dev/null 2>&1; then dir "$@"; else ls "$@"; fi)", parameters));
}

} // namespace tolvane::platform
