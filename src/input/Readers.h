#pragma once
// From a typed name to a path, and from a file to line records.

#include <array>
#include <string>
#include <string_view>

namespace tolvane {

// The suffixes of sources, in the order in which they are tried.
inline constexpr std::array<const char*, 6> SourceSuffixes = {"", ".txt", ".asl", ".asm", ".cas", ".casl"};

// Reads a name from the console and tries the suffixes in turn. `ended` is set at the end of the input. The path that
// was found, UTF-8; empty, with a message, if there is none. The path found becomes the last source path.
std::string GetFilenameStrA(bool& ended);
// Reads the name of a folder.
std::string GetFoldername(bool& ended);
// Trims a typed path, wraps one with a blank in quotation marks, doubles its backslashes. -1 for an empty text, else 0.
int EditFilePath(std::string& path);

// The array reader, the only one with limits: a longer line is cut, a longer file refused. 0, or 1 with a message.
int OpenFileChH(std::string_view bytes);
// Reads a file by the pipeline's reader, with the detection in front. 0, or 1 with a message if it could not be read.
int ReadSource(const std::string& path);
// The same for bytes at hand, null for a file that did not open; `path` is the name that the messages tell.
int ReadSourceBytes(const std::string& path, const std::string* bytes);

} // namespace tolvane
