// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cfloat>
#include <cmath>
#include <new>
#include <numbers>

#include "shapes/conic_distance.h"
#include "shapes/conics.h"
#include "shapes/extents.h"
#include "types/trigonometry.h"
#include "vellum/ellipses.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"

namespace Vellum {

using internal::Conic;

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kCoincident = FLT_EPSILON;
constexpr double kTypeTolerance = 1e-5;
constexpr double kFlatRatio = 0.01;
constexpr double kSampleStep = 0.087;
constexpr int kFewestSamples = 3;

DblPt PointOf(const real_pt_t& p) { return DblPt(p.x, p.y); }

DblPt RelativeTo(const real_pt_t& center, const real_pt_t& p) { return DblPt(p.x - center.x, p.y - center.y); }

// The ellipse as extents and distance measure it: the conic is relative to the centre, its ends are not.
con_arc_str FullConicOf(const EllipseGeom& e) {
    circle_ellipse_s diameters = {};
    diameters.center = {e.center.x, e.center.y};
    diameters.conjugate1 = {e.major.x, e.major.y};
    diameters.conjugate2 = {e.minor.x, e.minor.y};
    CONIC_ARC arc;
    e.cgm2iges_ellipse(&diameters, true, &arc);
    con_arc_str conic = {};
    internal::StoreConic(internal::ConicOf(arc), conic);
    conic.start = diameters.conjugate1;
    conic.end = diameters.conjugate1;
    conic.closed = 1;
    return conic;
}

// The scaled conic of the diameters; false, with it untouched, where they are flagged.
bool ComputeConic(const internal::Diameters& d, circle_ellipse_s& axes, Conic& conic) {
    if (!(std::fabs(d.det) > internal::kDegenerate)) return false;
    Conic scaled = internal::ConicOfDiameters(d);
    const internal::AxisRoots roots = internal::AxisRootsOf(d, scaled);
    if (roots.spread < internal::kDegenerate) return false;
    internal::ComputeSemiAxis(roots.larger, axes.semiAxis1);
    internal::ComputeSemiAxis(roots.smaller, axes.semiAxis2);
    if (roots.smaller < internal::kDegenerate) return false;
    internal::ScaleToLargest(scaled);
    conic = scaled;
    return true;
}

bool AreCoincident(const DblPt& a, const DblPt& b) { return a.IsEqualTo(b, kCoincident); }

}  // namespace

EllipseGeom& EllipseGeom::Translate(const DblPt& d) { return Translate(d.x, d.y); }

EllipseGeom& EllipseGeom::Translate(double dx, double dy) {
    for (DblPt* p : {&center, &major, &minor})
        p->Set(p->x + dx, p->y + dy);
    return *this;
}

void EllipseGeom::GetExtents(AlignedDblRect& r) const {
    DblPt max;
    DblPt min;
    ellipse_maxmin(&max, &min);
    r.TSet(min, max);
}

double EllipseGeom::LLX() const { return internal::ExtentsOf(*this).Left(); }

double EllipseGeom::LLY() const { return internal::ExtentsOf(*this).Bottom(); }

double EllipseGeom::URX() const { return internal::ExtentsOf(*this).Right(); }

double EllipseGeom::URY() const { return internal::ExtentsOf(*this).Top(); }

void EllipseGeom::ellipse_maxmin(DblPt* max, DblPt* min) const {
    con_arc_str conic = FullConicOf(*this);
    utl_maxmin_conic(&conic, max, min);
}

double EllipseGeom::DistPointEllipse(DblPt& p) const {
    con_arc_str conic = FullConicOf(*this);
    return utl_point_conarc(p, &conic);
}

bool EllipseGeom::cgm2iges_ellipse(circle_ellipse_s* in, bool full, CONIC_ARC* out) const {
    const internal::Diameters d =
        internal::DiametersOf(PointOf(in->center), PointOf(in->conjugate1), PointOf(in->conjugate2));
    Conic conic = {};
    const bool isEllipse = ComputeConic(d, *in, conic);
    real_pt_t start = {};
    real_pt_t end = {};
    internal::FindEnds(d, conic, RelativeTo(in->center, in->start), RelativeTo(in->center, in->end), full, start, end);
    internal::StoreConic(conic, *out);
    out->ZT = 0.0;
    out->X1 = start.x;
    out->Y1 = start.y;
    out->X2 = end.x;
    out->Y2 = end.y;
    return isEllipse;
}

char EllipseGeom::utl_conic_type(con_arc_str* conic) const {
    // Comparisons, not maxima: what is not a number must not pass for small.
    const auto isZero = [](double v) { return std::fabs(v) <= kTypeTolerance; };
    const auto [a, b, c, d, e, f] = internal::ConicOf(*conic);
    if (isZero(a) && isZero(b) && isZero(c)) return 'L';
    if (isZero(e) && isZero(c)) return 'L';
    if (isZero(d) && isZero(a)) return 'L';
    const double discriminant = b * b - 4.0 * a * c;
    if (isZero(discriminant)) return 'P';
    if (discriminant > 0.0) return 'H';
    if (std::isnan(discriminant)) return '?';
    return std::fabs(b) > kTypeTolerance || std::fabs(a - c) > kTypeTolerance ? 'E' : 'C';
}

void EllipseGeom::utl_standard_ellipse(con_arc_str* conic, std_ell_typ* out) const {
    const internal::StandardForm form = internal::StandardFormOf(internal::ConicOf(*conic));
    const internal::StandardArc arc = internal::StandardArcOf(*conic, form);
    out->cosine = form.cosine;
    out->sine = form.sine;
    out->center = {form.center.x, form.center.y};
    out->startAngle = utlx_get_angle(arc.start.x, arc.start.y);
    out->sweepAngle = arc.sweep;
    out->a = form.a;
    out->b = form.b;
    if (!form.IsRealEllipse() || std::min(form.a, form.b) <= kFlatRatio * std::max(form.a, form.b)) {
        out->startAngle = 0.0;
        out->sweepAngle = 0.0;
    }
}

void EllipseGeom::utl_ellipse_point(std_ell_typ* ellipse, double angle, DblPt* out) const {
    const internal::StandardForm form = {ellipse->cosine, ellipse->sine, PointOf(ellipse->center), ellipse->a,
                                         ellipse->b};
    *out = form.FromLocal(DblPt(form.a * internal::Cosine(angle), form.b * internal::Sine(angle)));
}

void EllipseGeom::utl_maxmin_conic(con_arc_str* conic, DblPt* max, DblPt* min) const {
    AlignedDblRect box(PointOf(conic->start), PointOf(conic->end));
    const char type = utl_conic_type(conic);
    if (type == 'C' || type == 'E') {
        std_ell_typ ellipse;
        utl_standard_ellipse(conic, &ellipse);
        const double steps = std::fabs(ellipse.sweepAngle) / kSampleStep;
        const int samples = steps >= kFewestSamples - 1 ? static_cast<int>(steps) + 1 : kFewestSamples;
        for (int k = 0; k < samples; ++k) {
            DblPt sample;
            utl_ellipse_point(&ellipse, ellipse.startAngle + k * ellipse.sweepAngle / (samples - 1), &sample);
            box += sample;
        }
    }
    *max = box.ur;
    *min = box.ll;
}

double EllipseGeom::utl_point_conarc(DblPt& p, con_arc_str* conic) const { return internal::DistToConicArc(p, *conic); }

void EllipseGeom::utlx_rotate_conic(const con_arc_str* conic, double cosine, double sine, con_arc_str* out) const {
    const auto turned = [=](const real_pt_t& p) -> real_pt_t {
        return {p.x * cosine + p.y * sine, p.y * cosine - p.x * sine};
    };
    con_arc_str rotated = *conic;
    internal::StoreConic(internal::Rotated(internal::ConicOf(*conic), cosine, sine), rotated);
    rotated.start = turned(conic->start);
    rotated.end = turned(conic->end);
    *out = rotated;
}

double EllipseGeom::utlx_correct_angle(double angle) const {
    const double rest = std::fmod(angle, kTwoPi);
    const double corrected = rest < 0.0 ? rest + kTwoPi : rest;
    // A tiny negative angle is lost in the sum.
    return corrected >= kTwoPi ? 0.0 : corrected;
}

double EllipseGeom::utlx_get_angle(double x, double y) const {
    if (x == 0.0 && y == 0.0) return 0.0;
    return utlx_correct_angle(std::atan2(y, x));
}

bool EllipseGeom::utlx_normalize_vector(DblPt& v) const { return internal::Normalize(v); }

bool EllipseGeom::intersectRayEllipse(double x, double y, CONIC_ARC* conic, DblPt* out) const {
    return internal::IntersectRay(internal::ConicOf(*conic), x, y, *out);
}

ClosedShape* EllipseGeom::Clone() const { return new (std::nothrow) EllipseGeom(*this); }

void EllipseGeom::Print() const {
    DbgPrintf("EllipseGeom ellipse = {");
    DbgPrintf("DblPt(%lf, %lf),\n", center.x, center.y);
    DbgPrintf("DblPt(%lf, %lf),\n", major.x, major.y);
    DbgPrintf("DblPt(%lf, %lf)\n", minor.x, minor.y);
    DbgPrintf("};\n\n");
}

bool EllipseGeom::Contains(const DblPt&, double) const { return false; }

bool EllipseGeom::Contains(double, double, double) const { return false; }

void EllipseGeom::GetCentroid(DblPt& c) const { c = center; }

void EllipseGeom::ApplyTransform(const Mtx2D* m) {
    DblPt newCenter;
    DblPt newMajor;
    DblPt newMinor;
    m->RealXfmPt(center, newCenter);
    m->RealXfmPt(major, newMajor);
    m->RealXfmPt(minor, newMinor);
    if (AreCoincident(newCenter, newMajor) || AreCoincident(newMajor, newMinor) || AreCoincident(newMinor, newCenter))
        return;
    center = newCenter;
    major = newMajor;
    minor = newMinor;
}

}  // namespace Vellum
