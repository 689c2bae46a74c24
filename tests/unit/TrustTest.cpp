// What is typed never does more than it says: names, commands and files of every kind.

#include "InFolder.h"
#include "input/InputMsgs.h"
#include "input/Readers.h"
#include "messages/TMsgStore.h"
#include "platform/Commands.h"
#include "platform/Console.h"
#include "platform/Descriptor.h"
#include "platform/FileWriter.h"
#include "platform/Files.h"
#include "platform/SettingsFile.h"
#include "records/Records.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#ifdef __linux__
#include <sched.h>
#include <sys/mount.h>
#endif
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace tolvane::tests {

namespace {

using namespace std::string_literals;

class Trust : public InFolder {};

TEST_F(Trust, AFileIsReplacedWhenTheNewOneIsWhole) {
    using platform::FileWriter;
    const std::string big(1 << 16, 'x');
    WriteFile("old", "old");
    fs::create_symlink("old", "link");
    mkfifo("fifo", 0600);
    fs::create_directory("folder");

    FileWriter("old").Write("given up");
    EXPECT_EQ(ReadFile("old"), "old");
    const platform::Descriptor reader(open("fifo", O_RDONLY | O_NONBLOCK | O_CLOEXEC)); // it would take bytes
    for (const char* none : {"fifo", "folder", "", "no/such/folder"})
        EXPECT_TRUE(FileWriter(none).Close().has_value()) << none;

    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full{big.size() / 2, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    FileWriter unfinished("old");
    unfinished.Write(big);
    EXPECT_TRUE(unfinished.Close().has_value());
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(ReadFile("old"), "old");
    EXPECT_EQ(Things(), 4) << "left over";

    FileWriter first("link"); // two at once
    FileWriter second("old");
    first.Write(big);
    second.Write("second");
    EXPECT_FALSE(first.Close().has_value());
    EXPECT_EQ(ReadFile("old"), big);
    EXPECT_FALSE(second.Close().has_value());
    EXPECT_EQ(ReadFile("old"), "second");
    EXPECT_TRUE(fs::is_symlink("link"));
    EXPECT_EQ(Things(), 4) << "left over";
}

#ifdef __linux__
TEST_F(Trust, SettingsThatCannotBeReplacedAreWrittenOver) {
    WriteFile("ini", "old and long");
    const pid_t child = fork();
    if (child == 0) { // nothing may be put in the place of a file on which something is mounted
        const bool isMounted = (unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
                               mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                               mount("ini", "ini", nullptr, MS_BIND, nullptr) == 0;
        const bool isWritten = isMounted && platform::WriteSettings("ini", "new", "old and long");
        _exit(!isMounted ? 2 : isWritten && ReadFile("ini") == "new" && Things() == 1 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 2) GTEST_SKIP() << "nothing can be mounted here";
    EXPECT_EQ(status, 0);
}
#endif

TEST_F(Trust, WhatCannotBeStartedIsTold) {
    const std::string tooLong(1 << 21, 'x'); // for the system
    EXPECT_TRUE(platform::RunEditor(tooLong, "file").has_value());
    EXPECT_TRUE(platform::ListFolder(tooLong).has_value());
}

TEST_F(Trust, OneTerminalIsNoDialogue) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_TRUE(grantpt(master) == 0 && unlockpt(master) == 0);
    const int terminal = open(ptsname(master), O_RDWR | O_NOCTTY);
    const int none = open("/dev/null", O_RDWR);
    const int own[] = {dup(STDIN_FILENO), dup(STDOUT_FILENO)};
    WriteFile("none", "");
    setenv("VISUAL", "touch opened", 1);
    std::fflush(stdout);
    for (const auto& [input, output] : {std::pair{terminal, none}, {none, terminal}}) {
        dup2(input, STDIN_FILENO);
        dup2(output, STDOUT_FILENO);
        platform::RunEditor("", "none");
        EXPECT_FALSE(fs::exists("opened"));
    }
    dup2(own[0], STDIN_FILENO);
    dup2(own[1], STDOUT_FILENO);
    unsetenv("VISUAL");
    for (const int file : {master, terminal, none, own[0], own[1]})
        close(file);
}

TEST_F(Trust, ANameIsNeverShellSyntax) {
    testing::internal::CaptureStdout(); // the lists of folders
    testing::internal::CaptureStderr(); // the shell's complaints
    std::string everyByte;
    for (int byte = 1; byte < 256; ++byte)
        if (byte != '/' && byte != '\\') everyByte += static_cast<char>(byte);
    for (const std::string& name : {everyByte, "x$(touch PWN)'z"s, "-n"s, "`touch PWN`"s, "\"; touch PWN; \"x"s}) {
        WriteFile(name, "of " + name);
        platform::RunEditor("cat >shown", name + '\0' + "tail");
        EXPECT_EQ(ReadFile("shown"), "of " + name);
        for (const char* odd : {"cat ' 2>&-", "cat \" 2>&-", "exec 2>/dev/null; cat '", "cat >shown $( ", "cat \\"})
            platform::RunEditor(odd, name);
        platform::ListFolder(name + '\0' + "tail");
    }
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
    EXPECT_FALSE(fs::exists("PWN"));
}

bool IsRefused(const std::string& path, const Msg& reason) {
    std::string text;
    console::WriteTo(&text);
    store->ClearMsgStore();
    const int result = ReadSource(path);
    console::WriteTo(nullptr);
    return result == 1 && store->Records.back().row == &reason;
}

TEST_F(Trust, FilesOfAnySizeAreReadOrRefused) {
    EXPECT_NE(platform::ReadFile("/proc/self/status").value_or(""), "") << "its state claims no bytes";
    const bool isEndless = sizeof(void*) > 4 && fs::exists("/proc/self/pagemap"); // as long as the address space
    EXPECT_TRUE(!isEndless || IsRefused("/proc/self/pagemap", InputMsg.EndlessFile));
    WriteFile("huge", "");
    fs::resize_file("huge", std::uintmax_t{1} << 42);
    EXPECT_TRUE(IsRefused("huge", InputMsg.TooLargeFile));

    const std::string pages = ReadFile("/proc/self/statm");
    const rlim_t used = std::strtoull(pages.c_str(), nullptr, 10);
    if (used == 0 || used >> 28 != 0) GTEST_SKIP() << "address space cannot be limited here";
    WriteFile("lines", std::string(16 << 20, '\n')); // small itself, but not its records
    fs::resize_file("huge", 256 << 20);
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit = {used * 4096 + (128 << 20), RLIM_INFINITY};
        setrlimit(RLIMIT_AS, &limit);
        const bool lines = IsRefused("lines", InputMsg.TooLargeFile) && b->vecSrcW.capacity() == 0;
        _exit(lines && IsRefused("huge", InputMsg.TooLargeFile) ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << "memory that is refused ends the reading only";
}

} // namespace

} // namespace tolvane::tests
