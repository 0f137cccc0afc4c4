// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_WINDING_KERNELS_H
#define VELLUM_SRC_SHAPES_WINDING_KERNELS_H

#include <cstddef>
#include <cstdint>

#include "types/instruction_set.h"
#include "vellum/points.h"

namespace Vellum::internal {

/// The fewest points that a kernel takes. A loop without branches is through with fewer before a kernel is under
/// way.
inline constexpr size_t kFewestWindingPoints = 24;

/// The winding number about (x, y) of a ring of @p count points, at least `kFewestWindingPoints`.
using WindingKernel = int64_t (*)(const DblPt* pts, size_t count, double x, double y);

/// The kernel for an instruction set that was built in; null for any other. All give the same number.
WindingKernel WindingKernelFor(InstructionSet set);

/// The winding number about (x, y) of a ring of any number of points but 0, by the fastest way that this processor
/// has.
int64_t WindingOfRing(const DblPt* pts, size_t count, double x, double y);

/// The same for few points, at least one. It tests every edge in full: in a small ring it is a toss which edges
/// cross the height of the point, and a branch on that costs more than the test.
int64_t WindingOfFewPlain(const DblPt* pts, size_t count, double x, double y);
int64_t WindingOfFewSse2(const DblPt* pts, size_t count, double x, double y);

int64_t WindingPlain(const DblPt* pts, size_t count, double x, double y);
int64_t WindingSse2(const DblPt* pts, size_t count, double x, double y);
int64_t WindingAvx2(const DblPt* pts, size_t count, double x, double y);
int64_t WindingAvx512(const DblPt* pts, size_t count, double x, double y);

/// What the edge from @p v to @p w adds to the winding number about (x, y). A point on the line of an edge counts
/// for either direction; NaN adds nothing. It is never called but always inlined, so that no copy compiled for a
/// more capable processor is there for the linker to pick.
[[gnu::always_inline]] inline int WindingOfEdge(const DblPt& v, const DblPt& w, double x, double y) {
    const double side = (w.x - v.x) * (y - v.y) - (x - v.x) * (w.y - v.y);
    if (v.y <= y) return w.y > y && side >= 0.0 ? 1 : 0;
    return v.y > y && w.y <= y && side <= 0.0 ? -1 : 0;
}

}  // namespace Vellum::internal

#endif
