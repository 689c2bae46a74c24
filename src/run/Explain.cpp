#include "run/Explain.h"

#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "run/Options.h"
#include "run/RunMsgs.h"
#include "text/Text.h"

#include <algorithm>
#include <vector>

namespace tolvane::run {

namespace {

constexpr std::size_t MostEntries = 2; // shown whole
constexpr std::size_t MostTitles = 15; // of the others
constexpr std::size_t ShortestLine = 8;
constexpr std::size_t ScoreOfWord = 4;
constexpr Wording Wordings[] = {WordingNWW, WordingWP, WordingNA, WordingAP, WordingNH};

// What stands in front of a text by itself says nothing about which one it is.
constexpr std::string_view Heads[] = {"error",  "warning", "runtime error", "note",       "line",
                                      "エラー", "警告",    "実行時エラー",  "番目の定数", "--> os"};

struct Found {
    const Explanation* entry;
    std::size_t score;
};

bool IsWordChar(char c) {
    return IsUpper(c) || IsLower(c) || IsDigit(c);
}

// Small letters, and one blank for several.
std::string Folded(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
        if (!blank || !out.ends_with(' ')) out += blank ? ' ' : IsUpper(c) ? static_cast<char>(c | 0x20) : c;
    }
    return TrimZenBlankUtf8(out);
}

std::vector<std::string> WordsOf(const std::string& folded) {
    std::vector<std::string> words;
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < folded.size(); begin = end + 1) {
        end = std::min(folded.find(' ', begin), folded.size());
        const std::size_t first = std::min(folded.find_first_not_of("\"'.,:;!?()", begin), end);
        const std::size_t last = first == end ? end : folded.find_last_not_of("\"'.,:;!?()", end - 1) + 1;
        if (last > first) words.push_back(folded.substr(first, last - first));
    }
    return words;
}

// Whether a word begins somewhere in a text; "ret" does not in "interpreter".
bool HasWord(const std::string& text, const std::string& word) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        if (at == 0 || !IsWordChar(text[at - 1]) || !IsWordChar(word[0])) return true;
    return false;
}

// The bytes of the fixed words of a console line if all of them stand in what was pasted, else 0.
std::size_t ScoreOfLine(std::string_view line, const std::string& pasted) {
    std::size_t score = 0;
    while (!line.empty()) {
        const std::size_t end = std::min(line.find_first_of("{:"), line.size());
        const std::string piece = Folded(line.substr(0, end));
        line.remove_prefix(end);
        if (!line.empty()) line.remove_prefix(line[0] == '{' ? std::min(line.find('}'), line.size() - 1) + 1 : 1);
        if (std::ranges::find(Heads, piece) != std::end(Heads)) continue;
        if (pasted.find(piece) == std::string::npos) return 0;
        score += piece.size();
    }
    return score < ShortestLine ? 0 : score;
}

// How much of a pasted text a row has said; 0 if it has not.
std::size_t ScoreOfPasted(const Msg& row, const std::string& pasted) {
    std::size_t best = 0;
    for (const Wording wording : Wordings)
        for (const int language : {0, 1}) {
            std::size_t score = 0;
            std::string_view text = row.For(language, wording);
            while (!text.empty())
                score += ScoreOfLine(TakeLine(text), pasted);
            best = std::max(best, score);
        }
    return best;
}

// How many of the words an entry has, if it has more than half of them; then the title counts more than the words
// behind it, and a fault's own words most.
std::size_t ScoreOfWords(const Explanation& entry, const std::vector<std::string>& words) {
    const auto count = [&words](const std::string& text) {
        const auto has = [&text](const std::string& word) { return HasWord(text, word); };
        return static_cast<std::size_t>(std::ranges::count_if(words, has));
    };
    const std::string title = Folded(entry.title[0]) + " " + Folded(entry.title[1]) + " ";
    const std::size_t inTitle = count(title + Folded(entry.keys));
    std::size_t found = inTitle;
    for (const Wording wording : Wordings)
        for (const int language : {0, 1})
            if (entry.row != nullptr) found = std::max(found, count(Folded(entry.row->For(language, wording))));
    if (2 * found <= words.size()) return 0;
    return ScoreOfWord * found + (entry.row == nullptr ? 2U : 0U) + (inTitle == found ? 1U : 0U);
}

// The entries with a score, the best first.
template <class Score> std::vector<Found> Search(Score score) {
    std::vector<Found> found;
    for (const Explanation& entry : Explanations)
        if (const std::size_t points = score(entry); points > 0) found.push_back({&entry, points});
    std::ranges::stable_sort(found, std::ranges::greater(), &Found::score);
    return found;
}

} // namespace

int Explain(const std::string& words) {
    const std::string folded = Folded(words);
    auto found =
        Search([&](const Explanation& entry) { return entry.row == nullptr ? 0 : ScoreOfPasted(*entry.row, folded); });
    if (found.empty()) {
        found = Search([&](const Explanation& entry) { return ScoreOfWords(entry, WordsOf(folded)); });
        // Those that have as many words as the best.
        const std::size_t most = found.empty() ? 0 : found[0].score / ScoreOfWord;
        std::erase_if(found, [most](const Found& each) { return each.score / ScoreOfWord < most; });
    }
    if (found.empty()) {
        WriteErr(TextOf(RunMsg.NothingExplained, {Utf8Arg{words}}));
        return NothingFound;
    }
    const auto isBest = [&found](std::size_t i) { return i < found.size() && found[i].score == found[0].score; };
    std::size_t whole = 0;
    for (; whole < MostEntries && isBest(whole); ++whole)
        console::Write((whole == 0 ? "" : "\n") + std::string(found[whole].entry->text[modeFlags->Lang]));
    const std::size_t listed = std::min(found.size(), whole + MostTitles);
    if (whole < found.size()) Say(RunMsg.AlsoExplained);
    for (std::size_t i = whole; i < listed; ++i)
        console::Write("  " + std::string(found[i].entry->title[modeFlags->Lang]) + "\n");
    if (listed < found.size()) Say(RunMsg.MoreExplained, {found.size() - listed});
    return AllEnded;
}

} // namespace tolvane::run
