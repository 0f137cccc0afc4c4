// SPDX-License-Identifier: MIT
#ifndef VELLUM_SEGMENT_H
#define VELLUM_SEGMENT_H

/// @file
/// `LineSegmentGeom`, the straight segment between two points.

#include <cmath>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/rectangles.h"
#include "vellum/rounding.h"
#include "vellum/shape.h"

namespace Vellum {

/// A directed segment. Nothing is cached: every derived quantity is computed on each call.
class VELLUM_API LineSegmentGeom : public Shape {
public:
    DblPt start;
    DblPt end;

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE LineSegmentGeom() {}
    VELLUM_INLINE LineSegmentGeom(const LineSegmentGeom& s) : Shape(s), start(s.start), end(s.end) {}
    VELLUM_INLINE LineSegmentGeom(const DblPt& p0, const DblPt& p1) : start(p0), end(p1) {}
    VELLUM_INLINE LineSegmentGeom(double x0, double y0, double x1, double y1) : start(x0, y0), end(x1, y1) {}
    VELLUM_INLINE LineSegmentGeom& operator=(const LineSegmentGeom& s) {
        start = s.start;
        end = s.end;
        return *this;
    }
    VELLUM_INLINE ~LineSegmentGeom() override {}

    VELLUM_INLINE void Set(const DblPt& p0, const DblPt& p1) { Set(p0.x, p0.y, p1.x, p1.y); }
    VELLUM_INLINE void Set(double x0, double y0, double x1, double y1) {
        start.Set(x0, y0);
        end.Set(x1, y1);
    }
    /// Stores the two points in an order of the library's own: @p p0 is the start where p0.x > p1.x, or else where
    /// p0.y > p1.y, and the end otherwise. That is not the lexicographic order, since the y test does not ask how the
    /// x are related; hosts look segments up by the result.
    void SetSort(const DblPt& p0, const DblPt& p1);
    VELLUM_INLINE void Translate(const DblPt& d) { Translate(d.x, d.y); }
    VELLUM_INLINE void Translate(double dx, double dy) {
        TranslateX(dx);
        TranslateY(dy);
    }
    VELLUM_INLINE void TranslateX(double dx) {
        start.x += dx;
        end.x += dx;
    }
    VELLUM_INLINE void TranslateY(double dy) {
        start.y += dy;
        end.y += dy;
    }
    void ApplyTransform(const Mtx2D* m);
    /// @}

    /// @name Ends and extents
    /// @{
    VELLUM_INLINE const DblPt& StartPt() const { return start; }
    VELLUM_INLINE const DblPt& EndPt0() const { return start; }
    VELLUM_INLINE const DblPt& EndPt() const { return end; }
    VELLUM_INLINE const DblPt& EndPt1() const { return end; }
    VELLUM_INLINE double Dx() const { return end.x - start.x; }
    VELLUM_INLINE double Dy() const { return end.y - start.y; }
    VELLUM_INLINE double CenterX() const { return (end.x + start.x) * 0.5; }
    VELLUM_INLINE double CenterY() const { return (end.y + start.y) * 0.5; }
    VELLUM_INLINE void GetCenter(DblPt& c) const { c.Set(CenterX(), CenterY()); }
    VELLUM_INLINE double LLX() const { return end.x < start.x ? end.x : start.x; }
    VELLUM_INLINE double LLY() const { return end.y < start.y ? end.y : start.y; }
    VELLUM_INLINE double URX() const { return start.x < end.x ? end.x : start.x; }
    VELLUM_INLINE double URY() const { return start.y < end.y ? end.y : start.y; }
    VELLUM_INLINE void GetExtents(AlignedDblRect& r) const { r.TSet(LLX(), LLY(), URX(), URY()); }
    /// @}

    /// @name Measures
    /// @{

    /// The plain square root of the sum of squares: it overflows for lengths from about 1e154.
    VELLUM_INLINE double Length() const {
        const double dx = Dx();
        const double dy = Dy();
        return std::sqrt(internal::Rounded(dx * dx) + internal::Rounded(dy * dy));
    }
    VELLUM_INLINE void GetLength(double& len) const { len = Length(); }
    /// Half the length.
    VELLUM_INLINE double Radius() const { return internal::Rounded(Length() * 0.5); }
    VELLUM_INLINE void GetRadius(double& r) const { r = Radius(); }
    /// dy / dx; 0.0 where either is within 2^-23 of zero. A vertical segment has the slope of a horizontal one: ask
    /// `IsVertical` to tell them apart.
    VELLUM_INLINE double Slope() const { return Slope(start, end); }
    /// The slope of the segment from @p p0 to @p p1.
    static double Slope(const DblPt& p0, const DblPt& p1);
    /// @}

    /// @name Comparison
    /// All exact but the last; direction matters.
    /// @{
    VELLUM_INLINE bool IsHorizontal() const { return start.y == end.y; }
    VELLUM_INLINE bool IsVertical() const { return start.x == end.x; }
    VELLUM_INLINE bool HasVertex(const DblPt& p) const { return p.IsExactly(start) || p.IsExactly(end); }
    VELLUM_INLINE bool IsExactly(const LineSegmentGeom& o) const {
        return start.IsExactly(o.start) && end.IsExactly(o.end);
    }
    /// Every coordinate differs by strictly less than @p tol.
    VELLUM_INLINE bool IsEqualTo(const LineSegmentGeom& o, double tol) const {
        return start.IsEqualTo(o.start, tol) && end.IsEqualTo(o.end, tol);
    }
    /// @}
};

/// `DistPtLine` from @p p to the segment.
VELLUM_API double DistPtLine(const DblPt& p, const LineSegmentGeom& seg, bool exact);

}  // namespace Vellum

#endif
