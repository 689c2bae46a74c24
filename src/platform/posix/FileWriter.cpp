#include "platform/FileWriter.h"

#include "platform/Files.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tolvane::platform {

namespace {

constexpr mode_t DefaultMode = 0666;

// The file that a name stands for, behind symbolic links; the name itself where nothing is there yet.
std::string Resolved(const std::string& name) {
    char path[PATH_MAX];
    return realpath(name.c_str(), path) != nullptr ? path : name;
}

// An exchange, unlike a replacement, makes no file system write the data out first.
bool PutInPlace(const std::string& temporary, const std::string& target) {
    if (renameat2(AT_FDCWD, temporary.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0) {
        unlink(temporary.c_str());
        return true;
    }
    return std::rename(temporary.c_str(), target.c_str()) == 0;
}

} // namespace

FileWriter::FileWriter(const std::string& path) : target(Resolved(SystemPath(path))), file(-1) {
    struct stat old {};
    const bool isThere = stat(target.c_str(), &old) == 0;
    if (target.empty() || target.find('\0') != std::string::npos)
        failure = ENOENT;
    else if (isThere && S_ISDIR(old.st_mode))
        failure = EISDIR;
    else if (isThere && !S_ISREG(old.st_mode))
        failure = EINVAL;
    else if (isThere && access(target.c_str(), W_OK) != 0)
        failure = errno;
    if (failure != 0) return;

    temporary = target + ".new";
    unlink(temporary.c_str()); // what a run left that was cut off
    file = Descriptor(open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, DefaultMode));
    if (file.Get() < 0 || (isThere && fchmod(file.Get(), old.st_mode & 07777) != 0)) Fail();
}

FileWriter::~FileWriter() {
    DropTemporary();
}

void FileWriter::Write(std::string_view bytes) {
    if (failure == 0 && !WriteBytes(file.Get(), bytes)) Fail();
}

std::optional<std::string> FileWriter::Close() {
    if (failure == 0 && (!file.Close() || !PutInPlace(temporary, target))) Fail();
    if (failure != 0) {
        DropTemporary();
        return std::system_category().message(failure);
    }
    temporary.clear();
    return std::nullopt;
}

void FileWriter::Fail() {
    failure = errno;
}

void FileWriter::DropTemporary() {
    file.Close();
    if (!temporary.empty()) unlink(temporary.c_str());
    temporary.clear();
}

} // namespace tolvane::platform
