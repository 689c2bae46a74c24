#pragma once
// The settings file of the working directory: read at start, written when the user chooses to exit.

#include <string>

namespace tolvane {

// Four settings as they stand in the file.
struct TModeFlags {
    int Lang = 1;
    int SimpleTitleIndex = 0;
    int SilentModeIndex = 0;
    int BusyModeIndex = 1;
};
extern TModeFlags* const modeFlags;

// The directory in which the program was started, the base of the default source path; UTF-8, empty if unknown.
struct TLStd {
    std::string StartDirectory;
};
extern TLStd* const tools;

// The settings file's place.
struct ToolWin {
    std::string Directory;
    std::string IniPath = "tolvane_Win.ini";

    // Puts the working directory in front of the file's name; says so and leaves the name alone if it is unknown.
    void SetIniPath();
};
extern ToolWin* const toolWin;

// Reads every setting into the objects that keep it; an absent key takes its default.
void LoadSettings(const std::string& path);
// Writes every setting.
void SaveSettings(const std::string& path);

} // namespace tolvane
