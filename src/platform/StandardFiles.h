#pragma once
// The standard files as the system has them. For the console of this room only.

#include "platform/CharacterCode.h"
#include "platform/Console.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane::console {

// Makes ready what the functions below need; before it they can be used as well, but a signal may cost text.
void OpenStandardFiles();

// The codes of what the functions below read and write, and of the text files of the user's other programs.
const CharacterCode& InputCode();
const CharacterCode& OutputCode();
const CharacterCode& ErrorCode();
const CharacterCode& TextFileCode();
// What text files begin with where that tells their code to the other programs; else nothing.
std::string_view TextFileMark();

// Reads up to `size` bytes, at least one; 0 at the end of the input, and when a signal stops the program that reads.
std::size_t ReadInput(char* bytes, std::size_t size);
// Write all bytes; nothing, or why that is not possible.
std::optional<Loss> WriteOutput(std::string_view bytes);
std::optional<Loss> WriteErrorOutput(std::string_view bytes);

bool OutputIsTerminal();
bool ErrorIsTerminal();
bool StandardInputIsTerminal();

} // namespace tolvane::console
