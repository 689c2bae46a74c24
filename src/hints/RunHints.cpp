#include "hints/RunHints.h"

#include "hints/HintMsgs.h"
#include "image/Codes.h"
#include "image/Disassembly.h"
#include "messages/TMsgBase.h"

#include <algorithm>

namespace tolvane::hints {

namespace {

using enum image::Code;

// The first address behind the DS at an address; lines without a label belong to the one in front of them.
int EndOfRoom(const image::LinkedImage& image, int address) {
    const int first = image.LineOf(address);
    const auto belongs = [&](int line) {
        if (line < 0) return false;
        const image::LineText text = image.TextOf(line);
        return HasShape(text.opcode, Shape::Ds) && (line == first || text.label.empty());
    };
    int line = -1;
    for (int end = address; end < AddressCount; ++end) {
        if (image.LineOf(end) == line && end > address) continue;
        line = image.LineOf(end);
        if (!belongs(line)) return end;
    }
    return AddressCount;
}

std::string PlaceOf(const image::LinkedImage& image, int address) {
    const std::string label = image.LabelAt(address);
    return label.empty() ? image::Hex(address) : label;
}

} // namespace

std::optional<Hint> Overrun(const image::LinkedImage& image, int buffer, int characters) {
    const int room = EndOfRoom(image, buffer) - buffer;
    if (room == 0 || characters <= room) return std::nullopt;
    const std::string place = PlaceOf(image, buffer);
    const std::string behind = PlaceOf(image, buffer + room);
    return Hint{image.LineOf(comet2->PR), &HintMsg.InputOverran,
                TextOf(HintMsg.InputOverran, {characters, Utf8Arg{place}, room, Utf8Arg{behind}})};
}

bool ReturnWatch::IsNeeded(const image::LinkedImage& image) {
    bool calls = false;
    bool pushes = false;
    for (int line = 0; line < image.LineCount(); ++line) {
        const Opcode* const op = image.TextOf(line).opcode;
        if (op == nullptr) continue;
        calls = calls || op->code == Call;
        pushes = pushes || op->code == Push || op->pushes;
    }
    return calls && pushes;
}

void ReturnWatch::Observe(const Step& step) {
    const int code = step.word >> 8 & 0xFF;
    const int top = StackBottom - std::min(comet2->SP, step.before.SP); // that was put there or taken
    if (top < 0 || found) return;
    int& pusher = pushers[static_cast<std::size_t>(top)];
    if (code == Push || code == Call) pusher = code == Push ? step.before.PR : -1;
    const bool hasReturned = code == Ret && comet2->SP > step.before.SP;
    if (!hasReturned || pusher < 0) return;
    const std::string place = image::Hex(comet2->PR);
    found = Hint{image.LineOf(step.before.PR), &HintMsg.ReturnToPushed,
                 TextOf(HintMsg.ReturnToPushed, {Utf8Arg{place}, image.LineOf(pusher) + 1})};
}

} // namespace tolvane::hints
