// The catalogues of all rooms, row by row: both languages, the same arguments in both, sound tags, variants that make
// a difference, and a book or a transcript in which the row appears.

#include "Assemble.h"
#include "BookTest.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

const fs::path Tests = TOLVANE_TESTS;
constexpr Wording Wordings[] = {WordingNWW, WordingWP, WordingNA, WordingAP, WordingNH};

// A text cut into its literal stretches and its tags; nothing for a brace without its partner.
struct Pieces {
    std::vector<std::string> stretches;
    std::vector<std::string> tags;
};

std::optional<Pieces> Cut(const std::string& text) {
    Pieces pieces;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t stop = std::min(text.find_first_of("{}\n", begin), text.size());
        pieces.stretches.push_back(text.substr(begin, stop - begin));
        begin = stop + 1;
        if (stop == text.size() || text[stop] == '\n') continue;
        const std::size_t end = text.find_first_of("{}", begin);
        if (text[stop] == '}' || end == std::string::npos || text[end] == '{') return std::nullopt;
        pieces.tags.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return pieces;
}

bool IsSoundTag(const std::string& tag) {
    static const std::set<std::string> Names = {"prefix", "line", "atline", "const", "atconst", "nr", "k"};
    static const std::set<std::string> Forms = {"", "q", "o", "x", "x4"};
    if (Names.count(tag) != 0) return true;
    return !tag.empty() && std::isdigit(static_cast<unsigned char>(tag[0])) != 0 && Forms.count(tag.substr(1)) != 0;
}

std::set<char> ArgumentsOf(const char* text) {
    std::set<char> numbers;
    if (const auto pieces = Cut(text)) {
        for (const std::string& tag : pieces->tags) {
            if (!tag.empty() && std::isdigit(static_cast<unsigned char>(tag[0])) != 0) numbers.insert(tag[0]);
        }
    }
    return numbers;
}

// What a row is known by: its longest literal stretch, without blanks at its ends.
std::string StretchOf(const char* text) {
    std::string longest;
    for (std::string stretch : Cut(text).value_or(Pieces()).stretches) {
        stretch.erase(0, std::min(stretch.find_first_not_of(" \t"), stretch.size()));
        stretch.erase(stretch.find_last_not_of(" \t") + 1);
        if (stretch.size() > longest.size()) longest = stretch;
    }
    return longest;
}

// The texts of a row in pairs, Japanese taking the base text where a variant has only English, and the other way.
struct Pair {
    const char* en;
    const char* ja;
};

std::vector<Pair> PairsOf(const Msg& msg) {
    std::vector<Pair> pairs = {{msg.en, msg.ja}};
    for (const Variant& v : msg.variants) {
        if (v.wordings == 0) continue;
        pairs.push_back({v.en != nullptr ? v.en : msg.en, v.ja != nullptr ? v.ja : msg.ja});
    }
    return pairs;
}

std::string ReadText(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string AllTranscripts() {
    std::string all;
    for (const auto& entry : fs::recursive_directory_iterator(Tests / "transcripts"))
        if (entry.is_regular_file() && entry.path().extension() == ".txt") all += ReadText(entry.path());
    return all;
}

bool SameTexts(const Msg& x, const Msg& y) {
    return std::all_of(std::begin(Wordings), std::end(Wordings), [&](Wording wording) {
        const auto same = [&](int language) {
            return std::string_view(x.For(language, wording)) == y.For(language, wording);
        };
        return same(0) && same(1);
    });
}

// The names of rows must be those of a list: lines of a name, a tab and the reason why the row is there.
void ExpectListed(const std::set<std::string>& rows, const char* list) {
    std::istringstream in(ReadText(Tests / list));
    std::set<std::string> listed;
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("#")) continue;
        const std::size_t tab = line.find('\t');
        EXPECT_LT(tab + 1, line.size()) << "no reason: " << line;
        listed.insert(line.substr(0, tab));
    }
    for (const std::string& row : rows)
        EXPECT_EQ(listed.count(row), 1U) << row << " is not in " << list;
    for (const std::string& row : listed)
        EXPECT_EQ(rows.count(row), 1U) << row << " is no longer needed in " << list;
}

} // namespace

TEST(Catalogue, EveryTextIsThereAndItsTagsAreSound) {
    for (const Msg* msg : AllRows()) {
        for (const Pair& pair : PairsOf(*msg)) {
            for (const char* text : {pair.en, pair.ja}) {
                ASSERT_NE(text, nullptr) << NameOf(*msg);
                const auto pieces = Cut(text);
                ASSERT_TRUE(pieces) << "a brace without its partner: " << text;
                EXPECT_NE(*text, '\0') << NameOf(*msg) << " has an empty text";
                for (const std::string& tag : pieces->tags)
                    EXPECT_TRUE(IsSoundTag(tag)) << NameOf(*msg) << ": {" << tag << "} " << text;
            }
        }
    }
}

// Rows whose languages show different things are listed in one-sided.txt.
TEST(Catalogue, BothLanguagesTakeTheSameArguments) {
    std::set<std::string> oneSided;
    for (const Msg* msg : AllRows())
        for (const Pair& pair : PairsOf(*msg))
            if (ArgumentsOf(pair.en) != ArgumentsOf(pair.ja)) oneSided.insert(NameOf(*msg));
    ExpectListed(oneSided, "one-sided.txt");
}

TEST(Catalogue, EveryVariantMakesADifference) {
    for (const Msg* msg : AllRows()) {
        unsigned taken[2] = {0, 0};
        for (const Variant& variant : msg->variants) {
            const char* const texts[2] = {variant.ja, variant.en};
            const char* const base[2] = {msg->ja, msg->en};
            for (const int language : {0, 1}) {
                if (texts[language] == nullptr) continue;
                EXPECT_STRNE(texts[language], base[language]) << NameOf(*msg) << " has a variant that is its base";
                EXPECT_EQ(taken[language] & variant.wordings, 0U) << NameOf(*msg) << " has two variants of a wording";
                taken[language] |= variant.wordings;
            }
        }
    }
}

// The dumps before and after a run are announced alike.
TEST(Catalogue, NoTwoRowsOfACatalogueAreTheSame) {
    std::set<std::string> same;
    const auto catalogueOf = [](const Msg& msg) { return NameOf(msg).substr(0, NameOf(msg).find('.')); };
    for (auto x = AllRows().begin(); x != AllRows().end(); ++x)
        for (auto y = x + 1; y != AllRows().end() && catalogueOf(**x) == catalogueOf(**y); ++y)
            if (SameTexts(**x, **y)) same.insert(NameOf(**y));
    EXPECT_EQ(same, std::set<std::string>{"DriverMsg.ResultantDump"});
}

// A row of the passes must be told in a book; others may appear in a transcript. The rest is listed in unreached.txt.
TEST(Catalogue, EveryRowIsReached) {
    const std::string transcripts = AllTranscripts();
    const std::set<std::string> told = RowsOfBooks();
    const auto appears = [&](const char* text) {
        const std::string stretch = StretchOf(text);
        return stretch.empty() || transcripts.find(stretch) != std::string::npos;
    };
    std::set<std::string> unreached;
    for (const Msg* msg : AllRows()) {
        const bool shown = !msg->ofOperands && (appears(msg->en) || appears(msg->ja));
        if (!shown && told.count(NameOf(*msg)) == 0) unreached.insert(NameOf(*msg));
    }
    ExpectListed(unreached, "unreached.txt");
}

} // namespace tolvane::tests
