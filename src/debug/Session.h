#pragma once
// The dialogue of tolvane-debug: commands, one a line, and what they show.

#include "debug/Places.h"
#include "debug/TypedLines.h"
#include "debugger/Debugger.h"
#include "image/LinkedImage.h"
#include "platform/Signals.h"

#include <memory>
#include <string>
#include <vector>

namespace tolvane::debug {

class Session {
public:
    // The image is the machine's; `input` are the lines for IN.
    Session(const image::LinkedImage& linked, TypedLines& typed, const std::vector<std::string>& input);
    // Until "quit" or the end of the commands.
    void Run();

private:
    using Words = std::vector<std::string>; // of a command, its name in front
    struct Command {
        const char* name;
        void (Session::*obey)(const Words&);
    };
    static const Command Commands[];

    void Obey(const std::string& line);
    void Step(const Words& words);
    void Back(const Words& words);
    void Over(const Words& words);
    void Out(const Words& words);
    void Until(const Words& words);
    void RunOn(const Words& words);
    void Reverse(const Words& words);
    void Go(const Words& words);
    void Break(const Words& words);
    void Watch(const Words& words);
    void Delete(const Words& words);
    void Who(const Words& words);
    void Show(const Words& words);
    void List(const Words& words);
    void Type(const Words& words);
    void Help(const Words& words);
    void Quit(const Words& words);
    void Close(const Words& words);

    // Works on the task that has been begun, asks for lines, and shows where the run stands then.
    void Finish();
    // A line for an IN that waits; false at the end of the input.
    bool Ask();
    // Tells whether a later part of the run, which went on to that moment, has been forgotten.
    void TellForgotten(debugger::Moment latest) const;
    void ShowNews(debugger::Moment since);
    void ShowOutput(std::size_t first, std::size_t end);
    void ShowNote(const debugger::History::Note& note);
    void ShowChanges();
    void ShowReason();
    void ShowPlace();
    void ShowRegisters();
    void ShowStack();
    void ShowCalls();
    void ShowInput();
    void ShowCells(const std::string& what);
    void ShowItems();
    void ShowLine(int line, int current);
    void AddItem(const debugger::Cell& cell, bool isWatch);
    std::string ItemText(const debugger::Cell& cell, bool isWatch) const;
    int NumberOfItem(const debugger::Cell& cell, bool isWatch) const;
    // The number behind a command, 1 without one; nothing if it is none, which has been told.
    std::optional<std::int64_t> CountOf(const Words& words) const;
    // Whether a word stands behind the command; else one line has told what is needed.
    bool HasWord(const Words& words, const Msg& needed) const;
    int Pr() const { return debugger.Machine().FaultAddress(debugger.Past().StopHere()); }

    // A breakpoint, at the word of its address, or a watch.
    struct Item {
        int number;
        bool isWatch;
        debugger::Cell cell;
    };

    const image::LinkedImage& image;
    TypedLines& lines;
    const Places places;
    debugger::Debugger debugger;
    const signals::Running running; // Ctrl+C is meant for the run
    std::vector<Item> items;
    int lastNumber = 0;
    std::unique_ptr<RunState> before = std::make_unique<RunState>(); // where the run stood last
    debugger::Moment told = 0;                                       // up to which output and notes were shown last
    std::string last;                                                // command
    bool hasQuit = false;
};

} // namespace tolvane::debug
