#include "image/Disassembly.h"

#include "records/Opcode.h"

namespace tolvane::image {

namespace {

constexpr int LastRegister = 7;

int CodeOf(int word) {
    return word >> 8 & 0xFF;
}
int FieldR(int word) {
    return word >> 4 & 0xF;
}
int FieldX(int word) {
    return word & 0xF;
}

const Opcode* OpcodeOf(int code) {
    for (const Opcode& op : opcodes::Table) {
        const bool isCode = op.code == code && (code != 0 || op.shape == Shape::NoOperand);
        if (isCode || (code != 0 && op.registerCode == code)) return &op;
    }
    return nullptr;
}

bool TakesAddress(const Opcode& op, int code) {
    const bool hasForm =
        op.shape == Shape::RegisterOrAddress || op.shape == Shape::RegisterAddress || op.shape == Shape::Address;
    return hasForm && op.code == code;
}

// Whether the machine refuses a field of the word: it looks at those that the instruction does not use, too, but for
// the ones that its table of nibbles leaves out.
bool IsRefused(const Opcode& op, int word) {
    if (op.code == 0) return (word & 0xFFFF) != 0;
    const bool ignoresR = op.shape == Shape::Address || op.word == "RET";
    const bool ignoresX = op.shape == Shape::Register || op.word == "RET";
    return (!ignoresR && FieldR(word) > LastRegister) || (!ignoresX && FieldX(word) > LastRegister);
}

std::string Register(int field) {
    return "GR" + std::to_string(field);
}

} // namespace

std::string Hex(int word) {
    std::string digits = "#";
    for (int shift = 12; shift >= 0; shift -= 4)
        digits += "0123456789ABCDEF"[word >> shift & 0xF];
    return digits;
}

int WordsOf(int word) {
    const Opcode* op = OpcodeOf(CodeOf(word));
    return op != nullptr && TakesAddress(*op, CodeOf(word)) ? 2 : 1;
}

std::string Disassembled(int word, int second) {
    const int code = CodeOf(word);
    const Opcode* op = OpcodeOf(code);
    if (op == nullptr || IsRefused(*op, word)) return Hex(word);
    const std::string name(op->word);
    const std::string address = Hex(second) + (FieldX(word) == 0 ? "" : ", " + Register(FieldX(word)));
    switch (op->shape) {
    case Shape::RegisterOrAddress:
    case Shape::RegisterAddress:
        return name + " " + Register(FieldR(word)) + ", " +
               (TakesAddress(*op, code) ? address : Register(FieldX(word)));
    case Shape::Address:
        return name + " " + address;
    case Shape::Register:
        return name + " " + Register(FieldR(word));
    default:
        return name;
    }
}

} // namespace tolvane::image
