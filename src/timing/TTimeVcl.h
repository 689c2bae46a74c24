#pragma once
// How long each phase took: stamps on one of three clocks, and their differences as text. One object, `timer`.

#include <array>
#include <cstdint>
#include <string>

namespace tolvane {

class TTimeVcl {
public:
    enum Clock { Qpc, Chrono, ProcessClock };

    std::string TimeFunction = "QPC";   // "QPC", "std::chrono" or "clock()"
    std::int32_t TimeFuncIntFlag = Qpc; // the clock's index, in that order

    // Chooses the clock by its name; every unknown name is QPC.
    void SetTimeFunc(const std::string& name);
    static int GetTimeFuncIndex(const std::string& name);
    // Chooses the clock by its index; every index but 1 and 2 is QPC.
    void SetTimeFuncIndex(int index);

    // The stamps. Each returns 0, or -1 with a message if there is no such clock.
    int SetReadFileStart();
    int SetAssembleStart();
    int SetAssembleEndTime();
    int SetLinkEnd();
    int SetRunStart();
    int SetRunEnd();

    // The time of "ReadFileTime", "AssembleTime", "LinkTime" or "RunTime" for a sentence, and its milliseconds.
    std::string DetTimeDiff_General(const std::string& event) const;
    std::string DetTimeDiff_MilliSecStr_General(const std::string& event) const;
    // The same for a difference d of two stamps: in counts of `frequency` in a second, in 100 nanoseconds, or in
    // milliseconds, as the clock in use has it.
    std::string TimeText(std::int64_t d, std::int64_t frequency) const;
    std::string MilliSecText(std::int64_t d, std::int64_t frequency) const;

    void DspAssembleTime() const; // the short time line
    void DspLinkTime() const;     // the long time line

private:
    enum Stamp { ReadFileStart, AssembleStart, AssembleEnd, LinkEnd, RunStart, RunEnd, StampKazu };
    struct Event {
        const char* name;
        Stamp from;
        Stamp to;
    };
    static const std::array<Event, 4> Events;
    static const Event* FindEvent(const std::string& name);

    std::array<std::int64_t, StampKazu> qpcStamps{};
    std::array<std::int64_t, StampKazu> chronoStamps{};
    std::array<std::int32_t, StampKazu> clockStamps{};

    int SetStamp(Stamp stamp);
    std::int64_t Difference(const Event& event) const;
    std::int64_t Frequency() const;
};

extern TTimeVcl* const timer;

} // namespace tolvane
