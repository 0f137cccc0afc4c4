// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "support/allocation_guard.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"
#include "vellum/circles.h"
#include "vellum/geometry.h"
#include "vellum/matrix.h"
#include "vellum/segment.h"

namespace {

using support::IsAt;
using Vellum::AlignedDblRect;
using Vellum::CircleGeom;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::LineSegmentGeom;
using Vellum::Mtx2D;

static_assert(std::is_base_of_v<ClosedShape, CircleGeom>);

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const DblPt kUntouched(-77.0, 88.0);

testing::AssertionResult Holds(const CircleGeom& c, double x, double y, double radius) {
    if (c.radius != radius) return testing::AssertionFailure() << "the radius is " << c.radius;
    return IsAt(c.center, x, y);
}

TEST(CircleGeom, StartsAsTheOrigin) { EXPECT_TRUE(Holds(CircleGeom(), 0.0, 0.0, 0.0)); }

TEST(CircleGeom, ConstructsAndCopies) {
    const CircleGeom c(DblPt(1.0, 2.0), 3.0);
    EXPECT_TRUE(Holds(c, 1.0, 2.0, 3.0));
    EXPECT_TRUE(Holds(CircleGeom(4.0, 5.0, 6.0), 4.0, 5.0, 6.0));
    EXPECT_TRUE(Holds(CircleGeom(c), 1.0, 2.0, 3.0));
    CircleGeom assigned;
    EXPECT_EQ(&(assigned = c), &assigned);
    EXPECT_TRUE(Holds(assigned, 1.0, 2.0, 3.0));
}

TEST(CircleGeom, Sets) {
    CircleGeom c;
    c.Set(DblPt(1.0, 2.0), 3.0);
    EXPECT_TRUE(Holds(c, 1.0, 2.0, 3.0));
    c.Set(4.0, 5.0, 6.0);
    EXPECT_TRUE(Holds(c, 4.0, 5.0, 6.0));
    c.SetCenter(DblPt(7.0, 8.0));
    EXPECT_TRUE(Holds(c, 7.0, 8.0, 6.0));
    c.SetRadius(-9.0);
    EXPECT_TRUE(Holds(c, 7.0, 8.0, -9.0));
    c.Set(c.center, c.center.x);
    EXPECT_TRUE(Holds(c, 7.0, 8.0, 7.0));
}

TEST(CircleGeom, Measures) {
    CircleGeom c(10.0, 20.0, 3.0);
    const CircleGeom& constant = c;
    EXPECT_EQ(&c.Center(), &c.center);
    EXPECT_EQ(&constant.Center(), &c.center);
    c.Center().x = 11.0;
    EXPECT_EQ(c.Radius(), 3.0);
    EXPECT_EQ(c.Diameter(), 6.0);
    EXPECT_EQ(c.LLX(), 8.0);
    EXPECT_EQ(c.LLY(), 17.0);
    EXPECT_EQ(c.URX(), 14.0);
    EXPECT_EQ(c.URY(), 23.0);
    AlignedDblRect r;
    c.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 8.0, 17.0));
    EXPECT_TRUE(IsAt(r.ur, 14.0, 23.0));
}

TEST(CircleGeom, ExtentsOfANegativeRadiusAreCrossed) {
    AlignedDblRect r;
    CircleGeom(1.0, 2.0, -3.0).GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 4.0, 5.0));
    EXPECT_TRUE(IsAt(r.ur, -2.0, -1.0));
}

TEST(CircleGeom, TheOnlyVertexIsTheCentre) {
    const CircleGeom c(1.0, 2.0, 3.0);
    EXPECT_TRUE(c.HasVertex(DblPt(1.0, 2.0)));
    EXPECT_FALSE(c.HasVertex(DblPt(4.0, 2.0)));
    EXPECT_FALSE(c.HasVertex(DblPt(1.0, std::nextafter(2.0, 3.0))));
}

TEST(CircleGeom, ContainsByTheOctagonalEstimate) {
    const CircleGeom c(0.0, 0.0, 1.0);
    EXPECT_TRUE(c.Contains(DblPt(1.0, 0.0), 0.0));
    EXPECT_FALSE(c.Contains(DblPt(1.05, 0.0), 0.0));
    EXPECT_TRUE(c.Contains(DblPt(0.7, 0.7), 0.0));
    EXPECT_FALSE(c.Contains(DblPt(0.75, 0.75), 0.0));

    // From (10, 20) to (13, 24) the estimate is 0.96 * 4 + 0.398 * 3 = 5.034, whichever axis is the longer.
    for (const double side : {1.0, -1.0}) {
        EXPECT_TRUE(CircleGeom(10.0, 20.0, 5.04).Contains(10.0 + side * 3.0, 20.0 - side * 4.0, 0.0));
        EXPECT_FALSE(CircleGeom(10.0, 20.0, 5.03).Contains(10.0 + side * 3.0, 20.0 - side * 4.0, 0.0));
        EXPECT_TRUE(CircleGeom(10.0, 20.0, 5.04).Contains(10.0 + side * 4.0, 20.0 + side * 3.0, 0.0));
        EXPECT_FALSE(CircleGeom(10.0, 20.0, 5.03).Contains(10.0 + side * 4.0, 20.0 + side * 3.0, 0.0));
    }
}

TEST(CircleGeom, AnEstimateOfTheRadiusIsOutside) {
    EXPECT_FALSE(CircleGeom(0.0, 0.0, 0.96).Contains(1.0, 0.0, 0.0));
    EXPECT_TRUE(CircleGeom(0.0, 0.0, std::nextafter(0.96, 1.0)).Contains(1.0, 0.0, 0.0));
    EXPECT_FALSE(CircleGeom().Contains(0.0, 0.0, 0.0));
    EXPECT_FALSE(CircleGeom(0.0, 0.0, -1.0).Contains(0.0, 0.0, 0.0));
}

TEST(CircleGeom, ContainsIgnoresTheTolerance) {
    const CircleGeom c(0.0, 0.0, 1.0);
    EXPECT_FALSE(c.Contains(DblPt(1.05, 0.0), 5.0));
    EXPECT_FALSE(c.Contains(1.05, 0.0, 5.0));
    EXPECT_TRUE(c.Contains(DblPt(1.0, 0.0), -5.0));
    EXPECT_TRUE(c.Contains(1.0, 0.0, kNaN));
}

TEST(CircleGeom, ContainsNoNaN) {
    EXPECT_FALSE(CircleGeom(0.0, 0.0, 1.0).Contains(kNaN, 0.0, 0.0));
    EXPECT_FALSE(CircleGeom(0.0, 0.0, 1.0).Contains(DblPt(0.0, kNaN), 0.0));
    EXPECT_FALSE(CircleGeom(0.0, 0.0, kNaN).Contains(0.0, 0.0, 0.0));
}

TEST(CircleGeom, TheCentroidIsTheCentre) {
    DblPt p = kUntouched;
    CircleGeom(1.0, 2.0, 3.0).GetCentroid(p);
    EXPECT_TRUE(IsAt(p, 1.0, 2.0));
}

DblPt Closest(const CircleGeom& c, const DblPt& p) {
    DblPt out = kUntouched;
    c.ClosestPt(p, out);
    return out;
}

TEST(CircleGeom, TheClosestPointLiesOnThePointsSide) {
    const CircleGeom c(1.0, 2.0, 5.0);
    EXPECT_TRUE(IsAt(Closest(c, DblPt(21.0, 2.0)), 6.0, 2.0));
    EXPECT_TRUE(IsAt(Closest(c, DblPt(-19.0, 2.0)), -4.0, 2.0));
    EXPECT_TRUE(IsAt(Closest(c, DblPt(7.0, 10.0)), 4.0, 6.0));
    // From inside, too.
    EXPECT_TRUE(IsAt(Closest(c, DblPt(1.0, 1.0)), 1.0, -3.0));
}

TEST(CircleGeom, ThereIsNoClosestPointToTheCentre) {
    const CircleGeom c(1.0, 2.0, 5.0);
    const DblPt closest = Closest(c, c.center);
    EXPECT_TRUE(std::isnan(closest.x) && std::isnan(closest.y));
    // Next to it the line counts as a tangent.
    EXPECT_TRUE(IsAt(Closest(c, DblPt(1.0 + 3e-5, 2.0)), 1.0, 2.0));
    EXPECT_NEAR(Closest(c, DblPt(1.0 + 4e-5, 2.0)).x, 6.0, 1e-9);
}

TEST(CircleGeom, ATransformMapsTheCentreAndScalesTheRadius) {
    CircleGeom c(1.0, 2.0, 3.0);
    Mtx2D m;
    m.Rotate(90.0, 2);
    m.Translate(10.0, 20.0);
    m.Scale(2.0, 2.0);
    c.ApplyTransform(&m);
    EXPECT_TRUE(Holds(c, 16.0, 42.0, 6.0));

    // The length of the image of the unit x vector, (3, 4), is all that counts for the radius.
    Mtx2D skewed;
    skewed.m11 = 3.0;
    skewed.m12 = 4.0;
    skewed.m21 = 100.0;
    skewed.m22 = 1000.0;
    skewed.SetType();
    c.Set(1.0, 2.0, 3.0);
    c.ApplyTransform(&skewed);
    EXPECT_TRUE(Holds(c, 203.0, 2004.0, 15.0));

    Mtx2D stretched;
    stretched.Scale(2.0, 7.0);
    c.Set(1.0, 2.0, 3.0);
    c.ApplyTransform(&stretched);
    EXPECT_TRUE(Holds(c, 2.0, 14.0, 6.0));
}

TEST(CircleGeom, CloneIsACopyOfTheSameType) {
    const CircleGeom c(1.0, 2.0, 3.0);
    const std::unique_ptr<ClosedShape> clone(c.Clone());
    ASSERT_NE(clone, nullptr);
    const ClosedShape& shape = *clone;
    ASSERT_EQ(typeid(shape), typeid(CircleGeom));
    EXPECT_TRUE(Holds(static_cast<const CircleGeom&>(shape), 1.0, 2.0, 3.0));
}

TEST(CircleGeom, CloneIsNullWithoutMemory) {
    const CircleGeom c(1.0, 2.0, 3.0);
    const ClosedShape* clone = &c;
    size_t requests = 0;
    {
        const support::AllocationGuard guard(0);
        clone = c.Clone();
        requests = guard.Requests();
    }
    EXPECT_EQ(clone, nullptr);
    EXPECT_EQ(requests, 1u);
}

TEST(CircleGeom, PrintsAnInitialiserInThreeTexts) {
    support::TakeDebugTexts();
    CircleGeom(1.0, 2.0, 3.0).Print();
    const std::vector<std::string> expected = {"CircleGeom circle = {", "DblPt(1.000000, 2.000000), ", "3.000000};\n"};
    EXPECT_EQ(support::TakeDebugTexts(), expected);
}

TEST(FindLineCircleIntersect, TakesACircleAndASegmentAsAnInfiniteLine) {
    const CircleGeom c(1.0, 2.0, 5.0);
    const LineSegmentGeom s(100.0, 5.0, 101.0, 5.0);
    DblPt out = kUntouched;
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(c, s, DblPt(50.0, 5.0), out));
    EXPECT_TRUE(IsAt(out, 5.0, 5.0));
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(c, s, DblPt(-50.0, 5.0), out));
    EXPECT_TRUE(IsAt(out, -3.0, 5.0));
    out = kUntouched;
    EXPECT_FALSE(Vellum::FindLineCircleIntersect(c, LineSegmentGeom(0.0, 9.0, 1.0, 9.0), DblPt(), out));
    EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));
}

TEST(FindLineCircleIntersect, TheSegmentsDirectionDecidesATie) {
    const CircleGeom c(1.0, 2.0, 5.0);
    DblPt out = kUntouched;
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(c, LineSegmentGeom(-9.0, 2.0, 9.0, 2.0), c.center, out));
    EXPECT_TRUE(IsAt(out, -4.0, 2.0));
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(c, LineSegmentGeom(9.0, 2.0, -9.0, 2.0), c.center, out));
    EXPECT_TRUE(IsAt(out, 6.0, 2.0));
}

}  // namespace
