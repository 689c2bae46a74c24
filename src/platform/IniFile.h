#pragma once
// The settings form: [section] lines and key=value lines. Sections and keys are compared without regard to case;
// blanks round key and value do not count, and a value in one pair of quotation marks loses it. Files are bytes.

#include <string>

namespace tolvane::platform {

// The value, cut to 255 bytes, or `def` where the file or the key is absent.
std::string GetIniStr(const std::string& section, const std::string& key, const std::string& def,
                      const std::string& path);
// An optional sign and the leading digits of the value, 0 for text that is no number, `def` where the key is absent.
int GetIniInt(const std::string& section, const std::string& key, int def, const std::string& path);
// Write one key as the plain line key=value, with the line end that stood there, and leave every other line, comments
// and order as they are. A missing file, section or key is made.
// A file that cannot be written stays as it was.
void PutIniStr(const std::string& section, const std::string& key, const std::string& value, const std::string& path);
void PutIniInt(const std::string& section, const std::string& key, int value, const std::string& path);

} // namespace tolvane::platform
