#include "platform/Signals.h"

#include "platform/SignalState.h"
#include "platform/windows/System.h"
#include "platform/windows/Waiting.h"

namespace tolvane::signals {

namespace {

constexpr std::int64_t TimerUnits = 1'000'000; // of 100 nanoseconds

std::atomic<bool> ending{false};
std::atomic<bool> reading{false};
std::atomic<bool> writing{false};
std::atomic<unsigned> writes{0}; // begun so far
std::atomic<bool> elsewhere{false};
HANDLE reader = nullptr; // the thread that reads the standard input and writes the output
PTP_TIMER timer = nullptr;

void Pull() {
    noted = true;
    LoopLimit = 0;
}

void CALLBACK NoteTimer(PTP_CALLBACK_INSTANCE, void*, PTP_TIMER) {
    timerIsSet = false;
    Pull();
}

// The system calls this in a thread of its own. Ctrl + C and Ctrl + Break mean the same; at the end of the session the
// system ends the program as soon as this comes back. Who waits for something else than input has a moment for the end.
BOOL WINAPI Note(DWORD event) {
    constexpr int patience = 200;
    constexpr int moment = 10;
    constexpr DWORD pause = 10;
    const bool isKey = event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
    if (isKey && elsewhere) return TRUE;
    (isKey ? interrupt : ending) = true;
    Pull();
    const unsigned write = writes;
    for (int i = 0; i < patience && (reading || writing || EndAsked()); ++i) {
        // Once more, because the read may just have been about to begin.
        if (reading || (writing && write == writes && i >= moment)) CancelSynchronousIo(reader);
        Sleep(pause);
    }
    EndIfAsked();
    return TRUE;
}

} // namespace

void Install() {
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &reader, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    SetConsoleCtrlHandler(Note, TRUE);
    timer = CreateThreadpoolTimer(NoteTimer, nullptr, nullptr);
}

bool EndAsked() {
    return ending || (interrupt && !running);
}

void EndIfAsked() {
    if (EndAsked()) ExitProcess(static_cast<UINT>(STATUS_CONTROL_C_EXIT));
}

void SetTimer() {
    if (timer == nullptr || timerIsSet.exchange(true)) return;
    ULARGE_INTEGER units{};
    units.QuadPart = static_cast<ULONGLONG>(-TimerUnits); // from now on
    FILETIME due{units.LowPart, units.HighPart};
    SetThreadpoolTimer(timer, &due, 0, 0);
}

Reading::Reading() {
    reading = true;
}

Reading::~Reading() {
    reading = false;
}

Writing::Writing() {
    ++writes;
    writing = true;
}

Writing::~Writing() {
    writing = false;
}

Elsewhere::Elsewhere() {
    elsewhere = true;
}

Elsewhere::~Elsewhere() {
    elsewhere = false;
}

void WaitForAsking() {
    constexpr int patience = 100;
    for (int i = 0; i < patience && !EndAsked() && !InterruptAsked(); ++i)
        Sleep(1);
}

} // namespace tolvane::signals
