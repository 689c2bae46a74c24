// Settings files: any bytes are read, and what is written into them is read back.

#include "Fuzz.h"
#include "platform/IniFile.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string Path =
        (std::filesystem::temp_directory_path() / ("tolvane-fuzz-" + std::to_string(getpid()) + ".ini")).string();
    const std::size_t half = size / 2;
    std::ofstream(Path, std::ios::binary) << fuzz::AsString(data, half);
    std::string value;
    for (std::size_t i = half; i < size && value.size() < 200; ++i)
        if (0x20 < data[i] && data[i] < 0x7F) value += static_cast<char>(data[i]);
    platform::IniFile ini(Path);
    ini.GetInt("Mode", "Lang", 0);
    ini.PutStr("Mode", "Lang", value);
    ini.Write();
    TOLVANE_MUST(platform::IniFile(Path).GetStr("Mode", "Lang", "absent") == value);
    std::filesystem::remove(Path);
    return 0;
}
