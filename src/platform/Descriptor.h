#pragma once
// An open file of the system, closed with its owner. For the sources of this room only.

#include <cstdint>
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

// Writes all bytes; false, with the system's number for the error, if that fails.
bool WriteBytes(FileNumber file, std::string_view bytes);

} // namespace tolvane::platform
