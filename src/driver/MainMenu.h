#pragma once
// The main menu and its commands.

#include <string>
#include <string_view>

namespace tolvane {

// What a command leaves behind. Values above 9000 end the program, values from 1 to 6999 start the next cycle.
enum MenuResult : int {
    SourceChosen = 0,
    SourceNotRead = 1,
    ImageDumpShown = 2,
    ResultDumpShown = 3,
    FolderListed = 4,
    ShownInDefaultEditor = 50,
    TextShown = 52,
    LastShownInDefaultEditor = 550,
    LastShown = 551,
    ExitChosen = 123123,
    InputEnded = 999999, // the console's input has ended: the program ends quietly and saves nothing
};

// Shows the Enter prompt and the menu until a command has been carried out. `path` enters holding the last source
// path and leaves holding the path to assemble.
int GetMainMenu(std::string& path);

// A number at the head of a console text: blanks, an optional sign, digits; 0 without digits, held to the range of an
// int. `end` is where it ends.
int LeadingNumber(std::string_view text, std::size_t& end);

} // namespace tolvane
