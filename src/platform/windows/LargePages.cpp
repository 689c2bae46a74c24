#include "platform/LargePages.h"

#include <cstdlib>

namespace tolvane::platform {

// Large pages are a privilege here that users do not have.
void* AllocatePages(std::size_t bytes) {
    void* const pages = std::malloc(bytes);
    if (pages == nullptr) throw std::bad_alloc();
    return pages;
}

void FreePages(void* pages) {
    std::free(pages);
}

} // namespace tolvane::platform
