#pragma once
// One run of a console program, from its start to its end.

#include <filesystem>
#include <string>
#include <vector>

namespace tolvane::tests {

struct ProgramCall {
    std::string program;
    std::filesystem::path folder;         // where it starts
    std::vector<std::string> environment; // NAME=value, nothing else is inherited
    std::string typed;                    // what arrives on its standard input, then the end of the input
    bool terminal = false;                // on a pseudo-terminal instead of a file and a pipe
};

struct ProgramRun {
    std::string output;  // standard output and error, as they came
    std::string trouble; // why it did not end by itself with status 0; empty if it did
};

ProgramRun RunProgram(const ProgramCall& call);

// The folder of the programs under test: that of the build, or another system's that TOLVANE_PROGRAMS names.
std::filesystem::path ProgramFolder();

} // namespace tolvane::tests
