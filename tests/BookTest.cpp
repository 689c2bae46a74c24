// The case books: tests/books/*.book. README.md tells their form.
#include "BookTest.h"

#include "Assemble.h"
#include "messages/Pipeline.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const std::array<const char*, 7> PipelineNames = {"NWW", "NwW", "NaW", "WP", "NA", "AP", "NH"};
constexpr unsigned EveryPipeline = 0x7F;
constexpr std::size_t TellingColumn = 32;
constexpr std::size_t Width = 140;

// What is told of a line, or of a whole case, in some of the pipelines: "--> E AddressMsg.HexTooLong" or "== 1210
// 0000".
struct Telling {
    unsigned pipelines = EveryPipeline;
    std::string text;
};
struct BookLine {
    std::string shown; // the source as the book has it
    std::vector<Telling> tellings;
};
struct Case {
    Strings frame;         // of a line alone, which stands where the frame has "*"; empty for a whole source
    bool run = false;      // what is good is run, and told by registers and flags instead of by its words
    std::size_t begin = 0; // its lines in the book
    std::size_t end = 0;
    std::vector<BookLine> lines; // the first is no line, but the case as a whole
};
struct Book {
    fs::path path;
    Strings text;
    std::vector<Case> cases;
};

// --- Reading a book

std::string Trimmed(const std::string& text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

Strings Split(const std::string& text, char separator) {
    Strings parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(part);
    return parts;
}

// \t a tab, \s a blank, \n the end of a line, \\ a backslash, \rep{250}{x} a text many times.
std::string Unescaped(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 5, "\\rep{") == 0) {
            const std::size_t middle = text.find("}{", i);
            const std::size_t end = text.find('}', middle + 2);
            for (int n = std::stoi(text.substr(i + 5)); n > 0; --n)
                out += Unescaped(text.substr(middle + 2, end - middle - 2));
            i = end;
        } else if (text[i] == '\\' && i + 1 < text.size()) {
            const char next = text[++i];
            out += next == 't' ? '\t' : next == 's' ? ' ' : next == 'n' ? '\n' : next;
        } else {
            out += text[i];
        }
    }
    return out;
}

// The place of the next "--> " or "== " behind a blank, in tellings outside of quotation marks; or the end.
std::size_t FindMark(const std::string& text, std::size_t from, bool inTellings) {
    bool quoted = false;
    for (std::size_t i = from; i < text.size(); ++i) {
        if (inTellings && text[i] == '\\') ++i;
        if (inTellings && text[i] == '"') quoted = !quoted;
        if (quoted || text[i] != ' ') continue;
        if (text.compare(i + 1, 4, "--> ") == 0 || text.compare(i + 1, 3, "== ") == 0) return i + 1;
    }
    return text.size();
}

unsigned PipelinesOf(const std::string& tag) {
    unsigned pipelines = 0;
    for (const std::string& name : Split(tag, ' '))
        for (std::size_t p = 0; p < PipelineNames.size(); ++p)
            if (name == PipelineNames[p]) pipelines |= 1U << p;
    return tag.starts_with("not ") ? EveryPipeline & ~pipelines : pipelines;
}

// "--> [NH] E LinesMsg.NoRet 1": the mark, the pipelines, the words.
Telling TellingOf(const std::string& text) {
    const std::size_t words = text.find(' ') + 1;
    if (text[words] != '[') return {EveryPipeline, text};
    const std::size_t end = text.find(']');
    return {PipelinesOf(text.substr(words + 1, end - words - 1)), text.substr(0, words) + text.substr(end + 2)};
}

void ParseTellings(Case& c, const std::string& line, std::size_t mark) {
    while (mark < line.size()) {
        const std::size_t next = FindMark(line, mark, true);
        const Telling telling = TellingOf(Trimmed(line.substr(mark, next - mark)));
        const bool ofTheCase = c.frame.empty() && (telling.text.starts_with("==") || telling.text.starts_with("--> -"));
        (ofTheCase ? c.lines.front() : c.lines.back()).tellings.push_back(telling);
        mark = next;
    }
}

Strings ReadText(const fs::path& path) {
    Strings text;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("  ") && Trimmed(line).starts_with("+ "))
            text.back() += " " + Trimmed(line);
        else
            text.push_back(line);
    }
    return text;
}

// ":: MAIN START/*/ END" heads lines alone, "== words" a whole source; behind either, "run: ".
Case HeadOf(const std::string& line) {
    Case head;
    head.run = line.compare(3, 5, "run: ") == 0;
    if (line[0] == ':') head.frame = Split(line.substr(head.run ? 8 : 3), '/');
    head.lines.resize(1);
    return head;
}

Book Parse(const fs::path& path) {
    Book book{path, ReadText(path), {}};
    std::optional<Case> head;
    for (std::size_t i = 0; i < book.text.size(); ++i) {
        const std::string& line = book.text[i];
        const bool isHead = line.starts_with(":: ") || line.starts_with("== ");
        if (isHead || line.empty() || line.starts_with("# ")) head.reset();
        if (isHead) head = HeadOf(line);
        if (!head) continue;
        const std::size_t mark = FindMark(line, 0, false);
        const std::string shown = isHead ? "" : line.substr(0, line.find_last_not_of(' ', mark - 1) + 1);
        if (isHead ? line[0] == '=' : !head->frame.empty() && !shown.empty()) {
            book.cases.push_back(*head);
            book.cases.back().begin = i;
        }
        if (isHead) continue;
        book.cases.back().end = i + 1;
        if (!shown.empty()) book.cases.back().lines.push_back({shown, {}});
        ParseTellings(book.cases.back(), line, mark);
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

std::string Told(const Arg& arg) {
    if (arg.row != nullptr) return NameOf(*arg.row);
    if (arg.isNumber) return std::to_string(arg.number);
    std::string quoted = "\"";
    for (std::size_t i = 0, end = 0; i < arg.text.size(); i = end) {
        end = std::min(arg.text.find_first_not_of(arg.text[i], i), arg.text.size());
        if (end - i < 10) end = i + 1;
        const char c = arg.text[i];
        const std::string shown = c == '"' || c == '\\' ? std::string("\\") + c : std::string(1, c);
        quoted += end - i == 1 ? shown : "\\rep{" + std::to_string(end - i) + "}{" + shown + "}";
    }
    return quoted + "\"";
}

std::string Told(const MsgRec& record) {
    std::string text(1, (record.counted ? "EWNM" : "ewnm")[static_cast<int>(record.severity)]);
    text += " " + NameOf(*record.row);
    if (record.place.constant > 0) text += " k" + std::to_string(record.place.constant + 1);
    for (const Arg& arg : record.args)
        text += " " + Told(arg);
    return text;
}

std::string Hex(int word) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(word) & 0xFFFFU);
    return digits;
}

// Four digits each, equal ones in a row as "0000x500".
std::string Told(const std::vector<int>& words, std::size_t from) {
    std::string text = from < words.size() ? "==" : "== nothing";
    for (std::size_t i = from; i < words.size();) {
        std::size_t end = i;
        while (end < words.size() && words[end] == words[i])
            ++end;
        if (end - i < 4) end = i + 1;
        text += " " + Hex(words[i]);
        if (end - i > 1) text += "x" + std::to_string(end - i);
        i = end;
    }
    return text;
}

std::string ToldRun(const Assembly& assembly) {
    std::string text = "==";
    for (std::size_t i = 0; i < assembly.registers.size(); ++i)
        if (assembly.registers[i] != 0) text += " GR" + std::to_string(i) + "=" + Hex(assembly.registers[i]);
    text += assembly.flags;
    return text == "==" ? "== nothing" : text;
}

// The tellings of each line, diagnostics first.
using Found = std::vector<std::array<std::string, 2>>;

std::size_t PlaceOfLine(const Case& c) {
    return static_cast<std::size_t>(std::find(c.frame.begin(), c.frame.end(), "*") - c.frame.begin());
}

void AddDiagnostics(const Case& c, const Assembly& assembly, Found& found) {
    const auto placeOf = [&](const MsgRec& record) -> std::size_t { // 0 for the case as a whole
        if (!c.frame.empty()) return 1;
        const auto line = static_cast<std::size_t>(record.place.line + 1);
        return line < c.lines.size() ? line : 0;
    };
    const auto behind = [&](const MsgRec& x, const MsgRec& y) { return placeOf(x) - 1 > placeOf(y) - 1; };
    const auto& said = assembly.said;
    const bool inOrder = std::adjacent_find(said.begin(), said.end(), behind) == said.end();
    for (std::size_t i = 0, end = 0; i < said.size(); i = end) {
        const std::string text = Told(said[i]);
        while (end < said.size() && Told(said[end]) == text && said[end].place.line == said[i].place.line)
            ++end;
        const std::size_t place = placeOf(said[i]);
        const int line = said[i].place.line;
        const bool elsewhere = c.frame.empty() ? place == 0 : line != static_cast<int>(PlaceOfLine(c));
        std::string& told = found[place][0];
        told += told.empty() ? "--> " : " + ";
        if (line < 0)
            told += "- ";
        else if (elsewhere)
            told += (place == 0 ? "-" : "") + std::string("@") + std::to_string(line + 1) + " ";
        if (!inOrder) told += "#" + std::to_string(i + 1) + " ";
        told += text;
        if (end - i > 1) told += " x" + std::to_string(end - i);
    }
}

Strings SourceOf(const Case& c) {
    Strings shown = c.frame;
    if (!shown.empty()) shown.at(PlaceOfLine(c)) = c.lines.at(1).shown;
    for (std::size_t i = 1; i < c.lines.size() && c.frame.empty(); ++i)
        shown.push_back(c.lines[i].shown);
    Strings source;
    for (const std::string& line : shown)
        for (const std::string& part : Split(Unescaped(line) + "\n", '\n'))
            source.push_back(part);
    return source;
}

Found Happened(const Case& c, const char* pipeline, int language) {
    const Assembly assembly =
        Assemble(SourceOf(c), *FindPipeline(pipeline), language, c.run ? Then::Run : Then::Nothing);
    Found found(c.lines.size());
    AddDiagnostics(c, assembly, found);
    if (assembly.good) {
        const std::size_t from = c.frame.empty() ? 0 : static_cast<std::size_t>(assembly.addresses[PlaceOfLine(c)]);
        found[c.frame.empty() ? 0 : 1][1] = c.run ? ToldRun(assembly) : Told(assembly.words, from);
    }
    EXPECT_TRUE(assembly.good || assembly.counters[0] > 0) << pipeline << " stops without an Error";
    EXPECT_TRUE(assembly.composes) << "no text for a diagnostic in language " << language << " of " << pipeline;
    return found;
}

// --- Comparing

std::string Shown(const Case& c, const Found& found) {
    std::string text;
    for (std::size_t i = 0; i < found.size(); ++i)
        text += c.lines[i].shown + "  " + found[i][0] + "  " + found[i][1] + "\n";
    return text;
}

Found Expected(const Case& c, std::size_t pipeline) {
    Found expected(c.lines.size());
    for (std::size_t i = 0; i < c.lines.size(); ++i)
        for (const Telling& telling : c.lines[i].tellings)
            if ((telling.pipelines >> pipeline & 1U) != 0) expected[i][telling.text[0] == '='] += telling.text;
    return expected;
}

class BookCase : public testing::Test {
public:
    explicit BookCase(const Case& shown) : c(shown) {}
    void TestBody() override {
        for (std::size_t p = 0; p < PipelineNames.size(); ++p) {
            const Found found = Happened(c, PipelineNames[p], 1);
            EXPECT_EQ(Shown(c, Expected(c, p)), Shown(c, found)) << PipelineNames[p];
            EXPECT_EQ(found, Happened(c, PipelineNames[p], 0)) << PipelineNames[p] << " says other rows in Japanese";
        }
    }

private:
    Case c;
};

// --- Rewriting

std::string TagOf(unsigned pipelines) {
    std::string in;
    std::string out;
    for (std::size_t p = 0; p < PipelineNames.size(); ++p)
        ((pipelines >> p & 1U) != 0 ? in : out) += std::string(" ") + PipelineNames[p];
    if (out.empty()) return "";
    return (out.size() + 3 < in.size() ? "[not" + out : "[" + in.substr(1)) + "] ";
}

Strings TellingsOf(const std::vector<Found>& all, std::size_t line) {
    Strings tellings;
    for (const std::size_t kind : {1U, 0U}) {
        std::vector<std::pair<std::string, unsigned>> seen;
        for (std::size_t p = 0; p < all.size(); ++p) {
            const std::string& text = all[p][line][kind];
            const auto known = std::find_if(seen.begin(), seen.end(), [&](const auto& s) { return s.first == text; });
            if (known != seen.end())
                known->second |= 1U << p;
            else
                seen.emplace_back(text, 1U << p);
        }
        for (const auto& [text, pipelines] : seen)
            if (!text.empty()) tellings.push_back(text.substr(0, 4 - kind) + TagOf(pipelines) + text.substr(4 - kind));
    }
    return tellings;
}

// The line and its tellings, broken between tellings and in front of "+".
void Append(Strings& text, std::string line, const Strings& tellings) {
    for (std::string telling : tellings) {
        line.resize(std::max(line.size() + 1, TellingColumn), ' ');
        if (line.size() + telling.size() > Width && !Trimmed(line).empty() && line.size() > TellingColumn) {
            text.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
            line = std::string(TellingColumn, ' ');
        }
        while (line.size() + telling.size() > Width && telling.find(" + ") != std::string::npos) {
            const std::size_t room = Width > line.size() ? Width - line.size() : 0;
            const std::size_t last = telling.rfind(" + ", room);
            const std::size_t plus = last != std::string::npos ? last : telling.find(" + ");
            text.push_back(line + telling.substr(0, plus));
            line = std::string(TellingColumn, ' ') + "  ";
            telling.erase(0, plus + 1);
            if (telling.find(" + ", 1) == std::string::npos) break;
        }
        line += telling;
    }
    if (!line.empty()) text.push_back(line);
}

void Rewrite(Book book) {
    for (auto c = book.cases.rbegin(); c != book.cases.rend(); ++c) {
        std::vector<Found> all;
        for (const char* pipeline : PipelineNames)
            all.push_back(Happened(*c, pipeline, 1));
        Strings text;
        if (c->frame.empty()) text.push_back(book.text[c->begin]);
        for (std::size_t i = 1; i < c->lines.size(); ++i)
            Append(text, c->lines[i].shown, TellingsOf(all, i));
        Append(text, "", TellingsOf(all, 0));
        const auto begin = book.text.begin();
        const auto at =
            book.text.erase(begin + static_cast<std::ptrdiff_t>(c->begin), begin + static_cast<std::ptrdiff_t>(c->end));
        book.text.insert(at, text.begin(), text.end());
    }
    std::ofstream out(book.path);
    for (const std::string& line : book.text)
        out << line << "\n";
}

} // namespace

void RegisterBooks(bool rewrite) {
    for (const Book& book : AllBooks()) {
        if (rewrite) Rewrite(book);
        const Book read = rewrite ? Parse(book.path) : book;
        for (const Case& c : read.cases) {
            testing::RegisterTest(book.path.stem().c_str(), std::to_string(c.begin + 1).c_str(), nullptr, nullptr,
                                  book.path.c_str(), static_cast<int>(c.begin + 1),
                                  [c]() -> testing::Test* { return new BookCase(c); });
        }
    }
}

std::set<std::string> RowsOfBooks() {
    std::set<std::string> rows;
    for (const Book& book : AllBooks())
        for (const Case& c : book.cases)
            for (const BookLine& line : c.lines)
                for (const Telling& telling : line.tellings)
                    for (const std::string& word : Split(telling.text, ' '))
                        rows.insert(word);
    return rows;
}

} // namespace tolvane::tests
