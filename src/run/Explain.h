#pragma once
// What stands behind --explain: an entry for each diagnostic that a source can cause, and for some faults without one.

#include "messages/Msg.h"

#include <span>
#include <string>

namespace tolvane::run {

// Texts are in Japanese and in English.
struct Explanation {
    const Msg* row;   // null for a fault without a diagnostic of its own
    const char* keys; // words beside the title under which such a fault is found
    const char* title[2];
    const char* text[2];
};
extern const std::span<const Explanation> Explanations; // made by tolvane-pages

// Prints the entries that fit: a diagnostic as it was printed, or some words of it in either language. The exit status.
int Explain(const std::string& words);

} // namespace tolvane::run
