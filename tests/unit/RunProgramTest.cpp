// tolvane-run and tolvane-debug from the outside: sessions of commands with what they print and their exit status. A
// session file holds
//
//   @ NAME         the lines behind it up to an empty one are a source of that name
//   $ COMMAND      a command line for the shell; behind it:
//   > TEXT         a line of the standard output, ! TEXT one of the standard error
//   = STATUS

#include "InFolder.h"
#include "ProgramRun.h"

#include <cstdlib>
#include <regex>
#include <sys/wait.h>

namespace tolvane::tests {

namespace {

std::string Marked(const std::string& text, const char* mark) {
    std::string out;
    for (std::string line : Lines(text)) {
        if (line.ends_with('\n')) line.pop_back();
        out += line.empty() ? std::string(mark) + "\n" : std::string(mark) + " " + line + "\n";
    }
    return out;
}

std::string RunCommand(const std::string& command) {
    const std::string exercises = (fs::path(TOLVANE_TESTS).parent_path() / "examples" / "exercises").string();
    const std::string path = "PATH=" + ProgramFolder().string() + ":$PATH";
    const std::string script = "export LC_ALL=C.UTF-8 EXERCISES=" + exercises + " " + path + " && ( " + command +
                               "\n) </dev/null >.out 2>.err";
    const int status = std::system(script.c_str());
    return Marked(ReadFile(".out"), ">") + Marked(ReadFile(".err"), "!") + "= " +
           std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + "\n";
}

// The session as it runs now.
std::string RunSession(const std::string& expected) {
    std::string found;
    std::string source;
    for (const std::string& line : Lines(expected)) {
        const char mark = line[0];
        if (line == "\n") source.clear();
        if (!source.empty()) WriteFile(source, ReadFile(source) + line);
        if (line.starts_with("@ ")) fs::remove(source = line.substr(2, line.size() - 3));
        if (!source.empty() || (mark != '>' && mark != '!' && mark != '=')) found += line;
        if (source.empty() && line.starts_with("$ ")) found += RunCommand(line.substr(2));
    }
    return found;
}

// Programs of another system give its reasons for a failure, and what starts them may say a word of its own.
std::string WithoutSystem(const std::string& text) {
    static const std::regex reason("(cannot be (read|made|written): )[^(\n]*");
    static const std::regex starter("! (wine client error|sh: ).*\n(!\n)?");
    return std::regex_replace(std::regex_replace(text, reason, "$1"), starter, "");
}

class RunProgram : public InFolder {};

} // namespace

TEST_F(RunProgram, Sessions) {
    const char* setting = std::getenv("TOLVANE_REWRITE");
    const bool isForeign = std::getenv("TOLVANE_FOREIGN") != nullptr;
    for (const char* name : {"session.txt", "debug.txt"}) {
        const fs::path file = fs::path(TOLVANE_TESTS) / "run" / name;
        const std::string expected = ReadFile(file);
        const std::string found = RunSession(expected);
        if (setting != nullptr && std::string(setting) == "1")
            WriteFile(file, found);
        else
            EXPECT_EQ(isForeign ? WithoutSystem(expected) : expected, isForeign ? WithoutSystem(found) : found);
    }
}

} // namespace tolvane::tests
