#include "debug/LineEditor.h"

#if TOLVANE_LIBEDIT

#include "platform/Console.h"

#include <clocale>
#include <cstdio>
#include <cwchar>
#include <histedit.h>
#include <string_view>

namespace tolvane::debug {

namespace {

constexpr int HistoryLines = 1000;

// The next character of the standard input, which the console reads.
int ReadCharacter(EditLine*, wchar_t* character) {
    std::mbstate_t state{};
    for (;;) {
        const int byte = console::ReadByte();
        if (byte < 0) return 0;
        const char c = static_cast<char>(byte);
        const std::size_t length = std::mbrtowc(character, &c, 1, &state);
        if (length <= 1) return 1;
        if (length == static_cast<std::size_t>(-1)) state = {}; // no character: left out
    }
}

bool LocaleIsSet() {
    return std::setlocale(LC_CTYPE, "") != nullptr || std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
}

} // namespace

LineEditor::LineEditor() {
    if (!console::IsTerminal() || !console::InputIsTerminal() || !console::InputIsUtf8() || !LocaleIsSet()) return;
    editor = el_init("tolvane-debug", stdin, stdout, stderr);
    if (editor == nullptr) return;
    past = history_init();
    HistEvent event;
    if (past != nullptr) {
        ::history(past, &event, H_SETSIZE, HistoryLines);
        ::history(past, &event, H_SETUNIQUE, 1);
        el_set(editor, EL_HIST, ::history, past);
    }
    el_set(editor, EL_EDITOR, "emacs");
    el_set(editor, EL_SIGNAL, 1);
    el_set(editor, EL_CLIENTDATA, &shownPrompt);
    el_set(
        editor, EL_PROMPT, +[](EditLine* line) {
            void* shown = nullptr;
            el_get(line, EL_CLIENTDATA, &shown);
            return const_cast<char*>(*static_cast<const char**>(shown));
        });
    el_set(editor, EL_GETCFN, &ReadCharacter);
    el_source(editor, nullptr); // what the user has set for all programs
}

LineEditor::~LineEditor() {
    if (editor != nullptr) el_end(editor);
    if (past != nullptr) history_end(past);
}

std::optional<std::string> LineEditor::Next(const char* prompt) {
    shownPrompt = prompt;
    console::Flush();
    int length = 0;
    const char* const typed = el_gets(editor, &length);
    if (typed == nullptr || length <= 0) return std::nullopt;
    std::string line(typed, static_cast<std::size_t>(length));
    HistEvent event;
    if (past != nullptr && line != "\n") ::history(past, &event, H_ENTER, line.c_str());
    if (line.ends_with('\n')) line.pop_back();
    return line;
}

} // namespace tolvane::debug

#else

namespace tolvane::debug {

LineEditor::LineEditor() = default;
LineEditor::~LineEditor() = default;
std::optional<std::string> LineEditor::Next(const char*) {
    return std::nullopt;
}

} // namespace tolvane::debug

#endif
