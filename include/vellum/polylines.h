// SPDX-License-Identifier: MIT
#ifndef VELLUM_POLYLINES_H
#define VELLUM_POLYLINES_H

/// @file
/// Chains of points: `PolylineGeom`, which is open, and `PolygonGeom`, whose last point is joined to the first.
///
/// Both keep their points in one block of the C allocator, which grows by exactly one point at a time and stays as
/// it is where the chain is cut, and cache their extents. The cache follows some operations and not others, as each
/// says; path algorithms rely on the cheap ones leaving it alone. A default-constructed chain has the extents
/// (0, 0)-(0, 0), and `AddPoint` widens what is there: a chain built from nothing by `AddPoint` has extents that
/// include the origin. `PolylineGeom::RecalcExtents` makes them tight.
///
/// Indices are not checked unless a member says so. Where memory runs out a constructor leaves an empty chain, a
/// growing operation answers false and changes nothing, and an assignment changes nothing.

#include <cmath>
#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/rectangles.h"
#include "vellum/rounding.h"
#include "vellum/shape.h"

namespace Vellum {

/// An open chain of points.
class VELLUM_API PolylineGeom : public Shape {
public:
    uint32_t nPts;
    DblPt* pts;              ///< owned, from malloc; null in an empty polyline that was not cut down to it
    AlignedDblRect extents;  ///< the cached bounding box

    /// @name Construction
    /// From fewer than two points the next three make an empty polyline; the others take what they are given.
    /// @{
    VELLUM_INLINE PolylineGeom() : nPts(0), pts(nullptr) {}
    /// @p n points at the origin.
    explicit PolylineGeom(unsigned n);
    PolylineGeom(unsigned n, double* xs, double* ys);
    PolylineGeom(unsigned n, const DblPt* p);
    /// Copies the points and the cached extents as they are.
    PolylineGeom(const PolylineGeom& src);
    /// @p src with points inserted: its points 0 to @p keepTo, then the @p n points @p ins at positions @p at onwards,
    /// then its points from @p at to the end. Pass keepTo = at - 1 to insert before point @p at; for at = 0 that is
    /// 0xFFFFFFFF, which takes nothing from the head.
    PolylineGeom(const PolylineGeom& src, unsigned keepTo, unsigned at, unsigned n, const DblPt* ins);
    /// @p src with points at one end. At the front: the @p n points @p ins, then those of @p src. At the back: those of
    /// @p src, then from @p ins only as many as bring the count up to @p n, so nothing where @p src has @p n points or
    /// more; the polyline has src.nPts + n points all the same, and those left over are (0, 0). Hosts size their
    /// arrays by that count.
    PolylineGeom(const PolylineGeom& src, bool atFront, unsigned n, const DblPt* ins);
    PolylineGeom& operator=(const PolylineGeom& src);
    ~PolylineGeom() override;
    /// @}

    /// @name Points
    /// @{
    VELLUM_INLINE unsigned NPts() const { return nPts; }
    VELLUM_INLINE DblPt* Pts() { return pts; }
    VELLUM_INLINE const DblPt* Pts() const { return pts; }
    VELLUM_INLINE DblPt* Start() { return pts; }
    VELLUM_INLINE const DblPt* Start() const { return pts; }
    /// One past the last point.
    VELLUM_INLINE DblPt* End() { return pts + nPts; }
    VELLUM_INLINE const DblPt* End() const { return pts + nPts; }
    /// The last point, and one before the first: the ends of a walk backwards. Both null where there is no block.
    VELLUM_INLINE DblPt* RStart() { return pts == nullptr ? nullptr : pts + nPts - 1; }
    VELLUM_INLINE const DblPt* RStart() const { return pts == nullptr ? nullptr : pts + nPts - 1; }
    VELLUM_INLINE DblPt* REnd() { return pts == nullptr ? nullptr : pts - 1; }
    VELLUM_INLINE const DblPt* REnd() const { return pts == nullptr ? nullptr : pts - 1; }
    VELLUM_INLINE DblPt& First() { return pts[0]; }
    VELLUM_INLINE const DblPt& First() const { return pts[0]; }
    VELLUM_INLINE DblPt& Last() { return pts[nPts - 1]; }
    VELLUM_INLINE const DblPt& Last() const { return pts[nPts - 1]; }
    VELLUM_INLINE const DblPt& StartPt() const { return pts[0]; }
    VELLUM_INLINE DblPt& EndPt() { return pts[nPts - 1]; }
    VELLUM_INLINE const DblPt& EndPt() const { return pts[nPts - 1]; }
    VELLUM_INLINE DblPt& Vtx(unsigned i) { return pts[i]; }
    VELLUM_INLINE const DblPt& Vtx(unsigned i) const { return pts[i]; }
    VELLUM_INLINE DblPt& Vtx0(unsigned i) { return pts[i]; }
    VELLUM_INLINE const DblPt& Vtx0(unsigned i) const { return pts[i]; }
    /// Point i mod nPts. An empty polyline is the caller's error: it divides by zero.
    VELLUM_INLINE const DblPt& NextVtx(unsigned i) const { return pts[i % nPts]; }
    /// Overwrites point @p i; the extents stay.
    VELLUM_INLINE void Set(int i, const DblPt& p) { pts[i] = p; }
    VELLUM_INLINE void Set(int i, double x, double y) { pts[i].Set(x, y); }
    /// Whether a point is exactly @p p.
    bool HasVertex(const DblPt& p) const;
    /// @}

    /// @name Extents and measures
    /// @{
    VELLUM_INLINE const AlignedDblRect& Extents() const { return extents; }
    VELLUM_INLINE const DblPt& LLExtent() const { return extents.ll; }
    VELLUM_INLINE const DblPt& URExtent() const { return extents.ur; }
    VELLUM_INLINE void GetExtents(AlignedDblRect& r) const { r = extents; }
    /// The centre of the cached extents.
    void GetBBoxCenter(DblPt& c) const;
    /// The mean of the points, whatever the lengths between them; NaN without a point.
    void GetCentroid(DblPt& c) const;
    /// The sum of the segments' lengths; 0.0 for fewer than two points.
    double ComputeLength() const;
    /// Computes the extents from the points, of which there must be one.
    void RecalcExtents();
    /// @}

    /// @name Adding and moving points
    /// The point may be one of the polyline's own: it is added as it was.
    /// @{

    /// Appends @p p and widens the extents.
    bool AddPoint(const DblPt& p);
    /// Puts @p p before the first point and widens the extents.
    bool PrependPoint(const DblPt& p);
    /// Inserts @p p after point @p i and widens the extents.
    bool InsertPoint(unsigned i, const DblPt& p);
    /// Moves point @p i and recomputes the extents; nothing happens where there is no such point.
    void MoveVertexTo(unsigned i, const DblPt& p);
    /// The same for a reference to one of this polyline's points.
    void MoveVertexTo(DblPt& vertex, const DblPt& p);
    void ReverseVertices();
    /// @}

    /// @name Cutting and joining
    /// The extents are not recomputed by the trims. Points coincide within a tolerance where both coordinates differ by
    /// strictly less than it.
    /// @{

    /// Drops the points before point @p k and moves that one to @p p; nothing happens unless k < nPts - 1.
    void TrimFront(const DblPt& p, unsigned k);
    /// Drops the points after point @p k and moves that one to @p p; nothing happens for k = 0 or k >= nPts.
    void TrimBack(const DblPt& p, unsigned k);
    /// Sets the count to k + 1; k < nPts is the caller's duty. Nothing happens where both are 0.
    void TrimBack(unsigned k);
    /// Cuts the polyline down to the part between @p a and @p b, which must lie on it (within 2^-23), whatever their
    /// order. Where they coincide the result is the single point @p a if @p allowPoint, and false otherwise. False too
    /// where the polyline does not run from the one to the other; it stays as it is then.
    bool Trim(const DblPt& a, const DblPt& b, bool allowPoint);
    /// Joins the stretch of @p other between its points @p i and @p j to this polyline, at the end that coincides with
    /// an end of the stretch. Where that is this polyline's first point, the polyline is reversed (and stays so even
    /// where nothing is appended). Nothing happens for i = j or where no ends coincide. @p other may be this polyline,
    /// whose points count as they were. A point that finds no memory is left out.
    void AppendVertices(const PolylineGeom* other, unsigned i, unsigned j, double tol);
    /// Finds the first point of this polyline that coincides with a point of @p other, where its ends are tried before
    /// its interior. Without one the result is false, @p myIdx the count of this polyline and @p otherIdx the last
    /// index tried (0 where @p other has no point); with no points in this polyline @p myIdx is 0 and @p otherIdx
    /// untouched.
    bool ConnectsTo(const PolylineGeom* other, unsigned& myIdx, unsigned& otherIdx, double tol) const;
    /// @}

    /// Maps the points, at most 2^31 - 1; the extents become those of the images. Nothing happens without a point.
    void ApplyTransform(const Mtx2D* m);
    /// Writes the points to the debugger output as a C initialiser; nothing without a point.
    void Print() const;
};

/// A closed ring of points: the edge from the last point to the first is implied and never stored.
class VELLUM_API PolygonGeom : public ClosedShape {
public:
    uint32_t nPts;
    DblPt* pts;              ///< owned, from malloc; null in an empty polygon
    AlignedDblRect extents;  ///< the cached bounding box

    /// @name Construction
    /// From fewer than two points the next three make an empty polygon.
    /// @{
    VELLUM_INLINE PolygonGeom() : nPts(0), pts(nullptr) {}
    /// @p n points at the origin.
    explicit PolygonGeom(unsigned n);
    /// Unlike a polyline's, the extents are those of the given points even where memory runs out.
    PolygonGeom(unsigned n, double* xs, double* ys);
    PolygonGeom(unsigned n, const DblPt* p);
    /// Copies the points and the cached extents as they are.
    PolygonGeom(const PolygonGeom& src);
    PolygonGeom& operator=(const PolygonGeom& src);
    ~PolygonGeom() override;
    /// @}

    /// @name Points
    /// @{
    VELLUM_INLINE unsigned NPts() const { return nPts; }
    VELLUM_INLINE DblPt* Pts() { return pts; }
    VELLUM_INLINE const DblPt* Pts() const { return pts; }
    VELLUM_INLINE DblPt* Start() { return pts; }
    VELLUM_INLINE const DblPt* Start() const { return pts; }
    /// One past the last point.
    VELLUM_INLINE DblPt* End() { return pts + nPts; }
    VELLUM_INLINE const DblPt* End() const { return pts + nPts; }
    VELLUM_INLINE DblPt& First() { return pts[0]; }
    VELLUM_INLINE const DblPt& First() const { return pts[0]; }
    VELLUM_INLINE DblPt& Last() { return pts[nPts - 1]; }
    VELLUM_INLINE const DblPt& Last() const { return pts[nPts - 1]; }
    VELLUM_INLINE const DblPt& StartPt() const { return pts[0]; }
    VELLUM_INLINE DblPt& EndPt() { return pts[nPts - 1]; }
    VELLUM_INLINE const DblPt& EndPt() const { return pts[nPts - 1]; }
    VELLUM_INLINE DblPt& Vtx(unsigned i) { return pts[i]; }
    VELLUM_INLINE const DblPt& Vtx(unsigned i) const { return pts[i]; }
    /// Overwrites point @p i; the extents stay.
    VELLUM_INLINE void Set(int i, double x, double y) { pts[i].Set(x, y); }
    /// Whether a point is exactly @p p.
    bool HasVertex(const DblPt& p) const;
    /// Appends @p p, which may be one of the polygon's own points, and widens the extents.
    bool AddPoint(DblPt& p);
    /// Moves point @p i and recomputes the extents; nothing happens where there is no such point.
    void MoveVertexTo(unsigned i, const DblPt& p);
    /// @}

    /// @name Extents
    /// @{
    VELLUM_INLINE const AlignedDblRect& Extents() const { return extents; }
    VELLUM_INLINE const DblPt& LLExtent() const { return extents.ll; }
    VELLUM_INLINE const DblPt& URExtent() const { return extents.ur; }
    VELLUM_INLINE void GetExtents(AlignedDblRect& r) const { r = extents; }
    /// The centre of the cached extents.
    void GetBBoxCenter(DblPt& c) const;
    /// @}

    /// Gives the point at the origin, since the search starts below any distance; hosts that replay old drawings rely
    /// on it. Where p.y is NaN, so is out.y. For the nearest boundary point use a clearance function, for instance
    /// with a circle at @p p.
    void ClosestPt(const DblPt& p, DblPt& out) const;

    /// @name The closed shape
    /// @{
    /// Null where there is no memory for the polygon; an empty one where there is none for its points.
    ClosedShape* Clone() const override;
    /// Prints as a polyline does, under the same word; the first point is not repeated.
    void Print() const override;
    /// By the winding number: what is wound round more than once, or clockwise, is inside too. The tolerance is
    /// ignored.
    ///
    /// In the count every edge includes its lower end and not its upper one, and points on the line of an edge count
    /// for either direction. Of an upright square the bottom and the right side are inside, the lower-right corner
    /// too; the top, the left side and the other corners are outside.
    bool Contains(const DblPt& p, double tol) const override;
    bool Contains(double x, double y, double tol) const override;
    /// The mean of the points, not the centre of the area; NaN without a point.
    void GetCentroid(DblPt& c) const override;
    /// Maps the points, at most 2^31 - 1; the extents become those of the images. Nothing happens without a point.
    void ApplyTransform(const Mtx2D* m) override;
    /// @}
};

}  // namespace Vellum

#endif
