// The texts of a time, clock by clock.

#include "timing/TTimeVcl.h"

#include <gtest/gtest.h>

namespace tolvane::tests {

TEST(Time, TextsByClock) {
    struct Row {
        const char* clock;
        std::int64_t d;
        const char* inSentence;
        const char* inLine;
    };
    constexpr std::int64_t Frequency = 1'000'000; // of the QPC rows: microseconds
    const Row rows[] = {
        {"QPC", 0, "1 micro second or less", "0.0"},
        {"QPC", 999, "1 micro second or less", "0.9"},
        {"QPC", 1000, "1.0 msec", "1.0"},
        {"QPC", 12'399, "12.3 msec", "12.3"},
        {"QPC", 999'999, "999.9 msec", "999.9"},
        {"QPC", 2'045'900, "2.45 sec", "2045.9"},
        {"QPC", 9'000'000'000'000'000, "9000000000.0 sec", "9000000000000.0"},
        {"std::chrono", 9'999, "0 msec ", "0"},
        {"std::chrono", 10'000, "1 msec", "1"},
        {"std::chrono", 9'999'999, "999 msec", "999"},
        {"std::chrono", 20'459'999, "2.0 sec", "2045"},
        {"std::chrono", 29'990'000, "2.9 sec", "2999"},
        {"clock()", 0, "0 msec", "0"},
        {"clock()", 999, "999 msec", "999"},
        {"clock()", 1000, "1.0 sec", "1000"},
        {"clock()", 2045, "2.45 sec", "2045"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.clock + std::string(" ") + std::to_string(row.d));
        TTimeVcl time;
        time.SetTimeFunc(row.clock);
        EXPECT_EQ(time.TimeText(row.d, Frequency), row.inSentence);
        EXPECT_EQ(time.MilliSecText(row.d, Frequency), row.inLine);
    }
}

TEST(Time, ChoiceOfClock) {
    TTimeVcl time;
    time.SetTimeFunc("clock()");
    EXPECT_EQ(time.TimeFuncIntFlag, 2);
    time.SetTimeFunc("Clock()");
    EXPECT_EQ(time.TimeFuncIntFlag, 0);
    time.SetTimeFuncIndex(1);
    EXPECT_EQ(time.TimeFunction, "std::chrono");
    time.SetTimeFuncIndex(3);
    EXPECT_EQ(time.TimeFunction, "QPC");

    EXPECT_EQ(time.SetRunStart(), 0);
    EXPECT_EQ(time.SetRunEnd(), 0);
    EXPECT_NE(time.DetTimeDiff_General("RunTime"), "");
    EXPECT_EQ(time.DetTimeDiff_General("Tea"), "Prg Error else: QP 961FCA19");
}

} // namespace tolvane::tests
