// SPDX-License-Identifier: MIT
#ifndef VELLUM_MATRIX_STACK_H
#define VELLUM_MATRIX_STACK_H

/// @file
/// `Mtx2DStk`, a stack of transforms.

#include <cstdint>

#include "vellum/export.h"
#include "vellum/matrix.h"

namespace Vellum {

/// Saves and restores the current transform. It stores copies and never composes: for a nested transform the caller
/// multiplies first, for instance with `Mtx2D::Postmult`, and pushes the product.
class VELLUM_API Mtx2DStk {
public:
    uint32_t capacity;  ///< how many fit before the array grows; the array has one more
    uint32_t count = 0;
    int32_t topIndex = -1;  ///< count - 1: -1 in an empty stack
    Mtx2D* mtx;             ///< the array, from new[]; null where the constructor got no memory

    /// Room for 8 matrices.
    Mtx2DStk();
    Mtx2DStk(const Mtx2DStk&) = delete;
    ~Mtx2DStk();
    /// A copy of its own, of @p s's capacity. Where memory runs out nothing changes.
    Mtx2DStk& operator=(const Mtx2DStk& s);

    /// Pushes a copy of @p m, which may be a matrix of this stack. False, with nothing changed, where the array cannot
    /// grow.
    bool push(const Mtx2D& m);
    /// Does nothing on an empty stack.
    void pop();
    /// The matrix on top. The stack must not be empty.
    VELLUM_INLINE Mtx2D& top() { return mtx[topIndex]; }
    VELLUM_INLINE const Mtx2D& top() const { return mtx[topIndex]; }
    VELLUM_INLINE bool empty() const { return count == 0; }
    VELLUM_INLINE unsigned Size() const { return count; }
    /// Forgets the matrices; the array is kept.
    VELLUM_INLINE void Clear() {
        count = 0;
        topIndex = -1;
    }
    /// Doubles the capacity; `push` calls it where needed. False, with nothing changed, where memory runs out.
    bool Realloc();
};

}  // namespace Vellum

#endif
