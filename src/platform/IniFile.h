#pragma once
// The settings form: [section] lines and key=value lines. Sections and keys are compared without regard to case;
// blanks round key and value do not count, and a value in one pair of quotation marks loses it. Files are bytes.

#include <optional>
#include <string>
#include <vector>

namespace tolvane::platform {

// A settings file in memory: read once when the object is made, written once by Write.
class IniFile {
public:
    // Reads the file, and clears away what a writing that was killed has left beside it.
    explicit IniFile(const std::string& path);

    // The value, cut to 255 characters, or `def` where the file or the key is absent.
    std::string GetStr(const std::string& section, const std::string& key, const std::string& def) const;
    // An optional sign and the leading digits of the value, 0 for text that is no number, `def` where the key is
    // absent.
    int GetInt(const std::string& section, const std::string& key, int def) const;
    // Put one key as the plain line key=value, with the line end that stood there, and leave every other line, comments
    // and order as they are. A missing section or key is made. A value that reading would shorten is put in quotation
    // marks.
    void PutStr(const std::string& section, const std::string& key, const std::string& value);
    void PutInt(const std::string& section, const std::string& key, int value);
    // Writes the file if anything has changed, as the settings are written. A file that cannot be read stays as it was.
    // The system's message if the writing fails, else nothing.
    std::optional<std::string> Write() const;

private:
    std::optional<std::string> FindValue(const std::string& section, const std::string& key) const;

    std::string name;               // as the system takes it, with symbolic links followed
    std::optional<std::string> old; // the bytes of the file; nothing for one that is there and cannot be read
    std::vector<std::string> lines; // with their line ends
};

} // namespace tolvane::platform
