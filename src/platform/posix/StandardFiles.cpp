#include "platform/StandardFiles.h"

#include "platform/Signals.h"
#include "platform/posix/Waiting.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tolvane::console {

namespace {

bool outputIsClosed = false; // since the program's start
bool errorIsClosed = false;
bool isStuck = false; // a reader has kept the program waiting behind a signal

const CharacterCode& ConsoleCode() {
    static const CharacterCode* const code = CodeOfLocale();
    return code != nullptr ? *code : Utf8Code;
}

// Whether a file is ready within some milliseconds; -1 waits for ever.
bool WaitFor(int file, short event, int milliseconds) {
    pollfd waiting{file, event, 0};
    return poll(&waiting, 1, milliseconds) > 0;
}

Loss LossOf(int number) {
    return {std::strerror(number), number == EPIPE};
}

// The last bytes of a program that a signal ends or stops: as many of them as the reader takes without making it wait.
// False if there are more.
bool WriteLast(int file, std::string_view bytes) {
    constexpr std::size_t alwaysFits = 512; // into a pipe that takes anything
    constexpr int patience = 100;
    while (!bytes.empty() && WaitFor(file, POLLOUT, patience)) {
        const ssize_t written = write(file, bytes.data(), std::min(bytes.size(), alwaysFits));
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR && errno != EAGAIN)
            return false;
    }
    return bytes.empty();
}

// Writes all bytes, or as many as can be written behind a signal.
std::optional<Loss> WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        if (isStuck || signals::EndAsked() || signals::InterruptAsked()) {
            isStuck = !WriteLast(file, bytes) || isStuck;
            break;
        }
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (written < 0 && errno == EAGAIN)
            WaitFor(file, POLLOUT, -1);
        else if (written == 0 || errno != EINTR)
            return LossOf(errno);
    }
    return std::nullopt;
}

} // namespace

void OpenStandardFiles() {
    for (const int signal : {SIGPIPE, SIGXFSZ}) // a write that fails says so
        std::signal(signal, SIG_IGN);
    // A file that is opened later must not get the number of a closed standard file.
    outputIsClosed = fcntl(STDOUT_FILENO, F_GETFD) < 0;
    errorIsClosed = fcntl(STDERR_FILENO, F_GETFD) < 0;
    int file = STDIN_FILENO;
    while (0 <= file && file <= STDERR_FILENO)
        file = open("/dev/null", O_RDWR);
    if (file >= 0) close(file);
}

const CharacterCode& InputCode() {
    return ConsoleCode();
}

const CharacterCode& OutputCode() {
    return ConsoleCode();
}

const CharacterCode& ErrorCode() {
    return ConsoleCode();
}

const CharacterCode& TextFileCode() {
    return ConsoleCode();
}

std::string_view TextFileMark() {
    return "";
}

std::size_t ReadInput(char* bytes, std::size_t size) {
    for (;;) {
        if (!signals::WaitReadable(STDIN_FILENO)) {
            signals::EndIfAsked();
            return 0;
        }
        const ssize_t got = read(STDIN_FILENO, bytes, size);
        if (got < 0 && (errno == EINTR || errno == EAGAIN)) continue;
        return got > 0 ? static_cast<std::size_t>(got) : 0;
    }
}

std::optional<Loss> WriteOutput(std::string_view bytes) {
    if (outputIsClosed && !bytes.empty()) return LossOf(EBADF);
    return WriteAll(STDOUT_FILENO, bytes);
}

std::optional<Loss> WriteErrorOutput(std::string_view bytes) {
    if (errorIsClosed && !bytes.empty()) return LossOf(EBADF);
    return WriteAll(STDERR_FILENO, bytes);
}

bool OutputIsTerminal() {
    return isatty(STDOUT_FILENO) == 1;
}

bool ErrorIsTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

bool StandardInputIsTerminal() {
    return isatty(STDIN_FILENO) == 1;
}

} // namespace tolvane::console
