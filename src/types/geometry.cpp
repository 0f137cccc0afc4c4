// SPDX-License-Identifier: MIT
#include "vellum/geometry.h"

#include <cfloat>
#include <cmath>
#include <numbers>

#include "types/trigonometry.h"

namespace Vellum {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * kPi;

constexpr double kDirectionZero = FLT_EPSILON;
constexpr double kDiscriminantZero = FLT_EPSILON;
constexpr double kProjectionZero = DBL_EPSILON;
constexpr double kSegmentLineTolerance = DBL_EPSILON;
constexpr double kSnapBand = 0.0001;

// A line with its ends in ascending order of x, then y.
struct OrderedLine {
    OrderedLine(const DblPt& a, const DblPt& b) {
        const bool swap = b.x < a.x || (b.x == a.x && b.y < a.y);
        lo = swap ? b : a;
        hi = swap ? a : b;
        dx = hi.x - lo.x;
        dy = hi.y - lo.y;
    }

    double YAt(double x) const { return (x - lo.x) / dx * dy + lo.y; }
    /// The x of the foot of the perpendicular from p, on a line that is not parallel to an axis.
    double FootX(const DblPt& p) const {
        return ((p.y - lo.y) * dy * dx + dx * dx * p.x + lo.x * (dy * dy)) / (dy * dy + dx * dx);
    }

    DblPt lo;
    DblPt hi;
    double dx;
    double dy;
};

double ClampToRange(double v, double low, double high) { return v > high ? high : low > v ? low : v; }

DblPt ClosestOnSegment(const DblPt& p, const OrderedLine& line) {
    if (line.dx == 0.0) return DblPt(line.lo.x, ClampToRange(p.y, line.lo.y, line.hi.y));
    if (line.dy == 0.0) return DblPt(ClampToRange(p.x, line.lo.x, line.hi.x), line.lo.y);
    const double x = line.FootX(p);
    if (line.lo.x > x) return line.lo;
    if (x > line.hi.x) return line.hi;
    return DblPt(x, line.YAt(x));
}

// Goes d in the direction from a to b: from a where that runs along an axis, otherwise from start.
bool StepAlong(const DblPt& a, const DblPt& b, double d, const DblPt& start, DblPt& out) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const bool noX = std::fabs(dx) < kDirectionZero;
    const bool noY = std::fabs(dy) < kDirectionZero;
    if (noX && noY) return false;
    if (noX) {
        out.Set(a.x, dy > 0.0 ? a.y + d : a.y - d);
    } else if (noY) {
        out.Set(dx > 0.0 ? a.x + d : a.x - d, a.y);
    } else {
        const double length = a.Dist(b);
        out.Set(start.x + d * dx / length, start.y + d * dy / length);
    }
    return true;
}

double Slope(const DblPt& a, const DblPt& b) { return (b.y - a.y) / (b.x - a.x); }

// Whether p lies between a and b, both widened by tol, on one axis.
bool InSpan(double p, double a, double b, double tol) {
    const double low = a < b ? a : b;
    const double high = a < b ? b : a;
    return p + tol >= low && high >= p - tol;
}

}  // namespace

double DistPtLine(const DblPt& p, const DblPt& a, const DblPt& b, DblPt& closest, bool exact) {
    const DblPt nearest = ClosestOnSegment(p, OrderedLine(a, b));
    const double dist = exact ? nearest.Dist(p) : nearest.ApproxDist(p);
    closest = nearest;
    return dist;
}

double DistPtLine(const DblPt& p, const DblPt& a, const DblPt& b, bool exact) {
    DblPt closest;
    return DistPtLine(p, a, b, closest, exact);
}

double DistPtPt(const DblPt& a, const DblPt& b) { return a.Dist(b); }

void PtLineIntercept(const DblPt& p, const DblPt& a, const DblPt& b, DblPt& out) {
    const OrderedLine line(a, b);
    if (std::fabs(line.dx) < kProjectionZero) {
        out.Set(line.lo.x, p.y);
    } else if (std::fabs(line.dy) < kProjectionZero) {
        out.Set(p.x, line.lo.y);
    } else {
        const double x = line.FootX(p);
        out.Set(x, line.YAt(x));
    }
}

bool PtAlongLine(const DblPt& a, const DblPt& b, double d, DblPt& out) { return StepAlong(a, b, d, a, out); }

bool ExtendLine(const DblPt& a, const DblPt& b, double d, DblPt& out) { return StepAlong(a, b, d, b, out); }

bool FindLineIntersect(const DblPt& p1, const DblPt& p2, const DblPt& q1, const DblPt& q2, double tol, DblPt& out) {
    const bool isQVertical = std::fabs(q1.x - q2.x) <= tol;
    if (std::fabs(p1.x - p2.x) <= tol) {
        if (isQVertical) return false;
        out.Set(p1.x, Slope(q1, q2) * (p1.x - q1.x) + q1.y);
        return true;
    }
    const double m1 = Slope(p1, p2);
    if (isQVertical) {
        out.Set(q1.x, m1 * (q1.x - p1.x) + p1.y);
        return true;
    }
    const double m2 = Slope(q1, q2);
    if (m1 == m2) return false;
    const double x = ((m1 * p1.x - p1.y) - (m2 * q1.x - q1.y)) / (m1 - m2);
    out.Set(x, (x - q1.x) * m2 + q1.y);
    return true;
}

bool FindSegIntersect(const DblPt& p1, const DblPt& p2, const DblPt& q1, const DblPt& q2, double tol, DblPt& out) {
    DblPt candidate;
    if (!FindLineIntersect(p1, p2, q1, q2, kSegmentLineTolerance, candidate)) return false;
    const bool onBoth = PointInBounds(candidate, p1, p2, tol) && PointInBounds(candidate, q1, q2, tol);
    out = candidate;
    return onBoth;
}

bool PointInBounds(const DblPt& p, const DblPt& a, const DblPt& b, double tol) {
    return InSpan(p.x, a.x, b.x, tol) && InSpan(p.y, a.y, b.y, tol);
}

bool FindLineCircleIntersect(const DblPt& centre, double radius, const DblPt& a, const DblPt& b, const DblPt& ref,
                             DblPt& out) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double qa = dx * dx + dy * dy;
    const double qb = 2.0 * ((a.x - centre.x) * dx + (a.y - centre.y) * dy);
    const double qc = centre.x * centre.x + centre.y * centre.y + a.x * a.x + a.y * a.y -
                      2.0 * (centre.x * a.x + centre.y * a.y) - radius * radius;
    const double disc = qb * qb - 4.0 * qa * qc;

    if (std::fabs(disc) < kDiscriminantZero) {
        const double t = qb / (2.0 * qa);
        out.Set(a.x - t * dx, a.y - t * dy);
        return true;
    }
    if (disc > kDiscriminantZero) {
        const double root = std::sqrt(disc);
        const double t1 = (root - qb) / (2.0 * qa);
        const double t2 = (-qb - root) / (2.0 * qa);
        const DblPt first(a.x + t1 * dx, a.y + t1 * dy);
        const DblPt second(a.x + t2 * dx, a.y + t2 * dy);
        out = second.Distsq(ref) > first.Distsq(ref) ? first : second;
        return true;
    }
    return false;
}

double GetAngleFromVector(DblPt& from, DblPt& to, double& dx, double& dy) {
    DblPt d(to.x - from.x, to.y - from.y);
    double angle = std::atan2(d.y, d.x);
    if (angle < 0.0) angle += kTwoPi;

    // The bands do not overlap, so no angle snaps twice.
    const auto snapTo = [&](double target, double& vanishing) {
        if (!(std::fabs(angle - target) < kSnapBand)) return;
        angle = target;
        vanishing = 0.0;
    };
    snapTo(0.0, d.y);
    snapTo(0.5 * kPi, d.x);
    snapTo(kPi, d.y);
    snapTo(1.5 * kPi, d.x);
    dx = d.x;
    dy = d.y;
    return angle;
}

double VectorAngle2D(double x1, double y1, double x2, double y2) {
    double angle = std::atan2(y2, x2) - std::atan2(y1, x1);
    while (angle > kPi) {
        angle -= kTwoPi;
    }
    while (angle < -kPi) {
        angle += kTwoPi;
    }
    return angle;
}

void LookupSinCos(int degrees, double* sinOut, double* cosOut) {
    constexpr int kTurn = 360;
    const int reduced = (degrees % kTurn + kTurn) % kTurn;
    const double radians = reduced * kPi / 180.0;
    *sinOut = internal::Sine(radians);
    *cosOut = internal::Cosine(radians);
}

}  // namespace Vellum
