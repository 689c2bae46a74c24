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
// How reading a file ended: NoFile is no file, an empty path or one that cannot be read to its end; TooLarge does not
// fit in memory; Endless gives more than twice what its state says, and 64 MB more.
enum class ReadResult { Read, NoFile, TooLarge, Endless };
// Reads all bytes of a file; none unless they could all be read.
ReadResult ReadFile(const std::string& path, std::string& bytes);
std::optional<std::string> ReadFile(const std::string& path);
// The system's message for a file that does not open for reading; nothing for one that opens and for what is no file.
std::optional<std::string> WhyNotOpened(const std::string& path);
// Writes the file anew; the system's message on failure, else nothing. What is there and is no file is not opened.
std::optional<std::string> WriteFile(const std::string& path, std::string_view bytes);
// The system's message for the last failure of CurrentDirectory.
std::string LastSystemMessage();
// Copies the rest of the standard input into a new file and gives its name; empty if the system has no room for one.
std::string InputAsFile();
// The name of the system and of its machine, as in "Linux x86_64".
std::string SystemAndMachine();

} // namespace tolvane::platform
