#pragma once
// What the cutting of operands and the scanners of string constants say.

#include "messages/Msg.h"

namespace tolvane {

struct ExtractionCatalogue {
    static constexpr OperandRows Row{};

    Msg LiteralNotClosed =
        Row("{line}{0q}: The literal string constant is not correctly closed. ",
            "{line}{0q}: リテラル文字定数が正しく閉じていない。",
            {WordingNA, "{line}{0q}: A literal character constant is not correctly closed. ", nullptr},
            {WordingNH, "{line}{0q}: This literal character constant is not correctly closed. ", nullptr});
    // In the array pipeline, in front of the row above.
    Msg LiteralApostExample = Row("{line}A literal string constant is not correctly closed. "
                                  "The both ends of a literal string should be enclosed by an apostrophe. "
                                  "For example, ='ABC' ",
                                  "{line}リテラル文字定数が正しく閉じていない。 "
                                  "文字定数は文字列の両側をアポストロフィで囲む。");
    Msg LiteralBadClose =
        Row("{line}{0q}: A literal charcter constant is not correctly closed. ",
            "{line}{0q}: リテラル文字定数が正しく閉じていない。 ",
            {WordingNA, "{line}{0q}: The literal charcter constant is not correctly closed. ", nullptr});
    Msg StrNotClosed = Row("{line}{0q}: {join}"
                           "A character constant is not correctly closed. \n"
                           "The both ends of the constant must be enclosed by a pair of apostrophes. \n"
                           "Good Example 1.:  'ABC' \n"
                           "Good Example 2.:  'ABC '' 123'\n"
                           "Note: An apostrophye (') must be written twice consecutively in a character constant. \n"
                           "Spec. of CASL2: 2.3 (4)\n",
                           "{line}\n"
                           "{0q}: 文字定数が正しく閉じていない。 \n"
                           "文字定数は文字列の両側をアポストロフィで囲む。\n"
                           "例１． :　'ABC'  （正）\n"
                           "例２． :  'ABC '' 123'  （正）\n"
                           "文字定数の中のアポストロフィ（'）は、二個続けて書く。\n"
                           "CASL2の仕様：２．３　（４）\n");
    // {0} the limit, {1} the length. Printed as it stands: it is counted nowhere.
    Msg OperandTooLong = Row("（規定の文字の長さ、文字数）＝（{0}, {1}）\n"
                             "Warning: line {nr}: {body}There are {1} characters in the line. "
                             "The Spec. of Tolvane has a length limit in every line. "
                             "The assembler reads {0} characters or less a line. "
                             "This might have caused an error for all your intention. \n",
                             "（規定の文字の長さ、文字数）＝（{0}, {1}）\n"
                             "警告: {nr}行目：{body}{1} 文字ある。Tolvaneの仕様の規定よりも長い行がある。 "
                             "{0} 文字まで読取り、それ以降の文字は読み捨てる。\n",
                             {WordingNA,
                              "Warning: line {nr}: {body}There are {1} characters in the line. "
                              "The Spec. of Tolvane has a length limit in a line. "
                              "The assembler reads {0} characters or less in a line. "
                              "This might have caused an error for all your intention. \n",
                              "警告: {nr}行目：{body}{1} 文字ある。仕様の規定よりも長い行がある。 "
                              "{0} 文字まで読取り、それ以降の文字は読み捨てる。\n"});
    // {0} the zero-based line.
    Msg LeadSemicolon = Row("Error: line={0}: {body}No description of operands. ");
    Msg NextOperandExpected = Row("{line}The nextnoperand is expected at the right side of the comma."
                                  "Or no comma is needed.",
                                  "{line}{0}番目のオペランドの後にコンマがあるのに次のオペランドが無い。");
    Msg CommaExpected = Row("{line}A comma is expected between two operands.",
                            "{line}{0}番目と{1}番目のオペランドの間にコンマが必要です。");
    Msg UnknownOp = Row("Prg Error: line= {nr}: There does not exist an op code \n"
                        "of {0} in casl2.",
                        "Prg Error: line={nr}: {0q}: 該当する OP code が存在しない。");
    Msg CommaFlagBroken = Row("Error of else! {0}  -1==ChFlag  GetCommaAriFlagForNextOprnd(...); CommaNextOperand");
    Msg NotAtApostrophe = Row("Prg Error: 文字列定数開始位置0x27の引き渡しではない。{0} で引き渡された。\n");
};
inline constexpr ExtractionCatalogue ExtractionMsg;

} // namespace tolvane
