// Writes the explanations of the diagnostics: a page in each language, explain.en.html and explain.ja.html, and
// Explanations.cpp, the same as plain text for `tolvane-run --explain`.
//
//   tolvane-pages ROOT FOLDER     ROOT: the folder of the project; FOLDER: where the three files go
//
// Fails if a row that a source can cause has no example. The others are listed with their reason.

#include "Assemble.h"
#include "Entries.h"
#include "PageWords.h"
#include "text/Convert.h"

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

bool Says(const Entry& entry, const std::string& row) {
    return std::find(entry.rows.begin(), entry.rows.end(), row) != entry.rows.end();
}

bool HasEntry(const std::vector<Entry>& entries, const std::string& id) {
    return std::any_of(entries.begin(), entries.end(), [&id](const Entry& entry) { return entry.id == id; });
}

// Rows without an entry that no list names, and names of lists that have an entry.
Strings Faults(const std::vector<Entry>& entries, const fs::path& root) {
    std::set<std::string> listed = Listed(root / "pages/unexplained.txt");
    listed.merge(Listed(root / "tests/unreached.txt"));
    Strings faults;
    for (const Msg* row : AllRows()) {
        const std::string name = NameOf(*row);
        const auto says = [&name](const Entry& entry) { return Says(entry, name); };
        const bool explained = std::any_of(entries.begin(), entries.end(), says);
        const bool shown = HasEntry(entries, name);
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
        if (!HasEntry(entries, name))
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

// Whether a text of the page in one language is in the other: a few messages are the same in both.
bool IsForeign(const std::string& text, std::size_t language) {
    const TextW wide = WideUtf8Lossy(text);
    const auto isJapanese = [](char16_t unit) {
        return (u'ぁ' <= unit && unit <= u'ヿ') || (u'一' <= unit && unit <= u'龠');
    };
    return std::any_of(wide.begin(), wide.end(), isJapanese) == (language == 1);
}
std::string LanguageOf(const std::string& text, std::size_t language) {
    return !IsForeign(text, language) ? "" : language == 0 ? " lang=\"en\"" : " lang=\"ja\"";
}

std::string Html(const Piece& piece, std::size_t language) {
    std::string html;
    if (piece.text[language].empty()) return html;
    if (!piece.heading[language].empty()) html += "<p class=\"label\">" + Escaped(piece.heading[language]) + "</p>\n";
    const std::string& body = piece.text[language];
    if (piece.kind == Piece::Kind::Verbatim) {
        const std::size_t end = body.find_last_not_of('\n') + 1;
        return Cat(html, "<pre", language == 0 ? LanguageOf(body, 0) : "", ">", Escaped(body.substr(0, end)),
                   "</pre>\n");
    }
    const bool source = piece.kind == Piece::Kind::Source;
    const char* marked = piece.sound ? "<span class=\"good\">" : "<span class=\"faulty\">";
    if (source) html += "<pre class=\"source\">";
    int number = 0;
    for (const std::string& line : Split(body, '\n'))
        if (source)
            html += (piece.marked.contains(number++) ? marked : "<span>") + Code(line) + "</span>";
        else
            html += Cat("<p", LanguageOf(line, language), ">", Escaped(line), "</p>\n");
    return html + (source ? "</pre>\n" : "");
}

// --- What the search of a page needs

std::string Json(const std::string& text) {
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += c == '\n' ? "\\n" : c == '\t' ? "\\t" : c == '\1' ? "\\u0001" : c == '<' ? "\\u003C" : std::string(1, c);
    }
    return out + "\"";
}

// A row's text without its head, with \1 for each tag.
std::string WithGaps(std::string_view text) {
    std::string out;
    if (!text.ends_with("{body}")) text = WithoutHead(text);
    while (!text.empty()) {
        std::string_view line = TakeLine(text);
        while (!line.empty()) {
            const std::size_t tag = std::min(line.find('{'), line.size());
            out += line.substr(0, tag);
            out += '\1';
            line.remove_prefix(std::min(std::min(line.find('}', tag), line.size()) + 1, line.size()));
        }
        out += '\n';
    }
    return out;
}

std::string Searched(const Entry& entry) {
    std::set<std::string> texts;
    for (const Msg* row : AllRows())
        if (Says(entry, NameOf(*row)))
            for (const Wording wording : {WordingNWW, WordingWP, WordingNA, WordingAP, WordingNH})
                for (const int language : {0, 1})
                    texts.insert(Json(WithGaps(row->For(language, wording))));
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : ",") + text;
    return Cat("[", Json(entry.id), ",", Json(entry.title[0] + " " + entry.title[1]), ",", Json(entry.keys), ",[", all,
               "]]");
}

std::string Data(const std::vector<Entry>& entries, std::size_t language) {
    std::string all;
    for (const Entry& entry : entries)
        all += (all.empty() ? "\n" : ",\n") + Searched(entry);
    return Cat("{\"fit\":", Json(words::Fit[language]), ",\"near\":", Json(words::Near[language]), ",\"entries\":[",
               all, "]}");
}

// --- The page

std::string Contents(const Entry& entry, std::size_t language) {
    std::string html = Cat("<details id=\"", Escaped(entry.id), "\">\n<summary><h3",
                           LanguageOf(entry.title[language], language), ">", Escaped(entry.title[language]),
                           "</h3></summary>\n<p class=\"kind\">", Escaped(entry.severity[language]), "</p>\n");
    for (const Piece& piece : entry.pieces)
        html += Html(piece, language);
    return html + "</details>\n";
}

std::string FileText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string Page(const std::vector<Entry>& entries, std::size_t language, const fs::path& folder) {
    const auto word = [&](const words::Word& each) { return Escaped(each[language]); };
    std::string index;
    std::string bodies;
    std::string subject;
    int number = 0;
    for (const Entry& entry : entries) {
        if (entry.subject[language] != subject) {
            subject = entry.subject[language];
            const std::string id = "subject" + std::to_string(++number);
            index += Cat("<li><a href=\"#", id, "\">", Escaped(subject), "</a></li>\n");
            bodies += Cat("<h2 id=\"", id, "\">", Escaped(subject), "</h2>\n");
        }
        bodies += Contents(entry, language);
    }
    return Cat("<!DOCTYPE html>\n<html lang=\"", language == 0 ? "ja" : "en",
               "\">\n<head>\n<meta charset=\"utf-8\">\n"
               "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>",
               word(words::Title), "</title>\n<style>\n", FileText(folder / "page.css"),
               "</style>\n</head>\n<body>\n"
               "<header>\n<h1>",
               word(words::Title), "</h1>\n<p>", word(words::Intro),
               "</p>\n</header>\n"
               "<form role=\"search\">\n<label for=\"search\">",
               word(words::Search),
               "</label>\n"
               "<input id=\"search\" type=\"search\" autocomplete=\"off\" spellcheck=\"false\">\n"
               "<p id=\"count\" role=\"status\"></p>\n<ul id=\"results\"></ul>\n</form>\n<nav aria-label=\"",
               word(words::Index), "\">\n<ul>\n", index, "</ul>\n</nav>\n<main>\n", bodies,
               "</main>\n<script type=\"application/json\" id=\"data\">", Data(entries, language),
               "</script>\n<script>\n", FileText(folder / "page.js"), "</script>\n</body>\n</html>\n");
}

template <class Item> void Append(const std::vector<Item>& items, std::vector<Item>& all) {
    all.insert(all.end(), items.begin(), items.end());
}

int Make(const fs::path& root, const fs::path& folder) {
    const Guide guide = ReadGuide(root / "pages/rows.txt");
    Strings faults;
    std::vector<Entry> entries = EntriesOfBooks(ReadBooks(root / "tests/books"), guide, faults);
    Append(EntriesOfFaults(root / "pages/faults.txt", guide), entries);
    Append(EntriesOfOpcodes(guide), entries);
    Append(Faults(entries, root), faults);
    Append(WithoutPlace(entries, guide), faults);
    for (const std::string& fault : faults)
        std::cerr << fault << "\n";
    if (!faults.empty()) return 1;
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.place < b.place; });
    const auto write = [&folder](const char* name, const std::string& text) {
        std::ofstream out(folder / name, std::ios::binary);
        return static_cast<bool>(out << text << std::flush);
    };
    const bool written = write("explain.ja.html", Page(entries, 0, root / "pages")) &&
                         write("explain.en.html", Page(entries, 1, root / "pages")) &&
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
