#include "driver/Settings.h"

#include "driver/DriverMsgs.h"
#include "platform/Files.h"
#include "platform/IniFile.h"
#include "records/Records.h"
#include "text/Text.h"
#include "timing/TTimeVcl.h"

namespace tolvane {

using platform::GetIniInt;
using platform::GetIniStr;
using platform::PutIniInt;
using platform::PutIniStr;

namespace {

constexpr const char* IniName = "tolvane_Win.ini";
// Who has worked with the program once knows the menu: from then on it is short, whatever the setting was.
constexpr int SavedSilentMode = 1;

// Switches of the settings know 0 and 1; every other value counts as 0.
int AsSwitch(int value) {
    return value == 1 ? 1 : 0;
}

} // namespace

void ToolWin::SetIniPath() {
    const auto directory = platform::CurrentDirectory();
    if (!directory) {
        Say(DriverMsg.NoIniDirectoryNarrow);
        Say(DriverMsg.NoIniDirectoryWide);
        IniPath = IniName;
        return;
    }
    Directory = *directory;
    // A path cannot hold a directory that has a backslash in its name; the name alone means the same file.
    const bool hasBackslash = Directory.find('\\') != std::string::npos;
    IniPath = hasBackslash ? IniName : Directory + "\\" + IniName;
}

void SetTextEdIndex(int index) {
    const bool inRange = 0 <= index && index <= 2;
    if (!inRange) Say(DriverMsg.EditorIndexOutOfRange);
    modeFlags->TextEditorIndex = inRange ? index : 0;
}

void LoadSettings(const std::string& path) {
    modeFlags->Lang = GetIniStr("Mode", "Lang", "ENU", path) == "JPN" ? 0 : 1;
    modeFlags->FightFunc = TrimZenBlankUtf8(GetIniStr("Mode", "FightFunc", "WP", path));
    timer->SetTimeFunc(GetIniStr("Mode", "TimeFunction", "QPC", path));
    timer->SetTimeFuncIndex(GetIniInt("Mode", "TimeFuncIntFlag", 0, path));

    const std::string defaultSource = tools->StartDirectory + "\\src\\pn3300.txt";
    po->LastAssembledSrcFilePath = GetIniStr("Assembler", "LastAssembledSrcFilePath", defaultSource, path);
    if (po->LastAssembledSrcFilePath.empty()) po->LastAssembledSrcFilePath = defaultSource;

    modeFlags->SilentModeIndex = GetIniInt("Mode", "SilentModeIndex", 0, path);
    modeFlags->BusyModeIndex = AsSwitch(GetIniInt("Mode", "BusyModeIndex", 1, path));
    modeFlags->SimpleTitleIndex = AsSwitch(GetIniInt("Mode", "SimpleTitleIndex", 0, path));

    SetTextEdIndex(GetIniInt("Editor", "TextEditorIndex", 0, path));
    modeFlags->TextEditors[1] = GetIniStr("Editor", "TextEditorPath1", "", path);
    modeFlags->TextEditors[2] = GetIniStr("Editor", "TextEditorPath2", "", path);
}

void SaveSettings(const std::string& path) {
    PutIniStr("Mode", "Lang", modeFlags->Lang == 0 ? "JPN" : "ENU", path);
    PutIniStr("Mode", "FightFunc", modeFlags->FightFunc, path);
    PutIniStr("Mode", "TimeFunction", timer->TimeFunction, path);
    PutIniInt("Mode", "TimeFuncIntFlag", timer->TimeFuncIntFlag, path);
    const std::string last = po->LastAssembledSrcFilePath;
    PutIniStr("Assembler", "LastAssembledSrcFilePath",
              last.empty() ? tools->StartDirectory + "\\src\\list792j.txt" : last, path);
    PutIniInt("Mode", "SimpleTitleIndex", modeFlags->SimpleTitleIndex, path);
    PutIniInt("Mode", "BusyModeIndex", modeFlags->BusyModeIndex, path);
    PutIniInt("Mode", "SilentModeIndex", SavedSilentMode, path);
    PutIniInt("Editor", "TextEditorIndex", modeFlags->TextEditorIndex, path);
    PutIniStr("Editor", "TextEditorPath1", modeFlags->TextEditors[1], path);
    PutIniStr("Editor", "TextEditorPath2", modeFlags->TextEditors[2], path);
}

} // namespace tolvane
