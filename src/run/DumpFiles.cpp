#include "run/DumpFiles.h"

#include "input/Readers.h"
#include "machine/Tcomet2.h"
#include "platform/Files.h"
#include "reports/Dump.h"
#include "reports/ReportsMsgs.h"
#include "run/Errors.h"
#include "run/Options.h"
#include "run/RunMsgs.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

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
// differs in the suffix alone. One that has none then is told apart from what the other one may have been called
// before.
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

// The folders of a source as they stand below the folder.
fs::path FoldersBelow(const fs::path& path) {
    fs::path below = path.has_root_directory() ? RootBelow(path) : "";
    for (const fs::path& part : path.relative_path().parent_path())
        if (part != ".") below /= PartBelow(part.string());
    return below;
}

// The path below the folder, without the dump's own suffix.
fs::path PathBelow(const std::string& source) {
    if (source == StandardInput) return StandardInputName;
    const fs::path path = fs::path(platform::SystemPath(source));
    return FoldersBelow(path) / NameOf(path);
}

// The paths that a source has had while other sources stood beside it, or none did.
std::vector<fs::path> FormerPaths(const std::string& source) {
    if (source == StandardInput) return {};
    const fs::path path = fs::path(platform::SystemPath(source));
    const fs::path folders = FoldersBelow(path);
    return {folders / PartBelow(path.stem().string()), folders / PartBelow(path.filename().string())};
}

// Whether a dump tells that it is this source's.
bool IsOf(const std::string& source, const std::string& dump) {
    std::string told = TextOf(ReportsMsg.Source, {Utf8Arg{source}, Utf8Arg{{}}});
    told.pop_back(); // the line goes on
    const auto text = platform::ReadFile(dump);
    return text && text->find(told) != std::string::npos;
}

// Whether a dump would take the place of a source of this call.
bool IsSource(const Options& options, const fs::path& place) {
    std::error_code error;
    return std::any_of(options.files.begin(), options.files.end(), [&](const std::string& file) {
        return file != StandardInput && fs::equivalent(place, platform::SystemPath(file), error);
    });
}

std::string DumpPath(const std::string& folder, const fs::path& below, Dumped dumped) {
    return (fs::path(folder) / below).generic_string() + Suffixes[static_cast<int>(dumped)];
}

void Remove(const Options& options, const std::string& dump) {
    std::error_code error;
    const fs::path place(platform::SystemPath(dump));
    if (!IsSource(options, place)) fs::remove(place, error);
}

} // namespace

int WriteDump(const Options& options, const std::string& source, Dumped dumped) {
    const std::string path = DumpPath(*options.dump, PathBelow(source), dumped);
    const fs::path place(platform::SystemPath(path));
    std::error_code error;
    fs::create_directories(place.parent_path(), error); // what fails here fails once more below
    const auto failure =
        IsSource(options, place) ? TextOf(RunMsg.IsASource) : WriteDumpFile(*comet2, path, place.filename().string());
    if (!failure) return AllEnded;
    PrintDiagnostic(path, -1, Severity::Error, {TextOf(RunMsg.NotWritten, {Utf8Arg{*failure}})});
    return WrongUse;
}

void RemoveDumps(const Options& options, const std::string& source) {
    for (const Dumped dumped : {Dumped::Assembled, Dumped::Result}) {
        Remove(options, DumpPath(*options.dump, PathBelow(source), dumped));
        for (const fs::path& below : FormerPaths(source))
            if (const std::string dump = DumpPath(*options.dump, below, dumped); IsOf(source, dump))
                Remove(options, dump);
    }
}

} // namespace tolvane::run
