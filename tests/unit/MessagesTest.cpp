// The console lines of a record.

#include "lines/LinesMsgs.h"
#include "messages/TMsgBase.h"
#include "messages/TMsgStore.h"

#include <gtest/gtest.h>

namespace tolvane::tests {

TEST(Messages, OnlyTheRowsOwnBreaksPartTheLinesOfARecord) {
    const TextW source = u"E\n\nEND ; text of UTF-16 may hold a line feed";
    const MsgRec& record = store->Append(Severity::Error, 2, LinesMsg.EndWithLabel, {source}, true, true);
    const std::vector<std::string> lines = record.Lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_NE(lines[0].find("E\n\nEND"), std::string::npos);
    EXPECT_EQ(lines[2], "It is of no use. ");
    store->ClearMsgStore();
}

TEST(Messages, ControlCharactersOfTextsAreShownOnATerminalAlone) {
    const KeptArg text{ViewA("a\x1B[1m\t\x7F\n")};
    for (const bool forTerminal : {false, true}) {
        std::string out;
        Compose(out, "{0}\n", {1, WordingNWW, Severity::Error, NoLine, {&text, 1}, forTerminal});
        EXPECT_EQ(out, forTerminal ? "a^[[1m\t^?^J\n" : "a\x1B[1m\t\x7F\n\n");
    }
}

} // namespace tolvane::tests
