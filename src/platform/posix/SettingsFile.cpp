#include "platform/SettingsFile.h"

#include "platform/Descriptor.h"
#include "platform/Files.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvane::platform {

namespace {

std::string BesideName(const std::string& name) {
    return name + ".unfinished.tmp";
}

// Whether the open file still is the one of that name.
bool IsNamed(const Descriptor& file, const std::string& name) {
    struct stat opened {};
    struct stat named {};
    return fstat(file.Get(), &opened) == 0 && lstat(name.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

// Who writes the file beside the settings holds its lock; one that nobody holds was left by a program that was killed.
bool Lock(const Descriptor& file) {
    return flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void RemoveLeftover(const std::string& beside) {
    const Descriptor file(open(beside.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.Get() >= 0 && Lock(file) && IsNamed(file, beside)) unlink(beside.c_str());
}

// Makes the file beside the settings, with its lock. Another program that ends in the same folder is waited for.
Descriptor MakeBeside(const std::string& beside, mode_t mode) {
    constexpr int tries = 200;
    constexpr useconds_t pause = 5000;
    for (int i = 0; i < tries; ++i) {
        if (i > 0) usleep(pause);
        Descriptor file(open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (file.Get() >= 0 && Lock(file) && IsNamed(file, beside)) return file;
        if (file.Get() < 0 && errno != EEXIST) break;
        RemoveLeftover(beside);
    }
    return Descriptor(-1);
}

// Writes the whole file beside the old one and puts it in its place, so that neither a full disk nor the end of this
// program costs the old file. False if none can be made there.
bool WriteBeside(const std::string& name, std::string_view bytes, const struct stat* replaced) {
    const std::string beside = BesideName(name);
    const Descriptor file = MakeBeside(beside, replaced != nullptr ? 0600 : 0666);
    if (file.Get() < 0) return false;
    bool good = replaced == nullptr || fchmod(file.Get(), replaced->st_mode & 07777) == 0;
    good = good && WriteBytes(file.Get(), bytes) && fsync(file.Get()) == 0;
    good = good && rename(beside.c_str(), name.c_str()) == 0;
    if (!good) unlink(beside.c_str());
    return true;
}

// Writes over the old bytes; if that fails, puts them back, for which the disk still has the room.
void WriteOver(const std::string& name, std::string_view bytes, std::string_view old) {
    const Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
    if (file.Get() < 0) return;
    std::string_view kept = bytes;
    if (!WriteBytes(file.Get(), bytes)) {
        kept = old;
        if (lseek(file.Get(), 0, SEEK_SET) != 0 || !WriteBytes(file.Get(), old)) return;
    }
    while (ftruncate(file.Get(), static_cast<off_t>(kept.size())) != 0 && errno == EINTR)
        continue;
}

// The file that a symbolic link stands for; the name itself where there is none.
std::string ResolvedName(const std::string& name) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(name.c_str(), nullptr), &std::free);
    return real ? real.get() : name;
}

} // namespace

std::string SettingsName(const std::string& path) {
    std::string name = ResolvedName(SystemPath(path));
    RemoveLeftover(BesideName(name));
    return name;
}

std::optional<std::string> ReadSettings(const std::string& path) {
    if (auto bytes = ReadFile(path)) return bytes;
    struct stat status {};
    if (stat(SystemPath(path).c_str(), &status) != 0 && errno == ENOENT) return "";
    return std::nullopt;
}

void WriteSettings(const std::string& name, std::string_view bytes, std::string_view old) {
    struct stat status {};
    const bool isThere = lstat(name.c_str(), &status) == 0;
    if (isThere && access(name.c_str(), W_OK) != 0 && !S_ISLNK(status.st_mode)) return;
    // A link to nothing, a second name and a file of somebody else would be lost by a file put in their place.
    const bool isOurs = S_ISREG(status.st_mode) && status.st_nlink == 1 && status.st_uid == geteuid();
    if (isThere && !isOurs) return WriteOver(name, bytes, old);
    if (!WriteBeside(name, bytes, isThere ? &status : nullptr)) WriteOver(name, bytes, old);
}

} // namespace tolvane::platform
