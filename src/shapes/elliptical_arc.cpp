// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "shapes/conics.h"
#include "shapes/extents.h"
#include "types/trigonometry.h"
#include "vellum/ellipses.h"
#include "vellum/matrix.h"

namespace Vellum {

using internal::Conic;

namespace {

constexpr double kEqualCoefficients = 1e-7;
constexpr double kParabolic = 1e-7;
constexpr double kQuarterPi = 0.7853981633974483;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr int kQuadrants = 4;

double RotationOf(const Conic& conic) {
    const double difference = conic.xx - conic.yy;
    if (std::fabs(difference) < kEqualCoefficients) return conic.xy < 0.0 ? -kQuarterPi : kQuarterPi;
    return std::atan2(conic.xy, difference) / 2.0;
}

bool IsParabolic(double linear, double quadratic) {
    return std::fabs(linear) > kParabolic && std::fabs(2.0 * quadratic / linear) < kParabolic;
}

// Numbered from 0, counter-clockwise; zero counts as positive.
int QuadrantOf(const DblPt& p) {
    if (p.y >= 0.0) return p.x >= 0.0 ? 0 : 1;
    return p.x >= 0.0 ? 3 : 2;
}

// The extreme of the ellipse on the half-axis at which a quadrant begins.
DblPt StartOf(int quadrant, double a, double b) {
    switch (quadrant) {
        case 0:
            return DblPt(a, 0.0);
        case 1:
            return DblPt(0.0, b);
        case 2:
            return DblPt(-a, 0.0);
        default:
            return DblPt(0.0, -b);
    }
}

// The box of the arc from one point to another, counter-clockwise round an ellipse around the origin.
AlignedDblRect BoxBetween(const DblPt& from, const DblPt& to, double a, double b) {
    AlignedDblRect box(from, to);
    const int lastQuadrant = QuadrantOf(to);
    int quadrant = QuadrantOf(from);
    const bool isShort = from.x * to.y - from.y * to.x > 0.0;
    if (quadrant == lastQuadrant && isShort) return box;
    do {
        quadrant = (quadrant + 1) % kQuadrants;
        box += StartOf(quadrant, a, b);
    } while (quadrant != lastQuadrant);
    return box;
}

AlignedDblRect BoxOfImage(const AlignedDblRect& box, const Mtx2D& m) {
    DblPt corners[] = {box.ll, DblPt(box.ur.x, box.ll.y), box.ur, DblPt(box.ll.x, box.ur.y)};
    for (DblPt& corner : corners)
        m.RealXfmPt(corner);
    AlignedDblRect image(corners[0], corners[1]);
    image += corners[2];
    image += corners[3];
    return image;
}

}  // namespace

bool EllipticalArcGeom::HasVertex(const DblPt& p) const {
    return center.IsExactly(p) || conjugateDiameterPt1.IsExactly(p) || conjugateDiameterPt2.IsExactly(p) ||
           start.IsExactly(p) || end.IsExactly(p);
}

void EllipticalArcGeom::GetExtents(AlignedDblRect& r) const {
    DblPt points[] = {center, conjugateDiameterPt1, conjugateDiameterPt2, start, end};
    double semiMajor = 0.0;
    double semiMinor = 0.0;
    bool isDegenerate = false;
    drw_con_arc_t arc = Cnj2ConEllipse(&points[0], &points[1], &points[2], &points[3], &points[4], semiMajor, semiMinor,
                                       isDegenerate, false);
    double minX = 0.0;
    double minY = 0.0;
    double maxX = 0.0;
    double maxY = 0.0;
    if (!isDegenerate && GetEllipticalArcExtents(&arc, ArcOpen, minX, minY, maxX, maxY)) {
        r.TSet(minX, minY, maxX, maxY);
    } else {
        r.Set(arc.start.x, arc.start.y, arc.end.x, arc.end.y);
    }
}

double EllipticalArcGeom::LLX() const { return internal::ExtentsOf(*this).Left(); }

double EllipticalArcGeom::LLY() const { return internal::ExtentsOf(*this).Bottom(); }

double EllipticalArcGeom::URX() const { return internal::ExtentsOf(*this).Right(); }

double EllipticalArcGeom::URY() const { return internal::ExtentsOf(*this).Top(); }

bool EllipticalArcGeom::GetEllipticalArcExtents(drw_con_arc_t* arc, DrwArcCT type, double& minX, double& minY,
                                                double& maxX, double& maxY) const {
    Conic conic = internal::ConicOf(*arc);
    Mtx2D frame;
    if (conic.xy != 0.0) {
        const double rotation = RotationOf(conic);
        conic = internal::Rotated(conic, internal::Cosine(rotation), internal::Sine(rotation));
        frame.Rotate(-(rotation * kDegreesPerRadian), 2);
    }
    if (IsParabolic(conic.x, conic.xx) || IsParabolic(conic.y, conic.yy)) return false;

    const DblPt offset(conic.x / (2.0 * conic.xx), conic.y / (2.0 * conic.yy));
    const double constant = conic.constant - (offset.y * offset.y * conic.yy + offset.x * offset.x * conic.xx);
    // A real ellipse has two semi-axes; without a point, a bound or a centre one of them is no finite number.
    const double a = std::sqrt(-constant / conic.xx);
    const double b = std::sqrt(-constant / conic.yy);
    if (!std::isfinite(a) || !std::isfinite(b)) return false;

    frame.Translate(offset.x, offset.y);
    DblPt first(arc->start.x, arc->start.y);
    DblPt last(arc->end.x, arc->end.y);
    ComputeConicEndpoints(&first, &last, arc->reversed != 0, &first, &last, &frame);

    AlignedDblRect box = BoxBetween(first, last, a, b);
    if (type == ArcPie) box += DblPt(0.0, 0.0);
    const AlignedDblRect extents = BoxOfImage(box, frame.Invert());
    minX = extents.Left();
    minY = extents.Bottom();
    maxX = extents.Right();
    maxY = extents.Top();
    return true;
}

bool EllipticalArcGeom::EllipticalArcExtents(DblPt c, DblPt cdp1, DblPt cdp2, DblPt startPt, DblPt endPt, DrwArcCT type,
                                             double& minX, double& minY, double& maxX, double& maxY) const {
    double semiMajor = 0.0;
    double semiMinor = 0.0;
    bool isDegenerate = false;
    drw_con_arc_t arc = Cnj2ConEllipse(&c, &cdp1, &cdp2, &startPt, &endPt, semiMajor, semiMinor, isDegenerate, false);
    return !isDegenerate && GetEllipticalArcExtents(&arc, type, minX, minY, maxX, maxY);
}

drw_con_arc_t EllipticalArcGeom::Cnj2ConEllipse(DblPt* c, DblPt* cdp1, DblPt* cdp2, DblPt* startPt, DblPt* endPt,
                                                double& semiMajor, double& semiMinor, bool& degenerate,
                                                bool full) const {
    const internal::Diameters d = internal::DiametersOf(*c, *cdp1, *cdp2);
    Conic conic = {};
    double shorter = 0.0;
    double longer = 0.0;
    bool isDegenerate = std::fabs(d.det) <= internal::kDegenerate;
    if (!isDegenerate) {
        conic = internal::ConicOfDiameters(d);
        const internal::AxisRoots roots = internal::AxisRootsOf(d, conic);
        internal::ComputeSemiAxis(roots.larger, shorter);
        const bool hasLonger = internal::ComputeSemiAxis(roots.smaller, longer);
        isDegenerate = !hasLonger || roots.smaller < internal::kDegenerate;
    }

    drw_con_arc_t arc = {};
    if (isDegenerate) {
        arc.start = {c->x, c->y};
        conic.xx = 0.0;
        conic.xy = 0.0;
        conic.yy = 0.0;
    } else {
        internal::ScaleToLargest(conic);
    }
    internal::FindEnds(d, conic, DblPt(startPt->x - c->x, startPt->y - c->y), DblPt(endPt->x - c->x, endPt->y - c->y),
                       full, arc.start, arc.end);
    internal::StoreConic(conic, arc);
    semiMajor = std::max(longer, shorter);
    semiMinor = std::min(longer, shorter);
    degenerate = isDegenerate;
    return arc;
}

bool EllipticalArcGeom::IntersectRayEllipse(double x, double y, drw_con_arc_t* arc, DblPt* out) const {
    return internal::IntersectRay(internal::ConicOf(*arc), x, y, *out);
}

void EllipticalArcGeom::ComputeConicEndpoints(DblPt* startPt, DblPt* endPt, bool exchanged, DblPt* startOut,
                                              DblPt* endOut, Mtx2D* frame) const {
    const DblPt first = exchanged ? *endPt : *startPt;
    const DblPt last = exchanged ? *startPt : *endPt;
    frame->XfmPt(first.x, first.y, &startOut->x, &startOut->y);
    frame->XfmPt(last.x, last.y, &endOut->x, &endOut->y);
}

}  // namespace Vellum
