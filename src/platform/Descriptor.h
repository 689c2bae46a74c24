#pragma once
// An open file of the system, closed with its owner, and what the system does with it. For the sources of this room
// only.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tolvane::platform {

#ifdef _WIN32
using FileNumber = std::intptr_t; // a handle
#else
using FileNumber = int;
#endif

class Descriptor {
public:
    explicit Descriptor(FileNumber opened) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&& other) noexcept {
        Close();
        number = std::exchange(other.number, -1);
        return *this;
    }
    ~Descriptor() { Close(); }

    FileNumber Get() const { return number; } // below 0 if the file did not open
    // False if the system could not keep what was written.
    bool Close();

private:
    FileNumber number;
};

// Whether the system can have a file of that name at all.
bool IsSystemName(const std::string& name);
// Opens a regular file to read it; below 0 for what is none, which is not waited for.
Descriptor OpenToRead(const std::string& path);
// Opens whatever can be read; below 0, with the system's number for the error, for what cannot.
Descriptor OpenToReadOnce(const std::string& path);
// The size that the file's state says.
std::uint64_t SizeOf(const Descriptor& file);
// Whether the machine has as much memory. What it does not have is often promised nevertheless.
bool FitsInMemory(std::uint64_t size);
// Reads at most `size` bytes; how many they are, 0 at the end, nothing on failure.
std::optional<std::size_t> ReadSome(const Descriptor& file, char* room, std::size_t size);
// The same, and waits for bytes that are still to come; nothing as well when a signal asks for something.
std::optional<std::size_t> ReadWaiting(const Descriptor& file, char* room, std::size_t size);
std::optional<std::size_t> ReadStandardInput(char* room, std::size_t size);
// The system's message for the last failure.
std::string LastFailure();
// Writes all bytes; false, with the system's number for the error, if that fails.
bool WriteBytes(FileNumber file, std::string_view bytes);

} // namespace tolvane::platform
