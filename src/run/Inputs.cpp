#include "run/Inputs.h"

#include "messages/TMsgBase.h"
#include "platform/Descriptor.h"
#include "platform/Files.h"
#include "run/RunMsgs.h"
#include "text/Convert.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tolvane::run {

namespace {

std::string SystemMessage() {
    return std::system_category().message(errno);
}

} // namespace

std::string WhyNotRead(const std::string& path) {
    const std::string name = platform::SystemPath(path);
    struct stat status {};
    if (stat(name.c_str(), &status) != 0) return SystemMessage();
    if (S_ISDIR(status.st_mode)) return std::system_category().message(EISDIR);
    if (!S_ISREG(status.st_mode)) return TextOf(RunMsg.NoRegularFile);
    const platform::Descriptor file(open(name.c_str(), O_RDONLY | O_CLOEXEC));
    return file.Get() < 0 ? SystemMessage() : TextOf(RunMsg.TooLarge);
}

StandardInputFile::StandardInputFile() {
    std::error_code error;
    std::string name = (std::filesystem::temp_directory_path(error) / "tolvane-run-XXXXXX").string();
    platform::Descriptor file(mkstemp(name.data()));
    if (file.Get() < 0) return;
    path = name;
    std::string block(65536, '\0');
    for (;;) {
        const ssize_t got = read(STDIN_FILENO, block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return;
        platform::WriteBytes(file.Get(), std::string_view(block).substr(0, static_cast<std::size_t>(got)));
    }
}

StandardInputFile::~StandardInputFile() {
    std::error_code error;
    if (!path.empty()) std::filesystem::remove(path, error);
}

InputLines::InputLines(const std::string& bytes) {
    const std::string_view text = WithoutUtf8Mark(bytes);
    const auto wide = WideUtf8(text);
    rest = wide ? *wide : Wide932(text);
}

std::optional<std::string> InputLines::Next(std::size_t limit) {
    if (rest.empty()) return std::nullopt;
    const std::size_t end = std::min(rest.find(u'\n'), rest.size());
    std::u16string line = rest.substr(0, end);
    rest.erase(0, end + 1);
    if (line.ends_with(u'\r')) line.pop_back();
    return Utf8(line.substr(0, limit));
}

} // namespace tolvane::run
