// SPDX-License-Identifier: MIT
#include "paths/clip_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace Vellum::internal {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// The terms of a side's function carry at most some ten roundings of a unit in the last place; this leaves ample room.
constexpr double kRoundingShare = 256.0 * 0x1p-53;

// How far beyond a band a point must be, in the same terms, for its edges to be well apart from the sides.
constexpr double kApartShare = 0x1p-20;

// Stands in for the relative error where products come near the smallest doubles.
constexpr double kLeastMargin = 1e-300;

// How near to parallel the bands may be, relative to their lengths, for the measures to tell a distance within a factor
// of two.
constexpr double kLeastDeterminant = 0x1p-40;

// Beyond this products of two distances could overflow.
constexpr double kGreatestDistance = 1e150;

// With a rectangle of at least this size, and corners at least this far from y = 0 (so that nothing can be nearer to
// their height than a unit in the last place), the products in a winding test cannot vanish.
constexpr double kLeastReach = 1e-80;
constexpr double kLeastHeight = 1e-200;

double LesserOrNan(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNan : std::min(a, b); }
double GreaterOrNan(double a, double b) { return std::isnan(a) || std::isnan(b) ? kNan : std::max(a, b); }

ClipSide MakeSide(const DblPt& from, const DblPt& to) {
    return {from.x,
            from.y,
            to.x - from.x,
            to.y - from.y,
            LesserOrNan(from.x, to.x),
            GreaterOrNan(from.x, to.x),
            LesserOrNan(from.y, to.y),
            GreaterOrNan(from.y, to.y)};
}

double DistanceFrom(double centre, double a, double b) {
    return std::max(std::fabs(a - centre), std::fabs(b - centre));
}

}  // namespace

ClipView::ClipView(const DblRect& clip) {
    for (unsigned i = 0; i < 4; ++i)
        sides_[i] = MakeSide(clip.GetPt(i), clip.GetPt((i + 1) % 4));
    limits_ = FindLimits();
    centreX_ = (clip.p0.x + clip.p1.x + clip.p2.x + clip.p3.x) * 0.25;
    centreY_ = (clip.p0.y + clip.p1.y + clip.p2.y + clip.p3.y) * 0.25;
    reach_ = 0.0;
    for (unsigned i = 0; i < 4; ++i) {
        const DblPt& p = clip.GetPt(i);
        reach_ = std::max({reach_, std::fabs(p.x - centreX_), std::fabs(p.y - centreY_)});
    }
    bands_[0] = MakeBand(sides_[0], sides_[2]);
    bands_[1] = MakeBand(sides_[1], sides_[3]);
    FindFarLimits();
    orientation_ = FindOrientation();
    isSoundForWinding_ = FindSoundness();
}

EdgeLimits ClipView::FindLimits() const {
    EdgeLimits limits{kNan, kNan, kNan, kNan};
    for (const ClipSide& side : sides_) {
        limits.left = std::fmax(limits.left, side.minX);
        limits.right = std::fmin(limits.right, side.maxX);
        limits.below = std::fmax(limits.below, side.minY);
        limits.above = std::fmin(limits.above, side.maxY);
    }
    return limits;
}

/// A point is found from its two measures unless the bands all but coincide; then every point counts as far.
void ClipView::FindFarLimits() {
    Band& a = bands_[0];
    Band& b = bands_[1];
    const double determinant = std::fabs(a.dx * b.dy - a.dy * b.dx);
    if (!(determinant > kLeastDeterminant * a.length * b.length)) return;
    a.farForDistance = 0.25 * determinant / std::max(std::fabs(b.dx), std::fabs(b.dy));
    b.farForDistance = 0.25 * determinant / std::max(std::fabs(a.dx), std::fabs(a.dy));
}

/// Along sides that are parallel to the axes the windings are exactly what they ought to be, whatever the products.
bool ClipView::FindSoundness() const {
    const auto isAligned = [](const ClipSide& side) { return side.dx == 0.0 || side.dy == 0.0; };
    if (std::all_of(std::begin(sides_), std::end(sides_), isAligned)) return true;
    const auto isHigh = [](const ClipSide& side) { return std::fabs(side.y) > kLeastHeight; };
    return reach_ > kLeastReach && std::all_of(std::begin(sides_), std::end(sides_), isHigh);
}

ClipView::Band ClipView::MakeBand(const ClipSide& side, const ClipSide& opposite) const {
    const auto atCentre = [&](const ClipSide& s) {
        return std::fabs((centreY_ - s.y) * s.dx - (centreX_ - s.x) * s.dy);
    };
    const double near = atCentre(side);
    const double far = atCentre(opposite);
    const double length =
        std::max(std::fabs(side.dx) + std::fabs(side.dy), std::fabs(opposite.dx) + std::fabs(opposite.dy));
    const double difference = std::fabs(side.dx + opposite.dx) + std::fabs(side.dy + opposite.dy);
    Band band;
    band.dx = side.dx;
    band.dy = side.dy;
    band.inner = std::min(near, far);
    band.outer = std::max(near, far);
    band.length = length;
    band.farForDistance = -1.0;
    band.errorForDistance = kRoundingShare * length + 2.0 * difference;
    return band;
}

double ClipView::FindOrientation() const {
    bool left = false;
    bool right = false;
    double turning = 0.0;
    for (unsigned i = 0; i < 4; ++i) {
        const ClipSide& a = sides_[i];
        const ClipSide& b = sides_[(i + 1) % 4];
        const double turn = a.dx * b.dy - a.dy * b.dx;
        if (!std::isfinite(turn)) return 0.0;
        left = left || turn > 0.0;
        right = right || turn < 0.0;
        turning += turn;
    }
    if (left == right) return 0.0;
    return turning > 0.0 ? 1.0 : -1.0;
}

double ClipView::DistanceWithin(const Bounds& box) const {
    return std::max(DistanceFrom(centreX_, box.minX, box.maxX), DistanceFrom(centreY_, box.minY, box.maxY)) + reach_;
}

ViewTest ClipView::TestWithin(double distance) const {
    return {centreX_, centreY_, TestOf(bands_[0], distance), TestOf(bands_[1], distance)};
}

bool ClipView::MayTouch(const real_pt_t& p) const {
    const double distance = std::max(std::fabs(p.x - centreX_), std::fabs(p.y - centreY_)) + reach_;
    bool isOnLine = false;
    for (const Band& band : bands_) {
        const double size = std::fabs((p.y - centreY_) * band.dx - (p.x - centreX_) * band.dy);
        const double margin = distance * band.errorForDistance + kLeastMargin;
        if (size > band.outer + margin) return false;
        isOnLine = isOnLine || !(size < band.inner - margin);
    }
    return isOnLine;
}

BandTest ClipView::TestOf(const Band& band, double distance) const {
    BandTest test{band.dx, band.dy, kNan, kNan, (distance - reach_) * band.farForDistance};
    if (distance < kGreatestDistance) {
        const double margin = distance * band.errorForDistance + kLeastMargin;
        test.inner = band.inner - margin;
        test.outer = band.outer + margin + distance * band.length * kApartShare;
    }
    return test;
}

}  // namespace Vellum::internal
