#include "driver/Settings.h"

#include "driver/DriverMsgs.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/IniFile.h"
#include "records/Records.h"
#include "text/Text.h"
#include "timing/TTimeVcl.h"

namespace tolvane {

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
    // A path cannot hold a directory that has a backslash in its name; the name alone means the same file.
    const bool hasBackslash = directory->find('\\') != std::string::npos;
    IniPath = hasBackslash ? IniName : *directory + "\\" + IniName;
}

void SetTextEdIndex(int index) {
    const bool inRange = 0 <= index && index <= 2;
    if (!inRange) Say(DriverMsg.EditorIndexOutOfRange);
    modeFlags->TextEditorIndex = inRange ? index : 0;
}

void LoadSettings(const std::string& path) {
    const platform::IniFile ini(path);
    modeFlags->Lang = ini.GetStr("Mode", "Lang", "ENU") == "JPN" ? 0 : 1;
    modeFlags->FightFunc = TrimZenBlankUtf8(ini.GetStr("Mode", "FightFunc", "WP"));
    timer->SetTimeFunc(ini.GetStr("Mode", "TimeFunction", "QPC"));
    timer->SetTimeFuncIndex(ini.GetInt("Mode", "TimeFuncIntFlag", 0));

    const std::string defaultSource = tools->StartDirectory + "\\src\\pn3300.txt";
    po->LastAssembledSrcFilePath = ini.GetStr("Assembler", "LastAssembledSrcFilePath", defaultSource);
    if (po->LastAssembledSrcFilePath.empty()) po->LastAssembledSrcFilePath = defaultSource;

    modeFlags->SilentModeIndex = ini.GetInt("Mode", "SilentModeIndex", 0);
    modeFlags->BusyModeIndex = AsSwitch(ini.GetInt("Mode", "BusyModeIndex", 1));
    modeFlags->SimpleTitleIndex = AsSwitch(ini.GetInt("Mode", "SimpleTitleIndex", 0));

    SetTextEdIndex(ini.GetInt("Editor", "TextEditorIndex", 0));
    modeFlags->TextEditors[1] = ini.GetStr("Editor", "TextEditorPath1", "");
    modeFlags->TextEditors[2] = ini.GetStr("Editor", "TextEditorPath2", "");
}

void SaveSettings(const std::string& path) {
    platform::IniFile ini(path);
    ini.PutStr("Mode", "Lang", modeFlags->Lang == 0 ? "JPN" : "ENU");
    ini.PutStr("Mode", "FightFunc", modeFlags->FightFunc);
    ini.PutStr("Mode", "TimeFunction", timer->TimeFunction);
    ini.PutInt("Mode", "TimeFuncIntFlag", timer->TimeFuncIntFlag);
    const std::string last = po->LastAssembledSrcFilePath;
    ini.PutStr("Assembler", "LastAssembledSrcFilePath",
               last.empty() ? tools->StartDirectory + "\\src\\list792j.txt" : last);
    ini.PutInt("Mode", "SimpleTitleIndex", modeFlags->SimpleTitleIndex);
    ini.PutInt("Mode", "BusyModeIndex", modeFlags->BusyModeIndex);
    ini.PutInt("Mode", "SilentModeIndex", SavedSilentMode);
    ini.PutInt("Editor", "TextEditorIndex", modeFlags->TextEditorIndex);
    ini.PutStr("Editor", "TextEditorPath1", modeFlags->TextEditors[1]);
    ini.PutStr("Editor", "TextEditorPath2", modeFlags->TextEditors[2]);
    if (const auto failure = ini.Write()) console::WriteError(TextOf(DriverMsg.SettingsNotSaved, {Utf8Arg{*failure}}));
}

} // namespace tolvane
