#pragma once
// The settings in force: the language and the pipeline, which every message asks for, and what else the settings file
// holds of the way in which the program works. One object, reached through `modeFlags`.

#include "messages/Pipeline.h"

#include <array>
#include <string>

namespace tolvane {

struct TModeFlags {
    int Lang = 1; // 0 Japanese, 1 English
    const Pipeline* Pipe = &DefaultPipeline();
    std::string FightFunc = "WP"; // the name of the pipeline as the settings have it

    // Switches, 0 or 1; SilentModeIndex is any number.
    int SimpleTitleIndex = 0;
    int SilentModeIndex = 0;
    int BusyModeIndex = 0; // kept for the settings file alone

    // Commands, UTF-8; row 0 is the system's editor.
    std::array<std::string, 3> TextEditors{"notepad.exe", "", ""};
    int TextEditorIndex = 0;
};

extern TModeFlags* const modeFlags;

} // namespace tolvane
