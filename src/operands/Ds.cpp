#include "operands/Ds.h"

#include "machine/Tcomet2.h"
#include "operands/DsMsgs.h"
#include "operands/Numbers.h"
#include "records/Lines.h"

namespace tolvane {

namespace {

template <class Ch> View<Ch> CountOf(int line) {
    return TrimBlank<Ch>(LineAt<Ch>(line).Oprnd(1));
}

// Sets the words of a line to the count. False if the count goes on behind its number.
template <class Ch> bool SetDsWords(SrcData<Ch>& src, View<Ch> count) {
    std::size_t end = 0;
    src.word_kazu = ReadDecimal(count, end);
    return end == count.size();
}

} // namespace

template <class Ch> bool OprndAtDS(int line) {
    const View<Ch> count = CountOf<Ch>(line);
    if (count.empty()) {
        cs->Error(line, DsMsg.NoOperand);
        return false;
    }
    for (std::size_t i = 0; i < count.size(); ++i) {
        if (count[i] == Ch('+') || IsDigit(count[i])) continue;
        cs->Error(line, DsMsg.NonNumeral, {count.substr(i, CharLength(count, i)), count});
        return false;
    }
    return true;
}

template <class Ch> bool SetWordKazuAtDS(int line) {
    SrcData<Ch>& src = LineAt<Ch>(line);
    const View<Ch> count = CountOf<Ch>(line);
    if (!SetDsWords(src, count)) cs->Error(line, DsMsg.CountNotRead, {count});
    if (src.word_kazu > AddressMax) {
        cs->Error(line, DsMsg.BeyondAddresses);
        return false;
    }
    if (src.word_kazu > MaxImageWords) {
        cs->Error(line, DsMsg.BeyondImage);
        return false;
    }
    return true;
}

template <class Ch> void SetMryInAtDS(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SrcData<Ch>& src = LineAt<Ch>(line);
        if (HasShape(src.op, Shape::Ds)) SetDsWords(src, CountOf<Ch>(line));
    }
}

TOLVANE_BOTH_KINDS(OprndAtDS)
TOLVANE_BOTH_KINDS(SetWordKazuAtDS)
TOLVANE_BOTH_KINDS(SetMryInAtDS)

} // namespace tolvane
