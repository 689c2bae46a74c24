#include "operands/Numbers.h"

#include "operands/NumberMsgs.h"

#include <algorithm>
#include <limits>

namespace tolvane {

namespace {

constexpr std::int64_t CellMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t CellMax = std::numeric_limits<std::int32_t>::max();

// The value of a digit of base 16, -1 for another character. Small letters are read, too: that they are no digits of
// the language has been told by then.
template <class Ch> int HexDigitValue(Ch c) {
    if (IsDigit(c)) return c - Ch('0');
    if (Ch('A') <= c && c <= Ch('F')) return c - Ch('A') + 10;
    return Ch('a') <= c && c <= Ch('f') ? c - Ch('a') + 10 : -1;
}

} // namespace

template <class Ch> int ReadDecimal(View<Ch> text, std::size_t& end) {
    const bool negative = At(text, 0) == Ch('-');
    const std::size_t first = IsSign(At(text, 0)) ? 1 : 0;
    std::size_t i = first;
    std::int64_t value = 0;
    for (; IsDigit(At(text, i)); ++i)
        value = std::min(value * 10 + (text[i] - Ch('0')), -CellMin);
    end = i == first ? 0 : i;
    return static_cast<int>(std::clamp(negative ? -value : value, CellMin, CellMax));
}

template <class Ch> bool CkDecConstG(View<Ch> text, int line, int k) {
    const Ch first = At(text, 0);
    if (!IsSign(first) && !IsDigit(first)) {
        cs->Error(line, NumberMsg.DecBadCall, {text.substr(0, 1)});
        return false;
    }
    if (std::all_of(text.begin() + 1, text.end(), IsDigit<Ch>)) return true;
    cs->Error({line, k}, NumberMsg.NonNumeral, {text});
    return false;
}

template <class Ch> int DecStrToIntG(View<Ch> text, int line, int k) {
    std::size_t end = 0;
    const int value = ReadDecimal(text, end);
    if (value < WordMin || WordMax < value) cs->Warning({line, k}, NumberMsg.DecOutOfRange, {value});
    return value;
}

template <class Ch> bool CkHexConstG(View<Ch> text, int line, int k) {
    if (At(text, 0) != Ch('#')) {
        cs->Error(line, NumberMsg.HexBadCall, {text.substr(0, 1)});
        return false;
    }
    const Place place{line, k};
    const std::size_t n = text.size() - 1;
    if (!std::all_of(text.begin() + 1, text.end(), IsHexDigit<Ch>)) {
        cs->Error(place, NumberMsg.HexBadDigit, {text});
        return false;
    }
    if (n > HexDigits) {
        cs->Error(place, NumberMsg.HexTooLong, {text, n});
        return false;
    }
    if (n == 0) {
        cs->Error(place, NumberMsg.HexEmpty);
        return false;
    }
    if (n < HexDigits) {
        cs->Error(place, n == 1 ? NumberMsg.HexOneDigit : NumberMsg.HexTooShort, {text, n});
        return false;
    }
    return true;
}

template <class Ch> int HexStrToIntG(View<Ch> text, int line, int k) {
    if (text.size() < 2) return 0;
    std::int64_t value = 0;
    std::size_t i = 1;
    for (; HexDigitValue(At(text, i)) >= 0; ++i)
        value = std::min(value * 16 + HexDigitValue(text[i]), CellMax);
    if (i < text.size()) cs->Error({line, k}, NumberMsg.HexNotRead);
    return static_cast<int>(value);
}

template <class Ch> std::size_t FindClosingApost(View<Ch> text, std::size_t open) {
    for (std::size_t i = open + 1; i < text.size(); ++i) {
        if (text[i] != Ch('\'')) continue;
        if (At(text, i + 1) != Ch('\'')) return i;
        ++i;
    }
    return npos;
}

template <class Ch> int CountWordKazuAtCharConst(View<Ch> text) {
    if (At(text, 0) != Ch('\'')) return 0;
    int count = 0;
    ForEachMozi(text, 0, [&count](int) { ++count; });
    return count;
}

TOLVANE_BOTH_KINDS(ReadDecimal)
TOLVANE_BOTH_KINDS(CkDecConstG)
TOLVANE_BOTH_KINDS(DecStrToIntG)
TOLVANE_BOTH_KINDS(CkHexConstG)
TOLVANE_BOTH_KINDS(HexStrToIntG)
TOLVANE_BOTH_KINDS(FindClosingApost)
TOLVANE_BOTH_KINDS(CountWordKazuAtCharConst)

} // namespace tolvane
