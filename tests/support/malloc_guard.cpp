// SPDX-License-Identifier: MIT
#include "support/malloc_guard.h"

#include <cxxabi.h>

#include <exception>

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

// Where the standard library is part of the program, its exceptions are made under guard, in a reserve. On Windows the
// reserve's lock and what is kept of each thread need memory at their first use.
void OpenReserveOfExceptions() {
    failsOnce = true;
    abi::__cxa_free_exception(abi::__cxa_allocate_exception(1));
    failsOnce = false;
    static_cast<void>(std::uncaught_exceptions());
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
