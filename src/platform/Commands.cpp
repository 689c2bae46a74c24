#include "platform/Commands.h"

#include "platform/Console.h"
#include "platform/Files.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvane::platform {

namespace {

constexpr std::string_view DefaultEditor = "notepad.exe";

// One word of the shell, whatever characters the text has.
std::string ShellQuote(std::string_view text) {
    std::string word = "'";
    for (char c : text) {
        if (c == '\'')
            word += "'\\''";
        else
            word += c;
    }
    return word + "'";
}

// The name of a file or folder as one word that no program takes for an option.
std::string ShellName(const std::string& path) {
    const std::string name = SystemPath(path);
    return ShellQuote(name.starts_with('-') ? "./" + name : name);
}

// Starts the shell with the signals as a program expects to find them, and waits. Meanwhile Ctrl + C is the business of
// what was started.
void RunShell(const std::string& text) {
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
    std::string command = text;
    char* const arguments[] = {shell.data(), option.data(), command.data(), nullptr};
    pid_t child = 0;
    if (posix_spawn(&child, "/bin/sh", nullptr, &attributes, arguments, environ) == 0)
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR)
            continue;

    posix_spawnattr_destroy(&attributes);
    std::signal(SIGINT, interrupt);
    std::signal(SIGQUIT, quit);
}

// The editor of the user's environment, which is a command of the shell, or the first one that the system has.
std::string DefaultEditorCommand(const std::string& file) {
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        const char* command = std::getenv(variable);
        if (command != nullptr && *command != '\0') return std::string(command) + " " + file;
    }
    return "for editor in sensible-editor nano vi less cat; do"
           " command -v \"$editor\" >/dev/null 2>&1 && exec \"$editor\" " +
           file + "; done";
}

// A command that is the name of a program, blanks and all, is one word. Any other one is read as the shell reads it, so
// that it can hold options; the shell sees it only then, because its quotation marks may not come in pairs.
std::string OwnEditorCommand(const std::string& command, const std::string& file) {
    std::string text;
    for (std::size_t i = 0; i < command.size(); ++i) {
        const bool doubled = command.compare(i, 2, "\\\\") == 0;
        text += doubled ? '/' : command[i];
        if (doubled) ++i;
    }
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    const std::string program = ShellQuote(text);
    return "if command -v " + program + " >/dev/null 2>&1; then " + program + " " + file + "; else eval " +
           ShellQuote(text + " " + file) + "; fi";
}

} // namespace

void RunEditor(const std::string& command, const std::string& file) {
    const std::string name = ShellName(file);
    const bool isDefault = command.empty() || command == DefaultEditor;
    RunShell(isDefault ? DefaultEditorCommand(name) : OwnEditorCommand(command, name));
}

void ListFolder(const std::string& folder) {
    std::string name;
    if (!folder.empty()) name.append(" ").append(ShellName(folder));
    RunShell("if command -v dir >/dev/null 2>&1; then dir" + name + "; else ls" + name + "; fi");
}

} // namespace tolvane::platform
