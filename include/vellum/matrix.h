// SPDX-License-Identifier: MIT
#ifndef VELLUM_MATRIX_H
#define VELLUM_MATRIX_H

/// @file
/// `Mtx2D`, the affine transform from model to device (or other model) coordinates.

#include <cstdint>

#include "vellum/export.h"
#include "vellum/points.h"
#include "vellum/records.h"

namespace Vellum {

class AlignedDblRect;

/// What the linear part of a matrix looks like; the transforms of points choose their path by it.
enum Mtx2DType : int32_t {
    Mtx2DAxisAligned = 0,  ///< m12 and m21 are 0: scale and translation
    Mtx2DAxisSwapped = 1,  ///< m11 and m22 are 0: a quarter-turn, possibly mirrored and scaled
    Mtx2DGeneral = 2,      ///< anything else
    Mtx2DIdentity = 3      ///< a mark that only `Mtx2D::SetIdentity` sets; points take the general path
};

/// The eight orientations of `Mtx2D::Orient` and `Mtx2D::SetXfm`. Quarter-turns are counter-clockwise, y upwards.
enum Mtx2DOrient : int32_t {
    Mtx2DOrientNone = 0,
    Mtx2DOrientRot90 = 1,
    Mtx2DOrientRot180 = 2,
    Mtx2DOrientRot270 = 3,
    Mtx2DOrientMirrorX = 4,       ///< reflected in the X axis (y negated)
    Mtx2DOrientMirrorY = 5,       ///< reflected in the Y axis (x negated)
    Mtx2DOrientRot90MirrorY = 6,  ///< turned, then reflected in the Y axis
    Mtx2DOrientRot90MirrorX = 7   ///< turned, then reflected in the X axis
};

/// A 2-D affine transform of row vectors:
///
///                             | m11 m12 0 |
///     (x', y', 1) = (x, y, 1) | m21 m22 0 |      x' = x m11 + y m21 + dx
///                             | dx  dy  1 |      y' = x m12 + y m22 + dy
///
/// Below, A x B means: A is applied first, then B.
///
/// Beside its elements a matrix carries a record of the mirrorings applied to it and the class of its linear part.
/// `type` is what the transforms of points go by. `Scale`, `Translate`, `InvertYAxis`, `ReflectInX` and `ReflectInY`
/// leave it as it was; a host that sets elements itself calls `SetType` afterwards.
///
/// A matrix of scale k that turns a y-up model into a y-down device:
/// @code
///     Vellum::Mtx2D toDevice;
///     toDevice.SetXfm(0, 0, Vellum::Mtx2DOrientMirrorX, k, k, tx, ty);
/// @endcode
///
/// Nothing here reports an error: a singular matrix inverts to infinities and NaN. Angles are degrees, except in
/// `GetRotation` and `GetOrientation`, which give radians.
class VELLUM_API Mtx2D {
public:
    double m11;      ///< x' for each unit of x
    double m12;      ///< y' for each unit of x
    double m21;      ///< x' for each unit of y
    double m22;      ///< y' for each unit of y
    double dx;       ///< x translation
    double dy;       ///< y translation
    int32_t mirror;  ///< 1: reflected in the X axis, 2: in the Y axis; toggled by each reflection
    int32_t type;    ///< a `Mtx2DType`

    /// @name Construction and reset
    /// @{
    /// The identity, of type `Mtx2DAxisAligned`.
    VELLUM_INLINE Mtx2D()
        : m11(1.0), m12(0.0), m21(0.0), m22(1.0), dx(0.0), dy(0.0), mirror(0), type(Mtx2DAxisAligned) {}
    Mtx2D(const Mtx2D&) = default;
    /// As `SetXfm`.
    Mtx2D(double ox, double oy, Mtx2DOrient o, double sx, double sy, double tx, double ty);
    Mtx2D& operator=(const Mtx2D&) = default;
    ~Mtx2D() = default;

    /// Back to the state of a new matrix.
    VELLUM_INLINE void Identity() { *this = Mtx2D(); }
    /// The same as `Identity`.
    VELLUM_INLINE void Initialize() { *this = Mtx2D(); }
    /// Marks a matrix whose elements are exactly those of the identity as `Mtx2DIdentity`. It changes no element, and
    /// any other matrix not at all.
    void SetIdentity();
    /// Sets `type` from the elements: exact comparisons with zero, never `Mtx2DIdentity`.
    void SetType();
    /// @}

    /// @name Queries
    /// @{
    /// Whether `SetIdentity` marked the matrix; a mark outlives `Scale` and `Translate`.
    VELLUM_INLINE bool IsIdentity() const { return type == Mtx2DIdentity; }
    /// Whether axis-parallel rectangles map to axis-parallel ones, as far as `type` tells.
    VELLUM_INLINE bool IsAligned() const { return type != Mtx2DGeneral; }
    double GetDeterminant() const;
    bool ReversesOrientation();
    /// Whether any of the six elements differs; `mirror` and `type` do not count.
    bool operator!=(const Mtx2D& m) const;
    void GetElements(double* e11, double* e12, double* e21, double* e22, double* ex, double* ey);
    void GetTranslation(double& tx, double& ty) const;
    /// The length of the image of the unit x vector; a scale that differs on the two axes goes unnoticed.
    double GetScale() const;
    /// The angle of the image of the unit x vector in [0, pi], in radians: its sign is lost. NaN for a zero first row.
    double GetRotation() const;
    /// That angle in (-pi, pi], in radians, and the mirror record; -pi itself where m12 is a negative zero beside a
    /// negative m11.
    void GetOrientation(double* angle, int* mirrorRecord) const;
    /// Whether the matrix mirrors, and the rotation in degrees in [0, 360), which snaps to a multiple of 90 within 0.1.
    /// Where m12 is negative but too small beside m11 to turn anything, it is 360 itself.
    void GetXMirrorAndRotation(bool* mirrored, double* degrees) const;
    /// Whether the matrix mirrors, and the quarter-turn (0 to 3; every angle strictly between 0 and 180 degrees counts
    /// as 1, between 180 and 360 as 3; -1 for a zero first row) once a mirror in X is taken off its output side.
    /// A NaN in m12 counts as 3, and one in m11 as no direction where m12 is 0; elsewhere m12 alone decides.
    void GetOrientationAndXMirror(bool* mirrored, int* orient);
    /// The same once the mirror is taken off the input side: 1 and 3 trade places in a mirrored matrix.
    void GetXMirrorAndOrientation(bool* mirrored, int* orient) const;
    /// @}

    /// @name Building
    /// Each changes the matrix in place.
    /// @{
    /// this x translation.
    void Translate(double tx, double ty);
    /// this x scale.
    void Scale(double sx, double sy);
    /// Turns counter-clockwise (y upwards): with @p mode 1 before what the matrix does, with any other after it.
    /// 0, 90, 180 and 270 are exact, and so are 360, 450, 540 and 630, as one turn is taken off. All others come from
    /// the sine and cosine of the maths library, -90 and 720 too: those leave tiny residues and make the matrix a
    /// general one.
    void Rotate(double degrees, int mode);
    /// this x reflection in the X axis.
    void ReflectInX();
    /// this x reflection in the Y axis.
    void ReflectInY();
    /// Assigns m21: a shear already in the matrix is replaced, not compounded.
    void ShearInX(double s);
    /// Negates m22 and assigns dy: turns an axis-aligned y-up matrix into one for a y-down device of height @p h.
    void InvertYAxis(double h);
    /// this x orientation; a code that is none only classifies the matrix.
    void Orient(Mtx2DOrient o);
    /// Builds from nothing: (ox, oy) to the origin, orient, scale, the origin to (tx, ty).
    void SetXfm(double ox, double oy, Mtx2DOrient o, double sx, double sy, double tx, double ty);
    /// @}

    /// @name Composition
    /// The mirror records combine by exclusive or; the result is classified.
    /// @{
    /// this = this x m. @p m must not be this matrix.
    Mtx2D& Postmult(const Mtx2D& m);
    /// this = m x this. @p m may be this matrix.
    Mtx2D& Premult(const Mtx2D& m);
    /// r = a x b. @p r must be neither @p a nor @p b.
    static void Multiply(Mtx2D& a, const Mtx2D& b, Mtx2D& r);
    Mtx2D operator*(const Mtx2D& m);
    /// The inverse, with the same mirror record. A singular matrix gives infinities and NaN.
    Mtx2D Invert();
    /// @}

    /// @name Points
    /// Device outputs round half away from zero and are never clamped: what a 32-bit int cannot hold, NaN included,
    /// becomes -2147483648 (and so 0 in `XfmFPts` and `XfmSPts`, which keep the low bits alone). Arrays of @p n points
    /// are processed in order, and n <= 0 does nothing. Input and output arrays must not overlap, but for the member
    /// that works in place; a single point may be its own image.
    /// @{
    void RealXfmPt(const DblPt* in, real_pt_t* out);
    void RealXfmPt(const DblPt* in, DblPt* out);
    void RealXfmPt(DblPt& p) const;
    void RealXfmPt(const DblPt& in, DblPt& out) const;
    void XfmPt(double x, double y, double* outX, double* outY);
    void XfmPt(double x, double y, int& outX, int& outY);
    void XfmPt(const DblPt* in, int_pt_t* out);
    void XfmPt(const DblPt* in, IntPt* out);
    /// Applies the matrix as it stands to a device point: a host that wants to go back calls it on the inverse.
    void InvXfmPt(const IntPt* in, DblPt* out);

    void RealXfmPts(int n, const real_pt_t* in, DblPt* out);
    void RealXfmPts(int n, const DblPt* in, real_pt_t* out);
    void RealXfmPts(int n, const DblPt* in, DblPt* out) const;
    /// In place, with the extents of the result. No point, or none but NaN: the extents stay inverted, the minima at
    /// 3.4028234663852886e38 and the maxima at -3.4028234663852886e38. NaN never enters them.
    void RealXfmPtsExt(int n, DblPt* pts, double& xMin, double& yMin, double& xMax, double& yMax) const;
    void XfmPts(int n, const DblPt* in, int_pt_t* out);
    void XfmPts(int n, const DblPt* in, IntPt* out);
    /// In eighths of a device unit, for consumers of fixed-point coordinates. The point is rounded to whole units
    /// first, so the three fraction bits are always zero. The product wraps in 32 bits.
    void XfmFPts(int n, const DblPt* in, int_pt_t* out);
    void XfmFPts(int n, const DblPt* in, IntPt* out);
    /// Rounded to 32 bits, of which the low 16 are stored: values wrap.
    void XfmSPts(int n, const DblPt* in, short_pt_t* out);
    /// @}

    /// @name Polygons
    /// As above, dropping every point that equals the one kept before it, across polygon boundaries within a set too. A
    /// result of exactly three points whose third equals the first is cut to two. Nothing is written past the output
    /// count, which is 0 for an input count of 0 or less. The output arrays must have room for as many points as the
    /// input has.
    /// @{
    void XfmPolyPts(int n, int* outCount, const DblPt* in, int_pt_t* out);
    void XfmPolyPts(int n, int* outCount, const DblPt* in, IntPt* out);
    /// The codes are written only by a matrix of type `Mtx2DAxisAligned`; with any other the output's stay as they are.
    /// A point carries the code of the last input point merged into it. To keep the codes under any matrix, and
    /// polygons apart where they touch, transform polygon by polygon.
    void XfmPolySetPts(const DrwPSetT* in, DrwDPSetT* out);
    /// Merges by exact equality and always writes the codes.
    void RealXfmPolyPtSet(const DrwPSetT* in, DrwPSetT* out);
    /// @}

    /// @name Rectangles
    /// A rectangle may be its own image.
    /// @{
    /// The bounding box of the four transformed corners, written lower-left, upper-left, upper-right, lower-right.
    /// A NaN in the image of the first corner stays in both bounds of its axis; one in any other is passed over.
    void XfmRect(const int_rect_t* in, real_rect_t* out);
    void XfmRect(const real_rect_t* in, real_rect_t* out);
    /// The same with each bound rounded to the device.
    void XfmRect(const real_rect_t* in, int_rect_t* out);
    /// The box between the images of the lower-left and the upper-right corner: exact under an aligned matrix, and
    /// under a general one deliberately not the bounding box of the turned rectangle.
    void XfmRect(AlignedDblRect& r) const;
    void XfmRect(const AlignedDblRect& in, AlignedDblRect& out) const;
    /// @}
};

}  // namespace Vellum

#endif
