// SPDX-License-Identifier: MIT

// What cuts polylines and joins them.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "shapes/chain_checks.h"
#include "vellum/polylines.h"

namespace {

using chains::Holds;
using chains::IsEmpty;
using chains::Spans;
using Vellum::DblPt;
using Vellum::PolylineGeom;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kEpsilon = 1.1920928955078125e-7;

const DblPt kA(3.0, 20.0);
const DblPt kB(-5.0, 7.0);
const DblPt kC(11.0, -2.0);
const DblPt kD(6.0, 13.0);
const DblPt kP(40.0, 50.0);

PolylineGeom Line(const chains::Points& points) { return chains::Of<PolylineGeom>(points); }

TEST(TrimFront, DropsWhatComesBefore) {
    PolylineGeom line = Line({kA, kB, kC, kD});
    line.TrimFront(kP, 2U);
    EXPECT_TRUE(Holds(line, {kP, kD}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    PolylineGeom one = Line({kA, kB, kC, kD});
    one.TrimFront(kP, 1U);
    EXPECT_TRUE(Holds(one, {kP, kC, kD}));
    PolylineGeom none = Line({kA, kB, kC, kD});
    none.TrimFront(kP, 0U);
    EXPECT_TRUE(Holds(none, {kP, kB, kC, kD}));
    EXPECT_TRUE(Spans(none, -5.0, -2.0, 11.0, 20.0));
}

TEST(TrimFront, KeepsTheLastSegment) {
    PolylineGeom line = Line({kA, kB, kC, kD});
    line.TrimFront(kP, 3U);
    line.TrimFront(kP, 4U);
    line.TrimFront(kP, ~0U);
    EXPECT_TRUE(Holds(line, {kA, kB, kC, kD}));
    PolylineGeom single = Line({kA});
    single.TrimFront(kP, 0U);
    single.TrimFront(kP, 1U);
    EXPECT_TRUE(Holds(single, {kA}));
    PolylineGeom none;
    none.TrimFront(kP, 0U);
    none.TrimFront(kP, 7U);
    none.TrimFront(kP, ~0U);
    EXPECT_TRUE(IsEmpty(none));
}

TEST(TrimFront, ReadsItsArgumentFirst) {
    PolylineGeom line = Line({kA, kB, kC, kD});
    line.TrimFront(line.pts[1], 1U);
    EXPECT_TRUE(Holds(line, {kB, kC, kD}));
    line.TrimFront(line.pts[2], 1U);
    EXPECT_TRUE(Holds(line, {kD, kD}));
}

TEST(TrimBack, DropsWhatComesAfter) {
    PolylineGeom line = Line({kA, kB, kC});
    line.TrimBack(kP, 1U);
    EXPECT_TRUE(Holds(line, {kA, kP}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    PolylineGeom last = Line({kA, kB, kC});
    last.TrimBack(kP, 2U);
    EXPECT_TRUE(Holds(last, {kA, kB, kP}));
    last.TrimBack(last.pts[0], 1U);
    EXPECT_TRUE(Holds(last, {kA, kA}));
}

TEST(TrimBack, NeedsAPointOtherThanTheFirst) {
    PolylineGeom line = Line({kA, kB, kC});
    line.TrimBack(kP, 0U);
    line.TrimBack(kP, 3U);
    line.TrimBack(kP, ~0U);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    PolylineGeom none;
    none.TrimBack(kP, 0U);
    none.TrimBack(kP, 1U);
    EXPECT_TRUE(IsEmpty(none));
}

TEST(TrimBack, WithoutAPointSetsTheCount) {
    PolylineGeom line = Line({kA, kB, kC});
    line.TrimBack(1U);
    EXPECT_TRUE(Holds(line, {kA, kB}));
    line.TrimBack(0U);
    EXPECT_TRUE(Holds(line, {kA}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    // Nothing is checked: the points are still there.
    line.TrimBack(2U);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    PolylineGeom none;
    none.TrimBack(0U);
    EXPECT_TRUE(IsEmpty(none));
}

TEST(TrimBack, LeavesAPolylineThatGrows) {
    PolylineGeom line = Line({kA, kB, kC});
    line.TrimBack(0U);
    EXPECT_TRUE(line.AddPoint(kP));
    EXPECT_TRUE(Holds(line, {kA, kP}));
    line.TrimBack(~0U);
    EXPECT_EQ(line.nPts, 0U);
    EXPECT_TRUE(line.PrependPoint(kD));
    EXPECT_TRUE(Holds(line, {kD}));
}

class Trim : public testing::Test {
protected:
    const DblPt p0{0.0, 0.0};
    const DblPt p1{10.0, 0.0};
    const DblPt p2{10.0, 10.0};
    const DblPt p3{0.0, 10.0};
    PolylineGeom line = Line({p0, p1, p2, p3});
};

TEST_F(Trim, KeepsWhatLiesBetween) {
    EXPECT_TRUE(line.Trim(DblPt(4.0, 0.0), DblPt(10.0, 6.0), false));
    EXPECT_TRUE(Holds(line, {{4.0, 0.0}, p1, {10.0, 6.0}}));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 10.0, 10.0));
}

TEST_F(Trim, TakesItsPointsInEitherOrder) {
    EXPECT_TRUE(line.Trim(DblPt(3.0, 10.0), DblPt(4.0, 0.0), false));
    EXPECT_TRUE(Holds(line, {{4.0, 0.0}, p1, p2, {3.0, 10.0}}));
}

TEST_F(Trim, OnOneSegment) {
    PolylineGeom same = line;
    EXPECT_TRUE(line.Trim(DblPt(2.0, 0.0), DblPt(7.0, 0.0), false));
    EXPECT_TRUE(Holds(line, {{2.0, 0.0}, {7.0, 0.0}}));
    EXPECT_TRUE(same.Trim(DblPt(7.0, 0.0), DblPt(2.0, 0.0), false));
    EXPECT_TRUE(Holds(same, {{2.0, 0.0}, {7.0, 0.0}}));

    PolylineGeom inner = Line({p0, p1, p2, p3});
    EXPECT_TRUE(inner.Trim(DblPt(10.0, 8.0), DblPt(10.0, 3.0), false));
    EXPECT_TRUE(Holds(inner, {{10.0, 3.0}, {10.0, 8.0}}));
}

TEST_F(Trim, ToAPoint) {
    const DblPt a(4.0, 0.0);
    EXPECT_FALSE(line.Trim(a, a, false));
    EXPECT_TRUE(Holds(line, {p0, p1, p2, p3}));
    EXPECT_TRUE(line.Trim(a, a, true));
    EXPECT_TRUE(Holds(line, {a}));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 10.0, 10.0));

    // Where a ring is closed the point is both of its ends, and still a point.
    PolylineGeom closed = Line({p0, p1, p2, p0});
    EXPECT_FALSE(closed.Trim(p0, p0, false));
    EXPECT_TRUE(closed.Trim(p0, p0, true));
    EXPECT_TRUE(Holds(closed, {p0}));
}

TEST_F(Trim, ToTheFirstOfTwoCoincidentPointsWhereverTheyLie) {
    EXPECT_TRUE(line.Trim(DblPt(50.0, 60.0), DblPt(50.0 + 0.9 * kEpsilon, 60.0 - 0.9 * kEpsilon), true));
    EXPECT_TRUE(Holds(line, {{50.0, 60.0}}));
    // The tolerance itself keeps points apart, on either axis.
    EXPECT_FALSE(line.Trim(DblPt(0.0, 0.0), DblPt(kEpsilon, 0.0), true));
    EXPECT_FALSE(line.Trim(DblPt(0.0, 0.0), DblPt(0.0, kEpsilon), true));
    EXPECT_TRUE(Holds(line, {{50.0, 60.0}}));
}

TEST_F(Trim, ToBothEndsLeavesAllAsItIs) {
    line.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    EXPECT_TRUE(line.Trim(p0, p3, false));
    EXPECT_TRUE(line.Trim(p3, p0, true));
    EXPECT_TRUE(line.Trim(DblPt(0.9 * kEpsilon, 0.0), DblPt(0.0, 10.0 - 0.9 * kEpsilon), false));
    EXPECT_TRUE(line.Trim(DblPt(0.0, 10.0 - 0.9 * kEpsilon), DblPt(0.9 * kEpsilon, 0.0), false));
    EXPECT_TRUE(Holds(line, {p0, p1, p2, p3}));
    EXPECT_TRUE(Spans(line, -100.0, -100.0, 100.0, 100.0));
}

TEST_F(Trim, AtACornerCutsAtTheSegmentThatStartsThere) {
    EXPECT_TRUE(line.Trim(p1, DblPt(10.0, 4.0), false));
    EXPECT_TRUE(Holds(line, {p1, {10.0, 4.0}}));

    PolylineGeom whole = Line({p0, p1, p2, p3});
    EXPECT_TRUE(whole.Trim(DblPt(4.0, 0.0), p2, false));
    EXPECT_TRUE(Holds(whole, {{4.0, 0.0}, p1, p2}));

    PolylineGeom corners = Line({p0, p1, p2, p3});
    EXPECT_TRUE(corners.Trim(p2, p1, false));
    EXPECT_TRUE(Holds(corners, {p1, p2}));
}

TEST_F(Trim, MovesTheCutPointsToItsArguments) {
    const DblPt a(10.0 + 0.5 * kEpsilon, 0.25 * kEpsilon);
    const DblPt b(10.0, 10.0 - 0.5 * kEpsilon);
    EXPECT_TRUE(line.Trim(a, b, false));
    EXPECT_TRUE(Holds(line, {a, b}));
}

TEST_F(Trim, NeedsBothPointsOnThePolyline) {
    const DblPt on(4.0, 0.0);
    const DblPt off(4.0, 5.0);
    EXPECT_FALSE(line.Trim(on, off, true));
    EXPECT_FALSE(line.Trim(off, on, true));
    EXPECT_FALSE(line.Trim(off, DblPt(5.0, 5.0), true));
    EXPECT_FALSE(line.Trim(on, DblPt(-1.0, 5.0), true));  // on the side that would close the ring, or near it
    EXPECT_FALSE(line.Trim(on, DblPt(0.0, 5.0), true));
    EXPECT_FALSE(line.Trim(on, DblPt(kNan, 0.0), true));
    EXPECT_FALSE(line.Trim(DblPt(kNan, 0.0), on, true));
    EXPECT_TRUE(Holds(line, {p0, p1, p2, p3}));
}

// The estimate of the distance is 0.96 of what it is across a segment.
TEST_F(Trim, MeasuresByTheEstimate) {
    const DblPt b(10.0, 6.0);
    EXPECT_FALSE(line.Trim(DblPt(4.0, 1.05 * kEpsilon), b, false));
    EXPECT_TRUE(line.Trim(DblPt(4.0, 1.03 * kEpsilon), b, false));
    EXPECT_TRUE(Holds(line, {{4.0, 1.03 * kEpsilon}, p1, b}));
}

// By the estimate the point aside is the farther one from the start, by its true distance the nearer.
TEST_F(Trim, StartsAtTheNearerArgumentByTheEstimate) {
    const DblPt aside(4.0, kEpsilon);
    const DblPt ahead(4.0 + 0.2 * kEpsilon, 0.0);
    EXPECT_TRUE(line.Trim(aside, ahead, false));
    EXPECT_TRUE(Holds(line, {ahead, aside}));
}

TEST_F(Trim, StartsAtTheFirstArgumentOnATie) {
    const DblPt above(4.0, 0.6 * kEpsilon);
    const DblPt below(4.0, -0.6 * kEpsilon);
    PolylineGeom other = line;
    EXPECT_TRUE(line.Trim(above, below, false));
    EXPECT_TRUE(Holds(line, {above, below}));
    EXPECT_TRUE(other.Trim(below, above, false));
    EXPECT_TRUE(Holds(other, {below, above}));
}

// (5, 0) is passed twice: the front cut takes the first time, the back cut the last.
TEST_F(Trim, WherePolylineCrossesItself) {
    const PolylineGeom crossed = Line({p0, p1, p2, {5.0, 10.0}, {5.0, -5.0}});
    PolylineGeom front = crossed;
    EXPECT_TRUE(front.Trim(DblPt(5.0, 0.0), DblPt(10.0, 6.0), false));
    EXPECT_TRUE(Holds(front, {{5.0, 0.0}, p1, {10.0, 6.0}}));
    PolylineGeom back = crossed;
    EXPECT_TRUE(back.Trim(DblPt(5.0, 0.0), DblPt(2.0, 0.0), false));
    EXPECT_TRUE(Holds(back, {{2.0, 0.0}, p1, p2, {5.0, 10.0}, {5.0, 0.0}}));
}

TEST_F(Trim, PassesOverSegmentsWithoutLength) {
    PolylineGeom doubled = Line({p0, p0, p1, p1, p2});
    EXPECT_TRUE(doubled.Trim(p0, p1, false));
    EXPECT_TRUE(Holds(doubled, {p0, p1}));
}

// Near the end of a slanting segment a point is within the tolerance of the corner on each axis, and yet further
// from it than the tolerance: it ends its own segment and is not on the next.
TEST_F(Trim, WhereACornerHidesTheBackCut) {
    const DblPt hidden(10.0 - 0.9 * kEpsilon, 10.0 - 0.9 * kEpsilon);
    PolylineGeom adjacent = Line({p0, p2, {20.0, 10.0}});
    EXPECT_TRUE(adjacent.Trim(DblPt(15.0, 10.0), hidden, false));
    EXPECT_TRUE(Holds(adjacent, {p0, hidden}));

    PolylineGeom apart = Line({p0, p2, {20.0, 10.0}, {20.0, 30.0}});
    EXPECT_FALSE(apart.Trim(DblPt(20.0, 25.0), hidden, false));
    EXPECT_FALSE(apart.Trim(hidden, DblPt(20.0, 25.0), false));
    EXPECT_TRUE(Holds(apart, {p0, p2, {20.0, 10.0}, {20.0, 30.0}}));
}

TEST_F(Trim, ReadsItsArgumentsFirst) {
    PolylineGeom straight = Line({p0, {10.0, 0.0}, {20.0, 0.0}, {30.0, 0.0}});
    EXPECT_TRUE(straight.Trim(straight.pts[2], straight.pts[1], false));
    EXPECT_TRUE(Holds(straight, {{10.0, 0.0}, {20.0, 0.0}}));
    EXPECT_TRUE(line.Trim(line.pts[2], line.pts[2], true));
    EXPECT_TRUE(Holds(line, {p2}));

    // The back cut overwrites the point at which the front is cut.
    const DblPt end(5.0, 0.0);
    for (const bool isEndFirst : {true, false}) {
        PolylineGeom crossed = Line({p0, p1, p2, {5.0, 10.0}, end});
        const DblPt b(5.0, 4.0);
        EXPECT_TRUE(isEndFirst ? crossed.Trim(crossed.pts[4], b, false) : crossed.Trim(b, crossed.pts[4], false));
        EXPECT_TRUE(Holds(crossed, {end, p1, p2, {5.0, 10.0}, b}));
    }
}

TEST_F(Trim, WithoutSegments) {
    PolylineGeom none;
    EXPECT_FALSE(none.Trim(p0, p1, true));
    EXPECT_FALSE(none.Trim(p0, p0, false));
    EXPECT_TRUE(IsEmpty(none));
    EXPECT_TRUE(none.Trim(p1, p1, true));
    EXPECT_TRUE(Holds(none, {p1}));
    EXPECT_TRUE(Spans(none, 0.0, 0.0, 0.0, 0.0));

    PolylineGeom single = Line({p1});
    EXPECT_FALSE(single.Trim(p1, p2, true));
    EXPECT_TRUE(single.Trim(DblPt(10.0 - 0.6 * kEpsilon, 0.0), DblPt(10.0 + 0.6 * kEpsilon, 0.0), false));
    EXPECT_TRUE(Holds(single, {p1}));
    single.TrimBack(~0U);
    EXPECT_FALSE(single.Trim(p0, p1, true));
    EXPECT_TRUE(single.Trim(p2, p2, true));
    EXPECT_TRUE(Holds(single, {p2}));
}

class AppendVertices : public testing::Test {
protected:
    PolylineGeom line = Line({{0.0, 0.0}, {10.0, 1.0}});
    const PolylineGeom onward = Line({{10.0, 1.0}, {20.0, 2.0}, {30.0, 5.0}, {40.0, 4.0}});
    const PolylineGeom inward = Line({{40.0, 4.0}, {30.0, 5.0}, {20.0, 2.0}, {10.0, 1.0}});
};

TEST_F(AppendVertices, FollowsTheLastPoint) {
    line.AppendVertices(&onward, 0U, 2U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}, {30.0, 5.0}}));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 30.0, 5.0));
}

TEST_F(AppendVertices, WidensTheExtentsWithoutRecomputingThem) {
    line.extents.TSet(-100.0, -100.0, 25.0, 100.0);
    line.AppendVertices(&onward, 0U, 2U, 0.5);
    EXPECT_TRUE(Spans(line, -100.0, -100.0, 30.0, 100.0));
}

TEST_F(AppendVertices, TakesItsIndicesInEitherOrder) {
    line.AppendVertices(&onward, 2U, 0U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}, {30.0, 5.0}}));
}

TEST_F(AppendVertices, FollowsTheStretchBackwards) {
    line.AppendVertices(&inward, 1U, 3U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}, {30.0, 5.0}}));
}

TEST_F(AppendVertices, TurnsThePolylineRoundWhereItStartsAtTheStretch) {
    line.ReverseVertices();
    PolylineGeom other = line;
    line.AppendVertices(&onward, 0U, 2U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}, {30.0, 5.0}}));
    other.AppendVertices(&inward, 3U, 2U, 0.5);
    EXPECT_TRUE(Holds(other, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}}));
}

// The first point is asked first, though the last would do as it stands.
TEST_F(AppendVertices, TurnsThePolylineRoundWhereBothEndsMeet) {
    const PolylineGeom bridge = Line({{0.0, 0.0}, {5.0, 9.0}, {10.0, 1.0}});
    line.AppendVertices(&bridge, 0U, 2U, 0.5);
    EXPECT_TRUE(Holds(line, {{10.0, 1.0}, {0.0, 0.0}, {5.0, 9.0}, {10.0, 1.0}}));

    const PolylineGeom back = Line({{10.0, 1.0}, {5.0, 9.0}, {0.0, 0.0}});
    PolylineGeom other = Line({{0.0, 0.0}, {10.0, 1.0}});
    other.AppendVertices(&back, 0U, 2U, 0.5);
    EXPECT_TRUE(Holds(other, {{10.0, 1.0}, {0.0, 0.0}, {5.0, 9.0}, {10.0, 1.0}}));
}

// Turned round once, not twice, where both ends of the stretch meet the first point.
TEST_F(AppendVertices, TurnsThePolylineRoundOnce) {
    const PolylineGeom loop = Line({{0.0, 0.0}, {5.0, 9.0}, {0.0, 0.0}});
    line.AppendVertices(&loop, 0U, 2U, 0.5);
    EXPECT_TRUE(Holds(line, {{10.0, 1.0}, {0.0, 0.0}, {5.0, 9.0}, {0.0, 0.0}}));
}

// Of a closed stretch the lower end is asked first at the last point too.
TEST_F(AppendVertices, PrefersTheLowerEndOfTheStretch) {
    const PolylineGeom loop = Line({{10.0, 1.0}, {5.0, 9.0}, {6.0, 12.0}, {10.0, 1.0}});
    line.AppendVertices(&loop, 0U, 3U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}, {5.0, 9.0}, {6.0, 12.0}, {10.0, 1.0}}));
}

TEST_F(AppendVertices, OfOneIndexDoesNothing) {
    line.AppendVertices(&onward, 0U, 0U, 0.5);
    line.ReverseVertices();
    line.AppendVertices(&onward, 0U, 0U, 0.5);
    EXPECT_TRUE(Holds(line, {{10.0, 1.0}, {0.0, 0.0}}));
}

TEST_F(AppendVertices, NeedsEndsThatCoincide) {
    line.AppendVertices(&onward, 1U, 3U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}}));
    PolylineGeom none;
    none.AppendVertices(&onward, 0U, 2U, 0.5);
    EXPECT_TRUE(IsEmpty(none));
}

TEST_F(AppendVertices, CoincidenceIsStrictOnBothAxes) {
    const PolylineGeom right = Line({{10.5, 1.0}, {20.0, 2.0}});
    line.AppendVertices(&right, 0U, 1U, 0.5);
    const PolylineGeom above = Line({{10.0, 1.5}, {20.0, 2.0}});
    line.AppendVertices(&above, 0U, 1U, 0.5);
    line.AppendVertices(&onward, 0U, 1U, 0.0);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}}));
    const PolylineGeom near = Line({{10.25, 0.75}, {20.0, 2.0}});
    line.AppendVertices(&near, 0U, 1U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}}));
}

TEST_F(AppendVertices, EachPairOfEndsMeetsWithinTheTolerance) {
    const PolylineGeom up = Line({{0.25, -0.25}, {-20.0, 2.0}});
    PolylineGeom lowAtFirst = line;
    lowAtFirst.AppendVertices(&up, 0U, 1U, 0.5);
    EXPECT_TRUE(Holds(lowAtFirst, {{10.0, 1.0}, {0.0, 0.0}, {-20.0, 2.0}}));

    const PolylineGeom down = Line({{-20.0, 2.0}, {-0.25, 0.25}});
    PolylineGeom highAtFirst = line;
    highAtFirst.AppendVertices(&down, 0U, 1U, 0.5);
    EXPECT_TRUE(Holds(highAtFirst, {{10.0, 1.0}, {0.0, 0.0}, {-20.0, 2.0}}));

    const PolylineGeom back = Line({{20.0, 2.0}, {10.25, 0.75}});
    PolylineGeom highAtLast = line;
    highAtLast.AppendVertices(&back, 0U, 1U, 0.5);
    EXPECT_TRUE(Holds(highAtLast, {{0.0, 0.0}, {10.0, 1.0}, {20.0, 2.0}}));

    // The tolerance itself keeps the first point apart too: the polyline is not turned round.
    const PolylineGeom touching = Line({{-0.5, 0.0}, {0.0, -0.5}});
    line.AppendVertices(&touching, 0U, 1U, 0.5);
    EXPECT_TRUE(Holds(line, {{0.0, 0.0}, {10.0, 1.0}}));
}

TEST_F(AppendVertices, OfThePolylineItselfTakesItsPointsAsTheyWere) {
    PolylineGeom line3 = Line({kA, kB, kC});
    line3.AppendVertices(&line3, 1U, 2U, 0.5);
    EXPECT_TRUE(Holds(line3, {kA, kB, kC, kB}));

    PolylineGeom turned = Line({kA, kB, kC});
    turned.AppendVertices(&turned, 0U, 2U, 0.5);
    EXPECT_TRUE(Holds(turned, {kC, kB, kA, kB, kC}));

    PolylineGeom closed = Line({kA, kB, kC, kD, kA});
    closed.AppendVertices(&closed, 2U, 4U, 0.5);
    EXPECT_TRUE(Holds(closed, {kA, kD, kC, kB, kA, kD, kC}));
}

class ConnectsTo : public testing::Test {
protected:
    /// Asks and compares the answer and both indices.
    static testing::AssertionResult Gives(const PolylineGeom& line, const PolylineGeom& other, double tol, bool found,
                                          unsigned myIdx, unsigned otherIdx) {
        unsigned mine = 77;
        unsigned its = 88;
        const bool result = line.ConnectsTo(&other, mine, its, tol);
        if (result == found && mine == myIdx && its == otherIdx) return testing::AssertionSuccess();
        return testing::AssertionFailure() << result << ", " << mine << ", " << its;
    }

    const PolylineGeom line = Line({kA, kB, kC});
};

TEST_F(ConnectsTo, PrefersItsOwnLowerIndices) {
    EXPECT_TRUE(Gives(line, Line({kB, kD, kP, kA, kD}), 0.5, true, 0, 3));
    EXPECT_TRUE(Gives(line, Line({kC, kD, kP, kB, kD}), 0.5, true, 1, 3));
    EXPECT_TRUE(Gives(line, Line({kD, kP, kC, kD}), 0.5, true, 2, 2));
}

TEST_F(ConnectsTo, PrefersTheEndsOfTheOther) {
    EXPECT_TRUE(Gives(line, Line({kA, kA, kA, kA}), 0.5, true, 0, 0));
    EXPECT_TRUE(Gives(line, Line({kP, kA, kA, kA}), 0.5, true, 0, 3));
    EXPECT_TRUE(Gives(line, Line({kP, kA, kA, kP}), 0.5, true, 0, 1));
    EXPECT_TRUE(Gives(line, Line({kP, kD, kA, kP}), 0.5, true, 0, 2));
}

TEST_F(ConnectsTo, WithoutATouchStopsAtTheLastIndexTried) {
    EXPECT_TRUE(Gives(line, Line({kP, kD, kP, kD, kP}), 0.5, false, 3, 3));
    EXPECT_TRUE(Gives(line, Line({kP, kD, kP}), 0.5, false, 3, 1));
    EXPECT_TRUE(Gives(line, Line({kP, kD}), 0.5, false, 3, 1));
    EXPECT_TRUE(Gives(line, Line({kP}), 0.5, false, 3, 0));
    EXPECT_TRUE(Gives(line, PolylineGeom(), 0.5, false, 3, 0));
    EXPECT_TRUE(Gives(Line({kA}), Line({kP, kD, kP, kD}), 0.5, false, 1, 2));
}

TEST_F(ConnectsTo, ShortOthers) {
    EXPECT_TRUE(Gives(line, Line({kC}), 0.5, true, 2, 0));
    EXPECT_TRUE(Gives(line, Line({kP, kB}), 0.5, true, 1, 1));
    EXPECT_TRUE(Gives(line, Line({kB, kP}), 0.5, true, 1, 0));
}

TEST_F(ConnectsTo, WithNoPointsOfItsOwnLeavesTheOthersIndex) {
    EXPECT_TRUE(Gives(PolylineGeom(), line, 0.5, false, 0, 88));
    EXPECT_TRUE(Gives(PolylineGeom(), PolylineGeom(), 0.5, false, 0, 88));
}

TEST_F(ConnectsTo, CoincidenceIsStrictOnBothAxes) {
    EXPECT_TRUE(Gives(line, Line({{3.5, 20.0}, kP}), 0.5, false, 3, 1));
    EXPECT_TRUE(Gives(line, Line({{3.0, 19.5}, kP}), 0.5, false, 3, 1));
    EXPECT_TRUE(Gives(line, Line({{3.25, 19.75}, kP}), 0.5, true, 0, 0));
    EXPECT_TRUE(Gives(line, line, 0.0, false, 3, 1));
}

TEST_F(ConnectsTo, ItselfAtItsFirstPoint) { EXPECT_TRUE(Gives(line, line, 0.5, true, 0, 0)); }

}  // namespace
