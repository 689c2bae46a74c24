#include "debug/Options.h"

#include "debug/DebugMsgs.h"
#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"

#include <getopt.h>
#include <utility>

namespace tolvane::debug {

namespace {

constexpr const char* ShortOptions = ":hi:l:p:Vx:";
constexpr option LongOptions[] = {
    {"help", no_argument, nullptr, 'h'},
    {"input", required_argument, nullptr, 'i'},
    {"lang", required_argument, nullptr, 'l'},
    {"pipeline", required_argument, nullptr, 'p'},
    {"version", no_argument, nullptr, 'V'},
    {"commands", required_argument, nullptr, 'x'},
    {nullptr, 0, nullptr, 0},
};

// The words of the command line as they stand there.
struct CommandLine {
    std::optional<std::string> lang, pipeline, input, commands;
    bool help = false, version = false;
    const Msg* fault = nullptr; // the first
    std::string faulty;
    std::vector<std::string> files;
};

void ReadWord(CommandLine& line, int found, int argc, char** argv) {
    switch (found) {
    case 'h':
        line.help = true;
        return;
    case 'i':
        line.input = optarg;
        return;
    case 'l':
        line.lang = optarg;
        return;
    case 'p':
        line.pipeline = optarg;
        return;
    case 'V':
        line.version = true;
        return;
    case 'x':
        line.commands = optarg;
        return;
    default:
        if (line.fault != nullptr) return;
        line.fault = found == ':' ? &RunMsg.ArgumentMissing : &RunMsg.OptionNotUnderstood;
        line.faulty = run::RefusedOption(argc, argv);
    }
}

CommandLine ReadWords(int argc, char** argv) {
    CommandLine line;
    opterr = 0;
    int found = 0;
    while ((found = getopt_long(argc, argv, ShortOptions, LongOptions, nullptr)) >= 0)
        ReadWord(line, found, argc, argv);
    line.files.assign(argv + optind, argv + argc);
    return line;
}

std::nullopt_t Wrong(int& status, const Msg& msg, Args args = {}) {
    const std::string what = TextOf(msg, args);
    console::WriteError(TextOf(DebugMsg.UseError, {Utf8Arg{what}}));
    status = run::WrongUse;
    return std::nullopt;
}

// The text of a file that an option names; else the status is no longer 0.
std::optional<std::string> ReadText(const std::optional<std::string>& path, int& status) {
    if (!path || status != run::AllEnded) return std::nullopt;
    platform::Once once = run::ReadInput(*path);
    if (once.end == platform::Once::End::Read) return std::move(once.bytes);
    const std::string why = once.end == platform::Once::End::Interrupted ? std::string() : run::WhyNotRead(once);
    Wrong(status, RunMsg.CannotBeRead, {Utf8Arg{*path}, Utf8Arg{why}});
    return std::nullopt;
}

bool ReadsTwice(const CommandLine& line) {
    int readers = 0;
    for (const auto& name : {std::optional(line.files.front()), line.input, line.commands})
        readers += name == run::StandardInput ? 1 : 0;
    return readers > 1;
}

} // namespace

std::optional<Options> ReadOptions(int argc, char** argv, int& status) {
    const CommandLine line = ReadWords(argc, argv);
    Options options;
    options.assembly.lang = !line.lang ? run::LanguageOfLocale() : *line.lang == "ja" ? 0 : 1;
    modeFlags->Lang = options.assembly.lang;
    status = run::AllEnded;
    if (line.fault != nullptr) return Wrong(status, *line.fault, {Utf8Arg{line.faulty}});
    if (line.help || line.version) {
        Say(line.help ? DebugMsg.Usage : DebugMsg.Version);
        return std::nullopt;
    }
    if (line.lang && *line.lang != "en" && *line.lang != "ja")
        return Wrong(status, RunMsg.NotALanguage, {Utf8Arg{*line.lang}});
    const std::string pipeline = line.pipeline.value_or("WP");
    options.assembly.pipeline = FindPipeline(pipeline);
    if (options.assembly.pipeline == nullptr) return Wrong(status, RunMsg.NotAPipeline, {Utf8Arg{pipeline}});
    if (line.files.size() != 1) return Wrong(status, DebugMsg.OneSource);
    if (ReadsTwice(line)) return Wrong(status, RunMsg.StandardInputTwice);
    options.source = line.files.front();
    options.assembly.input = ReadText(line.input, status);
    options.commands = ReadText(line.commands, status);
    if (status != run::AllEnded) return std::nullopt;
    return options;
}

} // namespace tolvane::debug
