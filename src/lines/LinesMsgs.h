#pragma once
// What is said of lines, program boundaries and names. {line} heads most rows; where another head, or none, stands in
// its place, that is how the row is worded.

#include "messages/Msg.h"

namespace tolvane {

struct LinesCatalogue {
    // Normalising
    Msg EmptySource{"Error: {body}The source code is empty.  The assembler is ready to go!",
                    "エラー：　{body}アセンブラは準備完了、 ソースコードの記述がない。 ",
                    {WordingNH, "{prefix}The assembler is ready to go! But the source code is empty. ",
                     "{prefix}アセンブラは準備完了、 ソースコードの記述がない。 "}};
    Msg SpaceBehindLiteralSign{"{line}{0q}: There is a space just after =+, =-, or =#. "
                               "Remove off the space at the right side of the literal figure. ",
                               "{line}{0q}: =+, =-, =# 記号の直後に空白がある。"
                               "記号の直後、数字の直前にある空白を取り除くこと。"};
    Msg SpaceBehindSign{"{line}{0q}: There is a space just after +, -, or #. \n"
                        "Remove off the space at the left side of the figure.",
                        "{line}{0q}: +, -, # 記号の直後に空白がある。\n"
                        "記号の直後、数字の直前にある空白を取り除くこと。"};
    Msg CommentTouchesOp{"{prefix}{0q}: {join}"
                         "NOP, RPUSH, RPOP, RET, and END do not take any operand, but a space at the right side. \n"
                         "One space or more are expected between the opcode and a comment mark(;).\n"
                         "Example 1: RPUSH ;Comments (Good)\n"
                         "Example 2: RPUSH;Comments  (Error)\n"
                         "Spec. 2. 1, Table (4) Row 3.",
                         "{prefix}{0q}{join}"
                         "オペランドをとらない命令（NOP, RPUSH, RPOP, RET, END）の右に記述する\n"
                         "コメントには、命令の直後にひとつ以上の空白と セミコロン; が必要。\n"
                         "例１： RPUSH; GR1 - GR7　の内容をスタックへ格納(正）\n"
                         "例２： RPUSH;GR1-GR7　の内容をスタックへ格納 (誤）\n"
                         "仕様２．１（４）表の３行目"};
    Msg OperandOfNoOperandOp{"{line}{0q}{join}"
                             "NOP, RET, and END do not take any operand. One space and a comment mark(;) are expected "
                             "between the instruction code and a comment description. \n"
                             "Good Example: RET ;Comment (Spec. of CASL2 2.1 (4)) ",
                             "{line}{0q}{join}"
                             "オペランドをとらない命令（NOP, RET, END）の右のコメントには"
                             "必ず一個の空白とセミコロン（；）が必要。 \n"
                             "例： RET ;コメント (仕様２．１の（４）)   "};

    // Full-width characters
    Msg ZenSpaceInWord{
        "{line}{0q}: There is a 2-byte space in the word. "
        "A 2-byte space is not allowed to be used in casl2. "
        "A 2-byte space should be replaced with 1-byte space.  Remove off the 2-byte space in the word. ",
        "{line}{0q} の中に全角の空白がある。 CASL2には全角の空白は使えない。　"
        " CASL2では半角の空白を使う。"};
    Msg ZenMoziInWord{"{line}{0q}: {join}"
                      "There is a 2-byte character in the word. \n"
                      "This character is not allowed in CASL2. \n"
                      "Remove off the 2-byte character. \n"
                      "A 1-byte space is allowed in CASL2.  ",
                      "{line}{0q}: {join}"
                      " の中に全角の文字がある。\n"
                      " CASL2では全角の文字は使えない。\n"
                      " CASL2では半角の空白を使う。"};
    Msg ZenMoziInStartOperand{"{line}{0q}: There is a 2-byte character in the word. "
                              "This character is not allowed to use in CASL2. Remove off the 2-byte character. ",
                              "{line}{0q}:  の中に全角の文字がある。 CASL2では全角の文字は使えない。"};
    Msg ZenSpaceBeforeEnd{"{line}{0q} There is a 2-byte space at the front of END. \n"
                          "A 2-byte space is not allowed to be used in casl2. "
                          "A 1-byte space is allowed to be used in casl2.  "
                          "Remove off the 2-byte space at the front of the END. ",
                          "{line}{0q} END の左（直前）に全角の空白がある。　\n"
                          " CASL2では全角の空白は使えない。　 CASL2では半角の空白を使う。"};
    Msg ZenSpaceBehindEnd{"{line}{0q} There is a 2-byte space at the end of END. "
                          "Not a 2-byte space but a 1-byte space is allowed to be used in casl2.  "
                          "Remove off the 2-byte space at the end of the END. ",
                          "{line}{0q} END の右（直後）に全角の空白がある。　 CASL2では全角の空白は使えない。　"
                          " CASL2では半角の空白を使う。"};
    Msg ZenSpaceBeforeStart{"{line}{0q} There is a 2-byte space at the front of START. "
                            "A 2-byte space is not allowed to be used in casl2. "
                            "A 1-byte space is allowed to be used in casl2. "
                            "Remove off the 2-byte space at the front of the START. ",
                            "{line}{0q} START の左（直前）に全角の空白がある。　 CASL2では全角の空白は使えない。　"
                            " CASL2では半角の空白を使う。"};
    Msg ZenSpaceBehindStart{"{line}{0q} There is a 2-byte space at the end of START. "
                            "A 2-byte space is not allowed to be used in casl2. "
                            "A 1-byte space is allowed to be used in casl2. "
                            "Remove off the 2-byte space at the end of the START. ",
                            "{line}{0q} START の右（直後）に全角の空白がある。　 CASL2では全角の空白は使えない。　"
                            " CASL2では半角の空白を使う。"};
    Msg EndWithSemicolon{" A space is expected at the right side of END instruction. "
                         "(Spce. 2.1 (4) in a case of Without operand. ",
                         "{line}END の文字はある。けれども、  END の右に１個以上の空白が必要です。 "
                         "' END;'はエラー、' END' または 'END 'と記述する。 "
                         " （２．１　言語の仕様（４）　オペランドのない命令の場合） "};
    Msg EndThenZenSpace{" There is a 2-byte space at the right side of END instruction. "
                        "The 2-byte space is not allowed for use in CASL2. "
                        "It should be replaced with a 1-byte space, or deleted. ",
                        "{line}END の文字はある。けれども、 "
                        " ENDの右に全角の空白がある。 全角の空白文字は使えない。　"};
    Msg ZenSpaceThenEnd{" There is a 2-byte space at the left side of END instruction. "
                        "The 2-byte space is not allowed for use in CASL2. "
                        "It should be replaced with a 1-byte space, or deleted. ",
                        "{line}END の文字はある。けれども、 "
                        " ENDの左に全角の空白がある。 全角の空白文字は使えない。　"};
    Msg StartWithSemicolon{"{prefix}line {nr}  {body}A space is expected at the right side of START instruction. "
                           "(Spec. 4.2 (4) in a case of Without operand.)  ",
                           "{line}START の文字はある。けれども、  START の右に１個以上の空白が必要です。 "
                           "（４．２　言語の仕様（４）オペランドなしの命令の場合） "};
    Msg StartThenZenSpace{"{prefix}line {nr}  {body}There is a 2-byte space at the right side of START instruction. "
                          "The 2-byte space is not allowed for use in CASL2. "
                          "It should be replaced with a 1-byte space, or deleted. ",
                          "{line}START の文字はある。けれども、 "
                          " START の右に全角の空白がある。 全角の空白文字は使えない。　"};
    Msg ZenSpaceThenStart{"{prefix}line {nr}  {body}There is a 2-byte space at the left side of START instruction. "
                          "The 2-byte space is not allowed for use in CASL2. "
                          "It should be replaced with a 1-byte space, or deleted. ",
                          "{line}START の文字はある。けれども、 "
                          " START の左に全角の空白がある。 全角の空白文字は使えない。　"};
    Msg NoOpCodeToTrim{"Prg. Error: {0} is not an op code defined in casl2.\n"};

    // Program boundaries, the rough search
    Msg NoStartLetters{"{prefix}START description is not found anywhere. \n"
                       "START assembler instruction is expected. ",
                       "{prefix}START アセンブラ命令 が どこにもない。"};
    Msg NoEndLetters{"{prefix}END description is not found anywhere. \n"
                     "END assembler instruction is expected. ",
                     "{prefix}END アセンブラ命令 が どこにもない。"};
    Msg StartBehindEnd{"{line}END is expected to be followed after START. ",
                       "{line}START アセンブラ命令 の後の行に END アセンブラ命令が必要。"};

    // Program boundaries, words and pairs
    Msg NoStartWord{"{prefix}START is not found anywhere.\n"
                    "A space is expected at the left side of the START. ",
                    "{prefix}START アセンブラ命令 が どこにもない。 \n"
                    "START の左に空白が必要です"};
    Msg LastStartWithoutLabel{"{line}A label name is expected at the left side of START assembler instruction. ",
                              "{line}START アセンブラ命令の左にラベルが必要です。 "};
    Msg NoEndWord{"{prefix}END is not found anywhere. \n"
                  "The END instruction defines the end of a program.\n"
                  "A space is expected at the left side of the END. ",
                  "{prefix}END アセンブラ命令 が どこにもない。\n"
                  "END 命令は、プログラムの終わりを定義する。\n"
                  "END の左には、空白が必要です。"};
    Msg LastEndWithLabel{"{line}There is a label at the left side of the END assembler instruction. \n"
                         "It is of no use. ",
                         "{line}END アセンブラ命令の左にラベルがある。 \n"
                         "END アセンブラ命令の左のラベルには、CASL2 仕様上の役目はないので不要である。"};
    Msg TooManyStarts{"{prefix}The number of START assembler instructions should be reduced. \n"
                      "The number of the programs in a src fileis limited to 6.",
                      "{prefix}START アセンブラ命令の数を減らす必要がある。 \n"
                      "このアセンブラでは、一つのファイルの中のプログラムの数は \n"
                      "6 個に制限されています。"};
    Msg TooManyEnds{"{prefix}The number of END assembler instructions should be reduced. \n"
                    "The number of the programs is limited to 6 in a source code file. ",
                    "{prefix}END アセンブラ命令の数を減らす必要がある。\n"
                    " このアセンブラでは、一つのファイルの中のプログラムの数は \n"
                    "6 個以下に制限されています。"};
    Msg MoreStarts{"{prefix}(START > END): The program is not correctly closed. \n"
                   "The number of START assembler instructions is different from that of END's. \n"
                   "They should be the same. \n"
                   "There are {1} START assembler instructions in {0}. \n"
                   "There are {2} END assembler instructions in {0}. ",
                   "{prefix}(START > END): プログラムが正しく閉じていない。\n"
                   "START アセンブラ命令の個数と END アセンブラ命令の個数が異なる。 同数のはずです。 \n"
                   "START アセンブラ命令 が ファイル({0} ) の中に全部で {1} 個ある。 \n"
                   "END アセンブラ命令 が ファイル({0} ) の中に全部で {2} 個ある。 ",
                   {WordingNA | WordingAP,
                    "{prefix}(START > END): The program is not correctly closed. \n"
                    "The number of the START assembler instructions is different from that of the END's. \n"
                    "They should be the same. \n"
                    "There are {1} START assembler instructions in {0}. \n"
                    "There are {2} END assembler instructions in {0}. "}};
    Msg MoreEnds{"{prefix}(START < END): The program is not correctly closed.\n"
                 "There is a differece between START and END in number.\n"
                 "They should be the same in a program. \n"
                 "There are {1} START assembler instructions in {0}. \n"
                 "There are {2} END assembler instructions in {0}. ",
                 "{prefix}(START < END): プログラムが正しく閉じていない。 \n"
                 "START アセンブラ命令の個数と END アセンブラ命令の個数が異なる。 \n"
                 "同数のはずです。\n"
                 "START アセンブラ命令 が ファイル( {0} ) の中に全部で {1} 個ある。 \n"
                 "END アセンブラ命令 が ファイル( {0} ) の中に全部で {2} 個ある。 "};
    Msg EndBeforeItsStart{"{line}START and END are out of order. \n"
                          "START should be followed by END. ",
                          "{line}START と END アセンブラ命令 が逆順です。 ",
                          {WordingNA | WordingAP, "{line}START and END are out of order. \n"
                                                  "END should follow START."}};
    Msg NextStartBeforeEnd{"{line}START and END are out of order. \n"
                           "START should be followed by END.",
                           "{line}START と END アセンブラ命令 が逆順です。 "};
    Msg OnePrg{"There is one program found in it.\n\n",
               "{0} 個のプログラムがある。 \n\n",
               {WordingNH, "There is 1 program in it. (Assembler)\n\n"}};
    Msg ManyPrgs{"There are {0} programs found in it.\n\n",
                 "{0} 個のプログラムがある。 \n\n",
                 {WordingNH, "There are {0} programs in it. (Assembler)\n\n"}};
    Msg NoRet{"{line}The {0o} program: There is not any RET opcode at all there. It may run out of control. "
              "It may go into an infinite loop. \n"
              "Is this your intention? If not, you should add the code. \n"
              "Note: A space is expected at the both sides of RET. ",
              "{line}{0} 番目のプログラム： RET 命令が一つもない。 暴走の可能性が大きい。 "
              "あるいは、無限ループに入り、実行が終了しない。\n"
              "意図的でなければ修正が必要です。 NOTE: RET の 右 又は 左 に空白が必要です。 "};

    // Program boundaries, program by program
    Msg StartWithoutLabel{"{line}A label is expected at the left side of the START assembler instruction. ",
                          "{line}START アセンブラ命令の左にラベルが必要"};
    Msg EndWithLabel{"{line}{0q}{join}"
                     "There is a label at the left side of the END assembler instruction. \n"
                     "It is of no use. ",
                     "{line}{0q}{join}"
                     "END アセンブラ命令の左にラベルがある。 \n"
                     "END アセンブラ命令の左のラベルは不要です。（CASL2 の仕様） "};
    Msg SrcBetweenPrgs{"{line}{0q}: There are some unknown string between two programs. "
                       "There are some unknown string between END and START. It should be deleted. "
                       "Or a comment mark(;) is expected at the left side of the description.",
                       "{line}{0q}プログラムとプログラムの間にソースコードがある。"
                       "END 命令と次のプログラムの STRAT 命令の間に不明の文字がある。"
                       "コメント記号(;)を前置する、あるいは、削除する。",
                       {WordingNH, "{line}{0q}: There are some unknown string between programs.\n"
                                   "There are some unknown string between END and START.\n"
                                   "It should be deleted. Or a comment mark(;) is expected at the left side."}};
    Msg ZenSpaceBetweenPrgs{"{line}{0q}: There are some unknown string between two programs. "
                            "There are some unknown string between END and START. It should be deleted. "
                            "Or a comment mark(;) is expected at the left side of the description.\n"
                            "It is not a 1-byte space, but a 2-byte one.  "
                            "A 2-byte space is not allowed for use in CASL2. ",
                            "{line}{0q}プログラムとプログラムの間にソースコードがある。"
                            "END 命令と次のプログラムの STRAT 命令の間に不明の文字がある。"
                            "コメント記号(;)を前置する、あるいは、削除する。\n"
                            "それは「全角の空白」文字である。\n"
                            "「全角の空白」文字は、コメントの中を除き、CASL2では使うことができない。 ",
                            {WordingNH, "{line}{0q}: There are some unknown string between programs.\n"
                                        "There are some unknown string between END and START.\n"
                                        "It should be deleted. Or a comment mark(;) is expected at the left side.\n"
                                        "It is not a 1-byte space, but a 2-byte one.  "
                                        "A 2-byte space is not allowed for use in CASL2. "}};

    // The name of a program
    Msg PrgWithoutName{"{line}A label is expected at the left side of the START assembler instruction. ",
                       "{line}START アセンブラ命令の左にラベルが必要です。"};
    Msg PrgNameFirstLetter{"{prefix}{0q}{atline}The first letter of a label must be a capital alphabetical letter. "
                           "A numeral is not allowed to be used as the first letter of a label. ",
                           "{prefix}{0q}{atline}ラベルの先頭文字は英大文字であること。 先頭文字に数字は使えない。"};
    Msg PrgNameMozi{"{prefix}{0q}{atline}There is non-alpha-numeral character in the label of {0q}. ",
                    "{prefix}{0q}{atline}ラベル {0q} の第 {1} 文字目に英大文字、 数字 以外の文字が使われている。 "};
    Msg PrgNameSmallMozi{"There is a small letter in the label. "
                         "A small letter is not allowed in a lebel of casl2. ",
                         "ラベル {0q} の第 {1} 文字目に英小文字が使われている。 英小文字は使えない。 "};
    Msg PrgNameTooLong{"{prefix}{0q}{atline}A label must be 1 to 8 characters in length. \n"
                       "Label: {0q}: There are {1} letters in it. ",
                       "{prefix}{0q}{atline}ラベル の長さは８文字までの制限（仕様）がある。。 \n"
                       "{0q}: {1} 文字ある。"};
    Msg PrgNameReserved{"{prefix}{0q}{atline}The reserved words(GR0-GR7) are not allowed in a label. ",
                        "{line}ラベルに予約語(GR0 - GR7) は使えない。"};

    // The label of a line
    Msg LabelAlone{"{line}{0q}: A label is detected. But there is not any instruction code in the line. ",
                   "{line}{0q}: ラベルはあるが、命令語の記述がない。"};
    Msg LabelFirstLetter{"{line}{0q}: The first letter of a label must be a capital alphabetical letter. "
                         "A numeral cannot be used as the first letter. ",
                         "{line}{0q}: ラベルの先頭文字は英大文字であること。先頭文字に数字は使えない。"};
    Msg LabelMozi{"{line}There is an unsuitable character in the label of '{0}'. ",
                  "{line}ラベル {0} に英大文字、 数字 以外の文字が使われている。 "};
    Msg LabelTooLong{"{line}{0q}  A label must be 1 to 8 characters in length. It includes {1} characters in it. ",
                     "{line}{0q} ラベルの長さは 8 文字までに制限されている。 {1} 文字ある。",
                     {WordingNA | WordingAP, nullptr, "{line}{0q} ラベルの長さは 8 文字まで。 {1} 文字ある。"}};
    Msg LabelReserved{"{line}{0} is one of the reserved words(GR0-GR7). \n"
                      "Reserved words, GR0 through GR7, are not available for labels. Spec. of CASL2   2.1 (Note) ",
                      "{line}ラベルに予約語(GR0 - GR7) は使えない。CASL2の仕様　2.1（注）"};

    // Names against each other
    Msg LabelDouble{"{prefix}The label {0} is already defined. \n"
                    "Duplication of the same label of {0}. \n"
                    "line={1} and line={2} \n"
                    "All of the labels must be unique in a program. ",
                    "{prefix}{1} 行目 と {2} 行目： 同じラベル {0} が二つある。",
                    {WordingNA | WordingAP, "{prefix}The label {0} is already defined. \n"
                                            "Duplication of the same label of {0}. \n"
                                            "line={1} and line={2} \n"
                                            "Each of the labels must be unique in a program. "}};
    Msg PrgNameDouble{"{prefix}{0q} is already defined. Duplication of the program name. \n"
                      "Program {1}, line {2} and Program {3}, line {4}.\n"
                      "Their names must be unique each other. ",
                      "{prefix}プログラム名の重複： {0q} が二つある。 \n"
                      "プログラム{1} と プログラム{3} の名前 \n"
                      "{2} 行目 と {4} 行目にある。",
                      {WordingNA | WordingAP, nullptr,
                       "{prefix}プログラム名の重複： {0q} が二つある。 \n"
                       "プログラム{1} and プログラム{3} の名前 \n"
                       "{2} 行目 と {4} 行目にある。"},
                      {WordingNH,
                       "{prefix}Duplication of the program name. "
                       "The program name has been already defined in both Program {1} and Program {3}. \n"
                       "Each of the names must be unique. ",
                       "{prefix}プログラム名の重複： {0} ２ 個ある。 \n"
                       "{1} 番目と {3} 番目のプログラムが同名である。 "}};
    Msg LabelUnreferenced{"{line}{0q} Unreferenced label  ", "{line}ラベル {0q} は一度も参照されない。 "};
    Msg PrgNeverCalled{"{line}\n"
                       "A program of the \"{0}\" is never executed, becasue it is not called by any other program. ",
                       "{line}\n"
                       "プログラム {0} は他のプログラムから呼び出しがなく一度も実行されない。 ",
                       {WordingNA | WordingAP, "{line}\n"
                                               "A program of the \"{0}\" is never executed. "
                                               "Becasue it is not called by any other program. "}};

    // The opcode word
    Msg UnknownOp{"{prefix}line {nr}{body}{0q} is not either assembler instruction, machine instruction, "
                  "or macro instruction.  ",
                  "{line}{0q} は アセンブラ命令 でも 機械語命令 でも マクロ命令 でもない。 "
                  " 正しい 命令語 の記述が必要です。 "};
    Msg ZenSpaceInOp{"Error: {body}2-Byte Space", "Error: {body}全角の空白文字がある。"};
    Msg SmallMoziInOp{"{line}There is a small letter in {0}. ", "{line}: {body}演算子 {0} の中に小文字がある。"};
    // {0} the word, {1} the limit
    Msg OpTooLong{"{line}{0q}: There does not exist any operator which consists of more than {1} characters. ",
                  "{line}{1} 文字を超える演算子は存在しない。{0q} "};
    Msg CommaBehindOp{"{line}A space is expected at the right side of the opcode. A comma is of no use. ",
                      "{line}演算子の右は空白にする。コンマは不要です。 "};

    // The place of DC and DS in the array pipeline
    Msg DcDsNotAtEnd{"{line}Both DC and DS are assembler instructions. They should be described between "
                     "all the machine instructions and END assembler instruction. "
                     "(Spec. of Tolvane) It improves readability of the source codes. ",
                     "{line}DC と DS の 非実行文は、ソースコードを読みやすくするために、 "
                     "END アセンブラ命令の直前にまとめて記述する（独自仕様）。 "
                     "Ｃ言語でも同様の理由で関数の前半に定義文をまとめる。"};

    // The length of a line, told once in a program and counted nowhere
    Msg LongLine{"Warning: line {nr}: {body}There are {0} characters in the line. "
                 "The Spec. of Tolvane has a length limit for every line. "
                 "The assembler reads 225 characters or less a line. "
                 "This might have caused an error for all your intention. \n",
                 "警告: {nr}行目：{body}Tolvaneの仕様よりも長い行がある。 {0} 文字ある。"
                 "225 文字まで読取り、それ以降の文字は読み捨てる。\n"};
};
inline constexpr LinesCatalogue LinesMsg;

} // namespace tolvane
