// SPDX-License-Identifier: MIT
#ifndef VELLUM_GEOMETRY_H
#define VELLUM_GEOMETRY_H

/// @file
/// Free functions of plane geometry, the measuring units, and the two debugging outputs. All are re-entrant; none
/// throws. Angles are radians unless a name says degrees.
///
/// Three tolerances recur and are part of the results: the single-precision epsilon 2^-23 for directions, discriminants
/// and size factors, the double-precision epsilon 2^-52 for projections, and 0.0001 for angle snapping.

#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"

namespace Vellum {

/// @name Distances and projections
/// @{

/// The distance from @p p to the segment a-b.
/// @param closest receives the nearest point of the segment; for a == b that point.
/// @param exact   true for the Euclidean distance, false for the octagonal estimate of `DblPt::ApproxDist`.
/// A segment counts as vertical or horizontal only where it is so exactly.
VELLUM_API double DistPtLine(const DblPt& p, const DblPt& a, const DblPt& b, DblPt& closest, bool exact);
/// The same, for callers that need no closest point.
VELLUM_API double DistPtLine(const DblPt& p, const DblPt& a, const DblPt& b, bool exact);
/// The Euclidean distance.
VELLUM_API double DistPtPt(const DblPt& a, const DblPt& b);
/// The foot of the perpendicular from @p p on the infinite line through a and b.
VELLUM_API void PtLineIntercept(const DblPt& p, const DblPt& a, const DblPt& b, DblPt& out);
/// @}

/// @name Points on a line
/// Both return false, with @p out untouched, only where a and b coincide within 2^-23 on both axes. A line within 2^-23
/// of an axis is followed as if it ran along it.
/// @{

/// The point at distance @p d from a towards b.
VELLUM_API bool PtAlongLine(const DblPt& a, const DblPt& b, double d, DblPt& out);
/// Extends the line from a to b by @p d beyond b. Along an axis the distance counts from a instead; drawings made with
/// the library depend on it.
VELLUM_API bool ExtendLine(const DblPt& a, const DblPt& b, double d, DblPt& out);
/// @}

/// @name Intersections
/// @{

/// The intersection of the infinite lines p1-p2 and q1-q2. False, with @p out untouched, where both are vertical within
/// @p tol or their slopes are equal.
VELLUM_API bool FindLineIntersect(const DblPt& p1, const DblPt& p2, const DblPt& q1, const DblPt& q2, double tol,
                                  DblPt& out);
/// The intersection of two segments, within @p tol of their bounding boxes. Where the lines meet outside the segments
/// the result is false and @p out holds that point.
VELLUM_API bool FindSegIntersect(const DblPt& p1, const DblPt& p2, const DblPt& q1, const DblPt& q2, double tol,
                                 DblPt& out);
/// Whether @p p lies in the bounding box of a and b grown by @p tol; edges count as inside.
VELLUM_API bool PointInBounds(const DblPt& p, const DblPt& a, const DblPt& b, double tol);
/// The intersection of the infinite line a-b with a circle; of two the one nearer to @p ref (on a tie the one further
/// back along a-b). A discriminant within 2^-23 of zero makes the line a tangent; a == b is one too, at NaN. False
/// where the line misses the circle, and where the discriminant is exactly 2^-23; @p out is untouched then.
VELLUM_API bool FindLineCircleIntersect(const DblPt& centre, double radius, const DblPt& a, const DblPt& b,
                                        const DblPt& ref, DblPt& out);
/// @}

/// @name Angles
/// @{

/// The direction from @p from to @p to in [0, 2 pi), with the vector in @p dx and @p dy. Within 0.0001 of 0, pi/2, pi
/// and 3 pi/2 it snaps, and the component that ought to vanish becomes 0.0; just below 2 pi it does not snap. A
/// negative angle too small to tell in the sum with 2 pi gives 2 pi itself.
VELLUM_API double GetAngleFromVector(DblPt& from, DblPt& to, double& dx, double& dy);
/// The angle from the first vector to the second in [-pi, pi], counter-clockwise positive.
VELLUM_API double VectorAngle2D(double x1, double y1, double x2, double y2);
/// Sine and cosine of a whole number of degrees, negative or beyond a turn as well.
VELLUM_API void LookupSinCos(int degrees, double* sinOut, double* cosOut);
/// @}

/// @name Measuring units
/// @{

/// The measuring units. Several hold the factor 1.0 and convert one to one with inches, whatever their name; stored
/// drawings depend on it.
enum MeasuringUnit : int32_t {
    UnitNone = 0,
    UnitInch = 1,
    UnitMillimetre = 2,
    UnitUnnamed3 = 3,
    UnitFoot = 4,
    UnitMile = 5,
    UnitMetre = 6,
    UnitKilometre = 7,
    UnitMil = 8,
    UnitMicron = 9,
    UnitCentimetre = 10,
    UnitMicroinch = 11,
    UnitYard = 12,
    UnitAngstrom = 13,
    UnitNanometre = 14,
    UnitDecimetre = 15,
    UnitHectometre = 16,
    UnitGigametre = 17,
    UnitAstronomical = 18,
    UnitLightYear = 19,
    UnitParsec = 20,
    UnitTenThousandth = 21,
    UnitHundredThousandth = 22
};

/// Inches in @p unit; 0.0 for a unit above 22. Negative units are the caller's error.
VELLUM_API double InchesToUnits(double v, int unit);
/// @p v of @p unit in inches; 0.0 for a unit above 22. Negative units are the caller's error.
VELLUM_API double UnitsToInches(double v, int unit);
/// The abbreviation, static, in single bytes of Windows-1252; null for a unit that has none or is above 22.
VELLUM_API const char* UnitsAbbr(int unit);

/// The sizes that `MeasurementSizeFromFactor` tells apart.
namespace MeasurementSizeEnum {
enum MeasurementSize : int32_t {
    SizeNone = -2,    ///< the factor is not positive
    SizeCustom = -1,  ///< a positive factor that is none of the seven
    Size000625 = 0,
    Size00125 = 1,
    Size0025 = 2,
    Size005 = 3,
    Size0075 = 4,
    Size01 = 5,
    Size02 = 6
};
}  // namespace MeasurementSizeEnum

/// Which of 0.000625, 0.00125, 0.0025, 0.005, 0.0075, 0.01 and 0.02 the factor is, within 2^-23.
VELLUM_API MeasurementSizeEnum::MeasurementSize MeasurementSizeFromFactor(double f);
/// @}

/// @name Random and debugging
/// @{

/// A uniformly distributed integer in [lo, hi], cut to its low 8 bits; lo <= hi is the caller's duty. Nothing is kept
/// between calls.
VELLUM_API unsigned char RandColorComp(unsigned lo, unsigned hi);

/// Formats like printf and hands the text to the debugger output: on Windows to `OutputDebugStringA`, elsewhere to
/// `VellumDebugOutput`. At most 1,023 characters; a longer message is cut there.
#if defined(__MINGW32__) && !defined(__clang__)
[[gnu::format(gnu_printf, 1, 2)]]
#elif defined(__GNUC__)
[[gnu::format(printf, 1, 2)]]
#endif
VELLUM_API void
DbgPrintf(const char* fmt, ...);

/// Sounds the bell: on Windows the exclamation sound, elsewhere the controlling terminal's, if there is one.
VELLUM_API void DbgBeep();
/// @}

}  // namespace Vellum

#if !defined(_WIN32)
/// Receives every text of `DbgPrintf`. The library's own definition is weak: it writes to standard error where a
/// debugger traces the process and does nothing otherwise. A host that defines this function receives the texts
/// instead.
extern "C" VELLUM_API void VellumDebugOutput(const char* text);
#endif

#endif
