// SPDX-License-Identifier: MIT
#include "vellum/clearance.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

#include "reference/clearance.h"
#include "support/allocation_guard.h"
#include "support/point_checks.h"
#include "support/random_numbers.h"
#include "vellum/geometry.h"

namespace {

using support::AllocationGuard;
using support::IsAt;
using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::CircleCircleGeomClearance;
using Vellum::CircleGeom;
using Vellum::CirclePolygonGeomClearance;
using Vellum::CirclePolylineGeomClearance;
using Vellum::CircleRectangleGeomClearance;
using Vellum::DblPt;
using Vellum::DblPtVec;
using Vellum::FindLineCircleIntersect;
using Vellum::PolygonGeom;
using Vellum::PolygonPolygonGeomClearance;
using Vellum::PolygonPolylineGeomClearance;
using Vellum::PolygonRectangleGeomClearance;
using Vellum::PolylineGeom;
using Vellum::PolylinePolylineGeomClearance;
using Vellum::PolylineRectangleGeomClearance;
using Vellum::RectangleRectangleGeomClearance;
using Vellum::ToPolylineGeom;

template <class A, class B>
using Clearance = bool(const A*, const B*, DblPt*, DblPt*, DblPt*);

static_assert(std::is_same_v<decltype(CircleCircleGeomClearance), Clearance<CircleGeom, CircleGeom>>);
static_assert(std::is_same_v<decltype(CirclePolygonGeomClearance), Clearance<CircleGeom, PolygonGeom>>);
static_assert(std::is_same_v<decltype(CirclePolylineGeomClearance), Clearance<CircleGeom, PolylineGeom>>);
static_assert(std::is_same_v<decltype(CircleRectangleGeomClearance), Clearance<CircleGeom, AlignedDblRect>>);
static_assert(std::is_same_v<decltype(PolygonPolygonGeomClearance), Clearance<PolygonGeom, PolygonGeom>>);
static_assert(std::is_same_v<decltype(PolygonPolylineGeomClearance), Clearance<PolygonGeom, PolylineGeom>>);
static_assert(std::is_same_v<decltype(PolylinePolylineGeomClearance), Clearance<PolylineGeom, PolylineGeom>>);
static_assert(std::is_same_v<decltype(PolygonRectangleGeomClearance), Clearance<PolygonGeom, AlignedDblRect>>);
static_assert(std::is_same_v<decltype(PolylineRectangleGeomClearance), Clearance<PolylineGeom, AlignedDblRect>>);
static_assert(std::is_same_v<decltype(RectangleRectangleGeomClearance), Clearance<AlignedDblRect, AlignedDblRect>>);
static_assert(std::is_same_v<decltype(ToPolylineGeom), bool(const DblPtVec&, PolylineGeom**)>);

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kEpsilon = 1.1920928955078125e-7;

using Points = std::vector<DblPt>;

template <class Shape>
Shape ShapeOf(const Points& points) {
    Shape shape(static_cast<unsigned>(points.size()), points.data());
    if (points.size() == 1) {
        DblPt only = points[0];
        shape.AddPoint(only);
    }
    return shape;
}

PolygonGeom Polygon(const Points& points) { return ShapeOf<PolygonGeom>(points); }
PolylineGeom Polyline(const Points& points) { return ShapeOf<PolylineGeom>(points); }

bool IsSame(double a, double b) {
    return (std::isnan(a) && std::isnan(b)) || (a == b && std::signbit(a) == std::signbit(b));
}

bool IsSame(const DblPt& a, const DblPt& b) { return IsSame(a.x, b.x) && IsSame(a.y, b.y); }

/// The two witnesses of a clearance that is found; every function is called with a third argument and without.
struct Witnesses {
    DblPt onA{-77.0, -78.0};
    DblPt onB{-79.0, -80.0};
};

template <class A, class B>
Witnesses Measure(Clearance<A, B>* clearance, const A& a, const B& b) {
    Witnesses found;
    Witnesses again;
    DblPt extra(5.5, 6.5);
    EXPECT_TRUE(clearance(&a, &b, &extra, &found.onA, &found.onB));
    EXPECT_TRUE(IsAt(extra, 5.5, 6.5));
    EXPECT_TRUE(clearance(&a, &b, nullptr, &again.onA, &again.onB));
    EXPECT_TRUE(IsSame(found.onA, again.onA) && IsSame(found.onB, again.onB));
    return found;
}

/// Whether there is no clearance and nothing was written.
template <class A, class B>
testing::AssertionResult IsUndefined(Clearance<A, B>* clearance, const A* a, const B* b) {
    DblPt extra(5.5, 6.5);
    DblPt onA(-77.0, -78.0);
    DblPt onB(-79.0, -80.0);
    if (clearance(a, b, &extra, &onA, &onB)) return testing::AssertionFailure() << "true";
    if (!IsAt(extra, 5.5, 6.5)) return testing::AssertionFailure() << "the third argument was written";
    if (!IsAt(onA, -77.0, -78.0)) return testing::AssertionFailure() << "the first witness was written";
    if (!IsAt(onB, -79.0, -80.0)) return testing::AssertionFailure() << "the second witness was written";
    return testing::AssertionSuccess();
}

testing::AssertionResult AreAt(const Witnesses& found, double ax, double ay, double bx, double by) {
    const auto first = IsAt(found.onA, ax, ay);
    if (!first) return testing::AssertionFailure() << "first: " << first.message();
    const auto second = IsAt(found.onB, bx, by);
    if (!second) return testing::AssertionFailure() << "second: " << second.message();
    return testing::AssertionSuccess();
}

testing::AssertionResult AreNear(const Witnesses& found, double ax, double ay, double bx, double by) {
    if (found.onA.IsEqualTo(ax, ay, 1e-12) && found.onB.IsEqualTo(bx, by, 1e-12)) return testing::AssertionSuccess();
    return testing::AssertionFailure() << found.onA.x << ", " << found.onA.y << " and " << found.onB.x << ", "
                                       << found.onB.y;
}

template <class A, class B>
void CheckNulls(Clearance<A, B>* clearance, const A& a, const B& b) {
    EXPECT_TRUE(IsUndefined(clearance, static_cast<const A*>(nullptr), &b));
    EXPECT_TRUE(IsUndefined(clearance, &a, static_cast<const B*>(nullptr)));
    DblPt extra(5.5, 6.5);
    DblPt other(-77.0, -78.0);
    EXPECT_FALSE(clearance(&a, &b, &extra, nullptr, &other));
    EXPECT_TRUE(IsAt(other, -77.0, -78.0));
    EXPECT_FALSE(clearance(&a, &b, &extra, &other, nullptr));
    EXPECT_TRUE(IsAt(other, -77.0, -78.0));
    EXPECT_TRUE(IsAt(extra, 5.5, 6.5));
    Measure(clearance, a, b);  // it is for the null pointer that there was none
}

const Points kTriangle = {DblPt(20.0, 1.0), DblPt(26.0, 2.0), DblPt(22.0, 9.0)};

TEST(Clearance, IsUndefinedWithoutAShapeOrAnOutput) {
    const CircleGeom circle(1.0, 2.0, 3.0);
    const CircleGeom otherCircle(11.0, 2.0, 3.0);
    const PolygonGeom polygon = Polygon(kTriangle);
    const PolylineGeom polyline = Polyline(kTriangle);
    const AlignedDblRect rectangle(40.0, 2.0, 45.0, 4.0);
    CheckNulls(CircleCircleGeomClearance, circle, otherCircle);
    CheckNulls(CirclePolygonGeomClearance, circle, polygon);
    CheckNulls(CirclePolylineGeomClearance, circle, polyline);
    CheckNulls(CircleRectangleGeomClearance, circle, rectangle);
    CheckNulls(PolygonPolygonGeomClearance, polygon, polygon);
    CheckNulls(PolygonPolylineGeomClearance, polygon, polyline);
    CheckNulls(PolylinePolylineGeomClearance, polyline, polyline);
    CheckNulls(PolygonRectangleGeomClearance, polygon, rectangle);
    CheckNulls(PolylineRectangleGeomClearance, polyline, rectangle);
    CheckNulls(RectangleRectangleGeomClearance, rectangle, rectangle);
}

TEST(Clearance, IsUndefinedWithoutAPoint) {
    const CircleGeom circle(1.0, 2.0, 3.0);
    const PolygonGeom polygon = Polygon(kTriangle);
    const PolylineGeom polyline = Polyline(kTriangle);
    const AlignedDblRect rectangle(40.0, 2.0, 45.0, 4.0);
    const PolygonGeom noPolygon;
    const PolylineGeom noPolyline;
    EXPECT_TRUE(IsUndefined(CirclePolygonGeomClearance, &circle, &noPolygon));
    EXPECT_TRUE(IsUndefined(CirclePolylineGeomClearance, &circle, &noPolyline));
    EXPECT_TRUE(IsUndefined(PolygonPolygonGeomClearance, &noPolygon, &polygon));
    EXPECT_TRUE(IsUndefined(PolygonPolygonGeomClearance, &polygon, &noPolygon));
    EXPECT_TRUE(IsUndefined(PolygonPolygonGeomClearance, &noPolygon, &noPolygon));
    EXPECT_TRUE(IsUndefined(PolygonPolylineGeomClearance, &noPolygon, &polyline));
    EXPECT_TRUE(IsUndefined(PolygonPolylineGeomClearance, &polygon, &noPolyline));
    EXPECT_TRUE(IsUndefined(PolylinePolylineGeomClearance, &noPolyline, &polyline));
    EXPECT_TRUE(IsUndefined(PolylinePolylineGeomClearance, &polyline, &noPolyline));
    EXPECT_TRUE(IsUndefined(PolygonRectangleGeomClearance, &noPolygon, &rectangle));
    EXPECT_TRUE(IsUndefined(PolylineRectangleGeomClearance, &noPolyline, &rectangle));
}

Witnesses OfCircles(const CircleGeom& a, const CircleGeom& b) { return Measure(CircleCircleGeomClearance, a, b); }

TEST(CircleCircleClearance, LiesOnTheLineOfTheCentres) {
    EXPECT_TRUE(AreAt(OfCircles(CircleGeom(5.0, 7.0, 1.0), CircleGeom(8.0, 7.0, 1.0)), 6.0, 7.0, 7.0, 7.0));
    EXPECT_TRUE(AreAt(OfCircles(CircleGeom(8.0, 7.0, 1.0), CircleGeom(5.0, 7.0, 1.0)), 7.0, 7.0, 6.0, 7.0));
    EXPECT_TRUE(AreNear(OfCircles(CircleGeom(1.0, 2.0, 2.0), CircleGeom(1.0, 10.0, 3.0)), 1.0, 4.0, 1.0, 7.0));
    EXPECT_TRUE(AreNear(OfCircles(CircleGeom(0.0, 0.0, 5.0), CircleGeom(6.0, 8.0, 2.0)), 3.0, 4.0, 4.8, 6.4));
}

TEST(CircleCircleClearance, IsUndefinedWhereTheyTouch) {
    const auto touch = [](double distance, double r) {
        const CircleGeom a(0.0, 0.0, 1.0);
        const CircleGeom b(distance, 0.0, r);
        return IsUndefined(CircleCircleGeomClearance, &a, &b);
    };
    EXPECT_TRUE(touch(2.0, 1.0));
    EXPECT_TRUE(touch(2.5, 1.5));
    const double above = 2.0 + kEpsilon;
    const double below = 2.0 - kEpsilon;
    EXPECT_TRUE(touch(above, 1.0));
    EXPECT_TRUE(touch(below, 1.0));
    EXPECT_TRUE(touch(-above, 1.0));
    EXPECT_FALSE(touch(std::nextafter(above, 3.0), 1.0));
    EXPECT_FALSE(touch(std::nextafter(below, 1.0), 1.0));
    EXPECT_FALSE(touch(2.0, 3.0));  // from within
}

TEST(CircleCircleClearance, HasNoSign) {
    const CircleGeom a(0.0, 0.0, 2.0);
    EXPECT_TRUE(AreNear(OfCircles(a, CircleGeom(3.0, 0.0, 2.0)), 2.0, 0.0, 1.0, 0.0));  // overlapping
    const CircleGeom large(0.0, 0.0, 5.0);
    EXPECT_TRUE(AreNear(OfCircles(large, CircleGeom(1.0, 0.0, 1.5)), 5.0, 0.0, -0.5, 0.0));  // one in the other
    EXPECT_TRUE(AreNear(OfCircles(CircleGeom(1.0, 0.0, 1.5), large), -0.5, 0.0, 5.0, 0.0));
}

// From the distant circle the square of its distance absorbs that of its radius, and the line passes for a tangent.
TEST(CircleCircleClearance, EachCircleIsMetByTheLineFromTheFirstCentre) {
    EXPECT_TRUE(AreNear(OfCircles(CircleGeom(0.0, 0.0, 3.0), CircleGeom(1e9, 0.0, 3.0)), 3.0, 0.0, 1e9, 0.0));
}

TEST(CircleCircleClearance, CentresThatAllButCoincideMakeATangent) {
    const double nothingFound = std::ldexp(1.0, -13);
    EXPECT_TRUE(AreAt(OfCircles(CircleGeom(0.0, 0.0, 1.0), CircleGeom(nothingFound, nothingFound, 1.0)), -77.0, -78.0,
                      -79.0, -80.0));
    const double tangent = std::ldexp(1.0, -17);
    const PolylineGeom line = Polyline({DblPt(tangent, -1.0), DblPt(tangent, 1.0)});
    EXPECT_TRUE(AreAt(Measure(CirclePolylineGeomClearance, CircleGeom(0.0, 0.0, 1.0), line), 0.0, 0.0, tangent, 0.0));
}

TEST(CircleCircleClearance, TheCirclesPointIsWrittenLast) {
    const CircleGeom circle(0.0, 0.0, 1.0);
    const PolylineGeom line = Polyline({DblPt(3.0, -2.0), DblPt(3.0, 4.0)});
    DblPt p;
    EXPECT_TRUE(CirclePolylineGeomClearance(&circle, &line, nullptr, &p, &p));
    EXPECT_TRUE(IsAt(p, 1.0, 0.0));
}

TEST(CircleCircleClearance, OfConcentricCirclesIsNan) {
    const Witnesses found = OfCircles(CircleGeom(4.0, 5.0, 1.0), CircleGeom(4.0, 5.0, 3.0));
    EXPECT_TRUE(std::isnan(found.onA.x) && std::isnan(found.onA.y));
    EXPECT_TRUE(std::isnan(found.onB.x) && std::isnan(found.onB.y));
    const CircleGeom point(4.0, 5.0, 0.0);
    EXPECT_TRUE(IsUndefined(CircleCircleGeomClearance, &point, &point));
}

TEST(CircleCircleClearance, LeavesAWitnessThatIsNotDefined) {
    const CircleGeom a(0.0, 0.0, 1.0);
    const CircleGeom b(8.0, 0.0, kNan);
    EXPECT_TRUE(AreNear(OfCircles(a, b), 1.0, 0.0, -79.0, -80.0));
    EXPECT_TRUE(AreNear(OfCircles(b, a), -77.0, -78.0, 1.0, 0.0));
}

TEST(CircleCircleClearance, OutputsMayBeTheCentres) {
    CircleGeom a(0.0, 0.0, 1.0);
    CircleGeom b(8.0, 0.0, 2.0);
    EXPECT_TRUE(CircleCircleGeomClearance(&a, &b, nullptr, &b.center, &a.center));
    EXPECT_TRUE(b.center.IsEqualTo(1.0, 0.0, 1e-12));
    EXPECT_TRUE(a.center.IsEqualTo(6.0, 0.0, 1e-12));
}

/// Checks the same with a polygon and with a polyline.
testing::AssertionResult AreAtWithChain(const CircleGeom& circle, const Points& points, double ax, double ay, double bx,
                                        double by) {
    const auto withPolygon = AreNear(Measure(CirclePolygonGeomClearance, circle, Polygon(points)), ax, ay, bx, by);
    if (!withPolygon) return testing::AssertionFailure() << "polygon: " << withPolygon.message();
    const auto withPolyline = AreNear(Measure(CirclePolylineGeomClearance, circle, Polyline(points)), ax, ay, bx, by);
    if (!withPolyline) return testing::AssertionFailure() << "polyline: " << withPolyline.message();
    return testing::AssertionSuccess();
}

TEST(CircleChainClearance, LiesOnTheNearestEdge) {
    const Points points = {DblPt(20.0, 0.0), DblPt(4.0, 0.0), DblPt(4.0, 30.0), DblPt(20.0, 30.0)};
    EXPECT_TRUE(AreAtWithChain(CircleGeom(1.0, 12.0, 2.0), points, 3.0, 12.0, 4.0, 12.0));
    EXPECT_TRUE(AreAtWithChain(CircleGeom(9.0, -5.0, 1.0), points, 9.0, -4.0, 9.0, 0.0));
    EXPECT_TRUE(AreAtWithChain(CircleGeom(9.0, 36.0, 1.0), points, 9.0, 35.0, 9.0, 30.0));
    // Around the witness on the chain, the nearer of the two points of the circle.
    EXPECT_TRUE(AreAtWithChain(CircleGeom(5.0, 12.0, 3.0), points, 2.0, 12.0, 4.0, 12.0));
}

TEST(CircleChainClearance, DoesNotCloseTheChain) {
    const Points square = {DblPt(0.0, 0.0), DblPt(10.0, 0.0), DblPt(10.0, 10.0), DblPt(0.0, 10.0)};
    EXPECT_TRUE(AreAtWithChain(CircleGeom(-3.0, 4.0, 1.0), square, -2.4, 3.2, 0.0, 0.0));
    Points closed = square;
    closed.push_back(square[0]);
    EXPECT_TRUE(AreAtWithChain(CircleGeom(-3.0, 4.0, 1.0), closed, -2.0, 4.0, 0.0, 4.0));
}

TEST(CircleChainClearance, TakesTheFirstOfEquallyNearEdges) {
    const Points gate = {DblPt(5.0, 8.0), DblPt(5.0, -8.0), DblPt(30.0, -8.0), DblPt(-5.0, -8.0), DblPt(-5.0, 8.0)};
    EXPECT_TRUE(AreAtWithChain(CircleGeom(0.0, 0.0, 1.0), gate, 1.0, 0.0, 5.0, 0.0));
    EXPECT_TRUE(AreAtWithChain(CircleGeom(0.0, 0.0, 1.0), Points(gate.rbegin(), gate.rend()), -1.0, 0.0, -5.0, 0.0));
}

// The end at (8.8, 3.6) is 9.508 away, by the estimate 9.8808; the edge at x = 10 by the estimate 9.6.
TEST(CircleChainClearance, GoesByTheEstimate) {
    const Points points = {DblPt(10.0, -1.0), DblPt(10.0, 1.0), DblPt(20.0, 1.0), DblPt(20.0, 20.0), DblPt(8.8, 3.6)};
    EXPECT_TRUE(AreAtWithChain(CircleGeom(0.0, 0.0, 1.0), points, 1.0, 0.0, 10.0, 0.0));
}

TEST(CircleChainClearance, OfASinglePoint) {
    EXPECT_TRUE(AreAtWithChain(CircleGeom(7.0, 2.0, 3.0), {DblPt(7.0, 9.0)}, 7.0, 5.0, 7.0, 9.0));
}

TEST(CircleChainClearance, WithoutADistanceIsAtTheFirstPoint) {
    const Points points = {DblPt(2.0, 3.0), DblPt(10.0, 1.0)};
    EXPECT_TRUE(AreAtWithChain(CircleGeom(kNan, 0.0, 1.0), points, -77.0, -78.0, 2.0, 3.0));
    EXPECT_TRUE(AreAtWithChain(CircleGeom(kInfinity, 0.0, 1.0), points, -77.0, -78.0, 2.0, 3.0));
}

TEST(CircleChainClearance, LeavesThePointOnTheCircleWhereThereIsNone) {
    const Points points = {DblPt(4.0, -10.0), DblPt(4.0, 10.0)};
    EXPECT_TRUE(AreAtWithChain(CircleGeom(0.0, 1.0, kNan), points, -77.0, -78.0, 4.0, 1.0));
}

TEST(CircleChainClearance, OfACentreOnTheChainIsNan) {
    const Witnesses found =
        Measure(CirclePolylineGeomClearance, CircleGeom(4.0, 1.0, 2.0), Polyline({DblPt(4.0, -9.0), DblPt(4.0, 9.0)}));
    EXPECT_TRUE(std::isnan(found.onA.x) && std::isnan(found.onA.y));
    EXPECT_TRUE(IsAt(found.onB, 4.0, 1.0));
}

TEST(CircleChainClearance, OutputsMayBePointsOfTheShapes) {
    CircleGeom circle(1.0, 12.0, 2.0);
    PolylineGeom polyline = Polyline({DblPt(4.0, -30.0), DblPt(4.0, 30.0)});
    EXPECT_TRUE(CirclePolylineGeomClearance(&circle, &polyline, nullptr, &polyline.Vtx(0), &circle.center));
    EXPECT_TRUE(polyline.Vtx(0).IsEqualTo(3.0, 12.0, 1e-12));
    EXPECT_TRUE(IsAt(circle.center, 4.0, 12.0));
}

TEST(CircleRectangleClearance, CountsAllFourSides) {
    const AlignedDblRect box(1.0, 2.0, 9.0, 12.0);
    const auto of = [&](double x, double y) {
        return Measure(CircleRectangleGeomClearance, CircleGeom(x, y, 3.0), box);
    };
    EXPECT_TRUE(AreNear(of(-5.0, 6.0), -2.0, 6.0, 1.0, 6.0));
    EXPECT_TRUE(AreNear(of(4.0, 18.0), 4.0, 15.0, 4.0, 12.0));
    EXPECT_TRUE(AreNear(of(20.0, 6.0), 17.0, 6.0, 9.0, 6.0));
    EXPECT_TRUE(AreNear(of(4.0, -4.0), 4.0, -1.0, 4.0, 2.0));
    EXPECT_TRUE(AreNear(of(12.0, 16.0), 12.0 - 1.8, 16.0 - 2.4, 9.0, 12.0));
}

TEST(CircleRectangleClearance, StartsWithTheLeftSideAndGoesClockwise) {
    const CircleGeom circle(5.0, 5.0, 1.0);
    const auto of = [&](double left, double bottom, double right, double top) {
        return Measure(CircleRectangleGeomClearance, circle, AlignedDblRect(left, bottom, right, top));
    };
    EXPECT_TRUE(AreNear(of(0.0, 0.0, 10.0, 10.0), 4.0, 5.0, 0.0, 5.0));
    EXPECT_TRUE(AreNear(of(-1.0, 0.0, 10.0, 10.0), 5.0, 6.0, 5.0, 10.0));
    EXPECT_TRUE(AreNear(of(-1.0, 0.0, 10.0, 11.0), 6.0, 5.0, 10.0, 5.0));
    EXPECT_TRUE(AreNear(of(-1.0, 0.0, 11.0, 11.0), 5.0, 4.0, 5.0, 0.0));
}

TEST(CircleRectangleClearance, OutputsMayBeCorners) {
    const CircleGeom circle(20.0, 6.0, 3.0);
    AlignedDblRect box(1.0, 2.0, 9.0, 12.0);
    EXPECT_TRUE(CircleRectangleGeomClearance(&circle, &box, nullptr, &box.ur, &box.ll));
    EXPECT_TRUE(box.ur.IsEqualTo(17.0, 6.0, 1e-12));
    EXPECT_TRUE(IsAt(box.ll, 9.0, 6.0));
}

/// Checks the same with each pair of a polygon and a polyline that there is a function for.
testing::AssertionResult AreAtWithChains(const Points& a, const Points& b, double ax, double ay, double bx, double by) {
    const auto polygons = AreAt(Measure(PolygonPolygonGeomClearance, Polygon(a), Polygon(b)), ax, ay, bx, by);
    if (!polygons) return testing::AssertionFailure() << "polygons: " << polygons.message();
    const auto mixed = AreAt(Measure(PolygonPolylineGeomClearance, Polygon(a), Polyline(b)), ax, ay, bx, by);
    if (!mixed) return testing::AssertionFailure() << "polygon and polyline: " << mixed.message();
    const auto polylines = AreAt(Measure(PolylinePolylineGeomClearance, Polyline(a), Polyline(b)), ax, ay, bx, by);
    if (!polylines) return testing::AssertionFailure() << "polylines: " << polylines.message();
    return testing::AssertionSuccess();
}

TEST(ChainClearance, FindsAVertexOfTheSecondNearAnEdgeOfTheFirst) {
    const Points a = {DblPt(-5.0, 4.0), DblPt(3.0, 4.0)};
    const Points b = {DblPt(2.0, 15.0), DblPt(1.0, 6.0), DblPt(7.0, 20.0)};
    EXPECT_TRUE(AreAtWithChains(a, b, 1.0, 4.0, 1.0, 6.0));
}

TEST(ChainClearance, FindsAVertexOfTheFirstNearAnEdgeOfTheSecond) {
    const Points a = {DblPt(2.0, 15.0), DblPt(1.0, 6.0), DblPt(7.0, 20.0)};
    const Points b = {DblPt(-5.0, 4.0), DblPt(3.0, 4.0)};
    EXPECT_TRUE(AreAtWithChains(a, b, 1.0, 6.0, 1.0, 4.0));
}

TEST(ChainClearance, DoesNotCloseTheChains) {
    const Points square = {DblPt(0.0, 0.0), DblPt(10.0, 0.0), DblPt(10.0, 10.0), DblPt(0.0, 10.0)};
    const Points arrow = {DblPt(-8.0, 3.0), DblPt(-4.0, 5.0), DblPt(-8.0, 7.0)};
    EXPECT_TRUE(AreAtWithChains(square, arrow, 0.0, 0.0, -4.0, 5.0));
    EXPECT_TRUE(AreAtWithChains(arrow, square, -4.0, 5.0, 0.0, 0.0));
    Points closed = square;
    closed.push_back(square[0]);
    EXPECT_TRUE(AreAtWithChains(closed, arrow, 0.0, 5.0, -4.0, 5.0));
    EXPECT_TRUE(AreAtWithChains(arrow, closed, -4.0, 5.0, 0.0, 5.0));
}

// Both ends of where the two run side by side are at the same distance.
TEST(ChainClearance, TakesEdgesOfTheFirstBeforeThoseOfTheSecond) {
    const Points low = {DblPt(0.0, 0.0), DblPt(4.0, 0.0)};
    const Points high = {DblPt(1.0, 3.0), DblPt(9.0, 3.0)};
    EXPECT_TRUE(AreAtWithChains(low, high, 1.0, 0.0, 1.0, 3.0));
    EXPECT_TRUE(AreAtWithChains(high, low, 4.0, 3.0, 4.0, 0.0));
}

TEST(ChainClearance, TakesTheFirstOfEquallyNearVerticesAndEdges) {
    const Points low = {DblPt(0.0, 0.0), DblPt(4.0, 0.0), DblPt(8.0, 0.0)};
    const Points high = {DblPt(7.0, 3.0), DblPt(6.0, 3.0), DblPt(2.0, 3.0), DblPt(1.0, 3.0)};
    // The first edge decides, though the vertices 7 and 6 come first; of its vertices 2 and 1 the former.
    EXPECT_TRUE(AreAtWithChains(low, high, 2.0, 0.0, 2.0, 3.0));
    const Points lowFromRight(low.rbegin(), low.rend());
    EXPECT_TRUE(AreAtWithChains(lowFromRight, high, 7.0, 0.0, 7.0, 3.0));
}

TEST(ChainClearance, TakesTheFirstOfEquallyNearOnesInTheSecondPassToo) {
    const Points teeth = {DblPt(7.0, 3.0), DblPt(6.5, 9.0), DblPt(2.0, 3.0), DblPt(1.5, 9.0), DblPt(1.0, 3.0)};
    const Points low = {DblPt(-9.0, 0.0), DblPt(4.0, 0.0), DblPt(20.0, 0.0)};
    EXPECT_TRUE(AreAtWithChains(teeth, low, 2.0, 3.0, 2.0, 0.0));
}

TEST(ChainClearance, DoesNotSeeCrossings) {
    const Points level = {DblPt(0.0, 0.0), DblPt(10.0, 0.0)};
    const Points upright = {DblPt(4.0, -3.0), DblPt(4.0, 5.0)};
    EXPECT_TRUE(AreAtWithChains(level, upright, 4.0, 0.0, 4.0, -3.0));
}

TEST(ChainClearance, HasNoSign) {
    const Points outside = {DblPt(0.0, 0.0), DblPt(0.0, 20.0), DblPt(30.0, 20.0), DblPt(30.0, 0.0), DblPt(0.0, 0.0)};
    const Points inside = {DblPt(20.0, 9.0), DblPt(24.0, 11.0), DblPt(19.0, 13.0)};
    EXPECT_TRUE(AreAtWithChains(outside, inside, 30.0, 11.0, 24.0, 11.0));
}

TEST(ChainClearance, GoesByTheEstimate) {
    const Points tips = {DblPt(8.8, 3.6), DblPt(40.0, 40.0), DblPt(10.0, 0.0)};
    const Points origin = {DblPt(0.0, 0.0), DblPt(0.0, 0.0)};
    EXPECT_TRUE(AreAtWithChains(origin, tips, 0.0, 0.0, 10.0, 0.0));
}

TEST(ChainClearance, OfSinglePoints) {
    const Points one = {DblPt(3.0, 4.0)};
    const Points other = {DblPt(7.0, 9.0)};
    const Points edge = {DblPt(0.0, 9.0), DblPt(20.0, 9.0)};
    EXPECT_TRUE(AreAtWithChains(one, other, 3.0, 4.0, 7.0, 9.0));
    EXPECT_TRUE(AreAtWithChains(one, edge, 3.0, 4.0, 3.0, 9.0));
    EXPECT_TRUE(AreAtWithChains(edge, one, 3.0, 9.0, 3.0, 4.0));
}

TEST(ChainClearance, WithoutADistanceIsAtTheFirstPoints) {
    const Points a = {DblPt(3.0, kInfinity), DblPt(kInfinity, 4.0), DblPt(5.0, kInfinity)};
    const Points b = {DblPt(7.0, 9.0), DblPt(8.0, 9.5)};
    EXPECT_TRUE(AreAtWithChains(a, b, 3.0, kInfinity, 7.0, 9.0));
    EXPECT_TRUE(AreAtWithChains(b, a, 7.0, 9.0, 3.0, kInfinity));
}

TEST(ChainClearance, LeavesTheShapesAlone) {
    const PolygonGeom a = Polygon(kTriangle);
    const PolylineGeom b = Polyline({DblPt(1.0, 2.0), DblPt(3.0, 8.0)});
    Measure(PolygonPolylineGeomClearance, a, b);
    EXPECT_EQ(a.NPts(), 3u);
    EXPECT_TRUE(IsAt(a.Vtx(0), 20.0, 1.0));
    EXPECT_TRUE(IsAt(a.Vtx(2), 22.0, 9.0));
    EXPECT_EQ(b.NPts(), 2u);
    EXPECT_TRUE(IsAt(b.Vtx(1), 3.0, 8.0));
}

TEST(ChainClearance, OutputsMayBePointsOfTheShapes) {
    PolylineGeom a = Polyline({DblPt(-5.0, 4.0), DblPt(3.0, 4.0)});
    PolylineGeom b = Polyline({DblPt(2.0, 15.0), DblPt(1.0, 6.0), DblPt(7.0, 20.0)});
    EXPECT_TRUE(PolylinePolylineGeomClearance(&a, &b, nullptr, &b.Vtx(1), &a.Vtx(0)));
    EXPECT_TRUE(IsAt(b.Vtx(1), 1.0, 4.0));
    EXPECT_TRUE(IsAt(a.Vtx(0), 1.0, 6.0));
}

TEST(RectangleClearance, OfTwoRectangles) {
    const AlignedDblRect a(0.0, 0.0, 10.0, 10.0);
    const auto of = [](const AlignedDblRect& first, const AlignedDblRect& second) {
        return Measure(RectangleRectangleGeomClearance, first, second);
    };
    EXPECT_TRUE(AreAt(of(a, AlignedDblRect(20.0, 0.0, 30.0, 10.0)), 10.0, 10.0, 20.0, 10.0));
    EXPECT_TRUE(AreAt(of(a, AlignedDblRect(13.0, 4.0, 30.0, 7.0)), 10.0, 4.0, 13.0, 4.0));
    EXPECT_TRUE(AreAt(of(AlignedDblRect(13.0, 4.0, 30.0, 7.0), a), 13.0, 4.0, 10.0, 4.0));
    EXPECT_TRUE(AreAt(of(a, AlignedDblRect(2.0, -9.0, 7.0, -5.0)), 2.0, 0.0, 2.0, -5.0));
    EXPECT_TRUE(AreAt(of(a, AlignedDblRect(13.0, 15.0, 30.0, 17.0)), 10.0, 10.0, 13.0, 15.0));
}

// The rectangle's top runs from left to right, so that the two orders find different ends of the stretch along which
// the shapes are equally near.
const Points kShelf = {DblPt(1.0, 13.0), DblPt(9.0, 13.0)};
const AlignedDblRect& Tower() {
    static const AlignedDblRect tower(0.0, 0.0, 4.0, 10.0);
    return tower;
}

TEST(RectangleClearance, APolygonCountsBeforeARectangle) {
    EXPECT_TRUE(AreAt(Measure(PolygonRectangleGeomClearance, Polygon(kShelf), Tower()), 4.0, 13.0, 4.0, 10.0));
}

TEST(RectangleClearance, ARectangleCountsBeforeAPolyline) {
    EXPECT_TRUE(AreAt(Measure(PolylineRectangleGeomClearance, Polyline(kShelf), Tower()), 1.0, 13.0, 1.0, 10.0));
}

TEST(RectangleClearance, AllFourSidesCount) {
    const Points probes[] = {{DblPt(-5.0, 6.0)}, {DblPt(2.0, 16.0)}, {DblPt(11.0, 7.0)}, {DblPt(3.0, -2.0)}};
    const DblPt nearest[] = {DblPt(0.0, 6.0), DblPt(2.0, 10.0), DblPt(4.0, 7.0), DblPt(3.0, 0.0)};
    for (size_t i = 0; i < 4; ++i) {
        const DblPt& p = probes[i][0];
        const DblPt& q = nearest[i];
        EXPECT_TRUE(AreAt(Measure(PolygonRectangleGeomClearance, Polygon(probes[i]), Tower()), p.x, p.y, q.x, q.y));
        EXPECT_TRUE(AreAt(Measure(PolylineRectangleGeomClearance, Polyline(probes[i]), Tower()), p.x, p.y, q.x, q.y));
    }
}

TEST(RectangleClearance, OutputsMayBeCorners) {
    AlignedDblRect a(0.0, 0.0, 10.0, 10.0);
    AlignedDblRect b(13.0, 4.0, 30.0, 7.0);
    EXPECT_TRUE(RectangleRectangleGeomClearance(&a, &b, nullptr, &b.ll, &a.ur));
    EXPECT_TRUE(IsAt(b.ll, 10.0, 4.0));
    EXPECT_TRUE(IsAt(a.ur, 13.0, 4.0));
}

/// Against the two plain passes.

template <class A, class B>
void Compare(Clearance<A, B>* clearance, const A& a, const B& b, const DblPt& onA, const DblPt& onB) {
    const Witnesses found = Measure(clearance, a, b);
    EXPECT_TRUE(IsSame(found.onA, onA)) << found.onA.x << ", " << found.onA.y << " instead of " << onA.x << ", "
                                        << onA.y;
    EXPECT_TRUE(IsSame(found.onB, onB)) << found.onB.x << ", " << found.onB.y << " instead of " << onB.x << ", "
                                        << onB.y;
}

Points Outline(const AlignedDblRect& r) { return {r.ll, DblPt(r.ll.x, r.ur.y), r.ur, DblPt(r.ur.x, r.ll.y), r.ll}; }

enum class Course { Walk, Grid, Steps, Special };

Points RandomPoints(Course course, RandomNumbers& random) {
    constexpr double kSpecial[] = {kNan, kInfinity, -kInfinity, 0.0, -0.0, 5e-324, 1.7e308, -1.2e154};
    Points points;
    DblPt p(random.Between(-40, 40), random.Between(-40, 40));
    for (size_t count = 1 + random.Below(random.OneIn(3) ? 300 : 30); points.size() < count;) {
        switch (course) {
            case Course::Walk:
                p += DblPt(random.Within(-1.0, 1.5), random.Within(-1.0, 1.0));
                break;
            case Course::Grid:
                p.Set(random.Between(-4, 4), random.Between(-4, 4));
                break;
            case Course::Steps:
                (points.size() % 2 == 0 ? p.x : p.y) += random.Between(-1, 2);
                break;
            case Course::Special:
                p.Set(random.OneIn(9) ? random.OneOf(kSpecial) : random.Between(-4, 4),
                      random.OneIn(9) ? random.OneOf(kSpecial) : random.Between(-4, 4));
                break;
        }
        points.push_back(p);
    }
    return points;
}

TEST(ClearanceAtRandom, OfChains) {
    for (const Course course : {Course::Walk, Course::Grid, Course::Steps, Course::Special}) {
        for (uint64_t seed = 0; seed < 100; ++seed) {
            RandomNumbers random(seed);
            const Points a = RandomPoints(course, random);
            const Points b = RandomPoints(course, random);
            const auto expected = reference::ClearanceOf(a, b);
            Compare(PolygonPolygonGeomClearance, Polygon(a), Polygon(b), expected.onA, expected.onB);
            Compare(PolygonPolylineGeomClearance, Polygon(a), Polyline(b), expected.onA, expected.onB);
            Compare(PolylinePolylineGeomClearance, Polyline(a), Polyline(b), expected.onA, expected.onB);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

TEST(ClearanceAtRandom, OfRectangles) {
    for (const Course course : {Course::Walk, Course::Grid, Course::Steps, Course::Special}) {
        for (uint64_t seed = 0; seed < 200; ++seed) {
            RandomNumbers random(seed);
            AlignedDblRect rectangle(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9), 0.0);
            AlignedDblRect other;
            other.TSet(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9), random.Within(-9.0, 9.0));
            const Points chain = RandomPoints(course, random);
            const auto chainFirst = reference::ClearanceOf(chain, Outline(rectangle));
            const auto rectangleFirst = reference::ClearanceOf(Outline(rectangle), chain);
            const auto rectangles = reference::ClearanceOf(Outline(rectangle), Outline(other));
            Compare(PolygonRectangleGeomClearance, Polygon(chain), rectangle, chainFirst.onA, chainFirst.onB);
            Compare(PolylineRectangleGeomClearance, Polyline(chain), rectangle, rectangleFirst.onB, rectangleFirst.onA);
            Compare(RectangleRectangleGeomClearance, rectangle, other, rectangles.onA, rectangles.onB);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

DblPt FirstNearestOnEdges(const DblPt& centre, const Points& chain) {
    DblPt nearest = chain[0];
    double best = 1.7976931348623157e308;
    for (size_t i = 0; i + 1 < chain.size(); ++i) {
        DblPt foot;
        const double dist = centre.DistToLine(chain[i], chain[i + 1], foot, false);
        if (!(best > dist)) continue;
        best = dist;
        nearest = foot;
    }
    return nearest;
}

TEST(ClearanceAtRandom, OfCircles) {
    for (const Course course : {Course::Walk, Course::Grid, Course::Steps, Course::Special}) {
        for (uint64_t seed = 0; seed < 200; ++seed) {
            RandomNumbers random(seed);
            const CircleGeom circle(random.Between(-9, 9), random.Within(-9.0, 9.0), random.Between(0, 6));
            const Points chain = RandomPoints(course, random);
            const AlignedDblRect rectangle(random.Between(-9, 9), random.Between(-9, 9), random.Between(-9, 9), 0.0);
            const auto expect = [&](const Points& points) {
                Witnesses expected;
                expected.onB = FirstNearestOnEdges(circle.center, points);
                FindLineCircleIntersect(circle.center, circle.radius, expected.onB, circle.center, expected.onB,
                                        expected.onA);
                return expected;
            };
            const Witnesses withChain = expect(chain);
            const Witnesses withRectangle = expect(Outline(rectangle));
            Compare(CirclePolygonGeomClearance, circle, Polygon(chain), withChain.onA, withChain.onB);
            Compare(CirclePolylineGeomClearance, circle, Polyline(chain), withChain.onA, withChain.onB);
            Compare(CircleRectangleGeomClearance, circle, rectangle, withRectangle.onA, withRectangle.onB);
            ASSERT_FALSE(HasFailure()) << "course " << int(course) << ", seed " << seed;
        }
    }
}

// In hosts that fail every allocation, too.
TEST(Clearance, MakesNoObjects) {
    const PolygonGeom polygon = Polygon(Points(20000, DblPt(1.0, 2.0)));
    const AlignedDblRect rectangle(30.0, 2.0, 40.0, 9.0);
    const CircleGeom circle(20.0, 0.0, 3.0);
    const AllocationGuard guard(0);
    DblPt onA;
    DblPt onB;
    EXPECT_TRUE(PolygonPolygonGeomClearance(&polygon, &polygon, nullptr, &onA, &onB));
    EXPECT_TRUE(PolygonRectangleGeomClearance(&polygon, &rectangle, nullptr, &onA, &onB));
    EXPECT_TRUE(CircleRectangleGeomClearance(&circle, &rectangle, nullptr, &onA, &onB));
    EXPECT_EQ(guard.Requests(), 0u);
}

TEST(ToPolyline, TakesThePointsInOrder) {
    DblPtVec points;
    points.push_back(DblPt(3.0, -4.0));
    points.push_back(DblPt(5.0, 6.0));
    points.push_back(DblPt(-7.0, 8.0));
    PolylineGeom* out = nullptr;
    ASSERT_TRUE(ToPolylineGeom(points, &out));
    const std::unique_ptr<PolylineGeom> polyline(out);
    ASSERT_EQ(polyline->NPts(), 3u);
    EXPECT_TRUE(IsAt(polyline->Vtx(0), 3.0, -4.0));
    EXPECT_TRUE(IsAt(polyline->Vtx(1), 5.0, 6.0));
    EXPECT_TRUE(IsAt(polyline->Vtx(2), -7.0, 8.0));
    EXPECT_NE(polyline->Pts(), points.begin());
}

TEST(ToPolyline, LeavesTheExtentsToBeComputed) {
    DblPtVec points;
    points.push_back(DblPt(3.0, 4.0));
    points.push_back(DblPt(5.0, 6.0));
    PolylineGeom* out = nullptr;
    ASSERT_TRUE(ToPolylineGeom(points, &out));
    const std::unique_ptr<PolylineGeom> polyline(out);
    EXPECT_TRUE(IsAt(polyline->LLExtent(), 0.0, 0.0));
    EXPECT_TRUE(IsAt(polyline->URExtent(), 0.0, 0.0));
    polyline->RecalcExtents();
    EXPECT_TRUE(IsAt(polyline->LLExtent(), 3.0, 4.0));
    EXPECT_TRUE(IsAt(polyline->URExtent(), 5.0, 6.0));
}

TEST(ToPolyline, NeedsTwoPoints) {
    PolylineGeom other;
    PolylineGeom* out = &other;
    DblPtVec points;
    EXPECT_FALSE(ToPolylineGeom(points, &out));
    EXPECT_EQ(out, &other);
    points.push_back(DblPt(3.0, 4.0));
    EXPECT_FALSE(ToPolylineGeom(points, &out));
    EXPECT_EQ(out, &other);
    points.push_back(DblPt(3.0, 4.0));
    ASSERT_TRUE(ToPolylineGeom(points, &out));
    ASSERT_NE(out, &other);
    delete out;
}

TEST(ToPolyline, NeedsAPlaceForTheResult) {
    DblPtVec points;
    points.push_back(DblPt(3.0, 4.0));
    points.push_back(DblPt(5.0, 6.0));
    EXPECT_FALSE(ToPolylineGeom(points, nullptr));
}

TEST(ToPolyline, AVectorWithoutABlockGivesPointsAtTheOrigin) {
    DblPtVec points;
    points.push_back(DblPt(1.0, 2.0));
    points.push_back(DblPt(4.0, 7.0));
    DblPtVec shared;
    std::free(shared.buffer);
    shared = points;
    shared.buffer = nullptr;
    PolylineGeom* out = nullptr;
    ASSERT_TRUE(ToPolylineGeom(shared, &out));
    const std::unique_ptr<PolylineGeom> polyline(out);
    ASSERT_EQ(polyline->NPts(), 2u);
    EXPECT_TRUE(IsAt(polyline->Vtx(0), 0.0, 0.0));
    EXPECT_TRUE(IsAt(polyline->Vtx(1), 0.0, 0.0));
}

TEST(ToPolyline, WithoutMemoryForTheObjectThereIsNone) {
    DblPtVec points;
    points.push_back(DblPt(3.0, 4.0));
    points.push_back(DblPt(5.0, 6.0));
    PolylineGeom other;
    PolylineGeom* out = &other;
    bool made = true;
    {
        const AllocationGuard guard(0);
        made = ToPolylineGeom(points, &out);
        EXPECT_EQ(guard.Requests(), 1u);
    }
    EXPECT_FALSE(made);
    EXPECT_EQ(out, &other);
}

}  // namespace
