#include "run/DumpFiles.h"

#include "input/Readers.h"
#include "machine/Tcomet2.h"
#include "platform/Files.h"
#include "reports/Dump.h"
#include "run/Errors.h"
#include "run/Options.h"
#include "run/RunMsgs.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tolvane::run {

namespace {

namespace fs = std::filesystem;

constexpr const char* StandardInputName = "stdin";
constexpr const char* Suffixes[] = {".assembled.txt", ".result.txt"};

// A part of a path as it stands below the folder. What begins with "_" is ours, so that no two parts get one name, and
// no name begins with a full stop.
std::string PartBelow(const std::string& part) {
    if (part == "..") return "_up";
    return part.starts_with('.') || part.starts_with('_') ? "_" + part : part;
}

// The root of an absolute path, with its drive or its machine.
std::string RootBelow(const fs::path& path) {
    std::string name = "_root";
    for (const char c : path.root_name().generic_string())
        if (c != ':' && c != '/') name += c;
    return name;
}

bool IsThere(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error);
}

// The source's name without its suffix; with it where that is none of a source, or where another source beside it
// differs in the suffix alone. One that has none then is told apart from what the other one may have been called before.
std::string NameOf(const fs::path& path) {
    const std::string whole = path.filename().string();
    const std::string stem = path.stem().string();
    bool isAlone = stem != StandardInputName;
    for (const std::string suffix : SourceSuffixes)
        if (stem + suffix != whole && IsThere(path.parent_path() / (stem + suffix))) isAlone = false;
    const bool isKnown = std::count(SourceSuffixes.begin(), SourceSuffixes.end(), path.extension()) > 0;
    if (isKnown && isAlone) return PartBelow(stem);
    return whole == stem && !isAlone ? "_" + whole : PartBelow(whole);
}

// The path below the folder, without the dump's own suffix.
fs::path PathBelow(const std::string& source) {
    if (source == StandardInput) return StandardInputName;
    const fs::path path = fs::path(platform::SystemPath(source));
    fs::path below = path.has_root_directory() ? RootBelow(path) : "";
    for (const fs::path& part : path.relative_path().parent_path())
        if (part != ".") below /= PartBelow(part.string());
    return below / NameOf(path);
}

// Whether a dump would take the place of a source of this call.
bool IsSource(const Options& options, const fs::path& place) {
    std::error_code error;
    return std::any_of(options.files.begin(), options.files.end(), [&](const std::string& file) {
        return file != StandardInput && fs::equivalent(place, platform::SystemPath(file), error);
    });
}

std::string DumpPath(const std::string& folder, const std::string& source, Dumped dumped) {
    return (fs::path(folder) / PathBelow(source)).generic_string() + Suffixes[static_cast<int>(dumped)];
}

} // namespace

int WriteDump(const Options& options, const std::string& source, Dumped dumped) {
    const std::string path = DumpPath(*options.dump, source, dumped);
    const fs::path place(platform::SystemPath(path));
    std::error_code error;
    fs::create_directories(place.parent_path(), error); // what fails here fails once more below
    const auto failure = IsSource(options, place) ? TextOf(RunMsg.IsASource)
                                                  : WriteDumpFile(*comet2, path, place.filename().string());
    if (!failure) return AllEnded;
    PrintDiagnostic(path, -1, Severity::Error, {TextOf(RunMsg.NotWritten, {Utf8Arg{*failure}})});
    return WrongUse;
}

void RemoveDumps(const Options& options, const std::string& source) {
    std::error_code error;
    for (const Dumped dumped : {Dumped::Assembled, Dumped::Result}) {
        const fs::path place(platform::SystemPath(DumpPath(*options.dump, source, dumped)));
        if (!IsSource(options, place)) fs::remove(place, error);
    }
}

} // namespace tolvane::run
