#pragma once
// The record of one source line: the line in all its stages of analysis, from the text as read to its machine words.
// docs/architecture.md tells what each field holds after which pass.

#include "records/Opcode.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tolvane {

// The literal of a line's address operand.
struct TLiteConst {
    std::int32_t LiteValue = 0; // value of a number
    std::int32_t AbAdr = 0;
    std::vector<std::int32_t> vecLiteMozi; // the codes of a character literal, one word each; empty for a number
};

enum class DcKind : std::uint8_t { Const, CharConst, Dec, Hex, AdrConst, MoziRetuConst };
inline constexpr const char* DcKindNames[] = {"Const", "CharConst", "Dec", "Hex", "AdrConst", "MoziRetuConst"};

// One constant of a DC line.
template <class Ch> struct TDcConst {
    Text<Ch> strConst;                 // trimmed; a character constant keeps its apostrophes
    std::int32_t ConstValue = 0;       // value of the one-word kinds
    std::vector<std::int32_t> vecMozi; // the codes of a character constant, one word each
    DcKind DataTypeStrFlag = DcKind::Const;
};

template <class Ch> struct SrcData {
    Text<Ch> strSrc;  // the line as read, without its line end
    Text<Ch> strLine; // the same without comment and superfluous blanks
    std::int32_t AbAdr = 0;
    std::int32_t PrgNr = 0;
    Text<Ch> strLabel;
    Text<Ch> strOp;
    const Opcode* op = nullptr; // of strOp; null if that is empty or no opcode
    bool fLabelInUse = false;
    Text<Ch> strRest;     // the text behind the label field
    Text<Ch> strOprndCom; // the text behind the opcode word, later the operands alone
    Text<Ch> chOprndCom;  // its first 225 characters, where the pipeline has that limit

    // Operands 1 to 4 (index 0 is not in use). An operand keeps the comma that ended it until it has been judged;
    // what stands behind the third operand is in number 4, unsplit.
    std::array<Text<Ch>, 5> chOprnd;
    bool fThreeOprnds = false; // three operands or more have been cut

    std::int32_t word_kazu = 0;
    std::int32_t first_word = 0;
    std::int32_t second_word = 0;
    std::vector<std::int32_t> vecWord; // the words of a macro instruction
    std::vector<TLiteConst> vecLite;   // none or one
    std::vector<TDcConst<Ch>> vecDcConst;
};
using SrcDataW = SrcData<char16_t>;
using SrcDataA = SrcData<char>;

} // namespace tolvane
