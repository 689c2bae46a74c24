#pragma once
// Programs that the user's commands start. The program waits until they have ended and does not look at their result.

#include <string>

namespace tolvane::platform {

// Opens a file in an editor: a command of the settings, or "notepad.exe" or nothing, which stand for the editor that
// the user's environment names or the first of the usual ones; if input or output is no terminal, these print the file
// instead. No character of the file's name means anything to the shell; a zero ends the name and the command.
void RunEditor(const std::string& command, const std::string& file);
// Lists a folder on the console, the current one for an empty name.
void ListFolder(const std::string& folder);

} // namespace tolvane::platform
