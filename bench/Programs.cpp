// Whole programs, as a user runs them: the assembler against GNU as on as many lines, its growth and memory, the words
// of many faults, a learner's cycle and the start. Times are those of the processor, the least of several runs; the
// cycle is told by the clock.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int Lines = 53'400;
constexpr int ManyLines = 1'000'000;
constexpr int FaultyLines = 50'000;
constexpr const char* DumpNames[] = {"aaAssembledRegMry.txt", "aaResultantRegMry.txt"};

struct Usage {
    double processor = 1e9; // seconds
    double wall = 1e9;
    long peak = 0; // kilobytes
};

double Seconds(const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
}

// Runs a program with its input and output in files of the working folder.
Usage Run(const std::vector<std::string>& command) {
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        std::vector<char*> arguments;
        for (const std::string& word : command)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        dup2(open("input", O_RDONLY), STDIN_FILENO);
        dup2(open("output", O_WRONLY | O_CREAT | O_TRUNC, 0666), STDOUT_FILENO);
        execvp(arguments[0], arguments.data());
        std::_Exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (status != 0) return {};
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    return {Seconds(usage.ru_utime) + Seconds(usage.ru_stime), wall.count(), usage.ru_maxrss};
}

Usage LeastOf(int runs, const std::vector<std::string>& command) {
    Usage least;
    for (int i = 0; i < runs; ++i) {
        const Usage usage = Run(command);
        least.processor = std::min(least.processor, usage.processor);
        least.wall = std::min(least.wall, usage.wall);
        least.peak = usage.peak;
    }
    return least;
}

void Write(const char* name, const std::function<void(std::ofstream&)>& fill) {
    std::ofstream file(name);
    fill(file);
}

// Instructions of one word, every fifth of two, which names a label if there are any.
void WriteSource(const char* name, int lines, bool labels) {
    static constexpr std::array<const char*, 8> Ops = {"ADDA", "SUBA", "ADDL", "AND", "OR", "XOR", "CPA", "CPL"};
    Write(name, [&](std::ofstream& out) {
        out << "MAIN    START\n";
        const int labelled = (lines - 3) / 3;
        for (int i = 0; i < lines - 3; ++i) {
            if (labels && i % 3 == 0 && i / 3 < labelled) out << 'L' << i / 3;
            out << "\t";
            if (i % 5 != 4)
                out << Ops[static_cast<std::size_t>(i % 8)] << " GR" << i % 8 << ",GR" << (i + 1) % 8;
            else if (labels)
                out << "LD GR" << i % 8 << ",L" << static_cast<long long>(i) * 7919 % labelled;
            else
                out << "LD GR" << i % 8 << ',' << i % 1000;
            out << " ; a comment\n";
        }
        out << "\tRET\n\tEND\n";
    });
}

// Lines without words of their own, so that a file may have any number of them: three of ten have a label that another
// names.
void WriteManyLines(const char* name) {
    Write(name, [](std::ofstream& out) {
        out << "MAIN    START\n";
        const int labelled = ManyLines / 10 * 3;
        for (int i = 0; i < ManyLines - 3; ++i) {
            const bool hasLabel = i % 10 < 3 && i / 10 * 3 + i % 10 < labelled;
            if (hasLabel) out << 'L' << i / 10 * 3 + i % 10;
            out << "\tDS 0 ; a line\n";
        }
        out << "\tRET\n\tEND\n";
    });
}

void WriteGnuSource(const char* name, int lines) {
    Write(name, [&](std::ofstream& out) {
        for (int i = 0; i < lines; ++i)
            out << (i % 5 == 4 ? "\tmovl $1000, %ebx # a comment\n" : "\taddl %eax, %ebx # a comment\n");
    });
}

void Type(const std::string& text) {
    Write("input", [&](std::ofstream& out) { out << text; });
}

Usage Assemble(const char* source, int runs) {
    Type(std::string("\n1\n") + source + "\n1\n");
    return LeastOf(runs, {TOLVANE_PROGRAM});
}

void ShowAgainstGnu(const char* what, double ours, double gnu) {
    std::printf("%-52s %7.2f M lines/s", what, Lines / ours * 1e-6);
    if (gnu < 1e8) std::printf("   GNU as %5.2f   ratio %5.2f", Lines / gnu * 1e-6, gnu / ours);
    std::printf("\n");
}

void CompareWithGnu() {
    WriteSource("small.txt", Lines / 10, true);
    WriteSource("plain.txt", Lines, false);
    WriteSource("labels.txt", Lines, true);
    WriteGnuSource("gnu.s", Lines);
    Type("");
    const Usage gnu = LeastOf(9, {"as", "gnu.s", "-o", "gnu.o"});
    const Usage dumps = Assemble("plain.txt", 9);
    ShowAgainstGnu("assemble, link, run, two dumps: 53,400 lines", dumps.processor, gnu.processor);
    const Usage whole = Assemble("labels.txt", 9);
    const Usage small = Assemble("small.txt", 9);

    // A folder under their names keeps the dumps from being written.
    for (const char* dump : DumpNames) {
        fs::remove(dump);
        fs::create_directory(dump);
    }
    ShowAgainstGnu("the same without the dumps", Assemble("plain.txt", 9).processor, gnu.processor);
    const double bareWhole = Assemble("labels.txt", 9).processor;
    const double bareSmall = Assemble("small.txt", 9).processor;
    Type("");
    const double start = LeastOf(25, {TOLVANE_PROGRAM}).processor;
    std::printf("%-52s %7.2f of linear (%.2f with the dumps)\n", "ten times the lines, with labels",
                (bareWhole - start) / (bareSmall - start) / 10,
                (whole.processor - start) / (small.processor - start) / 10);
    for (const char* dump : DumpNames)
        fs::remove(dump);
}

void ShowMany() {
    WriteManyLines("many.txt");
    const Usage many = Assemble("many.txt", 3);
    const auto source = static_cast<double>(fs::file_size("many.txt"));
    std::printf("%-52s %7.2f s, %ld MB, %.0f bytes a line above the source\n", "1,000,000 lines, 300,000 labels",
                many.processor, many.peak / 1024, (static_cast<double>(many.peak) * 1024 - source) / ManyLines);
}

void ShowFaults() {
    Write("faults.txt", [](std::ofstream& out) {
        out << "MAIN START\n";
        for (int i = 0; i < FaultyLines; ++i)
            out << "\tADDA GR" << i % 8 << ",#12G" << i % 10 << "\n";
        out << "\tRET\n\tEND\n";
    });
    const Usage faults = Assemble("faults.txt", 5);
    std::printf("%-52s %7.2f M messages/s\n", "50,000 faulty lines, two messages each, printed",
                2 * FaultyLines / faults.processor * 1e-6);
}

void ShowCycle() {
    WriteSource("learner.txt", 30, true);
    const auto dialogue = [](int cycles) {
        std::string typed;
        for (int i = 0; i < cycles; ++i)
            typed += "\n1\nlearner.txt\n1\n";
        Type(typed);
        return LeastOf(5, {TOLVANE_PROGRAM}).wall;
    };
    std::printf("%-52s %7.3f ms by the clock\n", "a cycle of 30 lines, two dumps",
                (dialogue(300) - dialogue(100)) / 200 * 1e3);
    Type("");
    std::printf("%-52s %7.2f ms\n", "start to the first prompt", LeastOf(50, {TOLVANE_PROGRAM}).processor * 1e3);
}

} // namespace

int main() {
    std::string name = (fs::temp_directory_path() / "tolvane-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) return 1;
    fs::current_path(name);
    CompareWithGnu();
    ShowMany();
    ShowFaults();
    ShowCycle();
    fs::current_path("/");
    fs::remove_all(name);
}
