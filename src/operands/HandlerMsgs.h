#pragma once
// What the machine-instruction handlers say of their own, and which instruction says what.

#include "messages/Msg.h"
#include "operands/RegisterMsgs.h"
#include "records/Opcode.h"

namespace tolvane {

struct HandlerCatalogue {
    static constexpr OperandRows Row{};

    // No second operand of r1,r2 or r,adr[,x].
    Msg NoOperand2Adda = Row("{line}ADDA Add Arithmetic: Either a general register or a label is "
                             "expected as the 2nd operand. ",
                             "{line}算術加算 ADDA 元を示すレジスター名又はアドレス名（ラベル）が必要。",
                             {WordingNA | WordingAP,
                              "{line}ADDA Add Arithmetic: The 2nd operand is expected. "
                              "It is either a general register(GRx)  or an adress constant(label).",
                              nullptr});
    Msg NoOperand2Suba = Row("{line}SUBA: Either a general register or an address constant is expected "
                             "as the 2nd operand of the SUBA. ",
                             "{line}算術減算命令  SUBA の２番目のオペランドを示すレジスター名"
                             "又はアドレス名（ラベル）が必要。",
                             {WordingNA | WordingAP, nullptr,
                              "{line}算術減算命令  SUBA 元を示すレジスター名又はアドレス名（ラベル）が必要。"});
    Msg NoOperand2Addl = Row("{prefix}line {nr}: {body}ADDL Add Logical: Either a general register or a label "
                             "(an address constant) is expected as the 2nd operand. ",
                             "{line}論理加算 ADDL 元を示すレジスター名又はアドレス名（ラベル）が必要。");
    Msg NoOperand2Subl = Row(
        "{line}SUBL: Either a general register or an address constant is expected "
        "as the 2nd operand of the SUBL. ",
        "{line}論理減算 SUBL の２番目のレジスター名又はアドレス名（ラベル）が必要。",
        {WordingNA | WordingAP, nullptr, "{line}論理減算 SUBL 元を示すレジスター名又はアドレス名（ラベル）が必要。"});
    Msg NoOperand2And = Row("{line}Either GRn or an address constant (or a label) is expected "
                            "as the 2nd operand of AND. ",
                            "{line}論理積 AND の第２オペランドを示すレジスター名又はアドレス名（ラベル）が必要。");
    Msg NoOperand2Or = Row("{line}Either a general register or an address constan is expected "
                           "as the 2nd operand of OR. ",
                           "{line}論理和命令  OR の右にレジスター名又はアドレス名（ラベル）が必要。");
    Msg NoOperand2Xor = Row("{line}Either a general register or a label is expected as the 2nd operand. ",
                            "{line}排他的論理和 XOR 元を示すレジスター名又はアドレス名（ラベル）が必要。",
                            {WordingNA | WordingAP, nullptr,
                             "{line}排他的論理和 XOR 第二オペランド示すレジスター名又はアドレス名（ラベル）が必要。"});
    Msg NoOperand2Cpa = Row("{line}Compare Arithmetic CPA needs the 2nd operand. "
                            "It is either a general register or an address constant(or a label) . ",
                            "{line}算術比較 CPA の第2オペランドとしてレジスター名又はアドレス名（ラベル）が必要。",
                            {WordingNA | WordingAP,
                             "{line}Compare Arithmetic CPA takes "
                             "either a general register or an address constant(or a label) as the 2nd operand. ",
                             "{line}算術比較 CPA 元を示すレジスター名又はアドレス名（ラベル）が必要。"});
    Msg NoOperand2Cpl = Row("{line}An operand is expected at the right side of the CPL."
                            "The operand is either a GRn or an address constant or a label. ",
                            "{line}論理比較 CPL 元を示すレジスター名又はアドレス名（ラベル）が必要。",
                            {WordingNA | WordingAP,
                             "{line}An operand is expected at the right side of the CPL. "
                             "The operand is either a GRn or an address constant or a label. ",
                             nullptr});
    Msg NoOperand2Ld =
        Row("{line}The 2nd operand of LD should be either an address constant(label) or GR0-GR7. ",
            "{line}ロード LD 元を示すレジスター名又はアドレス定数（ラベル）が必要。",
            {WordingWP, nullptr, "{line}LD命令の第2オペランドを示すレジスター名又はアドレス定数（ラベル）が必要。"},
            {WordingNA | WordingAP, nullptr,
             "{line}LD の第2オペランドを示すレジスター名又はアドレス定数（ラベル）が必要。"},
            {WordingNH, "{line}Either a label or GRn is expected as the second operand of the LD instruction. ",
             "{line}ロード LD 元を示すレジスター名又はアドレス名（ラベル）が必要。"});
    Msg NoOperandsLd = Row("{line}The 1st operand(GR0-GR7) of LD is expected. ",
                           "{line}LD命令の第1オペランドを示すレジスター名(GR0-GR7)が必要。");

    // No second operand of r,adr[,x].
    Msg NoOperand2St =
        Row("{line}The 2nd operand is expected for the ST instruction. ", "{line}ストア ST 先を示す記述が必要。");
    Msg NoOperand2Lad = Row("{line}The 2nd operand of LAD is expected. ", "{line}LAD するアドレスを示す記述が必要。");
    Msg NoOperand2Sla = Row("{line}SLA : An address constant is expected as the 2nd operand. "
                            "It specifies the number of shift-left arithmetic conversion. ",
                            "{line}算術左シフト SLA するビット数を示すアドレス定数の記述が必要。");
    Msg NoOperand2Sra = Row("{line}SRA: An address constant is expected as the 2nd operand "
                            "of the SRA.  It specifies the number of shift-right arithmetic conversion. ",
                            "{line}算術右シフト SRA するビット数を示すアドレスの記述が必要。");
    Msg NoOperand2Sll = Row("{line}An address constant is expected as the 2nd operand of the SLL"
                            ", which specifies the number of shift-left logical conversion. ",
                            "{line}論理左シフト SLL するビット数を示すアドレスの記述が必要。");
    Msg NoOperand2Srl = Row("{line}SRL : An address constant is expected as the 2nd operand "
                            "of the SRL, which specifies the number of shift-right logical conversion. ",
                            "{line}論理右シフト SRL するビット数を示すアドレスの記述が必要。");

    // r1,r2 where only r,adr is allowed. The shared words are told at once in every pipeline.
    Msg SyntaxError{"{line}{0} cannot be written in a format of {0} r1, r2. \n"
                    "The 2nd operand of {0} must be an address constant(or a label). (Spec.of COMET2 1.2 (1))",
                    "{line}{0} 命令は {0} r1, r2 形式をとらない。\n"
                    "{0} r1,adr または {0} r1, adr, r2(COMET2の仕様 1.2命令(1)）"};
    Msg FormSra = Row("{line}SRA does not take a format of SRA r1, r2. Format1: SRA r1,adr\n"
                      "Format2: SRA r1,adr,r2\n",
                      "{line}: {body}SRA 命令は SRA r1,r2 形式をとらない。Format1: SRA r1,adr\n"
                      "Format2: SRA r1,adr,r2\n");
    Msg FormSrl = Row("{line}SRL instruction does not take a format of SRL r1, r2. ",
                      "{line} SRL 命令は SRL r1,r2 形式をとらない。");

    Msg SvcInSource = Row("{line}Do not write SVC 1 in the source code, "
                          "or the comet2 will run out of control. "
                          "SVC 1 expanded in Macro IN and OUT instructions does not "
                          "cause this problem. "
                          "There is not any exact definition about SVC "
                          "in the casl2 specification at present. ",
                          "{line} ソースコードに直接 SVC 命令を記述しないでください。"
                          "SVC 1 の場合、COMET2 は暴走します。 （将来のバージョンで修正します。）"
                          "マクロ命令 IN, OUT の中で使われる SVC1, SVC2 については問題はおこりません。"
                          "COMET2 の仕様に現在のところ SVC の具体的な記述がなく動作は定まっていません。");
    Msg NoOpBehindLabel = Row("{line}An instruction code is expected at the right side of the label. ",
                              "{line}ラベルと共に命令語の記述が必要です。ラベルはあるが命令語の記述がない。");

    Msg WordKazuBroken = Row("{line}some error about word_kazu[i]; !");
    Msg NoHandler =
        Row("Prg. Error: {line}{0q} is not an instruction of casl2. ", "Prg. Error: {line}{0q} に該当する命令がない。",
            {WordingAP, "Prg. Error: {line}{0q} is not a registred instruction of casl2. ", nullptr});
};
inline constexpr HandlerCatalogue HandlerMsg;

// What tells a machine instruction with operands from its twins of the same shape.
struct Instruction {
    std::string_view op;
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

namespace instructions {

inline constexpr const HandlerCatalogue& H = HandlerMsg;
inline constexpr const RegisterCatalogue& R = RegisterMsg;

// clang-format off
inline constexpr std::array Table = {
    Instruction{.op = "LD", .missing = &H.NoOperand2Ld, .noOperands = &H.NoOperandsLd, .exactRegister2 = true},
    Instruction{.op = "ADDA", .missing = &H.NoOperand2Adda},
    Instruction{.op = "SUBA", .missing = &H.NoOperand2Suba},
    Instruction{.op = "ADDL", .missing = &H.NoOperand2Addl},
    Instruction{.op = "SUBL", .missing = &H.NoOperand2Subl},
    Instruction{.op = "AND",  .missing = &H.NoOperand2And},
    Instruction{.op = "OR",   .missing = &H.NoOperand2Or},
    Instruction{.op = "XOR",  .missing = &H.NoOperand2Xor},
    Instruction{.op = "CPA",  .missing = &H.NoOperand2Cpa},
    Instruction{.op = "CPL",  .missing = &H.NoOperand2Cpl},

    Instruction{.op = "ST",  .missing = &H.NoOperand2St,  .lastFormDigit = '9'},
    Instruction{.op = "LAD", .missing = &H.NoOperand2Lad, .lastFormDigit = '7', .warnsOfGR89 = true},
    Instruction{.op = "SLA", .missing = &H.NoOperand2Sla, .lastFormDigit = '9'},
    Instruction{.op = "SRA", .missing = &H.NoOperand2Sra, .form = &H.FormSra, .lastFormDigit = '7'},
    Instruction{.op = "SLL", .missing = &H.NoOperand2Sll, .lastFormDigit = '9'},
    Instruction{.op = "SRL", .missing = &H.NoOperand2Srl, .optionalForm = &H.FormSrl, .lastFormDigit = '9'},

    Instruction{.op = "JMI",  .missing = &R.NoBranchAddress, .name = &R.NameJmi},
    Instruction{.op = "JNZ",  .missing = &R.NoBranchAddress, .name = &R.NameJnz},
    Instruction{.op = "JZE",  .missing = &R.NoBranchAddress, .name = &R.NameJze},
    Instruction{.op = "JUMP", .missing = &R.NoBranchAddress, .name = &R.NameJump},
    Instruction{.op = "JPL",  .missing = &R.NoBranchAddress, .name = &R.NameJpl},
    Instruction{.op = "JOV",  .missing = &R.NoBranchAddress, .name = &R.NameJov},
    Instruction{.op = "PUSH", .missing = &R.NoPushAddress,   .name = &R.NamePush},
    Instruction{.op = "CALL", .missing = &R.NoCallAddress,   .name = &R.NameCall},
    Instruction{.op = "SVC",  .missing = &R.NoSvcAddress,    .name = &R.NameSvc, .warning = &H.SvcInSource},

    Instruction{.op = "POP"},
};
// clang-format on

// The rows stand in the order of the opcodes, the machine instructions with operands first.
constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < Table.size(); ++i)
        if (Table[i].op != opcodes::Table[i].word) return false;
    return opcodes::Table[Table.size()].shape > Shape::Register;
}
static_assert(IsInOrder());

} // namespace instructions

// The row of an opcode; null for an opcode that is no machine instruction with operands.
constexpr const Instruction* InstructionOf(const Opcode& op) {
    if (op.shape > Shape::Register) return nullptr;
    return &instructions::Table[static_cast<std::size_t>(&op - opcodes::Table.data())];
}

} // namespace tolvane
