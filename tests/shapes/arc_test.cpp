// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <type_traits>

#include "support/point_checks.h"
#include "support/random_numbers.h"
#include "vellum/circles.h"

namespace {

using support::IsAt;
using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::ArcGeom;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::Shape;

static_assert(std::is_base_of_v<Shape, ArcGeom> && !std::is_base_of_v<ClosedShape, ArcGeom>);

constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kLargestEmptySweep = 1.1754943508222875e-38;

ArcGeom MakeArc(const DblPt& startVec, const DblPt& center, double radius, double sweep) {
    return ArcGeom(startVec, center, radius, sweep);
}

ArcGeom MakeArcAt(double startAngle, const DblPt& center, double radius, double sweep) {
    const DblPt startVec(center.x + 7.0 * std::cos(startAngle), center.y + 7.0 * std::sin(startAngle));
    return MakeArc(startVec, center, radius, sweep);
}

DblPt StartOf(const ArcGeom& arc) {
    DblPt p(-77.0, 88.0);
    arc.GetArcStartPoint(p);
    return p;
}

DblPt EndOf(const ArcGeom& arc) {
    DblPt p(-77.0, 88.0);
    arc.GetArcEndPoint(p);
    return p;
}

AlignedDblRect ExtentsOf(const ArcGeom& arc, bool reversed = false) {
    DblPt max;
    DblPt min;
    arc.maxmin_arc(reversed, &max, &min);
    AlignedDblRect r;
    r.TSet(min, max);
    if (!reversed) {
        AlignedDblRect asked(-1.0, -2.0, -3.0, -4.0);
        arc.GetExtents(asked);
        EXPECT_EQ(asked, r);
        EXPECT_EQ(arc.LLX(), r.ll.x);
        EXPECT_EQ(arc.LLY(), r.ll.y);
        EXPECT_EQ(arc.URX(), r.ur.x);
        EXPECT_EQ(arc.URY(), r.ur.y);
    }
    return r;
}

testing::AssertionResult IsNear(const AlignedDblRect& r, double left, double bottom, double right, double top,
                                double tol = 1e-14) {
    const double off = std::max(
        {std::fabs(r.ll.x - left), std::fabs(r.ll.y - bottom), std::fabs(r.ur.x - right), std::fabs(r.ur.y - top)});
    if (off <= tol) return testing::AssertionSuccess();
    return testing::AssertionFailure() << r.ll.x << ", " << r.ll.y << " - " << r.ur.x << ", " << r.ur.y
                                       << " instead of " << left << ", " << bottom << " - " << right << ", " << top;
}

TEST(ArcGeom, StartsAsNothing) {
    const ArcGeom arc;
    EXPECT_TRUE(IsAt(arc.startVec, 0.0, 0.0));
    EXPECT_TRUE(IsAt(arc.center, 0.0, 0.0));
    EXPECT_EQ(arc.radius, 0.0);
    EXPECT_EQ(arc.angle, 0.0);
}

testing::AssertionResult HoldsOneToSix(const ArcGeom& arc) {
    if (arc.radius != 5.0 || arc.angle != 6.0)
        return testing::AssertionFailure() << "radius " << arc.radius << ", angle " << arc.angle;
    const auto result = IsAt(arc.startVec, 1.0, 2.0);
    return result ? IsAt(arc.center, 3.0, 4.0) : result;
}

TEST(ArcGeom, ConstructsAndCopies) {
    const DblPt startVec(1.0, 2.0);
    const DblPt center(3.0, 4.0);
    double radius = 5.0;
    double sweep = 6.0;
    const ArcGeom arc(startVec, center, radius, sweep);
    EXPECT_TRUE(HoldsOneToSix(arc));
    EXPECT_TRUE(HoldsOneToSix(ArcGeom(&startVec, &center, &radius, &sweep)));
    EXPECT_TRUE(HoldsOneToSix(ArcGeom(arc)));
    ArcGeom assigned;
    EXPECT_EQ(&(assigned = arc), &assigned);
    EXPECT_TRUE(HoldsOneToSix(assigned));
}

TEST(ArcGeom, SetsAndTellsItsParts) {
    DblPt startVec(1.0, 2.0);
    DblPt center(3.0, 4.0);
    double radius = 5.0;
    double sweep = 6.0;
    ArcGeom arc;
    arc.SetStartVector(startVec);
    arc.SetCenter(center);
    arc.SetRadius(radius);
    arc.SetAngle(sweep);
    EXPECT_TRUE(HoldsOneToSix(arc));
    EXPECT_EQ(&arc.StartVec(), &arc.startVec);
    EXPECT_EQ(&arc.Center(), &arc.center);
    EXPECT_EQ(arc.Radius(), 5.0);
    EXPECT_EQ(arc.Angle(), 6.0);
}

TEST(ArcGeom, TheVerticesAreTheStoredPoints) {
    const ArcGeom arc = MakeArc(DblPt(5.0, 0.0), DblPt(1.0, 0.0), 2.0, 1.0);
    EXPECT_TRUE(arc.HasVertex(DblPt(5.0, 0.0)));
    EXPECT_TRUE(arc.HasVertex(DblPt(1.0, 0.0)));
    EXPECT_FALSE(arc.HasVertex(StartOf(arc)));
    EXPECT_FALSE(arc.HasVertex(EndOf(arc)));
}

TEST(ArcGeom, TheStartAngleIsThatOfTheVectorFromTheCentre) {
    const DblPt center(1.0, 2.0);
    EXPECT_EQ(MakeArc(DblPt(6.0, 2.0), center, 2.0, 1.0).StartAngle(), 0.0);
    EXPECT_EQ(MakeArc(DblPt(1.0, 9.0), center, 2.0, 1.0).StartAngle(), kPi / 2.0);
    EXPECT_EQ(MakeArc(DblPt(-4.0, 2.0), center, 2.0, 1.0).StartAngle(), kPi);
    EXPECT_EQ(MakeArc(DblPt(1.0, -9.0), center, 2.0, 1.0).StartAngle(), -kPi / 2.0);
    EXPECT_EQ(MakeArc(DblPt(4.0, 6.0), center, 2.0, 1.0).StartAngle(), std::atan2(4.0, 3.0));
    EXPECT_EQ(MakeArc(center, center, 2.0, 1.0).StartAngle(), 0.0);
}

TEST(ArcGeom, TheEndsLieOnTheCircleWhereverTheStartVectorIs) {
    const ArcGeom arc = MakeArc(DblPt(4.0, 6.0), DblPt(1.0, 2.0), 2.0, 0.75);
    const double start = std::atan2(4.0, 3.0);
    EXPECT_TRUE(IsAt(StartOf(arc), 1.0 + 2.0 * std::cos(start), 2.0 + 2.0 * std::sin(start)));
    EXPECT_TRUE(IsAt(EndOf(arc), 1.0 + 2.0 * std::cos(start + 0.75), 2.0 + 2.0 * std::sin(start + 0.75)));
    EXPECT_NEAR(StartOf(arc).x, 2.2, 1e-15);
    EXPECT_NEAR(StartOf(arc).y, 3.6, 1e-15);
}

TEST(ArcGeom, AQuarterFromTheXAxis) {
    const ArcGeom arc = MakeArc(DblPt(5.0, 0.0), DblPt(), 2.0, kPi / 2.0);
    EXPECT_TRUE(IsAt(StartOf(arc), 2.0, 0.0));
    EXPECT_NEAR(EndOf(arc).x, 0.0, 1e-15);
    EXPECT_EQ(EndOf(arc).y, 2.0);
    const AlignedDblRect r = ExtentsOf(arc);
    EXPECT_TRUE(IsNear(r, 0.0, 0.0, 2.0, 2.0));
    EXPECT_EQ(r.ur.x, 2.0);
    EXPECT_EQ(r.ur.y, 2.0);
}

TEST(ArcGeom, WithoutASweepItEndsWhereItStartsAndHasTheWholeCirclesExtents) {
    for (const double sweep : {-kPi / 2.0, 0.0, -0.0, kLargestEmptySweep, -kInf}) {
        const ArcGeom arc = MakeArc(DblPt(5.0, 0.0), DblPt(), 2.0, sweep);
        EXPECT_TRUE(IsAt(EndOf(arc), 2.0, 0.0));
        const AlignedDblRect r = ExtentsOf(arc);
        EXPECT_TRUE(IsAt(r.ll, -2.0, -2.0));
        EXPECT_TRUE(IsAt(r.ur, 2.0, 2.0));
    }
    // The smallest sweep that is one.
    const double sweep = std::nextafter(kLargestEmptySweep, 1.0);
    EXPECT_TRUE(IsAt(EndOf(MakeArc(DblPt(5.0, 0.0), DblPt(), 2.0, sweep)), 2.0, 2.0 * sweep));
}

TEST(ArcGeom, TheEmptySweepIsSinglePrecisionsSmallestNumber) {
    EXPECT_EQ(kLargestEmptySweep, static_cast<double>(std::numeric_limits<float>::min()));
}

TEST(ArcGeom, JustShortOfATurnInOneQuadrantHasTheWholeCirclesExtents) {
    for (const double start : {0.3, 2.0, 4.0, 5.5}) {
        const ArcGeom arc = MakeArcAt(start, DblPt(10.0, 20.0), 2.0, kTwoPi - 0.1);
        const AlignedDblRect r = ExtentsOf(arc);
        EXPECT_TRUE(IsAt(r.ll, 8.0, 18.0));
        EXPECT_TRUE(IsAt(r.ur, 12.0, 22.0));
        // What is left of the circle is short.
        const AlignedDblRect rest = ExtentsOf(arc, true);
        EXPECT_LT(rest.Width(), 0.3);
        EXPECT_LT(rest.Height(), 0.3);
    }
}

TEST(ArcGeom, ATurnFromTheXAxisEndsInTheLastQuadrant) {
    // The end lies so little below the axis that its angle in [0, 2 pi) rounds to 2 pi itself.
    const ArcGeom arc = MakeArc(DblPt(5.0, 0.0), DblPt(), 2.0, kTwoPi);
    ASSERT_LT(EndOf(arc).y, 0.0);
    ASSERT_EQ(std::atan2(EndOf(arc).y, EndOf(arc).x) + kTwoPi, kTwoPi);
    const AlignedDblRect r = ExtentsOf(arc);
    EXPECT_TRUE(IsAt(r.ll, -2.0, -2.0));
    EXPECT_TRUE(IsAt(r.ur, 2.0, 2.0));
    EXPECT_TRUE(IsNear(ExtentsOf(arc, true), 2.0, 0.0, 2.0, 0.0));
}

TEST(ArcGeom, ASweepOfMoreThanATurnCountsAsItsRest) {
    const ArcGeom arc = MakeArcAt(0.2, DblPt(), 2.0, kTwoPi + 0.5);
    EXPECT_TRUE(
        IsNear(ExtentsOf(arc), 2.0 * std::cos(0.7), 2.0 * std::sin(0.2), 2.0 * std::cos(0.2), 2.0 * std::sin(0.7)));
}

// Both ends 0.5 into their quadrants, so that every side of a box is either the circle's or that of an end.
TEST(ArcGeom, ExtentsForEveryPairOfQuadrants) {
    constexpr bool kStays = false;
    constexpr bool kReaches = true;
    struct Case {
        int from;
        int to;
        bool right;
        bool top;
        bool left;
        bool bottom;
    };
    const Case cases[] = {
        {0, 1, kStays, kReaches, kStays, kStays},     {0, 2, kStays, kReaches, kReaches, kStays},
        {0, 3, kStays, kReaches, kReaches, kReaches}, {1, 0, kReaches, kStays, kReaches, kReaches},
        {1, 2, kStays, kStays, kReaches, kStays},     {1, 3, kStays, kStays, kReaches, kReaches},
        {2, 0, kReaches, kStays, kStays, kReaches},   {2, 1, kReaches, kReaches, kStays, kReaches},
        {2, 3, kStays, kStays, kStays, kReaches},     {3, 0, kReaches, kStays, kStays, kStays},
        {3, 1, kReaches, kReaches, kStays, kStays},   {3, 2, kReaches, kReaches, kReaches, kStays},
    };
    const DblPt center(10.0, 20.0);
    for (const Case& c : cases) {
        const double start = c.from * kPi / 2.0 + 0.5;
        const double sweep = (c.to > c.from ? c.to - c.from : c.to - c.from + 4) * kPi / 2.0;
        const ArcGeom arc = MakeArcAt(start, center, 3.0, sweep);
        const DblPt s = StartOf(arc);
        const DblPt e = EndOf(arc);
        const AlignedDblRect r = ExtentsOf(arc);
        EXPECT_EQ(r.ur.x, c.right ? 13.0 : std::max(s.x, e.x)) << c.from << " to " << c.to;
        EXPECT_EQ(r.ur.y, c.top ? 23.0 : std::max(s.y, e.y)) << c.from << " to " << c.to;
        EXPECT_EQ(r.ll.x, c.left ? 7.0 : std::min(s.x, e.x)) << c.from << " to " << c.to;
        EXPECT_EQ(r.ll.y, c.bottom ? 17.0 : std::min(s.y, e.y)) << c.from << " to " << c.to;
    }
}

// The box of points along the arc, counter-clockwise from one angle by a sweep.
AlignedDblRect WalkedBox(const DblPt& center, double radius, double from, double sweep) {
    constexpr int kSteps = 4000;
    AlignedDblRect box;
    for (int i = 0; i <= kSteps; ++i) {
        const double t = from + sweep * i / kSteps;
        const DblPt p(center.x + radius * std::cos(t), center.y + radius * std::sin(t));
        if (i == 0) box.TSet(p, p);
        box += p;
    }
    return box;
}

testing::AssertionResult IsWalked(const ArcGeom& arc, double from, double sweep) {
    const double step = kTwoPi / 4000.0;
    const double tol = arc.radius * step * step + 1e-12;
    const AlignedDblRect walked = WalkedBox(arc.center, arc.radius, from, sweep);
    auto forward = IsNear(ExtentsOf(arc), walked.ll.x, walked.ll.y, walked.ur.x, walked.ur.y, tol);
    if (!forward) return forward << " from " << from << " by " << sweep;
    const AlignedDblRect rest = WalkedBox(arc.center, arc.radius, from + sweep, kTwoPi - sweep);
    return IsNear(ExtentsOf(arc, true), rest.ll.x, rest.ll.y, rest.ur.x, rest.ur.y, tol)
           << " from " << from << " by " << sweep << ", reversed";
}

TEST(ArcGeom, ExtentsAreThoseOfAWalkAlongTheArc) {
    const double offsets[] = {0.0, 0.2, 0.7, 1.5};
    const DblPt center(-3.0, 5.0);
    for (int from = 0; from < 4; ++from) {
        for (int to = 0; to < 8; ++to) {
            for (const double fromOffset : offsets) {
                for (const double toOffset : offsets) {
                    const double start = from * kPi / 2.0 + fromOffset;
                    const double sweep = to * kPi / 2.0 + toOffset - start;
                    if (sweep < 0.1 || sweep > kTwoPi - 0.1) continue;
                    EXPECT_TRUE(IsWalked(MakeArcAt(start, center, 2.5, sweep), start, sweep));
                }
            }
        }
    }
}

TEST(ArcGeom, ExtentsOfRandomArcsAreThoseOfAWalk) {
    RandomNumbers random(34);
    for (int i = 0; i < 300; ++i) {
        const double start = random.Within(-kPi, kPi);
        const double sweep = random.Within(0.01, kTwoPi - 0.01);
        const DblPt center(random.Within(-9.0, 9.0), random.Within(-9.0, 9.0));
        EXPECT_TRUE(IsWalked(MakeArcAt(start, center, random.Within(0.1, 9.0), sweep), start, sweep));
    }
}

TEST(ArcGeom, EndsOnTheAxesAddNoSide) {
    const DblPt center(10.0, 20.0);
    const DblPt onAxes[] = {{15.0, 20.0}, {10.0, 25.0}, {5.0, 20.0}, {10.0, 15.0}};
    const double quarters[4][4] = {{0, 0, 1, 1}, {-1, 0, 0, 1}, {-1, -1, 0, 0}, {0, -1, 1, 0}};
    for (int i = 0; i < 4; ++i) {
        const ArcGeom arc = MakeArc(onAxes[i], center, 2.0, kPi / 2.0);
        const double* box = quarters[i];
        EXPECT_TRUE(
            IsNear(ExtentsOf(arc), 10.0 + 2.0 * box[0], 20.0 + 2.0 * box[1], 10.0 + 2.0 * box[2], 20.0 + 2.0 * box[3]));
        EXPECT_TRUE(IsNear(ExtentsOf(arc, true), 8.0, 18.0, 12.0, 22.0));
    }
}

TEST(ArcGeom, WithoutARadiusTheExtentsAreTheCentre) {
    for (const double sweep : {0.0, 1.0, 6.0}) {
        const ArcGeom arc = MakeArc(DblPt(5.0, 7.0), DblPt(1.0, 2.0), 0.0, sweep);
        for (const bool reversed : {false, true}) {
            const AlignedDblRect r = ExtentsOf(arc, reversed);
            EXPECT_TRUE(IsAt(r.ll, 1.0, 2.0));
            EXPECT_TRUE(IsAt(r.ur, 1.0, 2.0));
        }
    }
    // One end at the centre is enough: here the radius is lost beside the centre's x.
    const ArcGeom onAxis = MakeArc(DblPt(2e20, 0.0), DblPt(1e20, 0.0), 1.0, 1.0);
    ASSERT_GT(EndOf(onAxis).y, 0.8);
    for (const bool reversed : {false, true}) {
        const AlignedDblRect r = ExtentsOf(onAxis, reversed);
        EXPECT_TRUE(IsAt(r.ll, 1e20, 0.0));
        EXPECT_TRUE(IsAt(r.ur, 1e20, 0.0));
    }
    // Or beside both.
    const AlignedDblRect r = ExtentsOf(MakeArc(DblPt(5.0, 7.0), DblPt(1e20, 2e20), 1.0, 1.0));
    EXPECT_TRUE(IsAt(r.ll, 1e20, 2e20));
    EXPECT_TRUE(IsAt(r.ur, 1e20, 2e20));
}

TEST(ArcGeom, ANegativeRadiusPutsTheEndsOpposite) {
    // From (-2, 0) past (0, -2); the circle's sides, which are exchanged, widen nothing.
    const ArcGeom arc = MakeArc(DblPt(5.0, 0.0), DblPt(), -2.0, 2.0);
    EXPECT_TRUE(IsAt(StartOf(arc), -2.0, 0.0));
    EXPECT_TRUE(IsNear(ExtentsOf(arc), -2.0, -2.0 * std::sin(2.0), -2.0 * std::cos(2.0), 0.0));
    for (int quarter = 0; quarter < 4; ++quarter) {
        const ArcGeom turned = MakeArcAt(quarter * kPi / 2.0 + 0.5, DblPt(), -2.0, 1.5);
        const DblPt s = StartOf(turned);
        const DblPt e = EndOf(turned);
        EXPECT_TRUE(
            IsNear(ExtentsOf(turned), std::min(s.x, e.x), std::min(s.y, e.y), std::max(s.x, e.x), std::max(s.y, e.y)));
    }
}

TEST(ArcGeom, TheCirclesBox) {
    const ArcGeom arc;
    DblPt c(10.0, 20.0);
    DblPt max;
    DblPt min;
    arc.maxmin_circle(&c, 3.0, &max, &min);
    EXPECT_TRUE(IsAt(max, 13.0, 23.0));
    EXPECT_TRUE(IsAt(min, 7.0, 17.0));
    EXPECT_TRUE(IsAt(c, 10.0, 20.0));
    arc.maxmin_circle(&c, 3.0, &c, &min);
    EXPECT_TRUE(IsAt(c, 13.0, 23.0));
    EXPECT_TRUE(IsAt(min, 7.0, 17.0));
}

TEST(ArcGeom, ExtentsMayOverwriteTheArcItself) {
    ArcGeom arc = MakeArc(DblPt(15.0, 20.0), DblPt(10.0, 20.0), 2.0, 0.0);
    arc.maxmin_arc(false, &arc.startVec, &arc.center);
    EXPECT_TRUE(IsAt(arc.startVec, 12.0, 22.0));
    EXPECT_TRUE(IsAt(arc.center, 8.0, 18.0));
}

TEST(ArcGeom, WhatIsNoNumberHasExtentsAllTheSame) {
    for (const double v : {kNaN, kInf, -kInf}) {
        for (int field = 0; field < 6; ++field) {
            double values[] = {5.0, 0.5, 1.0, 2.0, 3.0, 1.0};
            values[field] = v;
            const ArcGeom arc = MakeArc(DblPt(values[0], values[1]), DblPt(values[2], values[3]), values[4], values[5]);
            for (const bool reversed : {false, true}) {
                DblPt max;
                DblPt min;
                arc.maxmin_arc(reversed, &max, &min);
                const bool isOrdered = min.x <= max.x && min.y <= max.y;
                const bool hasNaN = std::isnan(min.x + min.y + max.x + max.y);
                EXPECT_TRUE(isOrdered || hasNaN) << "field " << field << " " << v;
            }
        }
    }
}

}  // namespace
