// The rooms of src/: an include goes to the file's own room or to one that stands in a lower line of the README's
// picture, so that the arrows neither go up nor round.

#include "TextTools.h"

#include <gtest/gtest.h>

namespace tolvane::tests {

namespace fs = std::filesystem;

TEST(Rooms, IncludesGoDown) {
    const fs::path root = fs::path(TOLVANE_TESTS).parent_path();
    std::map<std::string, int> rooms; // the line of the picture in which each stands, the top one first
    const std::string readme = ReadFile(root / "README.md");
    const std::string picture = readme.substr(readme.find("```rooms\n") + 9);
    int level = 0;
    for (const std::string& line : Lines(picture.substr(0, picture.find("```")))) {
        for (const std::string& name : Words(line.substr(0, line.size() - 1)))
            rooms[name] = level;
        ++level;
    }
    for (const auto& entry : fs::recursive_directory_iterator(root / "src")) {
        const std::string file = fs::relative(entry.path(), root / "src").string();
        const std::string room = file.substr(0, file.find('/'));
        if (!entry.is_regular_file() || room == "main.cpp") continue;
        ASSERT_EQ(rooms.count(room), 1U) << "the picture leaves out " << room;
        for (const std::string& line : Lines(ReadFile(entry.path()))) {
            if (!line.starts_with("#include \"")) continue;
            const std::string needed = line.substr(10, line.find('/') - 10);
            ASSERT_EQ(rooms.count(needed), 1U) << file << ": " << line;
            EXPECT_TRUE(needed == room || rooms.at(needed) > rooms.at(room)) << file << ": " << line;
        }
    }
}

} // namespace tolvane::tests
