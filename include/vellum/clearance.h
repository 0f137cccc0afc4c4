// SPDX-License-Identifier: MIT
#ifndef VELLUM_CLEARANCE_H
#define VELLUM_CLEARANCE_H

/// @file
/// The clearance between two shapes, as a pair of witness points.
///
/// Each function writes the point of the first shape to @p onA and that of the second to @p onB; the gap is the
/// distance between them, which the caller measures. There is no sign: shapes that overlap, or lie one in the other,
/// have witness points like any others. False, with nothing written, where a shape or an output is null, or a polygon
/// or polyline has no point. The third argument is there for hosts that pass one and is neither read nor written; it
/// may be null.
///
/// Polygons and polylines are walked along their stored edges: the closing edge of a polygon is not looked at. For that
/// one too, repeat the first point. Of all pairs of a vertex and an edge the nearest by the octagonal estimate of the
/// distance is chosen (see `DblPt::ApproxDist`), which can be a pair up to 8.3 per cent farther apart than the
/// truly nearest; crossing edges are not detected. Among equal distances the earliest wins: first the edges of the
/// first shape against the vertices of the second, then the other way round, both in the order of the points.
///
/// Large shapes are searched through an index that lives as long as the call and takes memory in proportion to their
/// points; the pair found is the one that the plain search finds. Where there is no memory for it the plain search
/// runs, in a time that grows with the product of the numbers of points.

#include "vellum/circles.h"
#include "vellum/containers.h"
#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/polylines.h"
#include "vellum/rectangles.h"

namespace Vellum {

/// @name Circles
/// The point on a circle is where its line to the other witness meets it, as `FindLineCircleIntersect` finds it:
/// untouched where that finds nothing, NaN where the line has no direction (concentric circles, a centre on the chain),
/// and the circle's own centre where the other witness or centre is so near that the line passes for a tangent (their
/// distance times the radius below about 1.7e-4).
/// @{

/// False, with nothing written, where the circles touch within 2^-23. Also for overlapping circles and for one inside
/// the other the witnesses lie on the line of the centres.
VELLUM_API bool CircleCircleGeomClearance(const CircleGeom* a, const CircleGeom* b, DblPt* extra, DblPt* onA,
                                          DblPt* onB);
VELLUM_API bool CirclePolygonGeomClearance(const CircleGeom* a, const PolygonGeom* b, DblPt* extra, DblPt* onA,
                                           DblPt* onB);
VELLUM_API bool CirclePolylineGeomClearance(const CircleGeom* a, const PolylineGeom* b, DblPt* extra, DblPt* onA,
                                            DblPt* onB);
/// The rectangle is walked clockwise from its lower-left corner, here and below; all its four sides count.
VELLUM_API bool CircleRectangleGeomClearance(const CircleGeom* a, const AlignedDblRect* b, DblPt* extra, DblPt* onA,
                                             DblPt* onB);
/// @}

/// @name Chains of points and rectangles
/// @{
VELLUM_API bool PolygonPolygonGeomClearance(const PolygonGeom* a, const PolygonGeom* b, DblPt* extra, DblPt* onA,
                                            DblPt* onB);
VELLUM_API bool PolygonPolylineGeomClearance(const PolygonGeom* a, const PolylineGeom* b, DblPt* extra, DblPt* onA,
                                             DblPt* onB);
VELLUM_API bool PolylinePolylineGeomClearance(const PolylineGeom* a, const PolylineGeom* b, DblPt* extra, DblPt* onA,
                                              DblPt* onB);
VELLUM_API bool PolygonRectangleGeomClearance(const PolygonGeom* a, const AlignedDblRect* b, DblPt* extra, DblPt* onA,
                                              DblPt* onB);
/// Among equal distances the rectangle's edges count first here.
VELLUM_API bool PolylineRectangleGeomClearance(const PolylineGeom* a, const AlignedDblRect* b, DblPt* extra, DblPt* onA,
                                               DblPt* onB);
VELLUM_API bool RectangleRectangleGeomClearance(const AlignedDblRect* a, const AlignedDblRect* b, DblPt* extra,
                                                DblPt* onA, DblPt* onB);
/// @}

/// Makes a polyline of the points of a vector, owned by the caller. Its extents stay (0, 0)-(0, 0) until
/// `PolylineGeom::RecalcExtents`. False, with @p out untouched, where @p out is null, there are fewer than two points
/// or no memory for the object; where there is none for its points, the result is true and the polyline empty.
VELLUM_API bool ToPolylineGeom(const DblPtVec& pts, PolylineGeom** out);

}  // namespace Vellum

#endif
