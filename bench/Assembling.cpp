// Assembling and linking 20,000 instruction lines with 5,000 labels, against half of it.

#include "Timing.h"
#include "machine/Tcomet2.h"
#include "records/Records.h"
#include "stages/Stages.h"

#include <cstdio>
#include <string>
#include <vector>

using namespace tolvane;

namespace {

// Lines of which every fourth has a label that another line names.
std::vector<TextW> Source(int lines) {
    const auto label = [](int i) { return std::string("L").append(std::to_string(i)); };
    std::vector<TextW> source = {u"MAIN  START"};
    for (int i = 0; i < lines; ++i) {
        const int labels = lines / 4;
        const std::string head = i % 4 == 0 ? label(i / 4) : "";
        const std::string named = label(static_cast<int>((i / 4 * 7919LL + 1) % labels));
        const char* const forms[] = {"LD", "ADDA", "CPA", "ST"};
        const std::string line = head + "  " + forms[i % 4] + "  GR1, " + named + ", GR2 ; a comment";
        source.emplace_back(line.begin(), line.end());
    }
    source.emplace_back(u"      RET");
    source.emplace_back(u"      END");
    return source;
}

class Assembly {
public:
    explicit Assembly(int lines) : source(Source(lines)) {}

    void Prepare() {
        BeginAssembly(game, DefaultPipeline(), 1);
        for (const TextW& line : source) {
            b->AddLine<char16_t>(line);
        }
    }
    void Run() { good = RunStages(game) && RunLink(game); }
    double Measure() {
        return bench::LeastSeconds(
            5, [this] { Prepare(); }, [this] { Run(); });
    }
    bool Good() const { return good; }

private:
    std::vector<TextW> source;
    TMsgBase game;
    bool good = false;
};

} // namespace

int main() {
    Assembly half(10'000);
    Assembly whole(20'000);
    const double halfTime = half.Measure();
    const double wholeTime = whole.Measure();
    if (!half.Good() || !whole.Good()) std::printf("\nthe source was refused\n");
    std::printf("\n10,000 lines  %7.1f msec\n", halfTime * 1e3);
    std::printf("20,000 lines  %7.1f msec\n", wholeTime * 1e3);
    std::printf("ratio         %7.2f\n", wholeTime / halfTime);
}
