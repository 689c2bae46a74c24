#pragma once
// From a typed name to a path, and from a file to line records.

#include <string>

namespace tolvane {

// Reads a name from the console and tries the suffixes in turn. `ended` is set at the end of the input. The path that
// was found, UTF-8; empty, with a message, if there is none. The path found becomes the last source path.
std::string GetFilenameStrA(bool& ended);
// Reads the name of a folder.
std::string GetFoldername(bool& ended);
// Trims a typed path, wraps one with a blank in quotation marks, doubles its backslashes. -1 for an empty text, else 0.
int EditFilePath(std::string& path);

// Read a file into records with strSrc set. 0, or a negative value with a message.
int OpenFileUTF8toVecW20(const std::string& path);
int OpenFileUTF16toVecW20(const std::string& path);
// The narrow reader, which finds the character code itself, UTF-16 included. 0, or -1 with a message.
int OpenFileNarrow(const std::string& path);
// The narrow reader with its records widened, for the pipeline that reads so.
int OpenFileWidened(const std::string& path);
// The array reader, the only one with limits: a longer line is cut, a longer file refused. 0, or 1 with a message.
int OpenFileChH(const std::string& path);
// Reads by the pipeline's reader, with the detection in front. 0, or 1 if the file could not be read.
int ReadSource(const std::string& path);

} // namespace tolvane
