#pragma once
// A source assembled in-process by the real stages, and what was said of it, row by row.

#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"

#include <array>
#include <string>
#include <vector>

namespace tolvane {

struct Pipeline;
using Strings = std::vector<std::string>;

struct Assembly {
    std::vector<MsgRec> said;      // their arguments are kept until the next assembly
    std::array<int, 4> counters{}; // of the application, in the order of Severity
    bool good = false;             // stages and link have ended well
    std::vector<int> words;        // the image, if it is good
    std::vector<int> addresses;    // of the lines, if it is good
    std::vector<int> registers;    // GR0 to GR7 behind a run
    std::string flags;             // " OF", " SF", " ZF" behind a run, those that are on
    Stop stop = Stop::None;        // why the run has ended
    std::string out;               // what OUT has written
    std::string input;             // what is left of it
    std::string printed;           // on the console
    std::vector<Strings> lines;    // of each diagnostic, as the console shows it in the language
    bool composes = true;          // every diagnostic has text in both languages
};

enum class Then { Nothing, Run };
inline constexpr int RunLimit = 1'000'000; // instructions

// Lines are UTF-8; language 0 is Japanese. With Then::Run a good image is run, as far as RunLimit; its first IN reads
// the input if there is any.
Assembly Assemble(const std::vector<std::string>& lines, const Pipeline& pipeline, int language,
                  Then then = Then::Nothing, const std::string& input = {});

// "RegisterMsg.NoRegister": the catalogue and the row.
std::string NameOf(const Msg& row);
// All rows in the order of the catalogues.
const std::vector<const Msg*>& AllRows();

} // namespace tolvane
