// Settings files: any bytes are read, what is saved is read back, and one key leaves the others alone. The file stands
// in front of the first zero, the value of a key behind it.

#include "driver/Settings.h"

#include "Fuzz.h"
#include "platform/IniFile.h"
#include "records/Records.h"
#include "timing/TTimeVcl.h"

#include <filesystem>
#include <fstream>
#include <tuple>
#include <unistd.h>

using namespace tolvane;

static auto Load(const std::string& path) {
    LoadSettings(path);
    return std::tuple(modeFlags->Lang, modeFlags->FightFunc, timer->TimeFunction, po->LastAssembledSrcFilePath,
                      modeFlags->SimpleTitleIndex, modeFlags->BusyModeIndex, modeFlags->TextEditorIndex,
                      modeFlags->TextEditors[1]);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string Path =
        (std::filesystem::temp_directory_path() / ("tolvane-fuzz-" + std::to_string(getpid()) + ".ini")).string();
    const std::string bytes = fuzz::Begin(data, size);
    const std::size_t zero = std::min(bytes.find('\0'), size);
    std::ofstream(Path, std::ios::binary) << bytes.substr(0, zero);
    const auto loaded = Load(Path);
    const std::string editor = modeFlags->TextEditors[2];
    SaveSettings(Path);
    TOLVANE_MUST(Load(Path) == loaded && modeFlags->TextEditors[2] == editor);

    platform::IniFile ini(Path);
    ini.PutStr("Editor", "TextEditorPath2", bytes.substr(std::min(zero + 1, size)));
    ini.Write();
    TOLVANE_MUST(Load(Path) == loaded);
    TOLVANE_MUST(modeFlags->TextEditors[2] == ini.GetStr("Editor", "TextEditorPath2", "absent"));
    std::filesystem::remove(Path);
    return 0;
}
