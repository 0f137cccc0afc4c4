// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_POLYGON_H
#define VELLUM_SRC_PATHS_CLIP_POLYGON_H

#include <cstddef>
#include <cstdint>

#include "vellum/records.h"

namespace Vellum::internal {

inline bool IsEndCode(uint32_t code) { return (code & ~uint32_t{1}) == 2; }

/// The code of a point inside a polygon that corresponds to @p code.
inline uint32_t OpenCode(uint32_t code) { return IsEndCode(code) ? code - 2 : code; }

/// One polygon of a set: a run of at least two points, of which only the last has an end code.
///
/// What is clipped is its ring of vertices: a point that equals the one before it is no vertex of its own, but a last
/// point that equals the first is one.
struct ClipPolygon {
    const real_pt_t* pts;
    const uint32_t* codes;
    size_t count;

    /// Whether point @p i repeats the one before it.
    bool IsRepeated(size_t i) const { return i > 0 && pts[i].x == pts[i - 1].x && pts[i].y == pts[i - 1].y; }

    /// The vertex that point @p i belongs to: the first of its run of equal points.
    size_t VertexOf(size_t i) const {
        while (IsRepeated(i))
            --i;
        return i;
    }
};

/// What the edge from a to b adds to the winding number about p. Comparisons as they stand: a point exactly on an edge
/// gets nothing from it, and so does NaN.
inline int EdgeWinding(const real_pt_t& p, const real_pt_t& a, const real_pt_t& b) {
    const double isLeft = (p.y - a.y) * (b.x - a.x) - (b.y - a.y) * (p.x - a.x);
    if (p.y >= a.y) return b.y > p.y && isLeft > 0.0 ? 1 : 0;
    return p.y >= b.y && isLeft < 0.0 ? -1 : 0;
}

}  // namespace Vellum::internal

#endif
