// SPDX-License-Identifier: MIT
#include "vellum/polylines.h"

#include <algorithm>

#include "shapes/point_chain.h"

namespace Vellum {

using internal::ChainOf;
using internal::PointsIn;
using internal::PointsOf;

PolylineGeom::PolylineGeom(unsigned n) : PolylineGeom() {
    ChainOf(*this).Build(n, [](size_t) { return DblPt(); });
}

PolylineGeom::PolylineGeom(unsigned n, double* xs, double* ys) : PolylineGeom() {
    if (ChainOf(*this).Build(n, PointsIn(xs, ys))) RecalcExtents();
}

PolylineGeom::PolylineGeom(unsigned n, const DblPt* p) : PolylineGeom() {
    if (ChainOf(*this).Build(n, PointsIn(p))) RecalcExtents();
}

PolylineGeom::PolylineGeom(const PolylineGeom& src) : Shape(src), nPts(0), pts(nullptr), extents(src.extents) {
    ChainOf(*this).CopyFrom(PointsOf(src));
}

PolylineGeom::PolylineGeom(const PolylineGeom& src, unsigned keepTo, unsigned at, unsigned n, const DblPt* ins)
    : PolylineGeom() {
    if (!ChainOf(*this).Allocate(size_t{src.nPts} + n)) return;
    const uint32_t kept = keepTo + 1;
    std::copy_n(src.pts, kept, pts);
    if (kept < at) std::fill(pts + kept, pts + at, DblPt());
    std::copy_n(ins, n, pts + at);
    std::copy(src.pts + at, src.pts + src.nPts, pts + at + n);
    RecalcExtents();
}

PolylineGeom::PolylineGeom(const PolylineGeom& src, bool atFront, unsigned n, const DblPt* ins) : PolylineGeom() {
    if (!ChainOf(*this).Allocate(size_t{src.nPts} + n)) return;
    if (atFront) {
        std::copy_n(src.pts, src.nPts, std::copy_n(ins, n, pts));
    } else {
        const uint32_t taken = n > src.nPts ? n - src.nPts : 0;
        DblPt* const rest = std::copy_n(ins, taken, std::copy_n(src.pts, src.nPts, pts));
        std::fill(rest, End(), DblPt());
    }
    RecalcExtents();
}

PolylineGeom& PolylineGeom::operator=(const PolylineGeom& src) {
    if (this != &src) ChainOf(*this).Assign(PointsOf(src), src.extents);
    return *this;
}

PolylineGeom::~PolylineGeom() { ChainOf(*this).Release(); }

bool PolylineGeom::HasVertex(const DblPt& p) const { return internal::HasVertex(PointsOf(*this), p); }

void PolylineGeom::GetBBoxCenter(DblPt& c) const { c = internal::CenterOf(extents); }

void PolylineGeom::GetCentroid(DblPt& c) const { c = internal::Centroid(PointsOf(*this)); }

double PolylineGeom::ComputeLength() const {
    double length = 0.0;
    for (uint32_t i = 1; i < nPts; ++i)
        length += pts[i - 1].Dist(pts[i]);
    return length;
}

void PolylineGeom::RecalcExtents() { ChainOf(*this).RecalcExtents(); }

bool PolylineGeom::AddPoint(const DblPt& p) { return ChainOf(*this).InsertAt(nPts, p); }

bool PolylineGeom::PrependPoint(const DblPt& p) { return ChainOf(*this).InsertAt(0, p); }

bool PolylineGeom::InsertPoint(unsigned i, const DblPt& p) { return ChainOf(*this).InsertAt(i + 1, p); }

void PolylineGeom::MoveVertexTo(unsigned i, const DblPt& p) { ChainOf(*this).MoveVertexTo(i, p); }

void PolylineGeom::MoveVertexTo(DblPt& vertex, const DblPt& p) {
    vertex = p;
    RecalcExtents();
}

void PolylineGeom::ReverseVertices() {
    if (pts != nullptr) std::reverse(Start(), End());
}

void PolylineGeom::ApplyTransform(const Mtx2D* m) { ChainOf(*this).ApplyTransform(*m); }

void PolylineGeom::Print() const { internal::Print(PointsOf(*this)); }

}  // namespace Vellum
