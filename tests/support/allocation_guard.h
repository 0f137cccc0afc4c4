// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_ALLOCATION_GUARD_H
#define VELLUM_TESTS_SUPPORT_ALLOCATION_GUARD_H

#include <cstddef>

namespace support {

/// While one lives, allocations by operator new (library included) succeed `allowed` times and fail from then on. A
/// test program that uses it compiles support/allocation_guard.cpp.
class AllocationGuard {
public:
    explicit AllocationGuard(std::size_t allowed);
    ~AllocationGuard();
    AllocationGuard(const AllocationGuard&) = delete;
    AllocationGuard& operator=(const AllocationGuard&) = delete;

    /// How many allocations were asked for since the guard was made, failed ones included.
    std::size_t Requests() const;
    /// The size of the last allocation asked for, in bytes.
    std::size_t LastSize() const;
};

}  // namespace support

#endif
