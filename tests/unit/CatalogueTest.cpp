// The catalogues of all rooms, row by row: both languages, the same arguments in both, sound tags, and a transcript
// in which the row appears.

#include "Catalogues.h"
#include "TextTools.h"
#include "messages/Msg.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

const fs::path Tests = TOLVANE_TESTS;

// The members of a catalogue are all rows, so that it can be read as an array.
template <typename Catalogue> void Append(std::vector<Msg>& all, const Catalogue& catalogue) {
    static_assert(sizeof(Catalogue) % sizeof(Msg) == 0);
    for (const Msg& msg : std::bit_cast<std::array<Msg, sizeof(Catalogue) / sizeof(Msg)>>(catalogue))
        all.push_back(msg);
}

std::vector<Msg> AllMessages() {
    std::vector<Msg> all;
    std::apply([&](const auto&... catalogue) { (Append(all, catalogue), ...); }, AllCatalogues);
    return all;
}

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

// Everything that the transcripts expect the program to say or to write.
std::string AllExpectations() {
    static const std::set<std::string> Stems = {"console", "opening", "closing", "assembled", "resultant"};
    std::string all = ReadFile(Tests / "run" / "session.txt");
    for (const auto& entry : fs::recursive_directory_iterator(Tests / "transcripts")) {
        const std::string name = entry.path().filename().string();
        if (entry.is_regular_file() && Stems.count(name.substr(0, name.find('.'))) != 0) all += ReadFile(entry.path());
    }
    return all;
}

} // namespace

TEST(Catalogue, EveryTextIsThereAndItsTagsAreSound) {
    for (const Msg& msg : AllMessages()) {
        ASSERT_NE(msg.en, nullptr);
        ASSERT_NE(msg.ja, nullptr) << msg.en;
        for (const Pair& pair : PairsOf(msg)) {
            for (const char* text : {pair.en, pair.ja}) {
                const auto pieces = Cut(text);
                ASSERT_TRUE(pieces) << "a brace without its partner: " << text;
                EXPECT_NE(*text, '\0') << "an empty text beside " << msg.en;
                for (const std::string& tag : pieces->tags)
                    EXPECT_TRUE(IsSoundTag(tag)) << "{" << tag << "} " << text;
            }
        }
    }
}

// Rows whose languages show different things are listed in one-sided-arguments.txt.
TEST(Catalogue, BothLanguagesTakeTheSameArguments) {
    auto excepted = ReadReasons(Tests / "one-sided-arguments.txt");
    std::set<std::string> used;
    for (const Msg& msg : AllMessages()) {
        for (const Pair& pair : PairsOf(msg)) {
            if (ArgumentsOf(pair.en) == ArgumentsOf(pair.ja)) continue;
            const std::string stretch = StretchOf(pair.en);
            EXPECT_EQ(excepted.count(stretch), 1U) << stretch << "\n" << pair.en << "\n" << pair.ja;
            used.insert(stretch);
        }
    }
    for (const auto& [stretch, reason] : excepted) {
        EXPECT_EQ(used.count(stretch), 1U) << "no longer needed in one-sided-arguments.txt: " << stretch;
        EXPECT_NE(reason, "") << stretch;
    }
}

// Rows that no transcript can show are listed in unreached-messages.txt.
TEST(Catalogue, EveryRowAppearsInATranscript) {
    const std::string all = AllExpectations();
    const auto appears = [&](const std::string& stretch) { return all.find(stretch) != std::string::npos; };
    const auto listed = ReadReasons(Tests / "unreached-messages.txt");
    std::set<std::string> unreached;
    for (const Msg& msg : AllMessages()) {
        const std::string en = StretchOf(msg.en);
        if (!en.empty() && !appears(en) && !appears(StretchOf(msg.ja))) unreached.insert(en);
    }
    for (const std::string& stretch : unreached) {
        EXPECT_EQ(listed.count(stretch), 1U) << "in no transcript and not listed: " << stretch;
    }
    for (const auto& [stretch, reason] : listed) {
        EXPECT_EQ(unreached.count(stretch), 1U) << "no longer needed in unreached-messages.txt: " << stretch;
        EXPECT_NE(reason, "") << stretch;
    }
}

} // namespace tolvane::tests
