#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"

namespace tolvane {

template <class Ch> int CkMaxMrySize() {
    std::int64_t total = 0;
    for (const PrgData<Ch>& program : b->Prg<Ch>())
        total += program.PrgWordKazu;
    if (total >= AddressCount) {
        b->Error(NoLine, LinkerMsg.BeyondAddresses, {total});
        return -1;
    }
    if (total <= MaxImageWords) return 0;
    b->Error(NoLine, LinkerMsg.BeyondImage, {total});
    return -2;
}

TOLVANE_BOTH_KINDS(CkMaxMrySize)

} // namespace tolvane
