#pragma once
// The command line of tolvane-run.

#include "messages/Pipeline.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tolvane::run {

// The exit statuses. Of several files the highest counts.
enum Status {
    AllEnded = 0,
    SourceErrors = 1,
    NothingFound = 1,
    MachineStopped = 2,
    LimitWasReached = 3,
    WrongUse = 4,
    WrongOutput = 5,
    CtrlC = 130
};

inline constexpr const char* StandardInput = "-";

struct Options {
    int lang = 1; // 0 Japanese, 1 English
    const Pipeline* pipeline = nullptr;
    bool check = false;
    bool trace = false;
    int last = 0; // steps of the trace; 0: all
    bool words = false;
    bool registers = false; // told at the end
    bool warningsCount = false;
    bool hints = true;
    std::int64_t limit = 100'000'000;    // 0: none
    std::optional<std::string> dump;     // the folder
    std::optional<std::string> input;    // the text that IN reads
    std::optional<std::string> expected; // the text that must be printed
    std::optional<std::string> grade;    // the folder of the cases
    std::optional<std::string> explain;  // words, or none for all titles; then nothing else is done
    std::vector<std::string> files;
};

// Reads the command line and sets the language. Nothing, and the exit status, where there is nothing to run: help and
// version have been shown, or one line has told what is wrong.
std::optional<Options> ReadOptions(int argc, char** argv, int& status);

// The language of the user's messages, as the C library would choose it.
int LanguageOfLocale();
// The option that getopt_long has just refused.
std::string RefusedOption(int argc, char** argv);

} // namespace tolvane::run
