// The documents in two languages: each pair is parallel, and each example of the guides, a block casl that holds a
// whole source, prints what the blocks behind it tell.

#include "ProgramRun.h"
#include "TextTools.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

const fs::path Root = fs::path(TOLVANE_TESTS).parent_path();

// The blocks of results, with what makes them.
const std::map<std::string, std::string> Results = {{"output", "tolvane-run <input >found 2>other"},
                                                    {"errors", "tolvane-run <input >other 2>found"},
                                                    {"trace", "tolvane-run --trace <input >other 2>found"},
                                                    {"words", "tolvane-run --words <input >other 2>found"},
                                                    {"debug", "tolvane-debug <typed >found 2>other"}};
const std::string Prompt = "debug> "; // behind it stands what is typed

// What both share: levels of headings, kinds of blocks, commands, sources without comments and characters.
std::string Outline(const fs::path& document) {
    std::string outline;
    std::string block;
    for (const std::string& line : Lines(ReadFile(Root / document))) {
        if (line.starts_with("```")) block = block.empty() ? line : "";
        if (block.empty() && line.starts_with("#")) outline += line.substr(0, line.find(' ')) + "\n";
        if (line.starts_with("```") || (block.empty() && line.starts_with("    "))) outline += line;
        if (block != "```casl\n") continue;
        bool quoted = false;
        for (const char c : line) {
            if (c == ';' && !quoted) break;
            if (c == '\'') quoted = !quoted;
            if (!quoted && c != ' ') outline += c;
        }
    }
    return outline;
}

std::string Typed(const std::string& session) {
    std::string typed;
    for (const std::string& line : Lines(session))
        if (line.starts_with(Prompt)) typed += line.substr(Prompt.size());
    return typed;
}

// The long options and, of a list of exit statuses, the numbers in a text.
std::set<std::string> WordsIn(const std::string& text, const std::string& pattern) {
    const std::regex word(pattern);
    std::set<std::string> words;
    for (std::sregex_iterator found(text.begin(), text.end(), word), end; found != end; ++found)
        words.insert(found->str(1));
    return words;
}

// The guide with the results of its examples as they are now.
std::string RunGuide(const std::string& guide, const std::string& language, const fs::path& folder) {
    const std::string tools = "cd " + folder.string() + " && LC_ALL=C.UTF-8 " + ProgramFolder().string();
    std::string found;
    std::string block;
    std::map<std::string, std::string> example; // its blocks
    for (const std::string& line : Lines(guide)) {
        const auto result = Results.find(block);
        if (line.starts_with("```")) {
            if (result != Results.end()) {
                WriteFile(folder / "example.txt", example["casl"]);
                WriteFile(folder / "input", example["input"]);
                WriteFile(folder / "typed", Typed(example[block]));
                const std::string command = tools + "/" + result->second + " -l " + language + " example.txt";
                EXPECT_NE(std::system(command.c_str()), -1);
                found += ReadFile(folder / "found");
            }
            block = block.empty() ? line.substr(3, line.size() - 4) + (line == "```\n" ? "text" : "") : "";
            if (block == "casl") {
                EXPECT_NE(example.size(), 1U) << "without a result: " << example["casl"];
                example.clear();
            }
        } else if (!block.empty()) {
            example[block] += line;
        }
        if (result == Results.end() || line.starts_with("```")) found += line;
    }
    return found;
}

} // namespace

TEST(Documents, AreParallelAndTheirExamplesTrue) {
    const char* setting = std::getenv("TOLVANE_REWRITE");
    std::string folder = testing::TempDir() + "tolvane-guide-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    for (const std::string language : {"en", "ja"}) {
        const fs::path file = Root / ("docs/guide." + language + ".md");
        const std::string found = RunGuide(ReadFile(file), language, folder);
        if (setting != nullptr && std::string(setting) == "1") WriteFile(file, found);
        EXPECT_EQ(ReadFile(file), found);
    }
    fs::remove_all(folder);
    EXPECT_EQ(Outline("docs/guide.en.md"), Outline("docs/guide.ja.md"));
    EXPECT_EQ(Outline("README.md"), Outline("README.ja.md"));
}

// Help, manual pages, completion and document of a program in both languages.
TEST(Documents, NameTheSameOptionsAndStatuses) {
    for (const std::string program : {"tolvane-run", "tolvane-debug"}) {
        if (!fs::exists(Root / "completions" / program)) continue;
        const std::string path = (ProgramFolder() / program).string();
        const std::string option = R"(--([a-z]{2,}))";
        std::set<std::string> options;
        std::set<std::string> statuses;
        for (const std::string language : {"en", "ja"}) {
            const std::string told = testing::TempDir() + "tolvane-help";
            ASSERT_EQ(std::system((path + " -l " + language + " --help >" + told).c_str()), 0);
            const std::string help = ReadFile(told);
            EXPECT_LE(Lines(help).size(), 23u) << "a screen, and its prompt";
            const std::string list =
                help.substr(std::min(help.find(language == "en" ? "Exit status" : "終了ステータス"), help.size()));
            if (options.empty()) options = WordsIn(help, option);
            if (statuses.empty()) statuses = WordsIn(list, R"((?:[:,]\s|、|^)(\d+) )");
            const std::string man = ReadFile(Root / "man" / (language == "ja" ? "ja" : ".") / (program + ".1.in"));
            EXPECT_EQ(WordsIn(help, option), options) << language;
            EXPECT_EQ(WordsIn(man, R"(\\-\\-([a-z]{2,}))"), options) << language;
            EXPECT_EQ(WordsIn(man, R"(\n\.B (\d+)\n)"), statuses) << language;
        }
        EXPECT_EQ(WordsIn(ReadFile(Root / "completions" / program), option), options);
        const std::string document = ReadFile(Root / "docs" / (program + ".md"));
        if (document.empty()) continue; // its manual page tells all
        EXPECT_EQ(WordsIn(document.substr(0, document.find("\n##")), option), options);
        EXPECT_EQ(WordsIn(document, R"(\n\| (\d+) \|)"), statuses);
    }
}

} // namespace tolvane::tests
