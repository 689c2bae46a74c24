#pragma once
// The least time of several runs, in seconds.

#include <algorithm>
#include <chrono>

namespace tolvane::bench {

template <class Work> double Seconds(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// `prepare` runs before each of the runs and is not timed.
template <class Prepare, class Work> double LeastSeconds(int runs, Prepare prepare, Work work) {
    double least = 1e9;
    for (int i = 0; i < runs; ++i) {
        prepare();
        least = std::min(least, Seconds(work));
    }
    return least;
}

} // namespace tolvane::bench
