#pragma once
// What the detection of a file's character code says. The lines about a file that does not open have no line end where
// another line about the same file follows.

#include "messages/Msg.h"

namespace tolvane {

struct MoziCodeCatalogue {
    Msg FnameEmpty{"fname is empty."};
    Msg BomFailToOpen{"Error: {body}Fail to open {0}."};
    Msg FailToOpen{"Fail to open {0}.\n"};
    Msg MoziKazu{"MoziKazu(ascii, sjis, non)=({0}, {1}, {2})\n"};
    Msg Reading{"\nReading {0}   {1}\n", "\n'{0}'    {1}"};
    Msg ReadingSimple{"\nReading {0}\n", "\n'{0}'     を読み込みます。 \n"};
};
inline constexpr MoziCodeCatalogue MoziCodeMsg;

} // namespace tolvane
