// Writes the explanations of the diagnostics: a page in each language, explain.en.html and explain.ja.html, and
// Explanations.cpp, the same as plain text for `tolvane-run --explain`.
//
//   tolvane-pages ROOT FOLDER     ROOT: the folder of the project; FOLDER: where the three files go
//
// Fails if a row that a source can cause has no example. The others are listed with their reason.

#include "Assemble.h"
#include "Entries.h"
#include "PageWords.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <set>

namespace tolvane {

namespace {

namespace fs = std::filesystem;

// --- The check

// The names before the tab of each line; "RunMsg.*" stands for a whole catalogue.
std::set<std::string> Listed(const fs::path& file) {
    std::set<std::string> names;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);)
        if (!line.starts_with('#')) names.insert(line.substr(0, line.find('\t')));
    return names;
}

// Rows without an entry that no list names, and names of lists that have an entry.
Strings Faults(const std::vector<Entry>& entries, const fs::path& root) {
    std::set<std::string> listed = Listed(root / "pages/unexplained.txt");
    listed.merge(Listed(root / "tests/unreached.txt"));
    Strings faults;
    for (const Msg* row : AllRows()) {
        const std::string name = NameOf(*row);
        const auto says = [&name](const Entry& entry) { return std::ranges::find(entry.rows, name) != entry.rows.end(); };
        const bool explained = std::ranges::any_of(entries, says);
        const bool shown = std::ranges::find(entries, name, &Entry::id) != entries.end();
        const bool excepted = listed.contains(name);
        if (!explained && !excepted && !listed.contains(name.substr(0, name.find('.')) + ".*"))
            faults.push_back(name + " has no example: add a case to tests/books, or a reason to pages/unexplained.txt");
        if (shown && excepted) faults.push_back(name + " has an example and is no longer excepted");
    }
    return faults;
}

// Entries that the notes do not place, and notes of which no entry is made.
Strings WithoutPlace(const std::vector<Entry>& entries, const Guide& guide) {
    Strings faults;
    for (const Entry& entry : entries)
        if (!guide.notes.contains(entry.id)) faults.push_back(entry.id + " has no place in pages/rows.txt");
    for (const auto& [name, notes] : guide.notes)
        if (std::ranges::find(entries, name, &Entry::id) == entries.end())
            faults.push_back(name + " of pages/rows.txt has no entry");
    return faults;
}

// --- Plain text

std::string Indented(const std::string& text, bool numbered) {
    std::string out;
    int number = 0;
    for (const std::string& line : Split(text, '\n')) {
        ++number;
        const std::string head =
            numbered ? Cat(number < 10 ? "   " : "  ", std::to_string(number), "  ") : std::string("    ");
        out += line.empty() ? "\n" : Cat(head, line, "\n");
    }
    while (out.ends_with("\n\n"))
        out.pop_back();
    return out;
}

std::string PlainText(const Entry& entry, std::size_t language) {
    std::string text = entry.severity[language] + ": " + entry.title[language] + "\n";
    for (const Piece& piece : entry.pieces) {
        const std::string& body = piece.text[language];
        if (body.empty()) continue;
        text += "\n";
        if (!piece.heading[language].empty()) text += piece.heading[language] + ":\n";
        if (piece.kind == Piece::Kind::Text)
            text += body + (body.ends_with('\n') ? "" : "\n");
        else
            text += Indented(body, piece.kind == Piece::Kind::Source);
    }
    return text;
}

std::string Literal(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c == '\n' ? "\\n\"\n    \"" : c == '\t' ? "\\t" : std::string(1, c);
    }
    return out + "\"";
}

std::string Literals(const std::string& japanese, const std::string& english) {
    return "{" + Literal(japanese) + ",\n    " + Literal(english) + "}";
}

std::string Explanations(const std::vector<Entry>& entries) {
    constexpr const char* kinds[] = {"Diagnostic", "Fault", "Opcode"};
    std::string text = "// Written by tolvane-pages.\n#include \"explain/Explanations.h\"\n\n#include "
                       "\"AllCatalogues.h\"\n\nnamespace tolvane::explain {\n";
    std::string all;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& entry = entries[i];
        std::string rows;
        for (const std::string& row : entry.rows)
            rows += "&" + row + ", ";
        const std::string name = "rows" + std::to_string(i);
        if (!rows.empty()) text += Cat("static constexpr const Msg* ", name, "[] = {", rows, "};\n");
        all += Cat("   {Kind::", kinds[static_cast<int>(entry.kind)], ", ", Literal(entry.id), ", ",
                   rows.empty() ? "{}" : name, ", ", Literal(entry.keys), ",\n   ",
                   Literals(entry.subject[0], entry.subject[1]), ",\n   ", Literals(entry.title[0], entry.title[1]),
                   ",\n   ", Literals(PlainText(entry, 0), PlainText(entry, 1)), "},\n");
    }
    return Cat(text, "static constexpr Explanation all[] = {\n", all,
               "};\nconstinit const std::span<const Explanation> Explanations = all;\n}\n");
}

// --- HTML

constexpr const char* Style = R"(
:root { color-scheme: light dark; --line: #8886; --code: #8882; --bad: #d0342c; }
body { font: 1rem/1.55 system-ui, sans-serif; max-width: 48rem; margin: 0 auto; padding: 0 1rem 4rem;
  overflow-wrap: anywhere; }
h1 { font-size: 1.5rem; } h2 { font-size: 1.25rem; margin-top: 2.5rem; } h3 { font-size: 1.05rem; margin: .2rem 0; }
pre { background: var(--code); padding: .6rem .8rem; border-radius: .3rem; white-space: pre-wrap; margin: .2rem 0 .8rem;
  font: .875rem/1.45 ui-monospace, monospace; tab-size: 8; }
pre.source { counter-reset: line; }
pre i { outline: 1px dotted var(--bad); }
pre.source span { display: block; padding-left: 1.9rem; min-height: 1.45em; }
pre.source span::before { counter-increment: line; content: counter(line); float: left; margin-left: -1.9rem;
  width: 1.2rem; text-align: right; opacity: .6; }
pre.source span.faulty { box-shadow: inset 3px 0 var(--bad); font-weight: bold; }
article { border-top: 1px solid var(--line); padding-top: .8rem; margin-top: 1.6rem; }
.kind, .label { font-size: .85rem; opacity: .75; margin: .6rem 0 .1rem; }
nav ul { padding-left: 1.1rem; columns: 20rem; column-gap: 2.5rem; } nav li { margin: .15rem 0; break-inside: avoid; }
)";

std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text)
        out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '"' ? "&quot;" : std::string(1, c);
    return out;
}

// A line of a source, with full-width blanks in a frame of their own.
std::string Code(const std::string& line) {
    constexpr std::string_view blank = "　";
    std::string out = Escaped(line);
    for (std::size_t at = 0; (at = out.find(blank, at)) != std::string::npos; at += blank.size() + 7)
        out.replace(at, blank.size(), "<i>" + std::string(blank) + "</i>");
    return out;
}

std::string Html(const Piece& piece, std::size_t language) {
    std::string html;
    if (piece.text[language].empty()) return html;
    if (!piece.heading[language].empty()) html += "<p class=\"label\">" + Escaped(piece.heading[language]) + "</p>\n";
    const std::string& body = piece.text[language];
    if (piece.kind == Piece::Kind::Verbatim) {
        const std::size_t end = body.find_last_not_of('\n') + 1;
        return html + "<pre>" + Escaped(body.substr(0, end)) + "</pre>\n";
    }
    const bool source = piece.kind == Piece::Kind::Source;
    if (source) html += "<pre class=\"source\">";
    int number = 0;
    for (const std::string& line : Split(body, '\n'))
        if (source)
            html += (number++ == piece.marked ? "<span class=\"faulty\">" : "<span>") + Code(line) + "</span>";
        else
            html += "<p>" + Escaped(line) + "</p>\n";
    return html + (source ? "</pre>\n" : "");
}

std::string Page(const std::vector<Entry>& entries, std::size_t language) {
    const auto word = [&](const words::Word& each) { return Escaped(each[language]); };
    std::string index;
    std::string bodies;
    std::string subject;
    for (const Entry& entry : entries) {
        const std::string id = Escaped(entry.id);
        const std::string title = Escaped(entry.title[language]);
        if (entry.subject[language] != subject)
            index += Cat(subject.empty() ? "" : "</ul>\n", "<h2>", Escaped(entry.subject[language]), "</h2>\n<ul>\n");
        subject = entry.subject[language];
        index += Cat("<li><a href=\"#", id, "\">", title, "</a></li>\n");
        bodies += Cat("<article id=\"", id, "\">\n<p class=\"kind\">", Escaped(entry.severity[language]), "</p>\n<h3>",
                      title, "</h3>\n");
        for (const Piece& piece : entry.pieces)
            bodies += Html(piece, language);
        bodies += Cat("<p class=\"kind\"><a href=\"#top\">", word(words::Top), "</a></p>\n</article>\n");
    }
    return Cat("<!DOCTYPE html>\n<html lang=\"", language == 0 ? "ja" : "en",
               "\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>",
               word(words::Title), "</title>\n<style>", Style, "</style>\n</head>\n<body id=\"top\">\n<h1>",
               word(words::Title), "</h1>\n<p>", word(words::Intro), "</p>\n<nav>\n", index,
               "</ul>\n</nav>\n<main>\n", bodies, "</main>\n</body>\n</html>\n");
}

int Make(const fs::path& root, const fs::path& folder) {
    const Guide guide = ReadGuide(root / "pages/rows.txt");
    Strings faults;
    std::vector<Entry> entries = EntriesOfBooks(ReadBooks(root / "tests/books"), guide, faults);
    std::ranges::move(EntriesOfFaults(root / "pages/faults.txt", guide), std::back_inserter(entries));
    std::ranges::move(EntriesOfOpcodes(guide), std::back_inserter(entries));
    std::ranges::move(Faults(entries, root), std::back_inserter(faults));
    std::ranges::move(WithoutPlace(entries, guide), std::back_inserter(faults));
    for (const std::string& fault : faults)
        std::cerr << fault << "\n";
    if (!faults.empty()) return 1;
    std::ranges::stable_sort(entries, {}, &Entry::place);
    const auto write = [&folder](const char* name, const std::string& text) {
        std::ofstream out(folder / name, std::ios::binary);
        return static_cast<bool>(out << text << std::flush);
    };
    const bool written = write("explain.ja.html", Page(entries, 0)) && write("explain.en.html", Page(entries, 1)) &&
                         write("Explanations.cpp", Explanations(entries));
    if (!written) std::cerr << folder.string() << " cannot be written\n";
    return written ? 0 : 1;
}

} // namespace

} // namespace tolvane

int main(int argc, char** argv) {
    try {
        return argc == 3 ? tolvane::Make(argv[1], argv[2]) : 2;
    } catch (const std::exception& fault) {
        std::cerr << fault.what() << "\n";
        return 1;
    }
}
