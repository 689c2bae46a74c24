#pragma once
// The character codes of the systems round the program, whose own text is UTF-8.

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvane::console {

struct CharacterCode {
    // Bytes of the character that begins at i; 1 for a byte that begins none.
    std::size_t (*charBytes)(std::string_view text, std::size_t i);
    // Whether the bytes of one character are valid.
    bool (*isValid)(std::string_view character);
    std::string (*decoded)(std::string_view bytes);
    std::string (*encoded)(std::string_view utf8); // "?" for what has no place in the code; none for UTF-8 itself

    bool IsUtf8() const { return encoded == nullptr; }
};

// Bytes of UTF-8 stay as they are when they are decoded, valid or not, because they may be the name of a file.
extern const CharacterCode Utf8Code;
extern const CharacterCode ShiftJisCode;
extern const CharacterCode EucJpCode;

// The code that the locale of the user's environment names, as the C library would choose it; null if it names none.
const CharacterCode* CodeOfLocale();

} // namespace tolvane::console
