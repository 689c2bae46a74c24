#include "platform/StandardFiles.h"

#include "platform/Descriptor.h"
#include "platform/Signals.h"
#include "platform/windows/System.h"
#include "platform/windows/Waiting.h"

#include <algorithm>

namespace tolvane::console {

namespace {

using platform::FromWide;
using platform::SystemMessage;
using platform::Wide;

bool IsConsole(DWORD which) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(which), &mode) != 0;
}

// A code page of the system, for what is no console.
template <UINT (*Page)()> class PageCode {
public:
    static const CharacterCode& Get() {
        static const CharacterCode code{Bytes, IsValid, Decoded, Encoded};
        return code;
    }

private:
    static std::size_t Bytes(std::string_view text, std::size_t i) {
        return IsDBCSLeadByteEx(Page(), static_cast<BYTE>(text[i])) != 0 && i + 1 < text.size() ? 2 : 1;
    }
    static bool IsValid(std::string_view character) {
        const int length = static_cast<int>(character.size());
        return MultiByteToWideChar(Page(), MB_ERR_INVALID_CHARS, character.data(), length, nullptr, 0) > 0;
    }
    static std::string Decoded(std::string_view bytes) {
        std::wstring wide(bytes.size(), L'\0');
        const int length = MultiByteToWideChar(Page(), 0, bytes.data(), static_cast<int>(bytes.size()), wide.data(),
                                               static_cast<int>(wide.size()));
        wide.resize(static_cast<std::size_t>(std::max(length, 0)));
        return FromWide(wide);
    }
    static std::string Encoded(std::string_view utf8) {
        constexpr std::size_t longestChar = 4;
        const std::wstring wide = Wide(utf8);
        std::string bytes(wide.size() * longestChar, '\0');
        const int length = WideCharToMultiByte(Page(), WC_NO_BEST_FIT_CHARS, wide.data(), static_cast<int>(wide.size()),
                                               bytes.data(), static_cast<int>(bytes.size()), "?", nullptr);
        bytes.resize(static_cast<std::size_t>(std::max(length, 0)));
        return bytes;
    }
};

// The code of a page, by the program's own tables where it has them.
template <UINT (*Page)()> const CharacterCode& CodeOfPage() {
    switch (Page()) {
    case 65001:
        return Utf8Code;
    case 932:
        return ShiftJisCode;
    case 20932:
    case 51932:
        return EucJpCode;
    default:
        return PageCode<Page>::Get();
    }
}

UINT InputPage() {
    static const UINT page = GetConsoleCP();
    return page != 0 ? page : GetACP();
}

UINT OutputPage() {
    static const UINT page = GetConsoleOutputCP();
    return page != 0 ? page : GetACP();
}

UINT TextFilePage() {
    return GetACP();
}

// A page that is none of ours would lose the Japanese characters; the editors of such a system know UTF-8 by its mark.
bool TextFilesAreMarked() {
    return CodeOfLocale() == nullptr && &CodeOfPage<TextFilePage>() == &PageCode<TextFilePage>::Get();
}

// The code of a standard file: the console itself takes every character; the shells and terminals that have a locale
// name the code of what they pass on; else it is that of the console.
template <UINT (*Page)()> const CharacterCode& CodeOf(DWORD which) {
    if (IsConsole(which)) return Utf8Code;
    const CharacterCode* const locale = CodeOfLocale();
    return locale != nullptr ? *locale : CodeOfPage<Page>();
}

Loss LossOf(DWORD number) {
    const bool isGone = number == ERROR_NO_DATA || number == ERROR_BROKEN_PIPE || number == ERROR_PIPE_NOT_CONNECTED;
    return {SystemMessage(number), isGone};
}

std::optional<Loss> WriteToConsole(HANDLE console, std::string_view utf8) {
    constexpr std::size_t mostAtOnce = 8192;
    const std::wstring text = Wide(utf8);
    for (std::wstring_view rest = text; !rest.empty();) {
        DWORD written = 0;
        const DWORD length = static_cast<DWORD>(std::min(rest.size(), mostAtOnce));
        if (WriteConsoleW(console, rest.data(), length, &written, nullptr) == 0) return LossOf(GetLastError());
        rest.remove_prefix(written);
    }
    return std::nullopt;
}

bool isStuck = false; // the reader of a pipe has kept the program waiting behind Ctrl + C

bool WriteWhole(HANDLE file, std::string_view bytes) {
    const signals::Writing writing;
    return platform::WriteBytes(reinterpret_cast<platform::FileNumber>(file), bytes);
}

std::optional<Loss> WriteTo(DWORD which, std::string_view bytes) {
    const HANDLE file = GetStdHandle(which);
    if (bytes.empty() || (isStuck && GetFileType(file) == FILE_TYPE_PIPE)) return std::nullopt;
    if (file == nullptr || file == INVALID_HANDLE_VALUE) return LossOf(ERROR_INVALID_HANDLE);
    if (IsConsole(which)) return WriteToConsole(file, bytes);
    if (WriteWhole(file, bytes)) return std::nullopt;
    const DWORD failure = GetLastError();
    if (failure != ERROR_OPERATION_ABORTED) return LossOf(failure);
    isStuck = true;
    signals::WaitForAsking();
    return std::nullopt;
}

// Reads a part of a line that is typed, as UTF-8. Ctrl + Z at its beginning is the end of the input.
bool ReadTyped(HANDLE console, char* bytes, std::size_t size, std::size_t& got) {
    constexpr wchar_t ctrlZ = 0x1A;
    constexpr std::size_t longestUnit = 3; // bytes of UTF-8
    static wchar_t half = 0;               // a pair of surrogates that the last read has cut
    wchar_t units[1024];
    const std::size_t room = std::min(std::size(units), size / longestUnit) - 1;
    const std::size_t kept = half != 0 ? 1 : 0;
    units[0] = half;
    DWORD read = 0;
    SetLastError(0);
    if (ReadConsoleW(console, units + kept, static_cast<DWORD>(room), &read, nullptr) == 0 ||
        (read == 0 && GetLastError() == ERROR_OPERATION_ABORTED))
        return false;
    std::size_t count = kept + read;
    half = 0;
    if (count > 0 && IS_HIGH_SURROGATE(units[count - 1])) half = units[--count];
    const std::string text = units[0] == ctrlZ ? std::string() : FromWide(std::wstring_view(units, count));
    std::copy(text.begin(), text.end(), bytes);
    got = text.size();
    return true;
}

bool ReadFrom(HANDLE file, char* bytes, std::size_t size, std::size_t& got) {
    DWORD read = 0;
    SetLastError(ERROR_SUCCESS);
    const bool good = ReadFile(file, bytes, static_cast<DWORD>(size), &read, nullptr) != 0;
    got = read;
    return good;
}

} // namespace

void OpenStandardFiles() {}

const CharacterCode& InputCode() {
    static const CharacterCode& code = CodeOf<InputPage>(STD_INPUT_HANDLE);
    return code;
}

const CharacterCode& OutputCode() {
    static const CharacterCode& code = CodeOf<OutputPage>(STD_OUTPUT_HANDLE);
    return code;
}

const CharacterCode& ErrorCode() {
    static const CharacterCode& code = CodeOf<OutputPage>(STD_ERROR_HANDLE);
    return code;
}

const CharacterCode& TextFileCode() {
    static const CharacterCode* const locale = CodeOfLocale();
    return locale != nullptr ? *locale : TextFilesAreMarked() ? Utf8Code : CodeOfPage<TextFilePage>();
}

std::string_view TextFileMark() {
    return TextFilesAreMarked() ? "\xEF\xBB\xBF" : "";
}

std::size_t ReadInput(char* bytes, std::size_t size) {
    const HANDLE file = GetStdHandle(STD_INPUT_HANDLE);
    const auto read = IsConsole(STD_INPUT_HANDLE) ? ReadTyped : ReadFrom;
    for (;;) {
        std::size_t got = 0;
        {
            const signals::Reading reading;
            const bool asked = signals::EndAsked() || signals::InterruptAsked();
            if (!asked && read(file, bytes, size, got)) return got;
            if (!asked && GetLastError() != ERROR_OPERATION_ABORTED) return 0;
        }
        signals::WaitForAsking();
        signals::EndIfAsked();
        if (signals::InterruptAsked()) return 0;
    }
}

std::optional<Loss> WriteOutput(std::string_view bytes) {
    return WriteTo(STD_OUTPUT_HANDLE, bytes);
}

std::optional<Loss> WriteErrorOutput(std::string_view bytes) {
    return WriteTo(STD_ERROR_HANDLE, bytes);
}

bool OutputIsTerminal() {
    return IsConsole(STD_OUTPUT_HANDLE);
}

bool ErrorIsTerminal() {
    return IsConsole(STD_ERROR_HANDLE);
}

bool StandardInputIsTerminal() {
    return IsConsole(STD_INPUT_HANDLE);
}

} // namespace tolvane::console
