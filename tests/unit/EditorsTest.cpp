// The syntax files in editors/: their patterns are sound, and they know every opcode. ParseJson.cmake reads the JSON.

#include "TextTools.h"
#include "records/Opcode.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

const fs::path Editors = fs::path(TOLVANE_TESTS).parent_path() / "editors";

// What the brackets of a pattern catch, wherever it is found in a file.
std::vector<std::string> AllIn(const char* file, const char* pattern) {
    const std::string text = ReadFile(Editors / file);
    const std::regex regex(pattern);
    std::vector<std::string> all;
    for (std::sregex_iterator found(text.begin(), text.end(), regex), end; found != end; ++found)
        all.push_back((*found)[1]);
    EXPECT_FALSE(all.empty()) << file;
    return all;
}

} // namespace

TEST(Editors, EveryOpcodeIsKnown) {
    for (const std::string& file : AllIn("vscode/package.json", R"re("\./([^"]*)")re"))
        EXPECT_TRUE(fs::exists(Editors / "vscode" / file)) << file;
    std::vector<std::regex> patterns; // those of Visual Studio Code, then those of nano
    for (const std::string& match : AllIn("vscode/syntaxes/casl2.tmLanguage.json", R"re("match": "(.*)")re"))
        patterns.emplace_back(Replaced(match, "\\\\", "\\"));
    const auto nanos = static_cast<std::ptrdiff_t>(patterns.size());
    for (const std::string& pattern : AllIn("nano/casl2.nanorc", R"re( "(.*?)"(?=[ \n]))re"))
        patterns.emplace_back(pattern, std::regex::extended);
    std::string keywords = " ";
    for (const std::string& words : AllIn("vim/syntax/casl2.vim", R"re(\nsyn keyword \w+( .*))re"))
        keywords += words + " ";
    for (const Opcode& op : opcodes::Table) {
        const std::string line = " " + std::string(op.word) + " ";
        const auto isFound = [&line](const std::regex& pattern) { return std::regex_search(line, pattern); };
        const auto isWord = [&](const std::regex& pattern) {
            std::smatch found;
            return std::regex_search(line, found, pattern) && found.str() == op.word;
        };
        EXPECT_TRUE(std::any_of(patterns.begin(), patterns.begin() + nanos, isWord)) << line;
        EXPECT_TRUE(std::any_of(patterns.begin() + nanos, patterns.end(), isFound)) << line;
        EXPECT_NE(keywords.find(line), std::string::npos) << line;
    }
}

TEST(Editors, VimLoadsItsFiles) {
    if (std::system("vim --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no Vim here";
    const std::string path = "vim -es -u NONE -i NONE --cmd 'set nocp rtp^=" + (Editors / "vim").string() + "' ";
    const std::string load = "-c 'syn enable | compiler tolvane | set ft=casl2' ";
    const std::string judge = "-c 'if v:errmsg != \"\" || !hlexists(\"casl2Macro\") | cq | endif' -c qa";
    EXPECT_EQ(std::system((path + load + judge).c_str()), 0);
}

} // namespace tolvane::tests
