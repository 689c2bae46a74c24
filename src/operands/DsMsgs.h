#pragma once
// What the checks of DS say.

#include "messages/Msg.h"

namespace tolvane {

struct DsCatalogue {
    static constexpr OperandRows Row{};

    Msg NoOperand = Row("{line}The operand is empty. A constant in decimal number is expected at the right side "
                        "of DS assembler instruction. ",
                        "{line}DS 命令 の 右に オペランド（10 進定数）の記述がない。 ");
    // {0} the character, {1} the count
    Msg NonNumeral = Row("{line}{0}: {1q}: Non numerical character is detected. "
                         "An operand of DS must be specified in decimal number. And it must be positive or zero. "
                         "It cannot be specified in hexadecimal. Spec. of casl2  2.3 (3) ",
                         "{line}: {body}{0}: {1q}: DS 命令のオペランドに正の十進数以外の文字がある。 "
                         "DS アセンブラ命令のオペランドは、ゼロまたはゼロ以上の正の十進数で指定する。 "
                         "CASL2の仕様：２．３　アセンブラ命令（３）");
    // {0} the count
    Msg CountNotRead = Row("Prg. Error: Fail to wcstol(); buf={0}");
    // The two limits are told in English in either language.
    Msg BeyondAddresses =
        Row("{line}More than 65535 words cannot be reserved, because the come2 is a 16-bit machine. ");
    Msg BeyondImage = Row("{line}More than 65035 words cannot be reserved, "
                          "because 500 words has been prereserved for Stack Area in comet2. ");
};
inline constexpr DsCatalogue DsMsg;

} // namespace tolvane
