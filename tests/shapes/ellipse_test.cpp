// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <numbers>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "support/allocation_guard.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"
#include "support/random_numbers.h"
#include "vellum/ellipses.h"
#include "vellum/matrix.h"

namespace {

using support::IsAt;
using support::RandomNumbers;
using Vellum::AlignedDblRect;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::EllipseGeom;
using Vellum::Mtx2D;

static_assert(std::is_base_of_v<ClosedShape, EllipseGeom>);

// The conic records are shared with drawing code.
static_assert(sizeof(circle_ellipse_s) == 96);
static_assert(offsetof(circle_ellipse_s, center) == 0 && offsetof(circle_ellipse_s, conjugate1) == 16 &&
              offsetof(circle_ellipse_s, conjugate2) == 32 && offsetof(circle_ellipse_s, start) == 48 &&
              offsetof(circle_ellipse_s, end) == 64 && offsetof(circle_ellipse_s, semiAxis1) == 80 &&
              offsetof(circle_ellipse_s, semiAxis2) == 88);
static_assert(sizeof(CONIC_ARC) == 88);
static_assert(offsetof(CONIC_ARC, A) == 0 && offsetof(CONIC_ARC, B) == 8 && offsetof(CONIC_ARC, C) == 16 &&
              offsetof(CONIC_ARC, D) == 24 && offsetof(CONIC_ARC, E) == 32 && offsetof(CONIC_ARC, F) == 40 &&
              offsetof(CONIC_ARC, ZT) == 48 && offsetof(CONIC_ARC, X1) == 56 && offsetof(CONIC_ARC, Y1) == 64 &&
              offsetof(CONIC_ARC, X2) == 72 && offsetof(CONIC_ARC, Y2) == 80);
static_assert(sizeof(con_arc_str) == 88);
static_assert(offsetof(con_arc_str, A) == 0 && offsetof(con_arc_str, B) == 8 && offsetof(con_arc_str, C) == 16 &&
              offsetof(con_arc_str, D) == 24 && offsetof(con_arc_str, E) == 32 && offsetof(con_arc_str, F) == 40 &&
              offsetof(con_arc_str, start) == 48 && offsetof(con_arc_str, end) == 64 &&
              offsetof(con_arc_str, closed) == 80);
static_assert(std::is_same_v<decltype(con_arc_str::closed), int32_t>);
static_assert(sizeof(std_ell_typ) == 64);
static_assert(offsetof(std_ell_typ, cosine) == 0 && offsetof(std_ell_typ, sine) == 8 &&
              offsetof(std_ell_typ, center) == 16 && offsetof(std_ell_typ, startAngle) == 32 &&
              offsetof(std_ell_typ, sweepAngle) == 40 && offsetof(std_ell_typ, a) == 48 &&
              offsetof(std_ell_typ, b) == 56);
static_assert(sizeof(drw_con_arc_t) == 88);
static_assert(offsetof(drw_con_arc_t, A) == 0 && offsetof(drw_con_arc_t, B) == 8 && offsetof(drw_con_arc_t, C) == 16 &&
              offsetof(drw_con_arc_t, D) == 24 && offsetof(drw_con_arc_t, E) == 32 &&
              offsetof(drw_con_arc_t, F) == 40 && offsetof(drw_con_arc_t, start) == 48 &&
              offsetof(drw_con_arc_t, end) == 64 && offsetof(drw_con_arc_t, reversed) == 80);
static_assert(std::is_same_v<decltype(drw_con_arc_t::reversed), int64_t>);

constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * kPi;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kFloatEpsilon = 1.1920928955078125e-7;
constexpr double kUnwritten = -77.0;

const EllipseGeom kFlat(DblPt(0.0, 0.0), DblPt(2.0, 0.0), DblPt(0.0, 1.0));

testing::AssertionResult Holds(const EllipseGeom& e, const DblPt& c, const DblPt& major, const DblPt& minor) {
    auto result = IsAt(e.center, c.x, c.y);
    if (result) result = IsAt(e.major, major.x, major.y);
    if (result) result = IsAt(e.minor, minor.x, minor.y);
    return result;
}

testing::AssertionResult IsBox(const AlignedDblRect& r, double left, double bottom, double right, double top,
                               double tol = 0.0) {
    const double off = std::max(
        {std::fabs(r.ll.x - left), std::fabs(r.ll.y - bottom), std::fabs(r.ur.x - right), std::fabs(r.ur.y - top)});
    if (off <= tol) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(r.ll.x) << ", " << testing::PrintToString(r.ll.y)
                                       << " - " << testing::PrintToString(r.ur.x) << ", "
                                       << testing::PrintToString(r.ur.y) << " instead of " << left << ", " << bottom
                                       << " - " << right << ", " << top;
}

AlignedDblRect ExtentsOf(const EllipseGeom& e) {
    AlignedDblRect r(-1.0, -2.0, -3.0, -4.0);
    e.GetExtents(r);
    DblPt max;
    DblPt min;
    e.ellipse_maxmin(&max, &min);
    EXPECT_TRUE(IsAt(max, r.ur.x, r.ur.y));
    EXPECT_TRUE(IsAt(min, r.ll.x, r.ll.y));
    EXPECT_EQ(e.LLX(), r.ll.x);
    EXPECT_EQ(e.LLY(), r.ll.y);
    EXPECT_EQ(e.URX(), r.ur.x);
    EXPECT_EQ(e.URY(), r.ur.y);
    return r;
}

con_arc_str MakeConic(double a, double b, double c, double d, double e, double f) {
    con_arc_str conic = {};
    conic.A = a;
    conic.B = b;
    conic.C = c;
    conic.D = d;
    conic.E = e;
    conic.F = f;
    return conic;
}

con_arc_str Closed(con_arc_str conic) {
    conic.closed = 1;
    return conic;
}

con_arc_str Arc(con_arc_str conic, const real_pt_t& start, const real_pt_t& end) {
    conic.start = start;
    conic.end = end;
    return conic;
}

AlignedDblRect BoxOf(con_arc_str conic) {
    DblPt max;
    DblPt min;
    kFlat.utl_maxmin_conic(&conic, &max, &min);
    AlignedDblRect r;
    r.TSet(min, max);
    return r;
}

TEST(EllipseGeom, StartsAsTheOrigin) { EXPECT_TRUE(Holds(EllipseGeom(), {}, {}, {})); }

TEST(EllipseGeom, ConstructsAndCopies) {
    const DblPt c(1.0, 2.0);
    const DblPt major{3.0, 4.0};
    const DblPt minor{5.0, 6.0};
    const EllipseGeom e(c, major, minor);
    EXPECT_TRUE(Holds(e, c, major, minor));
    EXPECT_TRUE(Holds(EllipseGeom(&c, &major, &minor), c, major, minor));
    EXPECT_TRUE(Holds(EllipseGeom(e), c, major, minor));
    EllipseGeom assigned;
    EXPECT_EQ(&(assigned = e), &assigned);
    EXPECT_TRUE(Holds(assigned, c, major, minor));
}

TEST(EllipseGeom, SetsAndTellsItsPoints) {
    DblPt c(1.0, 2.0);
    DblPt major{3.0, 4.0};
    DblPt minor{5.0, 6.0};
    EllipseGeom e;
    e.SetCenter(c);
    e.SetMajor(major);
    e.SetMinor(minor);
    EXPECT_TRUE(Holds(e, c, major, minor));
    EXPECT_EQ(&e.Center(), &e.center);
    EXPECT_EQ(&e.Major(), &e.major);
    EXPECT_EQ(&e.Minor(), &e.minor);
}

TEST(EllipseGeom, TranslatesAllThreePoints) {
    EllipseGeom e(DblPt(1.0, 2.0), DblPt(3.0, 4.0), DblPt(5.0, 6.0));
    EXPECT_EQ(&e.Translate(10.0, 20.0), &e);
    EXPECT_TRUE(Holds(e, {11.0, 22.0}, {13.0, 24.0}, {15.0, 26.0}));
    EXPECT_EQ(&e.Translate(DblPt(-1.0, -2.0)), &e);
    EXPECT_TRUE(Holds(e, {10.0, 20.0}, {12.0, 22.0}, {14.0, 24.0}));
    e.Translate(e.major);
    EXPECT_TRUE(Holds(e, {22.0, 42.0}, {24.0, 44.0}, {26.0, 46.0}));
}

TEST(EllipseGeom, ThePointsAreItsVertices) {
    const EllipseGeom e(DblPt(1.0, 2.0), DblPt(3.0, 4.0), DblPt(5.0, 6.0));
    EXPECT_TRUE(e.HasVertex(DblPt(1.0, 2.0)));
    EXPECT_TRUE(e.HasVertex(DblPt(3.0, 4.0)));
    EXPECT_TRUE(e.HasVertex(DblPt(5.0, 6.0)));
    EXPECT_FALSE(e.HasVertex(DblPt(1.0, 4.0)));
    EXPECT_FALSE(e.HasVertex(DblPt(3.0, std::nextafter(4.0, 5.0))));
}

TEST(EllipseGeom, ContainsNothing) {
    EXPECT_FALSE(kFlat.Contains(DblPt(0.0, 0.0), 0.0));
    EXPECT_FALSE(kFlat.Contains(0.0, 0.0, 100.0));
    EXPECT_FALSE(kFlat.Contains(DblPt(2.0, 0.0), 100.0));
}

TEST(EllipseGeom, TheCentroidIsTheCentre) {
    DblPt p;
    EllipseGeom(DblPt(1.0, 2.0), DblPt(3.0, 4.0), DblPt(5.0, 6.0)).GetCentroid(p);
    EXPECT_TRUE(IsAt(p, 1.0, 2.0));
}

TEST(EllipseGeom, CloneIsACopyOfTheSameType) {
    const EllipseGeom e(DblPt(1.0, 2.0), DblPt(3.0, 4.0), DblPt(5.0, 6.0));
    const std::unique_ptr<ClosedShape> clone(e.Clone());
    ASSERT_NE(clone, nullptr);
    const ClosedShape& shape = *clone;
    ASSERT_EQ(typeid(shape), typeid(EllipseGeom));
    EXPECT_TRUE(Holds(static_cast<const EllipseGeom&>(shape), {1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}));
}

TEST(EllipseGeom, CloneIsNullWithoutMemory) {
    const ClosedShape* clone = &kFlat;
    size_t requests = 0;
    {
        const support::AllocationGuard guard(0);
        clone = kFlat.Clone();
        requests = guard.Requests();
    }
    EXPECT_EQ(clone, nullptr);
    EXPECT_EQ(requests, 1u);
}

TEST(EllipseGeom, PrintsAnInitialiser) {
    support::TakeDebugTexts();
    EllipseGeom(DblPt(0.0, 0.5), DblPt(2.0, 0.0), DblPt(0.0, 1.0)).Print();
    const std::vector<std::string> expected = {"EllipseGeom ellipse = {", "DblPt(0.000000, 0.500000),\n",
                                               "DblPt(2.000000, 0.000000),\n", "DblPt(0.000000, 1.000000)\n", "};\n\n"};
    EXPECT_EQ(support::TakeDebugTexts(), expected);
}

TEST(EllipseGeom, ATransformMapsThePoints) {
    Mtx2D m;
    m.m11 = 1.0;
    m.m12 = 2.0;
    m.m21 = 3.0;
    m.m22 = 4.0;
    m.dx = 5.0;
    m.dy = 6.0;
    m.SetType();
    EllipseGeom e(DblPt(1.0, 2.0), DblPt(3.0, 5.0), DblPt(7.0, 11.0));
    e.ApplyTransform(&m);
    EXPECT_TRUE(Holds(e, {12.0, 16.0}, {23.0, 32.0}, {45.0, 64.0}));
}

TEST(EllipseGeom, ATransformThatMakesTwoPointsCoincideIsRejected) {
    Mtx2D flattened;
    flattened.Scale(1.0, 0.0);
    const DblPt points[] = {{0.0, 0.0}, {5.0, 1.0}, {5.0, 2.0}};
    for (int first = 0; first < 3; ++first) {
        // The two that share their x take every pair of places.
        const DblPt& a = points[first];
        const DblPt& b = points[(first + 1) % 3];
        const DblPt& c = points[(first + 2) % 3];
        EllipseGeom e(a, b, c);
        e.ApplyTransform(&flattened);
        EXPECT_TRUE(Holds(e, a, b, c));
    }
    // Where no two share it the ellipse is flattened all the same.
    EllipseGeom e(DblPt(0.0, 3.0), DblPt(5.0, 1.0), DblPt(6.0, 2.0));
    e.ApplyTransform(&flattened);
    EXPECT_TRUE(Holds(e, {0.0, 0.0}, {5.0, 0.0}, {6.0, 0.0}));
}

TEST(EllipseGeom, CoincidentMeansWithinSinglePrecisionOnBothAxes) {
    Mtx2D mirrored;
    mirrored.Scale(-1.0, 1.0);
    const double below = std::nextafter(kFloatEpsilon, 0.0);
    EllipseGeom e(DblPt(0.0, 0.0), DblPt(9.0, 9.0), DblPt(below, below));
    e.ApplyTransform(&mirrored);
    EXPECT_TRUE(Holds(e, {0.0, 0.0}, {9.0, 9.0}, {below, below}));
    for (const DblPt& minor : {DblPt(kFloatEpsilon, 0.0), DblPt(0.0, -kFloatEpsilon)}) {
        EllipseGeom apart(DblPt(0.0, 0.0), DblPt(9.0, 9.0), minor);
        apart.ApplyTransform(&mirrored);
        EXPECT_TRUE(Holds(apart, {0.0, 0.0}, {-9.0, 9.0}, {-minor.x, minor.y}));
    }
    // What counts is how far apart the images are.
    Mtx2D halved;
    halved.Scale(0.5, 0.5);
    EllipseGeom shrunk(DblPt(0.0, 0.0), DblPt(9.0, 9.0), DblPt(kFloatEpsilon, 0.0));
    shrunk.ApplyTransform(&halved);
    EXPECT_TRUE(Holds(shrunk, {0.0, 0.0}, {9.0, 9.0}, {kFloatEpsilon, 0.0}));
}

TEST(EllipseExtents, OnTheAxesTheyAreExact) {
    EXPECT_TRUE(IsBox(ExtentsOf(kFlat), -2.0, -1.0, 2.0, 1.0));
    const EllipseGeom upright(DblPt(0.0, 0.0), DblPt(0.0, 5.0), DblPt(3.0, 0.0));
    EXPECT_TRUE(IsBox(ExtentsOf(upright), -3.0, -5.0, 3.0, 5.0));
}

TEST(EllipseExtents, TheMajorPointIsAbsoluteAndTheSamplesAreNot) {
    const EllipseGeom e(DblPt(10.0, 0.0), DblPt(12.0, 0.0), DblPt(10.0, 1.0));
    EXPECT_TRUE(IsBox(ExtentsOf(e), -2.0, -1.0, 12.0, 1.0));
    const EllipseGeom below(DblPt(0.0, -10.0), DblPt(2.0, -10.0), DblPt(0.0, -9.0));
    EXPECT_TRUE(IsBox(ExtentsOf(below), -2.0, -10.0, 2.0, 1.0));
}

TEST(EllipseExtents, AFlatEllipseIsSampledOnce) {
    // The one sample is the end of the axis along x.
    const EllipseGeom flat(DblPt(1.0, 5.0), DblPt(-3.0, 5.0), DblPt(1.0, 5.0 + 4.0 * 0.0099));
    EXPECT_TRUE(IsBox(ExtentsOf(flat), -3.0, 0.0, 4.0, 5.0, 1e-12));
    const EllipseGeom upright(DblPt(0.0, 0.0), DblPt(0.0, -4.0), DblPt(4.0 * 0.0099, 0.0));
    EXPECT_TRUE(IsBox(ExtentsOf(upright), 0.0, -4.0, 4.0 * 0.0099, 0.0, 1e-12));
    // At 0.01 exactly it is flat, and just above no more.
    EXPECT_TRUE(IsBox(ExtentsOf(EllipseGeom(DblPt(), DblPt(1.0, 0.0), DblPt(0.0, 0.01))), 1.0, 0.0, 1.0, 0.0, 1e-12));
    EXPECT_TRUE(
        IsBox(ExtentsOf(EllipseGeom(DblPt(), DblPt(1.0, 0.0), DblPt(0.0, 0.0101))), -1.0, -0.0101, 1.0, 0.0101, 1e-12));
}

TEST(EllipseExtents, AVeryFlatEllipseIsDegenerateAndHasTheMajorPointAlone) {
    const EllipseGeom e(DblPt(1.0, 2.0), DblPt(5.0, 2.0), DblPt(1.0, 2.0 + 4.0 * 0.003));
    EXPECT_TRUE(IsBox(ExtentsOf(e), 5.0, 2.0, 5.0, 2.0));
}

TEST(EllipseExtents, ACircleHasTheMajorPointAlone) {
    // Equal axes have no conic; a host that knows it has a circle uses a CircleGeom.
    const EllipseGeom e(DblPt(1.0, 2.0), DblPt(4.0, 2.0), DblPt(1.0, 5.0));
    EXPECT_TRUE(IsBox(ExtentsOf(e), 4.0, 2.0, 4.0, 2.0));
}

TEST(EllipseExtents, CollinearDiametersHaveTheMajorPointAlone) {
    const EllipseGeom e(DblPt(1.0, 1.0), DblPt(3.0, 1.0), DblPt(5.0, 1.0));
    EXPECT_TRUE(IsBox(ExtentsOf(e), 3.0, 1.0, 3.0, 1.0));
}

TEST(EllipseExtents, TheBoxIsThatOfPointsFiveDegreesApart) {
    // Semi-axes 2 and 1, turned by 20 degrees: the samples count from the end of an axis, not from the major point,
    // so none of them is an extreme.
    const double turn = 20.0 * kPi / 180.0;
    const DblPt u(2.0 * std::cos(turn), 2.0 * std::sin(turn));
    const DblPt v(-std::sin(turn), std::cos(turn));
    double maxX = u.x;
    double maxY = u.y;
    for (int k = 0; k < 72; ++k) {
        const double t = k * 5.0 * kPi / 180.0;
        maxX = std::max(maxX, u.x * std::cos(t) + v.x * std::sin(t));
        maxY = std::max(maxY, u.y * std::cos(t) + v.y * std::sin(t));
    }
    // Tight: sqrt(u.x^2 + v.x^2) and so on.
    ASSERT_LT(maxX, std::sqrt(u.x * u.x + v.x * v.x) - 1e-5);
    ASSERT_LT(maxY, std::sqrt(u.y * u.y + v.y * v.y) - 1e-5);
    EXPECT_TRUE(IsBox(ExtentsOf(EllipseGeom(DblPt(), u, v)), -maxX, -maxY, maxX, maxY, 1e-12));
}

TEST(EllipseExtents, ConjugateDiametersNeedNotBePerpendicular) {
    // u cos t + v sin t with any t for the start of the diameters gives the same ellipse.
    const DblPt u(3.0, 1.0);
    const DblPt v(-1.0, 2.0);
    const AlignedDblRect expected = ExtentsOf(EllipseGeom(DblPt(), u, v));
    EXPECT_TRUE(IsBox(expected, -std::sqrt(10.0), -std::sqrt(5.0), std::sqrt(10.0), std::sqrt(5.0), 0.01));
    for (const double t : {0.3, 1.1, 2.5}) {
        const DblPt first(u.x * std::cos(t) + v.x * std::sin(t), u.y * std::cos(t) + v.y * std::sin(t));
        const DblPt second(v.x * std::cos(t) - u.x * std::sin(t), v.y * std::cos(t) - u.y * std::sin(t));
        const AlignedDblRect r = ExtentsOf(EllipseGeom(DblPt(), first, second));
        EXPECT_TRUE(IsBox(r, expected.ll.x, expected.ll.y, expected.ur.x, expected.ur.y, 0.01));
    }
}

TEST(EllipseExtents, WhatIsNoNumberGivesNoCrash) {
    for (const double v : {kNaN, kInf, -kInf, 1e200, -1e308, 1e-320}) {
        for (int field = 0; field < 6; ++field) {
            double values[] = {0.0, 0.0, 2.0, 0.5, -0.5, 1.0};
            values[field] = v;
            const EllipseGeom e(DblPt(values[0], values[1]), DblPt(values[2], values[3]), DblPt(values[4], values[5]));
            AlignedDblRect r;
            e.GetExtents(r);
            EXPECT_TRUE(std::isnan(r.ll.x) || r.ll.x <= r.ur.x);
            DblPt p(1.0, 2.0);
            EXPECT_FALSE(e.DistPointEllipse(p) < 0.0);
        }
    }
}

TEST(EllipseDistance, ThePointCountsRelativeToTheCentre) {
    for (const double offset : {0.0, 10.0}) {
        const EllipseGeom e(DblPt(offset, 0.0), DblPt(offset + 2.0, 0.0), DblPt(offset, 1.0));
        DblPt p(5.0, 0.0);
        EXPECT_EQ(e.DistPointEllipse(p), 3.0);
        EXPECT_TRUE(IsAt(p, 5.0, 0.0));
        p.Set(0.0, 3.0);
        EXPECT_EQ(e.DistPointEllipse(p), 2.0);
        p.Set(0.0, 0.0);
        EXPECT_EQ(e.DistPointEllipse(p), 1.0);
        p.Set(-2.0, 0.0);
        EXPECT_EQ(e.DistPointEllipse(p), 0.0);
    }
}

TEST(EllipseDistance, OfATurnedEllipse) {
    // Semi-axes 2 sqrt(2) along the diagonal and sqrt(2) across.
    const EllipseGeom e(DblPt(1.0, 1.0), DblPt(3.0, 3.0), DblPt(0.0, 2.0));
    DblPt p(5.0, 5.0);
    EXPECT_NEAR(e.DistPointEllipse(p), 3.0 * std::sqrt(2.0), 1e-14);
    p.Set(3.0, -3.0);
    EXPECT_NEAR(e.DistPointEllipse(p), 2.0 * std::sqrt(2.0), 1e-14);
}

TEST(EllipseDistance, AVeryFlatEllipseIsMeasuredAllTheSame) {
    const EllipseGeom e(DblPt(0.0, 0.0), DblPt(2.0, 0.0), DblPt(0.0, 2e-6));
    DblPt p(0.0, 1.0);
    EXPECT_NEAR(e.DistPointEllipse(p), 1.0 - 2e-6, 1e-15);
    p.Set(-5.0, 0.0);
    EXPECT_EQ(e.DistPointEllipse(p), 3.0);
}

TEST(EllipseDistance, WithoutAConicItIsTheDistanceFromTheMajorPointAsItStands) {
    DblPt p(6.0, 8.0);
    const EllipseGeom circle(DblPt(10.0, 10.0), DblPt(12.0, 16.0), DblPt(4.0, 12.0));
    EXPECT_EQ(circle.DistPointEllipse(p), 10.0);
    const EllipseGeom collinear(DblPt(1.0, 4.0), DblPt(3.0, 4.0), DblPt(5.0, 4.0));
    EXPECT_EQ(collinear.DistPointEllipse(p), 5.0);
}

struct Conversion {
    bool isEllipse;
    circle_ellipse_s in;
    CONIC_ARC out;
};

Conversion Convert(const real_pt_t& c, const real_pt_t& p1, const real_pt_t& p2, const real_pt_t& start,
                   const real_pt_t& end, bool full) {
    Conversion conversion = {};
    conversion.in = {c, p1, p2, start, end, kUnwritten, kUnwritten};
    conversion.out = {kUnwritten, kUnwritten, kUnwritten, kUnwritten, kUnwritten, kUnwritten,
                      kUnwritten, kUnwritten, kUnwritten, kUnwritten, kUnwritten};
    conversion.isEllipse = kFlat.cgm2iges_ellipse(&conversion.in, full, &conversion.out);
    return conversion;
}

testing::AssertionResult HasCoefficients(const CONIC_ARC& arc, double a, double b, double c, double f) {
    if (arc.A == a && arc.B == b && arc.C == c && arc.D == 0.0 && arc.E == 0.0 && arc.F == f && arc.ZT == 0.0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << arc.A << " " << arc.B << " " << arc.C << " " << arc.D << " " << arc.E << " "
                                       << arc.F << " " << arc.ZT;
}

testing::AssertionResult HasEnds(const CONIC_ARC& arc, double x1, double y1, double x2, double y2, double tol = 0.0) {
    if (std::fabs(arc.X1 - x1) <= tol && std::fabs(arc.Y1 - y1) <= tol && std::fabs(arc.X2 - x2) <= tol &&
        std::fabs(arc.Y2 - y2) <= tol)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << arc.X1 << " " << arc.Y1 << " " << arc.X2 << " " << arc.Y2;
}

TEST(EllipseConic, OfPerpendicularDiameters) {
    // u = (2, 0), v = (0, 1): A = 1, C = 4, F = -4.
    const Conversion c = Convert({10.0, 20.0}, {12.0, 20.0}, {10.0, 21.0}, {9.0, 9.0}, {8.0, 8.0}, true);
    EXPECT_TRUE(c.isEllipse);
    EXPECT_TRUE(HasCoefficients(c.out, 0.25, 0.0, 1.0, -1.0));
    EXPECT_TRUE(HasEnds(c.out, 2.0, 0.0, 2.0, 0.0));
    EXPECT_EQ(c.in.semiAxis1, 1.0);
    EXPECT_EQ(c.in.semiAxis2, 2.0);
}

TEST(EllipseConic, OfTurnedDiameters) {
    // u = (2, 2), v = (-1, 1): A = 5, B = -6, C = 5, F = -16.
    const Conversion c = Convert({1.0, 1.0}, {3.0, 3.0}, {0.0, 2.0}, {}, {}, true);
    EXPECT_TRUE(c.isEllipse);
    EXPECT_TRUE(HasCoefficients(c.out, 5.0 / 6.0, -1.0, 5.0 / 6.0, -16.0 / 6.0));
    EXPECT_TRUE(HasEnds(c.out, 2.0, 2.0, 2.0, 2.0));
    EXPECT_NEAR(c.in.semiAxis1, std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(c.in.semiAxis2, 2.0 * std::sqrt(2.0), 1e-15);
}

TEST(EllipseConic, FollowsTheFormulasInTheirOrder) {
    RandomNumbers random(35);
    int largestIsA = 0;
    int largestIsB = 0;
    for (int i = 0; i < 500; ++i) {
        const auto draw = [&]() { return random.Within(-9.0, 9.0); };
        const real_pt_t center = {draw(), draw()};
        const real_pt_t p1 = {draw(), draw()};
        const real_pt_t p2 = {draw(), draw()};
        const Conversion conversion = Convert(center, p1, p2, {}, {}, true);
        ASSERT_TRUE(conversion.isEllipse);
        const double ux = p1.x - center.x;
        const double uy = p1.y - center.y;
        const double vx = p2.x - center.x;
        const double vy = p2.y - center.y;
        const double det = vy * ux - vx * uy;
        const double a = vy * vy + uy * uy;
        const double b = -2.0 * (vy * vx + uy * ux);
        const double c = vx * vx + ux * ux;
        const double f = -(det * det);
        const double r = std::sqrt((c - a) * (c - a) + b * b);
        const double m = (a + c) / 2.0;
        const double h = r / 2.0;
        const double s1 = (m + h) / (det * det);
        const double s2 = (m - h) / (det * det);
        const double largest = std::max({std::fabs(a), std::fabs(b), std::fabs(c)});
        EXPECT_TRUE(HasCoefficients(conversion.out, a / largest, b / largest, c / largest, f / largest));
        EXPECT_TRUE(HasEnds(conversion.out, ux, uy, ux, uy));
        EXPECT_EQ(conversion.in.semiAxis1, 1.0 / std::sqrt(s1));
        EXPECT_EQ(conversion.in.semiAxis2, 1.0 / std::sqrt(s2));
        largestIsA += largest == a;
        largestIsB += largest == std::fabs(b);
    }
    EXPECT_GT(largestIsA, 50);
    EXPECT_GT(largestIsB, 50);
}

TEST(EllipseConic, TheEndsAreWhereTheRaysMeetTheConic) {
    const double k = std::sqrt(0.8);
    const Conversion c = Convert({10.0, 20.0}, {12.0, 20.0}, {10.0, 21.0}, {13.0, 23.0}, {8.0, 22.0}, false);
    EXPECT_TRUE(c.isEllipse);
    EXPECT_TRUE(HasEnds(c.out, k, k, -k, k, 1e-15));
    // The rays count from the centre, whatever their length.
    const Conversion far = Convert({10.0, 20.0}, {12.0, 20.0}, {10.0, 21.0}, {310.0, 320.0}, {9.5, 20.5}, false);
    EXPECT_TRUE(HasEnds(far.out, k, k, -k, k, 1e-15));
}

TEST(EllipseConic, ClockwiseDiametersExchangeTheEnds) {
    const double k = std::sqrt(0.8);
    const Conversion c = Convert({10.0, 20.0}, {12.0, 20.0}, {10.0, 19.0}, {13.0, 23.0}, {8.0, 22.0}, false);
    EXPECT_TRUE(c.isEllipse);
    EXPECT_TRUE(HasCoefficients(c.out, 0.25, 0.0, 1.0, -1.0));
    EXPECT_TRUE(HasEnds(c.out, -k, k, k, k, 1e-15));
    // With both the same there is nothing to exchange.
    EXPECT_TRUE(HasEnds(Convert({10.0, 20.0}, {12.0, 20.0}, {10.0, 19.0}, {13.0, 23.0}, {8.0, 22.0}, true).out, 2.0,
                        0.0, 2.0, 0.0));
}

TEST(EllipseConic, ARayThatMeetsNothingLeavesTheOriginOfTheRecord) {
    const double k = std::sqrt(0.8);
    const Conversion c = Convert({10.0, 20.0}, {12.0, 20.0}, {10.0, 21.0}, {10.0, 20.0}, {8.0, 22.0}, false);
    EXPECT_TRUE(c.isEllipse);
    EXPECT_TRUE(HasEnds(c.out, 0.0, 0.0, -k, k, 1e-15));
}

TEST(EllipseConic, CollinearDiametersAreFlagged) {
    const Conversion c = Convert({1.0, 2.0}, {3.0, 2.0}, {5.0, 2.0}, {9.0, 9.0}, {8.0, 8.0}, false);
    EXPECT_FALSE(c.isEllipse);
    EXPECT_TRUE(HasCoefficients(c.out, 0.0, 0.0, 0.0, 0.0));
    // Exactly collinear ones have the ends of a full ellipse.
    EXPECT_TRUE(HasEnds(c.out, 2.0, 0.0, 2.0, 0.0));
    EXPECT_EQ(c.in.semiAxis1, kUnwritten);
    EXPECT_EQ(c.in.semiAxis2, kUnwritten);
}

TEST(EllipseConic, TheDeterminantMustBeAboveItsThreshold) {
    // Two lengths whose product is 1e-38 itself.
    const double x = 0x1.d614b7c5408acp-63;
    const double y = 0x1.da66fa11c53c8p-65;
    ASSERT_EQ(x * y, 1e-38);
    const Conversion at = Convert({}, {x, 0.0}, {0.0, y}, {1.0, 1.0}, {1.0, 2.0}, false);
    EXPECT_FALSE(at.isEllipse);
    EXPECT_EQ(at.in.semiAxis1, kUnwritten);
    EXPECT_TRUE(HasEnds(at.out, 0.0, 0.0, 0.0, 0.0));
    const Conversion above = Convert({}, {x, 0.0}, {0.0, std::nextafter(y, 1.0)}, {1.0, 1.0}, {1.0, 2.0}, false);
    EXPECT_TRUE(above.isEllipse);
    EXPECT_NEAR(above.in.semiAxis2, x, 1e-30);
}

TEST(EllipseConic, TheSpreadOfItsSquaresMustReachItsThreshold) {
    // Two lengths whose squares are 1e-38 itself apart.
    const double x = 0x1.c6f851208aa2ep-63;
    const double y = 0x1.84e742e4cfee7p-63;
    ASSERT_EQ(x * x - y * y, 1e-38);
    EXPECT_TRUE(Convert({}, {x, 0.0}, {0.0, y}, {}, {}, true).isEllipse);
    EXPECT_FALSE(Convert({}, {x, 0.0}, {0.0, std::nextafter(y, 1.0)}, {}, {}, true).isEllipse);
}

TEST(EllipseConic, TheSmallerRootMustReachItsThreshold) {
    // Axes whose smaller root is 1e-38 itself.
    const double x = 0x1.158e460913d00p+63;
    const double y = 0x1.522ad2fc49636p+62;
    const double det = y * x;
    ASSERT_EQ(((y * y + x * x) / 2.0 - (x * x - y * y) / 2.0) / (det * det), 1e-38);
    EXPECT_TRUE(Convert({}, {x, 0.0}, {0.0, y}, {}, {}, true).isEllipse);
    EXPECT_FALSE(Convert({}, {x * (1.0 + 1e-14), 0.0}, {0.0, y}, {}, {}, true).isEllipse);
}

TEST(EllipseConic, ACircleIsFlagged) {
    for (const bool full : {false, true}) {
        const Conversion c = Convert({1.0, 2.0}, {4.0, 2.0}, {1.0, 5.0}, {9.0, 9.0}, {8.0, 8.0}, full);
        EXPECT_FALSE(c.isEllipse);
        EXPECT_TRUE(HasCoefficients(c.out, 0.0, 0.0, 0.0, 0.0));
        EXPECT_TRUE(full ? HasEnds(c.out, 3.0, 0.0, 3.0, 0.0) : HasEnds(c.out, 0.0, 0.0, 0.0, 0.0));
        EXPECT_EQ(c.in.semiAxis1, kUnwritten);
        EXPECT_EQ(c.in.semiAxis2, kUnwritten);
    }
    // Whatever its diameters' directions: these are (3, 4) and (-4, 3).
    EXPECT_FALSE(Convert({1.0, 1.0}, {4.0, 5.0}, {-3.0, 4.0}, {}, {}, true).isEllipse);
    // All but equal axes are an ellipse's.
    EXPECT_TRUE(Convert({}, {3.0, 0.0}, {0.0, std::nextafter(3.0, 4.0)}, {}, {}, true).isEllipse);
    // Where the squares underflow everything is a circle.
    EXPECT_FALSE(Convert({}, {3e-19, 0.0}, {0.0, 3.0000001e-19}, {}, {}, true).isEllipse);
}

TEST(EllipseConic, ASemiAxisOutOfRangeIsFlagged) {
    // 1 / 1e40 is below 1e-38, though not its root: the semi-axis is written.
    const Conversion large = Convert({}, {1e20, 0.0}, {0.0, 3e17}, {1.0, 1.0}, {1.0, 2.0}, false);
    EXPECT_FALSE(large.isEllipse);
    EXPECT_TRUE(HasCoefficients(large.out, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(HasEnds(large.out, 0.0, 0.0, 0.0, 0.0));
    EXPECT_NEAR(large.in.semiAxis1, 3e17, 1e3);
    EXPECT_NEAR(large.in.semiAxis2, 1e20, 1e10);
    EXPECT_TRUE(Convert({}, {9e18, 0.0}, {0.0, 3e17}, {}, {}, false).isEllipse);

    // Beyond a ratio of some 1e8 the smaller root cancels to nothing. The larger one is computed all the same.
    const Conversion flat = Convert({}, {1.0, 0.0}, {0.0, 1e-9}, {}, {}, true);
    EXPECT_FALSE(flat.isEllipse);
    EXPECT_TRUE(HasEnds(flat.out, 1.0, 0.0, 1.0, 0.0));
    EXPECT_NEAR(flat.in.semiAxis1, 1e-9, 1e-24);
    EXPECT_EQ(flat.in.semiAxis2, kUnwritten);
    EXPECT_TRUE(Convert({}, {1.0, 0.0}, {0.0, 1e-7}, {}, {}, true).isEllipse);
}

TEST(EllipseConic, NaNIsFlaggedAndOverflowIsNot) {
    const Conversion nan = Convert({}, {kNaN, 0.0}, {0.0, 1.0}, {1.0, 1.0}, {1.0, 2.0}, false);
    EXPECT_FALSE(nan.isEllipse);
    EXPECT_TRUE(HasCoefficients(nan.out, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(HasEnds(nan.out, 0.0, 0.0, 0.0, 0.0));
    const Conversion overflow = Convert({}, {1e160, 0.0}, {0.0, 1e155}, {1.0, 1.0}, {1.0, 2.0}, false);
    EXPECT_TRUE(overflow.isEllipse);
    EXPECT_TRUE(std::isnan(overflow.out.C));
    EXPECT_TRUE(HasEnds(overflow.out, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(overflow.in.semiAxis1, kUnwritten);
}

char TypeOf(double a, double b, double c, double d = 0.0, double e = 0.0) {
    con_arc_str conic = MakeConic(a, b, c, d, e, -1.0);
    return kFlat.utl_conic_type(&conic);
}

TEST(ConicType, Letters) {
    EXPECT_EQ(TypeOf(0.25, 0.0, 1.0), 'E');
    EXPECT_EQ(TypeOf(1.0, 1.0, 1.0), 'E');
    EXPECT_EQ(TypeOf(-0.25, 0.0, -1.0), 'E');
    EXPECT_EQ(TypeOf(1.0, 0.0, 1.0), 'C');
    EXPECT_EQ(TypeOf(1.0, 2.0, 1.0), 'P');
    EXPECT_EQ(TypeOf(1.0, 0.0, 0.0, 0.0, 1.0), 'P');
    EXPECT_EQ(TypeOf(0.0, 0.0, 1.0, 1.0, 0.0), 'P');
    EXPECT_EQ(TypeOf(1.0, 0.0, -1.0), 'H');
    EXPECT_EQ(TypeOf(1.0, 3.0, 1.0), 'H');
    EXPECT_EQ(TypeOf(0.0, 0.0, 0.0), 'L');
    EXPECT_EQ(TypeOf(0.0, 0.0, 0.0, 1.0, 1.0), 'L');
    EXPECT_EQ(TypeOf(0.0, 1.0, 0.0), 'L');
    EXPECT_EQ(TypeOf(1.0, 1.0, 0.0), 'L');
    EXPECT_EQ(TypeOf(0.0, 1.0, 1.0), 'L');
}

TEST(ConicType, TheToleranceCountsAsZero) {
    const double above = std::nextafter(1e-5, 1.0);
    // All of A, B and C: B alone above is a hyperbola, as the line tests look at D and E too.
    EXPECT_EQ(TypeOf(1e-5, -1e-5, 1e-5, 1.0, 1.0), 'L');
    EXPECT_EQ(TypeOf(1e-5, 1.0, 1e-5, 1.0, 1.0), 'H');
    EXPECT_EQ(TypeOf(above, 0.0, above), 'P');
    // C with E, A with D.
    EXPECT_EQ(TypeOf(1.0, 0.0, 1e-5), 'L');
    EXPECT_EQ(TypeOf(1.0, 0.0, above), 'E');
    EXPECT_EQ(TypeOf(1.0, 3.0, 1e-5, 0.0, -above), 'H');
    EXPECT_EQ(TypeOf(1.0, 3.0, 1e-5, 1.0, -1e-5), 'L');
    EXPECT_EQ(TypeOf(1e-5, 0.0, 1.0), 'L');
    EXPECT_EQ(TypeOf(above, 0.0, 1.0), 'E');
    EXPECT_EQ(TypeOf(1e-5, 3.0, 1.0, -above, 0.0), 'H');
    EXPECT_EQ(TypeOf(1e-5, 3.0, 1.0, -1e-5, 1.0), 'L');
    // The discriminant: B^2 - 4 A C of -1e-5 and just beyond.
    EXPECT_EQ(TypeOf(1.0, 0.0, 2.5e-6, 0.0, 1.0), 'P');
    EXPECT_EQ(TypeOf(1.0, 0.0, 2.6e-6, 0.0, 1.0), 'E');
    EXPECT_EQ(TypeOf(1.0, 0.0, -2.5e-6, 0.0, 1.0), 'P');
    EXPECT_EQ(TypeOf(1.0, 0.0, -2.6e-6, 0.0, 1.0), 'H');
    // A circle: B and A - C.
    EXPECT_EQ(TypeOf(1.0, 1e-5, 1.0), 'C');
    EXPECT_EQ(TypeOf(1.0, -above, 1.0), 'E');
    EXPECT_EQ(TypeOf(2.0, 0.0, 2.0 + 9e-6), 'C');
    EXPECT_EQ(TypeOf(2.0, 0.0, 2.0 + 11e-6), 'E');
    EXPECT_EQ(TypeOf(2.0 + 11e-6, 0.0, 2.0), 'E');
}

TEST(ConicType, WhatIsNoNumber) {
    EXPECT_EQ(TypeOf(kNaN, 0.0, 1.0), '?');
    EXPECT_EQ(TypeOf(1.0, kNaN, 1.0), '?');
    EXPECT_EQ(TypeOf(1.0, 0.0, kNaN), '?');
    EXPECT_EQ(TypeOf(kInf, kInf, 1.0), '?');
}

std_ell_typ StandardOf(con_arc_str conic) {
    std_ell_typ out = {kUnwritten, kUnwritten, {kUnwritten, kUnwritten}, kUnwritten, kUnwritten,
                       kUnwritten, kUnwritten};
    kFlat.utl_standard_ellipse(&conic, &out);
    return out;
}

TEST(StandardEllipse, WithoutABItIsNotTurned) {
    const std_ell_typ s = StandardOf(Closed(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0)));
    EXPECT_EQ(s.cosine, 1.0);
    EXPECT_EQ(s.sine, 0.0);
    EXPECT_EQ(s.center.x, 0.0);
    EXPECT_EQ(s.center.y, 0.0);
    EXPECT_EQ(s.startAngle, 0.0);
    EXPECT_EQ(s.sweepAngle, kTwoPi);
    EXPECT_EQ(s.a, 2.0);
    EXPECT_EQ(s.b, 1.0);
    // The longer axis may lie along y, and all signs may be the other ones.
    const std_ell_typ upright = StandardOf(Closed(MakeConic(-1.0, 0.0, -0.25, 0.0, 0.0, 4.0)));
    EXPECT_EQ(upright.cosine, 1.0);
    EXPECT_EQ(upright.sine, 0.0);
    EXPECT_EQ(upright.a, 2.0);
    EXPECT_EQ(upright.b, 4.0);
}

TEST(StandardEllipse, HasItsOwnCentre) {
    // (x - 3)^2 + 4 (y + 5)^2 = 16.
    const std_ell_typ s = StandardOf(Closed(MakeConic(1.0, 0.0, 4.0, -6.0, 40.0, 93.0)));
    EXPECT_EQ(s.center.x, 3.0);
    EXPECT_EQ(s.center.y, -5.0);
    EXPECT_EQ(s.a, 4.0);
    EXPECT_EQ(s.b, 2.0);
    // One linear term alone: 2.7 x^2 + 1.4 y^2 + 5 x = 1, and the same with the axes exchanged.
    const std_ell_typ right = StandardOf(Closed(MakeConic(2.7, 0.0, 1.4, 5.0, 0.0, -1.0)));
    EXPECT_EQ(right.center.x, -5.0 / (2.0 * 2.7));
    EXPECT_EQ(right.center.y, 0.0);
    const std_ell_typ up = StandardOf(Closed(MakeConic(1.4, 0.0, 2.7, 0.0, 5.0, -1.0)));
    EXPECT_EQ(up.center.x, 0.0);
    EXPECT_EQ(up.center.y, -5.0 / (2.0 * 2.7));
    // Turned, by either term: the gradient vanishes at (-10, 3) / 91 and at (3, -10) / 91.
    for (const bool isX : {true, false}) {
        const std_ell_typ turned = StandardOf(Closed(MakeConic(5.0, 3.0, 5.0, isX ? 1.0 : 0.0, isX ? 0.0 : 1.0, -1.0)));
        const double x = (isX ? -10.0 : 3.0) / 91.0;
        const double y = (isX ? 3.0 : -10.0) / 91.0;
        EXPECT_NEAR(turned.center.x, x * turned.cosine + y * turned.sine, 1e-16);
        EXPECT_NEAR(turned.center.y, y * turned.cosine - x * turned.sine, 1e-16);
    }
}

TEST(StandardEllipse, ASemiAxisIsTheRootOfAQuotient) {
    // sqrt(1) / sqrt(2) would be off by a rounding.
    const std_ell_typ s = StandardOf(Closed(MakeConic(2.0, 0.0, 7.0, 0.0, 0.0, -1.0)));
    EXPECT_EQ(s.a, std::sqrt(1.0 / 2.0));
    EXPECT_EQ(s.b, std::sqrt(1.0 / 7.0));
}

// The conic of an ellipse with the semi-axis a in direction turn, b across, and the given centre.
con_arc_str ConicOf(double a, double b, double turn, const DblPt& center, double scale = 1.0) {
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const double p = scale / (a * a);
    const double q = scale / (b * b);
    const double xx = p * c * c + q * s * s;
    const double xy = 2.0 * (p - q) * s * c;
    const double yy = p * s * s + q * c * c;
    return MakeConic(xx, xy, yy, -2.0 * xx * center.x - xy * center.y, -2.0 * yy * center.y - xy * center.x,
                     xx * center.x * center.x + xy * center.x * center.y + yy * center.y * center.y - scale);
}

TEST(StandardEllipse, TurnsIntoTheAxes) {
    for (const double scale : {1.0, -1.0, 1e-30, -1e50}) {
        for (int i = -12; i <= 12; ++i) {
            const double turn = i * kPi / 12.0;
            const DblPt center(1.5, -0.75);
            const std_ell_typ s = StandardOf(Closed(ConicOf(3.0, 1.25, turn, center, scale)));
            EXPECT_NEAR(s.cosine * s.cosine + s.sine * s.sine, 1.0, 1e-15);
            EXPECT_GE(s.cosine, 0.0);
            // The frame's x may be either axis; a is the semi-axis along it.
            const double alongMajor = std::fabs(s.cosine * std::cos(turn) + s.sine * std::sin(turn));
            const bool isMajor = alongMajor > 0.5;
            EXPECT_NEAR(alongMajor, isMajor ? 1.0 : 0.0, 1e-14);
            EXPECT_NEAR(s.a, isMajor ? 3.0 : 1.25, 1e-13);
            EXPECT_NEAR(s.b, isMajor ? 1.25 : 3.0, 1e-13);
            EXPECT_NEAR(s.center.x, center.x * s.cosine + center.y * s.sine, 1e-13);
            EXPECT_NEAR(s.center.y, center.y * s.cosine - center.x * s.sine, 1e-13);
        }
    }
}

TEST(StandardEllipse, AFlatOneHasNoSweep) {
    for (const double turn : {0.0, 0.4}) {
        std_ell_typ s = StandardOf(Closed(ConicOf(3.0, 0.0299, turn, DblPt())));
        EXPECT_EQ(s.startAngle, 0.0);
        EXPECT_EQ(s.sweepAngle, 0.0);
        EXPECT_NEAR(std::min(s.a, s.b), 0.0299, 1e-12);
        s = StandardOf(Arc(ConicOf(0.0299, 3.0, turn, DblPt()), {0.0, 3.0}, {0.0299, 0.0}));
        EXPECT_EQ(s.startAngle, 0.0);
        EXPECT_EQ(s.sweepAngle, 0.0);
        EXPECT_EQ(StandardOf(Closed(ConicOf(3.0, 0.0301, turn, DblPt()))).sweepAngle, kTwoPi);
    }
}

TEST(StandardEllipse, AnArcStartsAtItsFirstEnd) {
    const con_arc_str conic = MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0);
    const auto at = [](double t) -> real_pt_t { return {2.0 * std::cos(t), std::sin(t)}; };
    std_ell_typ s = StandardOf(Arc(conic, at(0.5), at(2.0)));
    EXPECT_NEAR(s.startAngle, 0.5, 1e-15);
    EXPECT_NEAR(s.sweepAngle, 1.5, 1e-15);
    s = StandardOf(Arc(conic, at(2.0), at(0.5)));
    EXPECT_NEAR(s.startAngle, 2.0, 1e-15);
    EXPECT_NEAR(s.sweepAngle, kTwoPi - 1.5, 1e-15);
    s = StandardOf(Arc(conic, at(-0.5), at(0.25)));
    EXPECT_NEAR(s.startAngle, kTwoPi - 0.5, 1e-15);
    EXPECT_NEAR(s.sweepAngle, 0.75, 1e-15);
    // Its ends at the same point, it is that point.
    s = StandardOf(Arc(conic, at(4.0), at(4.0)));
    EXPECT_NEAR(s.startAngle, 4.0, 1e-15);
    EXPECT_EQ(s.sweepAngle, 0.0);
    // A closed one is whole whatever its ends.
    s = StandardOf(Closed(Arc(conic, at(2.0), at(0.5))));
    EXPECT_EQ(s.startAngle, 0.0);
    EXPECT_EQ(s.sweepAngle, kTwoPi);
}

TEST(StandardEllipse, EndsARoundingApartAreInTheOrderGiven) {
    // Turned and moved, so that mapping the ends rounds them.
    const double turn = 0.7;
    const con_arc_str conic = ConicOf(3.0, 1.25, turn, DblPt());
    for (int i = 0; i < 60; ++i) {
        const double t = i * kTwoPi / 60.0;
        const real_pt_t first = {3.0 * std::cos(t) * std::cos(turn) - 1.25 * std::sin(t) * std::sin(turn),
                                 3.0 * std::cos(t) * std::sin(turn) + 1.25 * std::sin(t) * std::cos(turn)};
        real_pt_t second = first;
        // Counter-clockwise is upwards on the right and downwards on the left.
        second.y = std::nextafter(first.y, first.x > 0.0 ? 9.0 : -9.0);
        EXPECT_LT(StandardOf(Arc(conic, first, second)).sweepAngle, 1e-14);
        EXPECT_GT(StandardOf(Arc(conic, second, first)).sweepAngle, kTwoPi - 1e-14);
    }
}

TEST(StandardEllipse, WhatIsNoEllipseHasNoSweep) {
    const con_arc_str conics[] = {MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, 1.0),   MakeConic(1.0, 0.5, 2.0, 0.0, 0.0, 1.0),
                                  MakeConic(1.0, 0.0, -1.0, 0.0, 0.0, -1.0), MakeConic(1.0, 3.0, 1.0, 0.0, 0.0, -1.0),
                                  MakeConic(1.0, 0.0, 0.0, 0.0, 1.0, 0.0),   MakeConic(0.0, 0.0, 0.0, 0.0, 0.0, 0.0),
                                  MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, 0.0),   MakeConic(kNaN, 1.0, 1.0, 0.0, 0.0, -1.0)};
    for (const con_arc_str& conic : conics) {
        for (const con_arc_str& arc : {Closed(conic), Arc(conic, {1.0, 0.0}, {0.0, 1.0})}) {
            const std_ell_typ s = StandardOf(arc);
            EXPECT_TRUE(std::isnan(s.a) || std::isnan(s.b));
            EXPECT_EQ(s.startAngle, 0.0);
            EXPECT_EQ(s.sweepAngle, 0.0);
        }
    }
}

TEST(EllipsePoint, IsTurnedBack) {
    std_ell_typ s = {0.6, 0.8, {10.0, 20.0}, 0.0, 0.0, 5.0, 15.0};
    const EllipseGeom e;
    DblPt p;
    e.utl_ellipse_point(&s, 0.0, &p);
    EXPECT_NEAR(p.x, 15.0 * 0.6 - 20.0 * 0.8, 1e-14);
    EXPECT_NEAR(p.y, 15.0 * 0.8 + 20.0 * 0.6, 1e-14);
    e.utl_ellipse_point(&s, kPi / 2.0, &p);
    EXPECT_NEAR(p.x, 10.0 * 0.6 - 35.0 * 0.8, 1e-14);
    EXPECT_NEAR(p.y, 10.0 * 0.8 + 35.0 * 0.6, 1e-14);
}

TEST(ConicBox, OfWhatIsNoEllipseIsThatOfTheEnds) {
    const con_arc_str conics[] = {MakeConic(0.0, 0.0, 0.0, 0.0, 0.0, 0.0),   MakeConic(1.0, 0.0, -1.0, 0.0, 0.0, -1.0),
                                  MakeConic(1.0, 0.0, 0.0, 0.0, 1.0, 0.0),   MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, 1.0),
                                  MakeConic(1.0, 0.0, 1e-6, 0.0, 0.0, -1.0), MakeConic(kNaN, 0.0, 1.0, 0.0, 0.0, -1.0)};
    for (const con_arc_str& conic : conics) {
        EXPECT_TRUE(IsBox(BoxOf(Arc(conic, {3.0, -1.0}, {-2.0, 5.0})), -2.0, -1.0, 3.0, 5.0));
        EXPECT_TRUE(IsBox(BoxOf(Closed(Arc(conic, {3.0, -1.0}, {-2.0, 5.0}))), -2.0, -1.0, 3.0, 5.0));
    }
}

TEST(ConicBox, IncludesTheEndsWhereverTheyAre) {
    const con_arc_str conic = Closed(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0));
    EXPECT_TRUE(IsBox(BoxOf(Arc(conic, {30.0, -1.0}, {-2.0, 5.0})), -2.0, -1.0, 30.0, 5.0));
}

TEST(ConicBox, OfACircleIsSampledToo) {
    EXPECT_TRUE(IsBox(BoxOf(Closed(Arc(MakeConic(1.0, 0.0, 1.0, -6.0, 8.0, 0.0), {3.0, -4.0}, {3.0, -4.0}))), -2.0,
                      -9.0, 8.0, 1.0, 1e-14));
}

// How far up the samples of an arc of the unit circle reach that runs from one angle before the top to one behind
// it.
double TopOfArc(double before, double behind) {
    return BoxOf(Arc(MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, -1.0), {std::sin(before), std::cos(before)},
                     {-std::sin(behind), std::cos(behind)}))
        .ur.y;
}

TEST(ConicBox, AnArcHasAtLeastThreeSamples) {
    // 0.1 + 0.14 is 2.75 steps: three points, the middle one 0.02 behind the top.
    EXPECT_NEAR(TopOfArc(0.1, 0.14), std::cos(0.02), 1e-15);
    // 0.01 + 0.02 is less than a step: three all the same.
    EXPECT_NEAR(TopOfArc(0.01, 0.02), std::cos(0.005), 1e-15);
    // 0.1 + 0.18 is 3.2 steps: four points, 0.28 / 3 apart.
    EXPECT_NEAR(TopOfArc(0.1, 0.18), std::cos(0.1 - 0.28 / 3.0), 1e-15);
}

TEST(ConicBox, TheSamplesOfAnArcAreEvenlySpread) {
    // 1 / 0.087 = 11.49: twelve points, 1 / 11 apart.
    EXPECT_NEAR(TopOfArc(0.52, 0.48), std::cos(6.0 / 11.0 - 0.52), 1e-15);
    // 1.05 / 0.087 = 12.07: thirteen, 1.05 / 12 apart.
    EXPECT_NEAR(TopOfArc(0.5, 0.55), std::cos(6.0 * 1.05 / 12.0 - 0.5), 1e-15);
}

TEST(ConicBox, OfATurnedArcOfAnEllipse) {
    const double turn = 0.6;
    const DblPt center(4.0, -7.0);
    const con_arc_str conic = ConicOf(3.0, 1.25, turn, center);
    const auto at = [&](double t) -> real_pt_t {
        return {center.x + 3.0 * std::cos(t) * std::cos(turn) - 1.25 * std::sin(t) * std::sin(turn),
                center.y + 3.0 * std::cos(t) * std::sin(turn) + 1.25 * std::sin(t) * std::cos(turn)};
    };
    RandomNumbers random(9);
    for (int i = 0; i < 100; ++i) {
        const double start = random.Within(0.0, kTwoPi);
        const double sweep = random.Within(0.3, 6.2);
        const int samples = static_cast<int>(sweep / 0.087) + 1;
        AlignedDblRect box(at(start).x, at(start).y, at(start + sweep).x, at(start + sweep).y);
        for (int k = 0; k < samples; ++k) {
            const real_pt_t p = at(start + k * sweep / (samples - 1));
            box.Enclose(p.x, p.y);
        }
        EXPECT_TRUE(
            IsBox(BoxOf(Arc(conic, at(start), at(start + sweep))), box.ll.x, box.ll.y, box.ur.x, box.ur.y, 1e-12));
    }
}

TEST(ConicHelpers, ARotatedConicHoldsTheRotatedPoints) {
    con_arc_str conic = MakeConic(2.0, 3.0, 5.0, 7.0, 11.0, 13.0);
    conic.start = {1.0, 2.0};
    conic.end = {3.0, 4.0};
    conic.closed = 1;
    con_arc_str out = {};
    const EllipseGeom e;
    e.utlx_rotate_conic(&conic, 0.6, 0.8, &out);
    const auto value = [](const con_arc_str& k, double x, double y) {
        return k.A * x * x + k.B * x * y + k.C * y * y + k.D * x + k.E * y + k.F;
    };
    for (const DblPt& p : {DblPt(0.0, 0.0), DblPt(1.0, 0.0), DblPt(0.0, 1.0), DblPt(2.0, -3.0), DblPt(-1.5, 0.5)})
        EXPECT_NEAR(value(out, p.x * 0.6 + p.y * 0.8, p.y * 0.6 - p.x * 0.8), value(conic, p.x, p.y), 1e-12);
    EXPECT_NEAR(out.start.x, 1.0 * 0.6 + 2.0 * 0.8, 1e-15);
    EXPECT_NEAR(out.start.y, 2.0 * 0.6 - 1.0 * 0.8, 1e-15);
    EXPECT_NEAR(out.end.x, 3.0 * 0.6 + 4.0 * 0.8, 1e-15);
    EXPECT_NEAR(out.end.y, 4.0 * 0.6 - 3.0 * 0.8, 1e-15);
    EXPECT_EQ(out.closed, 1);

    // A quarter-turn exchanges the axes exactly; in place, too.
    e.utlx_rotate_conic(&conic, 0.0, 1.0, &conic);
    EXPECT_EQ(conic.A, 5.0);
    EXPECT_EQ(conic.B, -3.0);
    EXPECT_EQ(conic.C, 2.0);
    EXPECT_EQ(conic.D, 11.0);
    EXPECT_EQ(conic.E, -7.0);
    EXPECT_EQ(conic.F, 13.0);
    EXPECT_EQ(conic.start.x, 2.0);
    EXPECT_EQ(conic.start.y, -1.0);
}

TEST(ConicHelpers, AnAngleIsBroughtIntoOneTurn) {
    const EllipseGeom e;
    EXPECT_EQ(e.utlx_correct_angle(0.0), 0.0);
    EXPECT_EQ(e.utlx_correct_angle(1.25), 1.25);
    EXPECT_EQ(e.utlx_correct_angle(kTwoPi), 0.0);
    EXPECT_EQ(e.utlx_correct_angle(-kTwoPi), 0.0);
    EXPECT_NEAR(e.utlx_correct_angle(-1.0), kTwoPi - 1.0, 1e-15);
    EXPECT_NEAR(e.utlx_correct_angle(20.0), 20.0 - 3.0 * kTwoPi, 1e-14);
    EXPECT_NEAR(e.utlx_correct_angle(-20.0), 4.0 * kTwoPi - 20.0, 1e-14);
    // Never 2 pi itself.
    EXPECT_EQ(e.utlx_correct_angle(-1e-300), 0.0);
    EXPECT_TRUE(std::isnan(e.utlx_correct_angle(kNaN)));
}

TEST(ConicHelpers, TheDirectionOfAVector) {
    const EllipseGeom e;
    EXPECT_EQ(e.utlx_get_angle(3.0, 0.0), 0.0);
    EXPECT_EQ(e.utlx_get_angle(0.0, 3.0), kPi / 2.0);
    EXPECT_EQ(e.utlx_get_angle(-3.0, 0.0), kPi);
    EXPECT_NEAR(e.utlx_get_angle(0.0, -3.0), 1.5 * kPi, 1e-15);
    EXPECT_NEAR(e.utlx_get_angle(4.0, 3.0), std::atan2(3.0, 4.0), 1e-15);
    EXPECT_EQ(e.utlx_get_angle(0.0, 0.0), 0.0);
    EXPECT_EQ(e.utlx_get_angle(-0.0, 0.0), 0.0);
    EXPECT_EQ(e.utlx_get_angle(1.0, -1e-300), 0.0);
}

TEST(ConicHelpers, NormalizesAVector) {
    const EllipseGeom e;
    for (const double scale : {1.0, 1e-300, 1e300, 0x1p-1074}) {
        DblPt v(3.0 * scale, -4.0 * scale);
        EXPECT_TRUE(e.utlx_normalize_vector(v));
        EXPECT_NEAR(v.x, 0.6, 1e-15);
        EXPECT_NEAR(v.y, -0.8, 1e-15);
    }
    DblPt along(5.0, 0.0);
    EXPECT_TRUE(e.utlx_normalize_vector(along));
    EXPECT_TRUE(IsAt(along, 1.0, 0.0));
    DblPt down(0.0, -5.0);
    EXPECT_TRUE(e.utlx_normalize_vector(down));
    EXPECT_TRUE(IsAt(down, 0.0, -1.0));
    for (const DblPt& p : {DblPt(0.0, 0.0), DblPt(kInf, 1.0), DblPt(1.0, -kInf), DblPt(0.0, kNaN), DblPt(kNaN, 1.0)}) {
        DblPt v = p;
        EXPECT_FALSE(e.utlx_normalize_vector(v));
        EXPECT_TRUE(v.x == p.x || std::isnan(p.x));
        EXPECT_TRUE(v.y == p.y || std::isnan(p.y));
    }
}

const DblPt kUntouched(-77.0, 88.0);

DblPt Met(const CONIC_ARC& conic, double x, double y) {
    CONIC_ARC arc = conic;
    DblPt out = kUntouched;
    const bool isMet = kFlat.intersectRayEllipse(x, y, &arc, &out);
    EXPECT_NE(isMet, out.IsExactly(kUntouched));
    return out;
}

CONIC_ARC Record(const con_arc_str& conic) {
    return {conic.A, conic.B, conic.C, conic.D, conic.E, conic.F, 0.0, 0.0, 0.0, 0.0, 0.0};
}

TEST(RayFromTheCentre, MeetsTheEllipse) {
    const CONIC_ARC conic = Record(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0));
    EXPECT_TRUE(IsAt(Met(conic, 1.0, 0.0), 2.0, 0.0));
    EXPECT_TRUE(IsAt(Met(conic, -7.0, 0.0), -2.0, 0.0));
    EXPECT_TRUE(IsAt(Met(conic, 0.0, -3.0), 0.0, -1.0));
    // Any length will do.
    for (const double scale : {1.0, 17.0, 1e-300, 1e300, 0x1p-1070}) {
        const DblPt met = Met(conic, scale, -scale);
        EXPECT_NEAR(met.x, std::sqrt(0.8), 1e-15);
        EXPECT_EQ(met.y, -met.x);
    }
    EXPECT_TRUE(IsAt(Met(conic, 1e300, 1e-300), 2.0, 0.0));
    EXPECT_TRUE(IsAt(Met(conic, -1e-300, -1e300), 0.0, -1.0));
    // So will the coefficients' sign.
    EXPECT_TRUE(IsAt(Met(Record(MakeConic(-0.25, 0.0, -1.0, 0.0, 0.0, 1.0)), 1.0, 0.0), 2.0, 0.0));
}

TEST(RayFromTheCentre, StartsAtTheConicsOwnCentre) {
    // (x - 3)^2 + 4 (y + 5)^2 = 16.
    const CONIC_ARC conic = Record(MakeConic(1.0, 0.0, 4.0, -6.0, 40.0, 93.0));
    EXPECT_TRUE(IsAt(Met(conic, 1.0, 0.0), 7.0, -5.0));
    EXPECT_TRUE(IsAt(Met(conic, 0.0, -0.5), 3.0, -7.0));
    // 4 x^2 + (y - 3)^2 = 4 and (x - 3)^2 + 4 y^2 = 4, which have one linear term.
    EXPECT_TRUE(IsAt(Met(Record(MakeConic(4.0, 0.0, 1.0, 0.0, -6.0, 5.0)), 0.0, 1.0), 0.0, 5.0));
    EXPECT_TRUE(IsAt(Met(Record(MakeConic(1.0, 0.0, 4.0, -6.0, 0.0, 5.0)), -1.0, 0.0), 1.0, 0.0));
    // Turned.
    const DblPt center(1.5, -0.75);
    const DblPt met = Met(Record(ConicOf(3.0, 1.25, 0.7, center)), std::cos(0.7), std::sin(0.7));
    EXPECT_NEAR(met.x, center.x + 3.0 * std::cos(0.7), 1e-14);
    EXPECT_NEAR(met.y, center.y + 3.0 * std::sin(0.7), 1e-14);
}

TEST(RayFromTheCentre, MayMeetNothing) {
    const CONIC_ARC ellipse = Record(MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0));
    EXPECT_TRUE(IsAt(Met(ellipse, 0.0, 0.0), kUntouched.x, kUntouched.y));
    EXPECT_TRUE(IsAt(Met(ellipse, kNaN, 1.0), kUntouched.x, kUntouched.y));
    EXPECT_TRUE(IsAt(Met(ellipse, kInf, 1.0), kUntouched.x, kUntouched.y));
    const con_arc_str nothing[] = {MakeConic(0.0, 0.0, 0.0, 0.0, 0.0, 0.0),  MakeConic(0.0, 0.0, 0.0, 0.0, 0.0, -1.0),
                                   MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, 0.0),  MakeConic(1.0, 0.0, 1.0, 0.0, 0.0, 1.0),
                                   MakeConic(1.0, 0.0, 0.0, 0.0, 1.0, 0.0),  MakeConic(0.0, 0.0, 0.0, 1.0, 1.0, 1.0),
                                   MakeConic(1.0, 0.0, 0.0, 0.0, 0.0, -1.0), MakeConic(1.0, 2.0, 1.0, 0.0, 0.0, -1.0)};
    for (const con_arc_str& conic : nothing)
        EXPECT_TRUE(IsAt(Met(Record(conic), 1.0, 2.0), kUntouched.x, kUntouched.y));
    // A hyperbola is met on one side of its asymptotes.
    const CONIC_ARC hyperbola = Record(MakeConic(1.0, 0.0, -1.0, 0.0, 0.0, -4.0));
    EXPECT_TRUE(IsAt(Met(hyperbola, 1.0, 0.0), 2.0, 0.0));
    EXPECT_TRUE(IsAt(Met(hyperbola, 0.0, 1.0), kUntouched.x, kUntouched.y));
}

TEST(ConicBox, TheSamplesFollowTheFormulaInItsOrder) {
    RandomNumbers random(39);
    const con_arc_str conic = MakeConic(0.25, 0.0, 1.0, 0.0, 0.0, -1.0);
    for (int i = 0; i < 500; ++i) {
        const double from = random.Within(0.0, kTwoPi);
        const double to = from + random.Within(0.5, 6.0);
        const con_arc_str arc = Arc(conic, {2.0 * std::cos(from), std::sin(from)}, {2.0 * std::cos(to), std::sin(to)});
        const std_ell_typ s = StandardOf(arc);
        const int last = static_cast<int>(s.sweepAngle / 0.087);
        AlignedDblRect box(DblPt(arc.start.x, arc.start.y), DblPt(arc.end.x, arc.end.y));
        for (int k = 0; k <= last; ++k) {
            const double t = s.startAngle + k * s.sweepAngle / last;
            box.Enclose(s.a * std::cos(t), s.b * std::sin(t));
        }
        EXPECT_EQ(BoxOf(arc), box);
    }
}

TEST(EllipseConic, ASemiAxisUpTo1e38IsWritten) {
    const Conversion c = Convert({}, {1e37, 0.0}, {0.0, 3e36}, {}, {}, true);
    EXPECT_FALSE(c.isEllipse);
    EXPECT_NEAR(c.in.semiAxis1, 3e36, 1e24);
    EXPECT_NEAR(c.in.semiAxis2, 1e37, 1e25);
    EXPECT_EQ(Convert({}, {1.1e38, 0.0}, {0.0, 3e36}, {}, {}, true).in.semiAxis2, kUnwritten);
}

// Of infinite coefficients neither difference is beyond the tolerance.
TEST(ConicType, InfiniteCoefficientsWithoutADifferenceAreACircle) {
    EllipseGeom ellipse;
    con_arc_str conic = MakeConic(INFINITY, 0.0, INFINITY, 0.0, 0.0, -1.0);
    EXPECT_EQ(ellipse.utl_conic_type(&conic), 'C');
}

}  // namespace
