#pragma once
// The settings file of the working directory: read at start, written when the user chooses to exit or stops a run.

#include <string>

namespace tolvane {

// The directory in which the program was started, the base of the default source path; UTF-8, empty if unknown.
struct TLStd {
    std::string StartDirectory;
};
extern TLStd* const tools;

// The settings file's place.
struct ToolWin {
    std::string IniPath = "tolvane_Win.ini";

    // Puts the working directory in front of the file's name; says so and leaves the name alone if it is unknown.
    void SetIniPath();
};
extern ToolWin* const toolWin;

// Chooses the editor: 0, 1 or 2; any other index is reported and becomes 0.
void SetTextEdIndex(int index);
// Reads every setting into `modeFlags`, the clock into `timer` and the source path into `po`; an absent key takes its
// default.
void LoadSettings(const std::string& path);
// Writes every setting.
void SaveSettings(const std::string& path);

} // namespace tolvane
