// Whole dialogues: whatever is typed and whatever the settings are, a dialogue ends when its input does, and nothing
// of it survives in the next one.
//
// The input: what is typed; then, a zero in front of each, names and contents of the files that are there. Without a
// zero it is a source, and the dialogue assembles and runs it.

#include "Fuzz.h"
#include "World.h"
#include "driver/TGame.h"
#include "input/TMoziCode.h"
#include "records/Records.h"

#include <filesystem>
#include <vector>

using namespace tolvane;

namespace {

constexpr const char* SettingsName = "tolvane_Win.ini";

std::vector<std::string> TakeFields(std::string_view bytes) {
    const std::vector<std::string> fields = fuzz::Fields(bytes);
    if (fields.size() > 1) return fields;
    const std::string lang = modeFlags->Lang == 0 ? "\nLang=JPN" : "";
    const std::string settings = "[Mode]\nFightFunc=" + std::string(modeFlags->Pipe->name) + lang;
    return {"\n1\na\n1\n\n\n11\n1\n", "a.txt", fields[0], SettingsName, settings};
}

int Talk(const std::vector<std::string>& fields, std::size_t size) {
    const bool dumps = size % 64 == 0; // they take longer than all the rest
    fuzz::BeginWorld(fields[0], size / 64);
    for (std::size_t i = 1; i + 1 < fields.size(); i += 2)
        fuzz::LayDown(fields[i], fields[i + 1]);
    for (const char* dump : {"aaAssembledRegMry.txt", "aaResultantRegMry.txt"})
        if (!dumps) std::filesystem::create_directory(dump); // so that none is written
    // What a dialogue tells by, beside its own object: the first prompt, and the code of the last file.
    po->EnglishEnterPrompts = 0;
    *moziCode = {};
    TGame game;
    return game.Run();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> fields = TakeFields(fuzz::Begin(data, size));
    console::WriteTo(nullptr);
    comet2->Io = &DialogueIo;
    const int status = Talk(fields, size);
    TOLVANE_MUST(status == 0 || status == 130);
    const fuzz::World first = fuzz::world;
    const int again = Talk(fields, size);
    if (first.pressed || fuzz::world.pressed) return 0;
    TOLVANE_MUST(again == status && fuzz::world.output == first.output && fuzz::world.errors == first.errors);
    return 0;
}
