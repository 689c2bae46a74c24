#pragma once
// What the detection of a file's character code says. The lines about a file that does not open have no line end where
// another line about the same file follows.

#include "messages/Msg.h"

namespace tolvane {

struct MoziCodeCatalogue {
    Msg FnameEmpty{Room::Input, "fname is empty."};
    Msg BomFailToOpen{Room::Input, "Error: Fail to open {0}."};
    Msg FailToOpen{Room::Input, "Fail to open {0}.\n"};
    Msg MoziKazu{Room::Input, "MoziKazu(ascii, sjis, non)=({0}, {1}, {2})\n"};
    Msg Reading{Room::Input, "\nReading {0}   {1}\n", "\n'{0}'    {1}"};
    Msg ReadingSimple{Room::Input, "\nReading {0}\n", "\n'{0}'     を読み込みます。 \n"};
};
inline constexpr MoziCodeCatalogue MoziCodeMsg;

} // namespace tolvane
