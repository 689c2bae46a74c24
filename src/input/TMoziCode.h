#pragma once
// Which character code a source file has. One object, `moziCode`; its verdict stays until the next file.

#include "text/Text.h"

#include <cstdint>
#include <string>

namespace tolvane {

class TMoziCode {
public:
    std::string BomStr;        // the mark in hexadecimal digits, or empty
    std::int32_t CodePage = 0; // 932, 65001, 1200, 1201; 0 until the first file has been seen
    std::string CodeName;      // as it is shown

    // Decides the code of a file with these bytes, null if it did not open, and prints the reading line. `simpleTitle`
    // leaves the counting of bytes out.
    void DetMoziCode(const std::string& path, const std::string* bytes, bool simpleTitle);
    // BomStr; empty if there is no mark or the file did not open.
    std::string DetBOM_MzC(const std::string& path, const std::string* bytes);
    // Shift_JIS or UTF-8, which stays what it was for a file that did not open.
    void Det_sjisMzC(const std::string& path, const std::string* bytes);
};

// Code page 932 to wide text, up to the first zero. Never fails.
TextW utf_16_to_shift_jis(ViewA narrow);
// UTF-8 to wide text; what is not valid UTF-8 is read as code page 932.
TextW Utf8ToWide(ViewA utf8);
// UTF-8 to code page 932, by way of wide text.
TextA Utf8ToNarrow(ViewA utf8);
// Narrow text to wide text, for the widened reader.
TextW NarrowToWide(ViewA narrow);

extern TMoziCode* const moziCode;

} // namespace tolvane
