// SPDX-License-Identifier: MIT
#include "vellum/segment.h"

#include <cfloat>
#include <cmath>

#include "vellum/geometry.h"
#include "vellum/matrix.h"

namespace Vellum {

void LineSegmentGeom::SetSort(const DblPt& p0, const DblPt& p1) {
    if (p0.x > p1.x || p0.y > p1.y) {
        *this = LineSegmentGeom(p0, p1);
    } else {
        *this = LineSegmentGeom(p1, p0);
    }
}

void LineSegmentGeom::ApplyTransform(const Mtx2D* m) {
    m->RealXfmPt(start);
    m->RealXfmPt(end);
}

double LineSegmentGeom::Slope(const DblPt& p0, const DblPt& p1) {
    constexpr double kNone = FLT_EPSILON;
    const double dx = p1.x - p0.x;
    const double dy = p1.y - p0.y;
    return std::fabs(dx) < kNone || std::fabs(dy) < kNone ? 0.0 : dy / dx;
}

double DistPtLine(const DblPt& p, const LineSegmentGeom& seg, bool exact) {
    return DistPtLine(p, seg.start, seg.end, exact);
}

}  // namespace Vellum
