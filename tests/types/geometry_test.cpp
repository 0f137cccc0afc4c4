// SPDX-License-Identifier: MIT
#include "vellum/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <set>
#include <utility>

#include "support/point_checks.h"
#include "support/random_numbers.h"

namespace {

using support::IsAt;
using support::RandomNumbers;
using Vellum::DblPt;

constexpr double kPi = std::numbers::pi;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kFloatEpsilon = 1.1920928955078125e-7;
constexpr double kDoubleEpsilon = 2.220446049250313e-16;

const DblPt kUntouched(-77.0, 88.0);

DblPt RandomPoint(RandomNumbers& random) {
    const double x = random.Within(-1000.0, 1000.0);
    return DblPt(x, random.Within(-1000.0, 1000.0));
}

struct Measured {
    double dist;
    DblPt closest;
};

Measured Measure(const DblPt& p, const DblPt& a, const DblPt& b, bool exact = true) {
    Measured m = {0.0, kUntouched};
    m.dist = Vellum::DistPtLine(p, a, b, m.closest, exact);
    const double alone = Vellum::DistPtLine(p, a, b, exact);
    EXPECT_TRUE(alone == m.dist || (std::isnan(alone) && std::isnan(m.dist)));
    return m;
}

TEST(DistPtLine, HorizontalSegment) {
    const DblPt a(0.0, 0.0);
    const DblPt b(10.0, 0.0);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        Measured m = Measure(DblPt(5.0, 5.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 5.0, 0.0));
        m = Measure(DblPt(13.0, 4.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 10.0, 0.0));
        m = Measure(DblPt(-3.0, -4.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 0.0, 0.0));
    }
}

TEST(DistPtLine, VerticalSegment) {
    const DblPt a(2.0, 1.0);
    const DblPt b(2.0, 11.0);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        Measured m = Measure(DblPt(5.0, 6.0), from, to);
        EXPECT_EQ(m.dist, 3.0);
        EXPECT_TRUE(IsAt(m.closest, 2.0, 6.0));
        m = Measure(DblPt(5.0, 15.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 2.0, 11.0));
        m = Measure(DblPt(-1.0, -3.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 2.0, 1.0));
    }
}

TEST(DistPtLine, AHorizontalSegmentTakesTheCoordinateAsItIs) {
    // The formula for slanted segments would give -3.0999999999999996.
    const DblPt a(-9.2, 0.0);
    const DblPt b(-2.2, 0.0);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        const Measured m = Measure(DblPt(-3.1, 1.0), from, to);
        EXPECT_EQ(m.dist, 1.0);
        EXPECT_TRUE(IsAt(m.closest, -3.1, 0.0));
    }
}

TEST(DistPtLine, AVerticalSegmentFarFromTheDiagonal) {
    const DblPt a(20.0, 1.0);
    const DblPt b(20.0, 5.0);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        EXPECT_TRUE(IsAt(Measure(DblPt(23.0, 3.0), from, to).closest, 20.0, 3.0));
        Measured m = Measure(DblPt(23.0, 9.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 20.0, 5.0));
        m = Measure(DblPt(17.0, -3.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 20.0, 1.0));
    }
}

TEST(DistPtLine, WithANaNEndTheFirstEndIsTheLower) {
    // Along a vertical: the end that is a number clamps from above where it comes second, from below where it comes
    // first.
    const DblPt number(1.0, 2.0);
    const DblPt nan(1.0, kNaN);
    EXPECT_TRUE(IsAt(Measure(DblPt(4.0, 6.0), nan, number).closest, 1.0, 2.0));
    EXPECT_TRUE(IsAt(Measure(DblPt(4.0, -2.0), nan, number).closest, 1.0, -2.0));
    EXPECT_TRUE(IsAt(Measure(DblPt(4.0, 6.0), number, nan).closest, 1.0, 6.0));
    EXPECT_TRUE(IsAt(Measure(DblPt(4.0, -2.0), number, nan).closest, 1.0, 2.0));
    // Along a horizontal.
    const DblPt right(5.0, 3.0);
    const DblPt nowhere(kNaN, 3.0);
    EXPECT_TRUE(IsAt(Measure(DblPt(9.0, 0.0), nowhere, right).closest, 5.0, 3.0));
    EXPECT_TRUE(IsAt(Measure(DblPt(1.0, 0.0), nowhere, right).closest, 1.0, 3.0));
    EXPECT_TRUE(IsAt(Measure(DblPt(9.0, 0.0), right, nowhere).closest, 9.0, 3.0));
    EXPECT_TRUE(IsAt(Measure(DblPt(1.0, 0.0), right, nowhere).closest, 5.0, 3.0));
}

TEST(DistPtLine, SlantedSegment) {
    const DblPt a(0.0, 0.0);
    const DblPt b(10.0, 10.0);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        Measured m = Measure(DblPt(0.0, 10.0), from, to);
        EXPECT_EQ(m.dist, std::sqrt(50.0));
        EXPECT_TRUE(IsAt(m.closest, 5.0, 5.0));
        m = Measure(DblPt(13.0, 14.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 10.0, 10.0));
        m = Measure(DblPt(-4.0, -3.0), from, to);
        EXPECT_EQ(m.dist, 5.0);
        EXPECT_TRUE(IsAt(m.closest, 0.0, 0.0));
    }
    const Measured falling = Measure(DblPt(0.0, 0.0), DblPt(0.0, 4.0), DblPt(4.0, 0.0));
    EXPECT_EQ(falling.dist, std::sqrt(8.0));
    EXPECT_TRUE(IsAt(falling.closest, 2.0, 2.0));
}

TEST(DistPtLine, InexactIsTheOctagonalEstimate) {
    EXPECT_EQ(Measure(DblPt(5.0, 5.0), DblPt(0.0, 0.0), DblPt(10.0, 0.0), false).dist, 4.8);
    EXPECT_EQ(Measure(DblPt(0.0, 10.0), DblPt(0.0, 0.0), DblPt(10.0, 10.0), false).dist, 6.79);
    EXPECT_EQ(Measure(DblPt(13.0, 4.0), DblPt(0.0, 0.0), DblPt(10.0, 0.0), false).dist, 5.034);
    EXPECT_EQ(Measure(DblPt(14.0, 3.0), DblPt(0.0, 0.0), DblPt(10.0, 0.0), false).dist, 5.034);
}

TEST(DistPtLine, APointSegment) {
    const Measured m = Measure(DblPt(4.0, 6.0), DblPt(1.0, 2.0), DblPt(1.0, 2.0));
    EXPECT_EQ(m.dist, 5.0);
    EXPECT_TRUE(IsAt(m.closest, 1.0, 2.0));
}

TEST(DistPtLine, ANearlyVerticalSegmentIsSlanted) {
    const Measured m = Measure(DblPt(3.0, 0.5), DblPt(0.0, 0.0), DblPt(1e-300, 1.0));
    EXPECT_EQ(m.closest.x, 0.5 * 1e-300);
    const Measured flat = Measure(DblPt(0.5, 3.0), DblPt(0.0, 0.0), DblPt(1.0, 1e-300));
    EXPECT_EQ(flat.closest.y, 0.5 * 1e-300);
}

TEST(DistPtLine, TheFormulaIsEvaluatedAsWrittenFromTheLowerEnd) {
    RandomNumbers random(1);
    int inside = 0;
    for (int i = 0; i < 2000; ++i) {
        const DblPt lo = RandomPoint(random);
        const DblPt hi(lo.x + 500.0, random.Within(-1000.0, 1000.0));
        const DblPt p = RandomPoint(random);
        const double dx = hi.x - lo.x;
        const double dy = hi.y - lo.y;
        const double x = ((p.y - lo.y) * dy * dx + dx * dx * p.x + lo.x * (dy * dy)) / (dy * dy + dx * dx);
        for (const Measured& m : {Measure(p, lo, hi), Measure(p, hi, lo)}) {
            if (x < lo.x) {
                EXPECT_TRUE(IsAt(m.closest, lo.x, lo.y));
            } else if (x > hi.x) {
                EXPECT_TRUE(IsAt(m.closest, hi.x, hi.y));
            } else {
                EXPECT_TRUE(IsAt(m.closest, x, (x - lo.x) / dx * dy + lo.y));
                ++inside;
            }
        }
    }
    EXPECT_GT(inside, 200);
}

TEST(DistPtLine, TheClosestPointMayOverwriteAnArgument) {
    DblPt a(0.0, 0.0);
    EXPECT_EQ(Vellum::DistPtLine(DblPt(5.0, 5.0), a, DblPt(10.0, 0.0), a, true), 5.0);
    EXPECT_TRUE(IsAt(a, 5.0, 0.0));
    DblPt b(10.0, 10.0);
    EXPECT_EQ(Vellum::DistPtLine(DblPt(0.0, 10.0), DblPt(0.0, 0.0), b, b, true), std::sqrt(50.0));
    EXPECT_TRUE(IsAt(b, 5.0, 5.0));
    DblPt p(0.0, 10.0);
    EXPECT_EQ(Vellum::DistPtLine(p, DblPt(0.0, 0.0), DblPt(10.0, 10.0), p, true), std::sqrt(50.0));
    EXPECT_TRUE(IsAt(p, 5.0, 5.0));
}

TEST(DistPtLine, NaNGivesNaN) {
    for (const DblPt& b : {DblPt(0.0, 9.0), DblPt(9.0, 0.0), DblPt(9.0, 9.0)}) {
        EXPECT_TRUE(std::isnan(Measure(DblPt(kNaN, kNaN), DblPt(0.0, 0.0), b).dist));
        EXPECT_TRUE(std::isnan(Measure(DblPt(kNaN, kNaN), DblPt(0.0, 0.0), b, false).dist));
    }
}

TEST(DistPtPt, IsEuclidean) {
    EXPECT_EQ(Vellum::DistPtPt(DblPt(1.0, 2.0), DblPt(4.0, -2.0)), 5.0);
    EXPECT_EQ(Vellum::DistPtPt(DblPt(1.0, 2.0), DblPt(1.0, 2.0)), 0.0);
}

DblPt Foot(const DblPt& p, const DblPt& a, const DblPt& b) {
    DblPt out = kUntouched;
    Vellum::PtLineIntercept(p, a, b, out);
    return out;
}

TEST(PtLineIntercept, IsNotClamped) {
    EXPECT_TRUE(IsAt(Foot(DblPt(20.0, 3.0), DblPt(0.0, 0.0), DblPt(10.0, 0.0)), 20.0, 0.0));
    EXPECT_TRUE(IsAt(Foot(DblPt(3.0, 20.0), DblPt(1.0, 0.0), DblPt(1.0, 10.0)), 1.0, 20.0));
    EXPECT_TRUE(IsAt(Foot(DblPt(0.0, 20.0), DblPt(0.0, 0.0), DblPt(1.0, 1.0)), 10.0, 10.0));
    EXPECT_TRUE(IsAt(Foot(DblPt(0.0, 20.0), DblPt(1.0, 1.0), DblPt(0.0, 0.0)), 10.0, 10.0));
    EXPECT_TRUE(IsAt(Foot(DblPt(5.0, 6.0), DblPt(1.0, 2.0), DblPt(1.0, 2.0)), 1.0, 6.0));
}

TEST(PtLineIntercept, AxisParallelLinesAreReadFromTheLowerEnd) {
    const double tiny = 1e-16;
    EXPECT_TRUE(IsAt(Foot(DblPt(3.0, 4.0), DblPt(tiny, 0.0), DblPt(0.0, 9.0)), 0.0, 4.0));
    EXPECT_TRUE(IsAt(Foot(DblPt(3.0, 4.0), DblPt(9.0, 0.0), DblPt(0.0, tiny)), 3.0, tiny));
}

TEST(PtLineIntercept, TheThresholdItselfIsSlanted) {
    const double below = std::nextafter(kDoubleEpsilon, 0.0);
    EXPECT_EQ(Foot(DblPt(5.0, 0.5), DblPt(0.0, 0.0), DblPt(below, 1.0)).x, 0.0);
    EXPECT_GT(Foot(DblPt(5.0, 0.5), DblPt(0.0, 0.0), DblPt(kDoubleEpsilon, 1.0)).x, 0.0);
    EXPECT_EQ(Foot(DblPt(0.5, 5.0), DblPt(0.0, 0.0), DblPt(1.0, below)).y, 0.0);
    EXPECT_GT(Foot(DblPt(0.5, 5.0), DblPt(0.0, 0.0), DblPt(1.0, kDoubleEpsilon)).y, 0.0);
}

TEST(PtLineIntercept, TheFootMayOverwriteAnArgument) {
    DblPt a(0.0, 0.0);
    Vellum::PtLineIntercept(DblPt(0.0, 20.0), a, DblPt(1.0, 1.0), a);
    EXPECT_TRUE(IsAt(a, 10.0, 10.0));
    DblPt p(0.0, 20.0);
    Vellum::PtLineIntercept(p, DblPt(0.0, 0.0), DblPt(1.0, 1.0), p);
    EXPECT_TRUE(IsAt(p, 10.0, 10.0));
}

using LinePointFn = bool (*)(const DblPt&, const DblPt&, double, DblPt&);

DblPt PointOnLine(LinePointFn fn, const DblPt& a, const DblPt& b, double d) {
    DblPt out = kUntouched;
    EXPECT_TRUE(fn(a, b, d, out));
    return out;
}

TEST(PtAlongLine, CountsFromTheStart) {
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 1.0), DblPt(4.0, 5.0), 10.0), 7.0, 9.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 1.0), DblPt(4.0, 5.0), 2.5), 2.5, 3.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 1.0), DblPt(4.0, 5.0), -5.0), -2.0, -3.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 2.0), DblPt(1.0, 9.0), 3.0), 1.0, 5.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 2.0), DblPt(1.0, -9.0), 3.0), 1.0, -1.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 2.0), DblPt(9.0, 2.0), 3.0), 4.0, 2.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(1.0, 2.0), DblPt(-9.0, 2.0), 3.0), -2.0, 2.0));
}

TEST(PtAlongLine, MultipliesBeforeItDivides) {
    // 3 + (5 / length) * 5 would be 7.28746462856272.
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::PtAlongLine, DblPt(3.0, 5.0), DblPt(8.0, 8.0), 5.0), 7.287464628562721,
                     7.572478777137633));
}

TEST(ExtendLine, CountsFromTheEndUnlessAlongAnAxis) {
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::ExtendLine, DblPt(1.0, 1.0), DblPt(4.0, 5.0), 10.0), 10.0, 13.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::ExtendLine, DblPt(0.0, 0.0), DblPt(10.0, 10.0), std::sqrt(2.0)), 11.0, 11.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::ExtendLine, DblPt(0.0, 0.0), DblPt(0.0, 10.0), 2.0), 0.0, 2.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::ExtendLine, DblPt(1.0, 5.0), DblPt(1.0, 2.0), 1.0), 1.0, 4.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::ExtendLine, DblPt(1.0, 5.0), DblPt(3.0, 5.0), 1.0), 2.0, 5.0));
    EXPECT_TRUE(IsAt(PointOnLine(Vellum::ExtendLine, DblPt(5.0, 1.0), DblPt(2.0, 1.0), 1.0), 4.0, 1.0));
}

TEST(PointsOnALine, TheDirectionThresholdIsTheSinglePrecisionEpsilon) {
    const double below = std::nextafter(kFloatEpsilon, 0.0);
    for (const LinePointFn fn : {LinePointFn{Vellum::PtAlongLine}, LinePointFn{Vellum::ExtendLine}}) {
        EXPECT_TRUE(IsAt(PointOnLine(fn, DblPt(0.0, 0.0), DblPt(below, 10.0), 2.0), 0.0, 2.0));
        EXPECT_TRUE(IsAt(PointOnLine(fn, DblPt(0.0, 0.0), DblPt(10.0, -below), 2.0), 2.0, 0.0));
        EXPECT_GT(PointOnLine(fn, DblPt(0.0, 0.0), DblPt(kFloatEpsilon, 10.0), 2.0).x, 0.0);
        EXPECT_LT(PointOnLine(fn, DblPt(0.0, 0.0), DblPt(10.0, -kFloatEpsilon), 2.0).y, 0.0);

        DblPt out = kUntouched;
        EXPECT_FALSE(fn(DblPt(0.0, 0.0), DblPt(below, -below), 2.0, out));
        EXPECT_FALSE(fn(DblPt(3.0, 4.0), DblPt(3.0, 4.0), 2.0, out));
        EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));
        EXPECT_TRUE(fn(DblPt(0.0, 0.0), DblPt(kFloatEpsilon, below), 2.0, out));
        EXPECT_TRUE(fn(DblPt(0.0, 0.0), DblPt(below, kFloatEpsilon), 2.0, out));
    }
}

TEST(PointsOnALine, TheResultMayOverwriteAnEnd) {
    DblPt a(1.0, 1.0);
    EXPECT_TRUE(Vellum::PtAlongLine(a, DblPt(4.0, 5.0), 10.0, a));
    EXPECT_TRUE(IsAt(a, 7.0, 9.0));
    DblPt b(4.0, 5.0);
    EXPECT_TRUE(Vellum::ExtendLine(DblPt(1.0, 1.0), b, 10.0, b));
    EXPECT_TRUE(IsAt(b, 10.0, 13.0));
}

TEST(FindLineIntersect, SlantedLines) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(0.0, 1.0), DblPt(1.0, 0.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 0.5, 0.5));
    // Beyond both segments.
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(4.0, 2.0), DblPt(-3.0, 6.0), DblPt(-1.0, 4.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 2.0, 1.0));
}

TEST(FindLineIntersect, LinesAwayFromTheOrigin) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(1.0, 3.0), DblPt(3.0, 4.0), DblPt(2.0, 2.5), DblPt(4.0, 5.5), 0.0, out));
    EXPECT_TRUE(IsAt(out, 3.0, 4.0));
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(2.0, 2.5), DblPt(4.0, 5.5), DblPt(1.0, 3.0), DblPt(3.0, 4.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 3.0, 4.0));
}

TEST(FindLineIntersect, SlopesThatDifferInTheLastBitMeet) {
    // y = x and y = (1 + 2^-52) x - 1 meet at x = 2^52.
    DblPt out;
    EXPECT_TRUE(Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(0.0, -1.0),
                                          DblPt(1.0, kDoubleEpsilon), 0.0, out));
    EXPECT_TRUE(IsAt(out, 4503599627370496.0, 4503599627370496.0));
}

TEST(FindLineIntersect, TheFormulasAreEvaluatedAsWritten) {
    RandomNumbers random(2);
    for (int i = 0; i < 2000; ++i) {
        const DblPt p1 = RandomPoint(random);
        const DblPt p2 = RandomPoint(random);
        const DblPt q1 = RandomPoint(random);
        const DblPt q2 = RandomPoint(random);
        const DblPt p2Above(p1.x, p2.y);
        const DblPt q2Above(q1.x, q2.y);
        const double m1 = (p2.y - p1.y) / (p2.x - p1.x);
        const double m2 = (q2.y - q1.y) / (q2.x - q1.x);
        const double x = ((m1 * p1.x - p1.y) - (m2 * q1.x - q1.y)) / (m1 - m2);
        DblPt out;
        EXPECT_TRUE(Vellum::FindLineIntersect(p1, p2, q1, q2, 0.0, out));
        EXPECT_TRUE(IsAt(out, x, (x - q1.x) * m2 + q1.y));
        EXPECT_TRUE(Vellum::FindLineIntersect(p1, p2Above, q1, q2, 0.0, out));
        EXPECT_TRUE(IsAt(out, p1.x, m2 * (p1.x - q1.x) + q1.y));
        EXPECT_TRUE(Vellum::FindLineIntersect(p1, p2, q1, q2Above, 0.0, out));
        EXPECT_TRUE(IsAt(out, q1.x, m1 * (q1.x - p1.x) + p1.y));
    }
}

TEST(FindLineIntersect, OneVerticalLine) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(3.0, 0.0), DblPt(3.0, 9.0), DblPt(1.0, 2.0), DblPt(2.0, 4.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 3.0, 6.0));
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(1.0, 2.0), DblPt(2.0, 4.0), DblPt(3.0, 0.0), DblPt(3.0, 9.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 3.0, 6.0));
}

TEST(FindLineIntersect, VerticalWithinTheToleranceInclusive) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(0.5, 1.0), DblPt(-1.0, 1.0), DblPt(1.0, 3.0), 0.5, out));
    EXPECT_TRUE(IsAt(out, 0.0, 2.0));
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(-1.0, 1.0), DblPt(1.0, 3.0), DblPt(0.0, 0.0), DblPt(0.5, 1.0), 0.5, out));
    EXPECT_TRUE(IsAt(out, 0.0, 2.0));
    // Slanted for a smaller tolerance: y = 2x meets y = x + 2.
    EXPECT_TRUE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(0.5, 1.0), DblPt(-1.0, 1.0), DblPt(1.0, 3.0), 0.25, out));
    EXPECT_TRUE(IsAt(out, 2.0, 4.0));
}

TEST(FindLineIntersect, ParallelLinesHaveNone) {
    DblPt out = kUntouched;
    EXPECT_FALSE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(0.0, 1.0), DblPt(2.0, 0.0), DblPt(2.0, 1.0), 0.0, out));
    EXPECT_FALSE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(0.0, 1.0), DblPt(0.0, 5.0), DblPt(0.0, 6.0), 0.0, out));
    EXPECT_FALSE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(1.0, 2.0), DblPt(3.0, 1.0), DblPt(1.0, -3.0), 0.0, out));
    EXPECT_FALSE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(1.0, 2.0), DblPt(0.0, 0.0), DblPt(1.0, 2.0), 0.0, out));
    EXPECT_FALSE(
        Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(1.0, 0.0), DblPt(0.0, 4.0), DblPt(9.0, 4.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));
}

TEST(FindLineIntersect, TheResultMayOverwriteAnEnd) {
    DblPt q1(-3.0, 6.0);
    EXPECT_TRUE(Vellum::FindLineIntersect(DblPt(0.0, 0.0), DblPt(4.0, 2.0), q1, DblPt(-1.0, 4.0), 0.0, q1));
    EXPECT_TRUE(IsAt(q1, 2.0, 1.0));
    DblPt p1(0.0, 0.0);
    EXPECT_TRUE(Vellum::FindLineIntersect(p1, DblPt(4.0, 2.0), DblPt(-3.0, 6.0), DblPt(-1.0, 4.0), 0.0, p1));
    EXPECT_TRUE(IsAt(p1, 2.0, 1.0));
}

TEST(FindSegIntersect, WithinBothSegments) {
    DblPt out;
    EXPECT_TRUE(Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(0.0, 1.0), DblPt(1.0, 0.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 0.5, 0.5));
    // At a common end.
    EXPECT_TRUE(Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(1.0, 1.0), DblPt(2.0, 0.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 1.0, 1.0));
}

TEST(FindSegIntersect, OutsideASegmentTheCandidateStays) {
    DblPt out = kUntouched;
    // Outside the first, outside the second.
    EXPECT_FALSE(
        Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(4.0, 0.0), DblPt(4.0, 9.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 4.0, 4.0));
    EXPECT_FALSE(
        Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(9.0, 9.0), DblPt(3.0, 5.0), DblPt(3.0, 9.0), 0.0, out));
    EXPECT_TRUE(IsAt(out, 3.0, 3.0));
}

TEST(FindSegIntersect, WithoutALineIntersectionNothingIsWritten) {
    DblPt out = kUntouched;
    EXPECT_FALSE(
        Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(0.0, 1.0), DblPt(0.0, 0.0), DblPt(0.0, 1.0), 9.0, out));
    EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));
}

TEST(FindSegIntersect, TheToleranceIsForTheBoundsOnly) {
    DblPt out;
    EXPECT_TRUE(Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(1.5, 0.0), DblPt(1.5, 2.0), 0.5, out));
    EXPECT_TRUE(IsAt(out, 1.5, 1.5));
    EXPECT_FALSE(
        Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(1.5, 0.0), DblPt(1.5, 2.0), 0.25, out));
    // As a tolerance of the lines, 10 would make both vertical.
    EXPECT_TRUE(
        Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(1.0, 1.0), DblPt(0.0, 1.0), DblPt(1.0, 0.0), 10.0, out));
    EXPECT_TRUE(IsAt(out, 0.5, 0.5));
    // The lines' own: 2^-52 apart is vertical, more is not.
    EXPECT_FALSE(Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(kDoubleEpsilon, 1.0), DblPt(1.0, 0.0), DblPt(1.0, 1.0),
                                          10.0, out));
    EXPECT_TRUE(Vellum::FindSegIntersect(DblPt(0.0, 0.0), DblPt(2.0 * kDoubleEpsilon, 1.0), DblPt(1.0, 0.0),
                                         DblPt(1.0, 1.0), 1e300, out));
}

TEST(FindSegIntersect, TheResultMayOverwriteAnEnd) {
    DblPt p1(0.0, 0.0);
    EXPECT_FALSE(Vellum::FindSegIntersect(p1, DblPt(1.0, 1.0), DblPt(4.0, 0.0), DblPt(4.0, 9.0), 0.0, p1));
    EXPECT_TRUE(IsAt(p1, 4.0, 4.0));
}

TEST(PointInBounds, EdgesCountAndTheToleranceGrowsTheBox) {
    const DblPt a(5.0, 1.0);
    const DblPt b(2.0, 4.0);
    for (const auto& [from, to] : {std::pair(a, b), std::pair(b, a)}) {
        for (const DblPt& p : {DblPt(2.0, 1.0), DblPt(5.0, 4.0), DblPt(3.0, 2.0)}) {
            EXPECT_TRUE(Vellum::PointInBounds(p, from, to, 0.0));
        }
        for (const DblPt& p : {DblPt(1.5, 2.0), DblPt(5.5, 2.0), DblPt(3.0, 0.5), DblPt(3.0, 4.5)}) {
            EXPECT_FALSE(Vellum::PointInBounds(p, from, to, 0.25));
            EXPECT_TRUE(Vellum::PointInBounds(p, from, to, 0.5));
        }
    }
    EXPECT_FALSE(Vellum::PointInBounds(DblPt(kNaN, 2.0), a, b, 1.0));
    EXPECT_FALSE(Vellum::PointInBounds(DblPt(3.0, kNaN), a, b, 1.0));
}

TEST(PointInBounds, ANaNEndIsNotPassedOver) {
    // A NaN in a is the larger of the two, one in b the smaller, and neither comparison holds.
    const DblPt p(3.0, 3.0);
    const DblPt number(3.0, 3.0);
    ASSERT_TRUE(Vellum::PointInBounds(p, number, number, 1.0));
    for (const DblPt& nan : {DblPt(kNaN, 3.0), DblPt(3.0, kNaN), DblPt(kNaN, kNaN)}) {
        EXPECT_FALSE(Vellum::PointInBounds(p, nan, number, 1.0));
        EXPECT_FALSE(Vellum::PointInBounds(p, number, nan, 1.0));
        EXPECT_FALSE(Vellum::PointInBounds(p, nan, nan, 1.0));
        EXPECT_FALSE(Vellum::PointInBounds(DblPt(-1e300, -1e300), nan, number, 1.0));
        EXPECT_FALSE(Vellum::PointInBounds(DblPt(1e300, 1e300), number, nan, 1.0));
    }
}

TEST(PointInBounds, TheToleranceGoesToThePoint) {
    // Each is the other way round where the tolerance is added to the bounds: the sums round differently.
    EXPECT_FALSE(Vellum::PointInBounds(DblPt(-2.2, 0.0), DblPt(0.8, 0.0), DblPt(9.0, 0.0), 3.0));
    EXPECT_FALSE(Vellum::PointInBounds(DblPt(0.0, -2.2), DblPt(0.0, 0.8), DblPt(0.0, 9.0), 3.0));
    EXPECT_TRUE(Vellum::PointInBounds(DblPt(0.8, 0.0), DblPt(-9.0, 0.0), DblPt(-2.5, 0.0), 3.3));
    EXPECT_TRUE(Vellum::PointInBounds(DblPt(0.0, 0.8), DblPt(0.0, -9.0), DblPt(0.0, -2.5), 3.3));
}

TEST(FindLineCircleIntersect, TheNearerOfTwo) {
    const DblPt centre(0.0, 0.0);
    const DblPt a(-2.0, 0.0);
    const DblPt b(2.0, 0.0);
    DblPt out;
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(centre, 1.0, a, b, DblPt(5.0, 0.0), out));
    EXPECT_TRUE(IsAt(out, 1.0, 0.0));
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(centre, 1.0, a, b, DblPt(-5.0, 0.0), out));
    EXPECT_TRUE(IsAt(out, -1.0, 0.0));
    // The line is infinite: both intersections lie beyond b here.
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(DblPt(10.0, 20.0), 5.0, DblPt(0.0, 23.0), DblPt(2.0, 23.0),
                                                DblPt(0.0, 0.0), out));
    EXPECT_TRUE(IsAt(out, 6.0, 23.0));
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(DblPt(10.0, 20.0), 5.0, DblPt(0.0, 23.0), DblPt(2.0, 23.0),
                                                DblPt(99.0, 0.0), out));
    EXPECT_TRUE(IsAt(out, 14.0, 23.0));
}

TEST(FindLineCircleIntersect, SlantedLines) {
    DblPt out;
    const DblPt centre(1.0, 2.0);
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(centre, 5.0, DblPt(-2.0, -2.0), DblPt(4.0, 6.0), DblPt(9.0, 9.0), out));
    EXPECT_TRUE(IsAt(out, 4.0, 6.0));
    EXPECT_TRUE(
        Vellum::FindLineCircleIntersect(centre, 5.0, DblPt(-2.0, -2.0), DblPt(4.0, 6.0), DblPt(-9.0, -9.0), out));
    EXPECT_TRUE(IsAt(out, -2.0, -2.0));
    // A tangent.
    EXPECT_TRUE(
        Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 5.0, DblPt(-1.0, 7.0), DblPt(7.0, 1.0), DblPt(9.0, 9.0), out));
    EXPECT_TRUE(IsAt(out, 3.0, 4.0));
}

TEST(FindLineCircleIntersect, TheFormulasAreEvaluatedAsWritten) {
    RandomNumbers random(3);
    int met = 0;
    int missed = 0;
    for (int i = 0; i < 2000; ++i) {
        const DblPt centre = RandomPoint(random);
        const DblPt a = RandomPoint(random);
        const DblPt b = RandomPoint(random);
        const DblPt ref = RandomPoint(random);
        const double radius = random.Within(1.0, 1000.0);

        const DblPt d(b.x - a.x, b.y - a.y);
        const double qa = d.x * d.x + d.y * d.y;
        const double qb = 2.0 * ((a.x - centre.x) * d.x + (a.y - centre.y) * d.y);
        const double qc = centre.x * centre.x + centre.y * centre.y + a.x * a.x + a.y * a.y -
                          2.0 * (centre.x * a.x + centre.y * a.y) - radius * radius;
        const double disc = qb * qb - 4.0 * qa * qc;
        DblPt out = kUntouched;
        const bool meets = Vellum::FindLineCircleIntersect(centre, radius, a, b, ref, out);
        if (disc < 0.0) {
            EXPECT_FALSE(meets);
            EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));
            ++missed;
            continue;
        }
        const double s = std::sqrt(disc);
        const double t1 = (s - qb) / (2.0 * qa);
        const double t2 = (-qb - s) / (2.0 * qa);
        const DblPt ahead(a.x + t1 * d.x, a.y + t1 * d.y);
        const DblPt behind(a.x + t2 * d.x, a.y + t2 * d.y);
        const DblPt& nearer = behind.Distsq(ref) > ahead.Distsq(ref) ? ahead : behind;
        EXPECT_TRUE(meets);
        EXPECT_TRUE(IsAt(out, nearer.x, nearer.y));
        ++met;
    }
    EXPECT_GT(met, 500);
    EXPECT_GT(missed, 200);
}

TEST(FindLineCircleIntersect, ATieGivesTheOneFurtherBack) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, DblPt(-2.0, 0.0), DblPt(2.0, 0.0), DblPt(0.0, 5.0), out));
    EXPECT_TRUE(IsAt(out, -1.0, 0.0));
    EXPECT_TRUE(
        Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, DblPt(2.0, 0.0), DblPt(-2.0, 0.0), DblPt(0.0, 5.0), out));
    EXPECT_TRUE(IsAt(out, 1.0, 0.0));
}

TEST(FindLineCircleIntersect, ATangentTouches) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, DblPt(-2.0, 1.0), DblPt(2.0, 1.0), DblPt(9.0, 9.0), out));
    EXPECT_TRUE(IsAt(out, 0.0, 1.0));
}

TEST(FindLineCircleIntersect, ALineThatMissesLeavesTheOutputAlone) {
    DblPt out = kUntouched;
    EXPECT_FALSE(
        Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, DblPt(-2.0, 1.5), DblPt(2.0, 1.5), DblPt(0.0, 0.0), out));
    EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));
}

// The horizontal line y = v, of length 1, has the discriminant 4 (r^2 - v^2) with a circle round the origin.
bool MeetsHorizontal(double radius, double y, DblPt& out) {
    return Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), radius, DblPt(0.0, y), DblPt(1.0, y), DblPt(9.0, 0.0), out);
}

TEST(FindLineCircleIntersect, TheDiscriminantThreshold) {
    const double large = 3.0 / 16384.0;
    const double small = 1.0 / 16384.0;
    ASSERT_EQ(4.0 * (large * large - small * small), kFloatEpsilon);

    // Exactly at the threshold there is no intersection, on neither side of zero.
    DblPt out = kUntouched;
    EXPECT_FALSE(MeetsHorizontal(large, small, out));
    EXPECT_FALSE(MeetsHorizontal(small, large, out));
    EXPECT_TRUE(IsAt(out, kUntouched.x, kUntouched.y));

    // Inside the band the line counts as a tangent: its point is the foot of the centre, off the circle.
    EXPECT_TRUE(MeetsHorizontal(large, small * 1.001, out));
    EXPECT_TRUE(IsAt(out, 0.0, small * 1.001));
    EXPECT_TRUE(MeetsHorizontal(small, large * 0.999, out));
    EXPECT_TRUE(IsAt(out, 0.0, large * 0.999));

    // Beyond it there are two intersections, or none.
    EXPECT_TRUE(MeetsHorizontal(large, small * 0.999, out));
    EXPECT_GT(out.x, 0.0);
    EXPECT_FALSE(MeetsHorizontal(small, large * 1.001, out));
}

TEST(FindLineCircleIntersect, ALineWithoutADirectionCountsAsATangentNowhere) {
    DblPt out;
    EXPECT_TRUE(
        Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, DblPt(3.0, 3.0), DblPt(3.0, 3.0), DblPt(0.0, 0.0), out));
    EXPECT_TRUE(std::isnan(out.x));
    EXPECT_TRUE(std::isnan(out.y));
}

TEST(FindLineCircleIntersect, TheResultMayOverwriteAnArgument) {
    DblPt ref(5.0, 0.0);
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, DblPt(-2.0, 0.0), DblPt(2.0, 0.0), ref, ref));
    EXPECT_TRUE(IsAt(ref, 1.0, 0.0));
    DblPt a(-2.0, 1.0);
    EXPECT_TRUE(Vellum::FindLineCircleIntersect(DblPt(0.0, 0.0), 1.0, a, DblPt(2.0, 1.0), DblPt(0.0, 0.0), a));
    EXPECT_TRUE(IsAt(a, 0.0, 1.0));
}

struct Direction {
    double angle;
    double dx;
    double dy;
};

Direction DirectionTo(double x, double y) {
    DblPt from(10.0, 20.0);
    DblPt to(10.0 + x, 20.0 + y);
    Direction d = {-1.0, -1.0, -1.0};
    d.angle = Vellum::GetAngleFromVector(from, to, d.dx, d.dy);
    EXPECT_TRUE(IsAt(from, 10.0, 20.0));
    EXPECT_TRUE(IsAt(to, 10.0 + x, 20.0 + y));
    return d;
}

testing::AssertionResult Is(const Direction& d, double angle, double dx, double dy) {
    if (d.angle != angle) return testing::AssertionFailure() << "angle " << testing::PrintToString(d.angle);
    return IsAt(DblPt(d.dx, d.dy), dx, dy);
}

TEST(GetAngleFromVector, RunsOverTheFullTurn) {
    EXPECT_TRUE(Is(DirectionTo(1.0, 1.0), std::atan2(1.0, 1.0), 1.0, 1.0));
    EXPECT_TRUE(Is(DirectionTo(-3.0, 4.0), std::atan2(4.0, -3.0), -3.0, 4.0));
    EXPECT_TRUE(Is(DirectionTo(-1.0, -1.0), std::atan2(-1.0, -1.0) + 2.0 * kPi, -1.0, -1.0));
    EXPECT_NEAR(DirectionTo(-1.0, -1.0).angle, 1.25 * kPi, 1e-15);
    EXPECT_NEAR(DirectionTo(1.0, -1.0).angle, 1.75 * kPi, 1e-15);
}

TEST(GetAngleFromVector, ExactDirections) {
    EXPECT_TRUE(Is(DirectionTo(1.0, 0.0), 0.0, 1.0, 0.0));
    EXPECT_TRUE(Is(DirectionTo(0.0, 1.0), 0.5 * kPi, 0.0, 1.0));
    EXPECT_TRUE(Is(DirectionTo(-1.0, 0.0), kPi, -1.0, 0.0));
    EXPECT_TRUE(Is(DirectionTo(0.0, -1.0), 1.5 * kPi, 0.0, -1.0));
    EXPECT_TRUE(Is(DirectionTo(0.0, 0.0), 0.0, 0.0, 0.0));
}

TEST(GetAngleFromVector, FromTheOrigin) {
    DblPt origin(0.0, 0.0);
    double dx = -1.0;
    double dy = -1.0;
    for (const double x : {0.0, 0.00001, -0.00001}) {
        DblPt down(x, -1.0);
        dx = -1.0;
        EXPECT_EQ(Vellum::GetAngleFromVector(origin, down, dx, dy), 4.71238898038469);
        EXPECT_EQ(dx, 0.0);
        EXPECT_EQ(dy, -1.0);
    }
    DblPt belowFullTurn(1.0, -0.00001);
    EXPECT_EQ(Vellum::GetAngleFromVector(origin, belowFullTurn, dx, dy), 6.2831753071795866);
    EXPECT_EQ(dx, 1.0);
    EXPECT_EQ(dy, -0.00001);
}

TEST(GetAngleFromVector, ATinyNegativeAngleIsAFullTurn) {
    DblPt origin(0.0, 0.0);
    DblPt to(1.0, -1e-300);
    double dx = 0.0;
    double dy = 0.0;
    EXPECT_EQ(Vellum::GetAngleFromVector(origin, to, dx, dy), 2.0 * kPi);
    EXPECT_EQ(dx, 1.0);
    EXPECT_EQ(dy, -1e-300);
}

TEST(GetAngleFromVector, SnapsNearTheAxesOnBothSidesButNotBelowAFullTurn) {
    const double off = 1.0 / 65536.0;
    EXPECT_TRUE(Is(DirectionTo(1.0, off), 0.0, 1.0, 0.0));
    EXPECT_TRUE(Is(DirectionTo(off, 1.0), 0.5 * kPi, 0.0, 1.0));
    EXPECT_TRUE(Is(DirectionTo(-off, 1.0), 0.5 * kPi, 0.0, 1.0));
    EXPECT_TRUE(Is(DirectionTo(-1.0, off), kPi, -1.0, 0.0));
    EXPECT_TRUE(Is(DirectionTo(-1.0, -off), kPi, -1.0, 0.0));
    EXPECT_TRUE(Is(DirectionTo(off, -1.0), 1.5 * kPi, 0.0, -1.0));
    EXPECT_TRUE(Is(DirectionTo(-off, -1.0), 1.5 * kPi, 0.0, -1.0));
    EXPECT_TRUE(Is(DirectionTo(1.0, -off), std::atan2(-off, 1.0) + 2.0 * kPi, 1.0, -off));
    EXPECT_GT(DirectionTo(1.0, -off).angle, 6.28);
}

TEST(GetAngleFromVector, TheBandIsStrict) {
    // The first y whose angle is not below 0.0001, whatever the last bit of this machine's tangent is.
    double first = std::tan(0.0001);
    while (std::atan2(first, 1.0) >= 0.0001) {
        first = std::nextafter(first, 0.0);
    }
    while (std::atan2(first, 1.0) < 0.0001) {
        first = std::nextafter(first, 1.0);
    }
    const double last = std::nextafter(first, 0.0);

    DblPt origin(0.0, 0.0);
    DblPt outside(1.0, first);
    double dx = 0.0;
    double dy = 0.0;
    EXPECT_EQ(Vellum::GetAngleFromVector(origin, outside, dx, dy), std::atan2(first, 1.0));
    EXPECT_EQ(dy, first);
    DblPt inside(1.0, last);
    EXPECT_EQ(Vellum::GetAngleFromVector(origin, inside, dx, dy), 0.0);
    EXPECT_EQ(dy, 0.0);
}

TEST(GetAngleFromVector, TheBandIsAsWideAtEveryAxis) {
    DblPt origin(0.0, 0.0);
    for (const double axis : {0.5 * kPi, kPi, 1.5 * kPi}) {
        for (const double off : {0.00009999, -0.00009999, 0.00010001, -0.00010001}) {
            DblPt to(std::cos(axis + off), std::sin(axis + off));
            double dx = 0.0;
            double dy = 0.0;
            const double angle = Vellum::GetAngleFromVector(origin, to, dx, dy);
            const bool snaps = std::fabs(off) < 0.0001;
            EXPECT_EQ(angle == axis, snaps) << axis << " " << off;
            EXPECT_EQ((axis == kPi ? dy : dx) == 0.0, snaps) << axis << " " << off;
        }
    }
}

TEST(GetAngleFromVector, TheVectorMayOverwriteAnEnd) {
    DblPt from(10.0, 20.0);
    DblPt to(13.0, 24.0);
    EXPECT_EQ(Vellum::GetAngleFromVector(from, to, from.x, from.y), std::atan2(4.0, 3.0));
    EXPECT_TRUE(IsAt(from, 3.0, 4.0));
}

TEST(GetAngleFromVector, NaNStaysNaN) {
    DblPt from(0.0, 0.0);
    DblPt to(kNaN, 1.0);
    double dx = 0.0;
    double dy = 0.0;
    EXPECT_TRUE(std::isnan(Vellum::GetAngleFromVector(from, to, dx, dy)));
    EXPECT_TRUE(std::isnan(dx));
    EXPECT_EQ(dy, 1.0);
}

TEST(VectorAngle2D, IsSignedAndWrapped) {
    EXPECT_EQ(Vellum::VectorAngle2D(1.0, 0.0, 0.0, 1.0), 0.5 * kPi);
    EXPECT_EQ(Vellum::VectorAngle2D(0.0, 1.0, 1.0, 0.0), -0.5 * kPi);
    EXPECT_EQ(Vellum::VectorAngle2D(1.0, 1.0, 2.0, 2.0), 0.0);
    const double small = std::atan2(0.1, 1.0);
    EXPECT_NEAR(Vellum::VectorAngle2D(-1.0, -0.1, -1.0, 0.1), -2.0 * small, 1e-15);
    EXPECT_NEAR(Vellum::VectorAngle2D(-1.0, 0.1, -1.0, -0.1), 2.0 * small, 1e-15);
}

TEST(VectorAngle2D, AHalfTurnKeepsItsSign) {
    EXPECT_EQ(Vellum::VectorAngle2D(1.0, 0.0, -1.0, 0.0), kPi);
    EXPECT_EQ(Vellum::VectorAngle2D(-1.0, 0.0, 1.0, 0.0), -kPi);
    EXPECT_TRUE(std::isnan(Vellum::VectorAngle2D(kNaN, 0.0, 1.0, 0.0)));
}

TEST(LookupSinCos, ReducesToOneTurn) {
    const auto sinCos = [](int degrees) {
        DblPt cosSin;
        Vellum::LookupSinCos(degrees, &cosSin.y, &cosSin.x);
        return cosSin;
    };
    EXPECT_TRUE(IsAt(sinCos(0), 1.0, 0.0));
    EXPECT_TRUE(IsAt(sinCos(360), 1.0, 0.0));
    EXPECT_TRUE(IsAt(sinCos(-360), 1.0, 0.0));
    EXPECT_EQ(sinCos(-90).y, -1.0);
    EXPECT_NEAR(sinCos(-90).x, 0.0, 1e-15);
    EXPECT_EQ(sinCos(450).y, 1.0);
    EXPECT_NEAR(sinCos(450).x, 0.0, 1e-15);
    EXPECT_EQ(sinCos(30).y, std::sin(30 * kPi / 180.0));
    EXPECT_EQ(sinCos(30).x, std::cos(30 * kPi / 180.0));
    // Degrees times pi first: 3 times a degree in radians would be 0.05235987755982989.
    EXPECT_EQ(sinCos(3).y, std::sin(0.05235987755982988));
    EXPECT_EQ(sinCos(3).x, std::cos(0.05235987755982988));
    EXPECT_EQ(sinCos(-30).y, std::sin(330 * kPi / 180.0));
    EXPECT_EQ(sinCos(359).x, std::cos(359 * kPi / 180.0));
    // -2147483648 is 232 degrees beyond a whole number of turns.
    EXPECT_EQ(sinCos(std::numeric_limits<int>::min()).y, std::sin(232 * kPi / 180.0));
    EXPECT_EQ(sinCos(std::numeric_limits<int>::max()).y, std::sin(127 * kPi / 180.0));
}

TEST(RandColorComp, StaysInItsRangeAndReachesAllOfIt) {
    std::set<unsigned> seen;
    for (int i = 0; i < 400; ++i) {
        seen.insert(Vellum::RandColorComp(3, 6));
    }
    EXPECT_EQ(seen, (std::set<unsigned>{3, 4, 5, 6}));
}

TEST(RandColorComp, KeepsTheLowEightBits) {
    EXPECT_EQ(Vellum::RandColorComp(200, 200), 200);
    EXPECT_EQ(Vellum::RandColorComp(256 + 7, 256 + 7), 7);
    EXPECT_EQ(Vellum::RandColorComp(0xFFFFFFFF, 0xFFFFFFFF), 255);
}

}  // namespace
