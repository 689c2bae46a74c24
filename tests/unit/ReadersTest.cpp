// Paths as text and as the system takes them, the detection of the character code, and the line records of every
// reader.

#include "input/Readers.h"

#include "input/TMoziCode.h"
#include "platform/Files.h"
#include "records/Records.h"
#include "text/Convert.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tolvane {

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class Readers : public testing::Test {
protected:
    const fs::path folder = fs::temp_directory_path() / ("tolvane-readers-" + std::to_string(getpid()));
    const std::string path = (folder / "source.txt").string();

    void SetUp() override { fs::create_directories(folder); }
    void TearDown() override {
        fs::remove_all(folder);
        Use("NWW");
        modeFlags->SimpleTitleIndex = 0;
        b->Reset();
    }

    static void Use(const char* pipeline) { modeFlags->Pipe = FindPipeline(pipeline); }
    void Make(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

    // The lines of a file with these bytes as UTF-8, each in brackets.
    std::string Lines(const std::string& bytes) const {
        Make(bytes);
        EXPECT_EQ(ReadSource(path), 0);
        std::string lines;
        if (modeFlags->Pipe->text == TextKind::Wide)
            for (const SrcDataW& line : b->vecSrcW)
                lines += "[" + Utf8(line.strSrc) + "]";
        else
            for (const SrcDataA& line : b->vecSrcA)
                lines += "[" + Utf8From932(line.strSrc) + "]";
        return lines;
    }
};

// Units as the bytes of a UTF-16 file.
std::string Utf16(const std::u16string& units, bool bigEndian) {
    std::string bytes;
    for (char16_t unit : units) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

TEST_F(Readers, EditFilePath) {
    const std::pair<const char*, const char*> cases[] = {
        {"src/a.txt", "src/a.txt"},
        {" \t　src/a.txt 　", "src/a.txt"},
        {"my file", "\"my file\""},
        {"日　本", "\"日　本\""},
        {"\"my file\"", "\"my file\""},
        {"\"", "\""},
        {"a\\b", "a\\\\b"},
        {"a\\\\b\\", "a\\\\b\\\\"},
        {"a\\\\\\b", "a\\\\\\\\b"},
        {" 　", ""},
    };
    for (const auto& [typed, edited] : cases) {
        std::string text = typed;
        EXPECT_EQ(EditFilePath(text), 0);
        EXPECT_EQ(text, edited);
        EditFilePath(text);
        EXPECT_EQ(text, edited) << "a second time";
    }
    std::string empty;
    EXPECT_EQ(EditFilePath(empty), -1);
}

TEST_F(Readers, PathsOfTheSystem) {
    EXPECT_EQ(platform::SystemPath("\"C\\\\my dir\\a.txt\""), "C/my dir/a.txt");
    EXPECT_EQ(platform::SystemPath("a\"b"), "a\"b");
    const std::string odd = (folder / "日 本\xFF.txt").string(); // the name of a file is bytes
    std::ofstream(odd) << "x";
    std::string edited = odd;
    EditFilePath(edited);
    EXPECT_TRUE(platform::IsFileThere(edited));
    EXPECT_FALSE(platform::IsFileThere(folder.string()));
    EXPECT_FALSE(platform::IsFileThere(""));
    EXPECT_FALSE(platform::IsFileThere("/dev/zero"));
    EXPECT_FALSE(platform::IsFileThere(odd + '\0'));
    EXPECT_TRUE(platform::WriteFile(folder.string(), "x").has_value());
}

TEST_F(Readers, TheCodeOfAFile) {
    struct Case {
        std::string bytes;
        int codePage;
        const char* name;
    };
    const Case cases[] = {
        {"", 932, "sjis"},
        {"LD GR1,A", 932, "sjis"},
        {"\x93\xFA\x96\x7B", 932, "sjis"},
        {"A\x93", 932, "sjis"},       // a lead byte at the end
        {"\x7F", 65001, "utf-8"},     // a stray byte
        {"\xB1", 65001, "utf-8"},     // half-width kana counts as stray
        {"\x98\x41", 65001, "utf-8"}, // so do the higher lead bytes
        {"日本語", 65001, "utf-8"},
        {"\xEF\xBB\xBF", 65001, "utf-8 with bom(EF BB BF)"},
        {"\xFF\xFE", 1200, "utf-16 le(FF FE)"},
        {"\xFE\xFF\0A"s, 1201, "utf-16 be(FE FF)"},
    };
    for (const Case& c : cases) {
        Make(c.bytes);
        moziCode->DetMoziCode(path, false);
        EXPECT_EQ(moziCode->CodePage, c.codePage) << c.bytes;
        EXPECT_EQ(moziCode->CodeName, c.name);
    }
    Make("日本語");
    moziCode->DetMoziCode(path, true); // the bytes are not counted: the verdict of the last file stays
    EXPECT_EQ(moziCode->CodePage, 1201);
    EXPECT_EQ(moziCode->CodeName, "utf-8 or sjis");
    EXPECT_EQ(moziCode->Det_sjisMzC(path), -1);
    EXPECT_EQ(moziCode->Det_sjisMzC(folder.string()), -1);
}

TEST_F(Readers, LinesOfEveryPipeline) {
    for (const char* pipeline : {"NWW", "WP", "NaW", "NA", "AP"}) {
        SCOPED_TRACE(pipeline);
        Use(pipeline);
        EXPECT_EQ(Lines(""), "");
        EXPECT_EQ(Lines("A\nB"), "[A][B]");
        EXPECT_EQ(Lines("A\r\n\r\nB\rC\r\r\n"), "[A][][B\rC\r]");
        EXPECT_EQ(Lines("A\r"), "[A\r]");
        EXPECT_EQ(Lines("\x93\xFA\x81\n"), "[日・]");
        EXPECT_EQ(Lines("日ｱ①\n本"), "[日ｱ①][本]");
        EXPECT_EQ(Lines("\xEF\xBB\xBF日\n本\n"), "[日][本]");
        EXPECT_EQ(Lines("\xEF\xBB\xBF\nA"), "[][A]");
        EXPECT_EQ(Lines("\xEF\xBB\xBF"), "[]");
        EXPECT_EQ(Lines(Utf16(u"\uFEFF日\r\nB", true)), "[日][B]");
    }
}

TEST_F(Readers, Utf16) {
    for (bool bigEndian : {false, true}) {
        EXPECT_EQ(Lines(Utf16(u"\uFEFFA\nB\rC\r\nD\r\n", bigEndian)), "[A\nB\rC][D][]");
        EXPECT_EQ(Lines(Utf16(u"\uFEFF", bigEndian)), "[]");
        EXPECT_EQ(Lines(Utf16(u"\uFEFFA\r\nB\uFFFFC\r\nD", bigEndian)), "[A][B]");
        EXPECT_EQ(Lines(Utf16(u"\uFEFF\U00020B9F\xD800", bigEndian)), "[𠮟\uFFFD]");
    }
    EXPECT_EQ(Lines(Utf16(u"\uFEFFA", false) + "B"), "[AB]"); // an odd last byte
}

TEST_F(Readers, WhatIsNoText) {
    const std::string zeros = "A\0B\n\0\n日本"s;
    EXPECT_EQ(Lines(zeros), "[A\0B][\0][日本]"s);
    EXPECT_EQ(Lines("A\0B\nC"s), "[A][C]"); // a line of Shift_JIS ends at its first zero
    Use("NA");
    EXPECT_EQ(Lines("A\0B\nC"s), "[A\0B][C]"s);
    for (const char* pipeline : {"NWW", "NaW", "NA"}) {
        Use(pipeline);
        for (const std::string& bad : {""s, folder.string(), path + "x", "/dev/zero"s})
            EXPECT_EQ(ReadSource(bad), 1);
    }
    EXPECT_EQ(OpenFileUTF8toVecW20(""), -3);
    EXPECT_EQ(OpenFileUTF16toVecW20(""), -4);
    EXPECT_EQ(OpenFileNarrow(""), -1);
    EXPECT_EQ(ErrorSum(), 0);
}

} // namespace

} // namespace tolvane
