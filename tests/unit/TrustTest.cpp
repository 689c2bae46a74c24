// What is typed and what the settings hold never does more than it says: names, settings and files of every kind.

#include "platform/Commands.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>

namespace tolvane {

namespace {

namespace fs = std::filesystem;

// A test in a folder of its own, which is the working directory.
class Trust : public testing::Test {
protected:
    const fs::path before = fs::current_path();
    const fs::path folder = fs::temp_directory_path() / ("tolvane-trust-" + std::to_string(getpid()));

    void SetUp() override {
        fs::create_directories(folder);
        fs::current_path(folder);
    }
    void TearDown() override {
        fs::current_path(before);
        fs::remove_all(folder);
    }
    static void Make(const std::string& name, const std::string& bytes) {
        std::ofstream(name, std::ios::binary) << bytes;
    }
    static std::string Bytes(const std::string& name) {
        std::ostringstream bytes;
        bytes << std::ifstream(name, std::ios::binary).rdbuf();
        return bytes.str();
    }
};

TEST_F(Trust, ANameIsNeverShellSyntax) {
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/' && byte != '\\') everyByte += static_cast<char>(byte);
    for (const std::string& name : {everyByte, std::string("x$(touch PWN)'z"), std::string("-n"),
                                    std::string("`touch PWN`"), std::string("\"; touch PWN; \"x")}) {
        Make(name, "of " + name);
        platform::RunEditor("cat >shown", name + '\0' + "tail");
        EXPECT_EQ(Bytes("shown"), "of " + name);
        for (const char* odd : {"cat ' 2>&-", "cat \" 2>&-", "exec 2>/dev/null; cat '", "cat >shown $( ", "cat \\"})
            platform::RunEditor(odd, name);
        platform::ListFolder(name + '\0' + "tail");
    }
    EXPECT_FALSE(fs::exists("PWN"));
}

} // namespace

} // namespace tolvane
