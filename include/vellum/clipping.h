// SPDX-License-Identifier: MIT
#ifndef VELLUM_CLIPPING_H
#define VELLUM_CLIPPING_H

/// @file
/// Clipping of sets of polygons against a rectangle that may be turned.
///
/// Which function to use: `ClipPolygonSetComplete` to draw. `ClipPolygonSet` where the output must match, vertex for
/// vertex, what hosts have stored: it leaves out some polygons that lie within a turned rectangle.
///
/// What both have in common. A polygon is a run of points up to one with code 2 or 3; stray end codes before a polygon
/// are passed over, and a tail without an end code is ignored. Each polygon is clipped on its own: to keep a hole a
/// hole, fill all the rings of a polygon together by the even-odd rule. A polygon of a single point, or of equal
/// points, gives nothing. The rectangle is used through its four corners alone, in their order, whatever they are.
///
/// In the output the last point of a polygon has code 3 where it would be 1 and code 2 otherwise. The other points
/// carry the code of the input point that they were; a crossing has the code of the point that the clipped edge starts
/// at, or 0 where a stretch along the rectangle begins; the rectangle's corners have 0. Polygons that lie wholly within
/// the rectangle and touch no side are copied as they stand, with their codes and repeated points.
///
/// Both append to @p out: the caller owns its arrays and makes them large enough for what is there and for
/// `ClipPolygonSetMaxPts` more; nothing is reallocated. They must not overlap the input's. The calls keep nothing,
/// write nothing but @p out, and may run on different sets at once. Where working memory runs out, the polygon that
/// needed it is left out, and what stood in @p out stays; so is a polygon that would carry the count past
/// 2,147,483,647.
///
/// Any coordinates may be given. Edges with a NaN coordinate meet nothing.
///
/// @code
///     std::vector<Vellum::real_pt_t> pts(Vellum::ClipPolygonSetMaxPts(&map));
///     std::vector<uint32_t> codes(pts.size());
///     Vellum::DrwPSetT visible{0, pts.data(), codes.data()};
///     Vellum::ClipPolygonSetComplete(&map, &visible, &view);
/// @endcode

#include <cstddef>

#include "vellum/export.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"

namespace Vellum {

/// The intersection of each polygon of @p in with @p clip, traced along the outlines (Greiner and Hormann's method).
///
/// Its quirks are kept, since stored drawings depend on them:
/// - Polygons that no side meets are looked into only where edges lie apart from sides, by their boxes, both to the
///   left and to the right, or both below and above. In a turned rectangle many polygons lack that and are left out,
///   though they lie wholly inside, as is a turned rectangle within a polygon.
/// - A vertex on a side of the rectangle may count twice or not at all. The hit at the start of an edge is moved by
///   2^-23 of the edge's length into it. A trace that could then never come back to its start is given up: its polygon
///   is left out.
/// - An edge whose direction vector equals a side's within 2^-23 on both axes never meets that side.
///
/// @p in and @p clip are not modified.
VELLUM_API void ClipPolygonSet(DrwPSetT* in, DrwPSetT* out, DblRect* clip);

/// The same service for hosts that must not lose area. Containment is decided by the inside tests alone, and a polygon
/// that cannot be traced safely (a vertex on a side, an edge along one, crossings that do not alternate) is clipped by
/// the four sides in turn. For a convex rectangle and a polygon that does not cross itself, the polygons appended
/// enclose the intersection, up to rounding in proportion to the polygon's own extent. That holds for coordinates whose
/// products neither overflow nor vanish, about 1e-150 to 1e150.
///
/// Clipped by the sides in turn, several pieces come out as one polygon, joined by stretches that run along a side
/// there and back; points that are not finite are passed over. Where the corners enclose no convex area, polygons are
/// traced as `ClipPolygonSet` traces them.
VELLUM_API void ClipPolygonSetComplete(const DrwPSetT* in, DrwPSetT* out, const DblRect* clip);

/// The most points that clipping @p in, by either function, can append, whatever the rectangle. One pass over the
/// points.
///
/// For a polygon of v vertices (repeated points counted once) and e edges of some length the bound is 2 v + 8 e + 4, or
/// its number of points where that is more. Why it holds: an edge has at most one crossing with each side, so there are
/// c <= 4 e. A trace appends, walk by walk, a crossing and the vertices up to the next one. There are 2 c places where
/// a walk can start, a crossing in either ring, and each starts at most one in all the traces that end.
///
/// - Where c is even, entries and exits pair up along each ring, and of two traces that are each other's reverse one is
///   made: c walks, each stretch walked once, c + v + 4 points at most.
/// - Where c is odd and above 1, one crossing of each ring is never arrived at: 2 c - 2 walks at most, which walk a
///   stretch at most once from each end: 2 (v + 4) + 2 c - 2 points, with c <= 4 e - 1.
/// - A single crossing gives the whole of both rings, v + 6 points.
///
/// Clipping by the four sides adds at each at most half as many points as there are, in all (3/2)^4 v, which is less.
VELLUM_API size_t ClipPolygonSetMaxPts(const DrwPSetT* in);

}  // namespace Vellum

#endif
