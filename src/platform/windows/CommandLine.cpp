#include "platform/CommandLine.h"

#include "platform/windows/System.h"

#include <vector>

// The C runtime's own reading of the command line, which its headers do not show.
extern "C" int __cdecl __wgetmainargs(int* argc, wchar_t*** argv, wchar_t*** environment, int wildcards, int* mode);

namespace tolvane::platform {

// Those of main are in the system's code page, which lacks characters that names can have.
char** CommandLineWords(int& argc, char** argv) {
    static std::vector<std::string> words;
    static std::vector<char*> pointers;
    wchar_t** wide = nullptr;
    wchar_t** environment = nullptr;
    int count = 0;
    int mode = 0;
    if (__wgetmainargs(&count, &wide, &environment, 1, &mode) != 0 || wide == nullptr) return argv;
    words.assign(static_cast<std::size_t>(count), {});
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = FromWide(wide[i]);
        pointers.push_back(words[i].data());
    }
    pointers.push_back(nullptr);
    argc = count;
    return pointers.data();
}

} // namespace tolvane::platform
