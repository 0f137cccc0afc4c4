// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_VIEW_H
#define VELLUM_SRC_PATHS_CLIP_VIEW_H

#include "paths/clip_kernels.h"
#include "vellum/records.h"
#include "vellum/rectangles.h"

namespace Vellum::internal {

/// One side of the clip rectangle, from a corner to the next, with its box. A NaN coordinate makes the box NaN on that
/// axis, so that no comparison with it holds.
struct ClipSide {
    double x;
    double y;
    double dx;
    double dy;
    double minX;
    double maxX;
    double minY;
    double maxY;
};

/// A set of places relative to the rectangle that points have in common: a bit each for the members of `ViewBits`.
using Places = unsigned;
inline constexpr Places kCore = 1;
inline constexpr Places kAboveAcross = 2;
inline constexpr Places kBelowAcross = 4;
inline constexpr Places kAboveAlong = 8;
inline constexpr Places kBelowAlong = 16;
inline constexpr Places kBeyond = kAboveAcross | kBelowAcross | kAboveAlong | kBelowAlong;

/// The clip rectangle, prepared for one call. Any four corners will do; the better they make a rectangle, the more of
/// what cannot meet them is skipped.
///
/// Why edges may be skipped though every pair of edge and side counts as computed, rounding and all. One linear measure
/// U across each pair of opposite sides tells for a point where it lies against both their lines.
///
/// - An edge S-S' meets the line of a side only if the side's function F changes its sign between S and S'; the edge
///   parameter is computed as F(S) / (F(S) - F(S')). With both ends on one side of the line by more than the rounding
///   of those terms, the computed parameter cannot fall into [0, 1]. Within both bands that holds for all four sides.
/// - Beyond a band it holds for that band's two sides. With each of the other two sides, an edge beyond could be taken
///   to meet it only where both are, but for rounding, on one line; then, since they are well apart along it, their
///   boxes are apart too, and such pairs are never tried. "Well apart" is why the outer limits lie further off than
///   rounding alone would ask for.
///
/// So no edge whose ends share a place, of those that `Places` names, has a crossing. For the same reasons the winding
/// of a polygon that is wholly beyond a band comes out as none, as long as products neither overflow nor vanish.
class ClipView {
public:
    explicit ClipView(const DblRect& clip);

    const ClipSide& Side(unsigned i) const { return sides_[i]; }

    /// How far from the centre the rectangle itself or a point within @p box can be; what rounding is in proportion to.
    double DistanceWithin(const Bounds& box) const;

    /// How far the corners are from the centre, on the worse axis.
    double Reach() const { return reach_; }

    /// The test of points no further than @p distance from the centre.
    ViewTest TestWithin(double distance) const;

    /// Whether @p p is on one of the sides as far as rounding can tell. NaN is.
    bool MayTouch(const real_pt_t& p) const;

    /// Whether a polygon beyond a band fails every test of containment. It does, unless products in the tests vanish:
    /// then such a polygon may be taken for one round the rectangle.
    bool IsSoundForWinding() const { return isSoundForWinding_; }

    /// The limits that some edge lies wholly left of, right of, below and above if it is wholly left of some side,
    /// right of some side, and so on. On x that is all it takes; on y such an edge must also be neither left nor right
    /// of the side.
    const EdgeLimits& Limits() const { return limits_; }

    /// The sum of corners over four.
    double CentreX() const { return centreX_; }
    double CentreY() const { return centreY_; }

    /// 1.0 where the corners run counter-clockwise and -1.0 where clockwise round a convex area; 0.0 for any other
    /// arrangement.
    double Orientation() const { return orientation_; }

private:
    struct Band {
        double dx;
        double dy;
        double inner;
        double outer;
        double length;          ///< of the longer side of the pair, as |dx| + |dy|
        double farForDistance;  ///< how great |U| may be for each unit of distance, for a point that must be no further
        double errorForDistance;  ///< how far off U may be for each unit of distance from the centre
    };

    Band MakeBand(const ClipSide& side, const ClipSide& opposite) const;
    BandTest TestOf(const Band& band, double distance) const;
    EdgeLimits FindLimits() const;
    void FindFarLimits();
    double FindOrientation() const;
    bool FindSoundness() const;

    ClipSide sides_[4];
    Band bands_[2];
    EdgeLimits limits_;
    double centreX_;
    double centreY_;
    double reach_;
    double orientation_;
    bool isSoundForWinding_;
};

}  // namespace Vellum::internal

#endif
