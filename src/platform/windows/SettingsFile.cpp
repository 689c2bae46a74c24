#include "platform/SettingsFile.h"

#include "platform/Descriptor.h"
#include "platform/Files.h"
#include "platform/windows/System.h"

namespace tolvane::platform {

namespace {

std::wstring BesideName(const std::string& name) {
    return Wide(name + ".unfinished.tmp");
}

// Makes the file beside the settings, for this program alone. Another one that ends in the same folder is waited for.
Descriptor MakeBeside(const std::wstring& beside) {
    constexpr int tries = 200;
    constexpr DWORD pause = 5;
    for (int i = 0; i < tries; ++i) {
        if (i > 0) Sleep(pause);
        const HANDLE made =
            CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (made != INVALID_HANDLE_VALUE) return Descriptor(reinterpret_cast<FileNumber>(made));
        if (GetLastError() != ERROR_SHARING_VIOLATION) break;
    }
    return Descriptor(-1);
}

// Writes the whole file beside the old one and puts it in its place. False if none can be made there.
bool WriteBeside(const std::string& name, std::string_view bytes) {
    const std::wstring beside = BesideName(name);
    Descriptor file = MakeBeside(beside);
    if (file.Get() < 0) return false;
    constexpr DWORD how = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    bool good = WriteBytes(file.Get(), bytes) && FlushFileBuffers(reinterpret_cast<HANDLE>(file.Get())) != 0;
    good = file.Close() && good && MoveFileExW(beside.c_str(), Wide(name).c_str(), how) != 0;
    if (!good) DeleteFileW(beside.c_str());
    return true;
}

} // namespace

std::string SettingsName(const std::string& path) {
    std::string name = ResolvedName(SystemPath(path));
    DeleteFileW(BesideName(name).c_str()); // refused while another program writes it
    return name;
}

std::optional<std::string> ReadSettings(const std::string& path) {
    if (auto bytes = ReadFile(path)) return bytes;
    if (GetFileAttributesW(Wide(SystemPath(path)).c_str()) == INVALID_FILE_ATTRIBUTES &&
        GetLastError() == ERROR_FILE_NOT_FOUND)
        return "";
    return std::nullopt;
}

void WriteSettings(const std::string& name, std::string_view bytes, std::string_view old) {
    if (!WriteBeside(name, bytes) && WriteFile(name, bytes)) WriteFile(name, old);
}

} // namespace tolvane::platform
