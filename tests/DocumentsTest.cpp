// The documents in two languages: each pair is parallel, and each example of the guides, a block casl that holds a
// whole source, prints what the blocks behind it tell.

#include "TextTools.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

const fs::path Root = fs::path(TOLVANE_TESTS).parent_path();

// The blocks of results, with what makes them.
const std::map<std::string, std::string> Results = {{"output", " >found 2>other"},
                                                    {"errors", " >other 2>found"},
                                                    {"trace", " --trace >other 2>found"},
                                                    {"words", " --words >other 2>found"}};

// What both languages share: the levels of the headings, the kinds of the blocks, sources and commands, without
// comments and without the characters of constants.
std::string Outline(const std::string& document) {
    std::string outline;
    std::string block;
    for (const std::string& line : Lines(document)) {
        const bool fence = line.starts_with("```");
        if (fence) block = block.empty() ? line : "";
        const bool heading = block.empty() && line.starts_with("#");
        const bool source = block == "```casl\n" || (block.empty() && line.starts_with("    "));
        if (heading) outline += line.substr(0, line.find(' '));
        bool quoted = false;
        for (std::size_t i = 0; i < line.size() && (fence || (source && (quoted || line[i] != ';'))); ++i) {
            if (line[i] == '\'') quoted = !quoted;
            if (!quoted) outline += line[i];
        }
        if (heading || source) outline += "\n";
    }
    return outline;
}

// The guide with the results of its examples as they are now.
std::string RunGuide(const std::string& guide, const std::string& language, const fs::path& folder) {
    const std::string tool = " && LC_ALL=C.UTF-8 " TOLVANE_RUN " <input -l " + language + " example.txt";
    std::string found;
    std::string block;
    for (const std::string& line : Lines(guide)) {
        const auto result = Results.find(block);
        if (line.starts_with("```")) {
            if (result != Results.end()) {
                EXPECT_NE(std::system(("cd " + folder.string() + tool + result->second).c_str()), -1);
                found += ReadFile(folder / "found");
            }
            block = block.empty() ? line.substr(3, line.size() - 4) + (line == "```\n" ? "text" : "") : "";
            if (block == "casl") WriteFile(folder / "input", "");
            if (block == "casl" || block == "input")
                WriteFile(folder / (block == "casl" ? "example.txt" : "input"), "");
        } else if (block == "casl" || block == "input") {
            const fs::path file = folder / (block == "casl" ? "example.txt" : "input");
            WriteFile(file, ReadFile(file) + line);
        } else if (result != Results.end()) {
            continue;
        }
        found += line;
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
        const std::string expected = ReadFile(file);
        const std::string found = RunGuide(expected, language, folder);
        if (setting != nullptr && std::string(setting) == "1")
            WriteFile(file, found);
        else
            EXPECT_EQ(expected, found);
    }
    fs::remove_all(folder);
    EXPECT_EQ(Outline(ReadFile(Root / "docs/guide.en.md")), Outline(ReadFile(Root / "docs/guide.ja.md")));
}

} // namespace tolvane::tests
