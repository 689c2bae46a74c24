#include "platform/Clocks.h"

#include <chrono>
#include <ctime>

namespace tolvane::platform {

using namespace std::chrono;

std::int64_t SteadyCount() {
    return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

std::int64_t SteadyFrequency() {
    return nanoseconds::period::den;
}

std::int64_t WallClock100ns() {
    using Unit = duration<std::int64_t, std::ratio<1, 10'000'000>>;
    return duration_cast<Unit>(system_clock::now().time_since_epoch()).count();
}

std::int32_t ProcessClockMs() {
    return static_cast<std::int32_t>(static_cast<std::int64_t>(std::clock()) * 1000 / CLOCKS_PER_SEC);
}

LocalTime Now() {
    const std::time_t now = std::time(nullptr);
    std::tm t{};
    localtime_r(&now, &t);
    return {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec, t.tm_wday};
}

} // namespace tolvane::platform
