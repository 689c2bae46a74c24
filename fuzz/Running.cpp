// Whole calls of tolvane-run: whatever the words of the command line are, the source, and what IN reads, the status is
// one of those that are documented, nothing that is told moves a terminal, and neither what is traced nor what is told
// changes what a program does.
//
// The input: a source; then, a zero in front of each, what IN reads, what is expected, the words of the command line.

#include "Fuzz.h"
#include "World.h"
#include "run/Errors.h"
#include "run/Explain.h"
#include "run/Sources.h"

#include <filesystem>
#include <getopt.h>
#include <sstream>
#include <vector>

using namespace tolvane;
using namespace tolvane::run;

namespace {

struct Task {
    std::string source, input, expected;
    std::vector<std::string> words;
};

// Words that lead out of the folder are left out.
std::vector<std::string> WordsOf(const std::string& text) {
    constexpr std::size_t most = 16;
    std::vector<std::string> words;
    std::istringstream stream(text);
    for (std::string word; stream >> word && words.size() < most;)
        if (word.find_first_of("/\\") == std::string::npos && word.find("..") == std::string::npos)
            words.push_back(word);
    return words;
}

Task TaskOf(std::string_view bytes) {
    std::vector<std::string> fields = fuzz::Fields(bytes);
    fields.resize(4);
    Task task{fields[0], fields[1], fields[2], WordsOf(fields[3])};
    task.words.push_back("-p" + std::string(modeFlags->Pipe->name));
    task.words.push_back(modeFlags->Lang == 0 ? "-lja" : "-len");
    task.words.push_back("s.txt");
    return task;
}

void LayDown(const Task& task) {
    fuzz::BeginWorld(task.input, task.source.size() / 64);
    fuzz::LayDown("s.txt", task.source);
    fuzz::LayDown("input-1.txt", task.input);
    fuzz::LayDown("output-1.txt", task.expected);
    fuzz::LayDown("rules.txt", task.expected);
}

int RunFiles(const Options& options) {
    int status = AllEnded;
    for (const std::string& file : options.files) {
        status = std::max(status, RunFile(options, file));
        if (status == CtrlC) break;
    }
    return status;
}

int Call(const Task& task, const std::string& first) {
    std::vector<std::string> words{"tolvane-run", "-n20000", first};
    words.insert(words.end(), task.words.begin(), task.words.end());
    std::vector<char*> pointers;
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    LayDown(task);
    optind = 0; // the C library begins anew
    int status = AllEnded;
    const auto options = ReadOptions(static_cast<int>(words.size()), pointers.data(), status);
    if (options) status = options->explain ? Explain(*options->explain) : RunFiles(*options);
    console::Flush();
    FlushErr();
    return status;
}

bool IsStatus(int status) {
    return (AllEnded <= status && status <= WrongOutput) || status == CtrlC;
}

bool IsControl(char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t') || c == 0x7F;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr const char* Others[] = {"--trace", "--last=3", "--words", "--no-hints"};
    static Tcomet2 machine;
    const Task task = TaskOf(fuzz::Begin(data, size));
    console::WriteTo(nullptr);
    comet2->InitComet2();
    const int status = Call(task, "--registers");
    TOLVANE_MUST(IsStatus(status));
    const fuzz::World plain = fuzz::world;
    TOLVANE_MUST(std::none_of(plain.errors.begin(), plain.errors.end(), IsControl));

    machine = *comet2;
    comet2->InitComet2();
    const int other = Call(task, Others[size % std::size(Others)]);
    TOLVANE_MUST(std::none_of(fuzz::world.errors.begin(), fuzz::world.errors.end(), IsControl));
    if (plain.pressed || fuzz::world.pressed) return 0;
    TOLVANE_MUST(other == status && fuzz::world.output == plain.output);
    TOLVANE_MUST(comet2->RegistersNow().GR == machine.GR && comet2->Memory == machine.Memory);
    TOLVANE_MUST(comet2->Stack == machine.Stack && comet2->RunCount == machine.RunCount && comet2->PR == machine.PR);
    return 0;
}
