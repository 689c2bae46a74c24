// Hints: which rows are told of which lines, and that sound programs draw none.

#include "hints/Hints.h"

#include "Assemble.h"
#include "Book.h"
#include "TextTools.h"
#include "messages/Pipeline.h"

#include <gtest/gtest.h>

namespace tolvane::tests {

namespace {

namespace fs = std::filesystem;

// "StoreToLiteral 2, FallsOff 3": rows and the numbers of their lines.
std::string HintsIn(const Strings& lines, const char* pipeline = "WP") {
    if (!Assemble(lines, *FindPipeline(pipeline), 1).good) return "errors";
    std::string told;
    for (const hints::Hint& hint : hints::HintsOf(image::LinkedImage()))
        told += (told.empty() ? "" : ", ") + NameOf(*hint.row).substr(8) + " " + std::to_string(hint.line + 1);
    return told;
}

// The whole sources in the guide.
std::vector<Strings> SourcesOf(const std::string& guide) {
    std::vector<Strings> sources;
    bool isSource = false;
    for (const std::string& line : Split(guide, '\n')) {
        if (line == "```casl") sources.emplace_back();
        if (line.starts_with("```"))
            isSource = line == "```casl";
        else if (isSource)
            sources.back().push_back(line);
    }
    return sources;
}

} // namespace

TEST(Hints, EachOfItsLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"M START/ LAD GR1,3/L ; down/ SUBA GR1,=1/ JNZ L/ RET/ END", "BareLabel 3"},
        {"M START/ LD GR1,5/ CPA GR1,#0010/ ADDA GR1,-1/ LD GR2,5,GR1/ LAD GR3,7/ SLA GR3,1/ RET/ END",
         "NumberAsAddress 2, NumberAsAddress 3, NumberAsAddress 4"},
        {"M START/ LAD GR1,7/ ST GR1,=0/ ST GR1,A/ RET/A DS 1/ END", "StoreToLiteral 3"},
        {"M START/ LAD GR1,7/L ST GR1,L/ ST GR1,M/ IN L,A/ IN A,L/ OUT L,A/ ST GR1,L,GR1/ RET/A DS 256/ END",
         "StoreIntoInstruction 3, StoreIntoInstruction 4, StoreIntoInstruction 5, StoreIntoInstruction 6"},
        {"M START/ CALL S/A DC 1/S RET/ END", "FallsIntoData 2"},
        {"M START/ LD GR1,A/ JPL L/ JNZ L/A DC 1/L RET/ END", ""},
        {"M START/ LD GR1,A/ JPL L/A DC 1/L RET/ END", "FallsIntoData 3"},
        {"M START/ JUMP L/A DC 1/ NOP/B DC 1/L RET/ END", ""}, // nobody comes to the NOP
        {"M START/ CALL S/S RET/ END", "FallsIntoSubroutine 2"},
        {"M START/ CALL S/ RET/S LD GR1,A/T RET/A DC 1/ END", ""},
        {"M START/ CALL S/ CALL T/ RET/S LD GR1,A/T RET/A DC 1/ END", ""}, // one routine goes on into the other
        {"M START/ LAD GR1,1/ END/N START/ RET/ END", "FallsIntoSubroutine 2"},
        {"M START/ CALL N/ RET/ END/N START/ NOP/ END", "FallsOff 6"},
        {"M START/ ADDA GR1,=1/ CPA GR1,GR2/ ST GR3,A/ LD GR4,A,GR5/ SLL GR6,1/ RET/A DS 1/ END",
         "NeverSet 2, NeverSet 3, NeverSet 4, NeverSet 5, NeverSet 6"},
        {"M START/ XOR GR1,GR1/ SUBA GR2,GR2/ PUSH 0,GR3/ POP GR4/ ST GR4,A/ CALL S/ ST GR5,A/ RET/S RPUSH/ RPOP/ RET/"
         "A DS 256/ END",
         ""},
        {"M START/L ADDA GR1,GR2/ LAD GR2,1/ JNZ L/ RET/ END", ""}, // the second time something is there
    };
    for (const auto& [source, hints] : cases)
        for (const char* pipeline : {"WP", "NWW"})
            EXPECT_EQ(HintsIn(Split(source, '/'), pipeline), hints) << source << " in " << pipeline;
}

TEST(Hints, SoundProgramsDrawNone) {
    const fs::path root = fs::path(TOLVANE_TESTS).parent_path();
    int programs = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root / "examples")) {
        const bool isSource =
            entry.path().filename() == "solution.txt" || entry.path().parent_path().filename() == "src";
        if (!isSource) continue;
        EXPECT_EQ(HintsIn(Split(ReadFile(entry.path()), '\n')), "") << entry.path();
        ++programs;
    }
    for (const Strings& source : SourcesOf(ReadFile(root / "docs" / "guide.en.md"))) {
        const std::string hints = HintsIn(source);
        const bool isFault = hints == "errors" || hints == "FallsIntoData 2"; // shown as such
        EXPECT_TRUE(hints.empty() || isFault) << hints << " of\n" << source.front();
        ++programs;
    }
    EXPECT_GT(programs, 50);
}

} // namespace tolvane::tests
