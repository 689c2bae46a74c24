#include "platform/Files.h"

#include "platform/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <system_error>
#include <unistd.h>

namespace tolvane::platform {

namespace {

constexpr std::size_t LargestFile = std::size_t{1} << 30;

std::error_code directoryFailure;

std::string SystemMessage(int number) {
    return std::system_category().message(number);
}

bool IsSystemName(const std::string& name) {
    return !name.empty() && name.find('\0') == std::string::npos;
}

// Opens a regular file. What is none is not opened at all: a pipe without a writer would never come back.
Descriptor OpenToRead(const std::string& path) {
    const std::string name = SystemPath(path);
    struct stat status {};
    if (!IsSystemName(name) || stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return Descriptor(-1);
    return Descriptor(open(name.c_str(), O_RDONLY | O_CLOEXEC));
}

// Reads until the end of the file or one byte more than `most`. False if the system reports a failure.
bool ReadBytes(int file, std::size_t most, std::string& bytes) {
    constexpr std::size_t block = 256 * 1024;
    while (bytes.size() <= most) {
        const std::size_t had = bytes.size();
        bytes.resize(had + std::min(block, most + 1 - had));
        const ssize_t got = read(file, bytes.data() + had, bytes.size() - had);
        bytes.resize(had + (got > 0 ? static_cast<std::size_t>(got) : 0));
        if (got == 0) return true;
        if (got < 0 && errno != EINTR) return false;
    }
    return true;
}

} // namespace

bool WriteBytes(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
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

std::optional<std::string> CurrentDirectory() {
    const std::filesystem::path directory = std::filesystem::current_path(directoryFailure);
    if (directoryFailure) return std::nullopt;
    return directory.string();
}

std::string LastSystemMessage() {
    return directoryFailure.message();
}

bool IsFileThere(const std::string& path) {
    return OpenToRead(path).Get() >= 0;
}

std::optional<std::string> ReadFile(const std::string& path) {
    const Descriptor file = OpenToRead(path);
    std::string bytes;
    if (file.Get() < 0 || !ReadBytes(file.Get(), LargestFile, bytes) || bytes.size() > LargestFile) return std::nullopt;
    return bytes;
}

std::optional<std::string> ReadFileHead(const std::string& path, std::size_t most) {
    const Descriptor file = OpenToRead(path);
    std::string bytes;
    if (file.Get() < 0 || !ReadBytes(file.Get(), most, bytes)) return std::nullopt;
    return bytes.substr(0, most);
}

std::optional<std::string> WriteFile(const std::string& path, std::string_view bytes) {
    const std::string name = SystemPath(path);
    if (!IsSystemName(name)) return SystemMessage(ENOENT);
    Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (file.Get() < 0 || !WriteBytes(file.Get(), bytes) || !file.Close()) return SystemMessage(errno);
    return std::nullopt;
}

std::string SystemAndMachine() {
    utsname names{};
    if (uname(&names) < 0) return {};
    return std::string(names.sysname) + " " + names.machine;
}

} // namespace tolvane::platform
