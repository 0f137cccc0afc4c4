// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_REACH_H
#define VELLUM_SRC_PATHS_CONNECTOR_REACH_H

#include <cfloat>
#include <cmath>
#include <limits>

#include "paths/plane_box.h"

namespace Vellum::internal {

/// The tolerance of the connector's bounds tests.
constexpr double kConnectorBounds = FLT_EPSILON;

/// How far apart the boxes of two segments may lie so that a step of the connector on them still has an effect.
///
/// Let A and B be segments with finite coordinates, t the tolerance of the run, neither NaN nor +infinity, e the
/// bounds tolerance and u = 2^-53. What a step does hangs on one of these:
///   (1) a computed crossing point P is in the bounds of both;
///   (2) the computed distance between an end of A and an end of B is below t;
///   (3) a computed foot F is in the bounds of one and its computed distance from an end v of the other is below t.
/// (The parallel steps ask whether a distance is not t or more, and a NaN is not. But F in bounds and the ends are
/// finite, and the distance of finite points, overflow or not, is no NaN.) How P and F came about does not matter,
/// nor how far from the true points they are: only that they passed these tests.
///
/// Say that on some axis A ends at a and B begins at b > a, and let m = |a|. Then, to first order in u:
///   (1) p + e rounded is b or more and p - e rounded is a or less, so b - a <= 2e + u (|p + e| + |p - e|), where p
///       lies between a - e and b + e or close to there.
///   (2) The computed distance is no less than |b' - a'| (1 - 3u) for ends a' <= a and b' >= b, but where the square
///       underflows, which is for differences below 2^-510. So b - a <= t (1 + 4u) or b - a < 2^-510.
///   (3) With v on the side of A: f + e rounded is b or more and f - v <= t (1 + 4u) or f - v < 2^-510, so
///       b - a <= t (1 + 4u) + e + u |f + e| or less than 2^-510 + e + u |f + e|. Likewise with v on the side of B.
/// As b <= m + (b - a), the sum is b - a <= (max(t, e) + e) (1 + 16u) + 8u m in each case. `Around` adds twice that
/// or more in each rounded term and so is safe from its own rounding too; with an overflow it reaches everywhere.
/// The same holds for a box about several segments, since x - 8u |x| grows with x.
///
/// Where t is NaN or +infinity or a coordinate is not finite none of this holds: NaN distances pass for near ones,
/// and a foot out of bounds counts as far away by the largest number. Such a tolerance reaches everywhere, and the
/// box of such a segment is the whole plane. Below a t of -infinity there is no distance: (1) is left, as with any
/// other negative one.
class ConnectorReach {
public:
    explicit ConnectorReach(double tol)
        : margin_(std::isnan(tol) ? std::numeric_limits<double>::infinity()
                                  : (std::fmax(tol, kConnectorBounds) + kConnectorBounds) * (1.0 + kSlack)) {}

    PlaneBox Around(const PlaneBox& box) const {
        return {box.minX - Margin(box.minX), box.minY - Margin(box.minY), box.maxX + Margin(box.maxX),
                box.maxY + Margin(box.maxY)};
    }

private:
    static constexpr double kSlack = 0x1p-48;

    double Margin(double side) const { return margin_ + std::fabs(side) * kSlack; }

    const double margin_;
};

}  // namespace Vellum::internal

#endif
