#pragma once
// The words of the command line.

namespace tolvane::platform {

// The words that main was given, as UTF-8; they live as long as the program.
char** CommandLineWords(int& argc, char** argv);

} // namespace tolvane::platform
