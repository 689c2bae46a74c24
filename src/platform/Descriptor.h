#pragma once
// An open file of the system, closed with its owner. For the sources of this room only.

#include <string_view>
#include <utility>

namespace tolvane::platform {

class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor& operator=(Descriptor&& other) noexcept {
        Close();
        number = std::exchange(other.number, -1);
        return *this;
    }
    ~Descriptor() { Close(); }

    int Get() const { return number; } // below 0 if the file did not open
    // False if the system could not keep what was written.
    bool Close();

private:
    int number;
};

// Writes all bytes; false, with errno, if that fails.
bool WriteBytes(int file, std::string_view bytes);

} // namespace tolvane::platform
