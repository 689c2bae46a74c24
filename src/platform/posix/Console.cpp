#include "platform/Console.h"

#include "platform/Signals.h"
#include "text/Convert.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <poll.h>
#include <unistd.h>

namespace tolvane::console {

namespace {

enum class Code { Utf8, ShiftJis, EucJp };

constexpr std::size_t LargeOutput = 64 * 1024;
constexpr std::size_t InputBlock = 64 * 1024;

// The value of the user's environment that names the console's character code, as the C library would choose it.
std::string_view LocaleName() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

// The code set of a locale's name, "ja_JP.eucJP@modifier", in small letters and digits alone.
std::string CodeSetOf(std::string_view locale) {
    const std::size_t dot = locale.find('.');
    if (dot == std::string_view::npos) return {};
    std::string name;
    for (char c : locale.substr(dot + 1)) {
        if (c == '@') break;
        if ('A' <= c && c <= 'Z') name += static_cast<char>(c - 'A' + 'a');
        if (('a' <= c && c <= 'z') || ('0' <= c && c <= '9')) name += c;
    }
    return name;
}

Code FindCode() {
    const std::string name = CodeSetOf(LocaleName());
    for (const char* sjis : {"shiftjis", "sjis", "cp932", "ms932", "windows31j"})
        if (name == sjis) return Code::ShiftJis;
    for (const char* euc : {"eucjp", "ujis"})
        if (name == euc) return Code::EucJp;
    return Code::Utf8;
}

Code ConsoleCode() {
    static const Code code = FindCode();
    return code;
}

// Whether a file is ready within some milliseconds; -1 waits for ever.
bool WaitFor(int file, short event, int milliseconds) {
    pollfd waiting{file, event, 0};
    return poll(&waiting, 1, milliseconds) > 0;
}

// The last bytes of a program that a signal ends: as many of them as the reader takes without making it wait.
void WriteLast(std::string_view bytes) {
    constexpr std::size_t alwaysFits = 512; // into a pipe that takes anything
    constexpr int patience = 100;
    while (!bytes.empty() && WaitFor(STDOUT_FILENO, POLLOUT, patience)) {
        const ssize_t written = write(STDOUT_FILENO, bytes.data(), std::min(bytes.size(), alwaysFits));
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR && errno != EAGAIN)
            return;
    }
}

class Output {
public:
    Output() { std::signal(SIGPIPE, SIG_IGN); }
    ~Output() { Flush(); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    std::string* instead = nullptr;          // where the text goes that the console does not show
    void (*lost)(const char* why) = nullptr; // what is told when it cannot be shown
    bool isClosed = false;                   // since the program's start

    void Append(std::string_view bytes) {
        pending += bytes;
        if (pending.size() >= LargeOutput) Flush();
    }
    void Flush() {
        WriteOut(pending);
        pending.clear();
        signals::EndIfAsked();
    }
    bool IsEmpty() const { return pending.empty(); }

private:
    std::string pending;

    void Lose(int error) const {
        if (lost != nullptr) lost(std::strerror(error));
    }
    // Writes all bytes. Where that is not possible, the program is told.
    void WriteOut(std::string_view bytes) const {
        if (isClosed && !bytes.empty()) return Lose(EBADF);
        while (!bytes.empty()) {
            if (signals::EndAsked()) return WriteLast(bytes);
            const ssize_t written = write(STDOUT_FILENO, bytes.data(), bytes.size());
            if (written > 0)
                bytes.remove_prefix(static_cast<std::size_t>(written));
            else if (written < 0 && errno == EAGAIN)
                WaitFor(STDOUT_FILENO, POLLOUT, -1);
            else if (written == 0 || errno != EINTR)
                return Lose(errno);
        }
    }
};

Output& TheOutput() {
    static Output output;
    return output;
}

// The bytes of the standard input one after the other. Its end is no lasting state: a terminal can go on behind it.
class Input {
public:
    std::size_t validLength = 0;

    // The next byte, -1 at the end of the input.
    int Next() {
        if (position == filled && !Fill()) return -1;
        return static_cast<unsigned char>(block[position++]);
    }

private:
    bool Fill() {
        for (;;) {
            if (!signals::WaitReadable(STDIN_FILENO)) {
                signals::EndIfAsked();
                return false;
            }
            const ssize_t got = read(STDIN_FILENO, block.data(), block.size());
            if (got < 0 && (errno == EINTR || errno == EAGAIN)) continue;
            position = 0;
            filled = got > 0 ? static_cast<std::size_t>(got) : 0;
            return got > 0;
        }
    }

    std::array<char, InputBlock> block;
    std::size_t position = 0;
    std::size_t filled = 0;
};

Input& TheInput() {
    static Input input;
    return input;
}

// Bytes of the character of the console's code that begins at i; 1 for a byte that begins none.
std::size_t CharBytes(std::string_view line, std::size_t i) {
    switch (ConsoleCode()) {
    case Code::ShiftJis:
        return IsLeadByte932(static_cast<unsigned char>(line[i])) && i + 1 < line.size() ? 2 : 1;
    case Code::EucJp:
        return EucLength(line, i);
    case Code::Utf8:
        break;
    }
    return std::max<std::size_t>(1, Utf8Length(line, i));
}

std::string_view FirstChars(std::string_view line, std::size_t limit) {
    std::size_t end = 0;
    for (std::size_t n = 0; n < limit && end < line.size(); ++n)
        end += CharBytes(line, end);
    return line.substr(0, end);
}

// The bytes of one line, at most `most` of them; nothing at the end of the input.
std::optional<std::string> ReadBytes(std::size_t most) {
    std::string line;
    bool whole = true;
    int c = TheInput().Next();
    if (c < 0) return std::nullopt;
    for (; c >= 0 && c != '\n'; c = TheInput().Next()) {
        if (line.size() < most)
            line += static_cast<char>(c);
        else
            whole = false;
    }
    if (whole && !line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

// A line in the console's code as UTF-8. Bytes of UTF-8 stay as they are in any case, because they may be the name of a
// file.
std::string Decoded(std::string_view line) {
    switch (ConsoleCode()) {
    case Code::ShiftJis:
        return Utf8From932(line);
    case Code::EucJp:
        return Utf8From932(EucTo932(line));
    case Code::Utf8:
        break;
    }
    return std::string(line);
}

bool IsValidChar(std::string_view bytes) {
    switch (ConsoleCode()) {
    case Code::ShiftJis:
        return IsValid932(bytes);
    case Code::EucJp:
        return bytes == "?" || EucTo932(bytes) != "?"; // a character without a place becomes one
    case Code::Utf8:
        break;
    }
    return Utf8Length(bytes, 0) > 0;
}

// The characters in front of the first bytes that are none.
std::string_view ValidPart(std::string_view line) {
    std::size_t end = 0;
    while (end < line.size()) {
        const std::size_t length = CharBytes(line, end);
        if (!IsValidChar(line.substr(end, length))) break;
        end += length;
    }
    return line.substr(0, end);
}

std::string Encoded(std::string_view utf8) {
    const std::string bytes = Narrow932(WideUtf8Lossy(utf8));
    return ConsoleCode() == Code::EucJp ? EucFrom932(bytes) : bytes;
}

} // namespace

void Start(void (*lost)(const char* why)) {
    TheOutput().lost = lost;
    // A file that is opened later must not get the number of a closed standard file.
    TheOutput().isClosed = fcntl(STDOUT_FILENO, F_GETFD) < 0;
    int file = STDIN_FILENO;
    while (0 <= file && file <= STDERR_FILENO)
        file = open("/dev/null", O_RDWR);
    if (file >= 0) close(file);
    signals::Install();
}

void Write(std::string_view utf8) {
    std::string bytes;
    if (TheOutput().instead != nullptr)
        TheOutput().instead->append(utf8);
    else
        TheOutput().Append(InUsersCode(utf8, bytes));
}

std::string_view InUsersCode(std::string_view utf8, std::string& bytes) {
    if (ConsoleCode() == Code::Utf8) return utf8;
    return bytes = Encoded(utf8);
}

void Flush() {
    TheOutput().Flush();
}

void FlushSoon() {
    if (IsTerminal())
        Flush();
    else if (!TheOutput().IsEmpty())
        signals::SetTimer();
}

void WriteError(std::string_view utf8) {
    std::string bytes;
    for (std::string_view rest = InUsersCode(utf8, bytes); !rest.empty();) {
        const ssize_t written = write(STDERR_FILENO, rest.data(), rest.size());
        if (written < 0 && errno != EINTR) return;
        if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

void WriteTo(std::string* text) {
    TheOutput().instead = text;
}

std::optional<std::string> ReadLine(std::size_t limit) {
    constexpr std::size_t longestChar = 4;
    constexpr std::size_t lineEnd = 1; // a CR that belongs to it
    Flush();
    TheInput().validLength = 0;
    const std::size_t counted = std::min(limit, std::numeric_limits<std::size_t>::max() / (2 * longestChar));
    const std::optional<std::string> bytes = ReadBytes(counted * longestChar + lineEnd);
    if (!bytes) return std::nullopt;
    const std::string_view line = FirstChars(*bytes, counted);
    TheInput().validLength = Decoded(ValidPart(line)).size();
    return Decoded(line);
}

std::size_t LastLineValidLength() {
    return TheInput().validLength;
}

bool IsTerminal() {
    static const bool is = isatty(STDOUT_FILENO) == 1;
    return is && TheOutput().instead == nullptr;
}

bool IsErrorTerminal() {
    static const bool is = isatty(STDERR_FILENO) == 1;
    return is;
}

} // namespace tolvane::console
