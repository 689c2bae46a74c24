#include "run/LineText.h"

#include "linker/Linker.h"
#include "machine/Tcomet2.h"
#include "records/Records.h"
#include "text/Convert.h"

namespace tolvane::run {

namespace {

std::string AsUtf8(ViewW text) {
    return Utf8(text);
}
std::string AsUtf8(ViewA text) {
    return Utf8From932(text);
}

bool IsWidePipeline() {
    return modeFlags->Pipe->text == TextKind::Wide;
}

template <class Ch> LineText TextOf(const SrcData<Ch>& src) {
    LineText text;
    text.source = AsUtf8(src.strSrc);
    text.label = AsUtf8(src.strLabel);
    text.code = TrimZenBlankUtf8(AsUtf8(src.strOp) + " " + AsUtf8(src.strOprndCom));
    text.ends = HasShape(src.op, Shape::End);
    text.address = src.AbAdr;
    if (const TLiteConst<Ch>* literal = b->Literal(src)) text.literalAddress = literal->AbAdr;
    return text;
}

// The nearest label of the same program in front of an address: "LOOP", "LOOP+2"; empty without one.
std::string LabelAt(int line, int address) {
    for (; line >= 0; --line) {
        const LineText text = TextOfLine(line);
        if (text.ends) return {};
        if (text.label.empty()) continue;
        const int distance = address - text.address;
        return distance == 0 ? text.label : text.label + "+" + std::to_string(distance);
    }
    return {};
}

const Opcode* OpcodeOf(int code) {
    for (const Opcode& op : opcodes::Table) {
        const bool isCode = op.code == code && (code != 0 || op.shape == Shape::NoOperand);
        if (isCode || (code != 0 && op.registerCode == code)) return &op;
    }
    return nullptr;
}

std::string Register(int nibble) {
    return "GR" + std::to_string(nibble & 7);
}

} // namespace

int LineCount() {
    return static_cast<int>(IsWidePipeline() ? b->vecSrcW.size() : b->vecSrcA.size());
}

LineText TextOfLine(int line) {
    const auto i = static_cast<std::size_t>(line);
    return IsWidePipeline() ? TextOf(b->vecSrcW[i]) : TextOf(b->vecSrcA[i]);
}

void PrepareLines() {
    if (!modeFlags->Pipe->buildsLineOfWord) SetLineOfWord<char>();
}

int LineOfAddress(int address) {
    return comet2->LineOfWord[static_cast<std::size_t>(address)];
}

std::string PlaceText(int address) {
    const int line = LineOfAddress(address);
    const auto cell = static_cast<std::size_t>(address);
    std::string text = Hex(address);
    if (line < 0) return text + ": " + Disassembled(comet2->Memory[cell], comet2->Memory[cell + 1]);
    const std::string label = LabelAt(line, address);
    return text + (label.empty() ? "" : " " + label) + ": " + TextOfLine(line).code;
}

std::string Disassembled(int word, int second) {
    const int code = word >> 8 & 0xFF;
    const Opcode* op = OpcodeOf(code);
    if (op == nullptr) return Hex(word);
    std::string name(op->word);
    const std::string address = Hex(second) + ((word & 7) == 0 ? "" : ", " + Register(word));
    switch (op->shape) {
    case Shape::RegisterOrAddress:
    case Shape::RegisterAddress:
        return name + " " + Register(word >> 4) + ", " + (op->code == code ? address : Register(word));
    case Shape::Address:
        return name + " " + address;
    case Shape::Register:
        return name + " " + Register(word >> 4);
    default:
        return name;
    }
}

std::string Hex(int word) {
    std::string digits = "#";
    for (int shift = 12; shift >= 0; shift -= 4)
        digits += "0123456789ABCDEF"[word >> shift & 0xF];
    return digits;
}

} // namespace tolvane::run
