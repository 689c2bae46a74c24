#include "Book.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <sstream>

namespace tolvane {

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

namespace {

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
        for (std::size_t p = 0; p < PipelineNames.size(); ++p)
            if (name == PipelineNames[p]) pipelines |= 1U << p;
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

Book Parse(const std::filesystem::path& path) {
    Book book{path, {}, {}};
    std::optional<Case> head;
    Strings rule;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line); book.text.push_back(line)) {
        if (line.starts_with("# ")) {
            if (rule.size() == 2) rule.clear();
            rule.push_back(line.substr(2));
        }
        const bool isHead = line.starts_with(":: ") || line.starts_with("== ");
        if (isHead || line.empty() || line.starts_with("# ")) head.reset();
        if (isHead) head = HeadOf(line);
        if (!head) continue;
        const bool alone = !head->frame.empty();
        if (alone ? !isHead && !WithoutBlanksBehind(line.substr(0, FindMark(line, 0))).empty() : isHead) {
            book.cases.push_back(*head);
            book.cases.back().rule = rule;
            book.cases.back().begin = book.text.size();
        }
        if (isHead) continue;
        ParseLine(book.cases.back(), line);
        book.cases.back().end = book.text.size() + 1;
    }
    return book;
}

} // namespace

std::vector<Book> ReadBooks(const std::filesystem::path& folder) {
    std::vector<Book> books;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".book") books.push_back(Parse(entry.path()));
    std::sort(books.begin(), books.end(), [](const Book& a, const Book& b) { return a.path < b.path; });
    return books;
}

int LineInFrame(const Case& c) {
    return static_cast<int>(std::find(c.frame.begin(), c.frame.end(), "*") - c.frame.begin());
}

Strings SourceOf(const Case& c) {
    Strings source;
    for (const std::string& line : c.frame.empty() ? c.source : c.frame)
        for (const std::string& part : Split(Unescaped(line == "*" ? c.source.at(0) : line) + "\n", '\n'))
            source.push_back(part);
    return source;
}

} // namespace tolvane
