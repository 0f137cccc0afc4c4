// SPDX-License-Identifier: MIT
#ifndef VELLUM_POINTS_H
#define VELLUM_POINTS_H

/// @file
/// Points: `DblPt` in model coordinates (y grows upwards) and `IntPt` in device units.
///
/// Which distance to use: `ApproxDist` in hot loops such as picking and nearest searches (no square root, at most about
/// 4 % off), `Distsq` to compare distances exactly, `Dist` for the true length.

#include <cmath>
#include <cstdint>

#include "vellum/export.h"
#include "vellum/records.h"
#include "vellum/rounding.h"

namespace Vellum {

/// A point in model coordinates. Two doubles and nothing else: arrays of `DblPt` and of `real_pt_t` are
/// interchangeable.
///
/// NaN coordinates make every comparison false and every distance NaN.
class VELLUM_API DblPt {
public:
    double x;
    double y;

    /// @name Construction and assignment
    /// @{
    VELLUM_INLINE DblPt() : x(0.0), y(0.0) {}
    VELLUM_INLINE DblPt(double px, double py) : x(px), y(py) {}
    DblPt(const DblPt&) = default;
    DblPt& operator=(const DblPt&) = default;
    VELLUM_INLINE DblPt& operator=(const real_pt_t& p) {
        x = p.x;
        y = p.y;
        return *this;
    }
    ~DblPt() = default;

    VELLUM_INLINE void Set(const DblPt& p) { *this = p; }
    VELLUM_INLINE void Set(double px, double py) {
        x = px;
        y = py;
    }
    VELLUM_INLINE void ToRealPtT(real_pt_t& out) {
        out.x = x;
        out.y = y;
    }
    /// @}

    /// @name Arithmetic in place
    /// @{
    VELLUM_INLINE DblPt& operator+=(const DblPt& p) {
        x += p.x;
        y += p.y;
        return *this;
    }
    VELLUM_INLINE DblPt& operator-=(const DblPt& p) {
        x -= p.x;
        y -= p.y;
        return *this;
    }
    /// Adds @p d to both coordinates.
    VELLUM_INLINE DblPt& operator+=(double d) {
        x += d;
        y += d;
        return *this;
    }
    /// Subtracts @p d from both coordinates.
    VELLUM_INLINE DblPt& operator-=(double d) {
        x -= d;
        y -= d;
        return *this;
    }
    VELLUM_INLINE void DeltaX(double d) { x += d; }
    VELLUM_INLINE void DeltaY(double d) { y += d; }
    /// @}

    /// @name Dominance
    /// A relation holds only where it holds on both axes. This is a partial order, not a lexicographic one: (0,5) and
    /// (1,0) are neither < nor > each other. Hosts rely on it as a box test; it must not be used to sort.
    /// @{
    VELLUM_INLINE bool operator<(const DblPt& p) const { return p.x > x && p.y > y; }
    VELLUM_INLINE bool operator<=(const DblPt& p) const { return p.x >= x && p.y >= y; }
    VELLUM_INLINE bool operator>(const DblPt& p) const { return x > p.x && y > p.y; }
    VELLUM_INLINE bool operator>=(const DblPt& p) const { return x >= p.x && y >= p.y; }
    /// @}

    /// @name Equality
    /// There is no `operator==`: a host says which equality it means.
    /// @{
    VELLUM_INLINE bool IsExactly(const DblPt& p) const { return x == p.x && y == p.y; }
    /// Strict on each axis: a difference equal to @p tol is not equal, and a tolerance of 0.0 never matches.
    VELLUM_INLINE bool IsEqualTo(const DblPt& p, double tol) const { return IsEqualTo(p.x, p.y, tol); }
    VELLUM_INLINE bool IsEqualTo(double px, double py, double tol) const {
        return tol > std::fabs(x - px) && tol > std::fabs(y - py);
    }
    /// @}

    /// @name Distances
    /// @{
    VELLUM_INLINE double Dist(const DblPt& p) const { return std::sqrt(Distsq(p)); }
    VELLUM_INLINE double Distsq(const DblPt& p) const {
        const double deltaX = x - p.x;
        const double deltaY = y - p.y;
        return internal::Rounded(deltaX * deltaX) + internal::Rounded(deltaY * deltaY);
    }
    VELLUM_INLINE double XDist(const DblPt& p) const { return std::fabs(x - p.x); }
    VELLUM_INLINE double YDist(const DblPt& p) const { return std::fabs(y - p.y); }
    /// The octagonal estimate 0.96 max(|dx|, |dy|) + 0.398 min(|dx|, |dy|).
    VELLUM_INLINE double ApproxDist(const DblPt& p) const { return ApproxDist(p.x, p.y); }
    VELLUM_INLINE double ApproxDist(double px, double py) const {
        const double a = std::fabs(x - px);
        const double b = std::fabs(y - py);
        return a > b ? internal::Rounded(0.96 * a) + internal::Rounded(0.398 * b)
                     : internal::Rounded(0.96 * b) + internal::Rounded(0.398 * a);
    }
    /// The distance from this point to the segment a-b, as `DistPtLine` measures it.
    /// @param closest receives the point of the segment that is nearest to this one.
    /// @param exact   true for the Euclidean distance, false for the octagonal estimate.
    double DistToLine(const DblPt& a, const DblPt& b, DblPt& closest, bool exact) const;
    /// @}

    /// @name Position
    /// Strict: a tie is neither above nor below, neither left nor right.
    /// @{
    VELLUM_INLINE bool isAbove(const DblPt& p) const { return y > p.y; }
    VELLUM_INLINE bool isBelow(const DblPt& p) const { return p.y > y; }
    VELLUM_INLINE bool isLeftOf(const DblPt& p) const { return p.x > x; }
    VELLUM_INLINE bool isRightOf(const DblPt& p) const { return x > p.x; }
    /// True where this point lies strictly left of the directed line from @p a to @p b (y upwards).
    VELLUM_INLINE bool isLeftOfLine(const DblPt& a, const DblPt& b) const {
        return internal::Rounded((y - a.y) * (b.x - a.x)) - internal::Rounded((b.y - a.y) * (x - a.x)) > 0.0;
    }
    /// The same test for a loose point.
    VELLUM_INLINE static bool isLeftOfLine(const DblPt& a, const DblPt& b, double px, double py) {
        return internal::Rounded((b.x - a.x) * (py - a.y)) - internal::Rounded((b.y - a.y) * (px - a.x)) > 0.0;
    }
    /// @}

    /// @name Selection
    /// The one of two points that lies furthest to the named side; on a tie the argument.
    /// @{
    VELLUM_INLINE DblPt& Above(DblPt& p) { return y > p.y ? *this : p; }
    VELLUM_INLINE const DblPt& Above(const DblPt& p) const { return y > p.y ? *this : p; }
    VELLUM_INLINE DblPt& Below(DblPt& p) { return p.y > y ? *this : p; }
    VELLUM_INLINE const DblPt& Below(const DblPt& p) const { return p.y > y ? *this : p; }
    VELLUM_INLINE DblPt& LeftOf(DblPt& p) { return p.x > x ? *this : p; }
    VELLUM_INLINE const DblPt& LeftOf(const DblPt& p) const { return p.x > x ? *this : p; }
    VELLUM_INLINE DblPt& RightOf(DblPt& p) { return x > p.x ? *this : p; }
    VELLUM_INLINE const DblPt& RightOf(const DblPt& p) const { return x > p.x ? *this : p; }
    /// @}
};

/// A device point: two signed 32-bit ints, the layout of `int_pt_t`.
class VELLUM_API IntPt {
public:
    int32_t x;
    int32_t y;

    VELLUM_INLINE IntPt() : x(0), y(0) {}
    VELLUM_INLINE IntPt(int px, int py) : x(px), y(py) {}
    IntPt(const IntPt&) = default;
    IntPt& operator=(const IntPt&) = default;
    ~IntPt() = default;

    VELLUM_INLINE void Set(int px, int py) {
        x = px;
        y = py;
    }

    VELLUM_INLINE bool operator==(const IntPt& p) const { return x == p.x && y == p.y; }

    /// @name Dominance against a model point, as `DblPt` has it
    /// @{
    VELLUM_INLINE bool operator<(const DblPt& p) const { return p.x > double(x) && p.y > double(y); }
    VELLUM_INLINE bool operator<=(const DblPt& p) const { return p.x >= double(x) && p.y >= double(y); }
    VELLUM_INLINE bool operator>(const DblPt& p) const { return double(x) > p.x && double(y) > p.y; }
    VELLUM_INLINE bool operator>=(const DblPt& p) const { return double(x) >= p.x && double(y) >= p.y; }
    /// @}
};

}  // namespace Vellum

#endif
