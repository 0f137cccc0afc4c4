// SPDX-License-Identifier: MIT
#include "paths/connector_networks.h"

#include <cmath>
#include <limits>

#include "vellum/circles.h"
#include "vellum/ellipses.h"
#include "vellum/polylines.h"
#include "vellum/rectangles.h"

namespace paths_tests {

using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::CircleGeom;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::EllipseGeom;
using Vellum::PolygonGeom;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

/// A shape of a host's own: the points of a grid of cells, some here, some there, wherever it says that its centroid
/// is.
class Scattered final : public ClosedShape {
public:
    Scattered(const DblPt& centroid, double cell) : centroid_(centroid), cell_(cell) {}
    ClosedShape* Clone() const override { return new Scattered(*this); }
    void Print() const override {}
    bool Contains(const DblPt& p, double tol) const override { return Contains(p.x, p.y, tol); }
    bool Contains(double x, double y, double) const override {
        return std::fmod(std::floor(x / cell_) + 2 * std::floor(y / cell_), 5) == 1;
    }
    void GetCentroid(DblPt& out) const override { out = centroid_; }
    void ApplyTransform(const Vellum::Mtx2D*) override {}

private:
    DblPt centroid_;
    double cell_;
};

double RandomCoordinate(Kind kind, RandomNumbers& random) {
    switch (kind) {
        case Kind::SmallGrid:
            return random.Between(0, 5);
        case Kind::WideGrid:
            return random.Between(0, 19);
        case Kind::HalfGrid:
            return random.Between(-5, 5) * 0.5;
        case Kind::Plane:
            return random.Within(0, 10);
        case Kind::Special: {
            constexpr double kSpecial[] = {kNan, kInfinity, -kInfinity, -0.0, 1e308, -1e308};
            return random.OneIn(12) ? random.OneOf(kSpecial) : random.Between(0, 5);
        }
        case Kind::ManyScales:
            return random.Within(-10, 10) * std::ldexp(1.0, random.Between(-30, 30));
        case Kind::Perturbed: {
            // About the tolerance of the bounds tests, and next to it.
            const double off = random.Between(-3, 3) * std::ldexp(1.0, -23);
            const double near = random.Between(0, 4) + (random.OneIn(2) ? off : 0.0);
            return random.OneIn(4) ? std::nextafter(near, random.OneIn(2) ? 10 : -10) : near;
        }
        case Kind::FarOff:
            return 1e6 + random.Between(0, 9) * 0.1;
        case Kind::VeryFarOff:
            // Steps of a few units in the last place, which are much larger than the tolerances.
            return 0x1p54 + random.Between(0, 12) * 4.0;
        case Kind::Tiny:
            return random.Between(0, 9) * 1e-8;
        default:
            return random.Within(-1, 1) * std::ldexp(1.0, random.Between(300, 1023));
    }
}

/// Random points; often a walk along the axes, or in one direction.
Points RandomOutline(Kind kind, RandomNumbers& random) {
    constexpr size_t kCounts[] = {0, 1, 2, 2, 2, 2, 2, 3, 4, 6};
    const size_t count =
        random.OneIn(40) ? random.Below(300) : random.OneOf(kCounts) + (random.OneIn(4) ? random.Below(20) : 0);
    const size_t way = random.Below(4);
    Points points;
    for (size_t i = 0; i < count; ++i) {
        DblPt p = RandomPoint(kind, random);
        if (i > 0 && way == 1) (i % 2 == 0 ? p.x : p.y) = i % 2 == 0 ? points.back().x : points.back().y;
        if (i > 0 && way == 2 && random.OneIn(3)) p = points[random.Below(points.size())];
        points.push_back(p);
    }
    return points;
}

/// Moved by a little, as parallel lines are drawn.
Points Shifted(const Points& points, Kind kind, RandomNumbers& random) {
    Points shifted = points;
    DblPt by;
    if (random.OneIn(2)) by.x = RandomCoordinate(kind, random);
    if (random.OneIn(2)) by.y = random.Within(-1, 1);
    if (random.OneIn(2)) by.x -= points.empty() ? 0.0 : points[0].x;
    for (DblPt& p : shifted)
        p += by;
    return shifted;
}

AlignedDblRect RandomExtents(const AlignedDblRect& extents, Kind kind, RandomNumbers& random) {
    switch (random.Below(12)) {
        case 0:
            return AlignedDblRect(RandomPoint(kind, random), RandomPoint(kind, random));
        case 1:
            return {};
        case 2: {
            AlignedDblRect crossed;
            crossed.TSet(RandomPoint(kind, random), RandomPoint(kind, random));
            return crossed;
        }
        default:
            return extents;
    }
}

}  // namespace

std::string NameOf(Kind kind) {
    constexpr const char* kNames[] = {"SmallGrid", "WideGrid", "HalfGrid",   "Plane", "Special", "ManyScales",
                                      "Perturbed", "FarOff",   "VeryFarOff", "Tiny",  "Huge"};
    return kNames[static_cast<int>(kind)];
}

DblPt RandomPoint(Kind kind, RandomNumbers& random) {
    const double x = RandomCoordinate(kind, random);
    return DblPt(x, RandomCoordinate(kind, random));
}

double RandomTolerance(RandomNumbers& random) {
    constexpr double kTolerances[] = {0.0, -1.0, 1e-9, 0x1p-23, 2e-7, 0.05,  0.3,      0.5,       1.0,  1.5,
                                      2.0, 5.0,  40.0, 1e7,     1e20, 1e308, kLargest, kInfinity, kNan, 5e-324};
    return random.OneOf(kTolerances);
}

std::unique_ptr<ClosedShape> RandomShape(Kind kind, RandomNumbers& random) {
    Points p;
    for (size_t i = 0; i < 7; ++i)
        p.push_back(RandomPoint(kind, random));
    switch (random.Below(7)) {
        case 0:
            return std::make_unique<AlignedDblRect>(p[0], p[1]);
        case 1: {
            auto crossed = std::make_unique<AlignedDblRect>();
            crossed->TSet(p[0], p[1]);
            return crossed;
        }
        case 2:
            return std::make_unique<DblRect>(p[0], p[1]);
        case 3:
            return std::make_unique<DblRect>(p[0], p[1], p[2], p[3]);
        case 4:
            return std::make_unique<CircleGeom>(p[0], std::fabs(p[1].x - p[2].x));
        case 5:
            return std::make_unique<PolygonGeom>(static_cast<unsigned>(random.Below(8)), p.data());
        default:
            if (random.OneIn(3)) return std::make_unique<EllipseGeom>(p[0], p[1], p[2]);
            return std::make_unique<Scattered>(p[0], 0.7);
    }
}

Network RandomNetwork(Kind kind, RandomNumbers& random) {
    Network network;
    const size_t lines = 1 + random.Below(random.OneIn(10) ? 60 : 12);
    const size_t layers = 1 + random.Below(3);
    const auto randomLayer = [&] { return static_cast<uint32_t>(random.Below(layers)) * 0x80000001U; };
    for (size_t i = 0; i < lines; ++i) {
        const bool isShifted = i > 0 && random.OneIn(4);
        const Points points =
            isShifted ? Shifted(network.lines[random.Below(i)].points, kind, random) : RandomOutline(kind, random);
        network.lines.push_back(LineOf(points, randomLayer()));
        network.lines.back().extents = RandomExtents(network.lines.back().extents, kind, random);
    }
    const size_t shapes = random.OneIn(2) ? 0 : random.Below(30);
    for (size_t i = 0; i < shapes; ++i)
        network.shapes.push_back({RandomShape(kind, random), randomLayer()});
    return network;
}

}  // namespace paths_tests
