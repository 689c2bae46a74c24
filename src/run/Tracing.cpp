#include "run/Tracing.h"

#include "image/Codes.h"
#include "image/Disassembly.h"
#include "run/Errors.h"
#include "run/RunMsgs.h"

#include <algorithm>

namespace tolvane::run {

namespace {

using image::Hex;
using image::RegisterForm;
using enum image::Code;

constexpr std::size_t LabelWidth = 8;
constexpr std::size_t CodeWidth = 32;
constexpr std::size_t TextLength = 60; // characters of IN and OUT that are shown

int CodeOf(const Step& step) {
    return step.word >> 8 & 0xFF;
}

// The operation, whatever its operands are.
int OperationOf(const Step& step) {
    const int code = CodeOf(step);
    return code <= (Cpl | RegisterForm) ? code & ~RegisterForm : code;
}

int RegisterR(const Step& step) {
    return step.before.GR[static_cast<std::size_t>(step.word >> 4 & 7)];
}

int RegisterX(const Step& step) {
    return step.before.GR[static_cast<std::size_t>(step.word & 7)];
}

int EffectiveAddress(const Step& step) {
    return (step.second + ((step.word & 7) == 0 ? 0 : RegisterX(step))) & 0xFFFF;
}

int MemoryAt(int address) {
    return comet2->Memory[static_cast<std::size_t>(address)];
}

// The second operand of an instruction that computes, compares or loads; of POP the word from the stack.
int OperandOf(const Step& step) {
    const int code = CodeOf(step);
    if (code == Pop) return comet2->GR[static_cast<std::size_t>(step.word >> 4 & 7)];
    if (code >= Sla) return EffectiveAddress(step);
    return (code & RegisterForm) != 0 ? RegisterX(step) : MemoryAt(EffectiveAddress(step));
}

bool IsShift(int operation) {
    return operation >= Sla && operation <= Srl;
}

// As the instruction takes it: as a number with or without sign, or as bits.
std::string Number(int operation, int value) {
    if ((operation >= And && operation <= Xor) || operation == Sll || operation == Srl) return Hex(value);
    const bool isUnsigned = operation == Addl || operation == Subl || operation == Cpl;
    const int low = value & 0xFFFF;
    return std::to_string(low >= 0x8000 && !isUnsigned ? low - 0x10000 : low);
}

// "  (3 : 4)" of a comparison, "  (3, 4)" of what computes, "  (4)" of what loads.
std::string Operands(const Step& step, int operand) {
    const int operation = OperationOf(step);
    if (operation == Ld || operation == Pop) return "  (" + Number(operation, operand) + ")";
    const bool compares = operation == Cpa || operation == Cpl;
    if (operation <= Lad || (operation > Cpl && !IsShift(operation))) return {};
    const std::string second = IsShift(operation) ? std::to_string(operand) : Number(operation, operand);
    return "  (" + Number(operation, RegisterR(step)) + (compares ? " : " : ", ") + second + ")";
}

bool HoldsFor(int jump, const Registers& flags) {
    switch (jump) {
    case Jmi:
        return flags.Fsign != 0;
    case Jnz:
        return flags.Fzero == 0;
    case Jze:
        return flags.Fzero != 0;
    case Jpl:
        return flags.Fsign == 0 && flags.Fzero == 0;
    default:
        return flags.Fovf != 0;
    }
}

std::string Decision(const Step& step) {
    const int code = CodeOf(step);
    return image::IsConditional(code) ? "  " + TextOf(HoldsFor(code, step.before) ? RunMsg.Taken : RunMsg.NotTaken)
                                      : "";
}

void Pad(std::string& text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
}

void AddIfChanged(std::string& row, const std::string& name, int before, int after) {
    if ((before & 0xFFFF) != (after & 0xFFFF)) row += " " + name + "=" + Hex(after);
}

void AddFlag(std::string& row, const char* name, int before, int after) {
    if (before != after) row += std::string(" ") + name + "=" + std::to_string(after);
}

// The first characters of a line in quotation marks.
std::string Quoted(std::string_view line) {
    line = line.substr(0, line.find('\n'));
    std::size_t end = 0;
    for (std::size_t n = 0; n < TextLength && end < line.size(); ++n)
        do
            ++end;
        while (end < line.size() && (line[end] & 0xC0) == 0x80);
    return "\"" + std::string(line.substr(0, end)) + (end < line.size() ? "\"..." : "\"");
}

} // namespace

std::string ChangedRegisters(const Registers& before, const Registers& after) {
    std::string row;
    for (std::size_t n = 0; n < after.GR.size(); ++n)
        AddIfChanged(row, "GR" + std::to_string(n), before.GR[n], after.GR[n]);
    AddIfChanged(row, "SP", before.SP, after.SP);
    AddFlag(row, "Fovf", before.Fovf, after.Fovf);
    AddFlag(row, "Fsign", before.Fsign, after.Fsign);
    AddFlag(row, "Fzero", before.Fzero, after.Fzero);
    return row;
}

void AddCell(std::string& row, int address, int cell) {
    row += " [" + Hex(address) + "]=" + Hex(cell);
}

Tracer::Tracer(const image::LinkedImage& linked, int last)
    : image(linked), services(AddressCount), most(static_cast<std::size_t>(std::clamp(last, 0, MostKept))) {
    int line = -1;
    bool isService = false;
    for (int address = 0; address < comet2->ReservedWords; ++address) {
        if (const int owner = image.LineOf(address); owner != line) {
            line = owner;
            isService = line >= 0 && HasShape(image.TextOf(line).opcode, Shape::InOut);
        }
        services[static_cast<std::size_t>(address)] = isService;
    }
}

void Tracer::SetText(std::optional<std::string_view> line) {
    text = line ? Quoted(*line) : TextOf(RunMsg.EndOfInput);
}

// Whether the instruction is one of those that an IN or OUT consists of.
bool Tracer::IsInService(const Step& step) const {
    const int address = step.before.PR;
    return address < AddressCount && services[static_cast<std::size_t>(address)] &&
           image.IsAsLinked(address, step.word, step.second);
}

Tracer::Executed Tracer::WithEffects(const Step& step) const {
    Executed executed{step, comet2->RegistersNow(), OperandOf(step), {}, 0, {}};
    const int code = CodeOf(step);
    if (code == Svc) executed.text = text;
    if (step.written[0].cells > 0) executed.address = step.written[0].first;
    if (executed.address) executed.value = MemoryAt(*executed.address);
    const int top = StackBottom - comet2->SP;
    if ((code == Push || code == Call) && top >= 0) {
        executed.address = comet2->SP;
        executed.value = comet2->Stack[static_cast<std::size_t>(top)];
    }
    return executed;
}

void Tracer::Observe(const Step& step) {
    if (CodeOf(step) != Svc && IsInService(step)) return;
    const Executed executed = WithEffects(step);
    text.clear();
    if (most == 0) return WriteErr(RowOf(executed));
    if (kept.size() < most)
        kept.push_back(executed);
    else
        kept[count % most] = executed;
    ++count;
}

void Tracer::PrintKept() const {
    for (std::size_t i = 0; i < kept.size(); ++i)
        WriteErr(RowOf(kept[(count + i) % kept.size()]));
}

// Only the first instruction of a macro shows its source text; those behind it are shown as the machine reads them.
std::string Tracer::RowOf(const Executed& executed) const {
    const Step& step = executed.step;
    const int line = image.LineOf(step.before.PR);
    const image::LineText source = line < 0 ? image::LineText() : image.TextOf(line);
    const bool isService = IsInService(step);
    const int address = isService ? source.address : step.before.PR;
    const bool isFirst = line >= 0 && source.address == address;

    std::string label = isFirst ? source.label : "";
    Pad(label, LabelWidth);
    std::string code = isService ? source.code
                       : isFirst ? image.InstructionText(address, step.word, step.second)
                                 : image::Disassembled(step.word, step.second);
    if (!executed.text.empty()) code += "  " + executed.text;
    if (!isFirst || !HasShape(source.opcode, Shape::RpushRpop)) code += Operands(step, executed.operand);
    code += Decision(step);
    std::string changes = ChangedRegisters(step.before, executed.after);
    if (executed.address) AddCell(changes, *executed.address, executed.value);
    if (!changes.empty()) Pad(code, CodeWidth);
    return Hex(address) + " " + label + " " + code + changes + "\n";
}

} // namespace tolvane::run
