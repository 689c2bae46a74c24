#include "driver/Settings.h"

#include "driver/DriverMsgs.h"
#include "platform/Files.h"
#include "platform/IniFile.h"
#include "records/Records.h"
#include "timing/TTimeVcl.h"

namespace tolvane {

using platform::GetIniInt;
using platform::GetIniStr;
using platform::PutIniInt;
using platform::PutIniStr;

namespace {

constexpr const char* IniName = "tolvane_Win.ini";

// Switches of the settings know 0 and 1; every other value counts as 0.
int AsSwitch(int value) {
    return value == 1 ? 1 : 0;
}

} // namespace

void ToolWin::SetIniPath() {
    const auto directory = platform::CurrentDirectory();
    if (!directory) {
        b->Say(DriverMsg.NoIniDirectoryNarrow);
        b->Say(DriverMsg.NoIniDirectoryWide);
        IniPath = IniName;
        return;
    }
    Directory = *directory;
    // A path cannot hold a directory that has a backslash in its name; the name alone means the same file.
    const bool hasBackslash = Directory.find('\\') != std::string::npos;
    IniPath = hasBackslash ? IniName : Directory + "\\" + IniName;
}

void LoadSettings(const std::string& path) {
    const std::string defaultSource = tools->StartDirectory + "\\src\\pn3300.txt";

    modeFlags->Lang = GetIniStr("Mode", "Lang", "ENU", path) == "JPN" ? 0 : 1;
    po->Lang = modeFlags->Lang;
    po->FightFunc = GetIniStr("Mode", "FightFunc", "WP", path);
    timer->SetTimeFunc(GetIniStr("Mode", "TimeFunction", "QPC", path));
    timer->SetTimeFuncIndex(GetIniInt("Mode", "TimeFuncIntFlag", 0, path));

    po->LastAssembledSrcFilePath = GetIniStr("Assembler", "LastAssembledSrcFilePath", defaultSource, path);
    if (po->LastAssembledSrcFilePath.empty()) po->LastAssembledSrcFilePath = defaultSource;
    b->SrcFilePath = po->LastAssembledSrcFilePath;

    modeFlags->SilentModeIndex = GetIniInt("Mode", "SilentModeIndex", 0, path);
    po->SilentFlag = modeFlags->SilentModeIndex != 0 ? 1 : 0;
    modeFlags->BusyModeIndex = GetIniInt("Mode", "BusyModeIndex", 1, path);
    b->BusyModeIndex = AsSwitch(modeFlags->BusyModeIndex);
    modeFlags->SimpleTitleIndex = GetIniInt("Mode", "SimpleTitleIndex", 0, path);
    b->SimpleTitleIndex = AsSwitch(modeFlags->SimpleTitleIndex);

    b->SetTextEdIndex(GetIniInt("Editor", "TextEditorIndex", 0, path));
    b->TextEditors[1] = GetIniStr("Editor", "TextEditorPath1", "", path);
    b->TextEditors[2] = GetIniStr("Editor", "TextEditorPath2", "", path);
    po->TextEditorIndex = b->TextEditorIndex;
    po->TextEditors = b->TextEditors;
    po->TextEditorName = b->TextEditors[static_cast<std::size_t>(b->TextEditorIndex)];
}

void SaveSettings(const std::string& path) {
    PutIniStr("Mode", "Lang", po->Lang == 0 ? "JPN" : "ENU", path);
    PutIniStr("Mode", "FightFunc", po->FightFunc, path);
    PutIniStr("Mode", "TimeFunction", timer->TimeFunction, path);
    PutIniInt("Mode", "TimeFuncIntFlag", timer->TimeFuncIntFlag, path);
    const std::string last = po->LastAssembledSrcFilePath;
    PutIniStr("Assembler", "LastAssembledSrcFilePath",
              last.empty() ? tools->StartDirectory + "\\src\\list792j.txt" : last, path);
    PutIniInt("Mode", "SimpleTitleIndex", b->SimpleTitleIndex, path);
    PutIniInt("Mode", "BusyModeIndex", b->BusyModeIndex, path);
    PutIniInt("Mode", "SilentModeIndex", po->SilentFlag, path);
    PutIniInt("Editor", "TextEditorIndex", po->TextEditorIndex, path);
    PutIniStr("Editor", "TextEditorPath1", po->TextEditors[1], path);
    PutIniStr("Editor", "TextEditorPath2", po->TextEditors[2], path);
}

} // namespace tolvane
