#include "timing/TTimeVcl.h"

#include "messages/TMsgBase.h"
#include "platform/Clocks.h"
#include "timing/TimeMsgs.h"

namespace tolvane {

namespace {

constexpr const char* SourceFile = "TTimeVcl.cpp";
constexpr std::array<const char*, 3> ClockNames = {"QPC", "std::chrono", "clock()"};
constexpr std::int64_t ChronoUnitsInMs = 10000;

// Whole milliseconds of d counts and the first decimal behind them. The seconds are split off first, so that no
// product overflows.
struct QpcTime {
    std::int64_t ms;
    std::int64_t tenth;

    QpcTime(std::int64_t d, std::int64_t frequency)
        : ms(d / frequency * 1000 + d % frequency * 1000 / frequency),
          tenth(d % frequency * 1000 % frequency * 10 / frequency) {}
};

} // namespace

const std::array<TTimeVcl::Event, 4> TTimeVcl::Events = {{
    {"ReadFileTime", ReadFileStart, AssembleStart},
    {"AssembleTime", AssembleStart, AssembleEnd},
    {"LinkTime", AssembleEnd, LinkEnd},
    {"RunTime", RunStart, RunEnd},
}};

void TTimeVcl::SetTimeFunc(const std::string& name) {
    TimeFunction = name;
    TimeFuncIntFlag = GetTimeFuncIndex(name);
}

int TTimeVcl::GetTimeFuncIndex(const std::string& name) {
    for (int i = Chrono; i <= ProcessClock; ++i)
        if (name == ClockNames[static_cast<std::size_t>(i)]) return i;
    return Qpc;
}

void TTimeVcl::SetTimeFuncIndex(int index) {
    TimeFuncIntFlag = index == Chrono || index == ProcessClock ? index : Qpc;
    TimeFunction = ClockNames[static_cast<std::size_t>(TimeFuncIntFlag)];
}

int TTimeVcl::SetReadFileStart() {
    return SetStamp(ReadFileStart);
}
int TTimeVcl::SetAssembleStart() {
    return SetStamp(AssembleStart);
}
int TTimeVcl::SetAssembleEndTime() {
    return SetStamp(AssembleEnd);
}
int TTimeVcl::SetLinkEnd() {
    return SetStamp(LinkEnd);
}
int TTimeVcl::SetRunStart() {
    return SetStamp(RunStart);
}
int TTimeVcl::SetRunEnd() {
    return SetStamp(RunEnd);
}

int TTimeVcl::SetStamp(Stamp stamp) {
    switch (TimeFuncIntFlag) {
    case Qpc:
        qpcStamps[stamp] = platform::SteadyCount();
        return 0;
    case Chrono:
        chronoStamps[stamp] = platform::WallClock100ns();
        return 0;
    case ProcessClock:
        clockStamps[stamp] = platform::ProcessClockMs();
        return 0;
    default:
        break;
    }
    switch (stamp) {
    case ReadFileStart:
        Say(TimeMsg.NoClockReadFileStart, {SourceFile});
        break;
    case AssembleStart:
        Say(TimeMsg.NoClockAssembleStart, {SourceFile});
        break;
    case AssembleEnd:
        Say(TimeMsg.NoClockAssembleEnd, {SourceFile});
        break;
    case LinkEnd:
        Say(TimeMsg.NoClockLinkEnd, {SourceFile});
        break;
    default:
        Say(TimeMsg.NoClockRun, {SourceFile});
    }
    return -1;
}

const TTimeVcl::Event* TTimeVcl::FindEvent(const std::string& name) {
    for (const Event& event : Events)
        if (name == event.name) return &event;
    return nullptr;
}

std::int64_t TTimeVcl::Difference(const Event& event) const {
    switch (TimeFuncIntFlag) {
    case Chrono:
        return chronoStamps[event.to] - chronoStamps[event.from];
    case ProcessClock:
        return std::int64_t{clockStamps[event.to]} - clockStamps[event.from];
    default:
        return qpcStamps[event.to] - qpcStamps[event.from];
    }
}

std::int64_t TTimeVcl::Frequency() const {
    const std::int64_t frequency = platform::SteadyFrequency();
    if (frequency > 0) return frequency;
    Say(TimeMsg.NoFrequency, {SourceFile});
    return 1;
}

std::string TTimeVcl::DetTimeDiff_General(const std::string& event) const {
    if (const Event* found = FindEvent(event)) return TimeText(Difference(*found), Frequency());
    switch (TimeFuncIntFlag) {
    case Chrono:
        return TextOf(TimeMsg.UnknownEventChrono);
    case ProcessClock:
        return TextOf(TimeMsg.UnknownEventClock);
    default:
        return TextOf(TimeMsg.UnknownEventQpc);
    }
}

std::string TTimeVcl::DetTimeDiff_MilliSecStr_General(const std::string& event) const {
    const Event* found = FindEvent(event);
    return found == nullptr ? std::string() : MilliSecText(Difference(*found), Frequency());
}

std::string TTimeVcl::TimeText(std::int64_t d, std::int64_t frequency) const {
    if (TimeFuncIntFlag == Chrono) {
        const long long ms = d / ChronoUnitsInMs;
        if (ms < 1) return TextOf(TimeMsg.NoTimeChrono);
        if (ms < 1000) return TextOf(TimeMsg.WholeMsec, {ms});
        return TextOf(TimeMsg.Seconds, {ms / 1000, ms % 1000 / 100});
    }
    if (TimeFuncIntFlag == ProcessClock) {
        const long long ms = d;
        if (ms < 1) return TextOf(TimeMsg.NoTimeClock);
        if (ms < 1000) return TextOf(TimeMsg.WholeMsec, {ms});
        return TextOf(TimeMsg.Seconds, {ms / 1000, ms % 1000});
    }
    const QpcTime time(d, frequency);
    if (time.ms < 1) return TextOf(TimeMsg.NoTimeQpc);
    if (time.ms < 1000) return TextOf(TimeMsg.TenthMsec, {time.ms, time.tenth});
    return TextOf(TimeMsg.Seconds, {time.ms / 1000, time.ms % 1000});
}

std::string TTimeVcl::MilliSecText(std::int64_t d, std::int64_t frequency) const {
    if (TimeFuncIntFlag == Chrono) return std::to_string(d / ChronoUnitsInMs);
    if (TimeFuncIntFlag == ProcessClock) return std::to_string(d);
    const QpcTime time(d, frequency);
    return std::to_string(time.ms) + "." + std::to_string(time.tenth);
}

void TTimeVcl::DspAssembleTime() const {
    Say(TimeMsg.ShortLine, {Utf8Arg{DetTimeDiff_MilliSecStr_General("ReadFileTime")},
                            Utf8Arg{DetTimeDiff_MilliSecStr_General("AssembleTime")}});
}

void TTimeVcl::DspLinkTime() const {
    Say(TimeMsg.LongLine, {Utf8Arg{DetTimeDiff_MilliSecStr_General("ReadFileTime")},
                           Utf8Arg{DetTimeDiff_MilliSecStr_General("AssembleTime")},
                           Utf8Arg{DetTimeDiff_MilliSecStr_General("LinkTime")}});
}

} // namespace tolvane
