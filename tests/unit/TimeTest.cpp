// The texts of a time, clock by clock.

#include "timing/TTimeVcl.h"

#include <gtest/gtest.h>

namespace tolvane::tests {

TEST(Time, TextsByClock) {
    constexpr std::int64_t Frequency = 1'000'000; // of the QPC rows: microseconds
    const std::tuple<const char*, std::int64_t, const char*, const char*> rows[] = {
        {"QPC", 999, "1 micro second or less", "0.9"},
        {"QPC", 1000, "1.0 msec", "1.0"},
        {"QPC", 12'399, "12.3 msec", "12.3"},
        {"QPC", 1'000'000, "1.0 sec", "1000.0"},
        {"QPC", 2'045'900, "2.45 sec", "2045.9"},
        {"QPC", 9'000'000'000'000'000, "9000000000.0 sec", "9000000000000.0"},
        {"std::chrono", 9'999, "0 msec ", "0"},
        {"std::chrono", 9'999'999, "999 msec", "999"},
        {"std::chrono", 10'000'000, "1.0 sec", "1000"},
        {"std::chrono", 20'459'999, "2.0 sec", "2045"},
        {"clock()", 999, "999 msec", "999"},
        {"clock()", 2045, "2.45 sec", "2045"},
        {"Clock()", 1000, "1.0 msec", "1.0"}, // no clock's name: QPC
    };
    for (const auto& [clock, d, inSentence, inLine] : rows) {
        TTimeVcl time;
        time.SetTimeFunc(clock);
        EXPECT_EQ(time.TimeText(d, Frequency), inSentence) << clock << " " << d;
        EXPECT_EQ(time.MilliSecText(d, Frequency), inLine) << clock << " " << d;
    }
}

TEST(Time, AnIndexThatIsNoClockIsQpc) {
    TTimeVcl time;
    for (const auto& [index, name] : {std::pair{1, "std::chrono"}, {2, "clock()"}, {3, "QPC"}, {-1, "QPC"}}) {
        time.SetTimeFuncIndex(index);
        EXPECT_EQ(time.TimeFunction, name);
    }
}

} // namespace tolvane::tests
