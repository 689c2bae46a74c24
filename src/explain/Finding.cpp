#include "explain/Finding.h"

#include "records/Opcode.h"
#include "text/Convert.h"

#include <algorithm>
#include <set>
#include <string>

namespace tolvane::explain {

namespace {

using Words = std::vector<std::string>;

constexpr Wording Wordings[] = {WordingNWW, WordingWP, WordingNA, WordingAP, WordingNH};
constexpr std::size_t ShortestPasted = 8;     // bytes of a row's own words
constexpr std::size_t LongestSearched = 1000; // bytes of a text; a longer one, the help, has every word
constexpr std::size_t MostNear = 3;
constexpr std::size_t MostWords = 200;                // of what was asked
constexpr std::size_t LongestNear = 60;               // bytes of a word that may be near to another
constexpr std::size_t ShortestInside = 6;             // bytes of a key that is found inside a word, two characters
constexpr const char* PrintedLines = "printed-lines"; // the entry of lines with addresses
constexpr char Gap = '\1';                            // stands for an argument in the folded text of a row

// What the program puts in front of a text.
constexpr std::string_view HeadsOfDiagnostics[] = {": error:", ": warning:", ": note:", ": memo:"};
constexpr std::string_view HeadOfConstant = "constantnr="; // some rows spell it out, others have a tag
constexpr std::string_view NameOfProgram = "tolvane-run: ";
constexpr std::string_view LittleWords[] = {"a",  "an", "the", "my", "is",   "are",  "of",   "to",   "i",  "it",
                                            "do", "be", "me",  "we", "does", "what", "when", "with", "why"};

// --- One form for what a person does not tell apart

char16_t Folded(char16_t unit) {
    constexpr char16_t distance = u'！' - u'!';
    if (u'！' <= unit && unit <= u'～') unit = static_cast<char16_t>(unit - distance);
    if (unit == u'　' || unit == u'\t' || unit == u'\n' || unit == u'\r') return u' ';
    return IsUpper(unit) ? static_cast<char16_t>(unit | 0x20) : unit;
}

// In half width and small letters, with a blank for each kind of blank.
std::string Folded(std::string_view text) {
    TextW wide = WideUtf8Lossy(std::string(text));
    std::transform(wide.begin(), wide.end(), wide.begin(), [](char16_t unit) { return Folded(unit); });
    return Utf8(wide);
}

// Folded, and without blanks and quotation marks: it does not matter how a console has parted and broken the lines.
std::string Tight(std::string_view text) {
    std::string out = Folded(text);
    for (const std::string_view sign : {" ", "\"", "“", "”"})
        for (std::size_t at = 0; (at = out.find(sign, at)) != std::string::npos;)
            out.erase(at, sign.size());
    return out;
}

bool IsAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsWordChar(char c) {
    return IsUpper(c) || IsLower(c) || IsDigit(c);
}

// The words of a text without the signs round them.
Words WordsOf(const std::string& folded) {
    constexpr const char* signs = "\"'.,:;!?()<>[]";
    Words words;
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < folded.size(); begin = end + 1) {
        end = std::min(folded.find(' ', begin), folded.size());
        const std::size_t first = std::min(folded.find_first_not_of(signs, begin), end);
        const std::size_t last = first == end ? end : folded.find_last_not_of(signs, end - 1) + 1;
        if (last > first) words.push_back(folded.substr(first, last - first));
    }
    return words;
}

// --- A printed line

std::string_view WithoutName(std::string_view line) {
    return line.substr(line.starts_with(NameOfProgram) ? NameOfProgram.size() : 0);
}

// "ex1.txt:3: error: " and "tolvane-run: " at the front of a line are the program's, not the message's.
std::string_view WithoutHead(std::string_view line) {
    if (line.starts_with(NameOfProgram)) return WithoutName(line);
    for (const std::string_view head : HeadsOfDiagnostics)
        if (const std::size_t at = line.find(head); at != std::string_view::npos) return line.substr(at + head.size());
    return line;
}

std::string WithoutHeads(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        out += std::string(WithoutHead(text.substr(0, end))) + "\n";
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return out;
}

// A line of a row with a gap for each of its tags and colons.
std::string WithGaps(std::string_view line) {
    std::string out;
    while (!line.empty()) {
        const std::size_t tag = std::min(line.find('{'), line.size());
        out += std::string(line.substr(0, tag)) + Gap;
        line.remove_prefix(std::min(std::min(line.find('}', tag), line.size()) + 1, line.size()));
    }
    out = Tight(out);
    std::replace(out.begin(), out.end(), ':', Gap);
    return out;
}

// The words that a line of a row has itself, in their order.
Words PiecesOf(std::string_view line) {
    const std::string pattern = WithGaps(line);
    Words pieces;
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < pattern.size(); begin = end + 1) {
        end = std::min(pattern.find(Gap, begin), pattern.size());
        std::string piece = pattern.substr(begin, end - begin);
        if (!piece.empty() && piece != HeadOfConstant) pieces.push_back(std::move(piece));
    }
    return pieces;
}

std::vector<Words> LinesOf(std::string_view text) {
    std::vector<Words> lines;
    if (!text.ends_with("{body}")) text = tolvane::WithoutHead(text); // "Linker Error:" is nothing but a head
    while (!text.empty())
        lines.push_back(PiecesOf(WithoutName(TakeLine(text))));
    return lines;
}

// Whether the pasted text begins with the one word of a line, as "typed:" does.
bool IsNamedBy(const Words& pieces, const std::string& pasted) {
    return pieces.size() == 1 && pasted.starts_with(pieces[0] + ":");
}

// The bytes of a line's own words if the pasted text has all of them in their order, else 0.
std::size_t ScoreOfLine(const Words& pieces, const std::string& pasted) {
    std::size_t score = 0;
    std::size_t from = 0;
    for (const std::string& piece : pieces) {
        from = pasted.find(piece, from);
        if (from == std::string::npos) return 0;
        from += piece.size();
        score += piece.size();
    }
    return score < ShortestPasted && !IsNamedBy(pieces, pasted) ? 0 : score;
}

// --- Words

// Whether a word begins somewhere in a text; "ret" does not in "interpreter".
bool HasWord(const std::string& text, const std::string& word) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        if (at == 0 || !IsWordChar(text[at - 1]) || !IsWordChar(word[0])) return true;
    return false;
}

// An entry as it is searched: its keys, its titles, the texts of its rows.
struct Searched {
    const Explanation* entry;
    std::string id;
    Words keys;
    std::string titles;
    std::vector<std::string> texts;
    std::vector<std::vector<Words>> lines; // of the texts

    explicit Searched(const Explanation& explanation)
        : entry(&explanation), id(Folded(entry->id)), keys(WordsOf(Folded(entry->keys))),
          titles(Folded(std::string(entry->title[0]) + " " + entry->title[1])) {
        for (const Msg* row : entry->rows)
            for (const Wording wording : Wordings)
                for (const int language : {0, 1})
                    AddText(row->For(language, wording));
    }

    void AddText(const char* text) {
        std::string folded = Folded(text);
        if (std::find(texts.begin(), texts.end(), folded) != texts.end()) return;
        if (folded.size() < LongestSearched) texts.push_back(std::move(folded));
        lines.push_back(LinesOf(text));
    }

    // How much of a pasted text its rows have said; 0 if they have not.
    std::size_t ScoreOfPasted(const std::string& pasted) const {
        std::size_t best = 0;
        for (const std::vector<Words>& text : lines) {
            std::size_t score = 0;
            for (const Words& line : text)
                score += ScoreOfLine(line, pasted);
            best = std::max(best, score);
        }
        return best;
    }

    bool HasKey(const std::string& word) const { return std::find(keys.begin(), keys.end(), word) != keys.end(); }

    // A key in Japanese may stand anywhere in what was asked, which has no blanks between its words.
    bool HasKeyInside(const std::string& word) const {
        return std::any_of(keys.begin(), keys.end(), [&word](const std::string& key) {
            return !IsAscii(key) && key.size() >= ShortestInside && word.find(key) != std::string::npos;
        });
    }

    // How well it has a word; 0: not at all.
    std::size_t Score(const std::string& word) const {
        const auto has = [&word](const std::string& text) { return HasWord(text, word); };
        if (id == word) return 8;
        if (HasKey(word)) return 5;
        if (HasKeyInside(word)) return 4;
        if (has(titles)) return 2;
        return std::any_of(texts.begin(), texts.end(), has) ? 1 : 0;
    }
};

struct Scored {
    const Explanation* entry;
    std::size_t words; // that it has
    double score;
};

const std::vector<Searched>& AllSearched() {
    static const std::vector<Searched> all(Explanations.begin(), Explanations.end());
    return all;
}

// The words an entry has, if they are more than half.
Scored ScoreOfWords(const Searched& searched, const Words& words) {
    Scored scored{searched.entry, 0, 0};
    for (const std::string& word : words) {
        const std::size_t score = searched.Score(word);
        scored.words += score > 0 ? 1 : 0;
        scored.score += static_cast<double>(score);
    }
    if (2 * scored.words <= words.size()) scored.words = 0;
    return scored;
}

// The words that ask for something; all of them if they are all little.
Words Asked(const std::string& folded) {
    const Words all = WordsOf(folded);
    Words words;
    std::copy_if(all.begin(), all.end(), std::back_inserter(words), [](const std::string& word) {
        return std::find(std::begin(LittleWords), std::end(LittleWords), word) == std::end(LittleWords);
    });
    if (words.empty()) words = all;
    words.resize(std::min(words.size(), MostWords));
    return words;
}

// --- What is near

std::multiset<std::string> PairsOf(const std::string& word) {
    const TextW wide = WideUtf8Lossy(" " + word.substr(0, LongestNear) + " ");
    std::multiset<std::string> pairs;
    for (std::size_t i = 0; i + 1 < wide.size(); ++i)
        pairs.insert(Utf8(ViewW(wide).substr(i, 2)));
    return pairs;
}

// 0 for words that share no two neighbouring characters, 1 for equal ones.
double Likeness(const std::string& one, const std::string& other) {
    const auto a = PairsOf(one);
    const auto b = PairsOf(other);
    std::vector<std::string> both;
    std::set_intersection(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(both));
    return 2.0 * static_cast<double>(both.size()) / static_cast<double>(a.size() + b.size());
}

double Nearness(const Searched& searched, const Words& words) {
    Words own = WordsOf(searched.id + " " + searched.titles);
    own.insert(own.end(), searched.keys.begin(), searched.keys.end());
    double sum = 0;
    for (const std::string& word : words) {
        double best = 0;
        for (const std::string& each : own)
            best = std::max(best, Likeness(word, each));
        sum += best;
    }
    return sum;
}

// --- The search

std::vector<Scored> InOrder(std::vector<Scored> scored) {
    std::stable_sort(scored.begin(), scored.end(), [](const Scored& a, const Scored& b) {
        return a.words != b.words ? a.words > b.words : a.score > b.score;
    });
    return scored;
}

Found FoundIn(const std::vector<Scored>& scored) {
    Found found;
    for (const Scored& each : scored) {
        found.entries.push_back(each.entry);
        if (each.words == scored[0].words && each.score == scored[0].score) ++found.equals;
    }
    return found;
}

template <class Score> std::vector<Scored> ScoredEntries(Score score) {
    std::vector<Scored> scored;
    for (const Searched& searched : AllSearched())
        if (const Scored each = score(searched); each.words > 0) scored.push_back(each);
    return InOrder(std::move(scored));
}

Found FindPasted(const std::string& text) {
    const std::string pasted = Tight(text);
    return FoundIn(ScoredEntries([&pasted](const Searched& searched) {
        const std::size_t score = searched.ScoreOfPasted(pasted);
        return Scored{searched.entry, score > 0 ? 1U : 0U, static_cast<double>(score)};
    }));
}

Found FindWords(const Words& words) {
    auto scored = ScoredEntries([&words](const Searched& searched) { return ScoreOfWords(searched, words); });
    while (!scored.empty() &&
           (scored.back().words < scored.front().words || 2 * scored.back().score < scored.front().score))
        scored.pop_back();
    return FoundIn(scored);
}

// A key of several words.
Found FindKey(const std::string& key) {
    return FoundIn(ScoredEntries([&key](const Searched& searched) {
        return Scored{searched.entry, searched.HasKey(key) ? 1U : 0U, 1};
    }));
}

// "#000B", as it stands in the lines of the trace, of the list of words and of registers.
bool HasAddress(const std::string& text) {
    constexpr std::size_t digits = 4;
    for (std::size_t at = text.find('#'); at != std::string::npos; at = text.find('#', at + 1)) {
        const ViewA behind = ViewA(text).substr(at + 1, digits);
        if (behind.size() == digits && std::all_of(behind.begin(), behind.end(), IsHexDigit<char>)) return true;
    }
    return false;
}

// A line of the trace or of the list of words, or the place of a stop: its instruction; without one what such lines
// say.
Found FindInstruction(const std::string& text) {
    std::string capitals = text;
    std::replace_if(
        capitals.begin(), capitals.end(), [](char c) { return !IsUpper(c); }, ' ');
    for (const std::string& word : WordsOf(capitals))
        if (FindOpcode<char>(ViewA(word), true) != nullptr) return FindWords({Folded(word)});
    return HasAddress(text) ? FindWords({PrintedLines}) : Found();
}

Found FindNear(const Words& words) {
    auto scored = ScoredEntries([&words](const Searched& searched) {
        return Scored{searched.entry, 1, Nearness(searched, words)};
    });
    scored.resize(std::min(scored.size(), MostNear));
    Found found = FoundIn(scored);
    found.equals = 0;
    return found;
}

} // namespace

Found Find(std::string_view text) {
    const std::string body = WithoutHeads(text);
    const Words words = Asked(Folded(body));
    Found found = FindPasted(body);
    if (found.equals == 0 && words.size() > 1) found = FindKey(Tight(body));
    if (found.equals == 0) found = FindWords(words);
    if (found.equals == 0) found = FindWords({Tight(body)});
    if (found.equals == 0) found = FindInstruction(body);
    if (found.equals == 0) found = FindNear(words);
    return found;
}

} // namespace tolvane::explain
