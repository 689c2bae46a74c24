#pragma once
// What the page sees of the engine: typed values by way of embind, whose forms stand in page/engine.ts.

#include "image/LinkedImage.h"
#include "messages/TMsgStore.h"

#include <emscripten/val.h>
#include <optional>
#include <string>
#include <vector>

namespace tolvane::web {

using emscripten::val;

// The reading rule asks for one.
inline constexpr const char* SourceName = "source.txt";

val Strings(const std::vector<std::string>& texts);

// Forgets the program before, assembles and links the source, UTF-8. Whether its image is good.
bool Assemble(const std::string& source, const std::string& pipeline, int language);
// What the assembly has said, as an array; of a good image, in front of the run, also what is hardly meant.
val Diagnostics(bool good);
// One diagnostic: its texts without heads, in the language in force.
val Diagnostic(Severity severity, const Msg& row, std::span<const KeptArg> args, int line);

} // namespace tolvane::web
