// Each routine of the table looks for one thing in the whole program. What is meant now and then is left out: a hint
// that is wrong costs more than one that is missing.

#include "hints/Hints.h"

#include "hints/HintMsgs.h"
#include "hints/Program.h"
#include "image/Codes.h"
#include "machine/Tcomet2.h"
#include "messages/TMsgBase.h"
#include "text/Text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tolvane::hints {

namespace {

using enum image::Code;
using image::IsConditional;

class Finder {
public:
    explicit Finder(const image::LinkedImage& linked) : image(linked), program(linked) {}

    std::vector<Hint> All() {
        for (const auto check : Checks)
            (this->*check)();
        std::stable_sort(hints.begin(), hints.end(), [](const Hint& a, const Hint& b) { return a.line < b.line; });
        return std::move(hints);
    }

private:
    void BareLabels();
    void NumbersAsAddresses();
    void StoresToLiterals();
    void StoresIntoInstructions();
    void FallsIntoData();
    void FallsIntoSubroutines();
    void RegistersNeverSet();
    static constexpr void (Finder::*Checks[])() = {
        &Finder::BareLabels,        &Finder::NumbersAsAddresses,
        &Finder::StoresToLiterals,  &Finder::StoresIntoInstructions,
        &Finder::FallsIntoData,     &Finder::FallsIntoSubroutines,
        &Finder::RegistersNeverSet,
    };

    void Add(int line, const Msg& row, Args args) { hints.push_back({line, &row, TextOf(row, args)}); }
    std::string TextOfLine(int line) const;
    void CheckStore(int line, const char* opcode, int address);
    std::vector<int> RegistersSet() const;

    const image::LinkedImage& image;
    const Program program;
    std::vector<Hint> hints;
};

constexpr int AllRegisters = 0xFF;

int BitOf(int gr) {
    return 1 << gr;
}

// Operand n, from 0, of an instruction's text; empty without one.
std::string OperandOf(const std::string& code, int n) {
    std::size_t begin = std::min(code.find(' '), code.size());
    for (; n > 0; --n)
        begin = std::min(code.find(',', begin), code.size() - 1) + 1;
    return TrimZenBlankUtf8(code.substr(begin, code.find(',', begin) - begin));
}

bool IsNumber(const std::string& operand) {
    constexpr std::string_view Beginnings = "0123456789#+-";
    return !operand.empty() && Beginnings.find(operand[0]) != std::string_view::npos;
}

// The registers that an instruction works with.
int RegistersRead(const Instruction& i) {
    const bool isSame = i.r == i.x;
    if (isSame && (i.code == SubaRegister || i.code == SublRegister || i.code == XorRegister))
        return 0;                                // they clear it
    if (i.isService || i.code == Push) return 0; // a register that is only kept
    const bool isRegisterForm = i.code < Sla && i.words == 1;
    const int index = i.words == 2 && i.x != 0 ? BitOf(i.x) : isRegisterForm && i.code >= Ld ? BitOf(i.x) : 0;
    const bool readsR = (i.code > LdRegister && i.code < Jmi) || i.code == St;
    return index | (readsR ? BitOf(i.r) : 0);
}

int RegistersWritten(const Instruction& i) {
    const bool compares = i.code >= Cpa && i.code < Sla;
    const bool writes = (i.code >= Ld && i.code < Jmi && i.code != St && !compares) || i.code == Pop;
    return writes && !i.isService ? BitOf(i.r) : 0;
}

std::string Finder::TextOfLine(int line) const {
    const image::LineText text = image.TextOf(line);
    return text.label.empty() ? text.code : text.label + " " + text.code;
}

// A label with nothing but a comment behind it.
void Finder::BareLabels() {
    for (int line = 0; line < image.LineCount(); ++line) {
        const image::LineText text = image.TextOf(line);
        if (text.opcode == nullptr && !text.label.empty()) Add(line, HintMsg.BareLabel, {Utf8Arg{text.label}});
    }
}

// LD, CPA, ADDA and so on with a plain number in the place of an address.
void Finder::NumbersAsAddresses() {
    for (const Instruction& i : program.All()) {
        const image::LineText text = image.TextOf(i.line);
        if (!HasShape(text.opcode, Shape::RegisterOrAddress) || i.words != 2 || i.x != 0) continue;
        const std::string operand = OperandOf(text.code, 1);
        const std::string opcode(text.opcode->word);
        if (IsNumber(operand)) Add(i.line, HintMsg.NumberAsAddress, {Utf8Arg{opcode}, Utf8Arg{operand}});
    }
}

void Finder::StoresToLiterals() {
    for (const Instruction& i : program.All()) {
        if (i.code != St) continue;
        const std::string operand = OperandOf(image.TextOf(i.line).code, 1);
        if (operand.starts_with('=')) Add(i.line, HintMsg.StoreToLiteral, {Utf8Arg{operand}});
    }
}

void Finder::CheckStore(int line, const char* opcode, int address) {
    if (!program.IsCode(address)) return;
    const std::string place = image.PlaceText(address);
    Add(line, HintMsg.StoreIntoInstruction, {Utf8Arg{opcode}, Utf8Arg{place}});
}

// ST or IN to a label that stands in front of an instruction.
void Finder::StoresIntoInstructions() {
    for (const Instruction& i : program.All()) {
        if (i.code == St && i.x == 0) CheckStore(i.line, "ST", i.second);
        const bool isIn = i.isService && i.code == Svc && i.second == Tcomet2::ServiceIn;
        if (!isIn) continue;
        for (const int distance : {4, 2}) // LAD GR1,buffer and LAD GR2,length stand in front of SVC
            CheckStore(i.line, "IN", program.At(i.address - distance)->second);
    }
}

// The run goes on behind an instruction where no other one stands. Of several jumps one behind the other the last may
// be there for what is left.
void Finder::FallsIntoData() {
    const Instruction* before = nullptr;
    for (const Instruction& i : program.All()) {
        const bool isOneOfSeveral = before != nullptr && IsConditional(before->code) && IsConditional(i.code) &&
                                    before->address + 2 == i.address;
        before = &i;
        const int behind = i.address + i.words;
        if (!program.IsReached(i) || !GoesOn(i) || isOneOfSeveral || program.At(behind) != nullptr) continue;
        const int line = image.LineOf(behind);
        if (line < 0) {
            Add(i.line, HintMsg.FallsOff, {});
            continue;
        }
        const std::string text = TextOfLine(line);
        Add(i.line, HintMsg.FallsIntoData, {Utf8Arg{text}});
    }
}

// The main program goes on into what is called elsewhere, or into the next program.
void Finder::FallsIntoSubroutines() {
    for (const Instruction& i : program.All()) {
        const Instruction* const behind = program.At(i.address + i.words);
        if (!program.IsMain(i) || !GoesOn(i) || behind == nullptr) continue;
        const bool isNextProgram = HasShape(image.TextOf(behind->line).opcode, Shape::Start);
        if (!isNextProgram && !program.IsCalled(behind->address)) continue;
        const std::string label = image.LabelAt(behind->address);
        Add(i.line, HintMsg.FallsIntoSubroutine, {Utf8Arg{label}});
    }
}

// By instruction, the registers into which something may have been put on a way to it; -1 if there is no way. A CALL
// may put something into all.
std::vector<int> Finder::RegistersSet() const {
    const std::vector<Instruction>& all = program.All();
    std::vector<int> set(all.size(), -1);
    std::vector<const Instruction*> open;
    const auto arrive = [&](const Instruction* at, int registers) {
        if (at == nullptr) return;
        int& old = set[static_cast<std::size_t>(at - all.data())];
        const int together = std::max(old, 0) | registers;
        if (old >= 0 && old == together) return;
        old = together;
        open.push_back(at);
    };
    arrive(program.At(0), 0);
    while (!open.empty()) {
        const Instruction& i = *open.back();
        open.pop_back();
        const int before = set[static_cast<std::size_t>(&i - all.data())];
        const int behind = i.code == Call ? AllRegisters : before | RegistersWritten(i);
        for (const Instruction* next : program.Next(i))
            arrive(next, behind);
        arrive(program.Called(i), before);
    }
    return set;
}

// A register is read, but on no way to there has anything been put into it. Told once for each.
void Finder::RegistersNeverSet() {
    const std::vector<int> set = RegistersSet();
    int told = 0;
    for (std::size_t n = 0; n < set.size(); ++n) {
        const Instruction& i = program.All()[n];
        const int fresh = set[n] < 0 ? 0 : RegistersRead(i) & ~set[n] & ~told;
        told |= fresh;
        for (int gr = 0; gr < 8; ++gr) {
            const std::string name = "GR" + std::to_string(gr);
            if ((fresh & BitOf(gr)) != 0) Add(i.line, HintMsg.NeverSet, {Utf8Arg{name}});
        }
    }
}

} // namespace

std::vector<Hint> HintsOf(const image::LinkedImage& image) {
    return Finder(image).All();
}

} // namespace tolvane::hints
