// The catalogues of all rooms, row by row: both languages, the same arguments in both, sound tags, variants that make
// a difference, and a book or a transcript in which the row appears. And the console lines of a record.

#include "Assemble.h"
#include "BookTest.h"
#include "TextTools.h"
#include "lines/LinesMsgs.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <string>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

const fs::path Tests = TOLVANE_TESTS;
constexpr Wording Wordings[] = {WordingNWW, WordingWP, WordingNA, WordingAP, WordingNH};

// The text with a line end for each of its tags; braces are left where a tag is not sound.
std::string WithoutTags(const std::string& text) {
    static const std::regex Tag(R"(\{(prefix|line|atline|const|atconst|nr|k|body|constbody|join|\d(q|o|x|x4)?)\})");
    return std::regex_replace(text, Tag, "\n");
}

std::set<char> ArgumentsOf(const std::string& text) {
    std::set<char> numbers;
    for (std::size_t i = text.find('{'); i < text.size(); i = text.find('{', i + 1))
        if (std::isdigit(static_cast<unsigned char>(text[i + 1])) != 0) numbers.insert(text[i + 1]);
    return numbers;
}

// What a row is known by: its longest literal stretch, without blanks at its ends.
std::string StretchOf(const std::string& text) {
    std::string longest;
    for (std::string stretch : Lines(WithoutTags(text))) {
        stretch.erase(0, std::min(stretch.find_first_not_of(" \t\n"), stretch.size()));
        stretch.erase(stretch.find_last_not_of(" \t\n") + 1);
        if (stretch.size() > longest.size()) longest = stretch;
    }
    return longest;
}

std::string AllTranscripts() {
    std::string all = ReadFile(Tests / "run" / "session.txt") + ReadFile(Tests / "run" / "debug.txt");
    for (const auto& entry : fs::directory_iterator(Tests / "transcripts"))
        all += ReadFile(entry.path());
    return all;
}

// The names of rows must be those of a list.
void ExpectListed(const std::set<std::string>& rows, const char* list) {
    std::set<std::string> listed;
    for (const auto& [row, reason] : ReadReasons(Tests / list)) {
        EXPECT_NE(reason, "") << row;
        listed.insert(row);
    }
    EXPECT_EQ(rows, listed) << list;
}

} // namespace

// Rows whose languages show different arguments are listed in one-sided.txt.
TEST(Catalogue, TextsAreThereTheirTagsSoundAndTheirArgumentsTheSame) {
    std::set<std::string> oneSided;
    for (const Msg* msg : AllRows())
        for (const Wording wording : Wordings) {
            std::set<std::set<char>> arguments;
            for (const int language : {0, 1}) {
                const char* text = msg->For(language, wording);
                ASSERT_NE(text, nullptr) << NameOf(*msg);
                EXPECT_STRNE(text, "") << NameOf(*msg);
                EXPECT_EQ(WithoutTags(text).find_first_of("{}"), std::string::npos) << NameOf(*msg) << ": " << text;
                arguments.insert(ArgumentsOf(text));
            }
            if (arguments.size() > 1) oneSided.insert(NameOf(*msg));
        }
    ExpectListed(oneSided, "one-sided.txt");
}

TEST(Catalogue, EveryVariantMakesADifference) {
    for (const Msg* msg : AllRows()) {
        unsigned taken[2] = {0, 0};
        for (const Variant& variant : msg->variants)
            for (const int language : {0, 1}) {
                const char* text = language == 0 ? variant.ja : variant.en;
                if (text == nullptr) continue;
                EXPECT_STRNE(text, language == 0 ? msg->ja : msg->en) << NameOf(*msg) << " has an idle variant";
                EXPECT_EQ(taken[language] & variant.wordings, 0U) << NameOf(*msg) << " has two variants of a wording";
                taken[language] |= variant.wordings;
            }
    }
}

// The dumps before and after a run are announced alike.
TEST(Catalogue, NoTwoRowsOfACatalogueAreTheSame) {
    std::set<std::string> texts;
    for (const Msg* msg : AllRows()) {
        const std::string name = NameOf(*msg);
        std::string all = name.substr(0, name.find('.'));
        for (const Wording wording : Wordings)
            all += std::string("\n") + msg->For(0, wording) + "\n" + msg->For(1, wording);
        EXPECT_EQ(texts.insert(all).second, name != "DriverMsg.ResultantDump") << name;
    }
}

TEST(Catalogue, EveryRowIsReached) {
    const std::string transcripts = AllTranscripts();
    const std::set<std::string> told = RowsOfBooks();
    const auto appears = [&](const std::string& text) { return transcripts.find(text) != std::string::npos; };
    std::set<std::string> unreached;
    for (const Msg* msg : AllRows()) {
        const bool shown = appears(NameOf(*msg)) || appears(StretchOf(msg->en)) || appears(StretchOf(msg->ja));
        if ((msg->ofOperands || !shown) && told.count(NameOf(*msg)) == 0) unreached.insert(NameOf(*msg));
    }
    ExpectListed(unreached, "unreached.txt");
}

TEST(Messages, OnlyTheRowsOwnBreaksPartTheLinesOfARecord) {
    const TextW source = u"E\n\nEND ; text of UTF-16 may hold a line feed";
    const MsgRec& record = store->Append(Severity::Error, 2, LinesMsg.EndWithLabel, {source}, true, true);
    const std::vector<std::string> lines = record.Lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NE(lines[0].find("E\n\nEND"), std::string::npos);
    EXPECT_EQ(lines[2], "It is of no use. ");
    store->ClearMsgStore();
}

TEST(Messages, NothingOfAHeadIsLeftWhereItIsToldByOtherMeans) {
    const KeptArg word{ViewA("X"), false, 7};
    const std::vector<KeptArg> args(9, word);
    for (const Msg* msg : AllRows())
        for (const Wording wording : Wordings)
            for (const int language : {0, 1}) {
                std::string text;
                Compose(text, msg->For(language, wording), {language, wording, Severity::Error, 11, args, false, true});
                for (const char* head :
                     {":", "：", "Error:", "Error :", "Warning", "WARNING", "Runtime", "->", "エラー", "警告", "line "})
                    EXPECT_FALSE(TrimZenBlankUtf8(text).starts_with(head)) << NameOf(*msg) << ": " << text;
                EXPECT_EQ(text.find("\"  "), std::string::npos) << NameOf(*msg) << ": " << text;
            }
}

TEST(Messages, ControlCharactersOfTextsAreShownOnATerminalAlone) {
    const KeptArg text{ViewA("a\x1B[1m\t\x7F\n")};
    for (const bool forTerminal : {false, true}) {
        std::string out;
        Compose(out, "{0}\n", {1, WordingNWW, Severity::Error, NoLine, {&text, 1}, forTerminal});
        EXPECT_EQ(out, forTerminal ? "a^[[1m\t^?^J\n" : "a\x1B[1m\t\x7F\n\n");
    }
}

} // namespace tolvane::tests
