#pragma once
// The object of the menu, the readers and the file-level checks. One object, reached through `po`.

#include "messages/TMsgBase.h"

#include <string>

namespace tolvane {

class TPO : public TMsgBase {
public:
    std::string LastAssembledSrcFilePath; // UTF-8: the source in hand, and the one that the settings keep
    int EnglishEnterPrompts = 0;          // how often the Enter prompt was shown in English
};

extern TPO* const po;

} // namespace tolvane
