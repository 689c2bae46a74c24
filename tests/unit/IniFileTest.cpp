// The settings form: what is read from odd files, and that a write leaves everything else as it was.

#include "platform/IniFile.h"

#include "InFolder.h"

#include <fstream>

namespace tolvane::tests {

namespace {

using namespace std::string_literals;
using platform::IniFile;

constexpr const char* File = "tolvane_Win.ini";

class Settings : public InFolder {
protected:
    static std::string Lang(const std::string& file = File) { return IniFile(file).GetStr("Mode", "Lang", "default"); }
    static void PutLang(const std::string& value, const std::string& file = File) {
        IniFile ini(file);
        ini.PutStr("Mode", "Lang", value);
        ini.Write();
    }
};

TEST_F(Settings, ReadsAValue) {
    const std::pair<std::string, std::string> cases[] = {
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
        {"[Mode]\nLang=" + std::string(300, 'x'), std::string(255, 'x')},
    };
    for (const auto& [bytes, value] : cases) {
        WriteFile(File, bytes);
        EXPECT_EQ(Lang(), value) << bytes;
    }
    EXPECT_EQ(Lang("."), "default");
}

TEST_F(Settings, ReadsANumber) {
    for (const auto& [value, number] : {std::pair{"-3x", -3},
                                        {"+2", 2},
                                        {"\"12 34\"", 12},
                                        {"", 0},
                                        {"--1", 0},
                                        {"99999999999999999999", 2147483647},
                                        {"-99999999999999999999", -2147483647}}) {
        WriteFile(File, std::string("[Mode]\nLang=") + value + "\n");
        EXPECT_EQ(IniFile(File).GetInt("Mode", "Lang", 9), number) << value;
    }
}

TEST_F(Settings, AWriteLeavesEverythingElse) {
    const std::pair<const char*, const char*> cases[] = {
        {"; head\n\n[Mode]\n lang =  JPN \nX=\x93\xFA\n\n\n[E]\nLang=1",
         "; head\n\n[Mode]\nLang=x y\nX=\x93\xFA\n\n\n[E]\nLang=1"},
        {"[Mode]\r\nX=1\r\n\r\n[E]\r\n", "[Mode]\r\nX=1\r\nLang=x y\r\n\r\n[E]\r\n"},
        {"[E]\r\nX=1", "[E]\r\nX=1\r\n[Mode]\r\nLang=x y\r\n"},
        {"[Mode]\nLang=", "[Mode]\nLang=x y"},
        {"[Mode]", "[Mode]\nLang=x y\n"},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBF[Mode]\nLang=x y\n"},
        {"\xEF\xBB\xBF[Mode]\nLang=1", "\xEF\xBB\xBF[Mode]\nLang=x y"},
        {"[Mode]\n LANG =\t\"x y\" \r\n lang = 2\n", "[Mode]\nLang=x y\r\n lang = 2\n"},
    };
    for (const auto& [old, after] : cases) {
        WriteFile(File, old);
        PutLang("x y\nb=c"); // a value is one line
        EXPECT_EQ(ReadFile(File), after);
    }
}

TEST_F(Settings, KeepsLinksRightsAndUnreadableThings) {
    constexpr auto Rights = fs::perms::owner_read | fs::perms::owner_write;
    WriteFile("target", "[Mode]\nLang=JPN\n");
    fs::permissions("target", Rights);
    fs::create_symlink("target", File);
    std::ifstream reader("target");
    PutLang("ENU");
    std::string line;
    EXPECT_TRUE(std::getline(reader, line) && std::getline(reader, line));
    EXPECT_EQ(line, "Lang=JPN") << "who reads meanwhile has the old file, whole";
    EXPECT_EQ(Lang("target"), "ENU");
    EXPECT_EQ(fs::status("target").permissions(), Rights);

    fs::remove("target"); // a link to nothing makes the file that it names
    PutLang("JPN");
    EXPECT_EQ(Lang("target"), "JPN");
    fs::create_hard_link("target", "second");
    PutLang("E");
    EXPECT_EQ(Lang("second"), "E");
    EXPECT_TRUE(fs::is_symlink(File));

    PutLang("E", ".");
    PutLang("E", "no/such.ini");
    IniFile unread(File + "/below.ini"s); // below a file there is nothing to be read or written
    unread.PutStr("Mode", "Lang", "E");
    EXPECT_FALSE(unread.Write().has_value());
    WriteFile(".tolvane-1-2.tmp", "of a program that was killed");
    IniFile{"tolvane.ini"};
    EXPECT_EQ(Things(), 3) << "left over";
}

TEST_F(Settings, EveryValueSurvivesARestart) {
    std::string wide;
    while (wide.size() < 255 * 3)
        wide += "日";
    std::vector<std::string> values = {wide, "a\\\\" + wide.substr(6)};
    for (const char* value : {"\"my file\"", "\"it's\"", "'a \"b\"'", "\"\"", "'", " x ", "n\rl"})
        values.emplace_back(value);
    for (const std::string& value : values) {
        PutLang(value);
        EXPECT_EQ(Lang(), value) << ReadFile(File);
    }
}

} // namespace

} // namespace tolvane::tests
