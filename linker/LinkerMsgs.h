#pragma once
// What the address walk and the link say.

#include "driver/Msg.h"

namespace tolvane {

// The sizes are told in English in either language. {0} the words of the whole file.
inline constexpr const char* BeyondAddressesText =
    "Error : : Your program needs {0} words in memory. \n"
    "More than 65535 words cannot be reserved, because the come2 is a 16-bit machine. ";
inline constexpr const char* BeyondImageText = "Error : : Your program needs {0} words in memory. \n"
                                               "The comet2 is a 16-bit machine. So it has 65536 words in all. \n"
                                               "More than 65035 words cannot be reserved, "
                                               "because 500 words has been prereserved for Stack Area in comet2. ";

struct LinkerCatalogue {
    // Size
    Msg BeyondAddresses{Room::Linker, BeyondAddressesText, BeyondAddressesText};
    Msg BeyondImage{Room::Linker, BeyondImageText, BeyondImageText};

    // Self-checks
    // {0} the opcode, {1} the index of the line, {2} its words
    Msg NoWalkForOp{Room::Operands, "{line}{0q} is not an op code defined in casl2. ", "{line}{0q}word_kazu[{1}]={2}"};
    // {0} the literals of the line
    Msg MoreThanOneLiteral{Room::Operands, "Prg. Error: vecsizeLiteConst={0}It is expected to be 1.",
                           "Prg. Error: vecsizeLiteConst={0}It is expected to be 1."};
    // {0} the constant, {1} its index, {2} its kind
    Msg StrangeKind{Room::Linker, "Prg. Error of else: {0}a strange DataTypeStrFlag of vecOprndAtDC[{1}] = {2}",
                    "Prg. Error of else: {0}a strange DataTypeStrFlag of vecOprndAtDC[{1}] = {2}"};
};
inline constexpr LinkerCatalogue LinkerMsg;

} // namespace tolvane
