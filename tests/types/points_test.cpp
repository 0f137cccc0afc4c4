// SPDX-License-Identifier: MIT
#include "vellum/points.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

#include "support/point_checks.h"

namespace {

using support::IsAt;
using Vellum::DblPt;
using Vellum::IntPt;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class T>
concept HasEquality = requires(T a, T b) {
    a == b;
};

static_assert(!HasEquality<DblPt>);
static_assert(HasEquality<IntPt>);
static_assert(std::is_trivially_copyable_v<DblPt> && std::is_trivially_copyable_v<IntPt>);
static_assert(!std::is_polymorphic_v<DblPt> && !std::is_polymorphic_v<IntPt>);
static_assert(std::is_same_v<decltype(std::declval<DblPt&>().DeltaX(1.0)), void>);

TEST(DblPt, StartsAtTheOrigin) { EXPECT_TRUE(IsAt(DblPt(), 0.0, 0.0)); }

TEST(DblPt, IsSetFromEverythingThatHoldsAPoint) {
    EXPECT_TRUE(IsAt(DblPt(1.5, -2.5), 1.5, -2.5));
    const DblPt source(3.0, 4.0);
    EXPECT_TRUE(IsAt(DblPt(source), 3.0, 4.0));

    DblPt p;
    EXPECT_EQ(&(p = source), &p);
    EXPECT_TRUE(IsAt(p, 3.0, 4.0));
    EXPECT_EQ(&(p = real_pt_t{5.0, 6.0}), &p);
    EXPECT_TRUE(IsAt(p, 5.0, 6.0));
    p.Set(source);
    EXPECT_TRUE(IsAt(p, 3.0, 4.0));
    p.Set(7.0, 8.0);
    EXPECT_TRUE(IsAt(p, 7.0, 8.0));

    real_pt_t record = {0.0, 0.0};
    p.ToRealPtT(record);
    EXPECT_EQ(record.x, 7.0);
    EXPECT_EQ(record.y, 8.0);
}

TEST(DblPt, ArithmeticChangesThePointAndReturnsIt) {
    DblPt p(1.0, 2.0);
    EXPECT_EQ(&(p += DblPt(10.0, 20.0)), &p);
    EXPECT_TRUE(IsAt(p, 11.0, 22.0));
    EXPECT_EQ(&(p -= DblPt(1.0, 5.0)), &p);
    EXPECT_TRUE(IsAt(p, 10.0, 17.0));
    EXPECT_EQ(&(p += 0.5), &p);
    EXPECT_TRUE(IsAt(p, 10.5, 17.5));
    EXPECT_EQ(&(p -= 2.5), &p);
    EXPECT_TRUE(IsAt(p, 8.0, 15.0));
    p.DeltaX(-8.0);
    EXPECT_TRUE(IsAt(p, 0.0, 15.0));
    p.DeltaY(3.0);
    EXPECT_TRUE(IsAt(p, 0.0, 18.0));
}

TEST(DblPt, ArithmeticReadsItsArgumentFirst) {
    DblPt p(3.0, 5.0);
    const DblPt& self = p;
    p += self;
    EXPECT_TRUE(IsAt(p, 6.0, 10.0));
    p += p.x;
    EXPECT_TRUE(IsAt(p, 12.0, 16.0));
    p -= p.x;
    EXPECT_TRUE(IsAt(p, 0.0, 4.0));
    p -= self;
    EXPECT_TRUE(IsAt(p, 0.0, 0.0));
}

TEST(DblPt, DominanceHoldsOnlyOnBothAxes) {
    const DblPt origin(0.0, 0.0);
    const DblPt right(1.0, 0.0);
    const DblPt both(1.0, 1.0);

    EXPECT_FALSE(origin < right);
    EXPECT_FALSE(origin < DblPt(0.0, 1.0));
    EXPECT_TRUE(origin <= right);
    EXPECT_TRUE(origin < both);
    EXPECT_FALSE(both < origin);
    EXPECT_TRUE(origin <= origin);
    EXPECT_FALSE(origin <= DblPt(-1.0, 1.0));
    EXPECT_FALSE(origin <= DblPt(1.0, -1.0));

    EXPECT_FALSE(right > origin);
    EXPECT_FALSE(DblPt(0.0, 1.0) > origin);
    EXPECT_TRUE(right >= origin);
    EXPECT_TRUE(both > origin);
    EXPECT_FALSE(origin > both);
    EXPECT_TRUE(origin >= origin);
    EXPECT_FALSE(origin >= DblPt(-1.0, 1.0));
    EXPECT_FALSE(origin >= DblPt(1.0, -1.0));

    EXPECT_FALSE(DblPt(0.0, 5.0) < right);
    EXPECT_FALSE(DblPt(0.0, 5.0) > right);
}

TEST(DblPt, NaNMakesEveryRelationFalse) {
    const DblPt origin;
    for (const DblPt& p : {DblPt(kNaN, 0.0), DblPt(0.0, kNaN)}) {
        for (const auto& [a, b] : {std::pair(p, origin), std::pair(origin, p), std::pair(p, p)}) {
            EXPECT_FALSE(a < b);
            EXPECT_FALSE(a <= b);
            EXPECT_FALSE(a > b);
            EXPECT_FALSE(a >= b);
            EXPECT_FALSE(a.IsExactly(b));
            EXPECT_FALSE(a.IsEqualTo(b, 1e300));
        }
        EXPECT_TRUE(std::isnan(p.Dist(origin)));
        EXPECT_TRUE(std::isnan(p.Distsq(origin)));
        EXPECT_TRUE(std::isnan(p.ApproxDist(origin)));
    }
    for (const bool exact : {true, false}) {
        DblPt closest;
        EXPECT_TRUE(std::isnan(DblPt(kNaN, kNaN).DistToLine(DblPt(0.0, 0.0), DblPt(9.0, 9.0), closest, exact)));
        EXPECT_TRUE(std::isnan(DblPt(kNaN, 1.0).DistToLine(DblPt(0.0, 0.0), DblPt(0.0, 9.0), closest, exact)));
        EXPECT_TRUE(std::isnan(DblPt(1.0, kNaN).DistToLine(DblPt(0.0, 0.0), DblPt(9.0, 0.0), closest, exact)));
        EXPECT_TRUE(std::isnan(origin.DistToLine(DblPt(kNaN, kNaN), DblPt(kNaN, kNaN), closest, exact)));
    }
    EXPECT_TRUE(std::isnan(DblPt(kNaN, 0.0).XDist(origin)));
    EXPECT_TRUE(std::isnan(DblPt(0.0, kNaN).YDist(origin)));
}

TEST(DblPt, NaNHasNoPosition) {
    const DblPt origin;
    const DblPt nan(kNaN, kNaN);
    for (const auto& [a, b] : {std::pair(nan, origin), std::pair(origin, nan), std::pair(nan, nan)}) {
        EXPECT_FALSE(a.isAbove(b));
        EXPECT_FALSE(a.isBelow(b));
        EXPECT_FALSE(a.isLeftOf(b));
        EXPECT_FALSE(a.isRightOf(b));
        EXPECT_EQ(&a.Above(b), &b);
        EXPECT_EQ(&a.Below(b), &b);
        EXPECT_EQ(&a.LeftOf(b), &b);
        EXPECT_EQ(&a.RightOf(b), &b);
    }
    const DblPt a(0.0, 0.0);
    const DblPt b(2.0, 1.0);
    const DblPt left(0.0, 1.0);
    ASSERT_TRUE(left.isLeftOfLine(a, b));
    for (const DblPt& p : {DblPt(kNaN, 1.0), DblPt(0.0, kNaN)}) {
        EXPECT_FALSE(p.isLeftOfLine(a, b));
        EXPECT_FALSE(left.isLeftOfLine(p, b));
        EXPECT_FALSE(left.isLeftOfLine(a, p));
        EXPECT_FALSE(DblPt::isLeftOfLine(a, b, p.x, p.y));
        EXPECT_FALSE(DblPt::isLeftOfLine(p, b, 0.0, 1.0));
        EXPECT_FALSE(DblPt::isLeftOfLine(a, p, 0.0, 1.0));
    }
}

TEST(DblPt, IsExactlyComparesBothCoordinates) {
    EXPECT_TRUE(DblPt(1.0, 2.0).IsExactly(DblPt(1.0, 2.0)));
    EXPECT_FALSE(DblPt(1.0, 2.0).IsExactly(DblPt(1.0, 2.5)));
    EXPECT_FALSE(DblPt(1.0, 2.0).IsExactly(DblPt(1.5, 2.0)));
    EXPECT_TRUE(DblPt(0.0, 0.0).IsExactly(DblPt(-0.0, -0.0)));
}

TEST(DblPt, IsEqualToIsStrictOnEachAxis) {
    const DblPt p(0.0, 0.0);
    EXPECT_FALSE(p.IsEqualTo(p, 0.0));
    EXPECT_FALSE(p.IsEqualTo(DblPt(1e-9, 0.0), 1e-9));
    EXPECT_FALSE(p.IsEqualTo(DblPt(0.0, -1e-9), 1e-9));
    EXPECT_TRUE(p.IsEqualTo(DblPt(1e-9, -1e-9), 1.1e-9));
    // Per axis: the points are further apart than the tolerance.
    EXPECT_TRUE(p.IsEqualTo(DblPt(0.9, 0.9), 1.0));
    EXPECT_TRUE(p.IsEqualTo(0.9, -0.9, 1.0));
    EXPECT_FALSE(p.IsEqualTo(1.0, 0.0, 1.0));
    EXPECT_FALSE(p.IsEqualTo(0.0, 1.0, 1.0));
}

TEST(DblPt, Distances) {
    const DblPt a(1.0, 2.0);
    const DblPt b(4.0, -2.0);
    EXPECT_EQ(a.Dist(b), 5.0);
    EXPECT_EQ(a.Distsq(b), 25.0);
    EXPECT_EQ(a.XDist(b), 3.0);
    EXPECT_EQ(b.XDist(a), 3.0);
    EXPECT_EQ(a.YDist(b), 4.0);
    EXPECT_EQ(b.YDist(a), 4.0);
    EXPECT_EQ(a.XDist(a), 0.0);
    EXPECT_EQ(a.YDist(a), 0.0);
}

TEST(DblPt, DistancesOnAnAxisAreNeverNegativeZero) {
    const DblPt plus(0.0, 0.0);
    const DblPt minus(-0.0, -0.0);
    for (const auto& [a, b] : {std::pair(plus, minus), std::pair(minus, plus)}) {
        EXPECT_EQ(a.XDist(b), 0.0);
        EXPECT_FALSE(std::signbit(a.XDist(b)));
        EXPECT_EQ(a.YDist(b), 0.0);
        EXPECT_FALSE(std::signbit(a.YDist(b)));
    }
}

TEST(DblPt, ApproxDistWeighsTheLongerAxis) {
    const DblPt origin;
    EXPECT_EQ(origin.ApproxDist(DblPt(3.0, 4.0)), 5.034);
    EXPECT_EQ(origin.ApproxDist(-4.0, 3.0), 5.034);
    EXPECT_EQ(origin.ApproxDist(4.0, -3.0), 5.034);
    EXPECT_EQ(origin.ApproxDist(DblPt(1.0, 1.0)), 1.358);
    EXPECT_EQ(DblPt(1.0, 2.0).ApproxDist(DblPt(1.0, 2.0)), 0.0);
}

TEST(DblPt, DistToLineMeasuresTheSegment) {
    DblPt closest(9.0, 9.0);
    EXPECT_EQ(DblPt(5.0, 5.0).DistToLine(DblPt(0.0, 0.0), DblPt(10.0, 0.0), closest, true), 5.0);
    EXPECT_TRUE(IsAt(closest, 5.0, 0.0));
    EXPECT_EQ(DblPt(13.0, 4.0).DistToLine(DblPt(0.0, 0.0), DblPt(10.0, 0.0), closest, true), 5.0);
    EXPECT_TRUE(IsAt(closest, 10.0, 0.0));
    EXPECT_EQ(DblPt(5.0, 5.0).DistToLine(DblPt(0.0, 0.0), DblPt(10.0, 0.0), closest, false), 4.8);

    DblPt own(5.0, 5.0);
    EXPECT_EQ(own.DistToLine(DblPt(0.0, 0.0), DblPt(10.0, 0.0), own, true), 5.0);
    EXPECT_TRUE(IsAt(own, 5.0, 0.0));
}

TEST(DblPt, PositionTestsAreStrict) {
    const DblPt p(1.0, 1.0);
    EXPECT_TRUE(p.isAbove(DblPt(1.0, 0.5)));
    EXPECT_FALSE(p.isAbove(p));
    EXPECT_FALSE(p.isAbove(DblPt(1.0, 1.5)));
    EXPECT_TRUE(p.isBelow(DblPt(1.0, 1.5)));
    EXPECT_FALSE(p.isBelow(p));
    EXPECT_FALSE(p.isBelow(DblPt(1.0, 0.5)));
    EXPECT_TRUE(p.isLeftOf(DblPt(1.5, 1.0)));
    EXPECT_FALSE(p.isLeftOf(p));
    EXPECT_FALSE(p.isLeftOf(DblPt(0.5, 1.0)));
    EXPECT_TRUE(p.isRightOf(DblPt(0.5, 1.0)));
    EXPECT_FALSE(p.isRightOf(p));
    EXPECT_FALSE(p.isRightOf(DblPt(1.5, 1.0)));
}

// Each selection in both forms: the point that is asked, or its argument.
template <class Point>
void CheckSelections() {
    Point low(0.0, 0.0);
    Point high(1.0, 1.0);
    EXPECT_EQ(&high.Above(low), &high);
    EXPECT_EQ(&low.Above(high), &high);
    EXPECT_EQ(&high.Below(low), &low);
    EXPECT_EQ(&low.Below(high), &low);
    EXPECT_EQ(&high.LeftOf(low), &low);
    EXPECT_EQ(&low.LeftOf(high), &low);
    EXPECT_EQ(&high.RightOf(low), &high);
    EXPECT_EQ(&low.RightOf(high), &high);

    Point tie(0.0, 0.0);
    EXPECT_EQ(&low.Above(tie), &tie);
    EXPECT_EQ(&low.Below(tie), &tie);
    EXPECT_EQ(&low.LeftOf(tie), &tie);
    EXPECT_EQ(&low.RightOf(tie), &tie);
}

TEST(DblPt, SelectionsReturnTheArgumentOnATie) {
    CheckSelections<DblPt>();
    CheckSelections<const DblPt>();
}

template <class Point>
constexpr bool kSelectsItsOwnKind =
    std::is_same_v<decltype(std::declval<Point&>().Above(std::declval<Point&>())), Point&>&&
        std::is_same_v<decltype(std::declval<Point&>().Below(std::declval<Point&>())), Point&>&&
            std::is_same_v<decltype(std::declval<Point&>().LeftOf(std::declval<Point&>())), Point&>&&
                std::is_same_v<decltype(std::declval<Point&>().RightOf(std::declval<Point&>())), Point&>;
static_assert(kSelectsItsOwnKind<DblPt> && kSelectsItsOwnKind<const DblPt>);

template <class Point>
void CheckSelectionAxes() {
    Point upperLeft(0.0, 5.0);
    Point lowerRight(1.0, 4.0);
    EXPECT_EQ(&upperLeft.Above(lowerRight), &upperLeft);
    EXPECT_EQ(&lowerRight.Above(upperLeft), &upperLeft);
    EXPECT_EQ(&upperLeft.Below(lowerRight), &lowerRight);
    EXPECT_EQ(&lowerRight.Below(upperLeft), &lowerRight);
    EXPECT_EQ(&upperLeft.LeftOf(lowerRight), &upperLeft);
    EXPECT_EQ(&lowerRight.LeftOf(upperLeft), &upperLeft);
    EXPECT_EQ(&upperLeft.RightOf(lowerRight), &lowerRight);
    EXPECT_EQ(&lowerRight.RightOf(upperLeft), &lowerRight);

    // Points that differ on one axis tie on the other.
    Point origin(0.0, 0.0);
    Point beside(1.0, 0.0);
    Point over(0.0, 1.0);
    EXPECT_EQ(&beside.Above(origin), &origin);
    EXPECT_EQ(&origin.Below(beside), &beside);
    EXPECT_EQ(&origin.LeftOf(beside), &origin);
    EXPECT_EQ(&beside.LeftOf(origin), &origin);
    EXPECT_EQ(&beside.RightOf(origin), &beside);
    EXPECT_EQ(&origin.RightOf(beside), &beside);
    EXPECT_EQ(&over.Above(origin), &over);
    EXPECT_EQ(&origin.Above(over), &over);
    EXPECT_EQ(&origin.Below(over), &origin);
    EXPECT_EQ(&over.Below(origin), &origin);
    EXPECT_EQ(&origin.LeftOf(over), &over);
    EXPECT_EQ(&over.RightOf(origin), &origin);
}

TEST(DblPt, SelectionsLookAtOneAxisOnly) {
    CheckSelectionAxes<DblPt>();
    CheckSelectionAxes<const DblPt>();
}

TEST(DblPt, LeftOfLineFollowsTheDirectionOfTheLine) {
    const DblPt a(0.0, 0.0);
    const DblPt b(2.0, 1.0);
    const DblPt left(0.0, 1.0);
    const DblPt right(1.0, 0.0);
    const DblPt on(4.0, 2.0);
    EXPECT_TRUE(left.isLeftOfLine(a, b));
    EXPECT_FALSE(left.isLeftOfLine(b, a));
    EXPECT_FALSE(right.isLeftOfLine(a, b));
    EXPECT_TRUE(right.isLeftOfLine(b, a));
    EXPECT_FALSE(on.isLeftOfLine(a, b));
    EXPECT_FALSE(on.isLeftOfLine(b, a));

    EXPECT_TRUE(DblPt::isLeftOfLine(a, b, 0.0, 1.0));
    EXPECT_FALSE(DblPt::isLeftOfLine(b, a, 0.0, 1.0));
    EXPECT_FALSE(DblPt::isLeftOfLine(a, b, 1.0, 0.0));
    EXPECT_TRUE(DblPt::isLeftOfLine(b, a, 1.0, 0.0));
    EXPECT_FALSE(DblPt::isLeftOfLine(a, b, 4.0, 2.0));
    EXPECT_FALSE(DblPt::isLeftOfLine(b, a, 4.0, 2.0));
}

TEST(DblPt, LeftOfLineIsRelativeToTheStartOfTheLine) {
    const DblPt a(10.0, 20.0);
    const DblPt b(12.0, 21.0);
    EXPECT_TRUE(DblPt(10.0, 21.0).isLeftOfLine(a, b));
    EXPECT_FALSE(DblPt(11.0, 20.0).isLeftOfLine(a, b));
    EXPECT_TRUE(DblPt::isLeftOfLine(a, b, 10.0, 21.0));
    EXPECT_FALSE(DblPt::isLeftOfLine(a, b, 11.0, 20.0));
    // Beyond the end, a quarter above and below the line through (14, 22).
    EXPECT_TRUE(DblPt(14.0, 22.25).isLeftOfLine(a, b));
    EXPECT_FALSE(DblPt(14.0, 21.75).isLeftOfLine(a, b));
    EXPECT_TRUE(DblPt::isLeftOfLine(a, b, 14.0, 22.25));
    EXPECT_FALSE(DblPt::isLeftOfLine(a, b, 14.0, 21.75));
}

TEST(IntPt, IsSetAndCompared) {
    IntPt p;
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 0);
    p.Set(3, -4);
    EXPECT_EQ(p.x, 3);
    EXPECT_EQ(p.y, -4);
    const IntPt copy(p);
    EXPECT_TRUE(copy == p);
    EXPECT_TRUE(copy == IntPt(3, -4));
    EXPECT_FALSE(copy == IntPt(3, 4));
    EXPECT_FALSE(copy == IntPt(-3, -4));
    IntPt assigned;
    assigned = copy;
    EXPECT_TRUE(assigned == copy);
}

TEST(IntPt, DominanceAgainstAModelPoint) {
    const IntPt p(1, 2);
    EXPECT_TRUE(p >= DblPt(1.0, 2.0));
    EXPECT_FALSE(p > DblPt(1.0, 2.0));
    EXPECT_TRUE(p <= DblPt(1.0, 2.0));
    EXPECT_FALSE(p < DblPt(1.0, 2.0));

    EXPECT_TRUE(p > DblPt(0.5, 1.5));
    EXPECT_FALSE(p > DblPt(1.0, 1.5));
    EXPECT_FALSE(p > DblPt(0.5, 2.0));
    EXPECT_TRUE(p < DblPt(1.5, 2.5));
    EXPECT_FALSE(p < DblPt(1.0, 2.5));
    EXPECT_FALSE(p < DblPt(1.5, 2.0));
    EXPECT_FALSE(p >= DblPt(1.5, 1.0));
    EXPECT_FALSE(p >= DblPt(0.5, 2.5));
    EXPECT_FALSE(p <= DblPt(0.5, 2.5));
    EXPECT_FALSE(p <= DblPt(1.5, 1.5));

    // Where the other coordinate alone would satisfy the relation.
    for (const DblPt& more : {DblPt(kNaN, 3.0), DblPt(3.0, kNaN), DblPt(kNaN, kNaN)}) {
        EXPECT_FALSE(p < more);
        EXPECT_FALSE(p <= more);
    }
    for (const DblPt& less : {DblPt(kNaN, 0.0), DblPt(0.0, kNaN), DblPt(kNaN, kNaN)}) {
        EXPECT_FALSE(p > less);
        EXPECT_FALSE(p >= less);
    }
}

}  // namespace
