#pragma once
// Tests in a folder of their own, which is the working directory while they run.

#include "TextTools.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace tolvane::tests {

namespace fs = std::filesystem;

class InFolder : public testing::Test {
protected:
    const fs::path before = fs::current_path();
    const fs::path folder = fs::temp_directory_path() / ("tolvane-test-" + std::to_string(getpid()));

    InFolder() {
        fs::create_directories(folder);
        fs::current_path(folder);
    }
    ~InFolder() override {
        fs::current_path(before);
        fs::remove_all(folder);
    }
    // How many files and folders are there.
    static auto Things() { return std::distance(fs::directory_iterator("."), fs::directory_iterator()); }
};

} // namespace tolvane::tests
