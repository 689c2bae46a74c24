#include "platform/Files.h"

#include "platform/Descriptor.h"

#include <algorithm>
#include <new>

namespace tolvane::platform {

namespace {

// How much more than its state says a file may give: it may have grown meanwhile, and those of /proc claim no size.
constexpr std::size_t MostSurplus = std::size_t{64} << 20;

// Reads to the end of a file of `size` bytes, as its state says.
ReadResult ReadBytes(const Descriptor& file, std::size_t size, std::string& bytes) {
    constexpr std::size_t leastRoom = 64 * 1024;
    const std::size_t most = size + std::max(size, MostSurplus);
    std::size_t end = 0;
    bytes.resize(size > 0 ? size + 1 : leastRoom); // one byte more, so that the end is seen without making room
    for (;;) {
        const std::optional<std::size_t> got = ReadSome(file, bytes.data() + end, bytes.size() - end);
        if (!got) return ReadResult::NoFile;
        if (*got == 0) break;
        end += *got;
        if (end > most) return ReadResult::Endless;
        if (end == bytes.size()) bytes.resize(std::min(2 * end, most + leastRoom));
    }
    bytes.resize(end);
    return ReadResult::Read;
}

} // namespace

bool IsSystemName(const std::string& name) {
    return !name.empty() && name.find('\0') == std::string::npos;
}

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

bool IsFileThere(const std::string& path) {
    return OpenToRead(path).Get() >= 0;
}

ReadResult ReadFile(const std::string& path, std::string& bytes) {
    bytes.clear();
    const Descriptor file = OpenToRead(path);
    if (file.Get() < 0) return ReadResult::NoFile;
    const std::size_t size = SizeOf(file);
    if (!FitsInMemory(size)) return ReadResult::TooLarge;
    try {
        const ReadResult result = ReadBytes(file, size, bytes);
        if (result != ReadResult::Read) bytes = std::string();
        return result;
    } catch (const std::bad_alloc&) {
        bytes = std::string();
        return ReadResult::TooLarge;
    }
}

std::optional<std::string> ReadFile(const std::string& path) {
    std::string bytes;
    if (ReadFile(path, bytes) != ReadResult::Read) return std::nullopt;
    return bytes;
}

} // namespace tolvane::platform
