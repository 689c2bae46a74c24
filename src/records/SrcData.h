#pragma once
// The record of one source line: the line in all its stages of analysis, from the text as read to its machine words.
// docs/architecture.md tells what each field holds after which pass.
//
// The texts are views: of the line as it was read, or of what a pass has made of it. TBasicData owns all of them, keeps
// them until its records go, and hands out none that outlives them.

#include "platform/LargePages.h"
#include "records/Opcode.h"

#include <array>
#include <cstdint>
#include <vector>

namespace tolvane {

// The literal of a line's address operand, one word for a number, else one word for each character.
template <class Ch> struct TLiteConst {
    View<Ch> strLite;           // a character literal with its apostrophes; empty for a number
    std::int32_t LiteValue = 0; // value of a number
    std::int32_t LiteWordKazu = 1;
    std::int32_t AbAdr = 0;
};

enum class DcKind : std::uint8_t { Const, CharConst, Dec, Hex, AdrConst, MoziRetuConst };
inline constexpr const char* DcKindNames[] = {"Const", "CharConst", "Dec", "Hex", "AdrConst", "MoziRetuConst"};

// One constant of a DC line.
template <class Ch> struct TDcConst {
    View<Ch> strConst;           // trimmed; a character constant keeps its apostrophes
    std::int32_t ConstValue = 0; // value of the one-word kinds
    DcKind DataTypeStrFlag = DcKind::Const;
};

template <class Ch> struct SrcData {
    SlimView<Ch> strSrc;  // the line as read, without its line end; empty for a blank line
    SlimView<Ch> strLine; // the same without comment and superfluous blanks
    SlimView<Ch> strLabel;
    SlimView<Ch> strOp;
    const Opcode* op = nullptr; // of strOp; null if that is empty or no opcode
    SlimView<Ch> strOprndCom;   // the text behind the opcode word, later the operands alone
    SlimView<Ch> chOprndCom;    // its first 225 characters, where the pipeline has that limit

    // Operands 1 to 4. An operand keeps the comma that ended it until it has been judged; what stands behind the third
    // operand is in number 4, unsplit.
    std::array<SlimView<Ch>, 4> chOprnd;

    std::int32_t AbAdr = 0;
    std::int32_t word_kazu = 0;
    std::int32_t first_word = 0;  // of IN and OUT the address of operand 1
    std::int32_t second_word = 0; // of IN and OUT the address of operand 2
    std::int8_t PrgNr = 0;
    bool fLabelInUse = false;
    bool fThreeOprnds = false; // three operands or more have been cut

    // What few lines have lies apart, in vecLite and vecDcConst of TBasicData.
    std::int32_t lite = -1; // the index of the line's literal
    std::int32_t dcFirst = 0;
    std::int32_t dcKazu = 0; // constants from dcFirst on

    // Operand n of 1 to 4.
    SlimView<Ch>& Oprnd(int n) { return chOprnd[static_cast<std::size_t>(n - 1)]; }
    View<Ch> Oprnd(int n) const { return chOprnd[static_cast<std::size_t>(n - 1)]; }
};
// All lines of a file.
template <class Ch> using SrcLines = std::vector<SrcData<Ch>, platform::LargePages<SrcData<Ch>>>;

using SrcDataW = SrcData<char16_t>;
using SrcDataA = SrcData<char>;

} // namespace tolvane
