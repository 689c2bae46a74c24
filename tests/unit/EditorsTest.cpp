// The syntax files in editors/: their patterns are sound, and they know every opcode. ParseJson.cmake reads the JSON.

#include "TextTools.h"
#include "records/Opcode.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <regex.h>
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

std::string Blanked(const Opcode& op) {
    return " " + std::string(op.word) + " ";
}

void ExpectEveryOpcode(const std::function<bool(const Opcode&)>& isKnown) {
    for (const Opcode& op : opcodes::Table)
        EXPECT_TRUE(isKnown(op)) << op.word;
}

} // namespace

TEST(Editors, VisualStudioCodeKnowsEveryOpcode) {
    for (const std::string& file : AllIn("vscode/package.json", R"re("\./([^"]*)")re"))
        EXPECT_TRUE(fs::exists(Editors / "vscode" / file)) << file;
    std::vector<std::regex> patterns;
    for (const std::string& match : AllIn("vscode/syntaxes/casl2.tmLanguage.json", R"re("match": "(.*)")re"))
        patterns.emplace_back(Replaced(match, "\\\\", "\\"));
    ExpectEveryOpcode([&patterns](const Opcode& op) {
        const std::string line = Blanked(op);
        return std::any_of(patterns.begin(), patterns.end(), [&](const std::regex& pattern) {
            std::smatch found;
            return std::regex_search(line, found, pattern) && found.str() == op.word;
        });
    });
}

TEST(Editors, NanoKnowsEveryOpcode) {
    ExpectEveryOpcode([](const Opcode& op) {
        bool found = false;
        for (const std::string& pattern : AllIn("nano/casl2.nanorc", R"re( "(.*?)"(?=[ \n]))re")) {
            regex_t compiled;
            EXPECT_EQ(regcomp(&compiled, pattern.c_str(), REG_EXTENDED), 0) << pattern;
            found = found || regexec(&compiled, Blanked(op).c_str(), 0, nullptr, 0) == 0;
            regfree(&compiled);
        }
        return found;
    });
}

// Vim itself is asked where it is installed.
TEST(Editors, VimKnowsEveryOpcode) {
    std::string keywords;
    for (const std::string& words : AllIn("vim/syntax/casl2.vim", R"re(\nsyn keyword \w+( .*))re"))
        keywords += words + " ";
    ExpectEveryOpcode([&keywords](const Opcode& op) { return keywords.find(Blanked(op)) != std::string::npos; });
    if (std::system("vim --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no Vim here";
    const std::string path = "vim -es -u NONE -i NONE --cmd 'set nocp rtp^=" + (Editors / "vim").string() + "' ";
    const std::string load = "-c 'syn enable | compiler tolvane | set ft=casl2' ";
    const std::string judge = "-c 'if v:errmsg != \"\" || !hlexists(\"casl2Macro\") | cq | endif' -c qa";
    EXPECT_EQ(std::system((path + load + judge).c_str()), 0);
}

} // namespace tolvane::tests
