// The dump of a full image, against half of one.

#include "Timing.h"
#include "machine/Tcomet2.h"
#include "records/Records.h"
#include "reports/Dump.h"

#include <cstdio>

using namespace tolvane;

namespace {

// Every word is a labelled line of its own.
void Fill(int words) {
    b->Reset();
    comet2->InitComet2();
    for (int a = 0; a < words; ++a) {
        const std::string label = std::string("L").append(std::to_string(a));
        SrcDataW& line = b->vecSrcW.emplace_back();
        line.AbAdr = a;
        line.strLabel = b->Keep<char16_t>(TextW(label.begin(), label.end()));
        line.strOp = ViewW(u"DC");
        line.strOprndCom = ViewW(u"12345");
        comet2->LineOfWord[static_cast<std::size_t>(a)] = a;
        comet2->Memory[static_cast<std::size_t>(a)] = 12345;
    }
    comet2->ReservedWords = words;
}

double Measure(int words) {
    Fill(words);
    std::size_t size = 0;
    const double time = bench::LeastSeconds(
        5, [] {}, [&] { size = DumpText(*comet2, "dump.txt").size(); });
    std::printf("%6d words  %7.1f msec, %zu bytes\n", words, time * 1e3, size);
    return time;
}

} // namespace

int main() {
    const double half = Measure(MaxImageWords / 2);
    const double whole = Measure(MaxImageWords);
    std::printf("ratio  %7.2f\n", whole / half);
}
