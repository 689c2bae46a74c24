#include "run/Hindsight.h"

#include <algorithm>
#include <utility>

namespace tolvane::run {

namespace {

constexpr std::int64_t MostInstructions = 2'000'000; // a tenth of a second
constexpr std::size_t MostLines = MostInstructions / 8;

} // namespace

Hindsight::Hindsight(const image::LinkedImage& linked) : image(linked) {
    if (!hints::ReturnWatch::IsNeeded(image)) return;
    start = std::make_unique<RunState>();
    comet2->Keep(*start);
}

void Hindsight::Keep(const std::optional<MachineIo::Line>& line) {
    if (start && lines.size() < MostLines) lines.push_back(line);
}

std::optional<hints::Hint> Hindsight::Look(std::int64_t executed) {
    if (!start || executed < 1) return std::nullopt;
    const auto end = std::make_unique<RunState>();
    const int most = comet2->MaxRunCount;
    comet2->Keep(*end);
    comet2->TakeUp(*start);
    MachineIo io{[](void*, const std::string&) {},
                 [](void* context, std::size_t) -> std::optional<MachineIo::Line> {
                     Hindsight& self = *static_cast<Hindsight*>(context);
                     return self.next < self.lines.size() ? self.lines[self.next++] : std::nullopt;
                 },
                 [](void*, const Msg&, Args) {}, this};
    io.tell = [](void*, Severity, const Msg&, Args) {};
    const MachineIo* const before = std::exchange(comet2->Io, &io);
    hints::ReturnWatch watch(image);
    comet2->RunTraced(std::min(executed, MostInstructions), [&watch](const Step& step) { watch.Observe(step); });
    comet2->Io = before;
    comet2->TakeUp(*end);
    comet2->MaxRunCount = most;
    return watch.Found();
}

} // namespace tolvane::run
