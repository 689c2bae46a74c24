#include "platform/Files.h"

#include "platform/Console.h"
#include "platform/Descriptor.h"
#include "platform/Signals.h"

#include <algorithm>
#include <new>
#include <utility>

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

// Reads by `read` to the end.
template <class Read> Once ReadToEnd(const Read& read, std::size_t most) {
    constexpr std::size_t leastRoom = 64 * 1024;
    const signals::Running reading; // so that Ctrl+C is told
    Once once;
    std::size_t end = 0;
    for (;;) {
        once.bytes.resize(std::max(2 * end, leastRoom));
        const std::optional<std::size_t> got = read(once.bytes.data() + end, once.bytes.size() - end);
        std::string why = got ? std::string() : LastFailure();
        signals::EndIfAsked();
        if (signals::TakeInterrupt()) return {Once::End::Interrupted, {}, {}, 0};
        if (!got) return {Once::End::Failed, {}, std::move(why), 0};
        if (*got == 0) break;
        end += *got;
        if (end > most) return {Once::End::TooLarge, {}, {}, 0};
    }
    once.bytes.resize(end);
    return once;
}

template <class Read> Once ReadWithinMemory(const Read& read, std::size_t most) {
    try {
        return ReadToEnd(read, most);
    } catch (const std::bad_alloc&) {
        return {Once::End::NoMemory, {}, {}, 0};
    }
}

// "\\server\share"; where the separators that follow are doubled, so is this one.
bool BeginsWithMachine(std::string_view name) {
    return name.starts_with("\\\\") && name.find("\\\\", 1) == std::string_view::npos;
}

} // namespace

bool IsSystemName(const std::string& name) {
    return !name.empty() && name.find('\0') == std::string::npos;
}

std::string SystemPath(const std::string& path) {
    std::string_view name = path;
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"') name = name.substr(1, name.size() - 2);
    std::string out = NamesMachines() && BeginsWithMachine(name) ? "/" : "";
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
    const std::uint64_t size = SizeOf(file);
    if (!FitsInMemory(size)) return ReadResult::TooLarge;
    try {
        const ReadResult result = ReadBytes(file, static_cast<std::size_t>(size), bytes);
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

Once ReadOnce(const std::string& path, std::size_t most) {
    console::Flush();
    const Descriptor file = OpenToReadOnce(path);
    if (file.Get() < 0) return {Once::End::Failed, {}, LastFailure(), 0};
    const std::uint64_t size = SizeOf(file);
    if (size > most) return {Once::End::TooLarge, {}, {}, size};
    return ReadWithinMemory([&file](char* room, std::size_t some) { return ReadWaiting(file, room, some); }, most);
}

Once ReadStandardInput(std::size_t most) {
    console::Flush();
    return ReadWithinMemory([](char* room, std::size_t some) { return ReadStandardInput(room, some); }, most);
}

} // namespace tolvane::platform
