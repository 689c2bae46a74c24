#pragma once
// How long each phase took: stamps on one of three clocks, and their differences as text. One object, `timer`.

#include "driver/TMsgBase.h"

#include <array>
#include <cstdint>
#include <string>

namespace tolvane {

class TTimeVcl : public TMsgBase {
public:
    std::string TimeFunction = "QPC"; // "QPC", "std::chrono" or "clock()"
    std::int32_t TimeFuncIntFlag = 0; // 0, 1, 2 in that order

    // Chooses the clock by its name; every unknown name is QPC.
    void SetTimeFunc(const std::string& name);
    static int GetTimeFuncIndex(const std::string& name);
    // Chooses the clock by its index; every index but 1 and 2 is QPC.
    void SetTimeFuncIndex(int index);

    // The stamps. Each returns 0.
    int SetReadFileStart();
    int SetAssembleStart();
    int SetAssembleEndTime();
    int SetLinkEnd();
    int SetRunStart();
    int SetRunEnd();

    // The time of "ReadFileTime", "AssembleTime", "LinkTime" or "RunTime" for a sentence, and its milliseconds.
    std::string DetTimeDiff_General(const std::string& event) const;
    std::string DetTimeDiff_MilliSecStr_General(const std::string& event) const;

    void DspAssembleTime() const; // the short time line
    void DspLinkTime() const;     // the long time line
};

extern TTimeVcl* const timer;

} // namespace tolvane
