#include "hints/Program.h"

#include "image/Codes.h"
#include "image/Disassembly.h"
#include "machine/Tcomet2.h"

#include <algorithm>

namespace tolvane::hints {

namespace {

using enum image::Code;

int WordAt(int address) {
    return comet2->Memory[static_cast<std::size_t>(address)] & 0xFFFF;
}

} // namespace

bool GoesOn(const Instruction& instruction) {
    return instruction.code != Jump && instruction.code != Ret && instruction.code != Exit;
}

Program::Program(const image::LinkedImage& linked) : image(linked), indexAt(AddressCount, -1), called(AddressCount) {
    for (int line = 0; line < image.LineCount(); ++line)
        AddLine(line);
    std::sort(all.begin(), all.end(), [](const Instruction& a, const Instruction& b) { return a.address < b.address; });
    for (std::size_t i = 0; i < all.size(); ++i)
        std::fill_n(indexAt.begin() + all[i].address, all[i].words, static_cast<int>(i));
    reached = Reach(true);
    main = Reach(false);
    for (const Instruction& each : all)
        if (each.code == Call && each.x == 0 && IsReached(each)) called[static_cast<std::size_t>(each.second)] = true;
}

void Program::AddLine(int line) {
    const image::LineText text = image.TextOf(line);
    if (!text.isInstruction || text.ends) return;
    const bool isService = HasShape(text.opcode, Shape::InOut);
    const auto isOwn = [&](int a) {
        return a < comet2->ReservedWords && image.LineOf(a) == line &&
               (text.literalAddress < 0 || a < text.literalAddress);
    };
    for (int a = text.address; isOwn(a);) {
        const int word = WordAt(a);
        const int words = image::WordsOf(word);
        all.push_back({a, words, line, word >> 8, word >> 4 & 7, word & 7, WordAt(a + 1), isService});
        a += words;
    }
}

const Instruction* Program::At(int address) const {
    const int index = indexAt[static_cast<std::size_t>(address & 0xFFFF)];
    if (index < 0) return nullptr;
    const Instruction& found = all[static_cast<std::size_t>(index)];
    return found.address == address ? &found : nullptr;
}

bool Program::IsCode(int address) const {
    return indexAt[static_cast<std::size_t>(address & 0xFFFF)] >= 0;
}

std::vector<const Instruction*> Program::Next(const Instruction& instruction) const {
    std::vector<const Instruction*> next;
    const auto add = [&](int address) {
        if (const Instruction* each = At(address)) next.push_back(each);
    };
    if (GoesOn(instruction)) add(instruction.address + instruction.words);
    const bool jumps = instruction.code == Jump || image::IsConditional(instruction.code);
    if (jumps && instruction.x == 0) add(instruction.second);
    return next;
}

const Instruction* Program::Called(const Instruction& instruction) const {
    return instruction.code == Call && instruction.x == 0 ? At(instruction.second) : nullptr;
}

bool Program::Has(const std::vector<bool>& set, const Instruction& instruction) const {
    return set[static_cast<std::size_t>(&instruction - all.data())];
}

std::vector<bool> Program::Reach(bool throughCalls) const {
    std::vector<bool> seen(all.size());
    std::vector<const Instruction*> open = {At(0)};
    while (!open.empty()) {
        const Instruction* const each = open.back();
        open.pop_back();
        if (each == nullptr || seen[static_cast<std::size_t>(each - all.data())]) continue;
        seen[static_cast<std::size_t>(each - all.data())] = true;
        const auto next = Next(*each);
        open.insert(open.end(), next.begin(), next.end());
        if (throughCalls) open.push_back(Called(*each));
    }
    return seen;
}

} // namespace tolvane::hints
