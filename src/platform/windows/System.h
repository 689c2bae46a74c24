#pragma once
// Windows itself, with names and messages in the program's UTF-8. For the sources of this folder only.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <string>
#include <string_view>
#include <windows.h>

namespace tolvane::platform {

// UTF-8 as the system's UTF-16, and back. What is not valid becomes U+FFFD.
std::wstring Wide(std::string_view utf8);
std::string FromWide(std::wstring_view wide);
// A folder where a file is asked for; older headers have no name for that error.
inline constexpr DWORD DirectoryNotSupported = 336;
// The system's message for the number of an error.
std::string SystemMessage(DWORD number);
// The text that a function of the system writes into a room of a length. The function gives the length of the text, or
// of the room that it needs.
template <class Function> std::wstring SystemText(Function write) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = write(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(length);
        if (fits) return text;
    }
}

} // namespace tolvane::platform
