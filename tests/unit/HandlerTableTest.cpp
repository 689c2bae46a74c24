// The table of the machine instructions: no two rows share an opcode, an operation code, a name or a text of their own,
// and each row holds what its shape needs.

#include "operands/Instructions.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace tolvane::tests {

TEST(HandlerTable, OpcodesCodesAndNamesAreUnique) {
    std::set<std::string> ops;
    std::set<int> codes;
    std::set<std::string> names;
    for (const Instruction& row : instructions::Table) {
        EXPECT_TRUE(ops.insert(row.op).second) << row.op;
        EXPECT_TRUE(codes.insert(row.code).second) << row.op;
        if (row.shape == Shape::RegisterOrAddress) {
            EXPECT_TRUE(codes.insert(row.registerCode).second) << row.op;
        }
        if (row.name != nullptr) {
            EXPECT_TRUE(names.insert(row.name->en).second) << row.op;
            EXPECT_TRUE(names.insert(row.name->ja).second) << row.op;
        }
    }
}

TEST(HandlerTable, EveryRowHoldsWhatItsShapeNeeds) {
    std::set<const Msg*> missing;
    for (const Instruction& row : instructions::Table) {
        EXPECT_EQ(FindInstruction(Lit<char16_t>(row.op)), &row) << row.op;
        EXPECT_EQ(row.name != nullptr, row.shape == Shape::Address) << row.op;
        EXPECT_EQ(row.missing != nullptr, row.shape != Shape::Register) << row.op;
        EXPECT_EQ(row.registerCode != 0, row.shape == Shape::RegisterOrAddress) << row.op;
        EXPECT_EQ(row.lastFormDigit != 0, row.shape == Shape::RegisterAddress) << row.op;
        const bool ownText = row.shape == Shape::RegisterOrAddress || row.shape == Shape::RegisterAddress;
        if (ownText) {
            EXPECT_TRUE(missing.insert(row.missing).second) << row.op;
        }
    }
}

} // namespace tolvane::tests
