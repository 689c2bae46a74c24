// The reader of the array pipeline: Shift_JIS lines in rows of a fixed size.

#include "input/InputMsgs.h"
#include "input/Readers.h"
#include "input/SourceLines.h"
#include "records/Records.h"
#include "text/Convert.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

namespace tolvane {

namespace {

constexpr std::size_t CountedLength = 104;

// UTF-8 becomes Shift_JIS before any length is judged; everything else is Shift_JIS already.
std::string AsShiftJis(std::string_view bytes) {
    bytes = WithoutUtf8Mark(bytes);
    const std::optional<TextW> wide = WideUtf8(bytes);
    return wide ? Narrow932(*wide) : std::string(bytes);
}

std::vector<TextA> LinesOf(std::string_view bytes) {
    std::vector<TextA> lines;
    ForEachLine(bytes, [&lines](ViewA line, std::size_t) { lines.emplace_back(line); });
    return lines;
}

// Only the first line that is too long is told, and counted as far as the first look reads it.
void WarnOfLongLine(const std::vector<TextA>& lines, std::size_t limit) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].size() <= limit) continue;
        po->Warning(static_cast<int>(i), InputMsg.LongLine, {std::min(lines[i].size(), CountedLength), limit});
        return;
    }
}

// A two-byte character that the limit cuts in half is left out whole.
ViewA CutToRow(ViewA line, std::size_t limit) {
    std::size_t end = 0;
    while (end < line.size() && end + CharLength(line, end) <= limit)
        end += CharLength(line, end);
    return line.substr(0, end);
}

} // namespace

int OpenFileChH(std::string_view bytes) {
    const auto lineLimit = static_cast<std::size_t>(modeFlags->Pipe->limits.lines);
    const auto lengthLimit = static_cast<std::size_t>(modeFlags->Pipe->limits.lineLength);
    const std::vector<TextA> lines = LinesOf(AsShiftJis(bytes));
    WarnOfLongLine(lines, lengthLimit);
    if (lines.size() > lineLimit) {
        po->Memo(NoLine, InputMsg.TooManyLines, {lineLimit, lines.size()});
        return 1;
    }
    b->vecSrcA.clear();
    for (const TextA& line : lines)
        b->AddLine<char>(CutToRow(line, lengthLimit));
    return 0;
}

} // namespace tolvane
