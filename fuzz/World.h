#pragma once
// A system for whole programs: what is typed and printed stays in memory, no command is started, the clocks stand
// still, and a simulated program that goes on and on is stopped by Ctrl+C.

#include "platform/CharacterCode.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tolvane::fuzz {

struct World {
    std::string_view typed; // what the standard input still has
    std::string output;     // both at most MostKept bytes
    std::string errors;
    bool pressed = false; // Ctrl+C, at a moment of its own
    const console::CharacterCode* code = &console::Utf8Code;

    static constexpr std::size_t MostKept = 1 << 20;
};
extern World world;

// A new world, in an empty folder; `choice` chooses the code of its console.
void BeginWorld(std::string_view input, std::size_t choice);
// Lays a file down there; a name that leads out of the folder is left out.
void LayDown(const std::string& name, std::string_view bytes);

} // namespace tolvane::fuzz
