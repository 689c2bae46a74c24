// The listing of the image. Every source line appears, with the address and the words that it has; a literal stands
// behind the END of its program, with the line that uses it.
//
//   #0000: 1210 0012               3  LOOP    LAD   GR1, 18

#include "run/Listing.h"

#include "machine/Tcomet2.h"
#include "run/Errors.h"
#include "run/LineText.h"

#include <algorithm>
#include <string>

namespace tolvane::run {

namespace {

constexpr int WordsOfRow = 4;
constexpr std::size_t WordsWidth = 29;
constexpr std::size_t NrWidth = 5;

void PrintRow(const std::string& words, int line, const std::string& text) {
    std::string row = words;
    if (line >= 0) {
        const std::string nr = std::to_string(line + 1);
        row.resize(WordsWidth, ' ');
        row.append(nr.size() < NrWidth ? NrWidth - nr.size() : 0, ' ');
        row += nr + "  " + text;
    }
    row.erase(row.find_last_not_of(" \t") + 1);
    WriteErr(row + "\n");
}

// Words of one line, those behind the first row in rows of their own.
void PrintWords(int first, int end, int line, const std::string& text) {
    for (int row = first; row < end; row += WordsOfRow) {
        std::string words = Hex(row) + ":";
        for (int a = row; a < std::min(row + WordsOfRow, end); ++a)
            words += " " + Hex(comet2->Memory[static_cast<std::size_t>(a)]).substr(1);
        PrintRow(words, row == first ? line : -1, text);
    }
}

// The first address behind `first` that another line or a literal owns.
int EndOfRun(int first, int line) {
    const int literal = line < 0 ? -1 : TextOfLine(line).literalAddress;
    int end = first + 1;
    while (end < comet2->ReservedWords && LineOfAddress(end) == line && end != literal)
        ++end;
    return end;
}

} // namespace

void ListWords() {
    int next = 0; // the first line that has not appeared
    const auto printLinesBefore = [&next](int line) {
        for (; next < line; ++next)
            PrintRow("", next, TextOfLine(next).source);
    };
    const auto printToEnd = [&next, &printLinesBefore] {
        int end = next;
        while (end < LineCount() && !TextOfLine(end).ends)
            ++end;
        printLinesBefore(std::min(end + 1, LineCount()));
    };
    bool amongLiterals = false;
    for (int address = 0; address < comet2->ReservedWords;) {
        const int line = LineOfAddress(address);
        const int end = EndOfRun(address, line);
        const bool isLiteral = line >= 0 && TextOfLine(line).literalAddress == address;
        if (isLiteral && !amongLiterals) printToEnd();
        amongLiterals = isLiteral;
        if (isLiteral || line < next) {
            PrintWords(address, end, line, line < 0 ? "" : TextOfLine(line).code);
        } else {
            printLinesBefore(line);
            PrintWords(address, end, line, TextOfLine(line).source);
            next = line + 1;
        }
        address = end;
    }
    printLinesBefore(LineCount());
}

} // namespace tolvane::run
