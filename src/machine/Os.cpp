// The virtual OS: the services that a simulated program asks for with SVC. GR1 holds the address of the characters, one
// UTF-16 unit in a word, and GR2 the address of the word with their number. Cells behind address 65535 take no part.

#include "machine/MachineMsgs.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "platform/Signals.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane {

namespace {

constexpr std::size_t ReadLimit = 1024; // characters of a console line that are looked at
constexpr int MostInputEnds = 1000;     // INs in a row at the end of the input; a program that goes on is endless
constexpr int InputLimit = 256;         // bytes of them that count, as code page 932 holds them

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

void WriteToDialogue(void*, const std::string& line) {
    Say(MachineMsg.OutHead);
    console::Write(line);
    console::FlushSoon();
}

std::optional<MachineIo::Line> ReadFromDialogue(void*, std::size_t limit) {
    Say(MachineMsg.InHead);
    auto line = console::ReadLine(limit);
    if (!line) return std::nullopt;
    return MachineIo::Line{std::move(*line), console::LastLineValidLength()};
}

void SayInDialogue(void*, const Msg& msg, Args args) {
    Say(msg, args);
    console::FlushSoon();
}

} // namespace

constinit const MachineIo DialogueIo{WriteToDialogue, ReadFromDialogue, SayInDialogue, nullptr};

Stop Tcomet2::OsSvc(int number) {
    if (number == ServiceIn) return OsIn();
    if (number == ServiceOut)
        OsOut();
    else
        Io->say(Io->context, MachineMsg.UnknownService, {number});
    return Stop::None;
}

void Tcomet2::OsOut() const {
    const int buffer = GR[1] & 0xFFFF;
    const int length = Memory[static_cast<std::size_t>(GR[2] & 0xFFFF)];
    const int end = buffer + std::clamp(length, 0, AddressCount - buffer);
    TextW text;
    for (int a = buffer; a < end; ++a)
        text += static_cast<char16_t>(Memory[static_cast<std::size_t>(a)] & 0xFFFF);

    if (modeFlags->Pipe->text == TextKind::Narrow) text = JoinBytes(text);
    Io->write(Io->context, Utf8(text) + "\n");
}

// Where a line is there before it is asked for, nobody has waited for it, and a signal is left to the run loop.
Stop Tcomet2::OsIn() {
    if (Io->isReady != nullptr && !Io->isReady(Io->context)) return Stop::InputWanted;
    const std::optional<MachineIo::Line> line = Io->read(Io->context, ReadLimit);
    if (Io->isReady == nullptr && signals::TakeInterrupt()) return Stop::Interrupted;
    InputEnds = line ? 0 : InputEnds + 1;
    if (InputEnds == MostInputEnds) return Stop::InputEnded;

    TextW text;
    if (line) text = CutToInputLimit(WideUtf8Lossy(line->text.substr(0, line->text.find('\0'))));
    if (line && Utf8(text).size() > line->validLength) {
        Io->say(Io->context, MachineMsg.InNotConverted, {});
        text.clear();
    }

    Memory[static_cast<std::size_t>(GR[2] & 0xFFFF)] = static_cast<int>(text.size());
    const int buffer = GR[1] & 0xFFFF;
    InputCells = std::min(static_cast<int>(text.size()), AddressCount - buffer);
    std::copy_n(text.begin(), InputCells, Memory.begin() + buffer);
    if (Io->stored != nullptr) Io->stored(Io->context, buffer, InputCells);
    return Stop::None;
}

} // namespace tolvane
