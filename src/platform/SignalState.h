#pragma once
// What has been noted of signals, by a handler or a thread of the system. For the sources of this room only.

#include <atomic>
#include <cstddef>

namespace tolvane::signals {

static_assert(std::atomic<int>::is_always_lock_free && std::atomic<std::size_t>::is_always_lock_free);
inline constinit std::atomic<bool> interrupt{false}; // SIGINT, Ctrl + C
inline constinit std::atomic<bool> timerIsSet{false};
inline constinit std::atomic<bool> running{false}; // a simulated program
inline constinit std::atomic<bool> noted{false};   // something that the loop has not attended to

} // namespace tolvane::signals
