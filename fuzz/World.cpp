#include "World.h"

#include "Fuzz.h"
#include "platform/Clocks.h"
#include "platform/Commands.h"
#include "platform/StandardFiles.h"
#include "platform/posix/Waiting.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/time.h>
#include <system_error>
#include <unistd.h>

namespace tolvane {

namespace fuzz {

World world;

namespace {

namespace fs = std::filesystem;

// A run that goes on for two ticks of the processor's time.
void Tick(int) {
    static int ticks = 0;
    ticks = signals::running ? ticks + 1 : 0;
    if (ticks < 2) return;
    world.pressed = true;
    PressCtrlC();
}

void SetTicks() {
    constexpr itimerval often{{0, 10'000}, {0, 10'000}};
    std::signal(SIGVTALRM, Tick);
    setitimer(ITIMER_VIRTUAL, &often, nullptr);
}

void GoToFolder() {
    const fs::path folder = fs::temp_directory_path() / ("tolvane-fuzz-" + std::to_string(getpid()));
    fs::create_directory(folder);
    fs::current_path(folder);
}

} // namespace

void BeginWorld(std::string_view input, std::size_t choice) {
    constexpr const console::CharacterCode* Codes[] = {&console::Utf8Code, &console::ShiftJisCode, &console::EucJpCode};
    static const bool begun = (GoToFolder(), SetTicks(), true);
    TOLVANE_MUST(begun);
    world = {};
    while (console::ReadByte() >= 0) { // what was buffered and not read
    }
    world.typed = input;
    world.code = Codes[choice % std::size(Codes)];
    signals::interrupt = false;
    for (const fs::directory_entry& entry : fs::directory_iterator("."))
        fs::remove_all(entry);
}

void LayDown(const std::string& name, std::string_view bytes) {
    if (name.find('/') == std::string::npos) std::ofstream(name, std::ios::binary) << bytes;
}

} // namespace fuzz

namespace console {

namespace {

std::optional<Loss> Append(std::string& kept, std::string_view bytes) {
    kept += bytes.substr(0, fuzz::World::MostKept - std::min(kept.size(), fuzz::World::MostKept));
    return std::nullopt;
}

} // namespace

void OpenStandardFiles() {}

const CharacterCode& InputCode() {
    return *fuzz::world.code;
}
const CharacterCode& OutputCode() {
    return *fuzz::world.code;
}
const CharacterCode& ErrorCode() {
    return *fuzz::world.code;
}
const CharacterCode& TextFileCode() {
    return *fuzz::world.code;
}
std::string_view TextFileMark() {
    return {};
}

std::size_t ReadInput(char* bytes, std::size_t size) {
    const std::size_t some = fuzz::world.typed.copy(bytes, size);
    fuzz::world.typed.remove_prefix(some);
    return some;
}
std::optional<Loss> WriteOutput(std::string_view bytes) {
    return Append(fuzz::world.output, bytes);
}
std::optional<Loss> WriteErrorOutput(std::string_view bytes) {
    return Append(fuzz::world.errors, bytes);
}

bool OutputIsTerminal() {
    return false;
}
bool ErrorIsTerminal() {
    return false;
}
bool StandardInputIsTerminal() {
    return false;
}

} // namespace console

namespace signals {

void Install() {}
bool EndAsked() {
    return false;
}
void EndIfAsked() {}
void SetTimer() {}
bool WaitReadable(int) {
    return true;
}

} // namespace signals

namespace platform {

std::optional<std::string> RunEditor(const std::string& command, const std::string& file) {
    console::Write(command + " " + file + "\n");
    return command.empty() ? std::nullopt : std::optional<std::string>("missing");
}
std::optional<std::string> ListFolder(const std::string& folder) {
    console::Write(folder + "\n");
    return std::nullopt;
}

std::int64_t SteadyCount() {
    return 0;
}
std::int64_t SteadyFrequency() {
    return 1'000'000'000;
}
std::int64_t WallClock100ns() {
    return 0;
}
std::int32_t ProcessClockMs() {
    return 0;
}
LocalTime Now() {
    return {2000, 1, 1, 0, 0, 0, 6};
}

} // namespace platform

} // namespace tolvane
