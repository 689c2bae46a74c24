#pragma once
// The time lines and the time texts.

#include "messages/Msg.h"

namespace tolvane {

struct TimeCatalogue {
    Msg ShortLine{"({0}, {1}) msec =(ReadFile, Assemble)Time \n"};
    Msg LongLine{"({0}, {1}, {2}) msec =(ReadFile, Assemble, Link)Time \n"};

    // The time of an event in a sentence
    Msg NoTimeQpc{"1 micro second or less"};
    Msg NoTimeChrono{"0 msec "};
    Msg NoTimeClock{"0 msec"};
    Msg WholeMsec{"{0} msec"};
    Msg TenthMsec{"{0}.{1} msec"};
    Msg Seconds{"{0}.{1} sec"};
    Msg UnknownEventQpc{"Prg Error else: QP 961FCA19"};
    Msg UnknownEventChrono{"Prg Error of else: std::chrono D164F0B4"};
    Msg UnknownEventClock{"Prg Error of else: std::clock A59FB6AA"};

    // Broken invariants; {0} is a source file of the program.
    Msg NoClockReadFileStart{"Prg else Error: {0} ReadFileStart 165D\n"};
    Msg NoClockAssembleStart{"Prg else Error: {0} AssembleStart 265D\n"};
    Msg NoClockAssembleEnd{"Prg else Error: {0} AssembleEndTime 30965D\n"};
    Msg NoClockLinkEnd{"Prg else Error: {0} LinkEnd E6B0965D\n"};
    Msg NoClockRun{"Prg else Error: {0}\n"};
    Msg NoFrequency{"Fail to get FreqQP. {0}\n"};
};
inline constexpr TimeCatalogue TimeMsg;

} // namespace tolvane
