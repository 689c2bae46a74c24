// The dump's widths, joins and bounds, on records made by hand. Whole dumps are told by the transcripts.

#include "reports/Dump.h"

#include "TextTools.h"
#include "records/Records.h"

#include <gtest/gtest.h>
#include <memory>

namespace tolvane::tests {

namespace {

class DumpTest : public testing::Test {
protected:
    std::unique_ptr<Tcomet2> machine = std::make_unique<Tcomet2>();

    DumpTest() { b->Reset(); }
    ~DumpTest() override {
        b->Reset();
        modeFlags->Pipe = &DefaultPipeline();
        modeFlags->Lang = 1;
    }
    template <class Ch> static void AddLine(int address, const char* label) {
        SrcData<Ch>& line = b->Src<Ch>().emplace_back();
        line.AbAdr = address;
        line.strLabel = b->Keep<Ch>(Lit<Ch>(label));
    }
    // The lines that begin with a text, in the dump's order and without it.
    std::vector<std::string> Rows(const std::string& begin) const {
        std::vector<std::string> found;
        for (const std::string& line : Lines(DumpText(*machine, "dump.txt")))
            if (line.starts_with(begin)) found.push_back(line.substr(begin.size()));
        return found;
    }
};

} // namespace

TEST_F(DumpTest, WordCells) {
    const std::pair<int, const char*> cells[] = {{31, "    :#001F:   31:   +31: 0000 0000 0001 1111:"},
                                                 {32, "' ':#0020:   32:   +32: 0000 0000 0010 0000:"},
                                                 {126, "'~':#007E:  126:  +126: 0000 0000 0111 1110:"},
                                                 {127, "    :#007F:  127:  +127: 0000 0000 0111 1111:"},
                                                 {-32768, "    :#8000:32768:-32768: 1000 0000 0000 0000:"},
                                                 {-65536, "    :#0000:    0:    +0: 0000 0000 0000 0000:"}};
    for (const auto& [cell, picture] : cells) {
        machine->GR[7] = cell;
        EXPECT_NE(Rows("  GR7:").at(0).find(picture), std::string::npos) << Rows("  GR7:").at(0);
    }
}

TEST_F(DumpTest, LabelsOfOneAddressAreJoinedAndWidenTheColumn) {
    struct Case {
        const char* pipeline;
        const char* label;   // joined with AB at address 0
        const char* rows[3]; // the head, an address with labels, one without
    };
    for (const Case& c : {Case{"WP", "CD", {"  Label Char", "    0: AB CD:", "    2:      :"}},
                          {"WP", "CDEFGHIJ", {"     Label   Char", "    0: AB CDEFGHIJ:", "    2:            :"}},
                          {"AP", "CDEFGHIJ", {"Label Char", "AB CDEFGHIJ:", "    2:      :"}},
                          {"AP", "CDEFGHIJK", {"Label   Char", " AB CDEFGHIJK:", "    2:        :"}}}) {
        modeFlags->Pipe = FindPipeline(c.pipeline);
        b->Reset();
        machine->ReservedWords = 1;
        for (const char* label : {"", "AB", c.label}) {
            AddLine<char16_t>(0, label);
            AddLine<char>(0, label);
        }
        for (const int behind : {1, 11}) { // the image, and the rows
            AddLine<char16_t>(behind, "BEHINDTHEIMAGE");
            AddLine<char>(behind, "BEHINDTHEIMAGE");
        }
        for (const auto& [begin, row] :
             {std::pair{"  Address   ", c.rows[0]}, {"#0000:", c.rows[1]}, {"#0002:", c.rows[2]}})
            EXPECT_TRUE(Rows(begin).at(0).starts_with(row)) << Rows(begin).at(0);
    }
}

TEST_F(DumpTest, MemoryAndStackEndWhereTheyEnd) {
    const auto ends = [this] { return std::pair{Rows("#00").size(), Rows("#F").size()}; };
    machine->Stack[4] = 7; // the zeros 0 to 3 hide it
    EXPECT_EQ(ends(), (std::pair<std::size_t, std::size_t>(10, 5)))
        << "ten rows behind the image; the stack up to the fourth zero";
    machine->Stack[1] = machine->Stack[8] = 1; // three zeros between 4 and 8
    EXPECT_EQ(ends().second, 14UL);
    machine->Stack.fill(1);
    EXPECT_EQ(Rows("#FE0B:65035").size() + Rows("#FE0A").size(), 1U);
    machine->Stack.fill(0);
    machine->ReservedWords = MaxImageWords;
    EXPECT_EQ(Rows("#FE14:65044:").size() + Rows("#FE15").size(), 1U);
}

TEST_F(DumpTest, TheHourBehindMidnightIsTwelve) {
    EXPECT_EQ(DumpDate({2026, 11, 2, 0, 5, 9, 1}), "Mon Nov  2 12:05:09 2026\n");
    modeFlags->Lang = 0;
    EXPECT_EQ(DumpDate({2026, 11, 2, 0, 5, 9, 1}), "作成日時：2026年11月2日 12時5分9秒");
}

} // namespace tolvane::tests
