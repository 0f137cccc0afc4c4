// SPDX-License-Identifier: MIT
#ifndef VELLUM_RECTANGLES_H
#define VELLUM_RECTANGLES_H

/// @file
/// The two rectangles: `AlignedDblRect`, the box used for extents and selection, and `DblRect`, which may be rotated.

#include <cmath>
#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/rounding.h"
#include "vellum/shape.h"

namespace Vellum {

/// The nine handles of a rectangle, numbered row by row from the top.
namespace EntityHandleEnum {
enum EntityHandle : int32_t {
    HandleUpperLeft = 0,
    HandleTopMiddle = 1,
    HandleUpperRight = 2,
    HandleMiddleLeft = 3,
    HandleCenter = 4,
    HandleMiddleRight = 5,
    HandleLowerLeft = 6,
    HandleBottomMiddle = 7,
    HandleLowerRight = 8,
    HandleNone = 10
};
}  // namespace EntityHandleEnum

/// An axis-aligned box, y upwards; also the library's extent type.
///
/// The constructors, `Set` from two corners and `ApplyTransform` keep left <= right and bottom <= top. `TSet`, `Set`
/// from a centre and the growing operations store what they are given: a crossed box stays crossed, and nothing but
/// what is said below checks for one.
class VELLUM_API AlignedDblRect : public ClosedShape {
public:
    DblPt ll;  ///< (left, bottom)
    DblPt ur;  ///< (right, top)

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE AlignedDblRect() {}
    VELLUM_INLINE AlignedDblRect(const AlignedDblRect& r) : ClosedShape(r), ll(r.ll), ur(r.ur) {}
    VELLUM_INLINE AlignedDblRect(const DblPt& a, const DblPt& b) { Set(a, b); }
    VELLUM_INLINE AlignedDblRect(double x1, double y1, double x2, double y2) { Set(x1, y1, x2, y2); }
    VELLUM_INLINE AlignedDblRect& operator=(const AlignedDblRect& r) {
        ll = r.ll;
        ur = r.ur;
        return *this;
    }
    VELLUM_INLINE ~AlignedDblRect() override {}

    VELLUM_INLINE void Set(const DblPt& a, const DblPt& b) { Set(a.x, a.y, b.x, b.y); }
    VELLUM_INLINE void Set(double x1, double y1, double x2, double y2) {
        TSet(x2 < x1 ? x2 : x1, y2 < y1 ? y2 : y1, x1 < x2 ? x2 : x1, y1 < y2 ? y2 : y1);
    }
    /// The box of the given size around @p centre; a negative size crosses it.
    VELLUM_INLINE void Set(const DblPt& centre, double width, double height) {
        const double halfWidth = internal::Rounded(width * 0.5);
        const double halfHeight = internal::Rounded(height * 0.5);
        TSet(centre.x - halfWidth, centre.y - halfHeight, centre.x + halfWidth, centre.y + halfHeight);
    }
    /// Stores the corners unchanged.
    VELLUM_INLINE void TSet(const DblPt& lowerLeft, const DblPt& upperRight) {
        TSet(lowerLeft.x, lowerLeft.y, upperRight.x, upperRight.y);
    }
    /// Stores the coordinates unchanged.
    VELLUM_INLINE void TSet(double left, double bottom, double right, double top) {
        ll.Set(left, bottom);
        ur.Set(right, top);
    }
    /// @}

    /// @name Coordinates
    /// @{
    VELLUM_INLINE double Left() const { return ll.x; }
    VELLUM_INLINE double Bottom() const { return ll.y; }
    VELLUM_INLINE double Right() const { return ur.x; }
    VELLUM_INLINE double Top() const { return ur.y; }
    /// Never negative, also for a crossed box.
    VELLUM_INLINE double Width() const { return std::fabs(ur.x - ll.x); }
    /// Never negative, also for a crossed box.
    VELLUM_INLINE double Height() const { return std::fabs(ur.y - ll.y); }
    VELLUM_INLINE double CenterX() const { return internal::Rounded((ur.x - ll.x) * 0.5) + ll.x; }
    VELLUM_INLINE double CenterY() const { return internal::Rounded((ur.y - ll.y) * 0.5) + ll.y; }
    VELLUM_INLINE void GetCenter(DblPt& out) const { out.Set(CenterX(), CenterY()); }
    VELLUM_INLINE DblPt& LL() { return ll; }
    VELLUM_INLINE const DblPt& LL() const { return ll; }
    VELLUM_INLINE DblPt& UR() { return ur; }
    VELLUM_INLINE const DblPt& UR() const { return ur; }
    VELLUM_INLINE void GetLL(DblPt& out) const { out.Set(ll.x, ll.y); }
    VELLUM_INLINE void GetLR(DblPt& out) const { out.Set(ur.x, ll.y); }
    VELLUM_INLINE void GetUL(DblPt& out) const { out.Set(ll.x, ur.y); }
    VELLUM_INLINE void GetUR(DblPt& out) const { out.Set(ur.x, ur.y); }
    /// Writes the corners lower-left, upper-left, upper-right, lower-right.
    void ToRealRectT(real_rect_t& out) const;
    /// @}

    /// @name Sides
    /// Directed pairs that run clockwise round the box.
    /// @{
    void GetLeftSide(DblPt& a, DblPt& b) const;
    void GetTopSide(DblPt& a, DblPt& b) const;
    void GetRightSide(DblPt& a, DblPt& b) const;
    void GetBottomSide(DblPt& a, DblPt& b) const;
    /// @}

    /// @name Comparison
    /// @{
    VELLUM_INLINE bool operator==(const AlignedDblRect& r) const { return ll.IsExactly(r.ll) && ur.IsExactly(r.ur); }
    VELLUM_INLINE bool operator!=(const AlignedDblRect& r) const { return !(*this == r); }
    /// Compares sizes, not positions: true where @p r is both strictly wider and strictly taller (signed sizes).
    VELLUM_INLINE bool operator<(const AlignedDblRect& r) const {
        return r.ur.x - r.ll.x > ur.x - ll.x && r.ur.y - r.ll.y > ur.y - ll.y;
    }
    /// Strict on each of the four coordinates.
    VELLUM_INLINE bool IsEqualTo(const AlignedDblRect& r, double tol) const {
        return ll.IsEqualTo(r.ll, tol) && ur.IsEqualTo(r.ur, tol);
    }
    /// @}

    /// @name Growth and movement
    /// @{
    /// The union. A box of zeros is a box like any other: its union with a distant one reaches to the origin.
    AlignedDblRect& operator+=(const AlignedDblRect& r);
    VELLUM_INLINE AlignedDblRect& operator+=(const DblPt& p) { return Enclose(p.x, p.y); }
    /// Grows to include the point. On each axis the far side is looked at only where the near one did not move, which
    /// tells in a crossed box.
    AlignedDblRect& Enclose(double x, double y);
    VELLUM_INLINE AlignedDblRect& ExpandBy(double d) { return ExpandBy(d, d); }
    /// Moves all four sides outwards; negative values shrink the box, without any check.
    AlignedDblRect& ExpandBy(double dx, double dy);
    VELLUM_INLINE AlignedDblRect& Translate(const DblPt& d) { return Translate(d.x, d.y); }
    AlignedDblRect& Translate(double dx, double dy);
    /// @}

    /// @name Containment and overlap
    /// @{
    /// Edges count as inside; @p tol grows the box on all sides (a negative one shrinks it).
    bool Contains(const DblPt& p, double tol) const override;
    bool Contains(double x, double y, double tol) const override;
    /// Edges may coincide, but @p r must have a positive width and height: a point or a line is never contained.
    bool Contains(const AlignedDblRect& r) const;
    /// Touching boxes are not disjoint.
    bool IsDisjointFrom(const AlignedDblRect& r) const;
    bool IsDisjointFrom(const AlignedDblRect& r, double tol) const;
    /// Whether the segment a-b crosses the box. The answer depends on the direction of the segment, and of the two ends
    /// only @p a is held against the right side; hosts' pick results rest on both.
    bool IsIntersectedByLine(const DblPt& a, const DblPt& b) const;
    /// @}

    /// @name Corners and handles
    /// @{
    /// Exact, and only for the lower-left and the upper-right corner, the two that the box stores.
    VELLUM_INLINE bool HasVertex(const DblPt& p) const { return ll.IsExactly(p) || ur.IsExactly(p); }
    /// The position of a handle; (0, 0) for anything that is none.
    void GetVertex(EntityHandleEnum::EntityHandle h, DblPt& out) const;
    /// The handle exactly at @p p, or 10. Where handles coincide: rows top, bottom, middle; in a row left, right,
    /// centre.
    void GetVertexEnum(EntityHandleEnum::EntityHandle& h, const DblPt& p) const;
    /// The corner diagonally opposite to corner @p p; any other @p p comes back as it is.
    void GetOpposingDiagCorner(const DblPt& p, DblPt& out) const;
    /// The other corner at the height of corner @p p; any other @p p leaves @p out untouched.
    void GetOpposingHorzCorner(const DblPt& p, DblPt& out) const;
    /// The other corner above or below corner @p p; any other @p p leaves @p out untouched.
    void GetOpposingVertCorner(const DblPt& p, DblPt& out) const;
    /// The nearest point of the boundary, also for a point inside. Ties go to the first of left, top, right, bottom.
    void ClosestPt(const DblPt& p, DblPt& out) const;
    /// @}

    /// What maps this box onto @p target: the ratio of the sizes (1.0 where this size is 0.0) and the distance of the
    /// centres.
    void GetTransformParams(const AlignedDblRect& target, double& scaleX, double& scaleY, double& offsetX,
                            double& offsetY) const;

    /// @name The closed shape
    /// @{
    ClosedShape* Clone() const override;
    void Print() const override;
    void GetCentroid(DblPt& out) const override;
    /// Maps the two stored corners and spans the box between their images. Under a rotation that is not the bounding
    /// box of the turned rectangle: hosts rely on the two corners alone.
    void ApplyTransform(const Mtx2D* m) override;
    /// @}
};

/// A rectangle that may be rotated: four corners in order.
///
/// Setting it from four points and `ApplyTransform` choose the corners by their extremes, so that a rotated rectangle
/// holds its left, top, right and bottom vertex in clockwise order (y upwards). An axis-aligned box loses a corner that
/// way (on equal coordinates the later point wins); the two-point forms are the ones for axis-aligned boxes.
class VELLUM_API DblRect : public ClosedShape {
public:
    DblPt p0;  ///< the point with the smallest x, where the corners were chosen
    DblPt p1;  ///< the point with the largest y
    DblPt p2;  ///< the point with the largest x
    DblPt p3;  ///< the point with the smallest y

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE DblRect() {}
    VELLUM_INLINE DblRect(const DblRect& r) : ClosedShape(r), p0(r.p0), p1(r.p1), p2(r.p2), p3(r.p3) {}
    /// Corners a, (a.x, b.y), b, (b.x, a.y), in whatever order a and b are given (unlike `Set`).
    VELLUM_INLINE DblRect(const DblPt& a, const DblPt& b) : p0(a), p1(a.x, b.y), p2(b), p3(b.x, a.y) {}
    VELLUM_INLINE DblRect(const DblPt& a, const DblPt& b, const DblPt& c, const DblPt& d) { Set(a, b, c, d); }
    VELLUM_INLINE DblRect(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4) {
        Set(x1, y1, x2, y2, x3, y3, x4, y4);
    }
    VELLUM_INLINE DblRect& operator=(const DblRect& r) {
        p0 = r.p0;
        p1 = r.p1;
        p2 = r.p2;
        p3 = r.p3;
        return *this;
    }
    VELLUM_INLINE ~DblRect() override {}

    /// As the constructor, but a and b are exchanged first where a lies strictly above and right of b.
    void Set(const DblPt& a, const DblPt& b);
    void Set(const DblPt& a, const DblPt& b, const DblPt& c, const DblPt& d);
    void Set(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4);
    /// @}

    /// @name Coordinates
    /// @{
    /// Corner @p i from 0 to 3; any other index gives corner 0.
    VELLUM_INLINE DblPt& GetPt(unsigned i) { return i == 1 ? p1 : i == 2 ? p2 : i == 3 ? p3 : p0; }
    VELLUM_INLINE const DblPt& GetPt(unsigned i) const { return i == 1 ? p1 : i == 2 ? p2 : i == 3 ? p3 : p0; }
    VELLUM_INLINE double Left() const { return p0.x; }
    VELLUM_INLINE double Top() const { return p1.y; }
    VELLUM_INLINE double Right() const { return p2.x; }
    VELLUM_INLINE double Bottom() const { return p3.y; }
    VELLUM_INLINE double Width() const { return std::fabs(p0.x - p2.x); }
    VELLUM_INLINE double Height() const { return std::fabs(p1.y - p3.y); }
    /// Writes the four corners in order.
    void ToRealRectT(real_rect_t& out) const;
    /// Strict on each of the eight coordinates.
    VELLUM_INLINE bool IsEqualTo(const DblRect& r, double tol) const {
        return p0.IsEqualTo(r.p0, tol) && p1.IsEqualTo(r.p1, tol) && p2.IsEqualTo(r.p2, tol) && p3.IsEqualTo(r.p3, tol);
    }
    /// @}

    /// @name The closed shape
    /// @{
    ClosedShape* Clone() const override;
    void Print() const override;
    /// The winding test over the four corners. @p tol is accepted and ignored; points on some of the edges count as
    /// inside and on others not.
    bool Contains(const DblPt& p, double tol) const override;
    bool Contains(double x, double y, double tol) const override;
    /// Whether all four corners of @p r are contained.
    bool Contains(const DblRect& r, double tol);
    /// The mean of the four corners.
    void GetCentroid(DblPt& out) const override;
    /// Maps the four corners and chooses p0 to p3 among the images anew.
    void ApplyTransform(const Mtx2D* m) override;
    /// @}
};

}  // namespace Vellum

#endif
