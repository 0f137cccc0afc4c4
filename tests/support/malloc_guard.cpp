// SPDX-License-Identifier: MIT
#include "support/malloc_guard.h"

#include <new>

namespace {

bool guarded = false;
bool failsOnce = false;
std::size_t allowance = 0;
std::size_t requests = 0;
std::size_t lastSize = 0;

bool Admit(std::size_t size) {
    if (failsOnce) return failsOnce = false;
    if (!guarded) return true;
    ++requests;
    lastSize = size;
    if (allowance == 0) return false;
    --allowance;
    return true;
}

// Where the standard library is part of the program, exceptions are made under guard too, in a reserve. What the
// reserve and the throwing of exceptions need of memory at their first use they get now.
void OpenReserveOfExceptions() {
    failsOnce = true;
    try {
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
        failsOnce = false;
    }
}

}  // namespace

namespace support {

MallocGuard::MallocGuard(std::size_t allowed) {
    OpenReserveOfExceptions();
    allowance = allowed;
    requests = 0;
    lastSize = 0;
    guarded = true;
}

MallocGuard::~MallocGuard() { guarded = false; }

std::size_t MallocGuard::Requests() const { return requests; }

std::size_t MallocGuard::LastSize() const { return lastSize; }

}  // namespace support

// What the linker's --wrap calls in place of the C allocator, and how the C allocator is reached behind it.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {

void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void* __wrap_malloc(std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size) { return Admit(size) ? __real_malloc(size) : nullptr; }

void* __wrap_realloc(void* block, std::size_t size) { return Admit(size) ? __real_realloc(block, size) : nullptr; }
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
