#include "platform/Files.h"

#include "platform/Descriptor.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
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

// Opens a regular file to write it anew; errno says why there is none. A pipe without a reader would never come back.
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

} // namespace

bool Descriptor::Close() {
    const int closing = std::exchange(number, -1);
    return closing < 0 || close(closing) == 0;
}

// Opens a regular file. What is none is not opened at all: a pipe without a writer would never come back.
Descriptor OpenToRead(const std::string& path) {
    const std::string name = SystemPath(path);
    struct stat status {};
    if (!IsSystemName(name) || stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return Descriptor(-1);
    Descriptor file(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    return IsRegular(file) ? std::move(file) : Descriptor(-1);
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

std::optional<std::size_t> ReadSome(const Descriptor& file, char* room, std::size_t size) {
    ssize_t got = 0;
    do
        got = read(file.Get(), room, size);
    while (got < 0 && errno == EINTR);
    return got < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(got));
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
