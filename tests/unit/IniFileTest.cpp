// The settings form: what is read from odd files, and that a write leaves everything else as it was.

#include "platform/IniFile.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvane::platform {

namespace {

namespace fs = std::filesystem;

std::string GetIniStr(const std::string& section, const std::string& key, const std::string& def,
                      const std::string& path) {
    return IniFile(path).GetStr(section, key, def);
}

void PutIniStr(const std::string& section, const std::string& key, const std::string& value, const std::string& path) {
    IniFile ini(path);
    ini.PutStr(section, key, value);
    ini.Write();
}

class Settings : public testing::Test {
protected:
    const fs::path folder = fs::temp_directory_path() / ("tolvane-ini-" + std::to_string(getpid()));
    const std::string path = (folder / "tolvane_Win.ini").string();

    void SetUp() override { fs::create_directories(folder); }
    void TearDown() override { fs::remove_all(folder); }

    void Make(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }
    std::string Bytes() const {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }
    std::string Lang() const { return GetIniStr("Mode", "Lang", "default", path); }
    // The file after Lang has been written into it.
    std::string After(const std::string& before, const std::string& lang) const {
        Make(before);
        PutIniStr("Mode", "Lang", lang, path);
        return Bytes();
    }
};

TEST_F(Settings, ReadsAValue) {
    const std::pair<const char*, const char*> cases[] = {
        {"[Mode]\nLang=JPN\n", "JPN"},
        {"[mode]\r\n  lANG \t=  JPN \r\n", "JPN"},
        {"\xEF\xBB\xBF[Mode]\nLang=JPN", "JPN"},
        {"[Mode]\nLang=\"J P\"\n", "J P"},
        {"[Mode]\nLang='J \"P\"'\n", "J \"P\""},
        {"[Mode]\nLang=\"a\" \"c\"\n", "\"a\" \"c\""},
        {"[Mode]\nLang=\n", ""},
        {"[Mode]\nLang=a=b;c\n", "a=b;c"},
        {"[Mode]\nLang=1\nLang=2\n", "1"},
        {"[ Mode ] tail\nLang=JPN\n", "JPN"},
        {"[Mode\nLang=JPN\n", "JPN"},
        {"[Mode]\n;Lang=JPN\nLang\n", "default"},
        {"Lang=JPN\n[Other]\nLang=JPN\n[Modes]\nLang=JPN\n", "default"},
        {"[Mode]\nX=1\n[Mode]\nLang=JPN\n", "default"},
    };
    for (const auto& [bytes, value] : cases) {
        Make(bytes);
        EXPECT_EQ(Lang(), value) << bytes;
    }
    Make("[Mode]\nLang=" + std::string(300, 'x'));
    EXPECT_EQ(Lang(), std::string(255, 'x'));
    EXPECT_EQ(GetIniStr("Mode", "Lang", "default", folder.string()), "default");
}

TEST_F(Settings, ReadsANumber) {
    const std::pair<const char*, int> cases[] = {
        {"-3x", -3},
        {"+2", 2},
        {"\"12 34\"", 12},
        {"", 0},
        {"--1", 0},
        {"99999999999999999999", 2147483647},
        {"-99999999999999999999", -2147483647},
    };
    for (const auto& [value, number] : cases) {
        Make(std::string("[Mode]\nLang=") + value + "\n");
        EXPECT_EQ(IniFile(path).GetInt("Mode", "Lang", 9), number) << value;
    }
    EXPECT_EQ(IniFile(path).GetInt("Mode", "Other", 9), 9);
}

TEST_F(Settings, ANewFileHoldsSectionsInOrderOfTheFirstWrite) {
    IniFile ini(path);
    ini.PutStr("Mode", "Lang", "ENU");
    ini.PutStr("Assembler", "File", "a b");
    ini.PutInt("mode", "Index", -1);
    ini.Write();
    EXPECT_EQ(Bytes(), "[Mode]\nLang=ENU\nIndex=-1\n[Assembler]\nFile=a b\n");
}

TEST_F(Settings, AWriteLeavesEverythingElse) {
    EXPECT_EQ(After("; head\n\n[Mode]\n lang =  JPN \nX=\x93\xFA\n\n\n[E]\nLang=1", "ENU"),
              "; head\n\n[Mode]\nLang=ENU\nX=\x93\xFA\n\n\n[E]\nLang=1");
    EXPECT_EQ(After("[Mode]\r\nX=1\r\n\r\n[E]\r\n", "ENU"), "[Mode]\r\nX=1\r\nLang=ENU\r\n\r\n[E]\r\n");
    EXPECT_EQ(After("[E]\r\nX=1", "ENU"), "[E]\r\nX=1\r\n[Mode]\r\nLang=ENU\r\n");
    EXPECT_EQ(After("[Mode]\nLang=", "ENU"), "[Mode]\nLang=ENU");
    EXPECT_EQ(After("[Mode]", "ENU"), "[Mode]\nLang=ENU\n");
    EXPECT_EQ(After("\xEF\xBB\xBF", "ENU"), "\xEF\xBB\xBF[Mode]\nLang=ENU\n");
    EXPECT_EQ(After("\xEF\xBB\xBF[Mode]\nLang=1", "ENU"), "\xEF\xBB\xBF[Mode]\nLang=ENU");
    // The key becomes a plain line.
    EXPECT_EQ(After("[Mode]\n LANG =\t\"x y\" \r\n lang = 2\n", "x y"), "[Mode]\nLang=x y\r\n lang = 2\n");
    EXPECT_EQ(After("[Mode]\nLang=1\n", "a\nb=c"), "[Mode]\nLang=a\n");
}

TEST_F(Settings, KeepsLinksRightsAndUnreadableThings) {
    const fs::path target = folder / "target.ini";
    std::ofstream(target) << "[Mode]\nLang=JPN\n";
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(target, path);
    std::ifstream reader(target);
    PutIniStr("Mode", "Lang", "ENU", path);
    std::string line;
    EXPECT_TRUE(std::getline(reader, line) && std::getline(reader, line));
    EXPECT_EQ(line, "Lang=JPN") << "who reads meanwhile has the old file, whole";
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(Lang(), "ENU");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write);

    fs::remove(target); // a link to nothing makes the file that it names
    PutIniStr("Mode", "Lang", "JPN", path);
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(Lang(), "JPN");

    const fs::path second = folder / "second.ini";
    fs::create_hard_link(target, second);
    PutIniStr("Mode", "Lang", "E", path);
    EXPECT_EQ(GetIniStr("Mode", "Lang", "", second.string()), "E");

    PutIniStr("Mode", "Lang", "E", folder.string());
    PutIniStr("Mode", "Lang", "E", (folder / "no" / "such.ini").string());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 3); // no file left over
}

TEST_F(Settings, EveryValueSurvivesARestart) {
    std::string wide;
    while (wide.size() < 255 * 3)
        wide += "日";
    const std::string separator = "a\\\\" + wide.substr(6);
    for (const char* value :
         {wide.c_str(), separator.c_str(), "\"my file\"", "\"it's\"", "'a \"b\"'", "\"\"", "'", " x ", "n\rl"}) {
        PutIniStr("Mode", "Lang", value, path);
        EXPECT_EQ(Lang(), value) << Bytes();
    }
}

// A program is killed at some moment of writing, again and again.
TEST_F(Settings, TheFileIsOldOrNewAndWhole) {
    const auto save = [this](const std::string& value) {
        IniFile ini(path);
        for (const char* key : {"A", "B", "C"})
            ini.PutStr("Mode", key, value);
        ini.Write();
        return Bytes();
    };
    const std::string newer = save(std::string(200, 'x'));
    const std::string older = save("short");
    for (useconds_t moment = 0; moment < 3000; moment += 200) {
        const pid_t child = fork();
        while (child == 0) {
            save(std::string(200, 'x'));
            save("short");
        }
        usleep(moment);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        EXPECT_TRUE(Bytes() == older || Bytes() == newer) << Bytes();
    }
    std::ofstream(path + ".unfinished.tmp") << "half";
    IniFile{path};
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1) << "left over";
}

} // namespace

} // namespace tolvane::platform
