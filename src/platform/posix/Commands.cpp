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
#include <unistd.h>
#include <vector>

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

// Starts the shell with the signals as a program expects to find them, and waits. Meanwhile Ctrl + C is the business of
// what was started. Names and commands are parameters of the script: the shell never reads a name as a part of its
// text.
void RunShell(std::string script, std::vector<std::string> parameters) {
    console::Flush();
    const auto interrupt = std::signal(SIGINT, SIG_IGN);
    const auto quit = std::signal(SIGQUIT, SIG_IGN);

    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    if (interrupt != SIG_IGN) sigaddset(&defaults, SIGINT);
    if (quit != SIG_IGN) sigaddset(&defaults, SIGQUIT);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    std::string shell = "sh";
    std::string option = "-c";
    std::vector<char*> arguments{shell.data(), option.data(), script.data(), shell.data()};
    for (std::string& parameter : parameters)
        arguments.push_back(parameter.data());
    arguments.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawn(&child, "/bin/sh", nullptr, &attributes, arguments.data(), environ) == 0)
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR)
            signals::EndIfAsked();

    posix_spawnattr_destroy(&attributes);
    std::signal(SIGINT, interrupt);
    std::signal(SIGQUIT, quit);
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
void RunDefaultEditor(const std::string& name) {
    if (!IsDialogue()) {
        if (!IsEndless(name)) RunShell(R"(exec cat "$1")", {name});
        return;
    }
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        const char* command = std::getenv(variable);
        if (command == nullptr || *command == '\0') continue;
        RunShell(R"(eval "$1 \"\$2\"")", {command, name});
        return;
    }
    RunShell(R"(for editor in nano less more vi cat; do
            command -v "$editor" >/dev/null 2>&1 && exec "$editor" "$1"
        done)",
             {name});
}

// A command that is the name of a program, blanks and all, is one word. Any other one is read as the shell reads it, so
// that it can hold options.
void RunOwnEditor(const std::string& command, const std::string& name) {
    std::string text;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const bool doubled = command.compare(i, 2, "\\\\") == 0;
        text += doubled ? '/' : command[i];
        if (doubled) ++i;
    }
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    RunShell(R"(if command -v "$1" >/dev/null 2>&1; then "$1" "$2"; else eval "$1 \"\$2\""; fi)", {text, name});
}

} // namespace

void RunEditor(const std::string& command, const std::string& file) {
    const std::string own = UpToZero(command);
    if (own.empty() || own == DefaultEditor)
        RunDefaultEditor(PlainName(file));
    else
        RunOwnEditor(own, PlainName(file));
}

void ListFolder(const std::string& folder) {
    std::vector<std::string> parameters;
    if (!UpToZero(folder).empty()) parameters.push_back(PlainName(folder));
    RunShell(R"(if command -v dir >/dev/null 2>&1; then dir "$@"; else ls "$@"; fi)", parameters);
}

} // namespace tolvane::platform
