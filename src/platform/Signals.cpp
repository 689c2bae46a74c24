#include "platform/Signals.h"

#include "platform/SignalState.h"

namespace tolvane::signals {

Running::Running() {
    running = true;
}

Running::~Running() {
    running = false;
}

void SetLoopLimit(std::size_t limit) {
    LoopLimit = limit;
    if (noted) LoopLimit = 0;
}

bool InterruptAsked() {
    return interrupt && running;
}

bool TakeInterrupt() {
    noted = false;
    return running && interrupt.exchange(false);
}

} // namespace tolvane::signals
