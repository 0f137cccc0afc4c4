// SPDX-License-Identifier: MIT
#include "feature_clearance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "support/point_checks.h"
#include "support/random_numbers.h"

namespace {

using support::IsAt;
using tool::Clearance;
using tool::Geometry;
using tool::Points;
using Vellum::DblPt;

Clearance Measure(const Geometry& a, const Geometry& b) {
    tool::Progress progress(false);
    return tool::MeasureClearance(a, b, progress);
}

Geometry Ring(const Points& ring) {
    Geometry geometry;
    geometry.polygons = {{ring}};
    return geometry;
}

Geometry Line(const Points& line) {
    Geometry geometry;
    geometry.lines = {line};
    return geometry;
}

Geometry Alone(const Points& points) {
    Geometry geometry;
    geometry.points = points;
    return geometry;
}

const Points kRing = {{0, 0}, {5, 1}, {6, 6}, {1, 4}, {0, 0}};
const Points kFarRing = {{10, 3}, {14, 1}, {13, 9}, {10, 3}};
const Points kLine = {{-3, 9}, {-2, 2}, {-7, 1}};

TEST(FeatureClearance, OfTwoRingsIsThePolygons) {
    const Vellum::PolygonGeom a(5, kRing.data());
    const Vellum::PolygonGeom b(4, kFarRing.data());
    DblPt onA;
    DblPt onB;
    ASSERT_TRUE(Vellum::PolygonPolygonGeomClearance(&a, &b, nullptr, &onA, &onB));
    const Clearance clearance = Measure(Ring(kRing), Ring(kFarRing));
    EXPECT_TRUE(IsAt(clearance.onA, onA.x, onA.y));
    EXPECT_TRUE(IsAt(clearance.onB, onB.x, onB.y));
    EXPECT_EQ(clearance.distance, onA.Dist(onB));
}

TEST(FeatureClearance, OfARingAndALineIsTheirsEitherWayRound) {
    const Vellum::PolygonGeom ring(5, kRing.data());
    const Vellum::PolylineGeom line(3, kLine.data());
    DblPt onRing;
    DblPt onLine;
    ASSERT_TRUE(Vellum::PolygonPolylineGeomClearance(&ring, &line, nullptr, &onRing, &onLine));
    const Clearance forward = Measure(Ring(kRing), Line(kLine));
    EXPECT_TRUE(IsAt(forward.onA, onRing.x, onRing.y));
    EXPECT_TRUE(IsAt(forward.onB, onLine.x, onLine.y));
    const Clearance backward = Measure(Line(kLine), Ring(kRing));
    EXPECT_TRUE(IsAt(backward.onA, onLine.x, onLine.y));
    EXPECT_TRUE(IsAt(backward.onB, onRing.x, onRing.y));
}

TEST(FeatureClearance, OfTwoLinesIsThePolylines) {
    const Points other = {{1, -8}, {2, 12}};
    const Vellum::PolylineGeom a(3, kLine.data());
    const Vellum::PolylineGeom b(2, other.data());
    DblPt onA;
    DblPt onB;
    ASSERT_TRUE(Vellum::PolylinePolylineGeomClearance(&a, &b, nullptr, &onA, &onB));
    const Clearance clearance = Measure(Line(kLine), Line(other));
    EXPECT_TRUE(IsAt(clearance.onA, onA.x, onA.y));
    EXPECT_TRUE(IsAt(clearance.onB, onB.x, onB.y));
}

// Its last edge is the nearest.
TEST(FeatureClearance, ARingIsClosed) {
    const Clearance clearance = Measure(Ring({{0, 0}, {9, 0}, {0, 9}, {0, 0}}), Alone({{-3, 2}}));
    EXPECT_TRUE(IsAt(clearance.onA, 0, 2));
    EXPECT_TRUE(IsAt(clearance.onB, -3, 2));
    EXPECT_EQ(clearance.distance, 3.0);
}

TEST(FeatureClearance, OfPoints) {
    const Clearance toLine = Measure(Alone({{4, 7}}), Line({{0, 0}, {9, 0}}));
    EXPECT_TRUE(IsAt(toLine.onA, 4, 7));
    EXPECT_TRUE(IsAt(toLine.onB, 4, 0));
    const Clearance toPoint = Measure(Alone({{4, 7}}), Alone({{90, 91}, {7, 11}}));
    EXPECT_TRUE(IsAt(toPoint.onA, 4, 7));
    EXPECT_TRUE(IsAt(toPoint.onB, 7, 11));
    EXPECT_EQ(toPoint.distance, 5.0);
}

TEST(FeatureClearance, HolesCount) {
    Geometry withHole = Ring({{0, 0}, {20, 0}, {20, 20}, {0, 20}, {0, 0}});
    withHole.polygons[0].push_back({{8, 8}, {12, 8}, {12, 12}, {8, 12}, {8, 8}});
    const Clearance clearance = Measure(withHole, Alone({{10, 9}}));
    EXPECT_TRUE(IsAt(clearance.onA, 10, 8));
    EXPECT_EQ(clearance.distance, 1.0);
}

TEST(FeatureClearance, TellsTheBoxesOfTheTwoParts) {
    Geometry a = Ring(kRing);
    a.points = {{40, 2}};
    const Clearance clearance = Measure(a, Ring(kFarRing));
    EXPECT_TRUE(IsAt(clearance.partOfA.LL(), 0, 0));
    EXPECT_TRUE(IsAt(clearance.partOfA.UR(), 6, 6));
    EXPECT_TRUE(IsAt(clearance.partOfB.LL(), 10, 1));
    EXPECT_TRUE(IsAt(clearance.partOfB.UR(), 14, 9));
}

// By the octagonal estimate the point on the axis, 10 away, would be nearer than the other one, 9.5 away.
TEST(FeatureClearance, PartsAreComparedByTheirTrueDistance) {
    const DblPt oblique(8.8, 3.6);
    const DblPt onAxis(10, 0);
    ASSERT_GT(oblique.ApproxDist(0, 0), onAxis.ApproxDist(0, 0));
    EXPECT_TRUE(IsAt(Measure(Alone({{0, 0}}), Alone({onAxis, oblique})).onB, 8.8, 3.6));
    EXPECT_TRUE(IsAt(Measure(Alone({oblique, onAxis}), Alone({{0, 0}})).onA, 8.8, 3.6));
}

TEST(FeatureClearance, OfEquallyNearPartsTheFirstCounts) {
    const Clearance clearance = Measure(Alone({{-3, 0}, {3, 0}}), Alone({{0, 4}, {0, -4}}));
    EXPECT_TRUE(IsAt(clearance.onA, -3, 0));
    EXPECT_TRUE(IsAt(clearance.onB, 0, 4));
}

Geometry RandomParts(support::RandomNumbers& random, const DblPt& center) {
    Geometry geometry;
    for (int i = random.Between(1, 8); i > 0; --i) {
        const DblPt p(center.x + random.Within(-30, 30), center.y + random.Within(-30, 30));
        const DblPt q(p.x + random.Within(0, 9), p.y + random.Within(-9, 9));
        if (random.OneIn(3)) {
            geometry.points.push_back(p);
        } else if (random.OneIn(2)) {
            geometry.lines.push_back({p, q});
        } else {
            geometry.polygons.push_back({{p, q, {p.x, q.y}, p}});
        }
    }
    return geometry;
}

std::vector<Geometry> Single(const Geometry& geometry) {
    std::vector<Geometry> parts;
    for (const tool::Polygon& polygon : geometry.polygons) {
        parts.push_back(Ring(polygon[0]));
    }
    for (const Points& line : geometry.lines) {
        parts.push_back(Line(line));
    }
    for (const DblPt& point : geometry.points) {
        parts.push_back(Alone({point}));
    }
    return parts;
}

double NearestOfAllPairs(const Geometry& a, const Geometry& b) {
    double nearest = std::numeric_limits<double>::infinity();
    for (const Geometry& partA : Single(a)) {
        for (const Geometry& partB : Single(b)) {
            nearest = std::min(nearest, Measure(partA, partB).distance);
        }
    }
    return nearest;
}

// What is left out for the distance of its box is never the nearest.
TEST(FeatureClearance, IsThatOfTheNearestOfAllPairs) {
    support::RandomNumbers random(2718);
    for (int i = 0; i < 300; ++i) {
        const Geometry a = RandomParts(random, {0, 0});
        const Geometry b = RandomParts(random, {random.Within(0, 60), random.Within(-60, 60)});
        EXPECT_DOUBLE_EQ(Measure(a, b).distance, NearestOfAllPairs(a, b)) << i;
    }
}

}  // namespace
