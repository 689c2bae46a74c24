// The tests: unit tests, one test for each case of a book and one for each transcript. With --rewrite (or
// TOLVANE_REWRITE=1) the expectations are written from what happened instead of compared with it.

#include "BookTest.h"
#include "TranscriptTest.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const char* setting = std::getenv("TOLVANE_REWRITE");
    bool rewrite = setting != nullptr && std::string(setting) == "1";
    for (int i = 1; i < argc; ++i) {
        if (std::string(argv[i]) == "--rewrite") rewrite = true;
    }
    tolvane::tests::RegisterBooks(rewrite);
#ifndef _WIN32
    if (rewrite) setenv("TOLVANE_REWRITE", "1", 1);
    std::signal(SIGPIPE, SIG_IGN);
    tolvane::tests::RegisterTranscripts(rewrite);
#endif
    return RUN_ALL_TESTS();
}
