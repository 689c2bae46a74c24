#include "platform/Files.h"

#include "platform/Descriptor.h"
#include "platform/Signals.h"
#include "platform/StandardFiles.h"
#include "platform/windows/System.h"

#include <algorithm>

namespace tolvane::platform {

namespace {

DWORD directoryFailure = 0;

bool IsFolder(const std::string& name) {
    const DWORD attributes = GetFileAttributesW(Wide(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

HANDLE HandleOf(FileNumber file) {
    return reinterpret_cast<HANDLE>(file);
}

// Opens what has that name, a device as well; the system's number says why it does not open.
Descriptor Open(const std::string& name, DWORD access, DWORD how) {
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(Wide(name).c_str(), access, shared, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_ACCESS_DENIED && IsFolder(name))
        SetLastError(DirectoryNotSupported);
    return Descriptor(reinterpret_cast<FileNumber>(file));
}

// "NUL" and the other devices have names in every folder.
bool IsRegular(const Descriptor& file) {
    return file.Get() >= 0 && GetFileType(HandleOf(file.Get())) == FILE_TYPE_DISK;
}

DWORD OneStep(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, std::size_t{1} << 30));
}

std::string LastMessage() {
    return SystemMessage(GetLastError());
}

} // namespace

bool Descriptor::Close() {
    const FileNumber closing = std::exchange(number, -1);
    return closing < 0 || CloseHandle(HandleOf(closing)) != 0;
}

bool NamesMachines() {
    return true;
}

Descriptor OpenToRead(const std::string& path) {
    const std::string name = SystemPath(path);
    if (!IsSystemName(name)) return Descriptor(-1);
    Descriptor file = Open(name, GENERIC_READ, OPEN_EXISTING);
    return IsRegular(file) ? std::move(file) : Descriptor(-1);
}

Descriptor OpenToReadOnce(const std::string& path) {
    const std::string name = SystemPath(path);
    SetLastError(ERROR_FILE_NOT_FOUND);
    return IsSystemName(name) ? Open(name, GENERIC_READ, OPEN_EXISTING) : Descriptor(-1);
}

std::uint64_t SizeOf(const Descriptor& file) {
    LARGE_INTEGER size{};
    return GetFileSizeEx(HandleOf(file.Get()), &size) != 0 ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

bool FitsInMemory(std::uint64_t size) {
    MEMORYSTATUSEX memory{};
    memory.dwLength = sizeof memory;
    return GlobalMemoryStatusEx(&memory) == 0 || size < memory.ullTotalPhys;
}

std::optional<std::size_t> ReadSome(const Descriptor& file, char* room, std::size_t size) {
    DWORD got = 0;
    if (::ReadFile(HandleOf(file.Get()), room, OneStep(size), &got, nullptr) == 0) return std::nullopt;
    return got;
}

// A pipe whose writer has gone is at its end.
std::optional<std::size_t> ReadWaiting(const Descriptor& file, char* room, std::size_t size) {
    const std::optional<std::size_t> got = ReadSome(file, room, size);
    return !got && GetLastError() == ERROR_BROKEN_PIPE ? std::optional<std::size_t>(0) : got;
}

std::optional<std::size_t> ReadStandardInput(char* room, std::size_t size) {
    const std::size_t got = console::ReadInput(room, size);
    const bool isEnd = signals::EndAsked() || signals::InterruptAsked() || GetLastError() == ERROR_BROKEN_PIPE;
    return got > 0 || isEnd || GetLastError() == ERROR_SUCCESS ? std::optional(got) : std::nullopt;
}

std::string LastFailure() {
    return LastMessage();
}

bool WriteBytes(FileNumber file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD written = 0;
        if (::WriteFile(HandleOf(file), bytes.data(), OneStep(bytes.size()), &written, nullptr) == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

std::optional<std::string> CurrentDirectory() {
    const std::wstring directory =
        SystemText([](wchar_t* room, DWORD length) { return GetCurrentDirectoryW(length, room); });
    directoryFailure = directory.empty() ? GetLastError() : 0;
    if (directoryFailure != 0) return std::nullopt;
    return FromWide(directory);
}

std::string LastSystemMessage() {
    return SystemMessage(directoryFailure);
}

std::string SystemAndMachine() {
    return "Windows x86_64";
}

} // namespace tolvane::platform
