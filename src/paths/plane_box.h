// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_PLANE_BOX_H
#define VELLUM_SRC_PATHS_PLANE_BOX_H

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

/// The values that a comparison chooses, and 0 for the others. Sums of powers of 2 stand for sets of bits: without
/// SSE 4.2 compilers take two 64-bit numbers that a comparison chooses out of their register one by one.
inline TwoDoubles Chosen(const TwoBits& areChosen, const TwoDoubles& values) {
    return areChosen ? values : TwoDoubles{};
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

/// The box of some points; the whole plane where a coordinate is not finite. Where a side is zero, its sign may be
/// that of any zero among the points.
inline PlaneBox BoxOfPoints(const DblPt* pts, size_t count) {
    // Every other point has a box of its own, since each step waits for the one before it.
    TwoDoubles least[2];
    TwoDoubles most[2];
    least[0] = least[1] = most[0] = most[1] = LoadTwo(&pts[0].x);
    // Stays zero unless a coordinate is not finite. What a comparison gives would be taken out of its register.
    TwoDoubles sum[2] = {};
    const auto enclose = [&](size_t i, size_t k) {
        const TwoDoubles p = LoadTwo(&pts[i].x);
        least[k] = p < least[k] ? p : least[k];
        most[k] = p > most[k] ? p : most[k];
        sum[k] += p * 0.0;
    };
    size_t i = 0;
    for (; i + 1 < count; i += 2) {
        enclose(i, 0);
        enclose(i + 1, 1);
    }
    if (i < count) enclose(i, 0);
    PlaneBox box{least[0][0], least[0][1], most[0][0], most[0][1]};
    box.Enclose({least[1][0], least[1][1], most[1][0], most[1][1]});
    // Coordinates so huge that they could overflow further on are taken for infinite ones.
    const bool isFinite = (box.minX + box.minY + box.maxX + box.maxY) * 0.0 == 0.0;
    sum[0] += sum[1];
    return isFinite && sum[0][0] + sum[0][1] == 0.0 ? box : WholePlane();
}

}  // namespace Vellum::internal

#endif
