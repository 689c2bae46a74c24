#pragma once
// What the fuzz targets share. The last byte of an input chooses pipeline and language, so that a seed is a text as it
// stands.

#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "platform/SignalState.h"
#include "platform/Signals.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// A broken invariant stops the target, which keeps the input.
#define TOLVANE_MUST(condition) ((condition) ? void() : std::abort())

namespace tolvane::fuzz {

inline std::string_view typed; // what IN reads, up to its end

inline void PressCtrlC() {
    signals::interrupt = true;
    signals::noted = true;
    signals::LoopLimit = 0;
}

inline const MachineIo Io{[](void*, const std::string&) {},
                          [](void*, std::size_t limit) -> std::optional<MachineIo::Line> {
                              if (typed.empty()) return std::nullopt;
                              const std::size_t end = std::min(typed.find('\n'), typed.size() - 1) + 1;
                              const std::string line(typed.substr(0, std::min(end, limit)));
                              typed.remove_prefix(end);
                              return MachineIo::Line{line, line.size()};
                          },
                          [](void*, const Msg&, Args) {}, nullptr};

// The input as text, behind a fresh beginning. What would be printed goes nowhere.
inline std::string Begin(const std::uint8_t* data, std::size_t size) {
    static constexpr std::array<const char*, 7> Pipelines = {"WP", "NWW", "NwW", "NaW", "NA", "AP", "NH"};
    static std::string swallowed;
    swallowed.clear();
    console::WriteTo(&swallowed);
    comet2->Io = &Io;
    const unsigned choice = size == 0 ? 0 : data[size - 1];
    modeFlags->Pipe = FindPipeline(Pipelines[choice / 2 % Pipelines.size()]);
    modeFlags->Lang = choice % 2;
    return std::string(reinterpret_cast<const char*>(data), size);
}

// The parts of an input, which stand between zeros; at least one.
inline std::vector<std::string> Fields(std::string_view bytes) {
    std::vector<std::string> fields;
    for (std::size_t zero = 0; zero != std::string_view::npos; bytes.remove_prefix(std::min(zero + 1, bytes.size()))) {
        zero = bytes.find('\0');
        fields.emplace_back(bytes.substr(0, zero));
    }
    return fields;
}

} // namespace tolvane::fuzz
