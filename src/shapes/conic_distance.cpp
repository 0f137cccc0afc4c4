// SPDX-License-Identifier: MIT
#include "shapes/conic_distance.h"

#include <algorithm>
#include <cmath>

#include "shapes/conics.h"

namespace Vellum::internal {
namespace {

// From here on the ellipse is smaller than the rounding of the distance.
constexpr double kFar = 0x1p60;
// Below this a product has lost digits to underflow, and what it would move is far below any rounding.
constexpr double kNothing = 1e-290;
// Some fifty is the most that any point takes.
constexpr int kMostSteps = 100;

/// What the feet hang on, in units of the longer semi-axis. No member is negative.
///
/// At a foot the vector to the point is a multiple of the outward normal (cos t, sin t / ratio). With that multiple
/// and the square of the ratio added up as the unknown m, this says
///
///     cos t = along / (m + flatness),  sin t = across / m,
///
/// and what is left to solve is cos^2 t + sin^2 t = 1. Nothing cancels in it: a rounding moves the foot no further
/// than one of the ratio or of the point would. The nearest foot is the only root with m > 0, on the point's own
/// side of both axes. Of the roots with m < 0, whose feet are across the longer axis, the one with the smallest -m
/// is the other local minimum.
struct FootEquation {
    double along;     ///< the point's distance from the shorter axis
    double across;    ///< the ratio of the axes times the point's distance from the longer axis
    double flatness;  ///< 1 less the square of the ratio
};

// Where m is 0.
DblPt FootOfPointOnLongerAxis(const FootEquation& e) {
    const double cosine = e.along < e.flatness ? e.along / e.flatness : 1.0;
    return DblPt(cosine, std::sqrt((1.0 - cosine) * (1.0 + cosine)));
}

// The sum of the squares falls with m and is convex, so Newton's steps from below the root never pass it.
DblPt NearestFoot(const FootEquation& e) {
    if (e.across < kNothing) return FootOfPointOnLongerAxis(e);
    double m = std::max(e.across, e.along - e.flatness);
    DblPt foot;
    for (int step = 0; step < kMostSteps; ++step) {
        foot.Set(e.along / (m + e.flatness), e.across / m);
        const double excess = foot.x * foot.x + foot.y * foot.y - 1.0;
        const double fall = 2.0 * (foot.x * foot.x * (m / (m + e.flatness)) + foot.y * foot.y);
        const double next = m + m * (excess / fall);
        if (!(next > m)) break;
        m = next;
    }
    return foot;
}

// As above with -m for m, up to where the sum begins to rise.
bool FindOppositeFoot(const FootEquation& e, DblPt& foot) {
    if (!(e.along < e.flatness && e.across < e.flatness)) return false;
    if (e.across < kNothing) {
        foot = FootOfPointOnLongerAxis(e);
        return true;
    }
    double m = e.across;
    for (int step = 0; step < kMostSteps; ++step) {
        foot.Set(e.along / (e.flatness - m), e.across / m);
        const double excess = foot.x * foot.x + foot.y * foot.y - 1.0;
        const double fall = 2.0 * (foot.y * foot.y - foot.x * foot.x * (m / (e.flatness - m)));
        const double next = m + m * (excess / fall);
        if (!(fall > 0.0 && next < e.flatness)) return false;
        if (!(next > m)) break;
        m = next;
    }
    return true;
}

double DistToEnds(const DblPt& p, const con_arc_str& arc) {
    const double toStart = Length(p.x - arc.start.x, p.y - arc.start.y);
    const double toEnd = Length(p.x - arc.end.x, p.y - arc.end.y);
    return toEnd < toStart ? toEnd : toStart;
}

double DistToFoot(const DblPt& local, const StandardForm& form, const DblPt& foot) {
    return Length(local.x - form.a * foot.x, local.y - form.b * foot.y);
}

}  // namespace

FootPoints FindFootPoints(double a, double b, const DblPt& p) {
    const bool isUpright = b > a;
    const double longer = isUpright ? b : a;
    const double ratio = (isUpright ? a : b) / longer;
    const double x = (isUpright ? p.y : p.x) / longer;
    const double y = (isUpright ? p.x : p.y) / longer;
    const FootEquation equation = {std::fabs(x), ratio * std::fabs(y), (1.0 - ratio) * (1.0 + ratio)};

    const auto place = [&](DblPt foot, double side) {
        Normalize(foot);
        const double alongLonger = x < 0.0 ? -foot.x : foot.x;
        const double alongShorter = y < 0.0 ? -side * foot.y : side * foot.y;
        return isUpright ? DblPt(alongShorter, alongLonger) : DblPt(alongLonger, alongShorter);
    };
    FootPoints feet;
    DblPt opposite;
    feet.nearest = place(NearestFoot(equation), 1.0);
    feet.hasOpposite = FindOppositeFoot(equation, opposite);
    if (feet.hasOpposite) feet.opposite = place(opposite, -1.0);
    return feet;
}

double DistToConicArc(const DblPt& p, const con_arc_str& arc) {
    if (!std::isfinite(p.x) || !std::isfinite(p.y)) return Length(p.x, p.y);
    const StandardForm form = StandardFormOf(ConicOf(arc));
    if (!form.IsRealEllipse()) return DistToEnds(p, arc);
    const bool isClosed = arc.closed != 0;
    const DblPt local = form.ToLocal(p);
    if (std::max(std::fabs(local.x), std::fabs(local.y)) > kFar * std::max(form.a, form.b))
        return isClosed ? Length(local.x, local.y) : DistToEnds(p, arc);

    const FootPoints feet = FindFootPoints(form.a, form.b, local);
    if (isClosed) return DistToFoot(local, form, feet.nearest);
    const StandardArc span = StandardArcOf(arc, form);
    double dist = DistToEnds(p, arc);
    if (span.Holds(feet.nearest)) dist = std::min(dist, DistToFoot(local, form, feet.nearest));
    if (feet.hasOpposite && span.Holds(feet.opposite)) dist = std::min(dist, DistToFoot(local, form, feet.opposite));
    return dist;
}

}  // namespace Vellum::internal
