// SPDX-License-Identifier: MIT
#ifndef VELLUM_CIRCLES_H
#define VELLUM_CIRCLES_H

/// @file
/// `CircleGeom`, a full circle, and `ArcGeom`, a circular arc. Angles are radians, counter-clockwise, y upwards.

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/rectangles.h"
#include "vellum/shape.h"

namespace Vellum {

class LineSegmentGeom;

/// A circle.
class VELLUM_API CircleGeom : public ClosedShape {
public:
    DblPt center;
    double radius;

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE CircleGeom() : radius(0.0) {}
    VELLUM_INLINE CircleGeom(const CircleGeom& c) : ClosedShape(c), center(c.center), radius(c.radius) {}
    VELLUM_INLINE CircleGeom(const DblPt& c, double r) : center(c), radius(r) {}
    VELLUM_INLINE CircleGeom(double x, double y, double r) : center(x, y), radius(r) {}
    VELLUM_INLINE CircleGeom& operator=(const CircleGeom& c) {
        center = c.center;
        radius = c.radius;
        return *this;
    }
    VELLUM_INLINE ~CircleGeom() override {}

    VELLUM_INLINE void Set(const DblPt& c, double r) { Set(c.x, c.y, r); }
    VELLUM_INLINE void Set(double x, double y, double r) {
        center.Set(x, y);
        radius = r;
    }
    VELLUM_INLINE void SetCenter(const DblPt& c) { center = c; }
    VELLUM_INLINE void SetRadius(double r) { radius = r; }
    /// @}

    /// @name Measures
    /// @{
    VELLUM_INLINE DblPt& Center() { return center; }
    VELLUM_INLINE const DblPt& Center() const { return center; }
    VELLUM_INLINE double Radius() const { return radius; }
    VELLUM_INLINE double Diameter() const { return radius + radius; }
    VELLUM_INLINE double LLX() const { return center.x - radius; }
    VELLUM_INLINE double LLY() const { return center.y - radius; }
    VELLUM_INLINE double URX() const { return center.x + radius; }
    VELLUM_INLINE double URY() const { return center.y + radius; }
    VELLUM_INLINE void GetExtents(AlignedDblRect& r) const { r.TSet(LLX(), LLY(), URX(), URY()); }
    /// @}

    /// Whether @p p is exactly the centre.
    VELLUM_INLINE bool HasVertex(const DblPt& p) const { return center.IsExactly(p); }
    /// Where the line from the centre through @p p meets the circle, on the side of @p p. The tolerance of
    /// `FindLineCircleIntersect` counts the line as a tangent where the distance to @p p times the radius is below
    /// some 1.7e-4: the result is the centre then, and NaN where @p p is the centre itself. Far from the origin a small
    /// circle is met inexactly, and @p out may stay as it was, since some 1e-16 of the centre's square is lost beside
    /// the radius's.
    void ClosestPt(const DblPt& p, DblPt& out) const;

    /// @name The closed shape
    /// @{
    ClosedShape* Clone() const override;
    void Print() const override;
    /// By the octagonal estimate of the distance, which is up to 4 % off: near the rim the answer may differ from an
    /// exact test's. Picking relies on the cheap test being the same everywhere. The tolerance is ignored.
    bool Contains(const DblPt& p, double tol) const override;
    bool Contains(double x, double y, double tol) const override;
    void GetCentroid(DblPt& c) const override;
    /// Maps the centre and scales the radius by `Mtx2D::GetScale`: the image is a circle under every transform.
    void ApplyTransform(const Mtx2D* m) override;
    /// @}
};

/// An arc of a circle, counter-clockwise from its start ray.
///
/// A sweep up to the smallest normal single-precision value, all negative ones included, is none: the arc ends where
/// it starts. A clockwise arc is the same arc from its other end.
class VELLUM_API ArcGeom : public Shape {
public:
    DblPt startVec;  ///< a point on the ray from the centre through the start, at whatever distance
    DblPt center;
    double radius;
    double angle;  ///< the sweep

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE ArcGeom() : radius(0.0), angle(0.0) {}
    VELLUM_INLINE ArcGeom(const ArcGeom& a)
        : Shape(a), startVec(a.startVec), center(a.center), radius(a.radius), angle(a.angle) {}
    VELLUM_INLINE ArcGeom(const DblPt& start, const DblPt& c, double& r, double& sweep)
        : startVec(start), center(c), radius(r), angle(sweep) {}
    VELLUM_INLINE ArcGeom(const DblPt* start, const DblPt* c, const double* r, const double* sweep)
        : startVec(*start), center(*c), radius(*r), angle(*sweep) {}
    VELLUM_INLINE ArcGeom& operator=(const ArcGeom& a) {
        startVec = a.startVec;
        center = a.center;
        radius = a.radius;
        angle = a.angle;
        return *this;
    }
    VELLUM_INLINE ~ArcGeom() override {}

    VELLUM_INLINE void SetStartVector(DblPt& p) { startVec = p; }
    VELLUM_INLINE void SetCenter(DblPt& p) { center = p; }
    VELLUM_INLINE void SetRadius(double& r) { radius = r; }
    VELLUM_INLINE void SetAngle(double& sweep) { angle = sweep; }
    /// @}

    /// @name Parts
    /// @{
    VELLUM_INLINE const DblPt& StartVec() const { return startVec; }
    VELLUM_INLINE const DblPt& Center() const { return center; }
    VELLUM_INLINE double Radius() const { return radius; }
    VELLUM_INLINE double Angle() const { return angle; }
    /// The direction of the start ray, in (-pi, pi].
    double StartAngle() const;
    void GetArcStartPoint(DblPt& p) const;
    void GetArcEndPoint(DblPt& p) const;
    /// Whether @p p is exactly the stored start vector or the centre.
    VELLUM_INLINE bool HasVertex(const DblPt& p) const { return startVec.IsExactly(p) || center.IsExactly(p); }
    /// @}

    /// @name Extents
    /// An arc that ends where it starts has the extents of the full circle; one without a radius those of its
    /// centre. Only the two ends count: a sweep of more than a turn is the rest over whole turns, and with one of 2
    /// pi exactly a rounding decides between the full circle and next to nothing. Those of a whole circle are
    /// `CircleGeom::GetExtents`.
    /// @{
    void GetExtents(AlignedDblRect& r) const;
    double LLX() const;
    double LLY() const;
    double URX() const;
    double URY() const;
    /// The corners of the arc's box; with @p reversed, of the arc that runs counter-clockwise from the end to the
    /// start.
    void maxmin_arc(bool reversed, DblPt* max, DblPt* min) const;
    /// The corners of the box of the circle of radius @p r around @p c.
    void maxmin_circle(DblPt* c, double r, DblPt* max, DblPt* min) const;
    /// @}
};

/// `FindLineCircleIntersect` with a circle and a segment, which is treated as an infinite line.
VELLUM_API bool FindLineCircleIntersect(const CircleGeom& c, const LineSegmentGeom& s, const DblPt& ref, DblPt& out);

}  // namespace Vellum

#endif
