// SPDX-License-Identifier: MIT
#include "shapes/conics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "types/multiply_add.h"

namespace Vellum::internal {
namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

/// The exponent of a number; 0 for what has none.
int ExponentOf(double v) { return v == 0.0 || !std::isfinite(v) ? 0 : std::ilogb(v); }

/// p q - r s, exact but for two roundings, where the plain formula cancels.
double DifferenceOfProducts(double p, double q, double r, double s) {
    const double product = r * s;
    const double lost = MultiplyAdd(-r, s, product);
    return MultiplyAdd(p, q, -product) + lost;
}

/// How far from the centre a conic is in a direction: sqrt(-constant / coefficient), also where the quotient leaves
/// the range of numbers. NaN where the quotient is not positive.
double ReachOf(double constant, double coefficient) {
    const bool isPositive = constant < 0.0 ? coefficient > 0.0 : constant > 0.0 && coefficient < 0.0;
    if (!isPositive) return std::numeric_limits<double>::quiet_NaN();
    const double squared = -constant / coefficient;
    if (std::isnormal(squared)) return std::sqrt(squared);
    return std::sqrt(std::fabs(constant)) / std::sqrt(std::fabs(coefficient));
}

/// The quadratic coefficients over 2^exponent, so that their products stay in range.
struct QuadraticPart {
    explicit QuadraticPart(const Conic& conic)
        : exponent(ExponentOf(std::max({std::fabs(conic.xx), std::fabs(conic.xy), std::fabs(conic.yy)}))),
          xx(std::scalbn(conic.xx, -exponent)),
          xy(std::scalbn(conic.xy, -exponent)),
          yy(std::scalbn(conic.yy, -exponent)) {}

    double Determinant() const { return DifferenceOfProducts(xx, yy, xy / 2.0, xy / 2.0); }

    int exponent;
    double xx;
    double xy;
    double yy;
};

/// The centre; no finite point where there is no single one.
DblPt CenterOf(const Conic& conic) {
    if (conic.xy == 0.0) return DblPt(-conic.x / 2.0 / conic.xx, -conic.y / 2.0 / conic.yy);
    const QuadraticPart q(conic);
    const double det = 2.0 * q.Determinant();
    return DblPt(std::scalbn(DifferenceOfProducts(q.xy / 2.0, conic.y, q.yy, conic.x) / det, -q.exponent),
                 std::scalbn(DifferenceOfProducts(q.xy / 2.0, conic.x, q.xx, conic.y) / det, -q.exponent));
}

/// The value of the conic's polynomial at its centre.
double ConstantAt(const DblPt& center, const Conic& conic) {
    return conic.constant + (conic.x * center.x + conic.y * center.y) / 2.0;
}

/// Finds the rotation that frees the quadratic form of its xy term, and the two coefficients that are left.
void TurnToAxes(const QuadraticPart& q, StandardForm& form, double& alongX, double& alongY) {
    // Half the angle whose cosine and sine are in the ratio of xx - yy to xy, from the one of its two that does not
    // cancel.
    DblPt twice(q.xx - q.yy, q.xy);
    const double spread = Length(twice.x, twice.y);
    Normalize(twice);
    if (twice.x >= 0.0) {
        form.cosine = std::sqrt((1.0 + twice.x) / 2.0);
        form.sine = twice.y / (2.0 * form.cosine);
    } else {
        form.sine = std::copysign(std::sqrt((1.0 - twice.x) / 2.0), twice.y);
        form.cosine = twice.y / (2.0 * form.sine);
    }
    // The smaller of the two coefficients would cancel; the determinant gives it in full.
    const double trace = q.xx + q.yy;
    const double larger = (trace >= 0.0 ? trace + spread : trace - spread) / 2.0;
    const double smaller = q.Determinant() / larger;
    alongX = std::scalbn(trace >= 0.0 ? larger : smaller, q.exponent);
    alongY = std::scalbn(trace >= 0.0 ? smaller : larger, q.exponent);
}

/// The angle from one vector to another, counter-clockwise in [0, 2 pi]. A negative zero is all but a whole turn.
double TurnOf(double cross, double dot) {
    const double turn = std::atan2(cross, dot);
    return std::signbit(turn) ? turn + kTwoPi : turn;
}

}  // namespace

double Length(double x, double y) {
    const int exponent = ExponentOf(std::max(std::fabs(x), std::fabs(y)));
    const double scaledX = std::scalbn(x, -exponent);
    const double scaledY = std::scalbn(y, -exponent);
    return std::scalbn(std::sqrt(scaledX * scaledX + scaledY * scaledY), exponent);
}

bool Normalize(DblPt& v) {
    if (!std::isfinite(v.x) || !std::isfinite(v.y)) return false;
    if (v.x == 0.0 && v.y == 0.0) return false;
    const int exponent = ExponentOf(std::max(std::fabs(v.x), std::fabs(v.y)));
    const DblPt scaled(std::scalbn(v.x, -exponent), std::scalbn(v.y, -exponent));
    const double length = std::sqrt(scaled.x * scaled.x + scaled.y * scaled.y);
    v.Set(scaled.x / length, scaled.y / length);
    return true;
}

Diameters DiametersOf(const DblPt& center, const DblPt& end1, const DblPt& end2) {
    const DblPt u(end1.x - center.x, end1.y - center.y);
    const DblPt v(end2.x - center.x, end2.y - center.y);
    return {u, v, v.y * u.x - v.x * u.y};
}

Conic ConicOfDiameters(const Diameters& d) {
    return {d.v.y * d.v.y + d.u.y * d.u.y,
            -2.0 * (d.v.y * d.v.x + d.u.y * d.u.x),
            d.v.x * d.v.x + d.u.x * d.u.x,
            0.0,
            0.0,
            -(d.det * d.det)};
}

AxisRoots AxisRootsOf(const Diameters& d, const Conic& conic) {
    const double difference = conic.yy - conic.xx;
    const double spread = std::sqrt(difference * difference + conic.xy * conic.xy);
    const double mean = (conic.xx + conic.yy) / 2.0;
    const double half = spread / 2.0;
    const double detSquared = d.det * d.det;
    return {spread, (mean + half) / detSquared, (mean - half) / detSquared};
}

bool ComputeSemiAxis(double reciprocalSquare, double& semiAxis) {
    const double root = std::sqrt(reciprocalSquare);
    if (!(root > kDegenerate)) return false;
    semiAxis = 1.0 / root;
    return true;
}

void ScaleToLargest(Conic& conic) {
    const double largest = std::max({std::fabs(conic.xx), std::fabs(conic.xy), std::fabs(conic.yy)});
    conic.xx /= largest;
    conic.xy /= largest;
    conic.yy /= largest;
    conic.constant /= largest;
}

bool IntersectRay(const Conic& conic, double x, double y, DblPt& out) {
    const DblPt center = CenterOf(conic);
    // Scaled by a power of two, which keeps the squares in range and changes no digit.
    const int exponent = ExponentOf(std::max(std::fabs(x), std::fabs(y)));
    const DblPt towards(std::scalbn(x, -exponent), std::scalbn(y, -exponent));
    const double quadratic =
        conic.xx * (towards.x * towards.x) + conic.xy * towards.x * towards.y + conic.yy * (towards.y * towards.y);
    const double reach = ReachOf(ConstantAt(center, conic), quadratic);
    const DblPt met(center.x + reach * towards.x, center.y + reach * towards.y);
    if (!std::isfinite(met.x) || !std::isfinite(met.y)) return false;
    out = met;
    return true;
}

void FindEnds(const Diameters& d, const Conic& conic, const DblPt& startRay, const DblPt& endRay, bool full,
              real_pt_t& start, real_pt_t& end) {
    if (full || d.det == 0.0) {
        start = {d.u.x, d.u.y};
        end = start;
        return;
    }
    const auto meet = [&conic](const DblPt& ray, real_pt_t& point) {
        DblPt met;
        if (IntersectRay(conic, ray.x, ray.y, met)) point = {met.x, met.y};
    };
    const bool isClockwise = d.det < 0.0;
    meet(isClockwise ? endRay : startRay, start);
    meet(isClockwise ? startRay : endRay, end);
}

Conic Rotated(const Conic& conic, double cosine, double sine) {
    const double cc = cosine * cosine;
    const double ss = sine * sine;
    return {conic.xx * cc + conic.xy * sine * cosine + conic.yy * ss,
            conic.xy * (cc - ss) + 2.0 * (conic.yy - conic.xx) * sine * cosine,
            conic.xx * ss - conic.xy * sine * cosine + conic.yy * cc,
            conic.x * cosine + conic.y * sine,
            conic.y * cosine - conic.x * sine,
            conic.constant};
}

bool StandardForm::IsRealEllipse() const { return std::isfinite(a) && std::isfinite(b); }

DblPt StandardForm::ToLocal(const DblPt& p) const {
    return DblPt(p.x * cosine + p.y * sine - center.x, p.y * cosine - p.x * sine - center.y);
}

DblPt StandardForm::FromLocal(const DblPt& p) const {
    const DblPt turned(center.x + p.x, center.y + p.y);
    return DblPt(turned.x * cosine - turned.y * sine, turned.x * sine + turned.y * cosine);
}

StandardForm StandardFormOf(const Conic& conic) {
    StandardForm form = {1.0, 0.0, DblPt(), 0.0, 0.0};
    double alongX = conic.xx;
    double alongY = conic.yy;
    if (conic.xy != 0.0) TurnToAxes(QuadraticPart(conic), form, alongX, alongY);
    const DblPt center = CenterOf(conic);
    const double constant = ConstantAt(center, conic);
    form.center.Set(center.x * form.cosine + center.y * form.sine, center.y * form.cosine - center.x * form.sine);
    form.a = ReachOf(constant, alongX);
    form.b = ReachOf(constant, alongY);
    return form;
}

bool StandardArc::Holds(const DblPt& parameter) const {
    const double cross = start.x * parameter.y - start.y * parameter.x;
    const double dot = start.x * parameter.x + start.y * parameter.y;
    return TurnOf(cross, dot) <= sweep;
}

StandardArc StandardArcOf(const con_arc_str& arc, const StandardForm& form) {
    if (arc.closed != 0) return {DblPt(1.0, 0.0), kTwoPi};
    const DblPt startLocal = form.ToLocal(DblPt(arc.start.x, arc.start.y));
    const DblPt endLocal = form.ToLocal(DblPt(arc.end.x, arc.end.y));
    DblPt start(startLocal.x / form.a, startLocal.y / form.b);
    DblPt end(endLocal.x / form.a, endLocal.y / form.b);
    Normalize(start);
    Normalize(end);

    // Between ends that all but coincide a rounding would decide between next to nothing and the whole ellipse; so the
    // sense of the turn comes from the ends as they are given.
    const int exponent = ExponentOf(std::max(form.a, form.b));
    const auto scaled = [exponent](double v) { return std::scalbn(v, -exponent); };
    const DblPt center = form.FromLocal(DblPt());
    const double sense = DifferenceOfProducts(scaled(arc.start.x - center.x), scaled(arc.end.y - center.y),
                                              scaled(arc.start.y - center.y), scaled(arc.end.x - center.x));
    const double cross = std::copysign(start.x * end.y - start.y * end.x, sense);
    return {start, TurnOf(cross, start.x * end.x + start.y * end.y)};
}

}  // namespace Vellum::internal
