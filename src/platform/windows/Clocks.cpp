#include "platform/Clocks.h"

#include "platform/windows/System.h"

namespace tolvane::platform {

namespace {

std::int64_t Units(const FILETIME& time) {
    return static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

} // namespace

std::int64_t SteadyCount() {
    LARGE_INTEGER count{};
    QueryPerformanceCounter(&count);
    return count.QuadPart;
}

std::int64_t SteadyFrequency() {
    LARGE_INTEGER frequency{};
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart;
}

std::int64_t WallClock100ns() {
    constexpr std::int64_t from1601To1970 = 116'444'736'000'000'000;
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    return Units(now) - from1601To1970;
}

std::int32_t ProcessClockMs() {
    constexpr std::int64_t unitsInMs = 10'000;
    FILETIME start{}, end{}, kernel{}, user{};
    GetProcessTimes(GetCurrentProcess(), &start, &end, &kernel, &user);
    return static_cast<std::int32_t>((Units(kernel) + Units(user)) / unitsInMs);
}

LocalTime Now() {
    SYSTEMTIME t{};
    GetLocalTime(&t);
    return {t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond, t.wDayOfWeek};
}

} // namespace tolvane::platform
