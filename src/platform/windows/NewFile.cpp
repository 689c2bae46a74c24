#include "platform/NewFile.h"

#include "platform/windows/System.h"

namespace tolvane::platform {

namespace {

HANDLE HandleOf(const Descriptor& file) {
    return reinterpret_cast<HANDLE>(file.Get());
}

std::string FolderOf(const std::string& target) {
    return target.substr(0, target.find_last_of("/\\:") + 1);
}

// Makes a file that others can read but not remove.
Descriptor Make(std::string& name, const std::string& target) {
    constexpr int tries = 100;
    for (int i = 0; i < tries; ++i) {
        name = FolderOf(target) + MakeNewName(GetCurrentProcessId());
        const HANDLE made = CreateFileW(Wide(name).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        if (made != INVALID_HANDLE_VALUE) return Descriptor(reinterpret_cast<FileNumber>(made));
        if (GetLastError() != ERROR_FILE_EXISTS) break;
    }
    name.clear();
    return Descriptor(-1);
}

// Between its last byte and its place nobody has a file open: a young one may be there.
bool IsOld(const FILETIME& written) {
    constexpr ULONGLONG minute = 600'000'000; // in units of 100 nanoseconds
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const auto count = [](const FILETIME& time) { return ULONGLONG{time.dwHighDateTime} << 32 | time.dwLowDateTime; };
    return count(now) > count(written) + minute;
}

} // namespace

std::string ResolvedName(const std::string& name) {
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const DWORD attributes = GetFileAttributesW(Wide(name).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return name;
    const HANDLE file = CreateFileW(Wide(name).c_str(), 0, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return name;
    const std::wstring path = SystemText([&](wchar_t* room, DWORD length) {
        return GetFinalPathNameByHandleW(file, room, length, FILE_NAME_NORMALIZED);
    });
    CloseHandle(file);
    return path.empty() ? name : FromWide(path);
}

bool CanBeWritten(const std::string& name) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    if (!IsSystemName(name)) return false;
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const DWORD attributes = GetFileAttributesW(Wide(name).c_str());
    const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
    SetLastError(DirectoryNotSupported);
    if (isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return false;
    const HANDLE file = CreateFileW(Wide(name).c_str(), GENERIC_WRITE, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return !isThere;
    const bool isRegular = GetFileType(file) == FILE_TYPE_DISK; // "NUL" is a device in every folder
    CloseHandle(file);
    SetLastError(ERROR_INVALID_NAME);
    return isRegular;
}

NewFile::NewFile(const std::string& beside) : target(beside), file(-1) {
    RemoveLeftovers(target);
    file = Make(name, target);
}

NewFile::~NewFile() {
    file.Close();
    if (!name.empty()) DeleteFileW(Wide(name).c_str());
}

bool NewFile::Sync() const {
    return FlushFileBuffers(HandleOf(file)) != 0;
}

// Who has just opened the old file, another program that replaces it or one that looks through all files, is waited
// for.
bool NewFile::PutInPlace() {
    constexpr int tries = 100;
    constexpr DWORD pause = 10;
    if (!file.Close()) return false;
    for (int i = 0; i < tries; ++i) {
        if (MoveFileExW(Wide(name).c_str(), Wide(target).c_str(), MOVEFILE_REPLACE_EXISTING) != 0) {
            name.clear();
            return true;
        }
        if (GetLastError() != ERROR_ACCESS_DENIED && GetLastError() != ERROR_SHARING_VIOLATION) return false;
        Sleep(pause);
    }
    return false;
}

void RemoveLeftovers(const std::string& target) {
    const std::string folder = FolderOf(target);
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(Wide(folder + "*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::string name = FromWide(found.cFileName);
        if (IsNewName(name) && IsOld(found.ftLastWriteTime)) DeleteFileW(Wide(folder + name).c_str());
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
}

} // namespace tolvane::platform
