#include "platform/Files.h"

namespace tolvane::platform {

std::string SystemPath(const std::string& path) {
    std::string_view name = path;
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
    std::string out;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool separator = name[i] == '\\';
        if (separator && i + 1 < name.size() && name[i + 1] == '\\') ++i;
        out += separator ? '/' : name[i];
    }
    return out;
}

std::optional<std::string> ReadFile(const std::string& path) {
    std::string bytes;
    if (ReadFile(path, bytes) != ReadResult::Read) return std::nullopt;
    return bytes;
}

} // namespace tolvane::platform
