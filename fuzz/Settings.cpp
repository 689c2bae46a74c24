// Settings files: any bytes are read, what is saved is read back, and one key leaves the others alone.

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

namespace {

auto InForce() {
    return std::tuple{modeFlags->Lang,          modeFlags->FightFunc,         timer->TimeFunction,
                      timer->TimeFuncIntFlag,   po->LastAssembledSrcFilePath, modeFlags->SimpleTitleIndex,
                      modeFlags->BusyModeIndex, modeFlags->TextEditorIndex,   modeFlags->TextEditors};
}

} // namespace

// The file, and behind the first zero the value of a key.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string Path =
        (std::filesystem::temp_directory_path() / ("tolvane-fuzz-" + std::to_string(getpid()) + ".ini")).string();
    const fuzz::Silence silence;
    const std::string bytes = fuzz::AsString(data, size);
    const std::size_t zero = std::min(bytes.find('\0'), size);
    std::ofstream(Path, std::ios::binary) << bytes.substr(0, zero);
    LoadSettings(Path);
    const auto loaded = InForce();
    SaveSettings(Path);
    LoadSettings(Path);
    TOLVANE_MUST(InForce() == loaded);

    platform::IniFile ini(Path);
    ini.PutStr("Editor", "TextEditorPath2", bytes.substr(std::min(zero + 1, size)));
    ini.Write();
    const platform::IniFile written(Path);
    const std::string value = written.GetStr("Editor", "TextEditorPath2", "absent");
    TOLVANE_MUST(value == ini.GetStr("Editor", "TextEditorPath2", "absent"));
    LoadSettings(Path);
    modeFlags->TextEditors[2] = std::get<8>(loaded)[2];
    TOLVANE_MUST(InForce() == loaded);
    std::filesystem::remove(Path);
    return 0;
}
