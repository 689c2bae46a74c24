#pragma once
// The sentences of the dump files, and what the console says when one cannot be written.

#include "messages/Msg.h"

namespace tolvane {

struct ReportsCatalogue {
    Msg DoesNotOpen{"{0} does not open.\nMsg:{1}\n", "{0} does not open.\nMsg:{1}\n"};

    // The head of the file
    Msg Font{"Please open this file with a monospaced font such as MS Gothic.\n",
             "Please open this file with a monospaced font such as MS Gothic.\n"};
    Msg Source{"Src. File: {0}    {1}\n",
               "Src. File: {0}    {1}\n",
               {WordingNH, "Src File: {0}    {1}\n", "Src File: {0}    {1}\n"}};
    Msg DumpFile{"VM COMET2: {0}\n", "VM COMET2: {0}\n"};
    // Year, month, day, hour, minute, second; an English dump has the standard form of a date.
    Msg JapaneseDate{"作成日時：{0}年{1}月{2}日 {3}時{4}分{5}秒", "作成日時：{0}年{1}月{2}日 {3}時{4}分{5}秒"};
    Msg BadFsign{"Error of else: at Fsign ! in comet2.),", "Error of else: at Fsign ! in comet2.),"};
    Msg BadFzero{"Error of else: at Fzero ! in comet2.).", "Error of else: at Fzero ! in comet2.)."};

    // Between memory and stack
    Msg Boundary{"The dashed line shows a boundary between \"Reserved Area\" and non-Reserved one.\n"
                 "It is called Reserved Area that your program has reserved in Main Memory.\n"
                 "\n",
                 "The dashed line shows a boundary between \"Reserved Area\" and non-Reserved one.\n"
                 "It is called Reserved Area that your program has reserved in Main Memory.\n"
                 "\n"};
    Msg StackHead{"           Stack Area in Main Memory\n"
                  "The Stack Pointer(SP) has pointed at "
                  "#{0x4} at present. \n",
                  "           Stack Area in Main Memory\n"
                  "The Stack Pointer(SP) has pointed at "
                  "#{0x4} at present. \n"};
};
inline constexpr ReportsCatalogue ReportsMsg;

} // namespace tolvane
