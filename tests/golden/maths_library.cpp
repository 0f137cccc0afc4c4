// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <string>

#include "golden/families.h"
#include "vellum/circles.h"
#include "vellum/ellipses.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"

namespace golden {

using Vellum::AlignedDblRect;
using Vellum::ArcGeom;
using Vellum::con_arc_str;
using Vellum::DblPt;
using Vellum::EllipseGeom;
using Vellum::EllipticalArcGeom;
using Vellum::Mtx2D;

namespace {

constexpr int kRounds = 12;
constexpr double kTurn = 6.3;

/// The readings of one function. None of the inputs lies next to a place where its result jumps.
class Series {
public:
    Series(const char* name, std::vector<Reading>& readings) : inputs(name), name_(name), readings_(readings) {}

    /// The values are what the maths library gave, or sums that it went into: of numbers up to `magnitude`.
    void Add(double value, double magnitude = 0.0) { readings_.push_back({name_, value, magnitude}); }
    void Add(const DblPt& p, double magnitude) {
        Add(p.x, magnitude);
        Add(p.y, magnitude);
    }
    void Add(const AlignedDblRect& box, double magnitude) {
        Add(box.ll, magnitude);
        Add(box.ur, magnitude);
    }

    Inputs inputs;

private:
    std::string name_;
    std::vector<Reading>& readings_;
};

/// A vector of some length that is not near an axis.
DblPt DrawVector(Inputs& inputs) {
    const double x = inputs.random.Within(1, 10);
    const double y = inputs.random.Within(1, 10);
    const bool isLeft = inputs.random.OneIn(2);
    const bool isDown = inputs.random.OneIn(2);
    return DblPt(isLeft ? -x : x, isDown ? -y : y);
}

void Angles(std::vector<Reading>& readings) {
    Series direction("GetAngleFromVector", readings);
    Series between("VectorAngle2D", readings);
    Series ofEllipse("utlx_get_angle", readings);
    for (int i = 0; i < kRounds; ++i) {
        DblPt from;
        DblPt to = DrawVector(direction.inputs);
        double dx = 0;
        double dy = 0;
        direction.Add(Vellum::GetAngleFromVector(from, to, dx, dy), kTurn);
        const DblPt a = DrawVector(between.inputs);
        const DblPt b = DrawVector(between.inputs);
        between.Add(Vellum::VectorAngle2D(a.x, a.y, b.x, b.y), kTurn);
        const DblPt v = DrawVector(ofEllipse.inputs);
        ofEllipse.Add(EllipseGeom().utlx_get_angle(v.x, v.y), kTurn);
    }
    Series tables("LookupSinCos", readings);
    for (int degrees = -720; degrees <= 720; degrees += 31) {
        double sine = 0;
        double cosine = 0;
        Vellum::LookupSinCos(degrees, &sine, &cosine);
        tables.Add(sine);
        tables.Add(cosine);
    }
}

void Matrices(std::vector<Reading>& readings) {
    Series turns("Mtx2D.Rotate", readings);
    Series rotations("Mtx2D.GetRotation", readings);
    Series orientations("Mtx2D.GetOrientation", readings);
    Series degreesOf("Mtx2D.GetXMirrorAndRotation", readings);
    for (int i = 0; i < kRounds; ++i) {
        Mtx2D turned;
        const double degrees = turns.inputs.random.Within(-700, 700);
        turned.Rotate(degrees, turns.inputs.random.Between(1, 2));
        for (const double element : {turned.m11, turned.m12, turned.m21, turned.m22})
            turns.Add(element);

        const DblPt v = DrawVector(rotations.inputs);
        Mtx2D m;
        m.m11 = v.x;
        m.m12 = v.y;
        m.SetType();
        rotations.Add(m.GetRotation());
        double angle = 0;
        int mirror = 0;
        m.GetOrientation(&angle, &mirror);
        orientations.Add(angle);
        bool isMirrored = false;
        m.GetXMirrorAndRotation(&isMirrored, &angle);
        degreesOf.Add(angle, 360.0);
    }
}

/// Both ends in the middle of a quadrant, so that its box does not hang on a rounding.
ArcGeom DrawArc(Inputs& inputs) {
    const DblPt centre = DrawVector(inputs);
    const DblPt ray = DrawVector(inputs);
    const DblPt start(centre.x + ray.x, centre.y + ray.y);
    double radius = inputs.random.Within(1, 10);
    const double quarters = inputs.random.Between(0, 3);
    double sweep = (quarters + inputs.random.Within(0.01, 0.05)) * 1.5707963267948966;
    return ArcGeom(start, centre, radius, sweep);
}

void Arcs(std::vector<Reading>& readings) {
    Series angles("ArcGeom.StartAngle", readings);
    Series ends("ArcGeom.GetArcEndPoint", readings);
    Series starts("ArcGeom.GetArcStartPoint", readings);
    Series extents("ArcGeom.GetExtents", readings);
    for (int i = 0; i < kRounds; ++i) {
        const ArcGeom arc = DrawArc(angles.inputs);
        // The angle is good to a rounding of a turn, which the radius takes along.
        const double magnitude = kTurn * arc.Radius() + std::fabs(arc.Center().x) + std::fabs(arc.Center().y);
        angles.Add(arc.StartAngle());
        DblPt p;
        arc.GetArcStartPoint(p);
        starts.Add(p, magnitude);
        arc.GetArcEndPoint(p);
        ends.Add(p, magnitude);
        AlignedDblRect box;
        arc.GetExtents(box);
        extents.Add(box, magnitude);
    }
}

/// An ellipse about the origin, neither flat nor round.
EllipseGeom DrawEllipse(Inputs& inputs) {
    const DblPt u = DrawVector(inputs);
    const double ratio = inputs.random.Within(0.2, 0.8);
    return EllipseGeom(DblPt(), u, DblPt(-u.y * ratio, u.x * ratio));
}

con_arc_str ConicOf(const EllipseGeom& e) {
    Vellum::circle_ellipse_s diameters = {};
    diameters.conjugate1 = {e.major.x, e.major.y};
    diameters.conjugate2 = {e.minor.x, e.minor.y};
    Vellum::CONIC_ARC arc = {};
    e.cgm2iges_ellipse(&diameters, true, &arc);
    return {arc.A, arc.B, arc.C, arc.D, arc.E, arc.F, {}, {}, 1};
}

void Ellipses(std::vector<Reading>& readings) {
    Series forms("utl_standard_ellipse", readings);
    Series points("utl_ellipse_point", readings);
    Series boxes("utl_maxmin_conic", readings);
    Series extents("EllipseGeom.GetExtents", readings);
    Series distances("utl_point_conarc", readings);
    for (int i = 0; i < kRounds; ++i) {
        const EllipseGeom ellipse = DrawEllipse(forms.inputs);
        const double size = std::fabs(ellipse.major.x) + std::fabs(ellipse.major.y);
        con_arc_str conic = ConicOf(ellipse);
        conic.closed = 0;
        conic.start = {ellipse.major.x, ellipse.major.y};
        conic.end = {ellipse.minor.x, ellipse.minor.y};
        Vellum::std_ell_typ form = {};
        ellipse.utl_standard_ellipse(&conic, &form);
        forms.Add(form.sweepAngle, kTurn);
        // The start lies on a half-axis: its angle may come out on either side of a whole turn.
        forms.Add(std::cos(form.startAngle), 1.0);
        DblPt p;
        ellipse.utl_ellipse_point(&form, points.inputs.random.Within(0, kTurn), &p);
        points.Add(p, size);
        DblPt max;
        DblPt min;
        ellipse.utl_maxmin_conic(&conic, &max, &min);
        boxes.Add(max, kTurn * size);
        boxes.Add(min, kTurn * size);
        AlignedDblRect box;
        ellipse.GetExtents(box);
        extents.Add(box, kTurn * size);
        DblPt from = DrawVector(distances.inputs);
        distances.Add(ellipse.utl_point_conarc(from, &conic), size);
    }
}

void EllipticalArcs(std::vector<Reading>& readings) {
    Series extents("EllipticalArcGeom.GetExtents", readings);
    for (int i = 0; i < kRounds; ++i) {
        const EllipseGeom ellipse = DrawEllipse(extents.inputs);
        const double size = std::fabs(ellipse.major.x) + std::fabs(ellipse.major.y);
        // Rays well between the axes.
        const DblPt u = ellipse.major;
        const DblPt v = ellipse.minor;
        const bool isFirst = extents.inputs.random.OneIn(2);
        const DblPt start(u.x + v.x, u.y + v.y);
        const DblPt end = isFirst ? DblPt(v.x - u.x, v.y - u.y) : DblPt(u.x - v.x, u.y - v.y);
        AlignedDblRect box;
        EllipticalArcGeom(DblPt(), u, v, start, end).GetExtents(box);
        extents.Add(box, kTurn * size);
    }
}

}  // namespace

std::vector<Reading> MathsLibraryReadings() {
    std::vector<Reading> readings;
    Angles(readings);
    Matrices(readings);
    Arcs(readings);
    Ellipses(readings);
    EllipticalArcs(readings);
    std::stable_sort(readings.begin(), readings.end(),
                     [](const Reading& a, const Reading& b) { return a.name < b.name; });
    return readings;
}

}  // namespace golden
