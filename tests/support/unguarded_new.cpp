// SPDX-License-Identifier: MIT

// An operator new whose memory comes from the C allocator past the guard of support/malloc_guard.cpp.

#include <cstddef>
#include <cstdlib>
#include <new>

// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the linker's name for it
extern "C" void* __real_malloc(std::size_t size);

void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return __real_malloc(size == 0 ? 1 : size); }

void* operator new(std::size_t size) {
    if (void* block = operator new(size, std::nothrow)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
