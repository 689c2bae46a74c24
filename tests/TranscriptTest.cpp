// The transcripts: each tests/transcripts/<name>.txt tells, section by section, what lies in the program's folder, what
// is typed, and what the program prints and leaves behind. The form is described in tests/README.md.

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

const fs::path Folder = fs::path(TOLVANE_TESTS) / "transcripts";
const fs::path MarksFile = Folder / "marks.txt";
constexpr const char* IniName = "tolvane_Win.ini";
constexpr const char* DumpNames[] = {"aaAssembledRegMry.txt", "aaResultantRegMry.txt"};
constexpr const char* NoLineEnd = "<no line end>\n";

using FileBytes = std::map<std::string, std::string>;

struct Section {
    std::string head; // the whole line
    std::string body;
};

// The sections of a transcript; what stands above the first is its opening.
std::vector<Section> ReadSections(const fs::path& file, std::string& opening) {
    std::vector<Section> sections;
    for (const std::string& line : Lines(ReadFile(file))) {
        if (line.starts_with("$ "))
            sections.push_back({line.substr(0, line.size() - 1), ""});
        else
            (sections.empty() ? opening : sections.back().body) += line;
    }
    return sections;
}

// What was written, as the body of a section, which ends with a line end; and back.
std::string BodyOf(const std::string& text) {
    return text.empty() || text.ends_with('\n') ? text : text + NoLineEnd;
}
std::string TextOfBody(std::string body) {
    if (body.ends_with(NoLineEnd)) body.resize(body.size() - std::string(NoLineEnd).size());
    return body;
}

// A folder of its own for one transcript.
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

    FileBytes Files() const {
        FileBytes files;
        for (const auto& entry : fs::recursive_directory_iterator(path)) {
            if (entry.is_regular_file()) files[fs::relative(entry.path(), path).string()] = ReadFile(entry.path());
        }
        return files;
    }
    void Write(const std::string& name, const std::string& bytes) const {
        fs::create_directories((path / name).parent_path());
        WriteFile(path / name, bytes);
        if (bytes.starts_with("#!")) fs::permissions(path / name, fs::perms::owner_exec, fs::perm_options::add);
    }

    fs::path path;
};

class Transcript : public testing::Test {
public:
    Transcript(fs::path transcript, bool rewriting) : file(std::move(transcript)), rewrite(rewriting) {}

    void TestBody() override {
        ASSERT_FALSE(work.path.empty()) << "no temporary folder";
        sections = ReadSections(file, opening);
        ASSERT_FALSE(sections.empty());
        std::string heading;
        for (const Section& mark : ReadSections(MarksFile, heading))
            marks.push_back({mark.head.substr(2), TextOfBody(mark.body)});
        for (Section& section : sections) {
            SCOPED_TRACE(file.filename().string() + ": " + section.head);
            Carry(Words(section.head.substr(2)), section);
            if (HasFatalFailure()) return;
        }
        CheckFolder();
        if (rewrite) Write();
    }

private:
    void Write() const {
        std::string text = opening;
        for (const Section& section : sections)
            text += section.head + "\n" + section.body;
        WriteFile(file, text);
    }

    void Carry(const std::vector<std::string>& words, Section& section) {
        const std::string& what = words[0];
        const std::vector<std::string> rest(words.begin() + 1, words.end());
        const std::string first = rest.empty() ? "" : rest[0];
        if (what == "console") return Run(first, section);
        if (what == "dump") return CheckDump(first, section);
        if (what == "settings-after") return CheckSettings(section);
        CheckFolder();
        if (what == "settings")
            LayDown(IniName, rest.empty() ? TextOfBody(section.body) : "[Mode]\n" + JoinedLines(rest));
        else if (what == "file")
            LayDown(first,
                    Encoded(rest.size() > 2 ? JoinedLines({rest.begin() + 2, rest.end()}) : TextOfBody(section.body),
                            rest.size() > 1 ? rest[1] : "utf-8"));
        else if (what == "folder")
            fs::create_directories(work.path / first);
        else if (what == "environment")
            environment = rest;
        else if (what == "terminal")
            call.terminal = true;
        else if (what == "type")
            call.typed = rest.empty() ? TextOfBody(section.body) : JoinedLines(rest);
        else
            FAIL() << "no such section";
    }

    void LayDown(const std::string& name, const std::string& bytes) {
        known[name] = bytes;
        work.Write(name, bytes);
    }

    // The program sees no locale, an editor that prints the file, and what the transcript's environment adds.
    std::vector<std::string> Environment() const {
        std::vector<std::string> lines = {"EDITOR=cat", "TZ=UTC", "HOME=" + work.path.string()};
        for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
            if (const char* value = std::getenv(name)) lines.push_back(std::string(name) + "=" + value);
        }
        for (const std::string& line : environment) {
            const std::string name = line.substr(0, line.find('=') + 1);
            std::erase_if(lines, [&](const std::string& other) { return other.starts_with(name); });
            lines.push_back(line);
        }
        return lines;
    }

    // Starts the program and compares what it prints.
    void Run(const std::string& encoding, Section& section) {
        CheckFolder();
        for (const char* name : DumpNames) // so that a dump that is written shows by its time
            if (known.count(name) != 0) fs::last_write_time(work.path / name, fs::file_time_type());
        call.program = TOLVANE_PROGRAM;
        call.folder = work.path;
        call.environment = Environment();
        const ProgramRun ran = RunProgram(call);
        ASSERT_TRUE(ran.trouble.empty()) << ran.trouble << "\n" << ran.output;

        const std::string text = MaskConsole(Decoded(ran.output, encoding), work.path.string());
        Compare(section, text);
        after = work.Files();
        for (const std::string name : DumpNames) {
            const bool announced = text.find("---> " + name) != std::string::npos;
            const bool written =
                after.count(name) != 0 && fs::last_write_time(work.path / name) != fs::file_time_type();
            EXPECT_EQ(written, announced && !fs::is_directory(work.path / name)) << name;
            if (written) known[name] = after[name];
        }
    }

    void CheckDump(const std::string& name, Section& section) {
        ASSERT_EQ(after.count(name), 1U) << name << " was not written";
        Compare(section, MaskDump(after[name]));
    }

    void CheckSettings(Section& section) {
        ASSERT_EQ(after.count(IniName), 1U) << "no settings file was left";
        EXPECT_NE(after[IniName], known[IniName]) << "the settings are as they were, no section is needed";
        Compare(section, Replaced(after[IniName], work.path.string(), "<folder>"));
        known[IniName] = after[IniName];
    }

    // What no section has told must not have happened.
    void CheckFolder() const {
        const FileBytes now = work.Files();
        for (const auto& [name, bytes] : now) {
            const auto old = known.find(name);
            if (old == known.end())
                ADD_FAILURE() << "an unexpected file was left: " << name << "\n" << bytes;
            else
                EXPECT_EQ(Difference(old->second, bytes), "") << "a file was changed: " << name;
        }
        for (const auto& [name, bytes] : known)
            EXPECT_EQ(now.count(name), 1U) << "a file is gone: " << name;
    }

    void Compare(Section& section, const std::string& text) {
        const std::string found = Marked(text, marks);
        if (rewrite)
            section.body = BodyOf(found);
        else
            EXPECT_EQ(Difference(section.body, BodyOf(found)), "");
    }

    fs::path file;
    bool rewrite;
    Workplace work;
    std::string opening; // what the transcript shows, in words
    std::vector<Section> sections;
    std::vector<Mark> marks;
    std::vector<std::string> environment;
    ProgramCall call;
    FileBytes known; // the files that were laid down, or were told to be written
    FileBytes after; // the files behind the last run
};

// Names of tests are plain words: the characters of filters and of lists of tests are no part of them.
std::string TestName(std::string name) {
    for (char& c : name) {
        if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
    }
    return name;
}

} // namespace

void RegisterTranscripts(bool rewrite) {
    std::set<fs::path> files;
    for (const auto& entry : fs::directory_iterator(Folder))
        if (entry.is_regular_file() && entry.path() != MarksFile) files.insert(entry.path());
    for (const fs::path& file : files) {
        testing::RegisterTest("transcripts", TestName(file.stem().string()).c_str(), nullptr, nullptr, file.c_str(), 1,
                              [file, rewrite]() -> testing::Test* { return new Transcript(file, rewrite); });
    }
}

} // namespace tolvane::tests
