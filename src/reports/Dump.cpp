// The dump: head, registers, memory rows, stack rows. Two forms of the memory table, by pipeline:
//
//   DspRegMry70   #0000:    0:  LABEL: 'c':#0000:    0:    +0: 0000 0000 0000 0000: 0:LABEL LD GR1, A
//   DspRegMry68   the label stands in the place of the decimal address, and no column is wide for labels
//
// Widths count characters of the record's own kind of text: units of wide text, bytes of narrow text.

#include "reports/Dump.h"

#include "platform/Console.h"
#include "platform/FileWriter.h"
#include "records/Records.h"
#include "records/TLabelSpace.h"
#include "reports/ReportsMsgs.h"
#include "text/Convert.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <string_view>
#include <vector>

namespace tolvane {

namespace {

constexpr int RowsBehindImage = 10;
constexpr const char* CellHead = " Char  Hex    UD     SD       Binary Code\n";
constexpr std::size_t LongLabel68 = 12; // from here on the columns of DspRegMry68 widen
constexpr std::size_t PieceSize = std::size_t{64} * 1024;

// The text of a dump, which goes on in pieces, so that its size does not matter.
class Output {
public:
    explicit Output(const DumpPiece& takePiece) : take(takePiece) { text.reserve(PieceSize + 1024); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    std::string text; // what has not been passed on

    void EndRow() {
        text += '\n';
        if (text.size() >= PieceSize) Pass();
    }

    // Passes on what is left; at the end, too.
    void Pass() {
        take(text);
        text.clear();
    }

private:
    const DumpPiece& take;
};

std::string Rule(int pairs) {
    std::string rule = "//--";
    while (pairs-- > 0)
        rule += "--";
    return rule + "\n";
}

// UTF-8 text and the number of characters that a column takes it for.
struct Label {
    std::string text;
    std::size_t length = 0;
};

void Append(std::string& out, ViewW text) {
    AppendUtf8(out, text);
}
void Append(std::string& out, ViewA text) {
    if (IsAscii(text))
        out += text;
    else
        out += Utf8From932(text);
}

void Pad(std::string& out, std::size_t width, std::size_t length) {
    if (length < width) out.append(width - length, ' ');
}

void Right(std::string& out, std::string_view text, std::size_t width) {
    Pad(out, width, text.size());
    out += text;
}

void Right(std::string& out, const Label& label, std::size_t width) {
    Pad(out, width, label.length);
    out += label.text;
}

void Right(std::string& out, int number, std::size_t width) {
    std::array<char, 12> digits;
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    Right(out, std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())), width);
}

void Left(std::string& out, std::string_view text, std::size_t length, std::size_t width) {
    out += text;
    Pad(out, width, length);
}

constexpr std::string_view HexDigits = "0123456789ABCDEF";
constexpr std::string_view BinaryDigits = "0000000100100011010001010110011110001001101010111100110111101111";

// Writes the decimal digits of a number so that they end in front of `end`. The first of them.
char* PutDecimal(char* end, unsigned n) {
    do
        *--end = static_cast<char>('0' + n % 10);
    while ((n /= 10) != 0);
    return end;
}

// "#0000:    0:", or without the decimal form.
void DspAddress(std::string& out, int address, bool withDecimal) {
    std::array<char, 12> row = {'#', '0', '0', '0', '0', ':', ' ', ' ', ' ', ' ', ' ', ':'};
    const auto a = static_cast<unsigned>(address);
    for (unsigned i = 0; i < 4; ++i)
        row[1 + i] = HexDigits[a >> (12 - 4 * i) & 0xF];
    if (withDecimal) PutDecimal(row.data() + 11, a);
    out.append(row.data(), withDecimal ? 12 : 6);
}

// The picture of one word: character, hexadecimal, unsigned, signed, binary. All have one width, so that a row is a
// template with its digits put in.
void DspWordCell(std::string& out, int cell) {
    constexpr std::string_view Form = "    :#0000:     :      : 0000 0000 0000 0000:";
    constexpr std::size_t Char = 1, Hex = 6, UnsignedEnd = 16, SignedEnd = 23, Binary = 25;
    const auto w = static_cast<unsigned>(cell & 0xFFFF);
    std::array<char, Form.size()> row;
    std::copy(Form.begin(), Form.end(), row.begin());
    if (32 <= w && w <= 126) {
        row[Char] = row[Char + 2] = '\'';
        row[Char + 1] = static_cast<char>(w);
    }
    for (unsigned i = 0; i < 4; ++i) {
        const unsigned nibble = w >> (12 - 4 * i) & 0xF;
        row[Hex + i] = HexDigits[nibble];
        std::copy_n(&BinaryDigits[4 * nibble], 4, &row[Binary + 5 * i]);
    }
    PutDecimal(row.data() + UnsignedEnd, w);
    const bool negative = w > 0x7FFF;
    *(PutDecimal(row.data() + SignedEnd, negative ? 0x10000 - w : w) - 1) = negative ? '-' : '+';
    out.append(row.data(), row.size());
}

// One dump over the records of one kind of text.
template <class Ch> class Dumper {
public:
    Dumper(const Tcomet2& m, Output& output)
        : machine(m), sink(output), out(output.text), form(modeFlags->Pipe->dump), lines(b->Src<Ch>()),
          reserved(machine.ReservedWords), rows(std::clamp(reserved + RowsBehindImage, 0, AddressCount)),
          labelOf(static_cast<std::size_t>(rows), 0), labels(1) {
        CollectLabels();
        runColWidth = std::to_string(machine.MaxRunCount).size() + 1;
    }

    void Registers() const;
    void MemoryHead() const;
    void MemoryRows();
    void StackRows() const;

private:
    const Tcomet2& machine;
    Output& sink;
    std::string& out;
    const Dump form;
    const SrcLines<Ch>& lines;
    const int reserved;
    const int rows;
    std::vector<std::int32_t> labelOf; // the index of its label, by address
    std::vector<Label> labels;         // the first one stands for no label
    std::size_t maxLabelLen = 0;
    std::size_t runColWidth = 2;
    int shownLine = -1; // the line of the last row that showed text

    const Label& LabelAt(int address) const {
        return labels[static_cast<std::size_t>(labelOf[static_cast<std::size_t>(address)])];
    }
    void CollectLabels();
    void AddLabel(int address, View<Ch> name);
    void AddressColumns(int address, const Label& label) const;
    void SourceText(int address);
};

// Every address gets the labels of its lines, in line order, joined by one blank.
template <class Ch> void Dumper<Ch>::AddLabel(int address, View<Ch> name) {
    if (name.empty() || address < 0 || address >= rows) return;
    std::int32_t& index = labelOf[static_cast<std::size_t>(address)];
    if (index == 0) {
        index = static_cast<std::int32_t>(labels.size());
        labels.emplace_back();
    }
    Label& label = labels[static_cast<std::size_t>(index)];
    if (label.length > 0) {
        label.text += ' ';
        ++label.length;
    }
    Append(label.text, name);
    label.length += name.size();
}

template <class Ch> void Dumper<Ch>::CollectLabels() {
    if (!modeFlags->Pipe->dumpsLabelSpace) {
        for (const SrcData<Ch>& line : lines)
            AddLabel(line.AbAdr, line.strLabel);
    } else if constexpr (!IsWide<Ch>) {
        for (const TLabelRow& row : labelSpace->Rows)
            AddLabel(row.LabelAdr, row.LabelName);
    }
    maxLabelLen = form == Dump::DspRegMry70 ? 5 : 8;
    for (int a = 0; a < std::min(reserved, rows); ++a)
        maxLabelLen = std::max(maxLabelLen, LabelAt(a).length);
}

template <class Ch> void Dumper<Ch>::Registers() const {
    out += std::string("     ") + CellHead;
    out += "   PR:";
    DspWordCell(out, machine.PR);
    out += '\n';
    for (std::size_t n = 0; n < machine.GR.size(); ++n) {
        out += "  GR" + std::to_string(n) + ":";
        DspWordCell(out, machine.GR[n]);
        out += '\n';
    }
    out += "Flags:    Fovf=" + std::to_string(machine.Fovf);
    out += ", Fsign=" + std::to_string(machine.Fsign) + "(";
    out += machine.Fsign == 0 ? "plus), " : machine.Fsign == 1 ? "minus), " : TextOf(ReportsMsg.BadFsign);
    out += "Fzero=" + std::to_string(machine.Fzero) + "(";
    out += machine.Fzero == 0 ? "non zero)." : machine.Fzero == 1 ? "zero)." : TextOf(ReportsMsg.BadFzero);
    out += "\n   SP:";
    DspWordCell(out, machine.SP);
    out += "\n\n";
}

template <class Ch> void Dumper<Ch>::MemoryHead() const {
    const bool is70 = form == Dump::DspRegMry70;
    out += is70 ? "//------------------------------------------------------------------------------------\n"
                : "//------------------------------------------------------------\n";
    out += "  Address   ";
    if (is70) {
        const std::size_t half = (maxLabelLen + 1) / 2;
        Right(out, "Lab", half + 2);
        Left(out, "el", 2, half - 2);
    } else if (maxLabelLen < LongLabel68) {
        Right(out, "Label", 5);
    } else {
        Right(out, "Label  ", maxLabelLen - 5);
    }
    out += CellHead;
}

template <class Ch> void Dumper<Ch>::MemoryRows() {
    const auto& programs = b->Prg<Ch>();
    const int lastEnd = programs.empty() ? -1 : programs.back().AbAdrAtEnd;
    for (int a = 0; a < rows; ++a) {
        const auto i = static_cast<std::size_t>(a);
        AddressColumns(a, LabelAt(a));
        DspWordCell(out, machine.Memory[i]);
        if (modeFlags->Pipe->dumpsRunCount) {
            Right(out, machine.RunCount[i], runColWidth);
            out += ':';
        }
        if (modeFlags->Pipe->buildsLineOfWord) SourceText(a);
        sink.EndRow();
        if (a == reserved - 1 && a == lastEnd) out += Rule(35);
    }
}

template <class Ch> void Dumper<Ch>::AddressColumns(int address, const Label& label) const {
    const bool is70 = form == Dump::DspRegMry70;
    DspAddress(out, address, is70 || label.length == 0);
    if (is70) {
        Right(out, label, maxLabelLen + 1);
    } else if (label.length > 0) {
        Right(out, label, maxLabelLen < LongLabel68 ? 11 : maxLabelLen + 1);
    } else {
        Pad(out, maxLabelLen < LongLabel68 ? 6 : maxLabelLen - 4, 0);
    }
    out += ':';
}

// A line shows its text at its first word, and once more, as such, at the literal that it uses.
template <class Ch> void Dumper<Ch>::SourceText(int address) {
    const int nr = machine.LineOfWord[static_cast<std::size_t>(address)];
    if (nr < 0 || nr == shownLine || static_cast<std::size_t>(nr) >= lines.size()) return;
    const SrcData<Ch>& line = lines[static_cast<std::size_t>(nr)];
    if (line.strOp.empty()) return;
    shownLine = nr;
    const bool isLiteral = line.lite >= 0 && address > line.AbAdr;
    if (isLiteral) out += "Literal:(";
    Append(out, line.strLabel);
    if (!isLiteral) Pad(out, 2, line.strLabel.size());
    if (!isLiteral || !line.strLabel.empty()) out += ' ';
    Append(out, line.strOp);
    out += ' ';
    Append(out, line.strOprndCom);
    if (isLiteral) out += ')';
}

// From the bottom of the stack up to the fourth empty cell in a row.
template <class Ch> void Dumper<Ch>::StackRows() const {
    int passed = 0;
    for (int zeros = 0; zeros < 4 && passed < StackWords; ++passed)
        zeros = machine.Stack[static_cast<std::size_t>(passed)] == 0 ? zeros + 1 : 0;
    for (int i = passed; i >= 0; --i) {
        AddressColumns(StackBottom - i, Label());
        DspWordCell(out, machine.Stack[static_cast<std::size_t>(i)]);
        sink.EndRow();
    }
}

template <class Ch> void Write(const Tcomet2& machine, Output& output) {
    Dumper<Ch> dumper(machine, output);
    dumper.Registers();
    dumper.MemoryHead();
    dumper.MemoryRows();
    output.text += TextOf(ReportsMsg.Boundary);
    output.text += TextOf(ReportsMsg.StackHead, {machine.SP});
    dumper.StackRows();
    output.text += Rule(55);
}

} // namespace

std::string DumpDate(const platform::LocalTime& now) {
    static constexpr std::string_view Days = "SunMonTueWedThuFriSat";
    static constexpr std::string_view Months = "JanFebMarAprMayJunJulAugSepOctNovDec";
    const int hour = now.hour == 0 ? 12 : now.hour;
    if (modeFlags->Lang == 0) {
        return TextOf(ReportsMsg.JapaneseDate, {now.year, now.month, now.day, hour, now.minute, now.second});
    }
    char standard[64];
    std::snprintf(standard, sizeof standard, "%.3s %.3s%3d %.2d:%.2d:%.2d %d\n",
                  Days.data() + 3 * std::clamp(now.weekDay, 0, 6), Months.data() + 3 * std::clamp(now.month - 1, 0, 11),
                  now.day, hour, now.minute, now.second, now.year);
    return standard;
}

void WriteDump(const Tcomet2& machine, const std::string& fileName, const DumpPiece& take) {
    Output output(take);
    std::string& out = output.text;
    out += TextOf(ReportsMsg.Font);
    out += Rule(43);
    out += TextOf(ReportsMsg.Source, {Utf8Arg{po->LastAssembledSrcFilePath}, Utf8Arg{DumpDate(platform::Now())}});
    out += TextOf(ReportsMsg.DumpFile, {Utf8Arg{fileName}});
    out += "//-------------------------------------------------\n";
    if (modeFlags->Pipe->text == TextKind::Wide)
        Write<char16_t>(machine, output);
    else
        Write<char>(machine, output);
    output.Pass();
}

std::string DumpText(const Tcomet2& machine, const std::string& fileName) {
    std::string text;
    WriteDump(machine, fileName, [&text](std::string_view piece) { text += piece; });
    return text;
}

std::optional<std::string> WriteDumpFile(const Tcomet2& machine, const std::string& path, const std::string& fileName) {
    platform::FileWriter file(path);
    std::string bytes;
    file.Write(console::UsersMark());
    if (file.IsGood())
        WriteDump(machine, fileName, [&](std::string_view piece) { file.Write(console::InUsersCode(piece, bytes)); });
    return file.Close();
}

int DspRegMry(const Tcomet2& machine, const std::string& fileName) {
    const auto failure = WriteDumpFile(machine, fileName, fileName);
    if (!failure) return 0;
    Tell(Severity::Error, NoLine, ReportsMsg.DoesNotOpen, {Utf8Arg{fileName}, Utf8Arg{*failure}});
    return 1;
}

} // namespace tolvane
