#pragma once
// What the checks of the macro instructions say.

#include "messages/Msg.h"

namespace tolvane {

struct MacroCatalogue {
    static constexpr OperandRows Row{};

    Msg NoComma = Row("{line}A comma is expected at the right side of the first operand. "
                      "Each of the IN and OUT macro instructions takes two operands. ",
                      "{line}マクロ命令の１番目のオペランドの右にコンマが必要です。　"
                      "IN と OUT のマクロ命令はオペランドを2つとる。");
    Msg CommaBehindOperand2 = Row("{line}A comma at the right side of the second operand "
                                  "is of no use.  It should be deleted. ",
                                  "{line}二つ目のオペランドの右のコンマは不要です。空白が適切です。 ");
    // {0} the operand.
    Msg BadCharacter = Row("{0}: {line}There is non-capital and non-alphanumeric character "
                           "in the address constant. ",
                           "{0}: {line}アドレス定数に英大文字と数字以外の文字がある。");
    // {0} the operand, {1} its length.
    Msg TooLong = Row("{line}An address constant(or a label) must be written in eight letters or less. "
                      "There are {1} characters in {0q}. ",
                      "{line}アドレス定数は８文字以内。{1} 文字ある。",
                      {WordingWP, "{line}An address constant(or a label) must be written in eight letters or less. ",
                       "{line}アドレス定数は８文字以内の制限がある。"});
    // {0} the opcode.
    Msg ReservedWord = Row("{line}{0} ; Every reserved words (GR0-GR7) "
                           "cannot be used as an operand of the macro instruction. "
                           "An operand of a macro must be a label in the program. "
                           "(Spec. 2-4) ",
                           "{line}{0} マクロ命令のオペランドに予約語( GR0 - GR7 )は使えない。"
                           "ラベル で指定する。（仕様2-4）",
                           {WordingWP,
                            "{line}GR0-GR7 are reserved words.  "
                            "They cannot be used as an operand of the macro instruction. "
                            "Every operand of macro instructions must be a label in the program. "
                            "(Spec. of CASL2  2-4) ",
                            "{line}マクロ命令のオペランドはラベル で指定する。（CASL2の仕様 2-4）"});
    Msg Digit = Row("{line}An operand of IN must be a label in the program. (Spec. 2-4) "
                    "An operand of OUT must be a label in the program. (Spec. 2-4) ",
                    "{line}: {body}IN と OUT のオペランドはラベルで指定する。（仕様２・４）");
    Msg SignOrLiteral = Row("{line}An operand of IN must be a label in the program. (Spec. 2-4) "
                            "An operand of OUT must be a label in the program. (Spec. 2-4) ",
                            "{line}IN と OUT のオペランドはラベルで指定する。（仕様２・４）");
    Msg NoOperand = Row("{line}{0} takes two operands. ", "{line}: {body}{0} はオペランドを二つ必要とする。  ");
    Msg Undefined1 = Row("{line}{0q} is an undefined address constant. "
                         "Neither label nor program name "
                         "is identical with the address constant. "
                         "Make sure of your spelling of {0q}. ",
                         "{line}アドレス定数 {0q} と一致するラベルが存在しない。"
                         "ラベルのミススペリングではありませんか？ ");
    Msg Undefined2 = Row("{line}{0q} is an undefined address contant. "
                         "There is not any label or any programming name "
                         "which is identical with the address contant. ",
                         "{line}アドレス定数 {0q} と一致するラベルが存在しない。");
    Msg NoAddressConstant = Row("{line}{0q} is not an address constant. ", "{line}: {body}{0q} はアドレス定数ではない。");

    Msg NoInOut = Row("{line}{0} is not a macro instruction in casl2. ", "{line}該当するマクロ命令がない。");
    Msg NoRpushRpop = Row("{line}{0} is not a macro instruction. ", "{line}該当するマクロ命令がない。");
    Msg InOutBroken = Row("{line}An unknown error has happened in InOut1(i). "
                          "Please check the source program in it.");
};
inline constexpr MacroCatalogue MacroMsg;

} // namespace tolvane
