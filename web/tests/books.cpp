// The cases of the books in the engine of the page, under node.

#include "BookTest.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    tolvane::tests::RegisterBooks(false);
    return RUN_ALL_TESTS();
}
