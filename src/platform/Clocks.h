#pragma once
// The clocks of the system.

#include <cstdint>

namespace tolvane::platform {

std::int64_t SteadyCount();     // counts of a clock that never goes back
std::int64_t SteadyFrequency(); // its counts in a second
std::int64_t WallClock100ns();  // the wall clock in units of 100 nanoseconds
std::int32_t ProcessClockMs();  // processor time of the process in milliseconds

struct LocalTime {
    int year, month, day; // month from 1
    int hour, minute, second;
    int weekDay; // 0 is Sunday
};
LocalTime Now();

} // namespace tolvane::platform
