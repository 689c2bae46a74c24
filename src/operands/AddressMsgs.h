#pragma once
// What the checks of address constants say. In all rows {0} is the operand.

#include "messages/Msg.h"

namespace tolvane {

// The signed and the unsigned decimal number share the text of their Error but for one wording.
inline constexpr const char* AdrNonNumeralEn = "{line}{0q}: There is a non-numerical character in the decimal number. ";
inline constexpr const char* AdrNonNumeralJa = "{line}: {body}{0q}: １０進数の中に数字以外の文字がある。";

struct AddressCatalogue {
    static constexpr OperandRows Row{};

    // Names
    Msg NameBadChar =
        Row("{prefix}{0q}{atline}An address constant should be written in capital alphanumeric letters. "
            "There is a non-alphanumeric character in the constant. ",
            "{prefix}{0q}{atline}アドレス定数の中に英大文字と数字以外の文字がある。",
            {WordingNA | WordingAP,
             "{prefix}{0q}{atline}An address constant should be written in capital alphanumeric letters. "
             "There is a non alphanumeric character in the constant. "},
            {WordingNH, "{prefix}{0q}{atline}An address constant should be written in capital alphanumeric letters. "
                        "There is a non alphanumeric letter in the address constant. "});
    Msg NameSmallLetter = Row("{prefix}{0q}{atline}There is a small letter in the address constant. \n"
                              "A small letter is not allowed in casl2. ",
                              "{prefix}{0q}{atline}アドレス定数の中に小文字がある。 \n"
                              "CASL2 では小文字は使えない。",
                              {WordingNA, "{prefix}{0q}{atline}There is a small letter in the address constant. \n"
                                          "A small letter is not allowed to use in CASL2. "},
                              {WordingNH, "{prefix}{0q}{atline}There is a small letter in the address constant. \n"
                                          "A small letter cannnot be used in casl2. "});
    // {1} its length
    Msg NameTooLong = Row("{line}{0q}: An address constant must be 1 to 8 characters in length. "
                          "There are {1} characters in it. ",
                          "{line}: {body}{0q}: アドレス定数は８文字以内の制限がある。 {1} 文字ある。 ");
    Msg NameUndefined = Row("{line}{0q} Undefined address constant.  Neither label nor program name it is. "
                            "None of them is identical with {0q}. ",
                            "{line}アドレス定数 {0q} と一致するラベル又はプログラム名"
                            "（START アセンブラ命令の左にあるラベル）が存在しない。",
                            {WordingNA, "{line}{0q} Undefined address constant.  Neither label nor program name it is."
                                        "None of them is identical with {0q}. "},
                            {WordingAP, "{line}{0q} Undefined address constant.  Neither label nor program name it is. "
                                        "There is not any identical label with {0q}. "},
                            {WordingNH,
                             "{line}{0q} Undefined address constant.  There is neither label nor program name "
                             "which is identical with the address constant of {0q}. "
                             "The program name is a label at the left side of START assembler instruction. ",
                             "{line}*アドレス定数 {0q} と一致するラベル又はプログラム名"
                             "（START アセンブラ命令の左にあるラベル）が存在しない。"});
    Msg OutsideProgram = Row("{line}The address constant is a name of the outside program. "
                             "The comet2 might be out of control. Is this your intention? ",
                             "{line}: {body}アドレス定数として外部のプログラム名を用いている。　暴走の可能性がある。 "
                             "これはあなたの意図ですか？");

    // Hexadecimal numbers; {1} the number of digits
    Msg HexBadDigit = Row("{line}{0q} A hexadecimal number is written in 0-9 and A-F. ",
                          "{line}{0q}:  16進数字に0-9又はA-F以外の文字がある。 ",
                          {WordingWP, "{line}{0q} A hexadecimal number is written in 0-9 and A-F. \n"
                                      "Hexadecimal notation uses 0 through 9 and A through F."},
                          {WordingNH, "{line}{0q} A hexadecimal number is written in 0-9 nad A-F. "});
    Msg HexEmpty = Row("There is no description at the right side of #. ", "# の右に記述がない。",
                       {WordingNH, "There is no descrioption at the right side of #. "});
    Msg HexOneDigit =
        Row("{line}{0q} A hexadecimal number should be written in four digits. (Spec. 2.3 (4)) \n"
            "It is only {1} digit. ",
            "{line}: {body}{0q}:  １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) \n"
            "{1} 桁しかない。",
            {WordingNH, "{line}{0q} A hexadecimal number should be written in four digits. (Spec. 2.3 (4)) \n"
                        "It is only {1} digit(s). "});
    Msg HexTooShort =
        Row("{line}{0q} A hexadecimal number should be written in four digits. (Spec. 2.3 (4)) \n"
            "It is only {1} digits. ",
            "{line}: {body}{0q}:  １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) \n"
            "{1} 桁しかない。",
            {WordingNH, "{line}{0q} A hexadecimal number should be written in four digits. (Spec. 2.3 (4)) \n"
                        "It is only {1} digit(s). "});
    Msg HexTooLong = Row("{line}{0q} A hexadecimal nmuber should be written in four digits. (Spec. 2.3 (4)) ",
                         "{line}: {body}{0q}:  １６ 進数は ４ 桁で記述する。(仕様2･3 (4)) ");
    Msg HexTooLongBy = Row("It is only {1} digits. ", "{1} 桁ある。", {WordingNH, "It is only {1} digit(s). "});

    // Decimal numbers
    Msg DecNonNumeral = Row(AdrNonNumeralEn, AdrNonNumeralJa);
    Msg DecSignedNonNumeral =
        Row(AdrNonNumeralEn, AdrNonNumeralJa,
            {WordingWP, "{line}{0q}: There is a nono-numerical character in the decimal number. "});
    Msg DecOutOfRange = Row("{line}The decimal number is out of range. \n"
                            "The range of a decimal number is from zerp to 65535.\n"
                            "When a decimal number exceeds the range, its lower 16-bits is\n"
                            "saved in a memory. (Spec. of CASL2 2.3 (4)) \n"
                            "When a decimal number is between -32768 and 32767 \n"
                            "it is saved in a memory as a binary data in 16 digits. \n"
                            "The 15th bit is a sign bit. (Spec. of Tolvane) ",
                            "{line}10 進数の記述が 0 から 65535 までの範囲外にある。\n"
                            "その下位 16 ビットが格納される。(仕様 １・２、 注の２)  \n"
                            "10 進数の記述が -32768 から 32767 のとき、"
                            "16ビットの2進数データ（最上位ビットを符号ビットとする ）として格納される。 \n"
                            "その範囲外にあるとき、その下位 16 ビットが格納される。（独自仕様）  ");
    Msg DecSignedOutOfRange = Row("{line}The decimal number is out of range. \n"
                                  "The range of a decimal number is between zero and 65535. \n"
                                  "When a decimal number exceeds the range, its lower 16-bits is \n"
                                  "saved in a memory. (Spec. of 1.2, note 2) \n"
                                  "A decimal number between -32768 and 32767 \n"
                                  "is saved in a memory as a binary data in 16 digits. \n"
                                  "The 15th bit is a sign bit. (Spec. of Tolvane) ",
                                  "{line}: {body}10 進数の記述が 0 から 65535 までの範囲外にある。\n"
                                  "その下位 16 ビットが格納される。(仕様 １・２、 注の２)  \n"
                                  "10 進数の記述が -32768 から 32767 のとき、\n"
                                  "16ビットの2進数データ（最上位ビットを符号ビットとする ）として格納される。\n"
                                  "その範囲外にあるとき、その下位 16 ビットが格納される。（独自仕様）");

    // {1} the position of the character, counted from 1
    Msg UnsuitableChar = Row("{line}{0q}{join}"
                             "There is an unsuitable character in the address constant of {0q}.",
                             "{line}{0q}{join}"
                             "{1}　文字目にアドレス定数で使えない文字がある。");

    // The operand of START
    Msg StartBadChar = Row("{0}: {line}There is a non-alphanumeric letter in the address constant of {0q}. "
                           "The address constant should be written in capital alphanumeric letters. ",
                           "{0}: {line}{0q} アドレス定数に英大文字と数字以外の文字がある。");
    // {1} its length
    Msg StartTooLong = Row("{line}{0q}An address constant must be 1 to 8 characters in length. ",
                           "{line}{0q} アドレス定数は８文字以内。{1} 文字ある。");
    Msg StartUndefined = Row("{line}There does not exist any label which is identical with an address constant "
                             "of the {0q}. ",
                             "{line}アドレス定数 {0q} と一致するラベルが存在しない。");
    Msg StartIsProgram =
        Row("{line}START assembler instruction defines a top of the program. "
            "A top of the address at which a program starts is specified by a label defined in a program. "
            "(Spec. 2.3 (1)) The address constant at the right side of the START "
            "is expected to be corrected. ",
            "{line} START 命令は、プログラムの先頭を定義する。 "
            "実行開始番地は、そのプログラム内で定義されたラベルで指定する。（仕様 2・3（１））"
            "START 命令の右にあるアドレス定数を修正する必要がある。");
};
inline constexpr AddressCatalogue AddressMsg;

} // namespace tolvane
