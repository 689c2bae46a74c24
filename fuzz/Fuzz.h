#pragma once
// What the fuzz targets share.

#include "machine/Tcomet2.h"
#include "platform/Console.h"

#include <cstdint>
#include <cstdlib>
#include <string>

// A broken invariant stops the target, which keeps the input.
#define TOLVANE_MUST(condition)                                                                                        \
    if (!(condition)) std::abort()

namespace tolvane::fuzz {

constexpr std::int64_t Instructions = 20'000; // of a run

inline std::string AsString(const std::uint8_t* data, std::size_t size) {
    return std::string(reinterpret_cast<const char*>(data), size);
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

// OUT writes nowhere, and IN reads the same line again and again.
inline const MachineIo Io{[](void*, const std::string&) {},
                          [](void*, std::size_t) -> std::optional<MachineIo::Line> {
                              return MachineIo::Line{"a line", 6};
                          },
                          [](void*, const Msg&, Args) {}, nullptr};

} // namespace tolvane::fuzz
