#include "platform/FileWriter.h"

#include "platform/Files.h"

namespace tolvane::platform {

FileWriter::FileWriter(const std::string& path) {
    const std::string target = ResolvedName(SystemPath(path));
    const bool good = CanBeWritten(target) && file.emplace(target).Get() >= 0;
    if (!good) Fail();
}

void FileWriter::Write(std::string_view bytes) {
    if (!failure && !WriteBytes(file->Get(), bytes)) Fail();
}

std::optional<std::string> FileWriter::Close() {
    if (!failure && !file->PutInPlace()) Fail();
    file.reset();
    return failure;
}

void FileWriter::Fail() {
    failure = LastFailure();
}

} // namespace tolvane::platform
