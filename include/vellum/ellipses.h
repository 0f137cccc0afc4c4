// SPDX-License-Identifier: MIT
#ifndef VELLUM_ELLIPSES_H
#define VELLUM_ELLIPSES_H

/// @file
/// `EllipseGeom` and `EllipticalArcGeom`, given by the centre and the ends of two conjugate semi-diameters.
///
/// With u and v the two ends relative to the centre, the ellipse is the set of points centre + u cos t + v sin t; u
/// and v need not be perpendicular. Extents and distances go through an implicit conic,
///
///     A x^2 + B xy + C y^2 + D x + E y + F = 0,
///
/// in coordinates relative to the centre, whose records stand in `vellum/records.h`. Angles are radians. Pointers
/// must not be null; results may overwrite arguments.

#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"
#include "vellum/shape.h"

namespace Vellum {

/// A full ellipse.
class VELLUM_API EllipseGeom : public ClosedShape {
public:
    DblPt center;
    DblPt major;  ///< the end of the first conjugate semi-diameter, an absolute point
    DblPt minor;  ///< the end of the second one, an absolute point

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE EllipseGeom() {}
    VELLUM_INLINE EllipseGeom(const EllipseGeom& e)
        : ClosedShape(e), center{e.center}, major{e.major}, minor{e.minor} {}
    VELLUM_INLINE EllipseGeom(const DblPt& c, const DblPt& majorPt, const DblPt& minorPt)
        : center{c}, major{majorPt}, minor{minorPt} {}
    VELLUM_INLINE EllipseGeom(const DblPt* c, const DblPt* majorPt, const DblPt* minorPt)
        : EllipseGeom(*c, *majorPt, *minorPt) {}
    VELLUM_INLINE EllipseGeom& operator=(const EllipseGeom& e) {
        center = e.center;
        major = e.major;
        minor = e.minor;
        return *this;
    }
    VELLUM_INLINE ~EllipseGeom() override {}

    VELLUM_INLINE void SetCenter(DblPt& p) { center = p; }
    VELLUM_INLINE void SetMajor(DblPt& p) { major = p; }
    VELLUM_INLINE void SetMinor(DblPt& p) { minor = p; }
    EllipseGeom& Translate(const DblPt& d);
    EllipseGeom& Translate(double dx, double dy);
    /// @}

    /// @name Points
    /// @{
    VELLUM_INLINE const DblPt& Center() const { return center; }
    VELLUM_INLINE const DblPt& Major() const { return major; }
    VELLUM_INLINE const DblPt& Minor() const { return minor; }
    /// Whether @p p is exactly one of the three.
    VELLUM_INLINE bool HasVertex(const DblPt& p) const {
        return center.IsExactly(p) || major.IsExactly(p) || minor.IsExactly(p);
    }
    /// @}

    /// @name Extents and distance
    /// The box is that of points 5 degrees apart, so it can lie slightly inside the true one, and those points are
    /// taken relative to the centre while the major point, which the box holds too, is absolute. For an ellipse away
    /// from the origin the box is therefore not around it: translate it to the origin first, as hosts do. A flat
    /// ellipse (the shorter axis at most 0.01 of the longer) gives one point beside the major point; a degenerate
    /// one by `utl_conic_type` and one without a conic (collinear diameters, and a circle, see `cgm2iges_ellipse`)
    /// the major point alone.
    /// @{
    void GetExtents(AlignedDblRect& r) const;
    double LLX() const;
    double LLY() const;
    double URX() const;
    double URY() const;
    void ellipse_maxmin(DblPt* max, DblPt* min) const;
    /// The distance to the ellipse from @p p, which is taken relative to the centre: see `utl_point_conarc`. Without
    /// a conic (see above) it is the distance of @p p as it stands from the major point. The coefficients of a turned
    /// ellipse hold its longer axis only to some 1e-16 of the square of the axes' ratio, longer to shorter.
    double DistPointEllipse(DblPt& p) const;
    /// @}

    /// @name Conics
    /// @{

    /// Turns conjugate diameters into a conic and its ends, and writes the semi-axes back into @p in. With @p full
    /// the ends are both the first diameter's end; otherwise the points where the rays through @p in's ends meet the
    /// conic, exchanged where the diameters turn clockwise, so that the arc always runs counter-clockwise. The
    /// result is relative to the centre, and the coefficients are scaled to make the largest of A, B and C 1 or -1.
    ///
    /// False, with the coefficients 0, for collinear diameters, for a circle (equal axes have no direction to
    /// compute with) and where a semi-axis is out of range (above 1e19, or below some 1e-8 of the other). Rays meet
    /// nothing then, and the ends are (0, 0) unless @p full or the diameters are collinear exactly. A semi-axis that
    /// is not computed stays as it was in @p in. Coordinates whose squares overflow give true, and no numbers.
    bool cgm2iges_ellipse(circle_ellipse_s* in, bool full, CONIC_ARC* out) const;
    /// 'E' ellipse, 'C' circle, 'P' parabola, 'H' hyperbola, 'L' degenerate, '?' not a number; the tolerance is 1e-5
    /// throughout, so that very flat ellipses count as degenerate.
    char utl_conic_type(con_arc_str* conic) const;
    /// The standard position of an ellipse; without a B it is not turned. A closed conic starts at angle 0 and
    /// sweeps 2 pi; a flat one (see above) has start and sweep 0, and so has what is no real ellipse, whose a or b
    /// is not finite.
    void utl_standard_ellipse(con_arc_str* conic, std_ell_typ* out) const;
    /// The point at @p angle, in the conic's own coordinates.
    void utl_ellipse_point(std_ell_typ* ellipse, double angle, DblPt* out) const;
    /// The box of the ends and, for an ellipse or a circle, of three or more points along the arc, evenly spread
    /// over the angle and some 5 degrees apart (up to 7.5 where the arc is short).
    void utl_maxmin_conic(con_arc_str* conic, DblPt* max, DblPt* min) const;
    /// The distance from @p p, in the conic's own coordinates, to the nearest point of the arc (of the whole ellipse
    /// where it is closed). The error is at most 1e-12 of the larger semi-axis, or of the distance where that is
    /// more, beyond what the rounding of the coefficients and of the ends moves the arc, for every ratio of the axes
    /// and every position; coefficients whose products with the centre leave the range of numbers are beyond it. The
    /// coefficients count as they are, without the tolerance of `utl_conic_type` or the
    /// flatness above. For what is no real ellipse the ends alone are known: the distance to the nearer one. NaN in
    /// @p p gives NaN.
    double utl_point_conarc(DblPt& p, con_arc_str* conic) const;
    /// The conic and its ends in axes turned by the angle of the given cosine and sine.
    void utlx_rotate_conic(const con_arc_str* conic, double cosine, double sine, con_arc_str* out) const;
    /// The same angle in [0, 2 pi).
    double utlx_correct_angle(double angle) const;
    /// The direction of (x, y) in [0, 2 pi); 0 for the zero vector.
    double utlx_get_angle(double x, double y) const;
    /// Scales the vector to length 1. False, with it untouched, where it is zero or not finite.
    bool utlx_normalize_vector(DblPt& v) const;
    /// The point where the ray from the conic's centre towards (x, y), taken relative to it, meets the conic. False,
    /// with @p out untouched, where it does not, the conic is degenerate, or the direction is zero.
    bool intersectRayEllipse(double x, double y, CONIC_ARC* conic, DblPt* out) const;
    /// @}

    /// @name The closed shape
    /// @{
    ClosedShape* Clone() const override;
    void Print() const override;
    /// Always false: an ellipse is picked by its distance, and hosts rely on it never being an area.
    bool Contains(const DblPt& p, double tol) const override;
    bool Contains(double x, double y, double tol) const override;
    void GetCentroid(DblPt& c) const override;
    /// Maps the three points. Nothing happens where two of the images coincide within 2^-23 on both axes.
    void ApplyTransform(const Mtx2D* m) override;
    /// @}
};

/// How an elliptical arc is closed for its extents. Any other value counts as open.
enum DrwArcCT : int32_t {
    ArcOpen = 0,
    ArcChord = 1,
    ArcPie = 2  ///< closed through the centre, which belongs to the box
};

/// An arc of an ellipse, between the rays from the centre through `start` and `end`.
class VELLUM_API EllipticalArcGeom : public Shape {
public:
    DblPt center;
    DblPt conjugateDiameterPt1;  ///< an absolute point
    DblPt conjugateDiameterPt2;  ///< an absolute point
    DblPt start;                 ///< on the ray through the arc's first end, at whatever distance
    DblPt end;                   ///< on the ray through the arc's second end, at whatever distance

    /// @name Construction and setting
    /// @{
    VELLUM_INLINE EllipticalArcGeom() {}
    VELLUM_INLINE EllipticalArcGeom(const EllipticalArcGeom& a)
        : Shape(a),
          center(a.center),
          conjugateDiameterPt1(a.conjugateDiameterPt1),
          conjugateDiameterPt2(a.conjugateDiameterPt2),
          start(a.start),
          end(a.end) {}
    VELLUM_INLINE EllipticalArcGeom(const DblPt& c, const DblPt& cdp1, const DblPt& cdp2, const DblPt& startPt,
                                    const DblPt& endPt)
        : center(c), conjugateDiameterPt1(cdp1), conjugateDiameterPt2(cdp2), start(startPt), end(endPt) {}
    VELLUM_INLINE EllipticalArcGeom(const DblPt* c, const DblPt* cdp1, const DblPt* cdp2, const DblPt* startPt,
                                    const DblPt* endPt)
        : EllipticalArcGeom(*c, *cdp1, *cdp2, *startPt, *endPt) {}
    VELLUM_INLINE EllipticalArcGeom& operator=(const EllipticalArcGeom& a) {
        center = a.center;
        conjugateDiameterPt1 = a.conjugateDiameterPt1;
        conjugateDiameterPt2 = a.conjugateDiameterPt2;
        start = a.start;
        end = a.end;
        return *this;
    }
    VELLUM_INLINE ~EllipticalArcGeom() override {}

    VELLUM_INLINE void SetCenter(DblPt& p) { center = p; }
    VELLUM_INLINE void SetConjugateDiameterPt1(DblPt& p) { conjugateDiameterPt1 = p; }
    VELLUM_INLINE void SetConjugateDiameterPt2(DblPt& p) { conjugateDiameterPt2 = p; }
    VELLUM_INLINE void SetStart(DblPt& p) { start = p; }
    VELLUM_INLINE void SetEnd(DblPt& p) { end = p; }
    /// @}

    /// @name Points
    /// @{
    VELLUM_INLINE const DblPt& Center() const { return center; }
    VELLUM_INLINE const DblPt& ConjugateDiameterPt1() const { return conjugateDiameterPt1; }
    VELLUM_INLINE const DblPt& ConjugateDiameterPt2() const { return conjugateDiameterPt2; }
    VELLUM_INLINE const DblPt& Start() const { return start; }
    VELLUM_INLINE const DblPt& End() const { return end; }
    /// Whether @p p is exactly one of the five.
    bool HasVertex(const DblPt& p) const;
    /// @}

    /// @name Extents
    /// All relative to the centre, as the conic is: a host adds the centre itself. The arc's extremes are taken in
    /// the turned frame of the ellipse and its box is turned back, so for a turned ellipse the result encloses the
    /// arc but is larger than its tight box. An arc that ends where it starts goes all the way round. Where there is
    /// no real ellipse it is the box of the conic record's ends.
    /// @{
    void GetExtents(AlignedDblRect& r) const;
    double LLX() const;
    double LLY() const;
    double URX() const;
    double URY() const;
    /// The box of a conic arc; false, with nothing written, where the conic is not a real ellipse.
    bool GetEllipticalArcExtents(drw_con_arc_t* arc, DrwArcCT type, double& minX, double& minY, double& maxX,
                                 double& maxY) const;
    /// The same from the five points. False, with nothing written, where the diameters are degenerate too.
    bool EllipticalArcExtents(DblPt c, DblPt cdp1, DblPt cdp2, DblPt startPt, DblPt endPt, DrwArcCT type, double& minX,
                              double& minY, double& maxX, double& maxY) const;
    /// @}

    /// @name Conics
    /// @{

    /// Turns conjugate diameters into a conic arc. Its ends are both the first diameter's end with @p full;
    /// otherwise the points where the rays through @p startPt and @p endPt meet the conic, exchanged where the
    /// diameters turn clockwise, so that the arc always runs counter-clockwise.
    ///
    /// @p semiMajor receives the longer semi-axis and @p semiMinor the shorter; 0 where it is not computed.
    /// @p degenerate receives whether the diameters are collinear or a semi-axis is out of range. The coefficients
    /// A, B and C are 0 then and rays meet nothing: the first end is the centre and the second (0, 0), unless the
    /// diameters are collinear exactly or @p full is set.
    drw_con_arc_t Cnj2ConEllipse(DblPt* c, DblPt* cdp1, DblPt* cdp2, DblPt* startPt, DblPt* endPt, double& semiMajor,
                                 double& semiMinor, bool& degenerate, bool full) const;
    /// The point where the ray from the conic's centre towards (x, y), taken relative to it, meets the conic. False,
    /// with @p out untouched, where it does not, the conic is degenerate, or the direction is zero.
    bool IntersectRayEllipse(double x, double y, drw_con_arc_t* arc, DblPt* out) const;
    /// Maps the two ends by @p frame; with @p exchanged, @p startOut receives the image of @p endPt and the other
    /// way round.
    void ComputeConicEndpoints(DblPt* startPt, DblPt* endPt, bool exchanged, DblPt* startOut, DblPt* endOut,
                               Mtx2D* frame) const;
    /// @}
};

}  // namespace Vellum

#endif
