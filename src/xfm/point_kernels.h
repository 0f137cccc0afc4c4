// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_XFM_POINT_KERNELS_H
#define VELLUM_SRC_XFM_POINT_KERNELS_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "vellum/matrix.h"

namespace Vellum::internal {

struct Extents {
    double xMin;
    double yMin;
    double xMax;
    double yMax;
};

/// The codes that go with the points of a polygon; both null where none are wanted.
struct CodeArrays {
    const uint32_t* in;
    uint32_t* out;
};

/// The loops over arrays of points for one class of matrix. Points are x and y in turn. Input and output are distinct
/// arrays, which need no more than the alignment of their numbers.
struct ClassKernels {
    void (*toModel)(const Mtx2D& m, int n, const double* in, double* out);
    void (*toDevice)(const Mtx2D& m, int n, const double* in, int32_t* out);
    void (*toEighths)(const Mtx2D& m, int n, const double* in, int32_t* out);
    void (*toShort)(const Mtx2D& m, int n, const double* in, int16_t* out);
    Extents (*inPlace)(const Mtx2D& m, int n, double* points);

    /// These merge coincident neighbours and return the output count.
    int (*polygonToModel)(const Mtx2D& m, int n, const double* in, double* out, CodeArrays codes);
    int (*polygonToDevice)(const Mtx2D& m, int n, const double* in, int32_t* out, CodeArrays codes);
};

/// The loops for one instruction set.
struct PointKernels {
    ClassKernels aligned;
    ClassKernels swapped;
    ClassKernels general;

    /// A matrix marked as the identity goes the general way: the mark outlives changes of its elements.
    const ClassKernels& ForType(int32_t type) const {
        return type == Mtx2DAxisAligned ? aligned : type == Mtx2DAxisSwapped ? swapped : general;
    }
};

/// For processors that have no other. Elsewhere only tests link them.
extern const PointKernels kPlainPointKernels;
extern const PointKernels kSse2PointKernels;
extern const PointKernels kAvx2PointKernels;
extern const PointKernels kAvx512PointKernels;

/// The loops for a matrix, by the best instruction set that this processor has.
const ClassKernels& KernelsFor(const Mtx2D& m);

/// An array of points as the numbers that it consists of. No point is touched, so there need not be one.
template <class Point>
auto* Numbers(Point* points) {
    using Number = std::remove_reference_t<decltype((points->x))>;
    static_assert(sizeof(Point) == 2 * sizeof(Number) && std::is_standard_layout_v<Point>);
    static_assert(offsetof(Point, x) == 0 && offsetof(Point, y) == sizeof(Number));
    return reinterpret_cast<Number*>(points);
}

}  // namespace Vellum::internal

#endif
