#pragma once
// What the address walk and the link say.

#include "messages/Msg.h"

namespace tolvane {

struct LinkerCatalogue {
    static constexpr OperandRows Row{};

    // Size, told in English in either language. {0} the words of the whole file
    Msg BeyondAddresses{"Error : : {body}Your program needs {0} words in memory. \n"
                        "More than 65535 words cannot be reserved, because the come2 is a 16-bit machine. "};
    Msg BeyondImage{"Error : : {body}Your program needs {0} words in memory. \n"
                    "The comet2 is a 16-bit machine. So it has 65536 words in all. \n"
                    "More than 65035 words cannot be reserved, "
                    "because 500 words has been prereserved for Stack Area in comet2. "};

    // Size, in the array pipeline; {0} the words needed, {1} those of the machine
    Msg BeyondAllAddresses{"{line}: {body}Your program needs {0} words in memory. The comet2 is a 16-bit machine. "
                           "So it has 65536 words in all. More than 65537 words cannot be reserved. ",
                           "{line}必要な全メモリ数は {0} 個です。 65536 個を超えるメモリ領域は確保できない。 "};
    Msg BeyondMemory{"{line}: {body}Your program needs {0} words in memory. "
                     "This simulator has only {1} words for the sake of simplicity. "
                     "So more than {1} words cannot be assiged to your program. "
                     "Reduce the memory size reserved on your source code. ",
                     "{line}必要なメモリ数は、少なくても {0} 個です。 "
                     "しかし、このシミレータで用意されている全メモリ数は {1} 個（パソコンのメモリの節約のため ）なので"
                     "制限をこえています。 必要なメモリ数が少なくなるようにプログラムを修正してご利用ください。"};
    // {0} the words above the limit
    Msg BeyondDcDsWords{"Prg Error: MaxMemoryDCDS < max_rl_memory_d\n"
                        "Reduce your reserved DC and DS memory size　by {0}. "};
    Msg BeyondLiteralWords{"Prg Error: MaxMemoryLiteral < max_rl_memory_l\n"
                           "Reduce Your litereal word size by {0}. "};
    Msg LinkerError{"Linker Error: {body}"};
    // {0} the words of the machine
    Msg LinkRefused{"Linker Error: {body}Your reserved memory sizehas exceeded MaxMemory(={0}).\n"
                    "Rewrite your casl2 program a little and reduce the reserved memory size. "};

    // Self-checks
    Msg StrangeWordKazu{"Unknown error in CkMaxMemory(). "};
    // {0} the opcode, {1} the index of the line, {2} its words
    Msg NoWalkForOp = Row("{line}{0q} is not an op code defined in casl2. ", "{line}{0q}word_kazu[{1}]={2}");
    // {0} the constant, {1} its index, {2} its kind
    Msg StrangeKind{"Prg. Error of else: {0}a strange DataTypeStrFlag of vecOprndAtDC[{1}] = {2}"};
};
inline constexpr LinkerCatalogue LinkerMsg;

} // namespace tolvane
