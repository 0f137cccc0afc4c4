// SPDX-License-Identifier: MIT
#include "support/malloc_guard.h"

#include <exception>

namespace {

bool guarded = false;
std::size_t allowance = 0;
std::size_t requests = 0;
std::size_t lastSize = 0;

bool Admit(std::size_t size) {
    if (!guarded) return true;
    ++requests;
    lastSize = size;
    if (allowance == 0) return false;
    --allowance;
    return true;
}

}  // namespace

namespace support {

MallocGuard::MallocGuard(std::size_t allowed) {
    allowance = allowed;
    requests = 0;
    lastSize = 0;
    // The first exception may need memory for what the language keeps of each thread, and end the program without it.
    static_cast<void>(std::uncaught_exceptions());
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
