#include "platform/Signals.h"

#include "platform/SignalState.h"
#include "platform/posix/Waiting.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <sys/select.h>
#include <sys/time.h>

namespace tolvane::signals {

namespace {

constexpr std::array EndingSignals = {SIGTERM, SIGHUP, SIGINT};
constexpr suseconds_t TimerMicroseconds = 100'000;

std::atomic<int> ending{0}; // the signal that asks for the end
bool installed = false;

void Note(int signal) {
    if (signal == SIGALRM)
        timerIsSet = false;
    else if (signal == SIGINT)
        interrupt = true;
    else
        ending = signal;
    noted = true;
    LoopLimit = 0;
}

void Handle(int signal, int flags) {
    struct sigaction action {};
    struct sigaction old {};
    action.sa_handler = Note;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    if (sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
}

sigset_t EndingSet() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : EndingSignals)
        sigaddset(&set, signal);
    return set;
}

int EndingSignal() {
    if (ending != 0) return ending;
    return interrupt && !running ? SIGINT : 0;
}

} // namespace

void Install() {
    // These interrupt what waits, a write to a reader that does not read as well; the timer does not.
    for (const int signal : EndingSignals)
        Handle(signal, 0);
    Handle(SIGALRM, SA_RESTART);
    installed = true;
}

bool EndAsked() {
    return EndingSignal() != 0;
}

void EndIfAsked() {
    const int signal = EndingSignal();
    if (signal == 0) return;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void SetTimer() {
    if (!installed || timerIsSet.exchange(true)) return;
    const itimerval once{{0, 0}, {0, TimerMicroseconds}};
    setitimer(ITIMER_REAL, &once, nullptr);
}

bool WaitReadable(int file) {
    const sigset_t held = EndingSet();
    sigset_t before;
    sigprocmask(SIG_BLOCK, &held, &before); // so that no signal comes between the question and the wait
    bool asked = EndAsked() || InterruptAsked();
    while (!asked) {
        fd_set files;
        FD_ZERO(&files);
        FD_SET(file, &files);
        if (pselect(file + 1, &files, nullptr, nullptr, nullptr, &before) >= 0 || errno != EINTR) break;
        asked = EndAsked() || InterruptAsked();
    }
    sigprocmask(SIG_SETMASK, &before, nullptr);
    return !asked;
}

} // namespace tolvane::signals
