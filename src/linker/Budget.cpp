#include "linker/Linker.h"
#include "linker/LinkerMsgs.h"
#include "machine/Tcomet2.h"

namespace tolvane {

template <class Ch> bool CkMaxMrySize() {
    std::int64_t total = 0;
    for (const PrgData<Ch>& program : b->Prg<Ch>())
        total += program.PrgWordKazu;
    if (total >= AddressCount) {
        b->Error(NoLine, LinkerMsg.BeyondAddresses, {total});
        return false;
    }
    if (total <= MaxImageWords) return true;
    b->Error(NoLine, LinkerMsg.BeyondImage, {total});
    return false;
}

TOLVANE_BOTH_KINDS(CkMaxMrySize)

} // namespace tolvane
