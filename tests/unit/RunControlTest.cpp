// The program under signals, at the end of its input and without a reader of its output.

#include "InFolder.h"

#include <algorithm>
#include <cstdlib>

namespace tolvane::tests {

namespace {

using namespace std::string_literals;

class RunControl : public InFolder {
protected:
    static constexpr const char* SaysAndLoops = "P START\n OUT T,N\nL JUMP L\n RET\nT DC 'HELLO'\nN DC 5\n END\n";
    static constexpr const char* Reads = "P START\nL IN T,N\n JUMP L\n RET\nT DS 9\nN DS 1\n END\n";

    // Runs the program p.txt, types, waits until a text is shown, and acts on process $! or on its input 3. The status
    // at its end. Neither a program that hangs nor one that prints without end lasts.
    static std::string Status(const std::string& typed, const std::string& shown, const std::string& act) {
        WriteFile("typed", typed);
        WriteFile("script", "ulimit -f 9999; rm -f in out aa* *.ini; mkfifo in; exec 3<>in; cat typed >in\n"
                            "env --default-signal=INT,HUP " TOLVANE_PROGRAM " <in 3>&- >out 2>told &\n"
                            "until grep -qs '" +
                                shown + "' out; do sleep 0.01; done\n" + act + "\nwait $!; echo $?");
        EXPECT_EQ(std::system("timeout -s KILL 30 sh script >status"), 0);
        return ReadFile("status");
    }
    static bool IsSaved() { return fs::exists("aaResultantRegMry.txt") && fs::exists("tolvane_Win.ini"); }
};

TEST_F(RunControl, WhatStopsTheSimulatedProgramSavesItsState) {
    struct Case {
        const char* source;
        const char* shown; // OUT and the question of IN have to be seen
        const char* act;
        const char* told;
    };
    for (const Case& c : {Case{SaysAndLoops, "HELLO", "kill -INT $!", ", line 3."},
                          {Reads, "at the end of your input", "kill -INT $!", ", line 2."},
                          {Reads, "at the end of your input", "exec 3>&-", "at the end of the input, at address "}}) {
        WriteFile("p.txt", c.source);
        EXPECT_EQ(Status("\n1\np\n", c.shown, c.act), "130\n");
        const std::string told = ReadFile("told");
        EXPECT_NE(told.find(c.told), std::string::npos) << told;
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1);
        EXPECT_TRUE(IsSaved());
    }
}

TEST_F(RunControl, SignalsEndTheProgramBehindItsOutput) {
    WriteFile("p.txt", SaysAndLoops);
    for (const auto& [act, status] : {std::pair{"kill -TERM $!", "143\n"}, {"kill -HUP $!", "129\n"}}) {
        EXPECT_EQ(Status("", "Press your Enter key", act), status);
        EXPECT_EQ(Status("\n1\np\n", "HELLO", act), status);
        EXPECT_FALSE(IsSaved());
    }
    EXPECT_EQ(Status("", "Press your Enter key", "kill -INT $!"), "130\n");
}

TEST_F(RunControl, OutputThatIsLostEndsTheProgram) {
    WriteFile("script", "(until [ -e gone ]; do sleep 0.01; done; echo) | { " TOLVANE_PROGRAM
                        " 2>told; echo $? >status; } | { head -c 1; exec <&-; touch gone; } >first");
    EXPECT_EQ(std::system("timeout -s KILL 30 sh script"), 0);
    EXPECT_EQ(ReadFile("status"), "1\n");
    EXPECT_NE(ReadFile("told").find("output cannot be written: "), std::string::npos);
    EXPECT_EQ(std::system(TOLVANE_PROGRAM " </dev/null >&- 2>told; echo $? >status"), 0);
    EXPECT_EQ(ReadFile("status"), "1\n") << "closed from the beginning";
}

TEST_F(RunControl, WhatNobodyReadsDoesNotHoldTheProgram) {
    WriteFile("p.txt", "P START\nL OUT T,N\n JUMP L\n RET\nT DC 'HELLO'\nN DC 5\n END\n");
    WriteFile("typed", "\n1\np\n");
    for (const char* command : {TOLVANE_PROGRAM " >pipe 2>told", TOLVANE_PROGRAM " >pipe 2>&1",
                                TOLVANE_RUN " p.txt >pipe 2>told", TOLVANE_RUN " -t p.txt >pipe 2>&1"}) {
        WriteFile("script", "rm -f pipe; mkfifo pipe; exec 3<>pipe; env --default-signal=INT "s + command +
                                " <typed 3>&- &\nsleep 0.5; kill -INT $!; wait $!; echo $?");
        EXPECT_EQ(std::system("timeout -s KILL 30 sh script >status"), 0);
        EXPECT_EQ(ReadFile("status"), "130\n") << command;
    }
}

TEST_F(RunControl, AWriteThatFailsIsNotTheEnd) {
    WriteFile("p.txt", "P START\n RET\n END\n");
    WriteFile("typed", "\n1\np\n\n123\n");
    WriteFile("script", "{ (ulimit -f 0; exec " TOLVANE_PROGRAM "); echo $? >status; } <typed 2>&1 | cat >out");
    EXPECT_EQ(std::system("sh script"), 0);
    EXPECT_EQ(ReadFile("status"), "0\n");
    for (const char* told : {"aaAssembledRegMry.txt does not open", "the settings cannot be saved: File too large\n"})
        EXPECT_NE(ReadFile("out").find(told), std::string::npos) << ReadFile("out");
    EXPECT_EQ(Things(), 5) << "left over";
}

} // namespace

} // namespace tolvane::tests
