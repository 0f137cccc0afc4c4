// SPDX-License-Identifier: MIT
#ifndef VELLUM_CONTAINERS_H
#define VELLUM_CONTAINERS_H

/// @file
/// Two small growable containers of plain numbers: `DblPtVec`, which collects the points of a polyline, and `DblStk`, a
/// stack of doubles. Each keeps one block from the C allocator, grows it by doubling, and says by a false result where
/// memory runs out; it is unchanged then.

#include <cstddef>
#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"

namespace Vellum {

/// A growable array of points.
///
/// Slot 0 of the block is a sentinel before the first element, so that pointers can walk backwards:
/// @code
///     for (DblPt* p = v.rbegin(); p != v.rend(); --p) ...
/// @endcode
/// Assignment shares the block: afterwards both vectors hold the same one and both would free it. A host that assigns
/// sets `buffer` of one of the two to null before either is destroyed.
class VELLUM_API DblPtVec {
public:
    uint32_t capacity;   ///< the block holds capacity + 2 slots
    uint32_t count = 1;  ///< slots in use, the sentinel included: 1 in an empty vector
    DblPt* buffer;       ///< the block; null where the constructor got no memory

    /// @p n elements less one fit before the first growth. A capacity of 0, which cannot be doubled, grows to 2 with
    /// the first element: whatever @p n is, nothing is written outside the block.
    explicit DblPtVec(unsigned n = 32);
    DblPtVec(const DblPtVec&) = delete;
    ~DblPtVec();
    /// Shares @p v's block; the block that this vector had is not freed.
    VELLUM_INLINE DblPtVec& operator=(const DblPtVec& v) {
        capacity = v.capacity;
        count = v.count;
        buffer = v.buffer;
        return *this;
    }

    /// Element @p i, unchecked.
    VELLUM_INLINE DblPt& operator[](unsigned i) { return buffer[static_cast<std::size_t>(i) + 1]; }
    /// The first element. Without a block all four iterators are null.
    VELLUM_INLINE DblPt* begin() const { return buffer == nullptr ? nullptr : buffer + 1; }
    /// One past the last element.
    VELLUM_INLINE DblPt* end() const { return buffer == nullptr ? nullptr : buffer + count; }
    /// The last element; `rend()` in an empty vector.
    VELLUM_INLINE DblPt* rbegin() const { return buffer == nullptr ? nullptr : buffer + count - 1; }
    /// The sentinel before the first element.
    VELLUM_INLINE DblPt* rend() const { return buffer; }
    VELLUM_INLINE unsigned size() const { return count - 1; }
    VELLUM_INLINE bool empty() const { return count == 1; }
    /// Forgets the elements; the block is kept.
    VELLUM_INLINE void clear() { count = 1; }

    /// Appends @p p, which may be an element of this vector. False, with nothing changed, where the block cannot grow.
    bool push_back(const DblPt& p);
    /// Removes the element at @p pos and returns @p pos, which then holds the following element or is `end()`. Null,
    /// with nothing changed, where @p pos is no element.
    DblPt* erase(DblPt* pos);
    /// Does nothing; pointers are advanced by adding to them. Kept for hosts that call it.
    VELLUM_INLINE void advance(DblPt*, unsigned) {}

private:
    bool Realloc();
};

/// A stack of doubles.
///
/// Assignment shares the block, as for `DblPtVec`.
class VELLUM_API DblStk {
public:
    uint32_t capacity;  ///< the block holds capacity + 1 values
    uint32_t count = 0;
    int32_t topIndex = -1;  ///< count - 1: -1 in an empty stack
    double* buffer;         ///< the block; null where the constructor got no memory

    DblStk();
    DblStk(const DblStk&) = delete;
    ~DblStk();
    /// Shares @p s's block; the block that this stack had is not freed.
    VELLUM_INLINE DblStk& operator=(const DblStk& s) {
        capacity = s.capacity;
        count = s.count;
        topIndex = s.topIndex;
        buffer = s.buffer;
        return *this;
    }

    /// False, with nothing changed, where the block cannot grow.
    bool push(const double& v);
    /// Does nothing on an empty stack.
    void pop();
    /// The value on top. The stack must not be empty.
    VELLUM_INLINE double top() const { return buffer[topIndex]; }
    VELLUM_INLINE unsigned Size() const { return count; }
    VELLUM_INLINE bool empty() const { return count == 0; }
    /// Forgets the values; the block is kept.
    VELLUM_INLINE void Clear() {
        count = 0;
        topIndex = -1;
    }

private:
    bool Realloc();
};

}  // namespace Vellum

#endif
