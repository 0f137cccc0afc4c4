// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_POINT_CHAIN_H
#define VELLUM_SRC_SHAPES_POINT_CHAIN_H

#include <cstddef>
#include <cstdint>
#include <span>

#include "vellum/points.h"
#include "vellum/rectangles.h"

namespace Vellum::internal {

/// The fields of a polyline or a polygon, and what both change in them in the same way. Points that are passed in
/// may be the chain's own: they count as they were before the call.
struct PointChain {
    uint32_t& nPts;
    DblPt*& pts;
    AlignedDblRect& extents;

    bool IsEmpty() const { return pts == nullptr || nPts == 0; }

    /// Gives an empty chain a block for @p count points, whose values are the caller's to set. False, with the chain
    /// still empty, where @p count is 0 or there is no memory for as many.
    bool Allocate(size_t count) const;
    /// Gives an empty chain the points @p at(0) to @p at(n - 1). Fewer than two make no chain.
    template <class PointAt>
    bool Build(unsigned n, PointAt at) const {
        if (n < kFewestPoints || !Allocate(n)) return false;
        for (size_t i = 0; i < n; ++i)
            pts[i] = at(i);
        return true;
    }
    /// Gives an empty chain copies of @p points, however few.
    void CopyFrom(std::span<const DblPt> points) const;
    /// Replaces points and extents; changes nothing where there is no memory for them.
    void Assign(std::span<const DblPt> points, const AlignedDblRect& box) const;
    void Release() const;

    /// Makes @p p point @p i, moves those from there on up, and widens the extents. False, with nothing changed,
    /// where there is no memory for another point.
    bool InsertAt(uint32_t i, const DblPt& p) const;
    /// Moves point @p i and recomputes the extents; nothing happens where there is no such point.
    void MoveVertexTo(unsigned i, const DblPt& p) const;
    /// Needs a block.
    void RecalcExtents() const;
    void ApplyTransform(const Mtx2D& m) const;

    /// A chain is not built from fewer.
    static constexpr unsigned kFewestPoints = 2;
};

template <class Geom>
PointChain ChainOf(Geom& geom) {
    return {geom.nPts, geom.pts, geom.extents};
}

template <class Geom>
std::span<const DblPt> PointsOf(const Geom& geom) {
    return {geom.pts, geom.pts == nullptr ? 0 : geom.nPts};
}

/// The box of the points @p at(0) to @p at(n - 1), of which there must be one. A NaN in the first of them stays in
/// the box; one in any other is passed over.
template <class PointAt>
AlignedDblRect BoxOf(size_t n, PointAt at) {
    DblPt least = at(0);
    DblPt most = least;
    for (size_t i = 1; i < n; ++i) {
        const DblPt p = at(i);
        least.x = p.x < least.x ? p.x : least.x;
        least.y = p.y < least.y ? p.y : least.y;
        most.x = p.x > most.x ? p.x : most.x;
        most.y = p.y > most.y ? p.y : most.y;
    }
    AlignedDblRect box;
    box.TSet(least, most);
    return box;
}

/// The points of an array, and those of two arrays of coordinates, as `Build` and `BoxOf` ask for them.
inline auto PointsIn(const DblPt* points) {
    return [points](size_t i) { return points[i]; };
}
inline auto PointsIn(const double* xs, const double* ys) {
    return [xs, ys](size_t i) { return DblPt(xs[i], ys[i]); };
}

bool HasVertex(std::span<const DblPt> points, const DblPt& p);
/// The mean of the points; NaN without one.
DblPt Centroid(std::span<const DblPt> points);
/// The centre of a box as the chains compute it, from the size without its sign.
DblPt CenterOf(const AlignedDblRect& box);
/// Writes the points to the debugger output; nothing where there are none.
void Print(std::span<const DblPt> points);

}  // namespace Vellum::internal

#endif
