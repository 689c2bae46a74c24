#pragma once
// Places and cells as they are typed, and as they are shown.

#include "debugger/Debugger.h"
#include "image/LinkedImage.h"

#include <optional>
#include <string>
#include <vector>

namespace tolvane::debug {

class Places {
public:
    explicit Places(const image::LinkedImage& linked);

    // The address of a label, PROGRAM.LABEL, each with +N, a line number or an address, as it is typed. A label of
    // several programs is that of the program that owns `near`. Otherwise nothing, and one line has told what is
    // possible.
    std::optional<int> AddressOf(const std::string& text, int near) const;
    // A register, a flag or a word, in the same way.
    std::optional<debugger::Cell> CellOf(const std::string& text, int near) const;
    // The first address of a line, -1 if it has no words.
    int FirstAddress(int line) const { return firstAddress[static_cast<std::size_t>(line)]; }

    // "GR1", "#0042 SUM"
    std::string NameOf(const debugger::Cell& cell) const;
    // "GR1=#0037 (55)", with the signed value where it is another; "Fzero=1"
    std::string ValueText(const debugger::Cell& cell, int value) const;
    // "[11] #0006 LOOP: ADDA GR1,GR2  GR1=#002D -> #0037"
    std::string ChangeText(const debugger::Change& change) const;
    // "#0006 LOOP: ADDA GR1,GR2", of an instruction with these words, and of the one that stands there now. Those of a
    // macro behind its first one are told as the machine reads them: "#0010 LOOP+9: SVC #0002 (OUT TEXT,LENGTH)".
    std::string InstructionAt(int address, int word, int second) const;
    std::string PlaceText(int address) const;

private:
    struct Symbol {
        std::string program;
        std::string label;
        int address;
    };

    std::optional<int> AddressOfLabel(const std::string& text, int near) const;
    std::optional<int> AddressOfLine(const std::string& text, int line) const;
    std::string ProgramAt(int address) const;

    const image::LinkedImage& image;
    std::vector<Symbol> symbols;
    std::vector<int> firstAddress;
};

// A number of a decimal text up to a limit, nothing otherwise.
std::optional<std::int64_t> NumberOf(const std::string& text);

} // namespace tolvane::debug
