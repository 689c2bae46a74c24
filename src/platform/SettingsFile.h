#pragma once
// The settings file as the system keeps it. For the settings form of this room only.

#include <optional>
#include <string>
#include <string_view>

namespace tolvane::platform {

// The file behind a path, with symbolic links followed, as the system takes it. What a writing that was killed has left
// beside it is cleared away.
std::string SettingsName(const std::string& path);
// The bytes of the file, empty for one that is not there; nothing for one that is there and cannot be read.
std::optional<std::string> ReadSettings(const std::string& path);
// Puts new bytes in the place of the old ones. Whoever reads meanwhile, and whoever finds the file after this program
// was killed, has the old bytes or the new ones, whole. A file that cannot be written stays as it was.
void WriteSettings(const std::string& name, std::string_view bytes, std::string_view old);

} // namespace tolvane::platform
