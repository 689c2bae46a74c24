#pragma once
// The bytes of a source file as lines.

#include "text/Text.h"

#include <algorithm>
#include <string_view>

namespace tolvane {

// Gives every line to `take`, in order, as its bytes and its number. A line ends at LF or CR LF; the last one may do
// without, and nothing follows a last line end. A CR elsewhere belongs to its line.
template <class Take> void ForEachLine(std::string_view bytes, Take take) {
    std::size_t number = 0;
    for (std::size_t begin = 0; begin < bytes.size();) {
        const std::size_t lineFeed = bytes.find('\n', begin);
        const bool ended = lineFeed != npos;
        std::size_t end = ended ? lineFeed : bytes.size();
        const std::size_t next = end + 1;
        if (ended && end > begin && bytes[end - 1] == '\r') --end;
        take(bytes.substr(begin, end - begin), number++);
        begin = next;
    }
}

// How many lines there are at the most: for making room.
inline std::size_t MostLines(std::string_view bytes) {
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
}

} // namespace tolvane
