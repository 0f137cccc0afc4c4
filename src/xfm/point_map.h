// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_XFM_POINT_MAP_H
#define VELLUM_SRC_XFM_POINT_MAP_H

#include <cstdint>
#include <limits>

#include "vellum/matrix.h"

namespace Vellum::internal {

/// The maps of the three classes of matrices. Each skips the elements that are zero in its class, and each adds the
/// translation last: the order of operations is part of the result.
struct AlignedMap {
    const Mtx2D& m;

    real_pt_t operator()(double x, double y) const { return {x * m.m11 + m.dx, y * m.m22 + m.dy}; }
};

struct SwappedMap {
    const Mtx2D& m;

    real_pt_t operator()(double x, double y) const { return {y * m.m21 + m.dx, x * m.m12 + m.dy}; }
};

struct GeneralMap {
    const Mtx2D& m;

    real_pt_t operator()(double x, double y) const {
        return {(x * m.m11 + y * m.m21) + m.dx, (x * m.m12 + y * m.m22) + m.dy};
    }
};

/// Maps one point by the class that the matrix is marked with. A matrix marked as the identity goes the general way:
/// the mark outlives changes of its elements.
inline real_pt_t MapPoint(const Mtx2D& m, double x, double y) {
    switch (m.type) {
        case Mtx2DAxisAligned:
            return AlignedMap{m}(x, y);
        case Mtx2DAxisSwapped:
            return SwappedMap{m}(x, y);
        default:
            return GeneralMap{m}(x, y);
    }
}

/// Rounds half away from zero. What does not fit, NaN included, becomes the smallest int on every machine; the language
/// leaves such a conversion undefined, so it is never made.
inline int32_t DeviceRound(double v) {
    const double shifted = v < 0.0 ? v - 0.5 : v + 0.5;
    const bool fits = shifted > -2147483649.0 && shifted < 2147483648.0;
    return fits ? static_cast<int32_t>(shifted) : std::numeric_limits<int32_t>::min();
}

inline int_pt_t DeviceRound(const real_pt_t& p) { return {DeviceRound(p.x), DeviceRound(p.y)}; }

}  // namespace Vellum::internal

#endif
