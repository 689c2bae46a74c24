// The listing of the image. Every source line appears, with the address and the words that it has; a literal stands
// behind the END of its program, with the line that uses it.
//
//   #0000: 1210 0012               3  LOOP    LAD   GR1, 18

#include "image/Listing.h"

#include "image/Disassembly.h"
#include "machine/Tcomet2.h"

#include <algorithm>
#include <string>
#include <utility>

namespace tolvane::image {

namespace {

constexpr int WordsOfRow = 4;
constexpr std::size_t WordsWidth = 29;
constexpr std::size_t NrWidth = 5;

class Rows {
public:
    explicit Rows(const LinkedImage& linkedImage) : image(linkedImage) {}

    std::string All() {
        bool amongLiterals = false;
        for (int address = 0; address < comet2->ReservedWords;) {
            const int line = image.LineOf(address);
            const int end = EndOfRun(address, line);
            const bool isLiteral = line >= 0 && image.TextOf(line).literalAddress == address;
            if (isLiteral && !amongLiterals) AddToEnd();
            amongLiterals = isLiteral;
            if (isLiteral || line < next) {
                AddWords(address, end, line, line < 0 ? "" : image.TextOf(line).code);
            } else {
                AddLinesBefore(line);
                AddWords(address, end, line, image.TextOf(line).source);
                next = line + 1;
            }
            address = end;
        }
        AddLinesBefore(image.LineCount());
        return std::move(rows);
    }

private:
    void AddRow(const std::string& words, int line, const std::string& text) {
        std::string row = words;
        if (line >= 0) {
            const std::string nr = std::to_string(line + 1);
            row.resize(WordsWidth, ' ');
            row.append(nr.size() < NrWidth ? NrWidth - nr.size() : 0, ' ');
            row += nr + "  " + text;
        }
        row.erase(row.find_last_not_of(" \t") + 1);
        rows += row + "\n";
    }

    // Words of one line, those behind the first row in rows of their own.
    void AddWords(int first, int end, int line, const std::string& text) {
        for (int row = first; row < end; row += WordsOfRow) {
            std::string words = Hex(row) + ":";
            for (int a = row; a < std::min(row + WordsOfRow, end); ++a)
                words += " " + Hex(comet2->Memory[static_cast<std::size_t>(a)]).substr(1);
            AddRow(words, row == first ? line : -1, text);
        }
    }

    void AddLinesBefore(int line) {
        for (; next < line; ++next)
            AddRow("", next, image.TextOf(next).source);
    }

    // The lines up to the END of the program, behind which its literals stand.
    void AddToEnd() {
        int end = next;
        while (end < image.LineCount() && !image.TextOf(end).ends)
            ++end;
        AddLinesBefore(std::min(end + 1, image.LineCount()));
    }

    // The first address behind `first` that another line or a literal owns.
    int EndOfRun(int first, int line) const {
        const int literal = line < 0 ? -1 : image.TextOf(line).literalAddress;
        int end = first + 1;
        while (end < comet2->ReservedWords && image.LineOf(end) == line && end != literal)
            ++end;
        return end;
    }

    const LinkedImage& image;
    int next = 0; // the first line that has not appeared
    std::string rows;
};

} // namespace

std::string ListedWords(const LinkedImage& image) {
    return Rows(image).All();
}

} // namespace tolvane::image
