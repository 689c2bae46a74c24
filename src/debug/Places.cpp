#include "debug/Places.h"

#include "debug/DebugMsgs.h"
#include "image/Disassembly.h"
#include "messages/TMsgBase.h"

#include <algorithm>
#include <charconv>

namespace tolvane::debug {

namespace {

using debugger::Cell;

std::optional<std::int64_t> NumberIn(std::string_view text, int base) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
    return number;
}

std::string UpperCase(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

std::optional<Cell> RegisterOf(const std::string& text) {
    const std::string name = UpperCase(text);
    if (name.size() == 3 && name.starts_with("GR") && name[2] >= '0' && name[2] <= '7')
        return Cell{Cell::Kind::GR, name[2] - '0'};
    if (name == "SP") return Cell{Cell::Kind::SP};
    if (name == "FOVF" || name == "OF") return Cell{Cell::Kind::Fovf};
    if (name == "FSIGN" || name == "SF") return Cell{Cell::Kind::Fsign};
    if (name == "FZERO" || name == "ZF") return Cell{Cell::Kind::Fzero};
    return std::nullopt;
}

bool IsFlag(const Cell& cell) {
    return cell.kind == Cell::Kind::Fovf || cell.kind == Cell::Kind::Fsign || cell.kind == Cell::Kind::Fzero;
}

std::string Digits(const Cell& cell, int value) {
    return IsFlag(cell) ? std::to_string(value) : image::Hex(value);
}

} // namespace

std::optional<std::int64_t> NumberOf(const std::string& text) {
    return NumberIn(text, 10);
}

Places::Places(const image::LinkedImage& linked)
    : image(linked), firstAddress(static_cast<std::size_t>(linked.LineCount()), -1) {
    for (int address = comet2->ReservedWords - 1; address >= 0; --address) {
        const int line = image.LineOf(address);
        if (line >= 0) firstAddress[static_cast<std::size_t>(line)] = address;
    }
    std::string program;
    for (int line = 0; line < image.LineCount(); ++line) {
        const image::LineText text = image.TextOf(line);
        if (text.code.starts_with("START")) program = text.label;
        if (!text.label.empty()) symbols.push_back({program, text.label, text.address});
    }
}

std::optional<int> Places::AddressOf(const std::string& text, int near) const {
    if (text.starts_with("#")) {
        const auto address = NumberIn(std::string_view(text).substr(1), 16);
        if (address && *address < AddressCount) return static_cast<int>(*address);
    } else if (const auto line = NumberOf(text)) {
        if (*line >= 1 && *line <= image.LineCount()) return AddressOfLine(text, static_cast<int>(*line) - 1);
    } else if (const auto address = AddressOfLabel(text, near)) {
        return address;
    }
    Say(DebugMsg.NoPlace, {Utf8Arg{text}, image.LineCount()});
    return std::nullopt;
}

std::optional<int> Places::AddressOfLine(const std::string& text, int line) const {
    if (FirstAddress(line) >= 0) return FirstAddress(line);
    for (int next = line + 1; next < image.LineCount(); ++next) {
        if (FirstAddress(next) < 0) continue;
        Say(DebugMsg.NoWords, {Utf8Arg{text}, next + 1});
        return std::nullopt;
    }
    Say(DebugMsg.NoWordsBehind, {Utf8Arg{text}});
    return std::nullopt;
}

std::string Places::ProgramAt(int address) const {
    std::string program;
    for (int line = 0; line <= image.LineOf(address); ++line) {
        const image::LineText text = image.TextOf(line);
        if (text.code.starts_with("START")) program = text.label;
    }
    return program;
}

// As it is typed, or else in upper case.
std::optional<int> Places::AddressOfLabel(const std::string& text, int near) const {
    const std::size_t plus = std::min(text.find('+'), text.size());
    const auto distance = plus == text.size() ? 0 : NumberOf(text.substr(plus + 1));
    if (!distance || *distance >= AddressCount) return std::nullopt;
    const std::string nearProgram = ProgramAt(near);
    for (const std::string& name : {text.substr(0, plus), UpperCase(text.substr(0, plus))}) {
        const Symbol* found = nullptr;
        for (const Symbol& symbol : symbols) {
            const bool isNamed = name == symbol.label || name == symbol.program + "." + symbol.label;
            if (isNamed && (found == nullptr || symbol.program == nearProgram)) found = &symbol;
        }
        if (found != nullptr && found->address + *distance < AddressCount)
            return found->address + static_cast<int>(*distance);
    }
    return std::nullopt;
}

std::optional<Cell> Places::CellOf(const std::string& text, int near) const {
    if (const auto cell = RegisterOf(text)) return cell;
    const bool isPlace = text.starts_with("#") || NumberOf(text) || AddressOfLabel(text, near);
    if (!isPlace) {
        Say(DebugMsg.NoCell, {Utf8Arg{text}});
        return std::nullopt;
    }
    const auto address = AddressOf(text, near);
    if (!address) return std::nullopt;
    return Cell{Cell::Kind::Word, *address};
}

std::string Places::NameOf(const Cell& cell) const {
    switch (cell.kind) {
    case Cell::Kind::GR:
        return "GR" + std::to_string(cell.index);
    case Cell::Kind::SP:
        return "SP";
    case Cell::Kind::Fovf:
        return "Fovf";
    case Cell::Kind::Fsign:
        return "Fsign";
    case Cell::Kind::Fzero:
        return "Fzero";
    case Cell::Kind::Word:
        break;
    }
    const std::string label = image.LabelAt(cell.index);
    return image::Hex(cell.index) + (label.empty() ? "" : " " + label);
}

std::string Places::ValueText(const Cell& cell, int value) const {
    std::string text = NameOf(cell) + "=" + Digits(cell, value);
    if (IsFlag(cell)) return text;
    text += " (" + std::to_string(value);
    if ((value & 0x8000) != 0 && cell.kind != Cell::Kind::SP) text += ", " + std::to_string(value - 0x10000);
    return text + ")";
}

std::string Places::ChangeText(const debugger::Change& change) const {
    return "[" + std::to_string(change.moment) + "] " + InstructionAt(change.address, change.word, change.second) +
           "  " + NameOf(change.cell) + "=" + Digits(change.cell, change.before) + " -> " +
           Digits(change.cell, change.after);
}

std::string Places::InstructionAt(int address, int word, int second) const {
    const std::string label = image.LabelAt(address);
    const int line = image.LineOf(address);
    std::string code = image.InstructionText(address, word, second);
    if (image.IsAsLinked(address, word, second) && FirstAddress(line) != address)
        code = image::Disassembled(word, second) + " (" + code + ")";
    return image::Hex(address) + (label.empty() ? "" : " " + label) + ": " + code;
}

std::string Places::PlaceText(int address) const {
    const auto at = static_cast<std::size_t>(address);
    return InstructionAt(address, comet2->Memory[at], comet2->Memory[at + 1]);
}

} // namespace tolvane::debug
