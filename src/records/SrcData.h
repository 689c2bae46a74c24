#pragma once
// The record of one source line: the line in all its stages of analysis, from the text as read to its machine words.

#include "text/Text.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tolvane {

// One machine word of a line.
struct TWordRec {
    std::int32_t Value = 0;
    std::int32_t RlAdr = 0; // relative to the program
    std::int32_t AbAdr = 0; // absolute
    std::int32_t Line = 0;
    const char* Tag = "";
};

// One character of a character literal.
struct TLiteMozi {
    std::int32_t Code = 0;
    std::int32_t Kazu = 1;
    std::int32_t Word = 0; // the code again, as it goes to memory
    std::int32_t Line = 0;
    std::int32_t AbAdr = 0;
};

// The literal of a line's address operand.
template <class Ch> struct TLiteConst {
    Text<Ch> strLite;              // a number: the operand with its "="; characters: the text with its apostrophes
    std::int32_t LiteWordKazu = 0; // characters of a character literal, 0 for a number
    std::int32_t LiteValue = 0;    // value of a number
    std::int32_t RlAdr = 0;
    std::int32_t AbAdr = 0;
    const char* strLiteKind = ""; // "LiteDecConst", "LiteHexConst", or empty for characters
    std::vector<TLiteMozi> vecLiteMozi;
};

// One character of a character constant.
struct TMoziWord {
    std::int32_t Kazu = 1;
    std::int32_t Code = 0;
    std::int32_t AbAdr = 0;
};

// One constant of a DC line.
template <class Ch> struct TDcConst {
    Text<Ch> strConst; // trimmed; a character constant keeps its apostrophes
    std::int32_t ConstWordKazu = 0;
    std::int32_t ConstValue = 0; // value of the one-word kinds
    std::int32_t ConstRlAdr = 0;
    std::int32_t ConstAbAdr = 0;
    std::vector<TMoziWord> vecMozi;
    const char* DataTypeStrFlag = ""; // "Const", "CharConst", "Dec", "Hex", "AdrConst", "Label", "MoziRetuConst"
};

template <class Ch> struct SrcData {
    Text<Ch> strSrc;  // the line as read, without its line end
    Text<Ch> strLine; // the working text; from the driver's copy step on, the operand text
    std::int32_t RlAdr = 0;
    std::int32_t AbAdr = 0;
    std::int32_t PrgNr = 0;
    Text<Ch> strLabel;
    Text<Ch> strOp;
    bool fLabelInUse = false;
    bool fDsZero = false;
    Text<Ch> strRest;     // the text behind the label field
    Text<Ch> strOprndCom; // the text behind the opcode word, later the operands alone
    Text<Ch> chOprndCom;  // its first 225 characters, where the pipeline has that limit

    // Operands 1 to 4 (index 0 is not in use). An operand keeps the comma that ended it until it has been judged;
    // what stands behind the third operand is in number 4, unsplit.
    std::array<Text<Ch>, 5> chOprnd;
    // Copies of operands 1 to 3 as they were cut; empty on a line of three operands.
    std::array<Text<Ch>, 4> strOprnd;

    Text<Ch> strComment;
    std::int32_t oprnd_kazu = 0;
    std::int32_t word_kazu = 0;
    std::int32_t first_word = 0;
    std::int32_t second_word = 0;
    std::vector<TWordRec> vecWord; // a DS line keeps none: its words are word_kazu zeros
    bool fLite = false;
    std::vector<TLiteConst<Ch>> vecLite; // none or one
    std::vector<TDcConst<Ch>> vecDcConst;
};
using SrcDataW = SrcData<char16_t>;
using SrcDataA = SrcData<char>;

} // namespace tolvane
