#include "run/Comparison.h"

#include "messages/TMsgBase.h"
#include "run/GradeMsgs.h"
#include "text/Convert.h"

#include <algorithm>
#include <sstream>
#include <string_view>

namespace tolvane::run {

namespace {

// The name of a character that nobody sees, or nothing.
std::u16string_view NameOf(char16_t c) {
    if (c == 0x3000) return u"<U+3000>";
    if (c == 0xA0) return u"<U+00A0>";
    if (c == 0xFEFF) return u"<U+FEFF>";
    return c >= 0x200B && c <= 0x200F ? u"<U+200B>" : u"";
}

std::string Visible(const std::string& text) {
    std::u16string shown;
    for (const char16_t c : WideUtf8Lossy(text)) {
        if (c < 0x20)
            shown += {u'^', static_cast<char16_t>(c + u'@')};
        else if (NameOf(c).empty())
            shown += c;
        else
            shown += NameOf(c);
    }
    return "\"" + Utf8(shown) + "\"";
}

} // namespace

std::string AsExpected(std::string bytes) {
    std::erase(bytes, '\r');
    return std::string(WithoutUtf8Mark(bytes));
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::optional<Difference> FirstDifference(const std::string& expected, const std::string& printed) {
    const auto want = LinesOf(expected);
    const auto got = LinesOf(printed);
    if (want == got) return std::nullopt;
    std::size_t n = 0;
    while (n < want.size() && n < got.size() && want[n] == got[n])
        ++n;
    return Difference{n, ShownLine(want, n), ShownLine(got, n)};
}

std::string ShownLine(const std::vector<std::string>& lines, std::size_t n) {
    return n < lines.size() ? Visible(lines[n]) : TextOf(GradeMsg.Nothing);
}

} // namespace tolvane::run
