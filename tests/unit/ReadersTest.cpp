// Paths as they are typed and as the system takes them, the detection of the character code, and the lines that every
// reader makes of a file.

#include "input/Readers.h"

#include "InFolder.h"
#include "input/TMoziCode.h"
#include "messages/TMsgStore.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "records/Records.h"
#include "text/Convert.h"

namespace tolvane::tests {

namespace {

using namespace std::string_literals;

class Readers : public InFolder {
protected:
    std::string console;

    Readers() {
        Clear();
        console::WriteTo(&console);
    }
    ~Readers() override {
        console::WriteTo(nullptr);
        Clear();
    }
    static void Clear() {
        modeFlags->Pipe = &DefaultPipeline();
        *moziCode = TMoziCode();
        *po = TPO();
        b->Reset();
        store->ClearMsgStore();
    }
    // The lines of a file with these bytes as UTF-8, each in brackets.
    static std::string Lines(const std::string& bytes) {
        WriteFile("source", bytes);
        if (ReadSource("source") != 0) return "not read";
        std::string lines;
        for (const SrcDataW& line : b->vecSrcW)
            lines += "[" + Utf8(line.strSrc) + "]";
        for (const SrcDataA& line : b->vecSrcA)
            lines += "[" + Utf8From932(line.strSrc) + "]";
        b->Reset();
        return lines;
    }
};

// Units as the bytes of a UTF-16 file, with the mark in front.
std::string Utf16(const std::u16string& units, bool bigEndian = false) {
    std::string bytes;
    for (char16_t unit : u'\uFEFF' + units) {
        const std::string pair = {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
        bytes += bigEndian ? pair : std::string(pair.rbegin(), pair.rend());
    }
    return bytes;
}

TEST_F(Readers, Paths) {
    const std::pair<const char*, const char*> cases[] = {
        {" \t　src/a.txt 　", "src/a.txt"},
        {"日　本", "\"日　本\""},
        {"\"my file\"", "\"my file\""},
        {"\"", "\""},
        {"a\\b", "a\\\\b"},
        {"a\\\\b\\", "a\\\\b\\\\"},
        {" 　", ""},
        {"a\\\\\\b", "a\\\\\\\\b"},
    };
    for (const auto& [typed, edited] : cases) {
        std::string text = typed;
        EditFilePath(text);
        EXPECT_EQ(text, edited);
        EditFilePath(text);
        EXPECT_EQ(text, edited) << "a second time";
    }
    // The system's side of it
    EXPECT_EQ(platform::SystemPath("\"C\\\\my dir\\a.txt\""), "C/my dir/a.txt");
    EXPECT_EQ(platform::SystemPath("a\"b"), "a\"b");
    const std::string machine = platform::NamesMachines() ? "/" : "";
    EXPECT_EQ(platform::SystemPath("\\\\server\\share\\a.txt"), machine + "/server/share/a.txt");
    EXPECT_EQ(platform::SystemPath("\\\\dir\\\\a.txt"), "/dir/a.txt");
    WriteFile("source", "");
    for (const std::string& none : {"."s, ""s, "/dev/zero"s, "source\0"s})
        EXPECT_FALSE(platform::IsFileThere(none));
}

// The transcripts have the marks.
TEST_F(Readers, TheCodeOfAFileWithoutMark) {
    for (const auto& [bytes, code] : {std::pair{"LD GR1,A~", 932},
                                      {"\x93\xFA\x97\x7B\xFC", 932}, // with a lead byte at the end
                                      {"\x7F", 65001},               // a stray byte,
                                      {"\xB1", 65001},               // as half-width kana
                                      {"\x98\x41", 65001}}) {        // and the higher lead bytes are
        const std::string text = bytes;
        moziCode->DetMoziCode("source", &text, false);
        EXPECT_EQ(moziCode->CodePage, code) << bytes;
    }
}

TEST_F(Readers, LinesOfEveryPipeline) {
    for (const char* pipeline : {"NWW", "WP", "NaW", "NA", "AP", "NH"}) {
        SCOPED_TRACE(pipeline);
        modeFlags->Pipe = FindPipeline(pipeline);
        EXPECT_EQ(Lines(""), "");
        EXPECT_EQ(Lines("A\r\n\r\nB\rC\r\r\nD\r"), "[A][][B\rC\r][D\r]");
        EXPECT_EQ(Lines("\x93\xFA\x85\x40\n\x81"), "[日・][・]");
        EXPECT_EQ(Lines("日ｱ①\n本\n"), "[日ｱ①][本]");
        EXPECT_EQ(Lines("\xEF\xBB\xBF\n日"), "[][日]");
        EXPECT_EQ(Lines("A\0B\n日本"s), "[A\0B][日本]"s);
        // A line of wide Shift_JIS ends at its first zero.
        EXPECT_EQ(Lines("A\0\x93\xFA\nC"s), modeFlags->Pipe->reader == Reader::Wide ? "[A][C]"s : "[A\0日][C]"s);
        for (const std::string& none : {""s, "."s, "none"s, "/dev/zero"s})
            EXPECT_EQ(ReadSource(none), 1);
    }
    EXPECT_EQ(po->ErrorKazu, 0);
}

TEST_F(Readers, Utf16) {
    for (const char* pipeline : {"NWW", "NaW", "AP"}) {
        SCOPED_TRACE(pipeline);
        modeFlags->Pipe = FindPipeline(pipeline);
        for (bool bigEndian : {false, true}) {
            EXPECT_EQ(Lines(Utf16(u"日\nB\rC\r\n\r\n", bigEndian)), "[日\nB\rC][][]");
            EXPECT_EQ(Lines(Utf16(u"A\r\nB\uFFFFC\r\nD", bigEndian)), "[A][B]");
        }
        EXPECT_EQ(Lines(Utf16(u"")), "[]");
        EXPECT_EQ(Lines(Utf16(u"A") + "B"), "[AB]"); // an odd last byte
        EXPECT_EQ(Lines(Utf16(u"𠮟\xD800")), pipeline == "AP"s || pipeline == "NaW"s ? "[??]" : "[𠮟\uFFFD]");
    }
}

TEST_F(Readers, LimitsOfTheArrayReader) {
    modeFlags->Pipe = FindPipeline("NH");
    const std::string row(80, 'x');
    const std::string half = row.substr(1) + "日"; // its second byte is the 81st
    const std::string kanji = Utf8(TextW(40, u'日'));
    EXPECT_EQ(Lines(row + "\n" + kanji + "\r\n" + half + "\n" + row + "yz"),
              "[" + row + "][" + kanji + "][" + row.substr(1) + "][" + row + "]");
    EXPECT_EQ(po->WarningKazu, 1) << "of the first line that is too long";
    EXPECT_EQ(store->Records.back().place.line, 2);
    std::string most;
    while (most.size() < 2 * 310)
        most += "A\n";
    EXPECT_EQ(Lines(most).size(), 3U * 310); // the transcripts have one more
}

} // namespace

} // namespace tolvane::tests
