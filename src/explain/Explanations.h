#pragma once
// The explanations as data: an entry for each diagnostic that a source can cause, for faults that no diagnostic leads
// out of, and for each opcode. tolvane-pages makes them in the build, in the order of their subjects.

#include "messages/Msg.h"

#include <span>

namespace tolvane::explain {

enum class Kind { Diagnostic, Fault, Opcode };

// Texts are in Japanese and in English.
struct Explanation {
    Kind kind;
    const char* id;                   // "RegisterMsg.NoRegister", "endless-loop", "LD"; the anchor in the pages
    std::span<const Msg* const> rows; // that say it; none for an opcode
    const char* keys;                 // words beside the title under which it is found, parted by blanks
    const char* subject[2];           // the heading under which it is listed
    const char* title[2];
    const char* text[2]; // lines for a console
};
extern const std::span<const Explanation> Explanations;

} // namespace tolvane::explain
