// SPDX-License-Identifier: MIT
#include "support/allocation_guard.h"

#include <cstdlib>
#include <new>

namespace {

bool guarded = false;
std::size_t allowance = 0;
std::size_t requests = 0;
std::size_t lastSize = 0;

void* Allocate(std::size_t size) {
    if (guarded) {
        ++requests;
        lastSize = size;
        if (allowance == 0) return nullptr;
        --allowance;
    }
    return std::malloc(size == 0 ? 1 : size);
}

}  // namespace

namespace support {

AllocationGuard::AllocationGuard(std::size_t allowed) {
    allowance = allowed;
    requests = 0;
    lastSize = 0;
    guarded = true;
}

AllocationGuard::~AllocationGuard() { guarded = false; }

std::size_t AllocationGuard::Requests() const { return requests; }

std::size_t AllocationGuard::LastSize() const { return lastSize; }

}  // namespace support

void* operator new(std::size_t size) {
    if (void* block = Allocate(size)) return block;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return Allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }
