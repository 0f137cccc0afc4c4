// SPDX-License-Identifier: MIT
#include "vellum/clearance.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <new>
#include <span>

#include "shapes/clearance_search.h"
#include "shapes/point_chain.h"
#include "vellum/segment.h"

namespace Vellum {

using internal::FindWitnesses;
using internal::PointsOf;
using internal::Witnesses;

namespace {

// The four sides of a rectangle as a chain, clockwise from the lower-left corner and back to it.
class Outline {
public:
    explicit Outline(const AlignedDblRect& r)
        : corners_{r.ll, DblPt(r.ll.x, r.ur.y), r.ur, DblPt(r.ur.x, r.ll.y), r.ll} {}

    std::span<const DblPt> Points() const { return corners_; }

private:
    DblPt corners_[5];
};

// The outputs are written last: they may be points of the shapes.
bool ClearChains(std::span<const DblPt> first, std::span<const DblPt> second, DblPt* onFirst, DblPt* onSecond) {
    if (first.empty() || second.empty()) return false;
    const Witnesses nearest = FindWitnesses(first, second);
    *onFirst = nearest.onA;
    *onSecond = nearest.onB;
    return true;
}

bool ClearCircleAndChain(const CircleGeom& circle, std::span<const DblPt> chain, DblPt* onA, DblPt* onB) {
    if (chain.empty()) return false;
    // A single vertex: it has no edge, so only the chain's edges count.
    const DblPt nearest = FindWitnesses(chain, std::span(&circle.center, 1)).onA;
    DblPt onCircle;
    const bool meets = FindLineCircleIntersect(circle, LineSegmentGeom(nearest, circle.center), nearest, onCircle);
    *onB = nearest;
    if (meets) *onA = onCircle;
    return true;
}

template <class A, class B>
bool IsAnyNull(const A* a, const B* b, const DblPt* onA, const DblPt* onB) {
    return a == nullptr || b == nullptr || onA == nullptr || onB == nullptr;
}

}  // namespace

bool CircleCircleGeomClearance(const CircleGeom* a, const CircleGeom* b, DblPt*, DblPt* onA, DblPt* onB) {
    if (IsAnyNull(a, b, onA, onB)) return false;
    const LineSegmentGeom centres(a->center, b->center);
    if (std::fabs(centres.Length() - (a->radius + b->radius)) <= FLT_EPSILON) return false;
    DblPt first;
    DblPt second;
    const bool meetsA = FindLineCircleIntersect(*a, centres, b->center, first);
    const bool meetsB = FindLineCircleIntersect(*b, centres, a->center, second);
    if (meetsA) *onA = first;
    if (meetsB) *onB = second;
    return true;
}

bool CirclePolygonGeomClearance(const CircleGeom* a, const PolygonGeom* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearCircleAndChain(*a, PointsOf(*b), onA, onB);
}

bool CirclePolylineGeomClearance(const CircleGeom* a, const PolylineGeom* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearCircleAndChain(*a, PointsOf(*b), onA, onB);
}

bool CircleRectangleGeomClearance(const CircleGeom* a, const AlignedDblRect* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearCircleAndChain(*a, Outline(*b).Points(), onA, onB);
}

bool PolygonPolygonGeomClearance(const PolygonGeom* a, const PolygonGeom* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearChains(PointsOf(*a), PointsOf(*b), onA, onB);
}

bool PolygonPolylineGeomClearance(const PolygonGeom* a, const PolylineGeom* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearChains(PointsOf(*a), PointsOf(*b), onA, onB);
}

bool PolylinePolylineGeomClearance(const PolylineGeom* a, const PolylineGeom* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearChains(PointsOf(*a), PointsOf(*b), onA, onB);
}

bool PolygonRectangleGeomClearance(const PolygonGeom* a, const AlignedDblRect* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearChains(PointsOf(*a), Outline(*b).Points(), onA, onB);
}

bool PolylineRectangleGeomClearance(const PolylineGeom* a, const AlignedDblRect* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearChains(Outline(*b).Points(), PointsOf(*a), onB, onA);
}

bool RectangleRectangleGeomClearance(const AlignedDblRect* a, const AlignedDblRect* b, DblPt*, DblPt* onA, DblPt* onB) {
    return !IsAnyNull(a, b, onA, onB) && ClearChains(Outline(*a).Points(), Outline(*b).Points(), onA, onB);
}

bool ToPolylineGeom(const DblPtVec& pts, PolylineGeom** out) {
    if (out == nullptr || pts.size() < 2) return false;
    auto* const polyline = new (std::nothrow) PolylineGeom(pts.size());
    if (polyline == nullptr) return false;
    // A vector that shared its block and gave it up has a size and no points.
    const auto held = static_cast<size_t>(pts.end() - pts.begin());
    std::copy_n(pts.begin(), std::min<size_t>(held, polyline->NPts()), polyline->Pts());
    *out = polyline;
    return true;
}

}  // namespace Vellum
