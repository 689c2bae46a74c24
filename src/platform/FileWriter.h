#pragma once
// A file written anew as a whole: in pieces, beside the old one, which it replaces at the end and not before.

#include "platform/NewFile.h"

#include <optional>
#include <string>
#include <string_view>

namespace tolvane::platform {

class FileWriter {
public:
    // A path in the program's form. A symbolic link is followed; what is there and no regular file is refused. Without
    // Close the old file stays as it was.
    explicit FileWriter(const std::string& path);

    // Whether nothing has failed so far.
    bool IsGood() const { return !failure; }
    void Write(std::string_view bytes);
    // Puts the new file in the old one's place; of two programs' files the later one stays. The system's message if
    // that or anything before it failed, else nothing; the disk is not waited for.
    std::optional<std::string> Close();

private:
    std::optional<NewFile> file;
    std::optional<std::string> failure; // the first one's message

    void Fail();
};

} // namespace tolvane::platform
