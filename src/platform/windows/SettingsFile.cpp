#include "platform/SettingsFile.h"

#include "platform/Files.h"
#include "platform/NewFile.h"
#include "platform/windows/System.h"

namespace tolvane::platform {

namespace {

// Writes the whole file beside the old one and puts it in its place.
bool WriteBeside(const std::string& name, std::string_view bytes) {
    NewFile file(name);
    return file.Get() >= 0 && WriteBytes(file.Get(), bytes) && file.Sync() && file.PutInPlace();
}

// Writes over the old bytes; if that fails, puts them back, for which the disk still has the room.
bool WriteOver(const std::string& name, std::string_view bytes, std::string_view old) {
    const HANDLE opened = CreateFileW(Wide(name).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    const Descriptor file(reinterpret_cast<FileNumber>(opened));
    if (file.Get() < 0) return false;
    if (WriteBytes(file.Get(), bytes)) return SetEndOfFile(opened) != 0;
    const DWORD failure = GetLastError();
    if (SetFilePointer(opened, 0, nullptr, FILE_BEGIN) == 0 && WriteBytes(file.Get(), old)) SetEndOfFile(opened);
    SetLastError(failure);
    return false;
}

} // namespace

std::optional<std::string> ReadSettings(const std::string& path) {
    if (auto bytes = ReadFile(path)) return bytes;
    if (GetFileAttributesW(Wide(SystemPath(path)).c_str()) == INVALID_FILE_ATTRIBUTES &&
        GetLastError() == ERROR_FILE_NOT_FOUND)
        return "";
    return std::nullopt;
}

bool WriteSettings(const std::string& name, std::string_view bytes, std::string_view old) {
    const DWORD attributes = GetFileAttributesW(Wide(name).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) return true;
    return WriteBeside(name, bytes) || WriteOver(name, bytes, old);
}

} // namespace tolvane::platform
