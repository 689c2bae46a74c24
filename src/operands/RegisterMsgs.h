#pragma once
// What the checks of registers, of the commas round an address, and of index registers say.

#include "messages/Msg.h"

namespace tolvane {

struct RegisterCatalogue {
    static constexpr OperandRows Row{};

    // The first operand of r,...
    Msg NoRegister = Row("{line}A general register(GR0-GR7) is expected at the right side of {0}. ",
                         "{line}{0} の右にレジスター名がない。",
                         {WordingNH, "{line}There is not a GRn at the right side of {0}. ", nullptr});
    Msg NothingBehindRegister = Row("{line}An operand is expected at the right side of {0}. ",
                                    "{line}{0} 元を示すレジスター名又はアドレス名（ラベル）が必要。",
                                    {WordingWP, nullptr, "{line}{0} の右にオペランドが必要。"});
    Msg NoExactRegister = Row("{line}{0q}An exact general register name is expected at the right side of {1}. ",
                              "{line}{0q}{1} の右に正しいレジスター名が必要。");
    Msg NoCommaBehindRegister =
        Row("{line}A comma is expected at the right side of {0}. ", "{line}{0} の右にコンマが必要！",
            {WordingNH, "{line}A comma is expected at hte right side of {0}. ", nullptr});

    // The first operand of adr[,x]. In the rows of two lines {0} is the name of the instruction, {1} its opcode.
    Msg RegisterAsFirstOperand =
        Row("{line}{0} does not take one of the general registers GR0-GR7 as the 1st operand. ",
            "{line}{0} は、一つ目のオペランドとしてレジスター GR0-GR7 をとらない。",
            {WordingWP, "{line}{0} does not take a general register as the 1st operand. ", nullptr});
    Msg NoBranchAddress = Row("{prefix}line {nr} {body}{0}:  {join}"
                              "An operand is expected at the right side of the {1}. "
                              "The operand specifies a branching address. ",
                              "{line}{0}  {join}"
                              "{1} は分岐先を示すアドレス名（ラベル）が必要。");
    Msg NoCallAddress = Row("{prefix}line {nr} {body}{0}:  {join}"
                            "An operand is expected at the right side of the CALL. "
                            "ただし、他のプログラム名は指定できるが、"
                            "他のプログラム内のラベルは指定できない。 ",
                            "{line}{0}  {join}"
                            "CALL 命令は呼び出し先を示すアドレス（ラベル）が必要。 "
                            "ただし、他のプログラム名は指定できるが、"
                            "他のプログラム内のラベルは指定できない。 ",
                            {WordingWP,
                             "{prefix}line {nr} {body}{0}:  {join}"
                             "An operand is expected at the right side of CALL. "
                             "CALL command calls a subroutine. ",
                             nullptr});
    Msg NoPushAddress = Row("{prefix}line {nr} {body}{0}:  {join}"
                            "PUSH takes an address constant ( or a label) as an operand. "
                            "The stacked contents are stored at the address. ",
                            "{line}{0}  {join}"
                            "PUSH命令はオペランドとして（スタック内容が格納してある）アドレス名（ラベル）が必要。");
    Msg NoSvcAddress = Row("{prefix}line {nr} {body}{0}:  {join}"
                           "SVC takes an address constant(or a label) as an operand. ",
                           "{line}{0}  {join}"
                           "命令 SVC はオペランドとしてアドレス名（ラベル）が必要。");

    // The names of the instructions.
    Msg NameJmi = Row("Jump on Minus JMI", "負分岐命令");
    Msg NameJnz = Row("Jump on Non Zero", "非ゼロ分岐命令");
    Msg NameJze = Row("Jump on Zero", "ゼロ分岐命令");
    Msg NameJump = Row("Unconditional Jump", "無条件分岐命令");
    Msg NameJpl = Row("Jump on PLus", "正分岐命令");
    Msg NameJov = Row("Jump on OverFlow", "オーバフロー分岐命令");
    Msg NamePush = Row("PUSH", "プッシュ");
    Msg NameCall = Row("CALL subroutine", "コール");
    Msg NameSvc = Row("SuperVisor Call", "スーパバイザコール命令");

    // The first operand of POP, and a register where an address is due.
    Msg NoPopRegister =
        Row("{line}There is not any GRn at the right side of {0}. ", "{line}{0} の右にレジスター名がない。");
    Msg NoExactPopRegister = Row("{line}{0q}: An exact register name is expected at the right side of {1}. ",
                                 "{line}{0q}: {1} の右に正しいレジスター名が必要。");
    Msg CommaBehindPopRegister =
        Row("{line}A comma at the right side of {0} is of no use. ", "{line}{0} の右にコンマは不要です。");
    Msg RegisterInsteadOfAddress = Row("{line}The opcode {0} does not take a general register "
                                       "but an address constant as the first operand.  ",
                                       "{line}{0} は一つめオペランドとしてレジスタ名をとらない。"
                                       "アドレス定数をオペランドとする。",
                                       {WordingWP,
                                        "{line}The 1st operand of {0} is an address constant. (Spec. of COMET2  1.2)"
                                        "{0} does not take a general register as the 1st operand.",
                                        "{line}{0} は第一オペランドとしてレジスタ名をとらない。"
                                        "アドレス定数を第一オペランドとする。（COMET2の仕様 1.2）"});

    // Why a word is no register.
    Msg NoSuchRegister = Row("{line}The comet2 has eight general registers of GR0-GR7. "
                             "Neither GR8 nor GR9 is a general register of comet2. ",
                             "{line} レジスタは GR0-GR7 の8個だけです。"
                             " GR8-GR9 は無いので使えない。 ");
    Msg RegisterFirstDigit = Row("{line}The first character must be a letter. "
                                 "A numerical is not allowed to be used as the 1st letter of a label of {0}. ",
                                 "{line}{0} レジスタ名（やラベル）の先頭文字に数字は使えない。");
    Msg RegisterSmallLetter = Row("{line}{0}: There is a small letter in it. It cannot be used in casl2.",
                                  "{line}{0} 小文字がある。 小文字は CASL2 では使えない。");

    // The second register of r1,r2.
    Msg CommaBehindRegister2 = Row("{line}A comma is of no use at the right side of the 2nd operand register. "
                                   "Either a space or a semicolon is suitable at the right side of the 2nd operand "
                                   "register. "
                                   "The following description is regarded as a comment in the line. ",
                                   "{line}２つ目のレジスターの右にコンマは不要です。"
                                   "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。"
                                   "空白以降はコメントとなる。 ");
    Msg TextBehindRegister2 = Row("{line}The comma is of no use at the right side of the 2nd operand register. "
                                  "Either a space or a semicolon is suitable at the right side of the 2nd operand "
                                  "register. "
                                  "The following in the line is regarded as a comment. ",
                                  "{line}２つ目のレジスターの右にコンマは不要です。"
                                  "コンマがあるとオペランドがさらに続くと読める。"
                                  "２つ目のレジスターの右には空白又はセミコロンの記述が適正です。"
                                  "空白以降はコメントとなる。 ");
    Msg BadRegister2 = Row("{prefix}{0q}{atline}An exact general register name is expected. ",
                           "{prefix}{0q}{atline}レジスタ名 (GR0 - GR7) が正しくない。");

    // The commas round an address operand. {0} its number where nothing else is said.
    Msg LoneComma = Row("{line}Dupulication of comma. Or an operand is expected at the left side of the comma. ",
                        "{line}コンマの重複あるいはコンマの前にオペランドの記述がない。  ");
    Msg FirstOperandExpected = Row("{line}The 1st operand is expected. ", "{line}1 つ目のオペランドが必要。");
    Msg SecondOperandExpected = Row("{line}The 2nd operand is expected. ", "{line}2 つ目のオペランドが必要。");
    Msg AnotherOperandExpected = Row("{line}Another operand is expected. ", "{line}{0} つ目のオペランドが必要。");
    // {0} the operand behind it, {1} the operand itself.
    Msg NoCommaBehindAddress =
        Row("{line}{0q}: A comma is expected between the 2nd operand and the 3rd one. "
            "2nd operand={1}   3rd operand={0}  ",
            "{line}:  {body}二つ目のオペランド {1q} の右にコンマが無いのに"
            "三つ目のオペランド（指標レジスタ）{0q} の記述がある。 ",
            {WordingNH, "{line}{0q}: A comma is expected between the 2nd and the 3rd operands. ", nullptr});
    Msg CommaBehindAddress = Row("{line}There is a comma at the right side of the operand. "
                                 "This comma is of no use. "
                                 "Or an index register is expected at the left side of the comma. ",
                                 "{line}指標レジスターの記述がないのだから "
                                 "{0} つ目のオペランドの右のコンマは不要です。"
                                 "あるいは、このコンマに続く指標レジスターの記述が必要です。",
                                 {WordingWP,
                                  "{line}There is a comma at the right side of the operand. "
                                  "This comma is of no use. "
                                  "Or an index register is expected at the right side of the comma. ",
                                  nullptr});

    // The index register.
    Msg NoIndexBehindComma = Row("{line}{0q}:   Although there is a comma at the right side of the 2nd operand, "
                                 "there is no description of an index register follwing the comma. ",
                                 "{line}{0q}:   二つめのオペランドの右にコンマがあるのに"
                                 "コンマの右に指標レジスタの記述がない。 ");
    Msg NoCommaBeforeIndex = Row("{prefix}line {nr}{body}{0q}: Either a comma or a comment mark(;)is expected "
                                 "at the right side of the 2nd operand. ",
                                 "{line}{0q}: 第2オペランドの右にコンマが無い。 "
                                 "第２オペランドの右にコンマあるいはコメント記号（；）を明示すること。 ",
                                 {WordingNH,
                                  "{prefix}line {nr}{body}{0q}:   A comma is expected between the 2nd and the 3rd operand. "
                                  "A comma is expected at the left of the index register. ",
                                  "{line}{0q}: コンマの右に指標レジスタの記述がある。 "});
    Msg CommaBehindIndex = Row("{line}A comma is of no use at the right side of the the index register. ",
                               "{line}指標レジスターの右のコンマは不要です。");
    Msg IndexGR0 = Row("{line}GR0 cannnot be used as an index register. ", "{line}指標レジスターに GR0 は使えない。 ");
    Msg NoExactIndex =
        Row("{line}{0q}  An exact description of Index Register(GR1-GR7) is expected. ",
            "{line}{0q} 指標レジスター GR1-GR7 が正しく記述されていない。",
            {WordingWP, "{line}{0q}  An exact description of one of the Index Registers(GR1-GR7) is expected there. ",
             nullptr},
            {WordingNH, "{line}{0q}:  An exact description of Index Register(GR1-GR7) is expected. ", nullptr});
    Msg DoubleComma = Row("{line}{0q}  Duplication of comma between two operands! ", "{line}{0q} コンマの連続がある。");
    Msg IndexIsGR0 =
        Row("{line}GR0 is not allowed to be an index register. ", "{line} GR0 は指標レジスタとしては使えない。");
    Msg IndexIsGR89 = Row("{line}Neither GR8 nor GR9 is a general register of comet2. "
                          "Each of the GR1-GR7 can be used as an index register. "
                          "GR0 is not allowed to be an index register. ",
                          "{line} 指標レジスタに使えるのは GR1-GR7 の7個だけです。"
                          " GR8-GR9 はCASL2のレジスタとして存在しないので使えない。 ");
    Msg IndexFirstDigit = Row("{line}{0}: The 1st character of a label must be a capital alphabetical letter. "
                              "A numeral cannot be used as the 1st letter of a label. ",
                              "{line}{0}: レジスタ名（やラベル）の先頭文字に数字は使えない。");
    Msg IndexSmallLetter = Row("{line}{0}: There is a small letter in it. "
                               "A small letter is not allowed to be used in casl2. ",
                               "{line}{0}: 小文字がある。 小文字は CASL2 では使えない。");

    Msg GR89AsLabel = Row("{line}{0} : The comet2 has eight general registers of GR0-GR7. "
                          "Neither GR8 nor GR9 is a general register of comet2. "
                          "GR0-GR7 are reserved words, but GR8-GR9 are not reserved ones. "
                          "A description of GR8 or GR9 is regarded as a label. "
                          "Using GR8-GR9 as a label would decrease readability "
                          "of the source codes.  It would be better for you "
                          "not to use GR8 or GR9 as a label. (Recommended) ",
                          "{line}{0}  レジスタは GR0-GR7 の８個である。 "
                          "CASL2 には GR8-GR9 のレジスタは無い。 "
                          "GR0-GR7 は予約語だが、GR8-GR9 は予約語ではない。 "
                          "GR8-GR9 の記述はラベルとみなされる。  "
                          "混乱をさけるため GR8-GR9 をラベルとして使わないほうがよい。（推奨） ");
};
inline constexpr RegisterCatalogue RegisterMsg;

} // namespace tolvane
