#include "platform/Console.h"

#include "platform/Signals.h"
#include "platform/StandardFiles.h"
#include "text/Convert.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tolvane::console {

namespace {

constexpr std::size_t LargeOutput = 64 * 1024;
constexpr std::size_t InputBlock = 64 * 1024;

class Output {
public:
    Output() = default;
    ~Output() { Flush(); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    std::string* instead = nullptr;           // where the text goes that the console does not show
    void (*lost)(const Loss& loss) = nullptr; // what is told when it cannot be shown
    bool errorLost = false;

    void Append(std::string_view bytes) {
        pending += bytes;
        if (pending.size() >= LargeOutput) Flush();
    }
    void Flush() {
        const auto loss = WriteOutput(pending);
        if (loss && lost != nullptr) lost(*loss);
        pending.clear();
        signals::EndIfAsked();
    }
    bool IsEmpty() const { return pending.empty(); }

private:
    std::string pending;
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

    // Waits for no more bytes than it has to.
    void SkipMark() {
        if (position == filled && !Fill()) return;
        const auto rest = [this] { return std::string_view(block.data() + position, filled - position); };
        while (position == 0 && rest().size() < Utf8Mark.size() && Utf8Mark.starts_with(rest())) {
            const std::size_t more = ReadInput(block.data() + filled, block.size() - filled);
            if (more == 0) return;
            filled += more;
        }
        if (rest().starts_with(Utf8Mark)) position += Utf8Mark.size();
    }

private:
    bool Fill() {
        filled = ReadInput(block.data(), block.size());
        position = 0;
        return filled > 0;
    }

    std::array<char, InputBlock> block;
    std::size_t position = 0;
    std::size_t filled = 0;
};

Input& TheInput() {
    static Input input;
    return input;
}

std::string_view FirstChars(std::string_view line, std::size_t limit) {
    std::size_t end = 0;
    for (std::size_t n = 0; n < limit && end < line.size(); ++n)
        end += InputCode().charBytes(line, end);
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

// The characters in front of the first bytes that are none.
std::string_view ValidPart(std::string_view line) {
    const CharacterCode& code = InputCode();
    std::size_t end = 0;
    while (end < line.size()) {
        const std::size_t length = code.charBytes(line, end);
        if (!code.isValid(line.substr(end, length))) break;
        end += length;
    }
    return line.substr(0, end);
}

// A text in a code; `bytes` holds it unless that is UTF-8.
std::string_view Encoded(const CharacterCode& code, std::string_view utf8, std::string& bytes) {
    if (code.IsUtf8()) return utf8;
    return bytes = code.encoded(utf8);
}

} // namespace

void Start(void (*lost)(const Loss& loss)) {
    TheOutput().lost = lost;
    OpenStandardFiles();
    signals::Install();
}

void Write(std::string_view utf8) {
    std::string bytes;
    if (TheOutput().instead != nullptr)
        TheOutput().instead->append(utf8);
    else
        TheOutput().Append(Encoded(OutputCode(), utf8, bytes));
}

std::string_view UsersMark() {
    return TextFileMark();
}

std::string_view InUsersCode(std::string_view utf8, std::string& bytes) {
    return Encoded(TextFileCode(), utf8, bytes);
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
    if (WriteErrorOutput(Encoded(ErrorCode(), utf8, bytes))) TheOutput().errorLost = true;
}

bool IsErrorLost() {
    return TheOutput().errorLost;
}

void WriteTo(std::string* text) {
    TheOutput().instead = text;
}

void SkipMark() {
    TheInput().SkipMark();
}

int ReadByte() {
    return TheInput().Next();
}

bool InputIsUtf8() {
    return InputCode().IsUtf8();
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
    TheInput().validLength = InputCode().decoded(ValidPart(line)).size();
    return InputCode().decoded(line);
}

std::size_t LastLineValidLength() {
    return TheInput().validLength;
}

bool IsTerminal() {
    static const bool is = OutputIsTerminal();
    return is && TheOutput().instead == nullptr;
}

bool IsErrorTerminal() {
    static const bool is = ErrorIsTerminal();
    return is;
}

bool InputIsTerminal() {
    return StandardInputIsTerminal();
}

} // namespace tolvane::console
