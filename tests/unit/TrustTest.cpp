// What is typed and what the settings hold never does more than it says: names, settings and files of every kind.

#include "driver/Settings.h"
#include "input/InputMsgs.h"
#include "input/Readers.h"
#include "messages/TMsgStore.h"
#include "platform/Commands.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/IniFile.h"
#include "records/Records.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
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
    testing::internal::CaptureStdout(); // the lists of folders
    testing::internal::CaptureStderr(); // the shell's complaints
    std::string wrong;
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/' && byte != '\\') everyByte += static_cast<char>(byte);
    for (const std::string& name : {everyByte, std::string("x$(touch PWN)'z"), std::string("-n"),
                                    std::string("`touch PWN`"), std::string("\"; touch PWN; \"x")}) {
        Make(name, "of " + name);
        platform::RunEditor("cat >shown", name + '\0' + "tail");
        if (Bytes("shown") != "of " + name) wrong += name + "\n";
        for (const char* odd : {"cat ' 2>&-", "cat \" 2>&-", "exec 2>/dev/null; cat '", "cat >shown $( ", "cat \\"})
            platform::RunEditor(odd, name);
        platform::ListFolder(name + '\0' + "tail");
    }
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(wrong, "");
    EXPECT_FALSE(fs::exists("PWN"));
}

TEST_F(Trust, EveryValueSurvivesARestart) {
    std::string wide;
    while (wide.size() < 255 * 3)
        wide += "日";
    for (const std::string& value :
         {wide, "a\\\\" + wide.substr(6), std::string("\"my file\""), std::string("\"it's\""), std::string("'a \"b\"'"),
          std::string("\"\""), std::string("'"), std::string("\"\"\"\""), std::string(" x "),
          std::string("\"a\" 'b'")}) {
        platform::IniFile written("settings");
        written.PutStr("S", "Key", value);
        written.Write();
        EXPECT_EQ(platform::IniFile("settings").GetStr("S", "Key", ""), value) << Bytes("settings");
    }
}

// The program is killed at some moment of saving, again and again.
TEST_F(Trust, SettingsAreOldOrNewAndWhole) {
    const auto save = [](bool second) {
        modeFlags->Lang = second ? 0 : 1;
        modeFlags->TextEditors[2] = second ? "two" : "";
        po->LastAssembledSrcFilePath = second ? std::string(200, 'x') : "short";
        SaveSettings("settings");
    };
    save(true);
    const std::string second = Bytes("settings");
    save(false);
    const std::string first = Bytes("settings");
    for (useconds_t moment = 0; moment < 3000; moment += 50) {
        const pid_t child = fork();
        for (bool turn = false; child == 0; turn = !turn)
            save(turn);
        usleep(moment);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = Bytes("settings");
        EXPECT_TRUE(found == first || found == second) << found;
    }
    Make("settings.unfinished.tmp", "half");
    LoadSettings("settings");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1) << "left over";
    *modeFlags = TModeFlags();
    *po = TPO();
}

// What is said when a source is refused.
const Msg* Refusal(const std::string& path) {
    std::string text;
    console::WriteTo(&text);
    store->ClearMsgStore();
    const int result = ReadSource(path);
    console::WriteTo(nullptr);
    return result == 1 && !store->Records.empty() ? store->Records.back().row : nullptr;
}

TEST_F(Trust, FilesOfAnySizeAreReadOrRefused) {
    std::string bytes;
    Make("large", std::string(1 << 20, 'x') + "end");
    EXPECT_EQ(platform::ReadFile("large", bytes), platform::ReadResult::Read);
    EXPECT_EQ(bytes, Bytes("large"));
    EXPECT_NE(platform::ReadFile("/proc/self/status").value_or(""), "") << "its state claims no bytes";
    if (fs::exists("/proc/self/pagemap")) {
        EXPECT_EQ(Refusal("/proc/self/pagemap"), &InputMsg.EndlessFile);
    }
    Make("huge", "");
    fs::resize_file("huge", std::uintmax_t{1} << 42);
    EXPECT_EQ(Refusal("huge"), &InputMsg.TooLargeFile);
}

TEST_F(Trust, MemoryThatIsRefusedEndsTheReadingOnly) {
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const std::size_t used = pages * 4096;
    if (used == 0 || used >> 40 != 0) GTEST_SKIP() << "address space cannot be limited here";
    Make("lines", std::string(16 << 20, '\n')); // small itself, but not its records
    Make("bytes", "");
    fs::resize_file("bytes", 256 << 20);
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit = {used + (128 << 20), RLIM_INFINITY};
        setrlimit(RLIMIT_AS, &limit);
        bool good = Refusal("lines") == &InputMsg.TooLargeFile && b->vecSrcW.capacity() == 0;
        good = Refusal("bytes") == &InputMsg.TooLargeFile && good;
        _exit(good ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(Trust, OnlyFilesAreWritten) {
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    for (int readers = 0; readers < 2; ++readers) {
        EXPECT_TRUE(platform::WriteFile("pipe", "x").has_value());
        open("pipe", O_RDONLY | O_NONBLOCK | O_CLOEXEC); // from now on it would take the bytes
    }
    EXPECT_TRUE(platform::WriteFile("/dev/null", "x").has_value());
    fs::create_symlink("target", "link");
    EXPECT_FALSE(platform::WriteFile("link", "x").has_value());
    EXPECT_EQ(Bytes("target"), "x");
}

} // namespace

} // namespace tolvane
