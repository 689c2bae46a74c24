#pragma once
// What the checks of decimal and hexadecimal numbers say.

#include "messages/Msg.h"

namespace tolvane {

struct NumberCatalogue {
    Msg DecBadCall{"Prg. Error: 先頭文字が(+, -, 数字)でこの関数に引き渡されることになっている。{0}　であった。"};
    Msg HexBadCall{"Prg. Error: 先頭文字が('#')でこの関数に引き渡されることになっている。{0}　であった。"};
    // {0} the text
    Msg NonNumeral{"{const}\n{constbody}"
                   "{0q}: {join}"
                   "There is non-numerical letter in the decimal constant. ",
                   "{const}:\n{constbody}"
                   "{0q}: {join}"
                   "10進定数の中に数字以外の文字がある。"};
    // {0} the value. The Japanese head has a colon behind each of its two words.
    Msg DecOutOfRange{"{const}{0} {join}"
                      "The decimal number constant is out of range. \n"
                      "It should be between -32768 and 32767. \n"
                      "So its lower 16-bits are saved in a memory. \n"
                      "(Spec. 2.3 (4)) ",
                      "{line}: {k} 番目の定数： : \n{constbody}"
                      "十進定数 {0} が -32768 から 32767 までの範囲にないので、その下位１６ビットが格納される。"
                      "（仕様2・3（４））  "};
    // {0} the text; {1} the number of its digits
    Msg HexBadDigit{"{const}\n{constbody}"
                    "{0q}: {join}"
                    "A hexadecimal number is written in 0-9 and A-F. \n"
                    "A hexadecimal number is written in capital letter. \n"
                    "There is an unsuitable charcter in the hexadecimal number.",
                    "{line}: {k} 番目の定数： : \n{constbody}"
                    "{0q}: {join}"
                    " 16進数は 0-9 の数字と A-F の英大文字で記述する。\n"
                    "16進数の中に 0-9 の数字と A-F の英大文字以外の文字がある。"};
    Msg HexTooLong{"{const}{0q} A hexadecimal number should be written in four letters. "
                   "There are {1} letters in it. ",
                   "{const}{0q} 16進数は4文字で記述する。{1} 文字ある。"};
    Msg HexEmpty{"{const}There is no description at the right side of #. ", "{const}# の右に記述がない。"};
    Msg HexOneDigit{"{const}\n{constbody}"
                    "{0q}: {join}"
                    "A hexadecimal number is written in four letters. \n"
                    "There is only one letter in it. ",
                    "{const}\n{constbody}"
                    "{0q} : 16進数は4文字で記述する。\n"
                    "{1} 文字しかない。"};
    Msg HexTooShort{"{const}\n{constbody}"
                    "{0q}: {join}"
                    "A hexadecimal number is written in four letters. \n"
                    "There are only {1} letters in it. ",
                    "{const}\n{constbody}"
                    "{0q} : 16進数は4文字で記述する。\n"
                    "{1} 文字しかない。"};
    Msg HexNotRead{"line {nr}: {body}k={k}* Prg. Error: Fail to wcstol(); *endptr is non LY0."
                   "There is an unsuitable character to convert into a numerical value in it."};
};
inline constexpr NumberCatalogue NumberMsg;

} // namespace tolvane
