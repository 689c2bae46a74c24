#pragma once
// Files and paths. A path is UTF-8 text in the program's own form: "/" and "\" both separate directories, a doubled
// backslash is one separator, and double quotation marks round a name are taken off when a file is opened.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tolvane::platform {

// Whether two backslashes at the front lead to another machine; then they stay two.
bool NamesMachines();
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
// What can be read once, from its beginning to its end: a file, a pipe, a device.
struct Once {
    enum class End {
        Read,
        Failed,   // the system says why
        TooLarge, // for the limit or for the memory
        NoMemory,
        Interrupted, // by Ctrl+C
    };
    End end = End::Read;
    std::string bytes;      // of Read
    std::string why;        // of Failed
    std::uint64_t size = 0; // of TooLarge, where the system tells it
};
// Reads all of it, at most `most` bytes, and waits for what is not there yet. SIGTERM and SIGHUP end the program.
Once ReadOnce(const std::string& path, std::size_t most);
// The same of the standard input's rest.
Once ReadStandardInput(std::size_t most);
// The system's message for the last failure of CurrentDirectory.
std::string LastSystemMessage();
// The name of the system and of its machine, as in "Linux x86_64".
std::string SystemAndMachine();

} // namespace tolvane::platform
