#include "platform/CharacterCode.h"

#include "text/Convert.h"

#include <algorithm>
#include <cstdlib>

namespace tolvane::console {

namespace {

// The value of the user's environment that names the console's character code, as the C library would choose it.
std::string_view LocaleName() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

// The code set of a locale's name, "ja_JP.eucJP@modifier", in small letters and digits alone.
std::string CodeSetOf(std::string_view locale) {
    const std::size_t dot = locale.find('.');
    if (dot == std::string_view::npos) return {};
    std::string name;
    for (char c : locale.substr(dot + 1)) {
        if (c == '@') break;
        if ('A' <= c && c <= 'Z') name += static_cast<char>(c - 'A' + 'a');
        if (('a' <= c && c <= 'z') || ('0' <= c && c <= '9')) name += c;
    }
    return name;
}

std::size_t Utf8Bytes(std::string_view text, std::size_t i) {
    return std::max<std::size_t>(1, Utf8Length(text, i));
}

bool IsUtf8Char(std::string_view character) {
    return Utf8Length(character, 0) > 0;
}

std::string Same(std::string_view bytes) {
    return std::string(bytes);
}

std::size_t ShiftJisBytes(std::string_view text, std::size_t i) {
    return IsLeadByte932(static_cast<unsigned char>(text[i])) && i + 1 < text.size() ? 2 : 1;
}

std::string ToShiftJis(std::string_view utf8) {
    return Narrow932(WideUtf8Lossy(utf8));
}

bool IsEucChar(std::string_view character) {
    return character == "?" || EucTo932(character) != "?"; // a character without a place becomes one
}

std::string FromEuc(std::string_view bytes) {
    return Utf8From932(EucTo932(bytes));
}

std::string ToEuc(std::string_view utf8) {
    return EucFrom932(ToShiftJis(utf8));
}

} // namespace

constinit const CharacterCode Utf8Code{Utf8Bytes, IsUtf8Char, Same, nullptr};
constinit const CharacterCode ShiftJisCode{ShiftJisBytes, IsValid932, Utf8From932, ToShiftJis};
constinit const CharacterCode EucJpCode{EucLength, IsEucChar, FromEuc, ToEuc};

const CharacterCode* CodeOfLocale() {
    const std::string name = CodeSetOf(LocaleName());
    for (const char* sjis : {"shiftjis", "sjis", "cp932", "ms932", "windows31j"})
        if (name == sjis) return &ShiftJisCode;
    for (const char* euc : {"eucjp", "ujis"})
        if (name == euc) return &EucJpCode;
    return name == "utf8" ? &Utf8Code : nullptr;
}

} // namespace tolvane::console
