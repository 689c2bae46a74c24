#pragma once
// Waiting for input under POSIX. For the sources of this folder only.

namespace tolvane::signals {

// Waits until a file can be read. False as soon as EndAsked or InterruptAsked.
bool WaitReadable(int file);

} // namespace tolvane::signals
