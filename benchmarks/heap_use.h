// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_HEAP_USE_H
#define VELLUM_BENCHMARKS_HEAP_USE_H

#include <cstddef>

namespace VellumBench {

/// How many bytes of the C allocator's, and so of operator new's, are in use more than when this was made. One at a
/// time.
class HeapUse {
public:
    /// Where there is no way to count, nothing is ever in use.
    HeapUse();
    HeapUse(const HeapUse&) = delete;
    HeapUse& operator=(const HeapUse&) = delete;
    ~HeapUse();

    double Now() const;
    double Most() const;
};

}  // namespace VellumBench

#endif
