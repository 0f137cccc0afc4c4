// SPDX-License-Identifier: MIT
#include <new>

#include "vellum/circles.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"
#include "vellum/segment.h"

namespace Vellum {

void CircleGeom::ClosestPt(const DblPt& p, DblPt& out) const {
    FindLineCircleIntersect(center, radius, center, p, p, out);
}

ClosedShape* CircleGeom::Clone() const { return new (std::nothrow) CircleGeom(*this); }

void CircleGeom::Print() const {
    DbgPrintf("CircleGeom circle = {");
    DbgPrintf("DblPt(%lf, %lf), ", center.x, center.y);
    DbgPrintf("%lf};\n", radius);
}

bool CircleGeom::Contains(const DblPt& p, double tol) const { return CircleGeom::Contains(p.x, p.y, tol); }

bool CircleGeom::Contains(double x, double y, double) const { return radius > center.ApproxDist(x, y); }

void CircleGeom::GetCentroid(DblPt& c) const { c = center; }

void CircleGeom::ApplyTransform(const Mtx2D* m) {
    m->RealXfmPt(center);
    radius *= m->GetScale();
}

bool FindLineCircleIntersect(const CircleGeom& c, const LineSegmentGeom& s, const DblPt& ref, DblPt& out) {
    return FindLineCircleIntersect(c.center, c.radius, s.start, s.end, ref, out);
}

}  // namespace Vellum
