#pragma once
// The entries that explain a diagnostic, or a fault that no diagnostic leads out of, in both languages. Examples are
// assembled and run here, so that what is shown is what is said.

#include "Book.h"
#include "explain/Explanations.h"

#include <map>
#include <set>

namespace tolvane {

// The parts, one behind the other.
template <class... Parts> std::string Cat(const Parts&... parts) {
    std::string text;
    ((text += parts), ...);
    return text;
}

// A text in Japanese and in English, as the languages are numbered.
using Pair = std::array<std::string, 2>;

// A part of an entry. A source or an output is verbatim; `marked` are the lines of a source that matter.
struct Piece {
    enum class Kind { Text, Source, Verbatim };
    Kind kind = Kind::Text;
    Pair heading; // empty without one
    Pair text;
    std::set<int> marked = {};
    bool sound = false; // a source without a fault
};
struct Entry {
    explain::Kind kind = explain::Kind::Diagnostic;
    Strings rows;   // "LinesMsg.NoRet": those that say it; of a diagnostic its own
    std::string id; // the row's name, or a word
    Pair title;
    Pair severity;
    std::string sample; // the line of the example
    std::string keys;   // words beside the title under which it is found
    Pair subject;
    int place = 0; // among all
    std::vector<Piece> pieces;
};

// A heading of the index, and what rows.txt tells of the rows below it.
struct Subject {
    std::string name;
    Pair title;
};
struct Notes {
    int place = 0; // in the file
    std::size_t subject = 0;
    std::string keys;
    Pair rule;            // instead of the book's; empty for that
    std::string shown;    // the first line of the case to show; empty for the best
    Strings faulty;       // a program with the fault, to show instead of a case
    Strings sound;        // a program without it
    std::set<int> marked; // its lines that matter
};
struct Guide {
    std::vector<Subject> subjects;
    std::map<std::string, Notes> notes; // by the names of rows and opcodes
};
// Reads rows.txt; a comment at its head tells its form.
Guide ReadGuide(const std::filesystem::path& file);

// An entry for each row that the books' cases raise. What cannot be shown as the guide wants it is told in `wrong`.
std::vector<Entry> EntriesOfBooks(const std::vector<Book>& books, const Guide& guide, Strings& wrong);
// The entries of a file of faults; a comment at its head tells its form.
std::vector<Entry> EntriesOfFaults(const std::filesystem::path& file, const Guide& guide);
// An entry for each opcode.
std::vector<Entry> EntriesOfOpcodes(const Guide& guide);

} // namespace tolvane
