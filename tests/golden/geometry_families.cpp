// SPDX-License-Identifier: MIT
#include "golden/families.h"
#include "vellum/geometry.h"
#include "vellum/points.h"

namespace golden {

using Vellum::DblPt;
using Vellum::IntPt;

namespace {

constexpr int kRounds = 200;

struct FourPoints {
    DblPt a;
    DblPt b;
    DblPt c;
    DblPt d;
};

FourPoints DrawFour(Inputs& inputs, Kind kind) {
    FourPoints p;
    for (DblPt* const one : {&p.a, &p.b, &p.c, &p.d})
        *one = inputs.Point(kind);
    if (inputs.random.OneIn(6)) p.b.x = p.a.x;
    if (inputs.random.OneIn(6)) p.b.y = p.a.y;
    if (inputs.random.OneIn(12)) p.d = p.b;
    return p;
}

template <class Function>
void ForFourPoints(Inputs& inputs, Function function) {
    for (const Kind kind : kAllKinds)
        for (int i = 0; i < kRounds; ++i)
            function(kind, DrawFour(inputs, kind));
}

void PointArithmetic(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind kind, FourPoints p) {
        const double d = inputs.Coordinate(kind);
        digest.Add(p.a.IsExactly(p.b), p.a<p.b, p.a <= p.b, p.a> p.b, p.a >= p.b);
        digest.Add(p.a.isAbove(p.b), p.a.isBelow(p.b), p.a.isLeftOf(p.b), p.a.isRightOf(p.b));
        digest.Add(p.a.Above(p.b), p.a.Below(p.b), p.a.LeftOf(p.b), p.a.RightOf(p.b));
        const int x = inputs.random.Between(-5, 5);
        const IntPt device(x, inputs.random.Between(-5, 5));
        digest.Add(device<p.a, device <= p.a, device> p.a, device >= p.a);
        p.a += p.b;
        p.c -= p.d;
        p.b += d;
        p.d -= d;
        digest.Add(p.a, p.b, p.c, p.d);
    });
}

void PointDistances(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind, const FourPoints& p) {
        const double tol = inputs.Tolerance();
        digest.Add(p.a.Dist(p.b), p.a.Distsq(p.b), p.a.ApproxDist(p.b), p.a.XDist(p.b), p.a.YDist(p.b));
        digest.Add(p.a.IsEqualTo(p.b, tol), Vellum::DistPtPt(p.b, p.c));
        digest.Add(p.a.isLeftOfLine(p.b, p.c), DblPt::isLeftOfLine(p.b, p.c, p.d.x, p.d.y));
    });
}

void DistancesToLines(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind, const FourPoints& p) {
        DblPt exact;
        DblPt estimated;
        digest.Add(Vellum::DistPtLine(p.c, p.a, p.b, exact, true));
        digest.Add(Vellum::DistPtLine(p.c, p.a, p.b, estimated, false));
        digest.Add(exact, estimated, Vellum::DistPtLine(p.d, p.a, p.b, true));
        digest.Add(p.d.DistToLine(p.b, p.c, exact, false), exact);
    });
}

void Projections(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind, const FourPoints& p) {
        DblPt foot;
        Vellum::PtLineIntercept(p.c, p.a, p.b, foot);
        digest.Add(foot);
    });
}

void PointsAlongLines(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind kind, const FourPoints& p) {
        const double d = inputs.Coordinate(kind);
        DblPt along = p.c;
        DblPt beyond = p.d;
        digest.Add(Vellum::PtAlongLine(p.a, p.b, d, along), along);
        digest.Add(Vellum::ExtendLine(p.a, p.b, d, beyond), beyond);
    });
}

void Intersections(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind, const FourPoints& p) {
        const double tol = inputs.Tolerance();
        DblPt ofLines(7, 7);
        DblPt ofSegments(7, 7);
        digest.Add(Vellum::FindLineIntersect(p.a, p.b, p.c, p.d, tol, ofLines), ofLines);
        digest.Add(Vellum::FindSegIntersect(p.a, p.b, p.c, p.d, tol, ofSegments), ofSegments);
        digest.Add(Vellum::PointInBounds(p.d, p.a, p.b, tol));
    });
}

void LinesAndCircles(Inputs& inputs, Digest& digest) {
    ForFourPoints(inputs, [&](Kind kind, const FourPoints& p) {
        const double radius = inputs.Coordinate(kind);
        DblPt met(7, 7);
        digest.Add(Vellum::FindLineCircleIntersect(p.c, radius, p.a, p.b, p.d, met), met);
    });
}

/// Along the axes and so near to them that the angle snaps.
void SnappedAngles(Inputs& inputs, Digest& digest) {
    for (int i = 0; i < kRounds; ++i) {
        const double ahead = inputs.random.Within(1, 100);
        const double aside = inputs.random.OneIn(2) ? 0.0 : inputs.random.Within(-1, 1) * 5e-5;
        const double over = inputs.random.OneIn(2) ? 0.0 : inputs.random.Unit() * 5e-5;
        const DblPt ways[] = {{ahead, over}, {aside, ahead}, {-ahead, aside}, {aside, -ahead}, {0.0, 0.0}};
        for (DblPt to : ways) {
            DblPt from;
            double dx = 7;
            double dy = 7;
            digest.Add(Vellum::GetAngleFromVector(from, to, dx, dy), dx, dy);
        }
    }
}

void Units(Inputs& inputs, Digest& digest) {
    for (const Kind kind : kAllKinds) {
        for (int unit = 0; unit <= 24; ++unit) {
            const double v = inputs.Coordinate(kind);
            digest.Add(Vellum::InchesToUnits(v, unit), Vellum::UnitsToInches(v, unit));
        }
        for (int i = 0; i < kRounds; ++i) {
            constexpr double kSizes[] = {0.000625, 0.00125, 0.0025, 0.005, 0.0075, 0.01, 0.02};
            const double size = inputs.random.OneOf(kSizes);
            const double off = inputs.Coordinate(kind);
            digest.Add(Vellum::MeasurementSizeFromFactor(size), Vellum::MeasurementSizeFromFactor(off));
            digest.Add(Vellum::MeasurementSizeFromFactor(size + off * 0x1p-23));
        }
    }
}

}  // namespace

Families GeometryFamilies() {
    return {{"points.arithmetic", PointArithmetic},
            {"points.distances", PointDistances},
            {"geometry.distances_to_lines", DistancesToLines},
            {"geometry.projections", Projections},
            {"geometry.points_along_lines", PointsAlongLines},
            {"geometry.intersections", Intersections},
            {"geometry.lines_and_circles", LinesAndCircles},
            {"geometry.snapped_angles", SnappedAngles},
            {"geometry.units", Units}};
}

}  // namespace golden
