#include "run/Explain.h"

#include "explain/Finding.h"
#include "messages/TMsgBase.h"
#include "platform/Console.h"
#include "run/Errors.h"
#include "run/Options.h"
#include "run/RunMsgs.h"
#include "text/Text.h"

#include <algorithm>
#include <string_view>

namespace tolvane::run {

namespace {

using explain::Explanation;

constexpr std::size_t MostEntries = 2; // shown whole
constexpr std::size_t MostTitles = 15; // of the others

void WriteTitle(const Explanation& entry) {
    console::Write("  " + std::string(entry.title[modeFlags->Lang]) + "\n");
}

int ListAll() {
    std::string_view heading;
    for (const Explanation& entry : explain::Explanations) {
        const std::string_view subject = entry.subject[modeFlags->Lang];
        if (subject != heading) console::Write((heading.empty() ? "" : "\n") + std::string(subject) + "\n");
        heading = subject;
        WriteTitle(entry);
    }
    return AllEnded;
}

int SayNearest(const std::string& words, const explain::Found& found) {
    WriteErr(TextOf(RunMsg.NothingExplained, {Utf8Arg{words}}));
    for (const Explanation* entry : found.entries)
        WriteErr("  " + std::string(entry->title[modeFlags->Lang]) + "\n");
    return NothingFound;
}

} // namespace

int Explain(const std::string& words) {
    if (TrimBlank(ViewA(words)).empty()) return ListAll();
    const explain::Found found = explain::Find(words);
    if (found.equals == 0) return SayNearest(words, found);
    const std::size_t whole = std::min(found.equals, MostEntries);
    for (std::size_t i = 0; i < whole; ++i)
        console::Write((i == 0 ? "" : "\n") + std::string(found.entries[i]->text[modeFlags->Lang]));
    const std::size_t listed = std::min(found.entries.size(), whole + MostTitles);
    if (whole < found.entries.size()) Say(RunMsg.AlsoExplained);
    for (std::size_t i = whole; i < listed; ++i)
        WriteTitle(*found.entries[i]);
    if (listed < found.entries.size()) Say(RunMsg.MoreExplained, {found.entries.size() - listed});
    return AllEnded;
}

} // namespace tolvane::run
