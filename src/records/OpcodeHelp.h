#pragma once
// What a learner asks of an opcode: its forms, an example, its meaning, and what becomes of the flags. E stands for the
// effective address, (E) for the word there.

#include "records/Opcode.h"

namespace tolvane {

// In Japanese and in English, as the languages are numbered.
using HelpText = const char* [2];

struct OpcodeHelp {
    const Opcode* opcode;
    const char* example;
    HelpText meaning;
    const HelpText* flags; // null for what is no instruction of a run
};

namespace help {

inline constexpr HelpText Kept = {"変わらない", "stay as they are"};
inline constexpr HelpText ByWord = {"OF は 0。SF と ZF は結果による", "OF becomes 0; SF and ZF tell of the result"};
inline constexpr HelpText Signed = {
    "結果が -32768 から 32767 の外なら OF は 1、そうでなければ 0。SF と ZF は結果による",
    "OF becomes 1 if the result lies outside -32768 to 32767, else 0; SF and ZF tell of the result"};
inline constexpr HelpText Unsigned = {
    "結果が 0 から 65535 の外なら OF は 1、そうでなければ 0。SF（ビット 15）と ZF は結果による",
    "OF becomes 1 if the result lies outside 0 to 65535, else 0; SF (bit 15) and ZF tell of the result"};
inline constexpr HelpText Compared = {
    "OF は 0。第 1 オペランドのほうが小さければ SF は 1、等しければ ZF は 1、そうでなければそれぞれ 0",
    "OF becomes 0; SF is 1 if the first operand is the smaller one, ZF is 1 if both are equal, else 0"};
inline constexpr HelpText ShiftedOut = {
    "OF は最後に送り出されたビット（0 ビットのシフトなら 0）。SF と ZF は結果による",
    "OF is the bit that went out last (0 if nothing was shifted); SF and ZF tell of the result"};

// What stands behind an opcode, by its shape: "LD" is written "LD r,adr[,x]" or "LD r1,r2".
constexpr const char* FormOf(const Opcode& op) {
    switch (op.shape) {
    case Shape::RegisterOrAddress:
        return "r1,r2 | r,adr[,x]";
    case Shape::RegisterAddress:
        return "r,adr[,x]";
    case Shape::Address:
        return "adr[,x]";
    case Shape::Register:
        return "r";
    case Shape::InOut:
        return "label,label";
    case Shape::Start:
        return "[label]";
    case Shape::Dc:
        return "constant[,constant]...";
    case Shape::Ds:
        return "number";
    default:
        return "";
    }
}

// In the order of opcodes::Table.
inline constexpr auto Table = [] {
    using opcodes::Table;
    // clang-format off
    const OpcodeHelp texts[] = {
        {nullptr, "LD GR1,A", {"(E) または r2 の内容を、レジスタに入れる（ロード）",
          "loads (E), or the content of r2, into the register"}, &ByWord},
        {nullptr, "ADDA GR1,A", {"符号付きの数として足す: r = r + (E)、r1 = r1 + r2",
          "adds as numbers with sign: r = r + (E), r1 = r1 + r2"}, &Signed},
        {nullptr, "SUBA GR1,=1", {"符号付きの数として引く: r = r - (E)、r1 = r1 - r2",
          "subtracts as numbers with sign: r = r - (E), r1 = r1 - r2"}, &Signed},
        {nullptr, "ADDL GR1,A", {"符号なしの数として足す: r = r + (E)、r1 = r1 + r2",
          "adds as numbers without sign: r = r + (E), r1 = r1 + r2"}, &Unsigned},
        {nullptr, "SUBL GR1,=1", {"符号なしの数として引く: r = r - (E)、r1 = r1 - r2",
          "subtracts as numbers without sign: r = r - (E), r1 = r1 - r2"}, &Unsigned},
        {nullptr, "AND GR1,=#000F", {"ビットごとの論理積。両方が 1 のビットだけが 1 になる",
          "AND of each bit: 1 where both bits are 1"}, &ByWord},
        {nullptr, "OR GR1,=#0030", {"ビットごとの論理和。少なくとも一方が 1 のビットが 1 になる",
          "OR of each bit: 1 where at least one of the bits is 1"}, &ByWord},
        {nullptr, "XOR GR1,=#FFFF", {"ビットごとの排他的論理和。異なるビットが 1 になる",
          "exclusive OR of each bit: 1 where the bits differ"}, &ByWord},
        {nullptr, "CPA GR1,A", {"符号付きの数として比べる。レジスタは変わらず、フラグだけが変わる",
          "compares as numbers with sign; only the flags change"}, &Compared},
        {nullptr, "CPL GR1,=#0041", {"符号なしの数として比べる（文字コードやアドレスなど）。"
          "レジスタは変わらず、フラグだけが変わる",
          "compares as numbers without sign, such as characters and addresses; only the flags change"}, &Compared},
        {nullptr, "ST GR1,A", {"レジスタの内容を、アドレス E の語に書き込む（ストア）",
          "stores the register in the word at the address E"}, &Kept},
        {nullptr, "LAD GR1,5", {"実効アドレス E そのものを、レジスタに入れる: r = E",
          "puts the effective address E itself into the register: r = E"}, &Kept},
        {nullptr, "SLA GR1,1", {"符号を残して左へ E ビットシフトする（算術左シフト）。空いたビットは 0",
          "shifts left by E bits, and the sign stays; 0 comes in"}, &ShiftedOut},
        {nullptr, "SRA GR1,1", {"符号を残して右へ E ビットシフトする（算術右シフト）。空いたビットは符号と同じ",
          "shifts right by E bits, and the sign stays; copies of it come in"}, &ShiftedOut},
        {nullptr, "SLL GR1,4", {"左へ E ビットシフトする（論理左シフト）。空いたビットは 0",
          "shifts left by E bits; 0 comes in"}, &ShiftedOut},
        {nullptr, "SRL GR1,4", {"右へ E ビットシフトする（論理右シフト）。空いたビットは 0",
          "shifts right by E bits; 0 comes in"}, &ShiftedOut},
        {nullptr, "JMI LOOP", {"負なら（SF が 1 なら）E に分岐する", "jumps to E if the result is negative (SF is 1)"},
          &Kept},
        {nullptr, "JNZ LOOP", {"0 でなければ（ZF が 0 なら）E に分岐する",
          "jumps to E if the result is not zero (ZF is 0)"}, &Kept},
        {nullptr, "JZE FIN", {"0 なら（ZF が 1 なら）E に分岐する", "jumps to E if the result is zero (ZF is 1)"},
          &Kept},
        {nullptr, "JUMP LOOP", {"無条件に E に分岐する", "jumps to E in any case"}, &Kept},
        {nullptr, "JPL LOOP", {"正なら（SF も ZF も 0 なら）E に分岐する",
          "jumps to E if the result is greater than zero (SF and ZF are 0)"}, &Kept},
        {nullptr, "JOV ERR", {"オーバーフローなら（OF が 1 なら）E に分岐する",
          "jumps to E if there was an overflow (OF is 1)"}, &Kept},
        {nullptr, "PUSH 0,GR1", {"E をスタックに積む: SP = SP - 1、(SP) = E",
          "pushes E onto the stack: SP = SP - 1, (SP) = E"}, &Kept},
        {nullptr, "CALL SUB", {"次の命令のアドレスをスタックに積み、E から始まる副プログラムを呼び出す",
          "calls the subroutine at E: pushes the address of the next instruction onto the stack"}, &Kept},
        {nullptr, "SVC 2", {"OS に番号 E の依頼をする。IN と OUT が使うもので、ソースには書かない",
          "asks the operating system for service E; IN and OUT use it, a source does not"}, &Kept},
        {nullptr, "POP GR1", {"スタックの一番上の語をレジスタに取り出す: r = (SP)、SP = SP + 1",
          "takes the topmost word of the stack into the register: r = (SP), SP = SP + 1"}, &Kept},
        {nullptr, "NOP", {"何もしない", "does nothing"}, &Kept},
        {nullptr, "RPUSH", {"GR1 から GR7 を、この順にスタックに積む", "pushes GR1 to GR7 in this order"}, &Kept},
        {nullptr, "RPOP", {"GR7 から GR1 を、この順にスタックから取り出す", "pops GR7 to GR1 in this order"}, &Kept},
        {nullptr, "RET", {"スタックから戻り先のアドレスを取り出し、CALL の次に戻る。主プログラムでは実行を終える",
          "goes back behind the CALL, by the address on the stack; in the main program it ends the run"}, &Kept},
        {nullptr, "END", {"プログラムの最後の行", "the last line of a program"}, nullptr},
        {nullptr, "EXIT", {"実行を終える（パイプライン NH だけ）", "ends the run (in the pipeline NH alone)"}, &Kept},
        {nullptr, "IN BUF,LEN", {"1 行を読み、第 1 のラベルの領域に文字を 1 語に 1 文字ずつ、"
          "第 2 のラベルの語に文字数を入れる。領域には DS で 256 語をとっておく",
          "reads a line: its characters go to the first label, one to a word, their number to the second; "
          "keep 256 words for the characters by DS"}, &Kept},
        {nullptr, "OUT BUF,LEN", {"第 1 のラベルから、第 2 のラベルの語にある文字数だけ、1 行に出力する",
          "prints a line: as many characters from the first label on as the word at the second label says"}, &Kept},
        {nullptr, "MAIN START", {"プログラムの最初の行。行のラベルがプログラムの名前になる。"
          "オペランドのラベルがあれば、そこから実行する",
          "the first line of a program, whose label is the program's name; "
          "the run begins at the label behind it, if any"},
          nullptr},
        {nullptr, "A DC 5,#00FF,'AB',A", {"定数の語を置く: 10 進数、16 進数、文字（1 語に 1 文字）、ラベルのアドレス",
          "puts constants into memory: decimal, hexadecimal, characters (one to a word), the address of a label"},
          nullptr},
        {nullptr, "BUF DS 256", {"書いた数の語の領域を確保する", "keeps as many words of memory as the number says"},
          nullptr},
    };
    // clang-format on
    std::array<OpcodeHelp, Table.size()> all{};
    static_assert(std::size(texts) == Table.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        all[i] = texts[i];
        all[i].opcode = &Table[i];
    }
    return all;
}();

constexpr bool IsInOrder() {
    for (const OpcodeHelp& each : Table)
        if (std::string_view(each.example).find(each.opcode->word) == std::string_view::npos) return false;
    return true;
}
static_assert(IsInOrder());

} // namespace help

} // namespace tolvane
