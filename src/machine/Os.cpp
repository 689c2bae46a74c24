// The virtual OS: the services that a simulated program asks for with SVC. GR1 holds the address of the characters, one
// UTF-16 unit in a word, and GR2 the address of the word with their number. Cells behind address 65535 take no part.

#include "machine/MachineMsgs.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane {

namespace {

constexpr int ServiceIn = 1;
constexpr int ServiceOut = 2;
constexpr std::size_t ReadLimit = 1024; // characters of a console line that are looked at
constexpr int InputLimit = 256;         // bytes of them that count, as code page 932 holds them

constexpr bool IsHighSurrogate(char16_t unit) {
    return 0xD800 <= unit && unit <= 0xDBFF;
}

// The characters of the text that fit into the limit. What code page 932 does not hold counts two bytes.
TextW CutToInputLimit(const TextW& text) {
    int bytes = 0;
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t units = IsHighSurrogate(text[end]) && end + 1 < text.size() ? 2 : 1;
        bytes += ByteLength932(text[end]) == 1 ? 1 : 2;
        if (bytes > InputLimit) break;
        end += units;
    }
    return text.substr(0, end);
}

// Narrow sources hold a character as the bytes of code page 932, one in a word: they are joined again. A wider word is
// a UTF-16 unit all the same, as IN stores it.
TextW JoinBytes(const TextW& words) {
    TextW text;
    std::string bytes;
    for (char16_t word : words) {
        if (word <= 0xFF) {
            bytes += static_cast<char>(word);
            continue;
        }
        text += Wide932(bytes) + word;
        bytes.clear();
    }
    return text + Wide932(bytes);
}

} // namespace

void Tcomet2::OsSvc(int number) {
    switch (number) {
    case ServiceIn:
        return OsIn();
    case ServiceOut:
        return OsOut();
    default:
        return Print(MachineMsg.UnknownService, {number});
    }
}

void Tcomet2::OsOut() const {
    const int buffer = GR[1] & 0xFFFF;
    const int length = Memory[static_cast<std::size_t>(GR[2] & 0xFFFF)];
    const int end = buffer + std::clamp(length, 0, AddressCount - buffer);
    TextW text;
    for (int a = buffer; a < end; ++a)
        text += static_cast<char16_t>(Memory[static_cast<std::size_t>(a)] & 0xFFFF);

    if (modeFlags->Pipe->text == TextKind::Narrow) text = JoinBytes(text);

    Print(MachineMsg.OutHead);
    console::Write(Utf8(text) + "\n");
    if (console::IsTerminal()) console::Flush();
}

void Tcomet2::OsIn() {
    Print(MachineMsg.InHead);
    std::string line = console::ReadLine(ReadLimit).value_or(std::string());
    line.resize(std::min(line.find('\0'), line.size()));
    TextW text = CutToInputLimit(WideUtf8Lossy(line));
    if (Utf8(text).size() > console::LastLineValidLength()) {
        Print(MachineMsg.InNotConverted);
        text.clear();
    }

    Memory[static_cast<std::size_t>(GR[2] & 0xFFFF)] = static_cast<int>(text.size());
    std::size_t cell = static_cast<std::size_t>(GR[1] & 0xFFFF);
    for (char16_t unit : text) {
        if (cell >= AddressCount) break;
        Memory[cell++] = unit;
    }
}

} // namespace tolvane
