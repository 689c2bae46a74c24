#pragma once
// What the checks of literals say.

#include "messages/Msg.h"

namespace tolvane {

struct LiteralCatalogue {
    static constexpr OperandRows Row{};

    Msg DecNonNumeral = Row("{line}There is non-numeral letter in the literal decimal constant. ",
                            "{line}リテラル10進定数に 数字以外の文字がある。");
    Msg HexBadDigit = Row("{line}A hexadecimal number is written in 0-9 and A-F. ",
                          "{line}リテラル16進定数は 0 - 9 の数字 と  A - F の英大文字を使う。");
    Msg HexLength =
        Row("{line}A hexadecimal number should be written in four letters. ", "{line}リテラル16進定数は 4 桁で記述。");
    // {0} the operand text
    Msg NoLiteral =
        Row("{line}{0q} cannot be read as a literal. "
            "{0q} cannot be regaraded as a label or an address constant. \n"
            "A literal can be described by attaching the equal sign (=)\n"
            "before a decimal constant, a hexadecimal constant or a character constant.\n"
            "(Spec.of CASL2 　2.5 Machine Language Instructions)\n"
            "So a label is excluded from a literal.",
            "{line}= と その直後の文字 {0q} の組み合わせは、リテラルにもラベルにも読み取れない。\n"
            "リテラルは、一つの１０進定数、１６進定数　又は　\n"
            "文字定数の前に等号（＝）を付けて記述する。\n"
            "（CASL2言語の仕様   2.5 機械語命令）\n"
            "したがって、ラベルはリテラル定数としては使えない。",
            {WordingNA | WordingAP, "{line}{0q} cannot be read as a literal. "
                                    "{0q} cannot be regaraded as a label or an address constant. \n"
                                    "A literal can be described by attaching the equal sign (=)\n"
                                    "before a decimal constant, a hexadecimal constant or a character constant.\n"
                                    "(Spec.of CASL2  2.5 Machine Language Instructions)\n"
                                    "So a label is excluded from a literal."},
            {WordingWP,
             "{line}{0q} cannot be read as a literal. "
             "{0q} cannot be regaraded as a label or an address constant. ",
             "{line}= と その直後の文字 {0q} の組み合わせは、リテラルにもラベルにも読み取れない。"},
            {WordingNH,
             "{line}{0q} cannot be read as a literal. "
             "{0q} cannot be regaraded as an address constant or a label. \n"
             "A literal can be described by attaching the equal sign (=)\n"
             "before a decimal constant, a hexadecimal constant or a character constant.\n"
             "(Spec.of CASL2 　2.5 Machine Language Instructions)\n"
             "So a label with an equal sigh is excluded from a literal.",
             "{line}= と その直後の文字 {0q} の組み合わせは、"
             "リテラルにもアドレス定数（ラベル）にも読み取れない。\n"
             "リテラルは、一つの１０進定数、１６進定数　又は　\n"
             "文字定数の前に等号（＝）を付けて記述する。\n"
             "（CASL2言語の仕様   2.5 機械語命令）\n"
             "したがって、ラベルはリテラル定数としては使えない。"});
    Msg CharsNotClosed =
        Row("{line}{0q}  The literal string constant is not correctly closed. "
            "A string constant starts with an apostrophe and end with another apostrophe. "
            "Two consecutive apostrophes('') is used as one apostrophe(') in a string constant.",
            "{line}{0q}  リテラル文字定数が正しく閉じていない。"
            "文字定数の中でアポストロフィは2個続けて書く。",
            {WordingNA,
             "{line}{0q}:  The literal string constant is not correctly closed. "
             "A string constant starts with an apostrophe and end with another apostrophe. "
             "Two consecutive apostrophes('') is used as one apostrophe(') in a string constant.",
             "{line}{0q}: リテラル文字定数が正しく閉じていない。"
             "文字定数の中でアポストロフィは二個続けて書く。"},
            {WordingAP, nullptr,
             "{line}{0q}  リテラル文字定数が正しく閉じていない。"
             "文字定数の中でアポストロフィ(')は2個続けて書く。"},
            {WordingWP, "{line}{0q}  The literal string constant is not correctly closed. "
                        "A string constant starts with an apostrophe and end with another apostrophe. "
                        "Two consecutive apostrophes('') is used as one apostrophe(') in a string constant."
                        "Spec. 2.3 (4): Apostrophes(') must be written twice consecutively."},
            {WordingNH, nullptr,
             "{line}{0q}  リテラル文字定数が正しく閉じていない。"
             "文字定数の中でアポストロフィは二個続けて書く。"});
    Msg NoCharacter = Row("{line}The length must be more than zero in a literal character constant. "
                          "It is not allowed to be zero. ",
                          "{line}リテラルの文字数は１個以上必要。０個は不可。",
                          {WordingWP, nullptr, "{line}リテラルの文字数は１個以上必要です。０個は不可。"});
    Msg CharsExample = Row("{line}{0q}: A literal charcter constant is not correctly closed.\n"
                           "Good Example 1.:  ='Ruby' \n"
                           "Good Example 2.:  ='Ruby '' 123'",
                           "{line}{0q}: {join}"
                           "正例１．：　='Ruby' \n"
                           "正例２．：  ='Ruby '' 123'",
                           {WordingNA,
                            "{line}{0q}: A literal charcter constant is not correctly closed.\n"
                            "Example 1.:  ='Ruby' \n"
                            "Example 2.:  ='Ruby '' 123'",
                            "{line}{0q}: リテラル文字定数が正しく閉じていない。\n"
                            "正例１．：　='Ruby' \n"
                            "例２．：  ='Ruby '' 123'"});
};
inline constexpr LiteralCatalogue LiteralMsg;

} // namespace tolvane
