#pragma once
// The words of the language: every opcode with what tells it from the others. The fields of a line hold a pointer into
// this table; nobody compares opcode words.

#include "text/Text.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace tolvane {

// What stands behind the opcode.
enum class Shape : std::uint8_t {
    RegisterOrAddress, // r1,r2 or r,adr[,x]
    RegisterAddress,   // r,adr[,x]
    Address,           // adr[,x]
    Register,          // r
    NoOperand,
    RpushRpop, // no operand; a macro instruction
    InOut,     // two labels; a macro instruction
    Start,
    End,
    Dc,
    Ds,
};

// How TrimZenOprndCom tidies the operand text.
enum class Tidy : std::uint8_t { None, Simple, Careful, CarefulWithCommas };

struct Opcode {
    std::string_view word;
    Shape shape;
    int code = 0;         // operation code, with an address where the shape has one
    int registerCode = 0; // operation code of r1,r2
    Tidy tidy = Tidy::None;
    int service = 0;                  // of the virtual OS, for a macro that asks for one
    bool pushes = false;              // RPUSH, where RPOP pops
    bool takesLiteral = true;         // CkLiteral15 judges an "=" in its operand text
    bool reachesPrograms = false;     // the name of another program is no reason to warn
    bool ofArrayPipelineOnly = false; // where the pipeline has hasExit
};

namespace opcodes {

using enum Shape;

// clang-format off
inline constexpr std::array<Opcode, 37> Table = {{
    {.word = "LD",   .shape = RegisterOrAddress, .code = 0x10, .registerCode = 0x14},
    {.word = "ADDA", .shape = RegisterOrAddress, .code = 0x20, .registerCode = 0x24},
    {.word = "SUBA", .shape = RegisterOrAddress, .code = 0x21, .registerCode = 0x25},
    {.word = "ADDL", .shape = RegisterOrAddress, .code = 0x22, .registerCode = 0x26},
    {.word = "SUBL", .shape = RegisterOrAddress, .code = 0x23, .registerCode = 0x27},
    {.word = "AND",  .shape = RegisterOrAddress, .code = 0x30, .registerCode = 0x34},
    {.word = "OR",   .shape = RegisterOrAddress, .code = 0x31, .registerCode = 0x35},
    {.word = "XOR",  .shape = RegisterOrAddress, .code = 0x32, .registerCode = 0x36},
    {.word = "CPA",  .shape = RegisterOrAddress, .code = 0x40, .registerCode = 0x44},
    {.word = "CPL",  .shape = RegisterOrAddress, .code = 0x41, .registerCode = 0x45},

    {.word = "ST",   .shape = RegisterAddress, .code = 0x11},
    {.word = "LAD",  .shape = RegisterAddress, .code = 0x12, .reachesPrograms = true},
    {.word = "SLA",  .shape = RegisterAddress, .code = 0x50},
    {.word = "SRA",  .shape = RegisterAddress, .code = 0x51},
    {.word = "SLL",  .shape = RegisterAddress, .code = 0x52},
    {.word = "SRL",  .shape = RegisterAddress, .code = 0x53},

    {.word = "JMI",  .shape = Address, .code = 0x61},
    {.word = "JNZ",  .shape = Address, .code = 0x62},
    {.word = "JZE",  .shape = Address, .code = 0x63},
    {.word = "JUMP", .shape = Address, .code = 0x64},
    {.word = "JPL",  .shape = Address, .code = 0x65},
    {.word = "JOV",  .shape = Address, .code = 0x66},
    {.word = "PUSH", .shape = Address, .code = 0x70, .tidy = Tidy::Careful},
    {.word = "CALL", .shape = Address, .code = 0x80, .tidy = Tidy::Careful, .reachesPrograms = true},
    {.word = "SVC",  .shape = Address, .code = 0xF0, .tidy = Tidy::Careful},

    {.word = "POP",  .shape = Register, .code = 0x71, .tidy = Tidy::Simple},

    // RemoveNoOprndOpSemiColn looks for the words without operands in this order.
    {.word = "NOP",   .shape = NoOperand, .code = 0x00, .takesLiteral = false},
    {.word = "RPUSH", .shape = RpushRpop, .pushes = true, .takesLiteral = false},
    {.word = "RPOP",  .shape = RpushRpop, .takesLiteral = false},
    {.word = "RET",   .shape = NoOperand, .code = 0x81, .takesLiteral = false},
    {.word = "END",   .shape = End, .takesLiteral = false},
    {.word = "EXIT",  .shape = NoOperand, .code = 0x88, .ofArrayPipelineOnly = true},

    {.word = "IN",    .shape = InOut, .tidy = Tidy::Simple, .service = 1},
    {.word = "OUT",   .shape = InOut, .tidy = Tidy::Simple, .service = 2},
    {.word = "START", .shape = Start, .tidy = Tidy::Simple, .takesLiteral = false},
    {.word = "DC",    .shape = Dc, .tidy = Tidy::CarefulWithCommas, .takesLiteral = false},
    {.word = "DS",    .shape = Ds, .tidy = Tidy::Simple, .takesLiteral = false},
}};
// clang-format on

// The letters of a word as one number; 0 for a text that cannot be a word of the table.
template <class Word> constexpr std::uint64_t KeyOf(Word word) {
    std::uint64_t key = 0;
    if (word.size() > 5) return 0;
    for (const auto c : word) {
        const auto unit = static_cast<std::uint64_t>(c);
        if (unit == 0 || unit > 0x7F) return 0;
        key = key << 8 | unit;
    }
    return key;
}

inline constexpr auto Keys = [] {
    std::array<std::uint64_t, Table.size()> keys{};
    for (std::size_t i = 0; i < Table.size(); ++i)
        keys[i] = KeyOf(Table[i].word);
    return keys;
}();

constexpr bool AreUnique() {
    for (std::size_t i = 0; i < Table.size(); ++i)
        for (std::size_t k = i + 1; k < Table.size(); ++k)
            if (Keys[i] == Keys[k] || (Table[i].code != 0 && Table[i].code == Table[k].code)) return false;
    return true;
}
static_assert(AreUnique());

} // namespace opcodes

// The opcode of a word; null for a word that is none, and for EXIT unless `withExit`.
template <class Ch> const Opcode* FindOpcode(View<Ch> word, bool withExit) {
    const std::uint64_t key = opcodes::KeyOf(word);
    if (key == 0) return nullptr;
    for (std::size_t i = 0; i < opcodes::Keys.size(); ++i)
        if (opcodes::Keys[i] == key && (withExit || !opcodes::Table[i].ofArrayPipelineOnly)) return &opcodes::Table[i];
    return nullptr;
}

// Whether a line has an opcode of the shape. False for a null opcode.
constexpr bool HasShape(const Opcode* op, Shape shape) {
    return op != nullptr && op->shape == shape;
}
constexpr bool IsDcOrDs(const Opcode* op) {
    return HasShape(op, Shape::Dc) || HasShape(op, Shape::Ds);
}
// Whether the instruction takes no operand at all. EXIT is none of those that messages speak of.
constexpr bool StandsAlone(const Opcode& op) {
    const bool plain = op.shape == Shape::NoOperand || op.shape == Shape::RpushRpop || op.shape == Shape::End;
    return plain && !op.ofArrayPipelineOnly;
}

} // namespace tolvane
