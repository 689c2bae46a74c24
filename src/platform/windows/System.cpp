#include "platform/windows/System.h"

#include "text/Convert.h"

#include <iterator>

namespace tolvane::platform {

std::wstring Wide(std::string_view utf8) {
    const std::u16string text = WideUtf8Lossy(utf8);
    return {text.begin(), text.end()};
}

std::string FromWide(std::wstring_view wide) {
    return Utf8(std::u16string(wide.begin(), wide.end()));
}

std::string SystemMessage(DWORD number) {
    constexpr DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    wchar_t room[2048];
    const DWORD length = FormatMessageW(flags, nullptr, number, 0, room, std::size(room), nullptr);
    if (length == 0 && number == DirectoryNotSupported) return SystemMessage(ERROR_ACCESS_DENIED); // older systems
    const std::wstring_view text(room, length);
    const std::size_t end = text.find_last_not_of(L"\r\n .\u3002");
    if (end == std::wstring_view::npos) return "error " + std::to_string(number);
    return FromWide(text.substr(0, end + 1));
}

} // namespace tolvane::platform
