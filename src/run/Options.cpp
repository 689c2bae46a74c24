#include "run/Options.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "run/Comparison.h"
#include "run/Errors.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Tracing.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <getopt.h>
#include <string_view>
#include <system_error>
#include <utility>

namespace tolvane::run {

std::string RefusedOption(int argc, char** argv) {
    const std::string_view word = argv[std::min(optind, argc) - 1]; // some systems count beyond the last word
    if (optopt == 0 || word.starts_with("--")) return std::string(word);
    return std::string("-") + static_cast<char>(optopt);
}

namespace {

constexpr const char* ShortOptions = ":cd:hi:l:n:p:tVw";
constexpr int ExplainOption = 256;
constexpr int GradeOption = 257;
constexpr int ExpectOption = 258;
constexpr int LastOption = 259;
constexpr int RegistersOption = 260;
constexpr int WarningsOption = 261;
constexpr int NoHintsOption = 262;
constexpr option LongOptions[] = {
    {"check", no_argument, nullptr, 'c'},
    {"dump", required_argument, nullptr, 'd'},
    {"expect", required_argument, nullptr, ExpectOption},
    {"explain", optional_argument, nullptr, ExplainOption},
    {"grade", required_argument, nullptr, GradeOption},
    {"help", no_argument, nullptr, 'h'},
    {"input", required_argument, nullptr, 'i'},
    {"lang", required_argument, nullptr, 'l'},
    {"last", required_argument, nullptr, LastOption},
    {"limit", required_argument, nullptr, 'n'},
    {"no-hints", no_argument, nullptr, NoHintsOption},
    {"pipeline", required_argument, nullptr, 'p'},
    {"registers", no_argument, nullptr, RegistersOption},
    {"trace", no_argument, nullptr, 't'},
    {"version", no_argument, nullptr, 'V'},
    {"werror", no_argument, nullptr, WarningsOption},
    {"words", no_argument, nullptr, 'w'},
    {nullptr, 0, nullptr, 0},
};

// The words of the command line as they stand there.
struct CommandLine {
    std::optional<std::string> lang, pipeline, limit, dump, input, expect, explain, grade, last;
    bool check = false, trace = false, words = false, registers = false, werror = false, noHints = false, help = false,
         version = false;
    const Msg* fault = nullptr; // the first that getopt_long has found
    std::string faulty;
    std::vector<std::string> files;
};

void Refuse(CommandLine& line, const Msg& fault, int argc, char** argv) {
    if (line.fault != nullptr) return;
    line.fault = &fault;
    line.faulty = RefusedOption(argc, argv);
}

// What stands in front of --explain's other words, which getopt_long leaves among the files: the word behind "=", or
// the next one where it looks like an option but is a line that was pasted.
std::string WordOfExplain(int argc, char** argv) {
    if (optarg != nullptr) return optarg;
    const std::string_view next = optind < argc ? argv[optind] : "";
    const bool pasted = next.starts_with("-") && next.find(' ') != std::string_view::npos;
    return pasted ? argv[optind++] : "";
}

CommandLine ReadWords(int argc, char** argv) {
    CommandLine line;
    opterr = 0;
    int found = 0;
    while ((found = getopt_long(argc, argv, ShortOptions, LongOptions, nullptr)) >= 0) {
        switch (found) {
        case 'c':
            line.check = true;
            break;
        case 'd':
            line.dump = optarg;
            break;
        case ExpectOption:
            line.expect = optarg;
            break;
        case ExplainOption:
            line.explain = WordOfExplain(argc, argv);
            break;
        case GradeOption:
            line.grade = optarg;
            break;
        case 'h':
            line.help = true;
            break;
        case 'i':
            line.input = optarg;
            break;
        case 'l':
            line.lang = optarg;
            break;
        case LastOption:
            line.last = optarg;
            break;
        case 'n':
            line.limit = optarg;
            break;
        case 'p':
            line.pipeline = optarg;
            break;
        case NoHintsOption:
            line.noHints = true;
            break;
        case RegistersOption:
            line.registers = true;
            break;
        case 't':
            line.trace = true;
            break;
        case 'V':
            line.version = true;
            break;
        case WarningsOption:
            line.werror = true;
            break;
        case 'w':
            line.words = true;
            break;
        case ':':
            Refuse(line, RunMsg.ArgumentMissing, argc, argv);
            break;
        default:
            Refuse(line, RunMsg.OptionNotUnderstood, argc, argv);
        }
    }
    line.files.assign(argv + optind, argv + argc);
    return line;
}

std::nullopt_t Wrong(int& status, const Msg& msg, Args args = {}) {
    const std::string what = TextOf(msg, args);
    WriteErr(TextOf(RunMsg.UseError, {Utf8Arg{what}}));
    status = WrongUse;
    return std::nullopt;
}

// A number of at least `least`.
template <class Number> std::optional<Number> ReadNumber(std::string_view text, Number least) {
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < least) return std::nullopt;
    return number;
}

// The bytes of an input; nothing, and the status, if it cannot be read.
std::optional<std::string> BytesOf(const std::string& name, int& status) {
    platform::Once once = ReadInput(name);
    if (once.end == platform::Once::End::Read) return std::move(once.bytes);
    if (once.end == platform::Once::End::Interrupted) {
        status = CtrlC;
    } else {
        const std::string why = WhyNotRead(once);
        Wrong(status, RunMsg.CannotBeRead, {Utf8Arg{name}, Utf8Arg{why}});
    }
    return std::nullopt;
}

} // namespace

int LanguageOfLocale() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return std::string_view(value).starts_with("ja") ? 0 : 1;
    }
    return 1;
}

std::optional<Options> ReadOptions(int argc, char** argv, int& status) {
    const CommandLine line = ReadWords(argc, argv);
    Options options;
    options.lang = !line.lang ? LanguageOfLocale() : *line.lang == "ja" ? 0 : 1;
    modeFlags->Lang = options.lang;
    status = AllEnded;
    if (line.fault != nullptr) return Wrong(status, *line.fault, {Utf8Arg{line.faulty}});
    if (line.help || line.version) {
        Say(line.help ? RunMsg.Help : RunMsg.Version);
        return std::nullopt;
    }

    if (line.lang && *line.lang != "en" && *line.lang != "ja")
        return Wrong(status, RunMsg.NotALanguage, {Utf8Arg{*line.lang}});
    if (line.explain) {
        options.explain = line.explain;
        for (const std::string& word : line.files)
            *options.explain += (options.explain->empty() ? "" : " ") + word;
        return options;
    }
    const std::string pipeline = line.pipeline.value_or("WP");
    options.pipeline = FindPipeline(pipeline);
    if (options.pipeline == nullptr) return Wrong(status, RunMsg.NotAPipeline, {Utf8Arg{pipeline}});
    if (line.limit) {
        const auto limit = ReadNumber<std::int64_t>(*line.limit, 0);
        if (!limit) return Wrong(status, RunMsg.NotALimit, {Utf8Arg{*line.limit}});
        options.limit = *limit;
    }
    options.check = line.check;
    options.trace = line.trace || line.last;
    if (line.last) {
        const auto last = ReadNumber(*line.last, 1);
        if (!last || *last > Tracer::MostKept)
            return Wrong(status, RunMsg.NotSteps, {Utf8Arg{*line.last}, Tracer::MostKept});
        options.last = *last;
    }
    options.registers = line.registers;
    options.warningsCount = line.werror;
    options.hints = !line.noHints;
    options.words = line.words;
    options.grade = line.grade;
    options.files = line.files;
    if (options.files.empty()) return Wrong(status, RunMsg.NoFile);
    const auto refuseBoth = [&status](const char* one, const char* other) {
        return Wrong(status, RunMsg.NotTogether, {Utf8Arg{one}, Utf8Arg{other}});
    };
    if (line.check && line.expect) return refuseBoth("--check", "--expect");
    if (line.check && line.grade) return refuseBoth("--check", "--grade");
    if (line.expect && line.grade) return refuseBoth("--expect", "--grade");
    const auto readers = std::count(options.files.begin(), options.files.end(), StandardInput) +
                         (line.input == StandardInput ? 1 : 0) + (line.expect == StandardInput ? 1 : 0);
    if (readers > 1) return Wrong(status, RunMsg.StandardInputTwice);
    if (line.input) {
        options.input = BytesOf(*line.input, status);
        if (!options.input) return std::nullopt;
    }
    if (line.expect) {
        auto expected = BytesOf(*line.expect, status);
        if (!expected) return std::nullopt;
        options.expected = AsExpected(std::move(*expected));
    }
    if (line.dump) {
        std::error_code error;
        const std::string folder = platform::SystemPath(*line.dump);
        std::filesystem::create_directory(folder, error);
        if (!error && !std::filesystem::is_directory(folder, error))
            error = std::make_error_code(std::errc::not_a_directory);
        const std::string why = error.message();
        if (error) return Wrong(status, RunMsg.CannotBeMade, {Utf8Arg{*line.dump}, Utf8Arg{why}});
        options.dump = *line.dump;
    }
    return options;
}

} // namespace tolvane::run
