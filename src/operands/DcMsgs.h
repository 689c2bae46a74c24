#pragma once
// What the checks of DC say. {0} is the text or the constant that the row is about.

#include "messages/Msg.h"

namespace tolvane {

// Told in Japanese in either language.
inline constexpr const char* TooManyDcDsText =
    "エラー： {body}仕様：DCとDSの行の数の合計は「最大行数の６分の１」={0} 行に制限されています。　"
    "DC行が {1} 行あります。 DS行が {2} 行あります。 DCとDSの行の数の合計が {3} 行あります。 "
    "メモリの節約のため削減をお願いします。 ";

struct DcCatalogue {
    static constexpr OperandRows Row{};

    // The operand text
    Msg CharsNotClosed = Row("{line}{0q}: The character constant is not correctly closed. "
                             "Note! Apostrophe.  If you want an apostrophe to appear within a character constant, "
                             "you must type two apostrophes such as ('') in a row. (Spec. 2.3 (4) Character Constant) ",
                             "{line}{0q}: 文字定数が正しく閉じていない。アポストロフィに着目。 "
                             "アポストロフィ(')は２個続けて('')書く。 仕様 2.3 (4) 文字定数");
    Msg NoCharacter = Row("{line}{0q}: The length of a literal character constant must be more than zero. "
                          "It is not allowed to be zero. (Spec. of CASL2 2.3 (4) Character Constant) ",
                          "{line}{0q}: 文字定数の文字数は１個以上必要。０個は不可。 仕様 2.3 (4) 文字定数");
    Msg NoOperand = Row("{line}An constant operand is empty. \n"
                        "An constant operand is expected at the right side of DC instruction. ",
                        "{line}DC 命令 の 右に オペランド(定数) の記述がない。");
    Msg DoubleComma = Row("{line}Duplication of comma. ", "{line}コンマの連続 ");
    Msg BlankBehindSign = Row("{line}There is a space after a sign mark(+, -). Remove off the space123. ",
                              "{line}正負符号の直後に空白がある。空白を取り除くこと。");
    Msg BlankBehindHexMark = Row("{line}Hex constants must have at least one hex digit. "
                                 "There is a space just after #. The # is a prefix of hexadecimal number. "
                                 "Remove off the space at the right side of the #. ",
                                 "{line}１６進数を表す記号 # の直後に空白がある。"
                                 "# と１６進数数字の間にある空白を取り除くこと。");
    Msg CommaAtEnd =
        Row("{line}{0q} The comma is of no use at the end of the constant. "
            "Because there is not any more constant description at the right side of the comma. ",
            "{line}{0q} コンマの右に 定数 がないのだからコンマは不要です。 ",
            {WordingWP, "{line}{0q} The comma is of no use at the end of the constant, "
                        "because there is not any more constant description at the right side of the comma. "});
    Msg ConstantOrComment =
        Row("{line}: {body}\"{0}\" : Is this a constant or a comment?  You should clarify your intention. "
            "If \"{0}\" is a constant, a comma is needed at the left side of the constant.  "
            "If this is a comment, a semicolon is needed there. "
            "Multiple operands of DC insturction are separated by a comma.  "
            "Example:  LABEL DC 22, 55, 'abc', 88 ; Comments ",
            "{line}: {body}\"{0}\" が定数ならば、定数の前にコンマが必要です。 "
            "定数でないならばセミコロン；を記述して明示的に注釈にすること。（推奨） "
            "定数 DC 命令の複数のオペランドはコンマで区切る。　例： LABEL DC 22, 55, 'abc', 88 ; コメント",
            {WordingWP, "{line}: {body}\"{0}\" : Is this a constant or a comment?  You should clarify your intention. "
                        "If \"{0}\" is a constant, a comma is needed at the left side of the constant.  "
                        "If this is a comment, a semicolon is needed at the top of the comment. "
                        "Each of the multiple operands of DC insturction is separated by a comma.  "
                        "Example:  LABEL DC 22, 55, 'abc', 88 ; Comments "});

    // A constant of no kind
    Msg BadFirstChar = Row("\n"
                           "{line}There is a non-alphanumeric character  in {0q}. It is not allowed in CASL2.  ",
                           "\n"
                           "{line}CASL2 で使用できない文字が {0q} の中にある。 ");
    Msg DoubleQuote = Row("A string constant, also called a literal string constant, "
                          "is a sequence of characters surrounded by single quotes, as in 'ABC'. "
                          "The literal string constant is not correctly closed. ",
                          "文字列定数（またはリテラル）は ' で始まりで ' で閉じる。");

    // Hexadecimal constants; {1} the number of digits
    Msg HexBadDigit = Row("{const}{0q}: A hexadecimal number is written in 0-9 and A-F. "
                          "A hexadecimal number is written in capital letter. ",
                          "{const}{0q} 16進数は 0-9 の数字と A-F の英大文字で記述する。");
    Msg HexTooLong = Row("{line} Constant Nr={k} {0q} A hexadecimal number should be written in four letters. "
                         "There are {1} letters in it. ",
                         "{const}{0q} 16進数は4文字で記述する。{1} 文字ある。");
    Msg HexOneDigit =
        Row("{const}{0q} A hexadecimal number is written in four letters. There is only one letter in it. ",
            "{const}{0q} 16進数は4文字で記述する。{1} 文字しかない。");
    Msg HexTooShort =
        Row("{const}{0q} A hexadecimal number is written in four letters. There are only {1} letters in it. ",
            "{const}{0q} 16進数は4文字で記述する。{1} 文字しかない。");

    // Decimal constants
    Msg DecNonNumeral = Row("{const}{0q}: There is non-numerical letter in the decimal constant. ",
                            "{const}:{constbody}{0q}: 10進定数の中に数字以外の文字がある。");
    Msg NumeralFirst =
        Row("{prefix}{0q}{atconst}A numeral cannot be the 1st letter of a label. "
            "There is a non-numeral character in the decimal number. ",
            "{prefix}{0q}{atconst}ラベルの先頭文字に数字は使えない。10進定数の中に数字以外の文字がある。  ");

    // Labels
    Msg LabelBadChar = Row("{const}{0q} The address constant should be written in capital alphanumeric letters. ",
                           "{const}{0q} ＊アドレス定数に使えるのは英大文字と数字。 ");
    // {1} its length
    Msg LabelTooLong = Row("{const}{0q} An address constant is written in 1 to 8 characters. "
                           "There are {1} characters in it. ",
                           "{const}{0q} アドレス定数は８文字まで。 {1} 文字ある。 ",
                           {WordingNH, "{const}{0q} An address constant is written in not more than eight letters. "
                                       "It is {1} letter(s). "});
    Msg LabelUndefined =
        Row("{line} Constant Nr={k}: Undefined address constant {0q} It is neither label nor program name. "
            "Make sure of your spelling of {0q}. ",
            "{const}{0q}  と一致するラベル又はプログラム名が存在しない。スペリングは正しいですか？ ",
            {WordingNH,
             "{line} Constant Nr={k}: Undefined address constant {0q} It is neither label nor program name. "
             "An address constant must be one of the labels in the program.  Make sure of your spelling of {0q}. ",
             "{const}{0q}  と一致するラベル又はプログラム名が存在しない。"
             "アドレス定数としては同じプログラム内のラベルのみが使える。スペリングは正しいですか？ "});

    Msg CharConstBadEnd =
        Row("{const}  {0q}  A character constant is not correctly closed. "
            "There is another character at the right side of the constant. "
            "Either a semicolon or a comma or a space is needed at the right side of the character constant. "
            "Or the literal string is not correctly closed. "
            "Note! Apostrophe.  If you want an apostrophe to appear within a character constant, "
            "you must type two apostrophes such as ('') in a row. Spec. 2.3 (4) String Constant ",
            "{const}  {0q}  文字定数が閉じた直後にさらに文字がある。 "
            "区切りとして空白又はコンマ又はセミコロンが必要。 あるいは、文字定数が正しく閉じていない。"
            "アポストロフィに着目：文字列定数の中では、アポストロフィ(')は２個続けて('')書く。"
            "仕様 2.3 (4) 文字定数 ");

    // The count of the words, English in either language; {1} the constant's number
    Msg EmptyConstant = Row("{line}\"{0}\": The {1o} operand at DC is empty in description.",
                            "Error : line {nr}: {body}\"{0}\": The {1o} operand at DC is empty in description.");
    Msg UnknownKind =
        Row("{line}\"{0}\": Unknown error of else. ", "Error : line {nr}: {body}\"{0}\": Unknown error of else. ");

    // The limits of the array pipeline
    // {0} the limit, {1} the constants of the line
    Msg TooManyConstants = Row("{line}There are too many operands of DC instruction. "
                               "The number of the DC operands is limited to {0} in a line (Spec. of Tolvane). "
                               "There are {1} operands. Decrease the number of the operands in the line. ",
                               "{line}DC アセンブラ命令のオペランドの個数が多すぎる。 "
                               "DC オペランドの数は、一行につき {0} 個に制限されています。（Tolvane の独自仕様）"
                               "{1} 個あります。DC オペランドの個数を削減する必要があります。 ");
    // {0} the limit, {1} the DC lines, {2} the DS lines, {3} both
    Msg TooManyDcDs = Row(TooManyDcDsText);

    // The values
    Msg DecOutOfRange = Row("{const}{0}The decimal number constant is out of range. "
                            "It should be between -32768 and 32767. "
                            "So its lower 16-bits are saved in a memory. (Spec. 2.3 (4)) ",
                            "{const}十進定数 {0} が -32768 から 32767 までの範囲にないので、"
                            "その下位１６ビットが格納される。（仕様2・3（４））  ");
    Msg NoAddressConstant = Row("{line}{0} is not an address constant. \n"
                                "There does not exist any label which is identical with {0}. ",
                                "{line}\n"
                                "アドレス定数 {0} と一致する ラベル が存在しない。");
};
inline constexpr DcCatalogue DcMsg;

} // namespace tolvane
