#include "platform/Commands.h"

#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/StandardFiles.h"
#include "platform/windows/System.h"
#include "platform/windows/Waiting.h"

#include <algorithm>
#include <string_view>

namespace tolvane::platform {

namespace {

constexpr std::string_view DefaultEditor = "notepad.exe";

// A name is text up to the first zero.
std::string UpToZero(const std::string& text) {
    return text.c_str();
}

// The name of a file or folder as no program takes it for an option. No name holds a quotation mark.
std::wstring PlainName(const std::string& path) {
    std::wstring name = Wide(SystemPath(UpToZero(path)));
    std::erase(name, L'"');
    std::replace(name.begin(), name.end(), L'/', L'\\');
    return name.starts_with(L'-') ? L".\\" + name : name;
}

// One word of a command line: backslashes count double in front of a quotation mark.
std::wstring Quoted(std::wstring_view word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, L'\\') + L"\"";
}

// Starts a program and waits for its end. An empty name is the first word of the command line. False, with the system's
// number for the error, if it does not start.
bool RunAndWait(const std::wstring& program, std::wstring commandLine) {
    console::Flush();
    const signals::Elsewhere elsewhere;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    const wchar_t* const name = program.empty() ? nullptr : program.c_str();
    if (CreateProcessW(name, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process) == 0)
        return false;
    CloseHandle(process.hThread);
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hProcess);
    return true;
}

// A program of the system; none of that name in the user's folder is taken for it.
std::wstring SystemProgram(const wchar_t* name) {
    return SystemText([](wchar_t* room, DWORD length) { return GetSystemDirectoryW(room, length); }) + L"\\" + name;
}

// A command as the command processor reads it, with "!TOLVANE_NAME!" in the place of the name: it finds the name in a
// variable, so that it never takes a character of it for a part of the command.
bool RunCommandProcessor(const std::wstring& command, const std::wstring& name) {
    constexpr const wchar_t* variable = L"TOLVANE_NAME";
    SetEnvironmentVariableW(variable, name.empty() ? nullptr : name.c_str());
    const bool good = RunAndWait(SystemProgram(L"cmd.exe"), L"cmd.exe /d /v:on /s /c \"" + command + L"\"");
    const DWORD failure = GetLastError();
    SetEnvironmentVariableW(variable, nullptr);
    SetLastError(failure);
    return good;
}

std::wstring Setting(const wchar_t* variable) {
    return SystemText([&](wchar_t* room, DWORD length) { return GetEnvironmentVariableW(variable, room, length); });
}

// Where nobody sits in front of the console, an editor would wait for somebody who never comes.
bool IsDialogue() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0 && console::OutputIsTerminal();
}

bool PrintFile(const std::string& file) {
    console::Flush();
    if (const auto bytes = ReadFile(UpToZero(file))) console::WriteOutput(*bytes);
    return true;
}

// The editor of the user's environment, or the system's; without a terminal the file is printed.
bool RunDefaultEditor(const std::string& file) {
    if (!IsDialogue()) return PrintFile(file);
    const std::wstring name = Quoted(PlainName(file));
    for (const wchar_t* variable : {L"VISUAL", L"EDITOR"}) {
        const std::wstring editor = Setting(variable);
        if (!editor.empty() && RunAndWait({}, editor + L" " + name)) return true;
    }
    return RunAndWait(SystemProgram(L"notepad.exe"), L"notepad.exe " + name);
}

// A command that is the name of a program, blanks and all, is one word. Any other one can hold options, or be a batch
// file.
bool RunOwnEditor(const std::string& command, const std::wstring& name) {
    std::wstring text = Wide(command);
    if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"') text = text.substr(1, text.size() - 2);
    for (std::size_t i = text.find(L"\\\\"); i != std::wstring::npos; i = text.find(L"\\\\", i + 1))
        text.erase(i, 1);
    const std::wstring found = SystemText([&](wchar_t* room, DWORD length) {
        return SearchPathW(nullptr, text.c_str(), L".exe", length, room, nullptr);
    });
    const std::wstring suffix = found.substr(std::max<std::size_t>(found.size(), 4) - 4);
    const bool isProgram = CompareStringOrdinal(suffix.c_str(), -1, L".exe", -1, TRUE) == CSTR_EQUAL;
    if (isProgram && RunAndWait(found, Quoted(found) + L" " + Quoted(name))) return true;
    return RunCommandProcessor((found.empty() ? text : L"\"" + found + L"\"") + L" \"!TOLVANE_NAME!\"", name);
}

// What the user is told; nothing where something was started.
std::optional<std::string> Told(bool started) {
    if (started) return std::nullopt;
    return SystemMessage(GetLastError());
}

} // namespace

std::optional<std::string> RunEditor(const std::string& command, const std::string& file) {
    const std::string own = UpToZero(command);
    const bool isDefault = own.empty() || own == DefaultEditor;
    return Told(isDefault ? RunDefaultEditor(file) : RunOwnEditor(own, PlainName(file)));
}

std::optional<std::string> ListFolder(const std::string& folder) {
    const std::wstring name = PlainName(folder);
    return Told(RunCommandProcessor(name.empty() ? L"dir" : L"dir \"!TOLVANE_NAME!\"", name));
}

} // namespace tolvane::platform
