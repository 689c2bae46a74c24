#include "driver/MainMenu.h"

#include "driver/DriverMsgs.h"
#include "driver/Settings.h"
#include "input/Readers.h"
#include "messages/TMsgBase.h"
#include "platform/Commands.h"
#include "platform/Console.h"
#include "records/Records.h"
#include "reports/Dump.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace tolvane {

namespace {

constexpr std::size_t EnterLimit = 44;
constexpr std::size_t NumberLimit = 40;

// The Enter prompt. False at the end of the input.
bool WaitForEnter() {
    const bool first = modeFlags->Lang != 0 && po->EnglishEnterPrompts == 0;
    Say(first ? DriverMsg.FirstEnterPrompt : DriverMsg.EnterPrompt);
    if (modeFlags->Lang != 0) ++po->EnglishEnterPrompts;
    return console::ReadLine(EnterLimit).has_value();
}

void DspMenu() {
    const bool silent = modeFlags->SilentModeIndex != 0 && modeFlags->Pipe->silentShortensMenu;
    const bool shortForm = silent || modeFlags->SimpleTitleIndex != 0;
    Say(shortForm ? DriverMsg.ShortMenu : DriverMsg.LongMenu, {AssembledDumpName, ResultantDumpName});
}

void TellOf(const std::optional<std::string>& failure) {
    if (failure) console::WriteError(TextOf(DriverMsg.NotStarted, {Utf8Arg{*failure}}));
}

// Opens a file in the chosen editor. The result is `own` for an editor of the settings, `standard` for the system's.
int OpenInEditor(const std::string& file, int own, int standard) {
    std::string command = modeFlags->TextEditors[static_cast<std::size_t>(modeFlags->TextEditorIndex)];
    if (modeFlags->TextEditorIndex != 0) EditFilePath(command);
    TellOf(platform::RunEditor(command, file));
    return modeFlags->TextEditorIndex == 0 ? standard : own;
}

int ChooseSource(std::string& path) {
    Say(DriverMsg.AskSourceName);
    bool ended = false;
    path = GetFilenameStrA(ended);
    return ended ? InputEnded : SourceChosen;
}

int ChooseLastSource(std::string& path) {
    path = po->LastAssembledSrcFilePath;
    return SourceChosen;
}

int ShowFolder() {
    Say(DriverMsg.AskFolder);
    bool ended = false;
    const std::string folder = GetFoldername(ended);
    if (ended) return InputEnded;
    TellOf(platform::ListFolder(folder));
    return FolderListed;
}

int ShowText() {
    Say(DriverMsg.AskTextName);
    bool ended = false;
    std::string file = GetFilenameStrA(ended);
    if (ended) return InputEnded;
    EditFilePath(file);
    return OpenInEditor(file, TextShown, ShownInDefaultEditor);
}

int ShowLastText() {
    std::string file = po->LastAssembledSrcFilePath;
    EditFilePath(file);
    return OpenInEditor(file, LastShown, LastShownInDefaultEditor);
}

int Exit() {
    SaveSettings(toolWin->IniPath);
    return ExitChosen;
}

constexpr int NoCommand = -1;

int CarryOut(int command, std::string& path) {
    switch (command) {
    case 1:
        return ChooseSource(path);
    case 11:
        return ChooseLastSource(path);
    case 2:
        return OpenInEditor(AssembledDumpName, ImageDumpShown, ShownInDefaultEditor);
    case 3:
        return OpenInEditor(ResultantDumpName, ResultDumpShown, ShownInDefaultEditor);
    case 4:
        return ShowFolder();
    case 5:
        return ShowText();
    case 55:
        return ShowLastText();
    case 123:
        return Exit();
    default:
        return NoCommand;
    }
}

} // namespace

int LeadingNumber(std::string_view text, std::size_t& end) {
    constexpr long long most = std::numeric_limits<int>::max();
    std::size_t i = std::min(FindNonBlank(text), text.size());
    const bool minus = At(text, i) == '-';
    if (IsSign(At(text, i))) ++i;
    long long value = 0;
    for (; IsDigit(At(text, i)); ++i)
        value = std::min(value * 10 + (text[i] - '0'), most);
    end = i;
    return static_cast<int>(minus ? -value : value);
}

int GetMainMenu(std::string& path) {
    if (!WaitForEnter()) return InputEnded;
    for (;;) {
        DspMenu();
        const auto line = console::ReadLine(NumberLimit);
        if (!line) return InputEnded;
        const std::string trimmed = TrimZenBlankUtf8(*line);
        const std::string_view typed = TrimBlank(std::string_view(trimmed));
        std::size_t end = 0;
        const int command = LeadingNumber(typed, end);
        if (command == 0 || end != typed.size()) {
            Say(DriverMsg.NoMenuNumber);
            continue;
        }
        const int result = CarryOut(command, path);
        if (result != NoCommand) return result;
        Say(DriverMsg.TryAgain);
    }
}

} // namespace tolvane
