#pragma once
// The operation codes that those who tell of instructions have to know apart.

namespace tolvane::image {

enum Code {
    Ld = 0x10,
    St = 0x11,
    Lad = 0x12,
    LdRegister = 0x14,
    Addl = 0x22,
    Subl = 0x23,
    SubaRegister = 0x25,
    SublRegister = 0x27,
    And = 0x30,
    Xor = 0x32,
    XorRegister = 0x36,
    Cpa = 0x40,
    Cpl = 0x41,
    Sla = 0x50,
    Sll = 0x52,
    Srl = 0x53,
    Jmi = 0x61,
    Jnz = 0x62,
    Jze = 0x63,
    Jump = 0x64,
    Jpl = 0x65,
    Jov = 0x66,
    Push = 0x70,
    Pop = 0x71,
    Call = 0x80,
    Ret = 0x81,
    Exit = 0x88,
    Svc = 0xF0
};
inline constexpr int RegisterForm = 0x04; // the bit in which the codes of r1,r2 differ from those of r,adr

constexpr bool IsConditional(int code) {
    return code == Jmi || code == Jnz || code == Jze || code == Jpl || code == Jov;
}

} // namespace tolvane::image
