#include "run/Inputs.h"

#include "messages/TMsgBase.h"
#include "platform/Files.h"
#include "run/RunMsgs.h"
#include "text/Convert.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace tolvane::run {

std::string WhyNotRead(const std::string& path) {
    if (const auto message = platform::WhyNotOpened(path)) return *message;
    return TextOf(platform::IsFileThere(path) ? RunMsg.TooLarge : RunMsg.NoRegularFile);
}

StandardInputFile::StandardInputFile() : path(platform::InputAsFile()) {}

StandardInputFile::~StandardInputFile() {
    std::error_code error;
    if (!path.empty()) std::filesystem::remove(path, error);
}

InputLines::InputLines(const std::string& bytes) {
    const std::string_view text = WithoutUtf8Mark(bytes);
    const auto wide = WideUtf8(text);
    rest = wide ? *wide : Wide932(text);
}

std::optional<std::string> InputLines::Next(std::size_t limit) {
    if (rest.empty()) return std::nullopt;
    const std::size_t end = std::min(rest.find(u'\n'), rest.size());
    std::u16string line = rest.substr(0, end);
    rest.erase(0, end + 1);
    if (line.ends_with(u'\r')) line.pop_back();
    return Utf8(line.substr(0, limit));
}

} // namespace tolvane::run
