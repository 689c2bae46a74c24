#pragma once
// What the fuzz targets share.

#include "machine/Tcomet2.h"
#include "platform/Console.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

// A broken invariant stops the target, which keeps the input.
#define TOLVANE_MUST(condition) ((condition) ? void() : std::abort())

namespace tolvane::fuzz {

inline constexpr std::array<const char*, 7> Pipelines = {"WP", "NWW", "NwW", "NaW", "NA", "AP", "NH"};
inline constexpr std::int64_t Instructions = 20'000; // of a run

inline std::string AsString(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
}

// The last byte chooses, so that a seed is a source as it stands.
inline unsigned Choice(const std::uint8_t* data, std::size_t size) {
    return size == 0 ? 0 : data[size - 1];
}

// What would be printed goes nowhere.
class Silence {
public:
    Silence() { console::WriteTo(&swallowed); }
    ~Silence() { console::WriteTo(nullptr); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    std::string swallowed;
};

// OUT writes nowhere, and IN reads the lines of a text up to its end.
class Typing {
public:
    explicit Typing(std::string_view text) : rest(text) { comet2->Io = &io; }
    ~Typing() { comet2->Io = &DialogueIo; }
    Typing(const Typing&) = delete;
    Typing& operator=(const Typing&) = delete;

private:
    static std::optional<MachineIo::Line> Read(void* context, std::size_t limit) {
        std::string_view& rest = static_cast<Typing*>(context)->rest;
        if (rest.empty()) return std::nullopt;
        const std::size_t end = std::min(rest.find('\n'), rest.size() - 1) + 1;
        const std::string line(rest.substr(0, std::min(end, limit)));
        rest.remove_prefix(end);
        return MachineIo::Line{line, line.size()};
    }

    std::string_view rest;
    const MachineIo io{[](void*, const std::string&) {}, Read, [](void*, const Msg&, Args) {}, this};
};

} // namespace tolvane::fuzz
