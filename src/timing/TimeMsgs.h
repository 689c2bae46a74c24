#pragma once
// The time lines and the time texts.

#include "messages/Msg.h"

namespace tolvane {

struct TimeCatalogue {
    Msg ShortLine{Room::Driver, "({0}, {1}) msec =(ReadFile, Assemble)Time \n"};
    Msg LongLine{Room::Driver, "({0}, {1}, {2}) msec =(ReadFile, Assemble, Link)Time \n"};

    // The time of an event in a sentence
    Msg NoTimeQpc{Room::Driver, "1 micro second or less"};
    Msg NoTimeChrono{Room::Driver, "0 msec "};
    Msg NoTimeClock{Room::Driver, "0 msec"};
    Msg WholeMsec{Room::Driver, "{0} msec"};
    Msg TenthMsec{Room::Driver, "{0}.{1} msec"};
    Msg Seconds{Room::Driver, "{0}.{1} sec"};
    Msg UnknownEventQpc{Room::Driver, "Prg Error else: QP 961FCA19"};
    Msg UnknownEventChrono{Room::Driver, "Prg Error of else: std::chrono D164F0B4"};
    Msg UnknownEventClock{Room::Driver, "Prg Error of else: std::clock A59FB6AA"};

    // Broken invariants; {0} is a source file of the program.
    Msg NoClockReadFileStart{Room::Driver, "Prg else Error: {0} ReadFileStart 165D\n"};
    Msg NoClockAssembleStart{Room::Driver, "Prg else Error: {0} AssembleStart 265D\n"};
    Msg NoClockAssembleEnd{Room::Driver, "Prg else Error: {0} AssembleEndTime 30965D\n"};
    Msg NoClockLinkEnd{Room::Driver, "Prg else Error: {0} LinkEnd E6B0965D\n"};
    Msg NoClockRun{Room::Driver, "Prg else Error: {0}\n"};
    Msg NoFrequency{Room::Driver, "Fail to get FreqQP. {0}\n"};
};
inline constexpr TimeCatalogue TimeMsg;

} // namespace tolvane
