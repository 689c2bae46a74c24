#pragma once
// The settings file as the system keeps it. For the settings form of this room only.

#include <optional>
#include <string>
#include <string_view>

namespace tolvane::platform {

// The bytes of the file, empty for one that is not there; nothing for one that is there and cannot be read.
std::optional<std::string> ReadSettings(const std::string& path);
// Puts new bytes in the place of the old ones. Whoever reads meanwhile, and whoever finds the file after this program
// was killed, has the old bytes or the new ones, whole; only where no file can be put in place is the old one written
// over. One that the user has made read-only stays as it is. False, with the system's number for the error, where a
// writing fails.
bool WriteSettings(const std::string& name, std::string_view bytes, std::string_view old);

} // namespace tolvane::platform
