// SPDX-License-Identifier: MIT
#include <cfloat>
#include <cmath>
#include <numbers>
#include <utility>

#include "shapes/extents.h"
#include "types/trigonometry.h"
#include "vellum/circles.h"

namespace Vellum {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kLargestEmptySweep = FLT_MIN;
constexpr int kQuadrants = 4;

DblPt PointAt(const ArcGeom& arc, double angle) {
    return DblPt(arc.center.x + arc.radius * internal::Cosine(angle),
                 arc.center.y + arc.radius * internal::Sine(angle));
}

double AngleAbout(const DblPt& center, const DblPt& p) {
    const double angle = std::atan2(p.y - center.y, p.x - center.x);
    return angle < 0.0 ? angle + kTwoPi : angle;
}

// A tiny negative angle becomes 2 pi itself, which belongs to the last quadrant; so does what is no angle.
int QuadrantOf(double angle) {
    const double quarters = 2.0 * angle / kPi;
    return quarters < kQuadrants - 1 ? static_cast<int>(quarters) : kQuadrants - 1;
}

// Widens the box by the circle's extreme in the direction in which a quadrant begins.
void WidenToStartOf(int quadrant, const AlignedDblRect& circle, AlignedDblRect& box) {
    switch (quadrant) {
        case 0:
            if (box.ur.x < circle.ur.x) box.ur.x = circle.ur.x;
            break;
        case 1:
            if (box.ur.y < circle.ur.y) box.ur.y = circle.ur.y;
            break;
        case 2:
            if (circle.ll.x < box.ll.x) box.ll.x = circle.ll.x;
            break;
        default:
            if (circle.ll.y < box.ll.y) box.ll.y = circle.ll.y;
            break;
    }
}

// The box of the counter-clockwise arc between two points of a circle.
AlignedDblRect BoxBetween(const DblPt& from, const DblPt& to, const DblPt& center, const AlignedDblRect& circle) {
    if (from.IsExactly(center) || to.IsExactly(center)) return AlignedDblRect(center, center);
    const double fromAngle = AngleAbout(center, from);
    const double toAngle = AngleAbout(center, to);
    const int lastQuadrant = QuadrantOf(toAngle);
    int quadrant = QuadrantOf(fromAngle);
    if (quadrant == lastQuadrant && !(fromAngle < toAngle)) return circle;
    AlignedDblRect box(from, to);
    while (quadrant != lastQuadrant) {
        quadrant = (quadrant + 1) % kQuadrants;
        WidenToStartOf(quadrant, circle, box);
    }
    return box;
}

}  // namespace

double ArcGeom::StartAngle() const { return std::atan2(startVec.y - center.y, startVec.x - center.x); }

void ArcGeom::GetArcStartPoint(DblPt& p) const { p = PointAt(*this, StartAngle()); }

void ArcGeom::GetArcEndPoint(DblPt& p) const {
    p = PointAt(*this, angle <= kLargestEmptySweep ? StartAngle() : StartAngle() + angle);
}

void ArcGeom::GetExtents(AlignedDblRect& r) const {
    DblPt max;
    DblPt min;
    maxmin_arc(false, &max, &min);
    r.TSet(min, max);
}

double ArcGeom::LLX() const { return internal::ExtentsOf(*this).Left(); }

double ArcGeom::LLY() const { return internal::ExtentsOf(*this).Bottom(); }

double ArcGeom::URX() const { return internal::ExtentsOf(*this).Right(); }

double ArcGeom::URY() const { return internal::ExtentsOf(*this).Top(); }

void ArcGeom::maxmin_arc(bool reversed, DblPt* max, DblPt* min) const {
    DblPt from;
    DblPt to;
    GetArcStartPoint(from);
    GetArcEndPoint(to);
    if (reversed) std::swap(from, to);
    DblPt c = center;
    AlignedDblRect circle;
    maxmin_circle(&c, radius, &circle.ur, &circle.ll);
    const AlignedDblRect box = BoxBetween(from, to, center, circle);
    *max = box.ur;
    *min = box.ll;
}

void ArcGeom::maxmin_circle(DblPt* c, double r, DblPt* max, DblPt* min) const {
    const DblPt middle = *c;
    max->Set(middle.x + r, middle.y + r);
    min->Set(middle.x - r, middle.y - r);
}

}  // namespace Vellum
