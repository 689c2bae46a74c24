#pragma once
// The twenty-six machine instructions with operands, as data: what tells each from its twins.

#include "operands/HandlerMsgs.h"
#include "operands/RegisterMsgs.h"
#include "text/Text.h"

#include <array>

namespace tolvane {

enum class Shape {
    RegisterOrAddress, // r1,r2 or r,adr[,x]
    RegisterAddress,   // r,adr[,x]
    Address,           // adr[,x]
    Register,          // r
};

struct Instruction {
    const char* op;
    Shape shape;
    int code;                          // operation code, with an address where the shape has one
    int registerCode = 0;              // operation code of r1,r2
    const Msg* missing = nullptr;      // the address or second operand is not there
    const Msg* name = nullptr;         // the instruction's name in the head of `missing`, shape Address
    const Msg* form = nullptr;         // r1,r2 is refused in these words, not in the shared ones
    const Msg* optionalForm = nullptr; // the same, where the pipeline has srl2OwnForm
    char lastFormDigit = 0;            // GR0 up to this one make the refused form r1,r2
    const Msg* noOperands = nullptr;   // no operand at all, where the pipeline has ld2LooksFirst
    bool exactRegister2 = false;       // a second register counts only as a whole operand
    bool warnsOfGR89 = false;          // GR8 and GR9 as labels draw a Warning
    const Msg* warning = nullptr;      // drawn by every use
};

// The instructions without operands that are more than a 0.
inline constexpr int RetWord = 0x8100;
inline constexpr int ExitWord = 0x8800;

namespace instructions {

using enum Shape;
inline constexpr const HandlerCatalogue& H = HandlerMsg;
inline constexpr const RegisterCatalogue& R = RegisterMsg;

// clang-format off
inline constexpr std::array<Instruction, 26> Table = {{
    {.op = "LD", .shape = RegisterOrAddress, .code = 0x10, .registerCode = 0x14, .missing = &H.NoOperand2Ld,
     .noOperands = &H.NoOperandsLd, .exactRegister2 = true},
    {.op = "ADDA", .shape = RegisterOrAddress, .code = 0x20, .registerCode = 0x24, .missing = &H.NoOperand2Adda},
    {.op = "SUBA", .shape = RegisterOrAddress, .code = 0x21, .registerCode = 0x25, .missing = &H.NoOperand2Suba},
    {.op = "ADDL", .shape = RegisterOrAddress, .code = 0x22, .registerCode = 0x26, .missing = &H.NoOperand2Addl},
    {.op = "SUBL", .shape = RegisterOrAddress, .code = 0x23, .registerCode = 0x27, .missing = &H.NoOperand2Subl},
    {.op = "AND",  .shape = RegisterOrAddress, .code = 0x30, .registerCode = 0x34, .missing = &H.NoOperand2And},
    {.op = "OR",   .shape = RegisterOrAddress, .code = 0x31, .registerCode = 0x35, .missing = &H.NoOperand2Or},
    {.op = "XOR",  .shape = RegisterOrAddress, .code = 0x32, .registerCode = 0x36, .missing = &H.NoOperand2Xor},
    {.op = "CPA",  .shape = RegisterOrAddress, .code = 0x40, .registerCode = 0x44, .missing = &H.NoOperand2Cpa},
    {.op = "CPL",  .shape = RegisterOrAddress, .code = 0x41, .registerCode = 0x45, .missing = &H.NoOperand2Cpl},

    {.op = "ST",  .shape = RegisterAddress, .code = 0x11, .missing = &H.NoOperand2St,  .lastFormDigit = '9'},
    {.op = "LAD", .shape = RegisterAddress, .code = 0x12, .missing = &H.NoOperand2Lad, .lastFormDigit = '7',
     .warnsOfGR89 = true},
    {.op = "SLA", .shape = RegisterAddress, .code = 0x50, .missing = &H.NoOperand2Sla, .lastFormDigit = '9'},
    {.op = "SRA", .shape = RegisterAddress, .code = 0x51, .missing = &H.NoOperand2Sra, .form = &H.FormSra,
     .lastFormDigit = '7'},
    {.op = "SLL", .shape = RegisterAddress, .code = 0x52, .missing = &H.NoOperand2Sll, .lastFormDigit = '9'},
    {.op = "SRL", .shape = RegisterAddress, .code = 0x53, .missing = &H.NoOperand2Srl, .optionalForm = &H.FormSrl,
     .lastFormDigit = '9'},

    {.op = "JMI",  .shape = Address, .code = 0x61, .missing = &R.NoBranchAddress, .name = &R.NameJmi},
    {.op = "JNZ",  .shape = Address, .code = 0x62, .missing = &R.NoBranchAddress, .name = &R.NameJnz},
    {.op = "JZE",  .shape = Address, .code = 0x63, .missing = &R.NoBranchAddress, .name = &R.NameJze},
    {.op = "JUMP", .shape = Address, .code = 0x64, .missing = &R.NoBranchAddress, .name = &R.NameJump},
    {.op = "JPL",  .shape = Address, .code = 0x65, .missing = &R.NoBranchAddress, .name = &R.NameJpl},
    {.op = "JOV",  .shape = Address, .code = 0x66, .missing = &R.NoBranchAddress, .name = &R.NameJov},
    {.op = "PUSH", .shape = Address, .code = 0x70, .missing = &R.NoPushAddress,   .name = &R.NamePush},
    {.op = "CALL", .shape = Address, .code = 0x80, .missing = &R.NoCallAddress,   .name = &R.NameCall},
    {.op = "SVC",  .shape = Address, .code = 0xF0, .missing = &R.NoSvcAddress,    .name = &R.NameSvc,
     .warning = &H.SvcInSource},

    {.op = "POP", .shape = Register, .code = 0x71},
}};
// clang-format on

} // namespace instructions

// The instruction of an opcode word; null for a word that is none of them.
template <class Ch> const Instruction* FindInstruction(const Text<Ch>& op) {
    for (const Instruction& instruction : instructions::Table)
        if (Is(op, instruction.op)) return &instruction;
    return nullptr;
}

} // namespace tolvane
