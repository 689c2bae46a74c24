// The transcripts: each tests/transcripts/<name>.txt tells, section by section, what lies in the program's folder, what
// is typed, and what the program prints and leaves behind. The form is described in tests/README.md.

#include "TranscriptTest.h"

#include "Assemble.h"
#include "ProgramRun.h"
#include "TextTools.h"
#include "text/Convert.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace tolvane::tests {

namespace fs = std::filesystem;

namespace {

const fs::path Folder = fs::path(TOLVANE_TESTS) / "transcripts";
const fs::path MarksFile = Folder / "marks.txt";
const std::string IniName = "tolvane_Win.ini";
const std::string DumpNames[] = {"aaAssembledRegMry.txt", "aaResultantRegMry.txt"};
const std::string NoLineEnd = "<no line end>\n";

using FileBytes = std::map<std::string, std::string>;

struct Section {
    std::string head; // without the "$ "
    std::string body;
};

// The sections of a transcript; what stands above the first is its opening.
std::vector<Section> ReadSections(const fs::path& file, std::string& opening) {
    std::vector<Section> sections;
    for (const std::string& line : Lines(ReadFile(file))) {
        if (line.starts_with("$ "))
            sections.push_back({line.substr(2, line.size() - 3), ""});
        else
            (sections.empty() ? opening : sections.back().body) += line;
    }
    return sections;
}

// A part of a mark's text: a row of that name with its arguments, or the words themselves.
std::string PartOfMark(const std::vector<std::string>& words, int language) {
    std::string text;
    for (const Msg* row : AllRows()) {
        if (NameOf(*row) != words[0]) continue;
        std::vector<KeptArg> args;
        for (std::size_t i = 1; i < words.size(); ++i)
            args.push_back({ViewA(words[i]), false, std::atoi(words[i].c_str())});
        Compose(text, row->For(language, WordingNWW), {language, WordingNWW, Severity::Error, NoLine, args});
        return text;
    }
    return words[0];
}

std::vector<Mark> ReadMarks() {
    std::vector<Mark> marks;
    for (const std::string& line : Lines(ReadFile(MarksFile))) {
        if (line[0] == '#') continue;
        const std::size_t end = line.find("> ") + 1;
        Mark& mark = marks.emplace_back(Mark{line.substr(0, end), ""});
        std::vector<std::string> part;
        const std::vector<std::string> words = Words(line.substr(end, line.size() - end - 1) + " +");
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (words[i] != "+") {
                part.push_back(words[i]);
                continue;
            }
            mark.text += PartOfMark(part, words[0] == "ja" ? 0 : 1);
            part.clear();
        }
    }
    return marks;
}

// The text that a section tells: the words behind its head as lines, or its body. The last line may lack its end.
std::string TextOf(const std::vector<std::string>& words, std::size_t firstLine, const std::string& body) {
    std::string text = words.size() > firstLine ? "" : body;
    for (std::size_t i = firstLine; i < words.size(); ++i)
        text += words[i] + "\n";
    if (text.ends_with(NoLineEnd)) text.resize(text.size() - NoLineEnd.size());
    return text;
}

class Transcript : public testing::Test {
public:
    Transcript(fs::path transcript, bool rewriting) : file(std::move(transcript)), rewrite(rewriting) {}

    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "tolvane-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        work = fs::canonical(name);
    }
    void TearDown() override {
        if (!work.empty()) fs::remove_all(work);
    }

    void TestBody() override {
        std::string text;
        std::vector<Section> sections = ReadSections(file, text);
        EXPECT_FALSE(sections.empty());
        for (Section& section : sections) {
            SCOPED_TRACE(file.filename().string() + ": $ " + section.head);
            Carry(Words(section.head), section.body);
            if (HasFatalFailure()) return;
            text += "$ " + section.head + "\n" + section.body;
        }
        CheckFolder();
        if (rewrite) WriteFile(file, text);
    }

private:
    void Carry(const std::vector<std::string>& words, std::string& body) {
        const std::string& what = words[0];
        const std::string name = words.size() > 1 ? words[1] : "";
        if (what == "console") return Run(name, body);
        if (what == "run") LayDown(IniName, "[Mode]\n" + TextOf(words, 1, body));
        if (what == "run") return Run("utf-8", body);
        if (what == "dump") return CheckDump(name, body);
        if (what == "settings-after") return CheckSettings(body);
        CheckFolder();
        if (what == "settings")
            LayDown(IniName, (words.size() > 1 ? "[Mode]\n" : "") + TextOf(words, 1, body));
        else if (what == "file")
            LayDown(name, Encoded(TextOf(words, 3, body), words.size() > 2 ? words[2] : "utf-8"));
        else if (what == "folder")
            fs::create_directories(work / name);
        else if (what == "environment")
            environment.assign(words.begin() + 1, words.end());
        else if (what == "terminal")
            call.terminal = true;
        else if (what == "plain")
            marks.clear();
        else if (what == "type")
            call.typed = TextOf(words, 1, body);
        else
            FAIL() << "no such section";
    }

    void LayDown(const std::string& name, const std::string& bytes) {
        fs::create_directories((work / name).parent_path());
        WriteFile(work / name, bytes);
        if (bytes.starts_with("#!")) fs::permissions(work / name, fs::perms::owner_exec, fs::perm_options::add);
        known[name] = bytes;
    }

    // The program sees no locale, an editor that prints the file, and what the transcript's environment adds.
    std::vector<std::string> Environment() const {
        std::map<std::string, std::string> values = {{"EDITOR", "cat"}, {"TZ", "UTC"}, {"HOME", work.string()}};
        for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
            if (const char* value = std::getenv(name)) values[name] = value;
        for (const std::string& line : environment)
            values[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
        std::vector<std::string> lines;
        for (const auto& [name, value] : values)
            lines.push_back(name + "=" + value);
        return lines;
    }

    // Starts the program and compares what it prints. A dump must be written exactly when the console says so, which
    // its time shows.
    void Run(const std::string& encoding, std::string& body) {
        CheckFolder();
        using namespace std::chrono;
        const auto old = floor<seconds>(fs::file_time_type::clock::now()) - hours(24);
        for (const std::string& name : DumpNames)
            if (known.count(name) != 0) fs::last_write_time(work / name, old);
        call.program = (ProgramFolder() / "tolvane").string();
        call.folder = work;
        call.environment = Environment();
        const ProgramRun ran = RunProgram(call);
        ASSERT_EQ(ran.trouble, "") << ran.output;

        Compare(body, Decoded(ran.output, encoding));
        after = Files();
        for (const std::string& name : DumpNames) {
            const bool announced = ran.output.find("---> " + name) != std::string::npos;
            const bool written = after.count(name) != 0 && fs::last_write_time(work / name) != old;
            EXPECT_EQ(written, announced && !fs::is_directory(work / name)) << name;
            if (written) known[name] = after[name];
        }
    }

    void CheckDump(const std::string& name, std::string& body) {
        ASSERT_EQ(after.count(name), 1U) << name << " was not written";
        Compare(body, after[name]);
    }

    void CheckSettings(std::string& body) {
        EXPECT_NE(after[IniName], known[IniName]) << "the settings are as they were, no section is needed";
        Compare(body, after[IniName]);
        known[IniName] = after[IniName];
    }

    void Compare(std::string& body, const std::string& text) {
        const std::string plain = Replaced(text, "Z:" + Replaced(work.string(), "/", "\\"), "<folder>"); // under Wine
        std::string found = Marked(Masked(Replaced(plain, work.string(), "<folder>")), marks);
        if (!found.empty() && found.back() != '\n') found += NoLineEnd;
        if (rewrite)
            body = found;
        else
            EXPECT_EQ(body, found);
    }

    FileBytes Files() const {
        FileBytes files;
        for (const auto& entry : fs::recursive_directory_iterator(work))
            if (entry.is_regular_file()) files[fs::relative(entry.path(), work).string()] = ReadFile(entry.path());
        return files;
    }

    // What no section has told must not have happened: no file appears, changes or goes.
    void CheckFolder() const { EXPECT_EQ(Files(), known); }

    fs::path file;
    bool rewrite;
    std::vector<Mark> marks = ReadMarks();
    fs::path work; // the program's folder
    std::vector<std::string> environment;
    ProgramCall call;
    FileBytes known; // the files that were laid down, or were told to be written
    FileBytes after; // the files behind the last run
};

} // namespace

void RegisterTranscripts(bool rewrite) {
    std::set<fs::path> files;
    for (const auto& entry : fs::directory_iterator(Folder))
        if (entry.is_regular_file() && entry.path() != MarksFile) files.insert(entry.path());
    for (const fs::path& file : files) {
        const std::string name = Replaced(file.stem().string(), "-", "_");
        testing::RegisterTest("transcripts", name.c_str(), nullptr, nullptr, file.c_str(), 1,
                              [file, rewrite]() -> testing::Test* { return new Transcript(file, rewrite); });
    }
}

} // namespace tolvane::tests
