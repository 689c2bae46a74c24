#include "platform/LargePages.h"

#include <cstdlib>
#include <sys/mman.h>

namespace tolvane::platform {

void* AllocatePages(std::size_t bytes) {
    constexpr std::size_t page = std::size_t{2} << 20;
    const bool isLarge = bytes >= page;
    const std::size_t rounded = (bytes + page - 1) / page * page;
    if (rounded < bytes) throw std::bad_alloc();
    void* const pages = isLarge ? std::aligned_alloc(page, rounded) : std::malloc(bytes);
    if (pages == nullptr) throw std::bad_alloc();
#ifdef MADV_HUGEPAGE
    if (isLarge) madvise(pages, rounded, MADV_HUGEPAGE); // a wish
#endif
    return pages;
}

void FreePages(void* pages) {
    std::free(pages);
}

} // namespace tolvane::platform
