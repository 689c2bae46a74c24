#pragma once
// Programs that the user's commands start. The program waits until they have ended and does not look at their result.
// What comes back is the system's message if there was nothing to start, else nothing.

#include <optional>
#include <string>

namespace tolvane::platform {

// Opens a file in an editor: a command of the settings, or "notepad.exe" or nothing, which stand for the editor that
// the user's environment names or, where none of those is there, the first of the usual ones; if input or output is no
// terminal, these print the file instead. No character of the file's name means anything to the shell; a zero ends the
// name and the command.
std::optional<std::string> RunEditor(const std::string& command, const std::string& file);
// Lists a folder on the console, the current one for an empty name.
std::optional<std::string> ListFolder(const std::string& folder);

} // namespace tolvane::platform
