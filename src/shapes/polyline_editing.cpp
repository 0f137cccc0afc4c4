// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cfloat>
#include <optional>

#include "shapes/point_chain.h"
#include "vellum/geometry.h"
#include "vellum/polylines.h"

namespace Vellum {

namespace {

constexpr double kTrimTolerance = FLT_EPSILON;

// Where a trim cuts: the point of the polyline that moves to the cut, and the one of its two arguments that it moves
// to.
struct Cut {
    uint32_t index;
    const DblPt* at;
};

bool Coincide(const DblPt& p, const DblPt& q) { return p.IsEqualTo(q, kTrimTolerance); }

bool IsOnSegment(const DblPt& p, const DblPt& from, const DblPt& to) {
    return DistPtLine(p, from, to, false) < kTrimTolerance;
}

// Of a and b the one on the segment, the nearer one to its start where both are; null where neither is.
const DblPt* FirstOnSegment(const DblPt& from, const DblPt& to, const DblPt& a, const DblPt& b) {
    const bool hasA = IsOnSegment(a, from, to);
    const bool hasB = IsOnSegment(b, from, to);
    if (hasA && hasB) return from.ApproxDist(b) < from.ApproxDist(a) ? &b : &a;
    return hasA ? &a : hasB ? &b : nullptr;
}

// A cut at the end of a segment is left to the next one, which starts there.
std::optional<Cut> FindFrontCut(const PolylineGeom& line, const DblPt& a, const DblPt& b) {
    for (uint32_t i = 1; i < line.nPts; ++i) {
        const DblPt* const candidate = FirstOnSegment(line.pts[i - 1], line.pts[i], a, b);
        if (candidate != nullptr && !Coincide(*candidate, line.pts[i])) return Cut{i - 1, candidate};
    }
    return {};
}

std::optional<Cut> FindBackCut(const PolylineGeom& line, const DblPt& p) {
    for (uint32_t i = line.nPts; i > 1; --i) {
        const DblPt& before = line.pts[i - 2];
        if (IsOnSegment(p, line.pts[i - 1], before) && !Coincide(p, before)) return Cut{i - 1, &p};
    }
    return {};
}

// Appends the points of other that follow point from, in either direction, up to point to. What finds no memory is
// left out.
void AppendRun(PolylineGeom& line, const PolylineGeom& other, uint32_t from, uint32_t to) {
    while (from != to) {
        from = from < to ? from + 1 : from - 1;
        line.AddPoint(other.pts[from]);
    }
}

// Leaves the single point p; a polyline without a block first gets one for it.
bool ReduceTo(PolylineGeom& line, const DblPt& p) {
    if (line.pts == nullptr && !internal::ChainOf(line).Allocate(1)) return false;
    line.pts[0] = p;
    line.nPts = 1;
    return true;
}

// Whether p coincides with a point of other, its ends before its interior; i is the last index tried.
bool MeetsVertex(const DblPt& p, const PolylineGeom& other, unsigned& i, double tol) {
    i = 0;
    if (other.nPts == 0) return false;
    const auto meets = [&](uint32_t k) {
        i = k;
        return p.IsEqualTo(other.pts[k], tol);
    };
    const uint32_t last = other.nPts - 1;
    if (meets(0) || meets(last)) return true;
    for (uint32_t k = 1; k < last; ++k)
        if (meets(k)) return true;
    return false;
}

}  // namespace

void PolylineGeom::TrimFront(const DblPt& p, unsigned k) {
    if (nPts == 0 || k >= nPts - 1) return;
    const DblPt moved = p;
    std::copy(pts + k, pts + nPts, pts);
    pts[0] = moved;
    nPts -= k;
}

void PolylineGeom::TrimBack(const DblPt& p, unsigned k) {
    if (k == 0 || k >= nPts) return;
    pts[k] = p;
    nPts = k + 1;
}

void PolylineGeom::TrimBack(unsigned k) {
    if (k == 0 && nPts == 0) return;
    nPts = k + 1;
}

bool PolylineGeom::Trim(const DblPt& a, const DblPt& b, bool allowPoint) {
    const DblPt first = a;
    const DblPt second = b;
    if (Coincide(first, second)) return allowPoint && ReduceTo(*this, first);
    if (nPts == 0) return false;
    if (Coincide(first, First()) && Coincide(second, Last())) return true;
    if (Coincide(second, First()) && Coincide(first, Last())) return true;

    const std::optional<Cut> front = FindFrontCut(*this, first, second);
    if (!front) return false;
    const std::optional<Cut> back = FindBackCut(*this, front->at == &first ? second : first);
    if (!back || front->index > back->index) return false;
    TrimBack(*back->at, back->index);
    TrimFront(*front->at, front->index);
    return true;
}

void PolylineGeom::AppendVertices(const PolylineGeom* other, unsigned i, unsigned j, double tol) {
    if (nPts == 0 || i == j) return;
    uint32_t lo = std::min(i, j);
    uint32_t hi = std::max(i, j);
    if (other->pts[lo].IsEqualTo(First(), tol) || other->pts[hi].IsEqualTo(First(), tol)) {
        ReverseVertices();
        if (other == this) {
            lo = nPts - 1 - lo;
            hi = nPts - 1 - hi;
        }
    }
    if (other->pts[lo].IsEqualTo(Last(), tol)) {
        AppendRun(*this, *other, lo, hi);
    } else if (other->pts[hi].IsEqualTo(Last(), tol)) {
        AppendRun(*this, *other, hi, lo);
    }
}

bool PolylineGeom::ConnectsTo(const PolylineGeom* other, unsigned& myIdx, unsigned& otherIdx, double tol) const {
    for (myIdx = 0; myIdx < nPts; ++myIdx)
        if (MeetsVertex(pts[myIdx], *other, otherIdx, tol)) return true;
    return false;
}

}  // namespace Vellum
