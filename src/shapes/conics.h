// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_CONICS_H
#define VELLUM_SRC_SHAPES_CONICS_H

#include "vellum/points.h"
#include "vellum/records.h"

namespace Vellum::internal {

/// The coefficients that the conic records begin with, named after what they multiply.
struct Conic {
    double xx;
    double xy;
    double yy;
    double x;
    double y;
    double constant;
};

template <class Record>
Conic ConicOf(const Record& record) {
    return {record.A, record.B, record.C, record.D, record.E, record.F};
}

template <class Record>
void StoreConic(const Conic& conic, Record& record) {
    record.A = conic.xx;
    record.B = conic.xy;
    record.C = conic.yy;
    record.D = conic.x;
    record.E = conic.y;
    record.F = conic.constant;
}

/// sqrt(x^2 + y^2) where the squares would overflow or underflow, too.
double Length(double x, double y);

/// Scales @p v to length 1. False, with it untouched, where it is zero or not finite.
bool Normalize(DblPt& v);

/// Two conjugate semi-diameters of an ellipse around the origin.
struct Diameters {
    DblPt u;
    DblPt v;
    double det;
};

Diameters DiametersOf(const DblPt& center, const DblPt& end1, const DblPt& end2);

/// The conic of u cos t + v sin t.
Conic ConicOfDiameters(const Diameters& d);

/// The reciprocal squares of the semi-axes of that conic.
struct AxisRoots {
    double spread;   ///< of the quadratic form: 0 for a circle
    double larger;   ///< of the smaller semi-axis
    double smaller;  ///< of the larger semi-axis
};

AxisRoots AxisRootsOf(const Diameters& d, const Conic& conic);

/// Determinants and roots down to here count as none.
inline constexpr double kDegenerate = 1e-38;

/// The semi-axis of a reciprocal square. False, with it untouched, where the square's root counts as none.
bool ComputeSemiAxis(double reciprocalSquare, double& semiAxis);

/// Divides the coefficients, of which the linear ones are 0, by the largest quadratic one.
void ScaleToLargest(Conic& conic);

/// Where the ray from the centre of @p conic towards (x, y), taken relative to it, meets the conic. False, with
/// @p out untouched, where it does not or the conic has no single centre.
bool IntersectRay(const Conic& conic, double x, double y, DblPt& out);

/// The ends of an arc of @p conic, relative to the centre: with @p full both the first diameter's end, otherwise
/// where the rays through @p startRay and @p endRay meet the conic, exchanged where the diameters turn clockwise. An
/// end whose ray meets nothing stays as it is.
void FindEnds(const Diameters& d, const Conic& conic, const DblPt& startRay, const DblPt& endRay, bool full,
              real_pt_t& start, real_pt_t& end);

/// @p conic in axes turned by the angle of the given cosine and sine.
Conic Rotated(const Conic& conic, double cosine, double sine);

/// An ellipse in the frame in which its semi-axes lie along the axes.
struct StandardForm {
    double cosine;  ///< of the frame's rotation
    double sine;
    DblPt center;  ///< in the frame
    double a;      ///< the semi-axis along the frame's x
    double b;

    /// Whether there is such an ellipse. Where there is none a or b is NaN or infinite.
    bool IsRealEllipse() const;
    /// @p p turned into the frame, relative to the centre.
    DblPt ToLocal(const DblPt& p) const;
    /// The way back.
    DblPt FromLocal(const DblPt& p) const;
};

/// Where the conic has no xy term the frame is not turned.
StandardForm StandardFormOf(const Conic& conic);

/// An arc of an ellipse in its standard form, counter-clockwise from a start.
struct StandardArc {
    DblPt start;   ///< (cos t, sin t) of the first end
    double sweep;  ///< in [0, 2 pi]

    /// Whether the arc holds the point of the given (cos t, sin t).
    bool Holds(const DblPt& parameter) const;
};

StandardArc StandardArcOf(const con_arc_str& arc, const StandardForm& form);

}  // namespace Vellum::internal

#endif
