#pragma once
// The object of the menu, the readers and the file-level line positions. One object, reached through `po`.

#include "messages/TMsgBase.h"

#include <array>
#include <string>

namespace tolvane {

class TPO : public TMsgBase {
public:
    std::int32_t StartLine = 0; // last START line found
    std::int32_t EndLine = 0;   // last END line found
    std::int32_t PrgKazu = 0;

    // All UTF-8.
    std::string FightFunc = "WP";
    std::string LastAssembledSrcFilePath;
    std::string SrcFileName;    // the name that was found, with its suffix
    std::string TextEditorName; // the chosen editor
    std::array<std::string, 3> TextEditors;
    int TextEditorIndex = 0;
    int SilentFlag = 0;          // saved at exit
    int EnglishEnterPrompts = 0; // how often the Enter prompt was shown in English

    // Clears the line range and the program count.
    void Reset();
};

extern TPO* const po;

} // namespace tolvane
