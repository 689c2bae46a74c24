#include "run/Tracing.h"

#include "image/Disassembly.h"
#include "run/Errors.h"

#include <string>

namespace tolvane::run {

namespace {

using image::Hex;

constexpr std::size_t LabelWidth = 8;
constexpr std::size_t CodeWidth = 24;

void Pad(std::string& text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
}

void AddIfChanged(std::string& row, const std::string& name, int before, int after) {
    if ((before & 0xFFFF) != (after & 0xFFFF)) row += " " + name + "=" + Hex(after);
}

void AddFlag(std::string& row, const char* name, int before, int after) {
    if (before != after) row += std::string(" ") + name + "=" + std::to_string(after);
}

std::string Changes(const Step& step) {
    std::string row = ChangedRegisters(step.before);
    for (const Step::Stretch& stretch : step.written)
        for (int a = stretch.first; a < stretch.first + stretch.cells; ++a)
            AddCell(row, a, comet2->Memory[static_cast<std::size_t>(a)]);
    const int top = StackBottom - comet2->SP;
    if (comet2->SP < step.before.SP && top >= 0) AddCell(row, comet2->SP, comet2->Stack[static_cast<std::size_t>(top)]);
    return row;
}

} // namespace

std::string ChangedRegisters(const Registers& before) {
    std::string row;
    for (std::size_t n = 0; n < comet2->GR.size(); ++n)
        AddIfChanged(row, "GR" + std::to_string(n), before.GR[n], comet2->GR[n]);
    AddIfChanged(row, "SP", before.SP, comet2->SP);
    AddFlag(row, "Fovf", before.Fovf, comet2->Fovf);
    AddFlag(row, "Fsign", before.Fsign, comet2->Fsign);
    AddFlag(row, "Fzero", before.Fzero, comet2->Fzero);
    return row;
}

void AddCell(std::string& row, int address, int cell) {
    row += " [" + Hex(address) + "]=" + Hex(cell);
}

// Only the first instruction of a macro shows its source text; those behind it are shown as the machine reads them.
void TraceStep(const image::LinkedImage& image, const Step& step) {
    const int address = step.before.PR;
    const int line = image.LineOf(address);
    const image::LineText text = line < 0 ? image::LineText() : image.TextOf(line);
    const bool isFirst = line >= 0 && text.address == address;

    std::string label = isFirst ? text.label : "";
    Pad(label, LabelWidth);
    std::string code =
        isFirst ? image.InstructionText(address, step.word, step.second) : image::Disassembled(step.word, step.second);
    const std::string changes = Changes(step);
    if (!changes.empty()) Pad(code, CodeWidth);
    WriteErr(Hex(address) + " " + label + " " + code + changes + "\n");
}

} // namespace tolvane::run
