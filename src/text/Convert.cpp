#include "text/Convert.h"

#include "text/Text.h"

#include <array>
#include <cstdint>

namespace tolvane {

namespace {

constexpr int Cells = 94;               // two-byte characters come in rows of 94, two rows to a lead byte
constexpr int EucRows = 94;             // the rows that EUC-JP can write
constexpr int LastRow = 120;            // of lead byte FC
constexpr int FirstNecSelectedRow = 89; // of lead bytes ED and EE: characters that have an IBM code as well
constexpr int LastNecSelectedRow = 92;
constexpr int FirstUserRow = 95;
constexpr int LastUserRow = 114;
constexpr char16_t FirstUserChar = 0xE000;
constexpr char16_t NotValid = 0x30FB;
constexpr char16_t Replacement = 0xFFFD;

constexpr unsigned Byte(char c) {
    return static_cast<unsigned char>(c);
}
constexpr char ToChar(unsigned byte) {
    return static_cast<char>(static_cast<unsigned char>(byte));
}

// A two-byte character by its place: the row from 1, the cell from 0. Row 0 is no place.
struct Place932 {
    int row = 0;
    int cell = 0;
};

Place932 PlaceOf(unsigned lead, unsigned trail) {
    if (trail < 0x40 || trail == 0x7F || trail > 0xFC) return {};
    const int pair = static_cast<int>(lead < 0xA0 ? lead - 0x81 : lead - 0xE0 + 31);
    if (trail >= 0x9F) return {2 * pair + 2, static_cast<int>(trail - 0x9F)};
    return {2 * pair + 1, static_cast<int>(trail - 0x40 - (trail > 0x7F ? 1 : 0))};
}

unsigned CodeOf(Place932 place) {
    const int pair = (place.row - 1) / 2;
    const int lead = pair < 31 ? 0x81 + pair : 0xE0 + pair - 31;
    const int trail = place.row % 2 == 0 ? 0x9F + place.cell : 0x40 + place.cell + (place.cell >= 0x3F ? 1 : 0);
    return static_cast<unsigned>(lead * 256 + trail);
}

struct Row932 {
    int row;
    const char16_t* characters;
};

constexpr Row932 Rows932[] = {
#include "text/Table932.inc"
};

struct BestFit {
    char16_t unit;
    char16_t twin;
};

// Characters without a code that are written as their twins: the Unicode forms that other systems give to the same
// characters of the set.
constexpr BestFit BestFits[] = {
    {0x301C, 0xFF5E}, // wave dash
    {0x2212, 0xFF0D}, // minus
    {0x2016, 0x2225}, // double vertical line
    {0x2014, 0x2015}, // em dash
    {0x00A2, 0xFFE0}, // cent
    {0x00A3, 0xFFE1}, // pound
    {0x00AC, 0xFFE2}, // not
};

// A single byte as a character; the bytes that no character was given stand for themselves.
char16_t WideOfByte(unsigned c) {
    if (0xA1 <= c && c <= 0xDF) return static_cast<char16_t>(0xFF61 + (c - 0xA1));
    if (0xFD <= c && c <= 0xFF) return static_cast<char16_t>(0xF8F1 + (c - 0xFD));
    return static_cast<char16_t>(c);
}

// Both directions, laid out for look-ups. A code of 0 means that a unit other than U+0000 has none.
class Tables {
public:
    Tables() {
        for (unsigned c = 0; c < 256; ++c)
            if (!IsLeadByte932(static_cast<unsigned char>(c))) SetCode(WideOfByte(c), c);
        for (const Row932& r : Rows932)
            if (!IsNecSelected(r.row)) SetRow(r);
        for (const Row932& r : Rows932)
            if (IsNecSelected(r.row)) SetRow(r);
        for (int row = FirstUserRow; row <= LastUserRow; ++row)
            for (int cell = 0; cell < Cells; ++cell)
                Set({row, cell}, static_cast<char16_t>(FirstUserChar + (row - FirstUserRow) * Cells + cell));
        for (const BestFit& fit : BestFits)
            SetCode(fit.unit, CodeOfUnit(fit.twin));
    }

    // The character at a place, 0 if there is none.
    char16_t At(Place932 place) const { return place.row == 0 ? u'\0' : wide[Index(place)]; }
    unsigned CodeOfUnit(char16_t unit) const { return codes[unit]; }

private:
    static bool IsNecSelected(int row) { return FirstNecSelectedRow <= row && row <= LastNecSelectedRow; }
    static std::size_t Index(Place932 place) { return static_cast<std::size_t>((place.row - 1) * Cells + place.cell); }
    void Set(Place932 place, char16_t unit) {
        wide[Index(place)] = unit;
        SetCode(unit, CodeOf(place));
    }
    void SetRow(const Row932& r) {
        for (int cell = 0; cell < Cells; ++cell)
            if (r.characters[cell] != u'_') Set({r.row, cell}, r.characters[cell]);
    }
    // Of two codes for one character the first is written, so the NEC-selected rows come last.
    void SetCode(char16_t unit, unsigned code) {
        if (codes[unit] == 0) codes[unit] = static_cast<std::uint16_t>(code);
    }

    std::array<char16_t, std::size_t{LastRow} * Cells> wide{};
    std::array<std::uint16_t, 65536> codes{};
};

const Tables& Table() {
    static const Tables table;
    return table;
}

bool IsLowSurrogate(char16_t unit) {
    return 0xDC00 <= unit && unit <= 0xDFFF;
}
bool IsPairAt(std::u16string_view wide, std::size_t i) {
    return IsHighSurrogate(wide[i]) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1]);
}

// The character of two bytes, 0 if there is none.
char16_t WideOfPair(char lead, char trail) {
    return Table().At(PlaceOf(Byte(lead), Byte(trail)));
}

// The place of the same character within the rows that EUC-JP can write, row 0 if there is none. A character of the IBM
// rows stands in another row as well.
Place932 EucPlaceOf(Place932 place) {
    const char16_t unit = Table().At(place);
    if (unit == 0) return {};
    if (place.row <= EucRows) return place;
    const unsigned code = Table().CodeOfUnit(unit);
    if (const Place932 written = PlaceOf(code >> 8, code & 0xFF); written.row <= EucRows) return written;
    for (int row = FirstNecSelectedRow; row <= LastNecSelectedRow; ++row)
        for (int cell = 0; cell < Cells; ++cell)
            if (Table().At({row, cell}) == unit) return {row, cell};
    return {};
}

void AppendCode(std::string& out, unsigned code) {
    if (code > 0xFF) out += ToChar(code >> 8);
    out += ToChar(code & 0xFF);
}

// Appends the characters of ASCII that stand at i, and gives the place behind them.
template <class To, class From>
std::size_t AppendAscii(std::basic_string<To>& out, std::basic_string_view<From> text, std::size_t i) {
    const std::basic_string_view<From> rest = text.substr(i);
    const std::size_t length = i == 0 && IsAscii(rest) ? rest.size() : AsciiLength(rest);
    const std::size_t had = out.size();
    out.resize(had + length);
    for (std::size_t k = 0; k < length; ++k)
        out[had + k] = static_cast<To>(text[i + k]);
    return i + length;
}

// Converts while the text is valid; what is not is given to `repair`, which says whether to go on.
template <class Repair> bool AppendWide(std::u16string& out, std::string_view utf8, Repair repair) {
    for (std::size_t i = AppendAscii(out, utf8, 0); i < utf8.size(); i = AppendAscii(out, utf8, i)) {
        const std::size_t length = Utf8Length(utf8, i);
        if (length == 0) {
            if (!repair(out)) return false;
            ++i;
            continue;
        }
        constexpr unsigned FirstByteMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
        char32_t c = Byte(utf8[i]) & FirstByteMask[length];
        for (std::size_t k = 1; k < length; ++k)
            c = (c << 6) | (Byte(utf8[i + k]) & 0x3F);
        if (c > 0xFFFF) {
            out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        } else {
            out += static_cast<char16_t>(c);
        }
        i += length;
    }
    return true;
}

void AppendChar(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += ToChar(c);
    } else if (c < 0x800) {
        out += ToChar(0xC0 | (c >> 6));
        out += ToChar(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += ToChar(0xE0 | (c >> 12));
        out += ToChar(0x80 | ((c >> 6) & 0x3F));
        out += ToChar(0x80 | (c & 0x3F));
    } else {
        out += ToChar(0xF0 | (c >> 18));
        out += ToChar(0x80 | ((c >> 12) & 0x3F));
        out += ToChar(0x80 | ((c >> 6) & 0x3F));
        out += ToChar(0x80 | (c & 0x3F));
    }
}

constexpr unsigned EucKana = 0x8E;          // a half-width kana follows
constexpr unsigned EucSupplementary = 0x8F; // two bytes of the supplementary set follow
constexpr unsigned EucBase = 0xA1;          // row 1, and cell 0

bool IsEucByte(unsigned c) {
    return EucBase <= c && c <= 0xFE;
}
bool IsKanaByte(unsigned c) {
    return 0xA1 <= c && c <= 0xDF;
}

} // namespace

int ByteLength932(char16_t unit) {
    const unsigned code = Table().CodeOfUnit(unit);
    if (code > 0xFF) return 2;
    return code != 0 || unit == 0 ? 1 : 0;
}

std::u16string Wide932(std::string_view bytes) {
    std::u16string wide;
    wide.reserve(bytes.size());
    for (std::size_t i = AppendAscii(wide, bytes, 0); i < bytes.size(); i = AppendAscii(wide, bytes, i + 1)) {
        if (!IsLeadByte932(static_cast<unsigned char>(bytes[i]))) {
            wide += WideOfByte(Byte(bytes[i]));
            continue;
        }
        char16_t unit = 0;
        if (i + 1 < bytes.size()) {
            unit = WideOfPair(bytes[i], bytes[i + 1]);
            ++i;
        }
        wide += unit != 0 ? unit : NotValid;
    }
    return wide;
}

bool IsValid932(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (!IsLeadByte932(static_cast<unsigned char>(bytes[i]))) continue;
        if (i + 1 == bytes.size() || WideOfPair(bytes[i], bytes[i + 1]) == 0) return false;
        ++i;
    }
    return true;
}

std::string Narrow932(std::u16string_view wide) {
    std::string bytes;
    bytes.reserve(wide.size());
    for (std::size_t i = AppendAscii(bytes, wide, 0); i < wide.size(); i = AppendAscii(bytes, wide, i + 1)) {
        if (ByteLength932(wide[i]) != 0) {
            AppendCode(bytes, Table().CodeOfUnit(wide[i]));
            continue;
        }
        if (IsPairAt(wide, i)) ++i;
        bytes += '?';
    }
    return bytes;
}

std::size_t Utf8Length(std::string_view utf8, std::size_t i) {
    struct Form {
        unsigned first, last;             // the first byte
        unsigned secondFirst, secondLast; // the second byte, which shuts out overlong forms and surrogates
        std::size_t length;
    };
    constexpr Form Forms[] = {
        {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
    };
    if (i >= utf8.size()) return 0;
    for (const Form& form : Forms) {
        if (Byte(utf8[i]) < form.first || form.last < Byte(utf8[i])) continue;
        if (form.length == 1) return 1;
        if (utf8.size() - i < form.length) return 0;
        if (Byte(utf8[i + 1]) < form.secondFirst || form.secondLast < Byte(utf8[i + 1])) return 0;
        for (std::size_t k = 2; k < form.length; ++k)
            if ((Byte(utf8[i + k]) & 0xC0) != 0x80) return 0;
        return form.length;
    }
    return 0;
}

std::optional<std::u16string> WideUtf8(std::string_view utf8) {
    std::u16string wide;
    wide.reserve(utf8.size());
    if (!AppendWide(wide, utf8, [](std::u16string&) { return false; })) return std::nullopt;
    return wide;
}

std::u16string WideUtf8Lossy(std::string_view utf8) {
    std::u16string wide;
    wide.reserve(utf8.size());
    AppendWide(wide, utf8, [](std::u16string& out) {
        out += Replacement;
        return true;
    });
    return wide;
}

std::string Utf8(std::u16string_view wide) {
    std::string utf8;
    utf8.reserve(wide.size());
    AppendUtf8(utf8, wide);
    return utf8;
}

void AppendUtf8(std::string& out, std::u16string_view wide) {
    for (std::size_t i = AppendAscii(out, wide, 0); i < wide.size(); i = AppendAscii(out, wide, i + 1)) {
        char32_t c = wide[i];
        if (IsPairAt(wide, i)) {
            c = 0x10000 + ((c - 0xD800) << 10) + (wide[i + 1] - 0xDC00U);
            ++i;
        } else if (IsHighSurrogate(wide[i]) || IsLowSurrogate(wide[i])) {
            c = Replacement;
        }
        AppendChar(out, c);
    }
}

std::string Utf8From932(std::string_view bytes) {
    return Utf8(Wide932(bytes));
}

std::size_t EucLength(std::string_view euc, std::size_t i) {
    const auto byte = [&](std::size_t k) { return i + k < euc.size() ? Byte(euc[i + k]) : 0; };
    if (byte(0) == EucSupplementary && IsEucByte(byte(1)) && IsEucByte(byte(2))) return 3;
    if (byte(0) == EucKana && IsKanaByte(byte(1))) return 2;
    return IsEucByte(byte(0)) && IsEucByte(byte(1)) ? 2 : 1;
}

std::string EucTo932(std::string_view euc) {
    std::string bytes;
    bytes.reserve(euc.size());
    for (std::size_t i = 0; i < euc.size();) {
        const std::size_t length = EucLength(euc, i);
        const unsigned first = Byte(euc[i]);
        if (length == 1) {
            bytes += first < 0x80 ? euc[i] : '?';
        } else if (length == 2 && first == EucKana) {
            bytes += euc[i + 1];
        } else if (length == 2) {
            const Place932 place{static_cast<int>(first - EucBase) + 1, static_cast<int>(Byte(euc[i + 1]) - EucBase)};
            AppendCode(bytes, Table().At(place) != 0 ? CodeOf(place) : Byte('?'));
        } else {
            bytes += '?';
        }
        i += length;
    }
    return bytes;
}

std::string EucFrom932(std::string_view bytes) {
    std::string euc;
    euc.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned first = Byte(bytes[i]);
        if (first < 0x80) {
            euc += bytes[i];
        } else if (IsKanaByte(first)) {
            euc += ToChar(EucKana);
            euc += bytes[i];
        } else if (IsLeadByte932(static_cast<unsigned char>(first)) && i + 1 < bytes.size()) {
            const Place932 place = EucPlaceOf(PlaceOf(first, Byte(bytes[++i])));
            if (place.row != 0) {
                euc += ToChar(EucBase + static_cast<unsigned>(place.row) - 1);
                euc += ToChar(EucBase + static_cast<unsigned>(place.cell));
            } else {
                euc += '?';
            }
        } else {
            euc += '?';
        }
    }
    return euc;
}

} // namespace tolvane
