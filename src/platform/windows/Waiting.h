#pragma once
// Waiting for input and for other programs under Windows. For the sources of this folder only.

namespace tolvane::signals {

// While one of these lives, what asks the program to end, or to stop the simulated program, cancels its reads as well.
class Reading {
public:
    Reading();
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
};

// While one of these lives, the same cancels a write that nobody takes in a tenth of a second.
class Writing {
public:
    Writing();
    ~Writing();
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
};

// While one of these lives, Ctrl + C is the business of a program that was started.
class Elsewhere {
public:
    Elsewhere();
    ~Elsewhere();
    Elsewhere(const Elsewhere&) = delete;
    Elsewhere& operator=(const Elsewhere&) = delete;
};

// After a read or a write that was cancelled: waits a moment for what has cancelled it, which comes in a thread of its own.
void WaitForAsking();

} // namespace tolvane::signals
