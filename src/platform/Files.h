#pragma once
// Files and paths. A path is UTF-8 text in the program's own form: "/" and "\" both separate directories, a doubled
// backslash is one separator, and double quotation marks round a name are taken off when a file is opened.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane::platform {

// The path as the system takes it.
std::string SystemPath(const std::string& path);
// The working directory; nothing if it cannot be read.
std::optional<std::string> CurrentDirectory();
// True if the path names a file that opens for reading. Folders, pipes and devices are no files.
bool IsFileThere(const std::string& path);
// All bytes of a file; nothing for what is no file, an empty path, a file that cannot be read to its end or one of more
// than a gigabyte.
std::optional<std::string> ReadFile(const std::string& path);
// The first bytes of a file, fewer if it is shorter; nothing if it does not open.
std::optional<std::string> ReadFileHead(const std::string& path, std::size_t most);
// Writes the file anew; the system's message on failure, else nothing.
std::optional<std::string> WriteFile(const std::string& path, std::string_view bytes);
// The system's message for the last failure of CurrentDirectory.
std::string LastSystemMessage();
// The name of the system and of its machine, as in "Linux x86_64".
std::string SystemAndMachine();

} // namespace tolvane::platform
