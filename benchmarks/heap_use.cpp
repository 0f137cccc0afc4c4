// SPDX-License-Identifier: MIT
#include "heap_use.h"

#include <algorithm>

namespace {

bool isCounting = false;
std::ptrdiff_t inUse = 0;
std::ptrdiff_t mostInUse = 0;

}  // namespace

#ifdef __GLIBC__
#include <malloc.h>

namespace {

void Count(std::ptrdiff_t bytes) {
    inUse += bytes;
    mostInUse = std::max(mostInUse, inUse);
}

// With what the allocator keeps before it.
std::ptrdiff_t SizeOf(void* block) {
    return block == nullptr ? 0 : static_cast<std::ptrdiff_t>(malloc_usable_size(block) + sizeof(size_t));
}

}  // namespace

// These take the places of the C allocator's functions in the whole program, libraries included.
extern "C" {

void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void __libc_free(void* block);

void* malloc(size_t size) noexcept {
    void* const block = __libc_malloc(size);
    if (isCounting) Count(SizeOf(block));
    return block;
}

void* calloc(size_t count, size_t size) noexcept {
    void* const block = __libc_calloc(count, size);
    if (isCounting) Count(SizeOf(block));
    return block;
}

void* realloc(void* block, size_t size) noexcept {
    if (!isCounting) return __libc_realloc(block, size);
    const std::ptrdiff_t former = SizeOf(block);
    void* const resized = __libc_realloc(block, size);
    if (resized != nullptr || size == 0) Count(SizeOf(resized) - former);
    return resized;
}

void free(void* block) noexcept {
    if (isCounting) Count(-SizeOf(block));
    __libc_free(block);
}
}
#endif

namespace VellumBench {

HeapUse::HeapUse() {
    inUse = mostInUse = 0;
    isCounting = true;
}

HeapUse::~HeapUse() { isCounting = false; }

double HeapUse::Now() const { return static_cast<double>(inUse); }

double HeapUse::Most() const { return static_cast<double>(mostInUse); }

}  // namespace VellumBench
