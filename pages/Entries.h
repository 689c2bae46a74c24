#pragma once
// The entries that explain a diagnostic, or a fault that no diagnostic leads out of, in both languages. Examples are
// assembled and run here, so that what is shown is what is said.

#include "Book.h"
#include "messages/Msg.h"

namespace tolvane {

// The parts, one behind the other.
template <class... Parts> std::string Cat(const Parts&... parts) {
    std::string text;
    ((text += parts), ...);
    return text;
}

// A text in Japanese and in English, as the languages are numbered.
using Pair = std::array<std::string, 2>;

// A part of an entry. A source or an output is verbatim; `marked` is the faulty line of a source.
struct Piece {
    enum class Kind { Text, Source, Verbatim };
    Kind kind = Kind::Text;
    Pair heading; // empty without one
    Pair text;
    int marked = -1;
};
struct Entry {
    const Msg* row = nullptr; // null for a fault without a diagnostic
    std::string id;           // the row's name, or a word
    Pair title;
    Pair severity;
    std::string sample; // the line of the example
    std::string keys;   // words beside the title under which it is found
    std::vector<Piece> pieces;
};

// An entry for each row that the books' cases raise, in the order of the catalogues.
std::vector<Entry> EntriesOfBooks(const std::vector<Book>& books);
// The entries of a file of faults; a comment at its head tells its form.
std::vector<Entry> EntriesOfFaults(const std::filesystem::path& file);

} // namespace tolvane
