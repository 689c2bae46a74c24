#include "run/Inputs.h"

#include "messages/TMsgBase.h"
#include "run/Options.h"
#include "run/RunMsgs.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane::run {

namespace {

constexpr std::size_t MostBytes = std::size_t{64} << 20;

} // namespace

platform::Once ReadInput(const std::string& path) {
    return path == StandardInput ? platform::ReadStandardInput(MostBytes) : platform::ReadOnce(path, MostBytes);
}

std::string WhyNotRead(const platform::Once& once) {
    if (once.end == platform::Once::End::Failed) return once.why;
    if (once.end == platform::Once::End::NoMemory) return TextOf(RunMsg.OutOfMemory);
    return once.size > 0 ? TextOf(RunMsg.TooLarge, {static_cast<long long>(once.size)}) : TextOf(RunMsg.TooLong);
}

InputLines::InputLines(const std::string& bytes) {
    const std::string_view unmarked = WithoutUtf8Mark(bytes);
    const auto wide = WideUtf8(unmarked);
    text = wide ? *wide : Wide932(unmarked);
}

std::optional<std::string> InputLines::Next(std::size_t limit) {
    if (next >= text.size()) return std::nullopt;
    const std::size_t end = std::min(text.find(u'\n', next), text.size());
    std::u16string_view line = std::u16string_view(text).substr(next, end - next);
    next = end + 1;
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    return Utf8(line.substr(0, limit));
}

} // namespace tolvane::run
