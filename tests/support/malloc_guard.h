// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_SUPPORT_MALLOC_GUARD_H
#define VELLUM_TESTS_SUPPORT_MALLOC_GUARD_H

#include <cstddef>

namespace support {

/// While one lives, calls of malloc and realloc from the library's objects succeed `allowed` times and fail from then
/// on. Only for tests of the internals, which are linked with those objects: see vellum_guard_malloc.
class MallocGuard {
public:
    explicit MallocGuard(std::size_t allowed);
    ~MallocGuard();
    MallocGuard(const MallocGuard&) = delete;
    MallocGuard& operator=(const MallocGuard&) = delete;

    /// How many blocks were asked for since the guard was made, failed requests included.
    std::size_t Requests() const;
    /// The size of the last block asked for, in bytes.
    std::size_t LastSize() const;
};

}  // namespace support

#endif
