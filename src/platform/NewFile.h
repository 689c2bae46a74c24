#pragma once
// A file under a name of its own beside another one, whose place it takes when it is whole: who reads the other one,
// and who finds it after this program was killed, has the old bytes or the new ones. For the sources of this room only.

#include "platform/Descriptor.h"

#include <string>
#include <string_view>

namespace tolvane::platform {

// The file that a name stands for, behind symbolic links; the name itself where nothing is there yet.
std::string ResolvedName(const std::string& name);
// Whether a regular file of that name can be written; else the system's number for the error says why.
bool CanBeWritten(const std::string& name);

class NewFile {
public:
    // Beside a file that is there or not, named as the system takes it; with its rights, if it is there.
    explicit NewFile(const std::string& target);
    // The file is removed, unless it has got its place.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // Below 0, with the system's number for the error, if it could not be made.
    FileNumber Get() const { return file.Get(); }
    // Waits until the disk has the bytes. False, with the number, if that fails.
    bool Sync() const;
    // Gives the file its place. False, with the number, if that fails.
    bool PutInPlace();

private:
    std::string target;
    std::string name; // empty where there is nothing to remove
    Descriptor file;
};

// Clears away the files that programs that were killed have left beside a file.
void RemoveLeftovers(const std::string& target);

// For the system's parts: a name that no other file has, without its folder; and whether a name is one of those.
std::string MakeNewName(unsigned long process);
bool IsNewName(std::string_view name);

} // namespace tolvane::platform
