#include "platform/NewFile.h"

#include "platform/Clocks.h"

namespace tolvane::platform {

namespace {

constexpr std::string_view Prefix = ".tolvane-";
constexpr std::string_view Suffix = ".tmp";

} // namespace

std::string MakeNewName(unsigned long process) {
    return std::string(Prefix) + std::to_string(process) + "-" + std::to_string(SteadyCount()) + std::string(Suffix);
}

bool IsNewName(std::string_view name) {
    if (name.size() < Prefix.size() + Suffix.size() || !name.starts_with(Prefix) || !name.ends_with(Suffix))
        return false;
    const std::string_view numbers = name.substr(Prefix.size(), name.size() - Prefix.size() - Suffix.size());
    return numbers.find_first_not_of("0123456789-") == std::string_view::npos;
}

} // namespace tolvane::platform
