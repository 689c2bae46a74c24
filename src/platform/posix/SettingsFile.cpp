#include "platform/SettingsFile.h"

#include "platform/Files.h"
#include "platform/NewFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvane::platform {

namespace {

// Writes the whole file beside the old one and puts it in its place, so that neither a full disk nor the end of this
// program costs the old file.
bool WriteBeside(const std::string& name, std::string_view bytes) {
    NewFile file(name);
    return file.Get() >= 0 && WriteBytes(file.Get(), bytes) && file.Sync() && file.PutInPlace();
}

bool Truncate(const Descriptor& file, std::size_t size) {
    while (ftruncate(file.Get(), static_cast<off_t>(size)) != 0)
        if (errno != EINTR) return false;
    return true;
}

// Writes over the old bytes; if that fails, puts them back, for which the disk still has the room.
bool WriteOver(const std::string& name, std::string_view bytes, std::string_view old, bool isThere) {
    const Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
    if (file.Get() < 0) return false;
    if (WriteBytes(file.Get(), bytes)) return Truncate(file, bytes.size());
    const int failure = errno;
    if (!isThere)
        unlink(name.c_str());
    else if (lseek(file.Get(), 0, SEEK_SET) == 0 && WriteBytes(file.Get(), old))
        Truncate(file, old.size());
    errno = failure;
    return false;
}

// A link to nothing, a second name and a file of somebody else would be lost by a file put in their place.
bool CanBeReplaced(const struct stat& file) {
    return S_ISREG(file.st_mode) && file.st_nlink == 1 && file.st_uid == geteuid();
}

} // namespace

std::optional<std::string> ReadSettings(const std::string& path) {
    if (auto bytes = ReadFile(path)) return bytes;
    struct stat status {};
    if (stat(SystemPath(path).c_str(), &status) != 0 && errno == ENOENT) return "";
    return std::nullopt;
}

bool WriteSettings(const std::string& name, std::string_view bytes, std::string_view old) {
    struct stat status {};
    const bool isThere = lstat(name.c_str(), &status) == 0;
    if (isThere && access(name.c_str(), W_OK) != 0 && !S_ISLNK(status.st_mode)) return true;
    if ((!isThere || CanBeReplaced(status)) && WriteBeside(name, bytes)) return true;
    return WriteOver(name, bytes, old, isThere);
}

} // namespace tolvane::platform
