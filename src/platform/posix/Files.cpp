#include "platform/Files.h"

#include "platform/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tolvane::platform {

namespace {

// How much more than its state says a file may give: it may have grown meanwhile, and those of /proc claim no size.
constexpr std::size_t MostSurplus = std::size_t{64} << 20;

std::error_code directoryFailure;

std::string SystemMessage(int number) {
    return std::system_category().message(number);
}

bool IsSystemName(const std::string& name) {
    return !name.empty() && name.find('\0') == std::string::npos;
}

bool IsRegular(const Descriptor& file) {
    struct stat status {};
    return fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode);
}

// Opens a regular file. What is none is not opened at all: a pipe without a writer would never come back.
Descriptor OpenToRead(const std::string& path) {
    const std::string name = SystemPath(path);
    struct stat status {};
    if (!IsSystemName(name) || stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return Descriptor(-1);
    Descriptor file(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return IsRegular(file) ? std::move(file) : Descriptor(-1);
}

// The same for a file that is to be written anew; errno says why there is none.
Descriptor OpenToWrite(const std::string& name) {
    struct stat status {};
    if (stat(name.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : ENXIO;
        return Descriptor(-1);
    }
    Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC, 0666));
    if (file.Get() < 0 || IsRegular(file)) return file;
    errno = ENXIO;
    return Descriptor(-1);
}

std::size_t SizeOf(const Descriptor& file) {
    struct stat status {};
    return fstat(file.Get(), &status) == 0 && status.st_size > 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

// Memory that the machine does not have is often promised nevertheless, and its use ends the program.
bool FitsInMemory(std::size_t size) {
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long page = sysconf(_SC_PAGESIZE);
    return pages <= 0 || page <= 0 || size / static_cast<std::size_t>(page) < static_cast<std::size_t>(pages);
}

// Reads to the end of a file of `size` bytes, as its state says.
ReadResult ReadBytes(const Descriptor& file, std::size_t size, std::string& bytes) {
    constexpr std::size_t leastRoom = 64 * 1024;
    const std::size_t most = size + std::max(size, MostSurplus);
    std::size_t end = 0;
    bytes.resize(size > 0 ? size + 1 : leastRoom); // one byte more, so that the end is seen without making room
    for (;;) {
        const ssize_t got = read(file.Get(), bytes.data() + end, bytes.size() - end);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return ReadResult::NoFile;
        if (got == 0) break;
        end += static_cast<std::size_t>(got);
        if (end > most) return ReadResult::Endless;
        if (end == bytes.size()) bytes.resize(std::min(2 * end, most + leastRoom));
    }
    bytes.resize(end);
    return ReadResult::Read;
}

} // namespace

bool Descriptor::Close() {
    const int closing = std::exchange(number, -1);
    return closing < 0 || close(closing) == 0;
}

bool WriteBytes(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

std::optional<std::string> CurrentDirectory() {
    const std::filesystem::path directory = std::filesystem::current_path(directoryFailure);
    if (directoryFailure) return std::nullopt;
    return directory.string();
}

std::string LastSystemMessage() {
    return directoryFailure.message();
}

std::optional<std::string> WhyNotOpened(const std::string& path) {
    const std::string name = SystemPath(path);
    struct stat status {};
    if (stat(name.c_str(), &status) != 0) return SystemMessage(errno);
    if (S_ISDIR(status.st_mode)) return SystemMessage(EISDIR);
    if (!S_ISREG(status.st_mode)) return std::nullopt;
    const Descriptor file(open(name.c_str(), O_RDONLY | O_CLOEXEC));
    return file.Get() < 0 ? std::optional(SystemMessage(errno)) : std::nullopt;
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

std::optional<std::string> WriteFile(const std::string& path, std::string_view bytes) {
    const std::string name = SystemPath(path);
    if (!IsSystemName(name)) return SystemMessage(ENOENT);
    Descriptor file = OpenToWrite(name);
    if (file.Get() < 0 || !WriteBytes(file.Get(), bytes) || !file.Close()) return SystemMessage(errno);
    return std::nullopt;
}

std::string InputAsFile() {
    std::error_code error;
    std::string name = (std::filesystem::temp_directory_path(error) / "tolvane-run-XXXXXX").string();
    const Descriptor file(mkstemp(name.data()));
    if (file.Get() < 0) return {};
    std::string block(65536, '\0');
    for (;;) {
        const ssize_t got = read(STDIN_FILENO, block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return name;
        WriteBytes(file.Get(), std::string_view(block).substr(0, static_cast<std::size_t>(got)));
    }
}

std::string SystemAndMachine() {
    utsname names{};
    if (uname(&names) < 0) return {};
    return std::string(names.sysname) + " " + names.machine;
}

} // namespace tolvane::platform
