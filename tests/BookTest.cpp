// The case books: tests/books/*.book. README.md tells their form.

#include "BookTest.h"

#include "Assemble.h"
#include "Book.h"
#include "messages/Pipeline.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;
constexpr auto& Names = PipelineNames;
constexpr std::size_t TellingColumn = 32;
constexpr std::size_t Width = 140;

std::vector<Book> AllBooks() {
    return ReadBooks(fs::path(TOLVANE_TESTS) / "books");
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

std::string ToldDiagnostics(const Case& c, const std::vector<MsgRec>& said) {
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
            // Records know no language but for that of a store, so that one pipeline of either analysis shows it.
            if (p + 2 < Names.size() || c.run) continue;
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
    if (rewrite)
        for (const Book& book : AllBooks())
            Rewrite(book);
    for (const Book& book : AllBooks())
        for (const Case& c : book.cases) {
            const int line = static_cast<int>(c.begin) + 1;
            testing::RegisterTest(book.path.stem().string().c_str(), std::to_string(line).c_str(), nullptr, nullptr,
                                  book.path.string().c_str(), line,
                                  [c]() -> testing::Test* { return new BookCase(c); });
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
