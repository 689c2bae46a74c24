#pragma once
// A file written anew as a whole: in pieces, beside the old one, which it replaces at the end and not before.

#include "platform/Descriptor.h"

#include <optional>
#include <string>
#include <string_view>

namespace tolvane::platform {

class FileWriter {
public:
    // A path in the program's form. A symbolic link is followed; what is there and no regular file is refused.
    explicit FileWriter(const std::string& path);
    // Without Close the old file stays as it was.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    // Whether nothing has failed so far.
    bool IsGood() const { return failure == 0; }
    void Write(std::string_view bytes);
    // Puts the new file in the old one's place. The system's message if that or anything before it failed, else
    // nothing; the disk is not waited for.
    std::optional<std::string> Close();

private:
    std::string target;
    std::string temporary; // empty if there is none
    Descriptor file;
    int failure = 0; // the first one's number

    void Fail();
    void DropTemporary();
};

} // namespace tolvane::platform
