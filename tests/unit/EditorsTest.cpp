// The syntax files in editors/: their patterns are sound, and they know every opcode. ParseJson.cmake reads the JSON.

#include "TextTools.h"
#include "records/Opcode.h"

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
    for (const auto& [file, pattern] : {std::pair{"vscode/syntaxes/casl2.tmLanguage.json", R"re("match": "(.*)")re"},
                                        {"nano/casl2.nanorc", R"re( "(.*?)"(?=[ \n]))re"},
                                        {"vim/syntax/casl2.vim", R"re(\nsyn keyword \w+( .*))re"}}) {
        std::string known; // what a pattern finds of each opcode in a line
        for (std::string part : AllIn(file, pattern)) {
            if (std::string(file).starts_with("vim")) known += part + " ";
            part = Replaced(Replaced(Replaced(part, "\\\\", "\\"), "\\<", "\\b"), "\\>", "\\b");
            std::smatch found;
            for (const Opcode& op : opcodes::Table)
                if (const std::string line = " " + std::string(op.word) + " ";
                    std::regex_search(line, found, std::regex(part)))
                    known += " " + found.str() + " ";
        }
        for (const Opcode& op : opcodes::Table)
            EXPECT_NE(known.find(" " + std::string(op.word) + " "), std::string::npos) << file << ": " << op.word;
    }
}

TEST(Editors, VimLoadsItsFiles) {
    if (std::system("vim --version >/dev/null 2>&1") != 0) GTEST_SKIP() << "no Vim here";
    const std::string path = "vim -es -u NONE -i NONE --cmd 'set nocp rtp^=" + (Editors / "vim").string() + "' ";
    const std::string load = "-c 'syn enable | filetype plugin on | compiler tolvane | set ft=casl2' ";
    const std::string judge = "-c 'if v:errmsg != \"\" || !hlexists(\"casl2Macro\") || !exists(\"#casl2#BufWritePre#<buffer>\") | cq | endif' -c qa";
    EXPECT_EQ(std::system((path + load + judge).c_str()), 0);
}

} // namespace tolvane::tests
