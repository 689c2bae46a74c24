#pragma once
// Memory for big tables in large pages, where the system has them: a program that touches 10 MB once spends a quarter
// of its time on being given pages of 4 KB.

#include <cstddef>
#include <new>

namespace tolvane::platform {

// Throws std::bad_alloc where there is no more memory.
void* AllocatePages(std::size_t bytes);
void FreePages(void* pages);

// An allocator for vectors.
template <class T> struct LargePages {
    using value_type = T;

    LargePages() = default;
    template <class Other> LargePages(const LargePages<Other>&) {}

    T* allocate(std::size_t count) { return static_cast<T*>(AllocatePages(count * sizeof(T))); }
    void deallocate(T* pages, std::size_t) { FreePages(pages); }
    bool operator==(const LargePages&) const = default;
};

} // namespace tolvane::platform
