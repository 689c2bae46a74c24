#include "text/Text.h"

#include "text/Convert.h"

namespace tolvane {

template <class Ch> View<Ch> TrimLeftBlank(View<Ch> text) {
    std::size_t begin = FindNonBlank(text);
    return begin == npos ? View<Ch>() : text.substr(begin);
}

template <class Ch> View<Ch> TrimRightBlank(View<Ch> text) {
    std::size_t end = text.size();
    while (end > 0 && IsBlank(text[end - 1]))
        --end;
    return text.substr(0, end);
}

template <class Ch> View<Ch> TrimBlank(View<Ch> text) {
    return TrimLeftBlank(TrimRightBlank(text));
}

template <class Ch> std::size_t CharLength(View<Ch> text, std::size_t i) {
    if constexpr (!IsWide<Ch>) {
        if (i + 1 < text.size() && IsLeadByte932(static_cast<unsigned char>(text[i]))) return 2;
    }
    return 1;
}

template <class Ch> std::size_t FindZenSpace(View<Ch> text, std::size_t from) {
    const View<Ch> space = ZenSpace<Ch>();
    for (std::size_t i = from; i < text.size(); i += CharLength(text, i))
        if (text.compare(i, space.size(), space) == 0) return i;
    return npos;
}

template <class Ch> bool IsZenKakuAt(View<Ch> text, std::size_t i) {
    if (i >= text.size()) return false;
    if constexpr (IsWide<Ch>)
        return ByteLength932(text[i]) == 2;
    else
        return CharLength(text, i) == 2;
}

namespace {

// The trim of both blank kinds on any text in which `zen` stands for the full-width space. Whole characters are
// counted from the left, so that the second byte of a character is never taken for a space of its own.
template <class Ch, class Length> View<Ch> TrimZen(View<Ch> text, View<Ch> zen, Length length) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        if (text[begin] == Ch(' ') || text[begin] == Ch('\t'))
            ++begin;
        else if (text.compare(begin, zen.size(), zen) == 0)
            begin += zen.size();
        else
            break;
    }
    std::size_t end = begin;
    for (std::size_t i = begin; i < text.size();) {
        const bool blank = text[i] == Ch(' ') || text.compare(i, zen.size(), zen) == 0;
        i += length(text, i);
        if (!blank) end = i;
    }
    return text.substr(begin, end - begin);
}

// The text without spaces, full-width spaces and tabs at the left end, spaces and full-width spaces at the right end.
template <class Ch> View<Ch> TrimZenBlank(View<Ch> text) {
    return TrimZen<Ch>(text, ZenSpace<Ch>(), [](View<Ch> t, std::size_t i) { return CharLength(t, i); });
}

} // namespace

std::string TrimZenBlankUtf8(const std::string& text) {
    const auto length = [](std::string_view t, std::size_t i) {
        std::size_t n = 1;
        while (i + n < t.size() && (static_cast<unsigned char>(t[i + n]) & 0xC0) == 0x80)
            ++n;
        return n;
    };
    return std::string(TrimZen<char>(text, "\u3000", length));
}

TOLVANE_BOTH_KINDS(TrimLeftBlank)
TOLVANE_BOTH_KINDS(TrimRightBlank)
TOLVANE_BOTH_KINDS(TrimBlank)
TOLVANE_BOTH_KINDS(CharLength)
TOLVANE_BOTH_KINDS(FindZenSpace)
TOLVANE_BOTH_KINDS(IsZenKakuAt)

} // namespace tolvane
