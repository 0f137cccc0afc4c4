// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_PLANE_BOX_H
#define VELLUM_SRC_PATHS_PLANE_BOX_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#include "vellum/points.h"

namespace Vellum::internal {

// Two numbers are what every processor's vector registers hold, and compilers do not find the way there by
// themselves.
using TwoDoubles = double __attribute__((vector_size(16)));
using TwoBits = int64_t __attribute__((vector_size(16)));

inline TwoDoubles LoadTwo(const double* at) {
    TwoDoubles two;
    std::memcpy(&two, at, sizeof two);
    return two;
}

/// A box whose sides may be infinite.
struct PlaneBox {
    double minX;
    double minY;
    double maxX;
    double maxY;

    bool Meets(const PlaneBox& box) const {
        return minX <= box.maxX && box.minX <= maxX && minY <= box.maxY && box.minY <= maxY;
    }

    /// A box of NaN adds nothing.
    void Enclose(const PlaneBox& box) {
        minX = box.minX < minX ? box.minX : minX;
        minY = box.minY < minY ? box.minY : minY;
        maxX = box.maxX > maxX ? box.maxX : maxX;
        maxY = box.maxY > maxY ? box.maxY : maxY;
    }

    bool IsWholePlane() const { return minX == -std::numeric_limits<double>::infinity(); }
};

constexpr PlaneBox WholePlane() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    return {-kInfinity, -kInfinity, kInfinity, kInfinity};
}

/// What encloses nothing yet.
constexpr PlaneBox NoPlane() {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    return {kInfinity, kInfinity, -kInfinity, -kInfinity};
}

/// The box of a segment with finite ends.
inline PlaneBox BoxOfSegment(const DblPt& p, const DblPt& q) {
    return {p.x < q.x ? p.x : q.x, p.y < q.y ? p.y : q.y, p.x < q.x ? q.x : p.x, p.y < q.y ? q.y : p.y};
}

/// The box of some points, as `AlignedDblRect::Enclose` makes it from the first of them on; the whole plane where a
/// coordinate is not finite.
inline PlaneBox BoxOfPoints(const DblPt* pts, size_t count) {
    PlaneBox box{pts[0].x, pts[0].y, pts[0].x, pts[0].y};
    bool hasNan = false;
    for (size_t i = 0; i < count; ++i) {
        box.Enclose({pts[i].x, pts[i].y, pts[i].x, pts[i].y});
        hasNan |= std::isunordered(pts[i].x, pts[i].y);
    }
    const bool isFinite = (box.minX + box.minY + box.maxX + box.maxY) * 0.0 == 0.0;
    return isFinite && !hasNan ? box : WholePlane();
}

}  // namespace Vellum::internal

#endif
