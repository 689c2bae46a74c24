#pragma once
// The signals that ask something of the program: SIGTERM and SIGHUP to end, SIGINT to end or, while a simulated program
// runs, to stop that program; and a timer for console text that waits. A handler only notes its signal, and what has to
// be done is done where the program looks: before it waits for input, after it has written, and in the run loop.

#include <atomic>
#include <cstddef>

namespace tolvane::signals {

// What the run loop compares its addresses with. Each signal pulls it down to 0, so that the loop is left without
// asking for signals.
inline constinit std::atomic<std::size_t> LoopLimit{0};

// From now on signals are noted. Those that the program's starter ignores stay ignored.
void Install();

// While one of these lives, SIGINT is meant for the simulated program.
class Running {
public:
    Running();
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
};

// Lets the loop run up to a limit; 0, if a signal has come that TakeInterrupt has not seen.
void SetLoopLimit(std::size_t limit);

// Whether the simulated program is to be stopped. Taken, it is forgotten.
bool InterruptAsked();
bool TakeInterrupt();

// Whether a signal asks the program to end; and the end by that signal, as the system would have done it.
bool EndAsked();
void EndIfAsked();

// Pulls LoopLimit down a tenth of a second from now, unless that is on its way.
void SetTimer();

} // namespace tolvane::signals
