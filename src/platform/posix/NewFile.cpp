#include "platform/NewFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvane::platform {

namespace {

constexpr mode_t DefaultMode = 0666;
constexpr mode_t OwnMode = 0600; // until the rights of the old file are known to hold
constexpr mode_t Rights = 07777;

std::string FolderOf(const std::string& target) {
    return target.substr(0, target.rfind('/') + 1);
}

// Whether the open file still is the one of that name.
bool IsNamed(const Descriptor& file, const std::string& name) {
    struct stat opened {};
    struct stat named {};
    return fstat(file.Get(), &opened) == 0 && lstat(name.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

// Who writes a new file holds its lock, where the system has locks; one that nobody holds was left behind.
bool IsLocked(const Descriptor& file) {
    return flock(file.Get(), LOCK_EX | LOCK_NB) == 0;
}

void RemoveLeftover(const std::string& name) {
    const Descriptor file(open(name.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (file.Get() >= 0 && IsLocked(file) && IsNamed(file, name)) unlink(name.c_str());
}

// Makes a file with its lock; another program that clears up may have had it first, and takes it away.
Descriptor Make(std::string& name, const std::string& target, mode_t mode) {
    constexpr int tries = 100;
    for (int i = 0; i < tries; ++i) {
        name = FolderOf(target) + MakeNewName(static_cast<unsigned long>(getpid()));
        Descriptor file(open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (file.Get() < 0 && errno != EEXIST) break;
        if (file.Get() >= 0 && (IsLocked(file) || errno != EWOULDBLOCK) && IsNamed(file, name)) return file;
    }
    name.clear();
    return Descriptor(-1);
}

// An exchange, unlike a replacement, makes no file system write the data out first.
bool Exchange([[maybe_unused]] const std::string& name, [[maybe_unused]] const std::string& target) {
#ifdef RENAME_EXCHANGE
    return renameat2(AT_FDCWD, name.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0;
#else
    return false;
#endif
}

} // namespace

std::string ResolvedName(const std::string& name) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(name.c_str(), nullptr), &std::free);
    return real ? real.get() : name;
}

bool CanBeWritten(const std::string& name) {
    struct stat status {};
    errno = ENOENT;
    if (!IsSystemName(name)) return false;
    if (stat(name.c_str(), &status) != 0) return true;
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return S_ISREG(status.st_mode) && access(name.c_str(), W_OK) == 0;
}

NewFile::NewFile(const std::string& beside) : target(beside), file(-1) {
    RemoveLeftovers(target);
    struct stat old {};
    const bool isThere = stat(target.c_str(), &old) == 0;
    file = Make(name, target, isThere ? OwnMode : DefaultMode);
    if (isThere && file.Get() >= 0 && fchmod(file.Get(), old.st_mode & Rights) != 0) file.Close();
}

NewFile::~NewFile() {
    if (!name.empty()) unlink(name.c_str());
}

bool NewFile::Sync() const {
    return fsync(file.Get()) == 0;
}

bool NewFile::PutInPlace() {
    Descriptor closed(dup(file.Get())); // some failures are told only then, and the lock has to last
    if (!closed.Close()) return false;
    if (Exchange(name, target)) return true; // the old file has the name now, and goes with it
    if (std::rename(name.c_str(), target.c_str()) != 0) return false;
    name.clear();
    return true;
}

void RemoveLeftovers(const std::string& target) {
    const std::string folder = FolderOf(target);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()), closedir);
    if (!entries) return;
    while (const dirent* entry = readdir(entries.get()))
        if (IsNewName(entry->d_name)) RemoveLeftover(folder + entry->d_name);
}

} // namespace tolvane::platform
