// The case books: tests/books/*.book. README.md tells their form.

#include "BookTest.h"

#include "Assemble.h"
#include "messages/Pipeline.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

constexpr std::array<const char*, 7> Names = {"NWW", "NwW", "NaW", "WP", "NA", "AP", "NH"};
constexpr unsigned EveryPipeline = 0x7F;
constexpr std::size_t TellingColumn = 32;
constexpr std::size_t Width = 140;

// What is told of a case in some of the pipelines: "--> E AddressMsg.HexTooLong" or "== 1210 0000".
struct Telling {
    unsigned pipelines = EveryPipeline;
    std::string text;
};
struct Case {
    Strings frame;         // of a line alone, which stands where the frame has "*"; empty for a whole source
    bool run = false;      // what is good is run, and told by its registers and flags instead of its words
    std::size_t begin = 0; // its lines in the book
    std::size_t end = 0;
    Strings source; // as the book has it
    std::vector<Telling> tellings;
};
struct Book {
    fs::path path;
    Strings text;
    std::vector<Case> cases;
};

// --- Reading a book

Strings Split(const std::string& text, char separator) {
    Strings parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(part);
    return parts;
}

std::string WithoutBlanksBehind(const std::string& text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

// \t a tab, \s a blank, \n the end of a line, \\ a backslash, \rep{250}{x} a text many times.
std::string Unescaped(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
        } else if (text.compare(i, 5, "\\rep{") == 0) {
            const std::size_t part = text.find("}{", i) + 2;
            const std::size_t end = text.find('}', part);
            for (int n = std::stoi(text.substr(i + 5)); n > 0; --n)
                out += Unescaped(text.substr(part, end - part));
            i = end;
        } else {
            const char next = text.at(++i);
            out += next == 't' ? '\t' : next == 's' ? ' ' : next == 'n' ? '\n' : next;
        }
    }
    return out;
}

// The place of the next "-->" or "==" between blanks; the end of the text if there is none.
std::size_t FindMark(const std::string& text, std::size_t from) {
    const std::size_t mark = std::min(text.find(" --> ", from), text.find(" == ", from));
    return mark == std::string::npos ? text.size() : mark + 1;
}

// "--> [NH] E LinesMsg.NoRet 1": the mark, the pipelines, the words.
Telling TellingOf(const std::string& text) {
    const std::size_t tag = text.find(' ') + 1;
    if (text[tag] != '[') return {EveryPipeline, text};
    const std::size_t end = text.find(']');
    unsigned pipelines = 0;
    for (const std::string& name : Split(text.substr(tag + 1, end - tag - 1), ' '))
        for (std::size_t p = 0; p < Names.size(); ++p)
            if (name == Names[p]) pipelines |= 1U << p;
    if (text.compare(tag, 5, "[not ") == 0) pipelines ^= EveryPipeline;
    return {pipelines, text.substr(0, tag) + text.substr(end + 2)};
}

void ParseLine(Case& c, const std::string& line) {
    std::size_t mark = FindMark(line, 0);
    const std::string source = WithoutBlanksBehind(line.substr(0, mark));
    if (!source.empty()) c.source.push_back(source);
    while (mark < line.size()) {
        const std::size_t next = FindMark(line, mark);
        c.tellings.push_back(TellingOf(WithoutBlanksBehind(line.substr(mark, next - mark))));
        mark = next;
    }
}

// ":: MAIN START/*/ END" heads lines alone, "== words" a whole source; in either, "run: " may come first.
Case HeadOf(const std::string& line) {
    Case head;
    head.run = line.compare(3, 5, "run: ") == 0;
    if (line[0] == ':') head.frame = Split(line.substr(head.run ? 8 : 3), '/');
    return head;
}

Book Parse(const fs::path& path) {
    Book book{path, {}, {}};
    std::optional<Case> head;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line); book.text.push_back(line)) {
        const bool isHead = line.starts_with(":: ") || line.starts_with("== ");
        if (isHead || line.empty() || line.starts_with("# ")) head.reset();
        if (isHead) head = HeadOf(line);
        if (!head) continue;
        const bool alone = !head->frame.empty();
        if (alone ? !isHead && !WithoutBlanksBehind(line.substr(0, FindMark(line, 0))).empty() : isHead) {
            book.cases.push_back(*head);
            book.cases.back().begin = book.text.size();
        }
        if (isHead) continue;
        ParseLine(book.cases.back(), line);
        book.cases.back().end = book.text.size() + 1;
    }
    return book;
}

std::vector<Book> AllBooks() {
    std::vector<Book> books;
    for (const auto& entry : fs::directory_iterator(fs::path(TOLVANE_TESTS) / "books"))
        if (entry.path().extension() == ".book") books.push_back(Parse(entry.path()));
    return books;
}

// --- What happened, in the words of a book

std::string Told(const KeptArg& arg) {
    if (arg.row != nullptr) return NameOf(*arg.row);
    if (arg.isNumber) return std::to_string(arg.number);
    std::string text = "\"";
    for (std::size_t i = 0, end = 0; i < arg.text.size(); i = end) {
        end = std::min(ViewA(arg.text).find_first_not_of(arg.text[i], i), arg.text.size());
        if (end - i < 10) end = i + 1;
        const std::string c(1, arg.text[i]);
        text += end - i == 1 ? c : "\\rep{" + std::to_string(end - i) + "}{" + c + "}";
    }
    return text + "\"";
}

std::string Told(const MsgRec& record) {
    std::string text(1, (record.counted ? "EWNM" : "ewnm")[static_cast<int>(record.severity)]);
    text += " " + NameOf(*record.row);
    if (record.place.constant > 0) text += " k" + std::to_string(record.place.constant + 1);
    for (const KeptArg& arg : record.args)
        text += " " + Told(arg);
    return text;
}

std::string Hex(int word) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(word) & 0xFFFFU);
    return digits;
}

// Equal words in a row as "0000x500".
std::string ToldWords(const std::vector<int>& words, std::size_t from) {
    std::string text;
    for (std::size_t i = from, end = from; i < words.size(); i = end) {
        while (end < words.size() && words[end] == words[i])
            ++end;
        if (end - i < 4) end = i + 1;
        text += " " + Hex(words[i]);
        if (end - i > 1) text += "x" + std::to_string(end - i);
    }
    return text;
}

std::string ToldRun(const Assembly& assembly) {
    std::string text;
    for (std::size_t i = 0; i < assembly.registers.size(); ++i)
        if (assembly.registers[i] != 0) text += " GR" + std::to_string(i) + "=" + Hex(assembly.registers[i]);
    return text + assembly.flags;
}

// What is told of a case in one pipeline: the diagnostics, the result.
using Found = std::array<std::string, 2>;

int LineInFrame(const Case& c) {
    return static_cast<int>(std::find(c.frame.begin(), c.frame.end(), "*") - c.frame.begin());
}

std::string ToldDiagnostics(const Case& c, const std::deque<MsgRec>& said) {
    std::string text;
    for (std::size_t i = 0, end = 0; i < said.size(); i = end) {
        const int line = said[i].place.line;
        const std::string words = Told(said[i]);
        while (end < said.size() && Told(said[end]) == words && said[end].place.line == line)
            ++end;
        text += text.empty() ? "--> " : " + ";
        if (line < 0)
            text += "- ";
        else if (c.frame.empty() || line != LineInFrame(c))
            text += "@" + std::to_string(line + 1) + " ";
        text += words;
        if (end - i > 1) text += " x" + std::to_string(end - i);
    }
    return text;
}

Strings SourceOf(const Case& c) {
    Strings source;
    for (const std::string& line : c.frame.empty() ? c.source : c.frame)
        for (const std::string& part : Split(Unescaped(line == "*" ? c.source.at(0) : line) + "\n", '\n'))
            source.push_back(part);
    return source;
}

Found Happened(const Case& c, const char* pipeline, int language) {
    const Assembly a = Assemble(SourceOf(c), *FindPipeline(pipeline), language, c.run ? Then::Run : Then::Nothing);
    EXPECT_TRUE(a.good || a.counters[0] > 0) << pipeline << " stops without an Error:\n" << a.printed;
    EXPECT_TRUE(a.composes) << "a diagnostic of " << pipeline << " has no text in a language";
    const std::string said = ToldDiagnostics(c, a.said);
    if (!a.good) return {said, ""};
    const int from = c.frame.empty() ? 0 : a.addresses[static_cast<std::size_t>(LineInFrame(c))];
    const std::string result = c.run ? ToldRun(a) : ToldWords(a.words, static_cast<std::size_t>(from));
    return {said, "==" + (result.empty() ? " nothing" : result)};
}

// --- Comparing

Found Expected(const Case& c, std::size_t pipeline) {
    Found expected;
    for (const Telling& telling : c.tellings)
        if ((telling.pipelines >> pipeline & 1U) != 0) expected[telling.text[0] == '='] += telling.text;
    return expected;
}

class BookCase : public testing::Test {
public:
    explicit BookCase(const Case& told) : c(told) {}
    void TestBody() override {
        for (std::size_t p = 0; p < Names.size(); ++p) {
            const Found found = Happened(c, Names[p], 1);
            EXPECT_EQ(Expected(c, p), found) << Names[p] << ": " << c.source[0];
            // Records know no language, so that one pipeline of either analysis shows it.
            if (p + 2 < Names.size()) continue;
            EXPECT_EQ(found, Happened(c, Names[p], 0)) << Names[p] << " says other rows in Japanese";
        }
    }

private:
    Case c;
};

// --- Rewriting

std::string TagOf(unsigned pipelines) {
    std::string in;
    std::string out;
    for (std::size_t p = 0; p < Names.size(); ++p)
        ((pipelines >> p & 1U) != 0 ? in : out) += std::string(" ") + Names[p];
    if (out.empty()) return " ";
    return out.size() + 3 < in.size() ? " [not" + out + "] " : " [" + in.substr(1) + "] ";
}

// The tellings of all pipelines, the results first.
Strings Joined(const std::vector<Found>& all) {
    Strings tellings;
    for (const std::size_t kind : {1U, 0U})
        for (std::size_t p = 0; p < all.size(); ++p) {
            const std::string& text = all[p][kind];
            unsigned same = 0;
            for (std::size_t q = 0; q < all.size(); ++q)
                same |= (all[q][kind] == text ? 1U : 0U) << q;
            const std::size_t words = text.find(' ');
            const bool first = (same & ((1U << p) - 1)) == 0;
            if (first && !text.empty())
                tellings.push_back(text.substr(0, words) + TagOf(same) + text.substr(words + 1));
        }
    return tellings;
}

void Rewrite(const Book& book) {
    std::ofstream out(book.path);
    std::size_t written = 0;
    const auto copyTo = [&](std::size_t end) {
        while (written < end)
            out << book.text[written++] << "\n";
    };
    for (const Case& c : book.cases) {
        copyTo(c.begin + (c.frame.empty() ? 1 : 0));
        std::vector<Found> all;
        for (const char* pipeline : Names)
            all.push_back(Happened(c, pipeline, 1));
        for (std::size_t i = 0; i < c.source.size() && c.frame.empty(); ++i)
            out << c.source[i] << "\n";
        std::string line = c.frame.empty() ? "" : c.source[0];
        for (const std::string& telling : Joined(all)) {
            line.resize(std::max(line.size() + 1, TellingColumn), ' ');
            if (line.size() > TellingColumn && line.size() + telling.size() > Width) {
                out << WithoutBlanksBehind(line) << "\n";
                line.assign(TellingColumn, ' ');
            }
            line += telling;
        }
        out << line << "\n";
        written = c.end;
    }
    copyTo(book.text.size());
}

} // namespace

void RegisterBooks(bool rewrite) {
    if (rewrite) std::ranges::for_each(AllBooks(), Rewrite);
    for (const Book& book : AllBooks())
        for (const Case& c : book.cases) {
            const int line = static_cast<int>(c.begin) + 1;
            testing::RegisterTest(book.path.stem().c_str(), std::to_string(line).c_str(), nullptr, nullptr,
                                  book.path.c_str(), line, [c]() -> testing::Test* { return new BookCase(c); });
        }
}

std::set<std::string> RowsOfBooks() {
    std::set<std::string> rows;
    for (const Book& book : AllBooks())
        for (const Case& c : book.cases)
            for (const Telling& telling : c.tellings)
                for (const std::string& word : Split(telling.text, ' '))
                    rows.insert(word);
    return rows;
}

} // namespace tolvane::tests
