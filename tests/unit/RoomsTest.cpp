// The rooms of src/: an include goes to the file's own room or to one that stands in a lower line of the README's
// picture, so that the arrows neither go up nor round.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace tolvane::tests {

namespace fs = std::filesystem;

namespace {

const fs::path Root = fs::path(TOLVANE_TESTS).parent_path();

std::vector<std::string> LinesOf(const fs::path& path) {
    std::vector<std::string> lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

// The line of the picture in which each room stands, the top one first.
std::map<std::string, int> RoomsOfReadme() {
    std::map<std::string, int> rooms;
    int level = -1;
    for (const std::string& line : LinesOf(Root / "README.md")) {
        if (line == "```rooms") level = 0;
        if (level < 0 || line.starts_with("```rooms")) continue;
        if (line.starts_with("```")) break;
        std::istringstream names(line);
        for (std::string name; names >> name;)
            rooms[name] = level;
        ++level;
    }
    return rooms;
}

} // namespace

TEST(Rooms, IncludesGoDown) {
    const auto rooms = RoomsOfReadme();
    ASSERT_FALSE(rooms.empty()) << "README.md has no picture of the rooms";
    for (const auto& entry : fs::recursive_directory_iterator(Root / "src")) {
        const std::string file = fs::relative(entry.path(), Root / "src").string();
        const std::string room = file.substr(0, file.find('/'));
        if (!entry.is_regular_file() || room == "main.cpp") continue;
        ASSERT_EQ(rooms.count(room), 1U) << "the picture leaves out " << room;
        for (const std::string& line : LinesOf(entry.path())) {
            if (!line.starts_with("#include \"")) continue;
            const std::string needed = line.substr(10, line.find('/') - 10);
            ASSERT_EQ(rooms.count(needed), 1U) << file << ": " << line;
            EXPECT_TRUE(needed == room || rooms.at(needed) > rooms.at(room)) << file << ": " << line;
        }
    }
}

} // namespace tolvane::tests
