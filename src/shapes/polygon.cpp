// SPDX-License-Identifier: MIT
#include <new>
#include <span>

#include "shapes/point_chain.h"
#include "shapes/winding_kernels.h"
#include "vellum/geometry.h"
#include "vellum/polylines.h"

namespace Vellum {

using internal::BoxOf;
using internal::ChainOf;
using internal::PointChain;
using internal::PointsIn;
using internal::PointsOf;

namespace {

bool WindsAround(std::span<const DblPt> ring, double x, double y) {
    return !ring.empty() && internal::WindingOfRing(ring.data(), ring.size(), x, y) != 0;
}

}  // namespace

PolygonGeom::PolygonGeom(unsigned n) : PolygonGeom() {
    ChainOf(*this).Build(n, [](size_t) { return DblPt(); });
}

PolygonGeom::PolygonGeom(unsigned n, double* xs, double* ys) : PolygonGeom() {
    ChainOf(*this).Build(n, PointsIn(xs, ys));
    if (n >= PointChain::kFewestPoints) extents = BoxOf(n, PointsIn(xs, ys));
}

PolygonGeom::PolygonGeom(unsigned n, const DblPt* p) : PolygonGeom() {
    ChainOf(*this).Build(n, PointsIn(p));
    if (n >= PointChain::kFewestPoints) extents = BoxOf(n, PointsIn(p));
}

PolygonGeom::PolygonGeom(const PolygonGeom& src) : ClosedShape(src), nPts(0), pts(nullptr), extents(src.extents) {
    ChainOf(*this).CopyFrom(PointsOf(src));
}

PolygonGeom& PolygonGeom::operator=(const PolygonGeom& src) {
    if (this != &src) ChainOf(*this).Assign(PointsOf(src), src.extents);
    return *this;
}

PolygonGeom::~PolygonGeom() { ChainOf(*this).Release(); }

bool PolygonGeom::HasVertex(const DblPt& p) const { return internal::HasVertex(PointsOf(*this), p); }

bool PolygonGeom::AddPoint(DblPt& p) { return ChainOf(*this).InsertAt(nPts, p); }

void PolygonGeom::MoveVertexTo(unsigned i, const DblPt& p) { ChainOf(*this).MoveVertexTo(i, p); }

void PolygonGeom::GetBBoxCenter(DblPt& c) const { c = internal::CenterOf(extents); }

void PolygonGeom::ClosestPt(const DblPt& p, DblPt& out) const {
    // No edge is nearer than the start of the search, which remembers a segment without length at the origin.
    DistPtLine(p, DblPt(), DblPt(), out, true);
}

ClosedShape* PolygonGeom::Clone() const { return new (std::nothrow) PolygonGeom(*this); }

void PolygonGeom::Print() const { internal::Print(PointsOf(*this)); }

bool PolygonGeom::Contains(const DblPt& p, double) const { return WindsAround(PointsOf(*this), p.x, p.y); }

bool PolygonGeom::Contains(double x, double y, double) const { return WindsAround(PointsOf(*this), x, y); }

void PolygonGeom::GetCentroid(DblPt& c) const { c = internal::Centroid(PointsOf(*this)); }

void PolygonGeom::ApplyTransform(const Mtx2D* m) { ChainOf(*this).ApplyTransform(*m); }

}  // namespace Vellum
