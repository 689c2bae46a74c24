#include "platform/Files.h"

#include "platform/Descriptor.h"
#include "platform/posix/Waiting.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tolvane::platform {

namespace {

std::error_code directoryFailure;

std::string SystemMessage(int number) {
    return std::system_category().message(number);
}

bool IsRegular(const Descriptor& file) {
    struct stat status {};
    return fstat(file.Get(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

bool Descriptor::Close() {
    const int closing = std::exchange(number, -1);
    return closing < 0 || close(closing) == 0;
}

bool NamesMachines() {
    return false;
}

// Opens a regular file. What is none is not opened at all: a pipe without a writer would never come back.
Descriptor OpenToRead(const std::string& path) {
    const std::string name = SystemPath(path);
    struct stat status {};
    if (!IsSystemName(name) || stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return Descriptor(-1);
    Descriptor file(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return IsRegular(file) ? std::move(file) : Descriptor(-1);
}

Descriptor OpenToReadOnce(const std::string& path) {
    const std::string name = SystemPath(path);
    errno = ENOENT;
    if (!IsSystemName(name)) return Descriptor(-1);
    return Descriptor(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

std::uint64_t SizeOf(const Descriptor& file) {
    struct stat status {};
    return fstat(file.Get(), &status) == 0 && status.st_size > 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

// Memory that the machine does not have is often promised nevertheless, and its use ends the program.
bool FitsInMemory(std::uint64_t size) {
    if (size > std::numeric_limits<std::size_t>::max() / 4) return false; // it has to be counted, too
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long page = sysconf(_SC_PAGESIZE);
    return pages <= 0 || page <= 0 || size / static_cast<std::uint64_t>(page) < static_cast<std::uint64_t>(pages);
}

std::optional<std::size_t> ReadSome(const Descriptor& file, char* room, std::size_t size) {
    ssize_t got = 0;
    do
        got = read(file.Get(), room, size);
    while (got < 0 && errno == EINTR);
    return got < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(got));
}

// What was opened without waiting says so where a writer is still to come.
std::optional<std::size_t> ReadWaiting(const Descriptor& file, char* room, std::size_t size) {
    while (signals::WaitReadable(file.Get())) {
        const std::optional<std::size_t> got = ReadSome(file, room, size);
        if (got || errno != EAGAIN) return got;
    }
    return std::nullopt;
}

std::optional<std::size_t> ReadStandardInput(char* room, std::size_t size) {
    static const Descriptor file(STDIN_FILENO);
    return ReadWaiting(file, room, size);
}

std::string LastFailure() {
    return SystemMessage(errno);
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

std::string SystemAndMachine() {
    utsname names{};
    if (uname(&names) < 0) return {};
    return std::string(names.sysname) + " " + names.machine;
}

} // namespace tolvane::platform
