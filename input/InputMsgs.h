#pragma once
// What the name entry and the readers say.

#include "driver/Msg.h"

namespace tolvane {

struct InputCatalogue {
    Msg FileNotFound{Room::Input, "The file is not found there. *", "ファイルが見つかりませんでした。\n"};
    Msg NoInput{Room::Input, "No Input Error!\n", "No Input Error!\n"};
    Msg DoesNotOpenBinary{Room::Input,
                          "\n{prefix}The file {0q} does not open on binary mode. "
                          "Misspellings?  Or the file does not exist there. *",
                          "\n{prefix}{0q} (binary mode)を開くことができません。 "
                          "ミススペル あるいは ファイルが存在しない。 *"};
    Msg DoesNotOpen{Room::Input,
                    "\n{prefix}The file {0} does not open. "
                    "Misspellings?  Or the file does not exist there. *",
                    "\n{prefix}'{0}' を開くことができません。 "
                    "ミススペル あるいは ファイルが存在しない。 *"};
    Msg NoUtf16CodePage{Room::Input, "Prg. Else Error: ", "Prg. Else Error: "};
};
inline constexpr InputCatalogue InputMsg;

} // namespace tolvane
