#include "platform/FileWriter.h"

#include "platform/Files.h"
#include "platform/windows/System.h"

namespace tolvane::platform {

namespace {

// Why no file of that name can be written; 0 if one can.
DWORD TroubleOf(const std::string& name) {
    if (name.empty() || name.find('\0') != std::string::npos) return ERROR_FILE_NOT_FOUND;
    constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const DWORD attributes = GetFileAttributesW(Wide(name).c_str());
    const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
    if (isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return DirectoryNotSupported;
    const HANDLE file = CreateFileW(Wide(name).c_str(), GENERIC_WRITE, shared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return isThere ? GetLastError() : 0;
    const bool isRegular = GetFileType(file) == FILE_TYPE_DISK; // "NUL" is a device in every folder
    CloseHandle(file);
    return isRegular ? 0 : ERROR_INVALID_NAME;
}

} // namespace

FileWriter::FileWriter(const std::string& path) : target(ResolvedName(SystemPath(path))), file(-1) {
    failure = static_cast<int>(TroubleOf(target));
    if (failure != 0) return;
    temporary = target + ".new";
    const HANDLE made = CreateFileW(Wide(temporary).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    file = Descriptor(reinterpret_cast<FileNumber>(made));
    if (file.Get() < 0) Fail();
}

FileWriter::~FileWriter() {
    DropTemporary();
}

void FileWriter::Write(std::string_view bytes) {
    if (failure == 0 && !WriteBytes(file.Get(), bytes)) Fail();
}

std::optional<std::string> FileWriter::Close() {
    const auto putInPlace = [this] {
        return MoveFileExW(Wide(temporary).c_str(), Wide(target).c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
    };
    if (failure == 0 && (!file.Close() || !putInPlace())) Fail();
    if (failure != 0) {
        DropTemporary();
        return SystemMessage(static_cast<DWORD>(failure));
    }
    temporary.clear();
    return std::nullopt;
}

void FileWriter::Fail() {
    failure = static_cast<int>(GetLastError());
}

void FileWriter::DropTemporary() {
    file.Close();
    if (!temporary.empty()) DeleteFileW(Wide(temporary).c_str());
    temporary.clear();
}

} // namespace tolvane::platform
