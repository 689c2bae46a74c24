// The dump's widths, joins and bounds, on records made by hand.

#include "reports/Dump.h"

#include "TextTools.h"
#include "records/Records.h"
#include "records/TLabelSpace.h"

#include <gtest/gtest.h>
#include <memory>

namespace tolvane::tests {

namespace {

template <class Ch> SrcData<Ch>& AddLine(int address, const char* label, const char* op = "", const char* rest = "") {
    SrcData<Ch> line;
    line.AbAdr = address;
    line.strLabel = Lit<Ch>(label);
    line.strOp = Lit<Ch>(op);
    line.strOprndCom = Lit<Ch>(rest);
    b->Src<Ch>().push_back(line);
    return b->Src<Ch>().back();
}

class DumpTest : public testing::Test {
protected:
    std::unique_ptr<Tcomet2> machine = std::make_unique<Tcomet2>();

    void SetUp() override { b->Reset(); }
    void TearDown() override {
        b->Reset();
        labelSpace->Rows.clear();
        modeFlags->Pipe = &DefaultPipeline();
        modeFlags->Lang = 1;
    }

    void Choose(const char* pipeline) { modeFlags->Pipe = FindPipeline(pipeline); }
    void Reserve(int words) {
        b->SetReservedWords(words);
        b->vecPrgW.resize(1);
        b->vecPrgW[0].AbAdrAtEnd = words - 1;
        b->vecPrgA.resize(1);
        b->vecPrgA[0].AbAdrAtEnd = words - 1;
    }
    // The lines that begin with a text, in the dump's order.
    std::vector<std::string> LinesWith(const std::string& begin) const {
        std::vector<std::string> found;
        for (const std::string& line : Lines(DumpText(*machine, "dump.txt")))
            if (line.compare(0, begin.size(), begin) == 0) found.push_back(line);
        return found;
    }
    std::string Line(const std::string& begin) const {
        const auto found = LinesWith(begin);
        return found.empty() ? "" : found.front();
    }
};

} // namespace

TEST_F(DumpTest, WordCells) {
    machine->GR = {0, 31, 39, 126, 127, 0x8000, -1, 0x7FFF0041};
    EXPECT_EQ(Line("  GR0:"), "  GR0:    :#0000:    0:    +0: 0000 0000 0000 0000:\n");
    EXPECT_EQ(Line("  GR1:"), "  GR1:    :#001F:   31:   +31: 0000 0000 0001 1111:\n");
    EXPECT_EQ(Line("  GR2:"), "  GR2: ''':#0027:   39:   +39: 0000 0000 0010 0111:\n");
    EXPECT_EQ(Line("  GR3:"), "  GR3: '~':#007E:  126:  +126: 0000 0000 0111 1110:\n");
    EXPECT_EQ(Line("  GR4:"), "  GR4:    :#007F:  127:  +127: 0000 0000 0111 1111:\n");
    EXPECT_EQ(Line("  GR5:"), "  GR5:    :#8000:32768:-32768: 1000 0000 0000 0000:\n");
    EXPECT_EQ(Line("  GR6:"), "  GR6:    :#FFFF:65535:    -1: 1111 1111 1111 1111:\n");
    EXPECT_EQ(Line("  GR7:"), "  GR7: 'A':#0041:   65:   +65: 0000 0000 0100 0001:\n");
    machine->SP = 65536;
    machine->Fsign = 1;
    machine->Fzero = 2;
    EXPECT_EQ(Line("Flags:"), "Flags:    Fovf=0, Fsign=1(minus), Fzero=2(Error of else: at Fzero ! in comet2.).\n");
    EXPECT_EQ(Line("The Stack Pointer"), "The Stack Pointer(SP) has pointed at #10000 at present. \n");
}

TEST_F(DumpTest, LabelColumnFollowsTheLongestJoin) {
    AddLine<char16_t>(0, "", "", "");
    AddLine<char16_t>(0, "AB", "DS", "0");
    AddLine<char16_t>(0, "LONGNAME", "DC", "65");
    AddLine<char16_t>(1, "BEHINDTHEIMAGEITSELF", "DS", "0");
    machine->Memory[0] = 65;
    machine->LineOfWord[0] = 2;
    machine->MaxRunCount = 100;
    machine->RunCount[0] = 100;
    Reserve(1);
    EXPECT_EQ(Line("  Address"), "  Address        Label   Char  Hex    UD     SD       Binary Code\n");
    const auto rows = LinesWith("#00");
    ASSERT_EQ(rows.size(), 11U);
    EXPECT_EQ(rows[0], "#0000:    0: AB LONGNAME: 'A':#0041:   65:   +65: 0000 0000 0100 0001: 100:LONGNAME DC 65\n");
    EXPECT_EQ(rows[1], "#0001:    1:BEHINDTHEIMAGEITSELF:    :#0000:    0:    +0: 0000 0000 0000 0000:   0:\n");
    EXPECT_EQ(rows[10], "#000A:   10:            :    :#0000:    0:    +0: 0000 0000 0000 0000:   0:\n");
}

TEST_F(DumpTest, SourceTextAtFirstWordsAndLiterals) {
    AddLine<char16_t>(0, "", "LD", "GR1,='AB'").vecLite.resize(1);
    AddLine<char16_t>(2, "A", "DC", "1,2");
    b->vecSrcW[1].strOprndCom = u"'日'";
    AddLine<char16_t>(0, "Z");
    const int owners[] = {0, 0, 1, 1, 0, 0, 2, 9};
    for (std::size_t a = 0; a < 8; ++a)
        machine->LineOfWord[a] = owners[a];
    Reserve(8);
    const auto rows = LinesWith("#000");
    std::vector<std::string> sources;
    for (std::size_t a = 0; a < 8; ++a) {
        const std::size_t count = rows[a].find(": 0:");
        ASSERT_NE(count, std::string::npos);
        sources.push_back(rows[a].substr(count + 4));
    }
    EXPECT_EQ(sources, (std::vector<std::string>{"   LD GR1,='AB'\n", "\n", "A  DC '\x93\xFA'\n", "\n",
                                                 "Literal:(LD GR1,='AB')\n", "\n", "\n", "\n"}));
    EXPECT_EQ(LinesWith("//--").size(), 5U) << "the dashed line stands behind the image";
}

TEST_F(DumpTest, NarrowForm) {
    AddLine<char>(1, "ABCDEFGH", "DC", "1");
    Reserve(2);
    Choose("NA");
    EXPECT_EQ(Line("  Address"), "  Address   Label Char  Hex    UD     SD       Binary Code\n");
    EXPECT_EQ(Line("#0000"), "#0000:    0:      :    :#0000:    0:    +0: 0000 0000 0000 0000: 0:\n");
    EXPECT_EQ(Line("#0001"), "#0001:   ABCDEFGH:    :#0000:    0:    +0: 0000 0000 0000 0000: 0:\n");
    EXPECT_EQ(Line("#FFFF"), "#FFFF:65535:      :    :#0000:    0:    +0: 0000 0000 0000 0000:\n");
    EXPECT_NE(Line("Src. File: "), "");

    AddLine<char>(1, "XYZ", "DC", "1"); // a join of twelve characters
    EXPECT_EQ(Line("  Address"), "  Address   Label   Char  Hex    UD     SD       Binary Code\n");
    EXPECT_EQ(Line("#0000"), "#0000:    0:        :    :#0000:    0:    +0: 0000 0000 0000 0000: 0:\n");
    EXPECT_EQ(Line("#0001"), "#0001: ABCDEFGH XYZ:    :#0000:    0:    +0: 0000 0000 0000 0000: 0:\n");
    Choose("NH");
    labelSpace->Rows = {{"ABCDEFGH", 1}, {"XYZ", 1}};
    EXPECT_EQ(Line("#0001"), "#0001: ABCDEFGH XYZ:    :#0000:    0:    +0: 0000 0000 0000 0000:\n");
    EXPECT_NE(Line("Src File: "), "");
}

TEST_F(DumpTest, StackRowsEndBehindFourZeros) {
    EXPECT_EQ(LinesWith("#FF").size(), 5U);
    EXPECT_EQ(LinesWith("#FF").front(), "#FFFB:65531:      :    :#0000:    0:    +0: 0000 0000 0000 0000:\n");
    machine->Stack[4] = 7; // zeros at 0 to 3 hide it
    EXPECT_EQ(LinesWith("#FF").size(), 5U);
    machine->Stack[1] = 1;
    machine->Stack[8] = 2; // three zeros between 4 and 8
    EXPECT_EQ(LinesWith("#FF").size(), 14U);
    EXPECT_EQ(LinesWith("#FF")[12], "#FFFE:65534:      :    :#0001:    1:    +1: 0000 0000 0000 0001:\n");
    machine->Stack.fill(1);
    EXPECT_EQ(LinesWith("#FE0B:65035").size(), 1U);
    EXPECT_EQ(LinesWith("#FE0A").size(), 0U);
}

TEST_F(DumpTest, LargestImage) {
    Reserve(MaxImageWords);
    EXPECT_EQ(LinesWith("#FE14:65044:").size(), 1U) << "ten rows behind the image";
    EXPECT_EQ(LinesWith("#FE15").size(), 0U);
}

TEST_F(DumpTest, Dates) {
    const platform::LocalTime midnight{2026, 11, 2, 0, 5, 9, 1};
    EXPECT_EQ(DumpDate(midnight), "Mon Nov  2 12:05:09 2026\n");
    modeFlags->Lang = 0;
    EXPECT_EQ(DumpDate(midnight), "作成日時：2026年11月2日 12時5分9秒");
}

} // namespace tolvane::tests
