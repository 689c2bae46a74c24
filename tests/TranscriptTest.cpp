// The transcripts: each case in tests/transcripts/<room>/<case>/ is data, told in tests/README.md. A case runs once
// for each console*.txt that it holds, in a fresh folder, and everything that the program printed and left behind is
// compared with the case's files.

#include "TranscriptTest.h"

#include "ProgramRun.h"
#include "TextTools.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace tolvane::tests {

namespace fs = std::filesystem;

namespace {

const fs::path Transcripts = fs::path(TOLVANE_TESTS) / "transcripts";
constexpr const char* IniName = "tolvane_Win.ini";
constexpr const char* DefaultDialogue = "\n1\nsource.txt\n";
constexpr const char* NoClosing = "\n<the program ended without its Enter prompt>\n";

struct Dump {
    const char* stem; // of the expectation
    const char* file;
};
constexpr Dump Dumps[] = {{"assembled", "aaAssembledRegMry.txt"}, {"resultant", "aaResultantRegMry.txt"}};

// One run of a case: the variant is what stands between "console." and "txt", such as "en" or "WP.ja".
struct CaseRun {
    fs::path folder;
    std::string variant;

    std::string Lang() const { return variant.substr(variant.rfind('.') + 1); }
    std::string Pipeline() const {
        const std::size_t dot = variant.find('.');
        return dot == std::string::npos ? "NWW" : variant.substr(0, dot);
    }
    // The case's file for this run: the variant's own, or the one that all runs share.
    fs::path FileOf(const std::string& stem, const std::string& suffix) const {
        const fs::path own = folder / (stem + "." + variant + suffix);
        return !variant.empty() && fs::exists(own) ? own : folder / (stem + suffix);
    }
    bool Has(const char* marker) const { return fs::exists(folder / marker); }
};

// A folder of its own for one run.
class Workplace {
public:
    Workplace() {
        std::string name = (fs::temp_directory_path() / "tolvane-XXXXXX").string();
        if (mkdtemp(name.data()) != nullptr) path = fs::canonical(name);
    }
    ~Workplace() {
        std::error_code ignored;
        if (!path.empty()) fs::remove_all(path, ignored);
    }
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(path)) {
            if (entry.is_regular_file()) files[fs::relative(entry.path(), path).string()] = ReadFile(entry.path());
        }
        return files;
    }

    fs::path path;
};

// Whether a file of the case belongs to the test and not to the program's folder.
bool IsOfTheTest(const std::string& name) {
    static const std::set<std::string> Names = {"settings.ini", "no-settings", "environment.txt", "names.txt",
                                                "terminal"};
    static const std::set<std::string> Stems = {"console", "typed", "assembled", "resultant", "settings-after"};
    return Names.count(name) != 0 || Stems.count(name.substr(0, name.find('.'))) != 0;
}

class Transcript : public testing::Test {
public:
    Transcript(CaseRun what, bool rewriting) : run(std::move(what)), rewrite(rewriting) {}

    void TestBody() override {
        ASSERT_FALSE(work.path.empty()) << "no temporary folder";
        ASSERT_NO_FATAL_FAILURE(CheckForm());
        SetUpFolder();
        const auto before = work.Files();
        const ProgramRun ran = RunProgram(Call());
        ASSERT_TRUE(ran.trouble.empty()) << ran.trouble << "\n" << ran.output;

        const std::string text = MaskConsole(ran.output, work.path.string());
        Compare(run.FileOf("console", ".txt"), IsDefaultDialogue() ? TakeOffFrame(text) : text);
        auto after = work.Files();
        for (const Dump& dump : Dumps)
            CheckDump(dump, text, before, after);
        CheckSettings(before, after);
        CheckOtherFiles(before, after);
    }

private:
    bool OwnSettings() const { return run.Has("settings.ini") || run.Has("no-settings"); }
    bool IsDefaultDialogue() const { return !fs::exists(run.FileOf("typed", ".txt")); }

    void CheckForm() {
        const std::string lang = run.Lang();
        if (run.variant.empty()) {
            ASSERT_TRUE(OwnSettings()) << run.folder << ": a plain console.txt goes with settings.ini or no-settings";
            ASSERT_FALSE(IsDefaultDialogue()) << run.folder << ": a plain console.txt goes with typed.txt";
        } else {
            ASSERT_TRUE(lang == "en" || lang == "ja") << run.folder << ": console." << run.variant << ".txt";
            ASSERT_FALSE(OwnSettings()) << run.folder << ": a case with settings of its own has a plain console.txt";
        }
    }

    void SetUpFolder() {
        for (const auto& entry : fs::directory_iterator(run.folder)) {
            const std::string name = entry.path().filename().string();
            if (!IsOfTheTest(name)) fs::copy(entry.path(), work.path / name, fs::copy_options::recursive);
        }
        Rename();
        if (run.Has("no-settings")) return;
        WriteFile(work.path / IniName, run.Has("settings.ini") ? ReadFile(run.folder / "settings.ini") : Settings());
    }

    // Names that no repository should hold stand in the case's names.txt: the plain one, a tab, the real one.
    void Rename() {
        for (std::string line : Lines(ReadFile(run.folder / "names.txt"))) {
            if (line.back() == '\n') line.pop_back();
            const std::size_t tab = line.find('\t');
            if (tab != std::string::npos) fs::rename(work.path / line.substr(0, tab), work.path / line.substr(tab + 1));
        }
    }

    std::string Settings() const {
        return std::string("[Mode]\nLang=") + (run.Lang() == "ja" ? "JPN" : "ENU") + "\nFightFunc=" + run.Pipeline() +
               "\nSilentModeIndex=1\n";
    }

    // The program sees no locale, an editor that prints the file, and what the case's environment.txt adds.
    std::vector<std::string> Environment() const {
        std::vector<std::string> lines = {"EDITOR=cat", "TZ=UTC", "HOME=" + work.path.string()};
        for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
            if (const char* value = std::getenv(name)) lines.push_back(std::string(name) + "=" + value);
        }
        for (std::string line : Lines(ReadFile(run.folder / "environment.txt"))) {
            if (line.back() == '\n') line.pop_back();
            const std::string name = line.substr(0, line.find('=') + 1);
            std::erase_if(lines, [&](const std::string& other) { return other.starts_with(name); });
            lines.push_back(line);
        }
        return lines;
    }

    ProgramCall Call() const {
        ProgramCall call;
        call.program = TOLVANE_PROGRAM;
        call.folder = work.path;
        call.environment = Environment();
        call.typed = IsDefaultDialogue() ? DefaultDialogue : ReadFile(run.FileOf("typed", ".txt"));
        call.terminal = run.Has("terminal");
        return call;
    }

    // The opening or closing of the default dialogue in the run's language, the pipeline's own where it has one.
    std::string Frame(const std::string& part) const {
        const fs::path own = Transcripts / (part + "." + run.Pipeline() + "." + run.Lang() + ".txt");
        const fs::path shared = Transcripts / (part + "." + run.Lang() + ".txt");
        return Replaced(ReadFile(fs::exists(own) ? own : shared), "<pipeline>", run.Pipeline());
    }

    std::string TakeOffFrame(const std::string& text) const {
        const std::string opening = Frame("opening");
        const std::string closing = Frame("closing");
        if (!text.starts_with(opening)) {
            ADD_FAILURE() << "the opening: " << Difference(opening, text.substr(0, opening.size()));
            return text;
        }
        std::string words = text.substr(opening.size());
        if (!words.ends_with(closing)) return words + NoClosing;
        words.resize(words.size() - closing.size());
        return words;
    }

    void Compare(const fs::path& file, const std::string& found) {
        if (rewrite) return WriteFile(file, found);
        EXPECT_TRUE(fs::exists(file)) << file << " is missing";
        const std::string difference = Difference(ReadFile(file), found);
        if (!difference.empty()) ADD_FAILURE() << file.string() << ": " << difference;
    }

    // A dump is written when the console says so and not otherwise; its text is compared where the case has one.
    void CheckDump(const Dump& dump, const std::string& console, const std::map<std::string, std::string>& before,
                   std::map<std::string, std::string>& after) {
        const bool announced = console.find(std::string("---> ") + dump.file) != std::string::npos;
        const auto old = before.find(dump.file);
        const auto now = after.find(dump.file);
        const bool written = now != after.end() && (old == before.end() || old->second != now->second);
        EXPECT_EQ(written, announced && !fs::is_directory(work.path / dump.file)) << dump.file;
        const fs::path expected = run.FileOf(dump.stem, ".txt");
        if (fs::exists(expected)) {
            EXPECT_TRUE(written) << dump.file << " was not written";
            if (written) Compare(expected, MaskDump(now->second));
        }
        if (written) after.erase(now);
    }

    void CheckSettings(const std::map<std::string, std::string>& before, std::map<std::string, std::string>& after) {
        const fs::path expected = run.FileOf("settings-after", ".ini");
        if (!fs::exists(expected)) return; // then the file must be as it was, like every other
        EXPECT_EQ(after.count(IniName), 1U) << "no settings file was left";
        Compare(expected, Replaced(after[IniName], work.path.string(), "<folder>"));
        after.erase(IniName);
        if (const auto old = before.find(IniName); old != before.end()) after[IniName] = old->second;
    }

    void CheckOtherFiles(const std::map<std::string, std::string>& before,
                         const std::map<std::string, std::string>& after) {
        for (const auto& [name, bytes] : after) {
            const auto old = before.find(name);
            if (old == before.end())
                ADD_FAILURE() << "an unexpected file was left: " << name << "\n" << bytes;
            else
                EXPECT_EQ(Difference(old->second, bytes), "") << "a file was changed: " << name;
        }
        for (const auto& [name, bytes] : before) {
            const bool isDump = name == Dumps[0].file || name == Dumps[1].file;
            if (!isDump && after.count(name) == 0) ADD_FAILURE() << "a file is gone: " << name;
        }
    }

    CaseRun run;
    bool rewrite;
    Workplace work;
};

class NoExpectation : public testing::Test {
public:
    explicit NoExpectation(fs::path caseFolder) : folder(std::move(caseFolder)) {}
    void TestBody() override { ADD_FAILURE() << folder << " holds no console*.txt"; }

private:
    fs::path folder;
};

// The variants of a case: one for each console*.txt.
std::vector<std::string> VariantsOf(const fs::path& folder) {
    std::vector<std::string> variants;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with("console.") || !name.ends_with(".txt")) continue;
        variants.push_back(name == "console.txt" ? "" : name.substr(8, name.size() - 12));
    }
    std::sort(variants.begin(), variants.end());
    return variants;
}

// Names of tests are plain words: the characters of filters and of lists of tests are no part of them.
std::string TestName(std::string name) {
    for (char& c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
    }
    return name;
}

std::vector<fs::path> FoldersIn(const fs::path& parent) {
    std::vector<fs::path> folders;
    for (const auto& entry : fs::directory_iterator(parent)) {
        if (entry.is_directory()) folders.push_back(entry.path());
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

} // namespace

void RegisterTranscripts(bool rewrite) {
    for (const fs::path& room : FoldersIn(Transcripts)) {
        const std::string suite = TestName(room.filename().string());
        for (const fs::path& folder : FoldersIn(room)) {
            const std::string name = TestName(folder.filename().string());
            const auto add = [&](const std::string& test, auto make) {
                testing::RegisterTest(suite.c_str(), test.c_str(), nullptr, nullptr, folder.c_str(), 1, make);
            };
            const std::vector<std::string> variants = VariantsOf(folder);
            if (variants.empty()) add(name, [folder]() -> testing::Test* { return new NoExpectation(folder); });
            for (const std::string& variant : variants) {
                const CaseRun run{folder, variant};
                add(variant.empty() ? name : name + "_" + TestName(variant),
                    [run, rewrite]() -> testing::Test* { return new Transcript(run, rewrite); });
            }
        }
    }
}

} // namespace tolvane::tests
