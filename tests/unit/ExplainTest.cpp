// Explanations: whatever is printed of the books' cases leads back to its row, and the words of a person to an entry.

#include "Assemble.h"
#include "Book.h"
#include "explain/Finding.h"
#include "messages/Pipeline.h"
#include "messages/TMsgBase.h"
#include "run/Errors.h"

#include <gtest/gtest.h>
#include <set>
#include <utility>

namespace tolvane::tests {

namespace {

// The best entries for what was pasted are those of the row, or of others with the same text.
void ExpectFound(const Msg* row, const std::string& pasted, std::set<std::string>& missed) {
    static std::set<std::pair<const Msg*, std::string>> tried;
    if (!tried.emplace(row, pasted).second) return;
    const explain::Found found = explain::Find(pasted);
    for (std::size_t i = 0; i < found.equals; ++i)
        for (const Msg* each : found.entries[i]->rows)
            if (each == row) return;
    missed.insert(NameOf(*row) + ": " + pasted);
}

void ExpectAllFound(const Assembly& assembly, int language, std::set<std::string>& missed) {
    const int before = std::exchange(modeFlags->Lang, language);
    for (const MsgRec& record : assembly.said) {
        std::string all = "a-b.txt:12: error: ";
        for (const std::string& line : run::TextLines(record)) {
            if (all.ends_with("\n  ")) ExpectFound(record.row, "  " + line, missed);
            all += line + "\n  ";
        }
        ExpectFound(record.row, all, missed);
    }
    modeFlags->Lang = before;
}

// The entries that fit best.
std::set<std::string> Best(const std::string& words) {
    std::set<std::string> ids;
    const explain::Found found = explain::Find(words);
    for (std::size_t i = 0; i < found.equals; ++i)
        ids.insert(found.entries[i]->id);
    return ids;
}

} // namespace

TEST(Explain, EveryLineThatIsPrintedLeadsToItsRow) {
    std::set<std::string> missed;
    for (const Book& book : ReadBooks(std::filesystem::path(TOLVANE_TESTS) / "books"))
        for (const Case& c : book.cases)
            for (const char* pipeline : PipelineNames)
                for (const int language : {0, 1}) {
                    const Then then = c.run ? Then::Run : Then::Nothing;
                    ExpectAllFound(Assemble(SourceOf(c), *FindPipeline(pipeline), language, then), language, missed);
                }
    EXPECT_EQ(missed, std::set<std::string>());
}

TEST(Explain, TheWordsOfAPersonLeadToAnEntry) {
    const std::pair<const char*, const char*> asked[] = {
        {"duplicate", "LinesMsg.LabelDouble"},
        {"ラベルが二重定義", "LinesMsg.LabelDouble"},
        {"未定義", "AddressMsg.NameUndefined"},
        {"my stack overflow", "stack-overflow"},
        {"missing END", "LinesMsg.NoEndLetters"},
        {"RET がない", "LinesMsg.NoRet"},
        {"BOM", "character-code"},
        {"文字化け", "character-code"},
        {"全角　スペース", "full-width"},
        {"jmp", "missing-instruction"},
        {"ADD", "ADDA"},
        {"ＩＮ", "IN"},
        {"OUT", "OUT"},
        {"LD LAD", "ld-for-lad"},
        {"a.txt:3: error: The limit of 1000 instructions was reached.\n  #0003 LOOP: LAD GR1,1,GR1", "endless-loop"},
        {"#0008 ADD      ADDA GR0,GR1             GR0=#0005", "ADDA"},
        {"a.txt:2: note: この LD は数 5 ではなく、アドレス 5 の語を使う。数そのものならリテラル =5 と書く。",
         "ld-for-lad"},
        {"a.txt:9: note: ST writes over an instruction: #0016 SUB: PUSH 0,GR1. A word for data is made by DS or DC.",
         "store-into-instruction"},
        {"tolvane-run: no file is given (see --help)", "options"},
        {"tolvane-run: --check と --trace は同時に使えない（--help を参照）", "options"},
        {"tolvane-run: the output cannot be written: No space left on device", "cannot-be-written"},
        {"a.txt: error: 出力の 3 行目が期待と異なる。", "grading"},
        {"   typed:    \"q\"", "grading"},
        {"入力: \"q\"", "grading"},
        {"  #0005 X: #FF00", "printed-lines"},
        {"GR0=#0000 GR1=#0005", "printed-lines"},
        {"命令数: 4", "printed-lines"},
        {"スタックオーバーフロー", "stack-overflow"},
        {"オーバフロー", "overflow"},
        {"END がない", "LinesMsg.NoEndLetters"},
    };
    for (const auto& [words, id] : asked)
        EXPECT_EQ(Best(words).count(id), 1U) << words;
    EXPECT_EQ(explain::Find("2の補数").equals, 0U);
    const explain::Found near = explain::Find("duplicte labl");
    EXPECT_EQ(near.equals, 0U);
    ASSERT_EQ(near.entries.size(), 3U);
    EXPECT_STREQ(near.entries[0]->id, "LinesMsg.LabelDouble");
}

} // namespace tolvane::tests
