#include "image/LinkedImage.h"

#include "image/Disassembly.h"
#include "linker/Linker.h"
#include "machine/Tcomet2.h"
#include "records/Records.h"
#include "text/Convert.h"

namespace tolvane::image {

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

template <class Ch> LineText TextOfRecord(const SrcData<Ch>& src) {
    LineText text;
    text.source = AsUtf8(src.strSrc);
    text.label = AsUtf8(src.strLabel);
    text.code = TrimZenBlankUtf8(AsUtf8(src.strOp) + " " + AsUtf8(src.strOprndCom));
    text.ends = HasShape(src.op, Shape::End);
    text.isInstruction = src.op != nullptr && !IsDcOrDs(src.op);
    text.opcode = src.op;
    text.address = src.AbAdr;
    if (const TLiteConst<Ch>* literal = b->Literal(src)) text.literalAddress = literal->AbAdr;
    return text;
}

int MemoryAt(int address) {
    return comet2->Memory[static_cast<std::size_t>(address)];
}

} // namespace

LinkedImage::LinkedImage() : linked(comet2->Memory.begin(), comet2->Memory.begin() + comet2->ReservedWords) {
    if (!modeFlags->Pipe->buildsLineOfWord) SetLineOfWord<char>();
}

int LinkedImage::LineCount() const {
    return static_cast<int>(IsWidePipeline() ? b->vecSrcW.size() : b->vecSrcA.size());
}

LineText LinkedImage::TextOf(int line) const {
    const auto i = static_cast<std::size_t>(line);
    return IsWidePipeline() ? TextOfRecord(b->vecSrcW[i]) : TextOfRecord(b->vecSrcA[i]);
}

int LinkedImage::LineOf(int address) const {
    return comet2->LineOfWord[static_cast<std::size_t>(address)];
}

std::string LinkedImage::LabelAt(int address) const {
    for (int line = LineOf(address); line >= 0; --line) {
        const LineText text = TextOf(line);
        if (text.ends) return {};
        if (text.label.empty()) continue;
        const int distance = address - text.address;
        return distance == 0 ? text.label : text.label + "+" + std::to_string(distance);
    }
    return {};
}

bool LinkedImage::IsAsLinked(int address, int word, int second) const {
    const int line = LineOf(address);
    if (line < 0) return false;
    const LineText text = TextOf(line);
    const bool isLiteral = text.literalAddress >= 0 && address >= text.literalAddress;
    if (!text.isInstruction || isLiteral) return false;
    const auto at = [this](int a) { return linked[static_cast<std::size_t>(a)]; };
    int begin = text.address; // of the instructions of its line one after the other: a macro has several
    while (begin < address)
        begin += WordsOf(at(begin));
    const auto same = [](int one, int other) { return ((one ^ other) & 0xFFFF) == 0; };
    if (begin != address || !same(word, at(address))) return false;
    return WordsOf(word) == 1 || same(second, at(address + 1));
}

std::string LinkedImage::InstructionText(int address, int word, int second) const {
    return IsAsLinked(address, word, second) ? TextOf(LineOf(address)).code : Disassembled(word, second);
}

std::string LinkedImage::PlaceText(int address) const {
    const std::string label = LabelAt(address);
    const std::string instruction = InstructionText(address, MemoryAt(address), MemoryAt(address + 1));
    return Hex(address) + (label.empty() ? "" : " " + label) + ": " + instruction;
}

} // namespace tolvane::image
