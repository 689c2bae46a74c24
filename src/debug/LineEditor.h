#pragma once
// Lines that a person types, edited on the terminal and with a history, by the system's library for it where the
// program was built with one.

#include <optional>
#include <string>

struct editline;
struct history;

namespace tolvane::debug {

class LineEditor {
public:
    LineEditor();
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    // Whether lines can be edited: a person types them on a terminal in UTF-8.
    bool IsReady() const { return editor != nullptr; }
    // The next line, in UTF-8, behind the prompt, which lives as long as the editor; it goes into the history. Nothing
    // at the end of the input, or when a signal stops the reading. Only while IsReady.
    std::optional<std::string> Next(const char* prompt);

private:
    editline* editor = nullptr;
    history* past = nullptr;
    const char* shownPrompt = "";
};

} // namespace tolvane::debug
