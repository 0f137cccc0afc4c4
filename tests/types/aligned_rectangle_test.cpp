// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "support/allocation_guard.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"
#include "vellum/matrix.h"
#include "vellum/rectangles.h"

namespace {

using support::IsAt;
using Vellum::AlignedDblRect;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::Mtx2D;
using namespace Vellum::EntityHandleEnum;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

testing::AssertionResult Holds(const AlignedDblRect& r, double left, double bottom, double right, double top) {
    const auto lowerLeft = IsAt(r.ll, left, bottom);
    return lowerLeft ? IsAt(r.ur, right, top) : lowerLeft;
}

AlignedDblRect Crossed() {
    AlignedDblRect r;
    r.TSet(5.0, 4.0, 2.0, 1.0);
    return r;
}

const AlignedDblRect kBox(5.0, 1.0, 2.0, 4.0);

TEST(AlignedDblRect, StartsAsTheOrigin) { EXPECT_TRUE(Holds(AlignedDblRect(), 0.0, 0.0, 0.0, 0.0)); }

TEST(AlignedDblRect, ConstructorsAndSetOrderTheCorners) {
    EXPECT_TRUE(Holds(AlignedDblRect(5.0, 1.0, 2.0, 4.0), 2.0, 1.0, 5.0, 4.0));
    EXPECT_TRUE(Holds(AlignedDblRect(2.0, 4.0, 5.0, 1.0), 2.0, 1.0, 5.0, 4.0));
    EXPECT_TRUE(Holds(AlignedDblRect(DblPt(5.0, 4.0), DblPt(2.0, 1.0)), 2.0, 1.0, 5.0, 4.0));

    AlignedDblRect r;
    r.Set(5.0, 4.0, 2.0, 1.0);
    EXPECT_TRUE(Holds(r, 2.0, 1.0, 5.0, 4.0));
    r.Set(DblPt(-1.0, 3.0), DblPt(-2.0, 8.0));
    EXPECT_TRUE(Holds(r, -2.0, 3.0, -1.0, 8.0));
}

TEST(AlignedDblRect, TSetTrusts) {
    EXPECT_TRUE(Holds(Crossed(), 5.0, 4.0, 2.0, 1.0));
    AlignedDblRect r;
    r.TSet(DblPt(3.0, -3.0), DblPt(1.0, -5.0));
    EXPECT_TRUE(Holds(r, 3.0, -3.0, 1.0, -5.0));
}

TEST(AlignedDblRect, SetFromACentreKeepsANegativeSize) {
    AlignedDblRect r;
    r.Set(DblPt(10.0, 20.0), 4.0, 6.0);
    EXPECT_TRUE(Holds(r, 8.0, 17.0, 12.0, 23.0));
    r.Set(DblPt(10.0, 20.0), -4.0, 6.0);
    EXPECT_TRUE(Holds(r, 12.0, 17.0, 8.0, 23.0));
    r.Set(DblPt(10.0, 20.0), 4.0, -6.0);
    EXPECT_TRUE(Holds(r, 8.0, 23.0, 12.0, 17.0));
}

TEST(AlignedDblRect, CopiesTheFourCoordinates) {
    const AlignedDblRect crossed = Crossed();
    const AlignedDblRect copy(crossed);
    EXPECT_TRUE(Holds(copy, 5.0, 4.0, 2.0, 1.0));
    AlignedDblRect assigned;
    EXPECT_EQ(&(assigned = crossed), &assigned);
    EXPECT_TRUE(Holds(assigned, 5.0, 4.0, 2.0, 1.0));
}

TEST(AlignedDblRect, SettersReadTheirArgumentsFirst) {
    AlignedDblRect r = Crossed();
    r.Set(r.LL(), r.UR());
    EXPECT_TRUE(Holds(r, 2.0, 1.0, 5.0, 4.0));
    r.TSet(r.UR(), r.LL());
    EXPECT_TRUE(Holds(r, 5.0, 4.0, 2.0, 1.0));
    r.Set(r.UR(), 2.0, 4.0);
    EXPECT_TRUE(Holds(r, 1.0, -1.0, 3.0, 3.0));
    r.Translate(r.UR());
    EXPECT_TRUE(Holds(r, 4.0, 2.0, 6.0, 6.0));
    r += r;
    EXPECT_TRUE(Holds(r, 4.0, 2.0, 6.0, 6.0));
    r.ExpandBy(r.LL().x);
    EXPECT_TRUE(Holds(r, 0.0, -2.0, 10.0, 10.0));
}

TEST(AlignedDblRect, Accessors) {
    EXPECT_EQ(kBox.Left(), 2.0);
    EXPECT_EQ(kBox.Bottom(), 1.0);
    EXPECT_EQ(kBox.Right(), 5.0);
    EXPECT_EQ(kBox.Top(), 4.0);
    EXPECT_EQ(AlignedDblRect(2.0, 1.0, 5.0, 8.0).Width(), 3.0);
    EXPECT_EQ(AlignedDblRect(2.0, 1.0, 5.0, 8.0).Height(), 7.0);
    EXPECT_EQ(Crossed().Width(), 3.0);
    EXPECT_EQ(Crossed().Height(), 3.0);
    EXPECT_EQ(AlignedDblRect(2.0, 1.0, 5.0, 8.0).CenterX(), 3.5);
    EXPECT_EQ(AlignedDblRect(2.0, 1.0, 5.0, 8.0).CenterY(), 4.5);

    DblPt p;
    AlignedDblRect(2.0, 1.0, 5.0, 8.0).GetCenter(p);
    EXPECT_TRUE(IsAt(p, 3.5, 4.5));
    p.Set(0.0, 0.0);
    AlignedDblRect(2.0, 1.0, 5.0, 8.0).GetCentroid(p);
    EXPECT_TRUE(IsAt(p, 3.5, 4.5));
}

TEST(AlignedDblRect, TheCentreIsMeasuredFromTheLowerLeft) {
    // The mean (left + right) / 2 would overflow here.
    const AlignedDblRect r(1e308, 1e308, 1.5e308, 1.5e308);
    EXPECT_EQ(r.CenterX(), (1.5e308 - 1e308) * 0.5 + 1e308);
    EXPECT_EQ(r.CenterY(), (1.5e308 - 1e308) * 0.5 + 1e308);
    EXPECT_TRUE(std::isfinite(r.CenterX()));
}

TEST(AlignedDblRect, LLAndURAreTheStoredCorners) {
    AlignedDblRect r = kBox;
    EXPECT_EQ(&r.LL(), &r.ll);
    EXPECT_EQ(&r.UR(), &r.ur);
    EXPECT_EQ(&kBox.LL(), &kBox.ll);
    EXPECT_EQ(&kBox.UR(), &kBox.ur);
    r.LL().x = -7.0;
    EXPECT_EQ(r.Left(), -7.0);
}

TEST(AlignedDblRect, CornersAndRecord) {
    DblPt p;
    kBox.GetLL(p);
    EXPECT_TRUE(IsAt(p, 2.0, 1.0));
    kBox.GetLR(p);
    EXPECT_TRUE(IsAt(p, 5.0, 1.0));
    kBox.GetUL(p);
    EXPECT_TRUE(IsAt(p, 2.0, 4.0));
    kBox.GetUR(p);
    EXPECT_TRUE(IsAt(p, 5.0, 4.0));

    real_rect_t record = {};
    kBox.ToRealRectT(record);
    EXPECT_TRUE(IsAt(DblPt(record.ll.x, record.ll.y), 2.0, 1.0));
    EXPECT_TRUE(IsAt(DblPt(record.ul.x, record.ul.y), 2.0, 4.0));
    EXPECT_TRUE(IsAt(DblPt(record.ur.x, record.ur.y), 5.0, 4.0));
    EXPECT_TRUE(IsAt(DblPt(record.lr.x, record.lr.y), 5.0, 1.0));
}

TEST(AlignedDblRect, SidesRunClockwise) {
    DblPt a;
    DblPt b;
    kBox.GetLeftSide(a, b);
    EXPECT_TRUE(IsAt(a, 2.0, 1.0) && IsAt(b, 2.0, 4.0));
    kBox.GetTopSide(a, b);
    EXPECT_TRUE(IsAt(a, 2.0, 4.0) && IsAt(b, 5.0, 4.0));
    kBox.GetRightSide(a, b);
    EXPECT_TRUE(IsAt(a, 5.0, 4.0) && IsAt(b, 5.0, 1.0));
    kBox.GetBottomSide(a, b);
    EXPECT_TRUE(IsAt(a, 5.0, 1.0) && IsAt(b, 2.0, 1.0));

    AlignedDblRect r = kBox;
    r.GetTopSide(r.UR(), r.LL());
    EXPECT_TRUE(IsAt(r.ur, 2.0, 4.0) && IsAt(r.ll, 5.0, 4.0));
}

TEST(AlignedDblRect, EqualityIsExact) {
    EXPECT_TRUE(kBox == AlignedDblRect(2.0, 1.0, 5.0, 4.0));
    EXPECT_FALSE(kBox != AlignedDblRect(2.0, 1.0, 5.0, 4.0));
    for (const AlignedDblRect& other :
         {AlignedDblRect(2.5, 1.0, 5.0, 4.0), AlignedDblRect(2.0, 1.5, 5.0, 4.0), AlignedDblRect(2.0, 1.0, 5.5, 4.0),
          AlignedDblRect(2.0, 1.0, 5.0, 4.5), AlignedDblRect(kNaN, 1.0, 5.0, 4.0)}) {
        EXPECT_FALSE(kBox == other);
        EXPECT_TRUE(kBox != other);
    }
}

TEST(AlignedDblRect, LessComparesSizesNotPositions) {
    EXPECT_TRUE(AlignedDblRect(100.0, 100.0, 101.0, 101.0) < AlignedDblRect(0.0, 0.0, 2.0, 2.0));
    EXPECT_FALSE(AlignedDblRect(0.0, 0.0, 2.0, 2.0) < AlignedDblRect(100.0, 100.0, 101.0, 101.0));
    EXPECT_FALSE(AlignedDblRect(0.0, 0.0, 1.0, 2.0) < AlignedDblRect(0.0, 0.0, 2.0, 2.0));
    EXPECT_FALSE(AlignedDblRect(0.0, 0.0, 2.0, 1.0) < AlignedDblRect(0.0, 0.0, 2.0, 2.0));
    const AlignedDblRect flat(10.0, 20.0, 12.0, 21.0);
    EXPECT_TRUE(flat < AlignedDblRect(50.0, -7.0, 52.5, -5.5));
    EXPECT_FALSE(flat < AlignedDblRect(50.0, -7.0, 51.0, -5.0));  // taller only
    EXPECT_FALSE(flat < AlignedDblRect(50.0, -7.0, 53.0, -6.5));  // wider only
    EXPECT_FALSE(flat < AlignedDblRect(50.0, -7.0, 52.0, -5.0));  // equally wide
    EXPECT_FALSE(flat < AlignedDblRect(50.0, -7.0, 53.0, -6.0));  // equally tall
    // Sizes are signed: a crossed box is smaller than a point.
    EXPECT_TRUE(Crossed() < AlignedDblRect());
}

TEST(AlignedDblRect, IsEqualToIsStrictOnEachCoordinate) {
    EXPECT_FALSE(kBox.IsEqualTo(kBox, 0.0));
    EXPECT_TRUE(kBox.IsEqualTo(AlignedDblRect(2.25, 0.75, 5.25, 3.75), 0.5));
    EXPECT_FALSE(kBox.IsEqualTo(AlignedDblRect(2.5, 1.0, 5.0, 4.0), 0.5));
    EXPECT_FALSE(kBox.IsEqualTo(AlignedDblRect(2.0, 0.5, 5.0, 4.0), 0.5));
    EXPECT_FALSE(kBox.IsEqualTo(AlignedDblRect(2.0, 1.0, 5.5, 4.0), 0.5));
    EXPECT_FALSE(kBox.IsEqualTo(AlignedDblRect(2.0, 1.0, 5.0, 3.5), 0.5));
}

TEST(AlignedDblRect, Union) {
    AlignedDblRect r = kBox;
    EXPECT_EQ(&(r += AlignedDblRect(1.0, 2.0, 6.0, 3.0)), &r);
    EXPECT_TRUE(Holds(r, 1.0, 1.0, 6.0, 4.0));
    r += AlignedDblRect(3.0, 0.0, 4.0, 5.0);
    EXPECT_TRUE(Holds(r, 1.0, 0.0, 6.0, 5.0));
}

TEST(AlignedDblRect, TheUnionTakesEachSideFromWhereItIsFurtherOut) {
    const AlignedDblRect base(10.0, 20.0, 13.0, 27.0);
    const struct {
        AlignedDblRect added;
        double left;
        double bottom;
        double right;
        double top;
    } expected[] = {
        {{8.5, 22.0, 12.0, 24.0}, 8.5, 20.0, 13.0, 27.0},     {{11.0, 15.5, 12.0, 24.0}, 10.0, 15.5, 13.0, 27.0},
        {{11.0, 22.0, 19.25, 24.0}, 10.0, 20.0, 19.25, 27.0}, {{11.0, 22.0, 12.0, 31.5}, 10.0, 20.0, 13.0, 31.5},
        {{-4.0, -3.0, -2.0, -1.0}, -4.0, -3.0, 13.0, 27.0},   {{41.0, 52.0, 43.0, 54.5}, 10.0, 20.0, 43.0, 54.5},
    };
    for (const auto& e : expected) {
        AlignedDblRect r = base;
        r += e.added;
        EXPECT_TRUE(Holds(r, e.left, e.bottom, e.right, e.top));
    }
}

TEST(AlignedDblRect, UnionWithABoxOfZerosReachesToTheOrigin) {
    AlignedDblRect r;
    r += kBox;
    EXPECT_TRUE(Holds(r, 0.0, 0.0, 5.0, 4.0));
}

TEST(AlignedDblRect, EnclosesPoints) {
    AlignedDblRect r = kBox;
    EXPECT_EQ(&(r += DblPt(0.0, 9.0)), &r);
    EXPECT_TRUE(Holds(r, 0.0, 1.0, 5.0, 9.0));
    EXPECT_EQ(&r.Enclose(8.0, -1.0), &r);
    EXPECT_TRUE(Holds(r, 0.0, -1.0, 8.0, 9.0));
    r.Enclose(1.0, 1.0);
    EXPECT_TRUE(Holds(r, 0.0, -1.0, 8.0, 9.0));
}

TEST(AlignedDblRect, EnclosingMovesOnlyTheSidesThatThePointIsBeyond) {
    const AlignedDblRect base(10.0, 20.0, 13.0, 27.0);
    const struct {
        DblPt p;
        double left;
        double bottom;
        double right;
        double top;
    } expected[] = {
        {{8.5, 22.0}, 8.5, 20.0, 13.0, 27.0},     {{11.0, 15.5}, 10.0, 15.5, 13.0, 27.0},
        {{19.25, 22.0}, 10.0, 20.0, 19.25, 27.0}, {{11.0, 31.5}, 10.0, 20.0, 13.0, 31.5},
        {{-4.0, 29.5}, -4.0, 20.0, 13.0, 29.5},   {{14.5, -3.0}, 10.0, -3.0, 14.5, 27.0},
    };
    for (const auto& e : expected) {
        AlignedDblRect r = base;
        r += e.p;
        EXPECT_TRUE(Holds(r, e.left, e.bottom, e.right, e.top));
        r = base;
        r.Enclose(e.p.x, e.p.y);
        EXPECT_TRUE(Holds(r, e.left, e.bottom, e.right, e.top));
    }
}

TEST(AlignedDblRect, EncloseInACrossedBoxMovesOneSideOnEachAxis) {
    AlignedDblRect r = Crossed();
    r.Enclose(3.0, 2.0);
    EXPECT_TRUE(Holds(r, 3.0, 2.0, 2.0, 1.0));
    r = Crossed();
    r += DblPt(3.0, 2.0);
    EXPECT_TRUE(Holds(r, 3.0, 2.0, 2.0, 1.0));
    r = Crossed();
    r.Enclose(6.0, 5.0);
    EXPECT_TRUE(Holds(r, 5.0, 4.0, 6.0, 5.0));
}

TEST(AlignedDblRect, ExpandsAndShrinksWithoutACheck) {
    AlignedDblRect r = kBox;
    EXPECT_EQ(&r.ExpandBy(0.5), &r);
    EXPECT_TRUE(Holds(r, 1.5, 0.5, 5.5, 4.5));
    EXPECT_EQ(&r.ExpandBy(1.0, 2.0), &r);
    EXPECT_TRUE(Holds(r, 0.5, -1.5, 6.5, 6.5));
    r.ExpandBy(-10.0);
    EXPECT_TRUE(Holds(r, 10.5, 8.5, -3.5, -3.5));
}

TEST(AlignedDblRect, Translates) {
    AlignedDblRect r = kBox;
    EXPECT_EQ(&r.Translate(DblPt(1.0, -1.0)), &r);
    EXPECT_TRUE(Holds(r, 3.0, 0.0, 6.0, 3.0));
    EXPECT_EQ(&r.Translate(-3.0, 10.0), &r);
    EXPECT_TRUE(Holds(r, 0.0, 10.0, 3.0, 13.0));
}

TEST(AlignedDblRect, ContainsPointsOnItsEdgesAndWithinTheTolerance) {
    EXPECT_TRUE(kBox.Contains(DblPt(5.0, 4.0), 0.0));
    EXPECT_TRUE(kBox.Contains(DblPt(2.0, 1.0), 0.0));
    EXPECT_TRUE(kBox.Contains(3.0, 3.0, 0.0));
    EXPECT_FALSE(kBox.Contains(DblPt(5.1, 4.0), 0.05));
    EXPECT_TRUE(kBox.Contains(DblPt(5.1, 4.0), 0.1));

    const struct {
        double x;
        double y;
    } outside[] = {{1.5, 2.0}, {5.5, 2.0}, {3.0, 0.5}, {3.0, 4.5}};
    for (const auto& p : outside) {
        EXPECT_FALSE(kBox.Contains(p.x, p.y, 0.0));
        EXPECT_FALSE(kBox.Contains(p.x, p.y, 0.25));
        EXPECT_TRUE(kBox.Contains(p.x, p.y, 0.5));
        EXPECT_FALSE(kBox.Contains(DblPt(p.x, p.y), 0.25));
        EXPECT_TRUE(kBox.Contains(DblPt(p.x, p.y), 0.5));
    }
}

TEST(AlignedDblRect, ANegativeToleranceShrinksTheBox) {
    EXPECT_FALSE(kBox.Contains(5.0, 2.0, -0.5));
    EXPECT_TRUE(kBox.Contains(4.5, 2.0, -0.5));
    EXPECT_FALSE(kBox.Contains(2.0, 2.0, -0.5));
    EXPECT_TRUE(kBox.Contains(2.5, 2.0, -0.5));
}

TEST(AlignedDblRect, TheToleranceGoesToThePoint) {
    // Each is the other way round where the tolerance is added to the sides: the sums round differently.
    EXPECT_FALSE(AlignedDblRect(0.8, 0.0, 9.0, 1.0).Contains(-2.2, 0.0, 3.0));
    EXPECT_FALSE(AlignedDblRect(0.0, 0.8, 1.0, 9.0).Contains(0.0, -2.2, 3.0));
    EXPECT_TRUE(AlignedDblRect(-9.0, 0.0, -2.5, 1.0).Contains(0.8, 0.0, 3.3));
    EXPECT_TRUE(AlignedDblRect(0.0, -9.0, 1.0, -2.5).Contains(0.0, 0.8, 3.3));
}

TEST(AlignedDblRect, TheToleranceOfDisjointBoxesGoesToTheOther) {
    EXPECT_TRUE(AlignedDblRect(0.0, -5.8, 1.0, 9.0).IsDisjointFrom(AlignedDblRect(0.0, -99.0, 1.0, -8.9), 3.1));
    EXPECT_TRUE(AlignedDblRect(-5.8, 0.0, 9.0, 1.0).IsDisjointFrom(AlignedDblRect(-99.0, 0.0, -8.9, 1.0), 3.1));
    EXPECT_FALSE(AlignedDblRect(0.0, -99.0, 1.0, -9.8).IsDisjointFrom(AlignedDblRect(0.0, -6.0, 1.0, 9.0), 3.8));
    EXPECT_FALSE(AlignedDblRect(-99.0, 0.0, -9.8, 1.0).IsDisjointFrom(AlignedDblRect(-6.0, 0.0, 9.0, 1.0), 3.8));
}

TEST(AlignedDblRect, ContainsNoNaN) {
    EXPECT_FALSE(kBox.Contains(kNaN, 2.0, 1.0));
    EXPECT_FALSE(kBox.Contains(3.0, kNaN, 1.0));
    EXPECT_FALSE(kBox.Contains(3.0, 2.0, kNaN));
}

TEST(AlignedDblRect, ContainsRectanglesOfPositiveSize) {
    EXPECT_TRUE(kBox.Contains(kBox));
    EXPECT_TRUE(kBox.Contains(AlignedDblRect(3.0, 2.0, 4.0, 3.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(2.0, 1.0, 2.0, 4.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(2.0, 1.0, 5.0, 1.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(3.0, 3.0, 3.0, 3.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(1.5, 2.0, 4.0, 3.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(3.0, 0.5, 4.0, 3.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(3.0, 2.0, 5.5, 3.0)));
    EXPECT_FALSE(kBox.Contains(AlignedDblRect(3.0, 2.0, 4.0, 4.5)));
    AlignedDblRect crossedInside;
    crossedInside.TSet(4.0, 3.0, 3.0, 2.0);
    EXPECT_FALSE(kBox.Contains(crossedInside));
}

TEST(AlignedDblRect, TouchingBoxesAreNotDisjoint) {
    const AlignedDblRect touching[] = {AlignedDblRect(0.0, 0.0, 2.0, 9.0), AlignedDblRect(5.0, 0.0, 9.0, 9.0),
                                       AlignedDblRect(0.0, 0.0, 9.0, 1.0), AlignedDblRect(0.0, 4.0, 9.0, 9.0)};
    const AlignedDblRect apart[] = {AlignedDblRect(0.0, 0.0, 1.5, 9.0), AlignedDblRect(5.5, 0.0, 9.0, 9.0),
                                    AlignedDblRect(0.0, 0.0, 9.0, 0.5), AlignedDblRect(0.0, 4.5, 9.0, 9.0)};
    for (const AlignedDblRect& r : touching) {
        EXPECT_FALSE(kBox.IsDisjointFrom(r));
        EXPECT_FALSE(kBox.IsDisjointFrom(r, 0.0));
        EXPECT_TRUE(kBox.IsDisjointFrom(r, -0.25));
    }
    for (const AlignedDblRect& r : apart) {
        EXPECT_TRUE(kBox.IsDisjointFrom(r));
        EXPECT_TRUE(kBox.IsDisjointFrom(r, 0.25));
        EXPECT_FALSE(kBox.IsDisjointFrom(r, 0.5));
    }
    EXPECT_FALSE(kBox.IsDisjointFrom(AlignedDblRect(3.0, 2.0, 4.0, 3.0)));
}

bool Crosses(double ax, double ay, double bx, double by) {
    return kBox.IsIntersectedByLine(DblPt(ax, ay), DblPt(bx, by));
}

TEST(AlignedDblRect, SegmentsThatCross) {
    EXPECT_TRUE(Crosses(0.0, 2.5, 7.0, 2.5));   // rightwards
    EXPECT_TRUE(Crosses(3.5, 0.0, 3.5, 5.0));   // upwards
    EXPECT_TRUE(Crosses(4.0, 2.5, 0.0, 2.5));   // leftwards from inside
    EXPECT_TRUE(Crosses(5.0, 2.0, 9.0, 2.0));   // from the right side outwards
    EXPECT_TRUE(Crosses(0.0, 2.5, 2.0, 2.5));   // up to the left side
    EXPECT_TRUE(Crosses(0.0, 1.0, 7.0, 1.0));   // along the bottom
    EXPECT_FALSE(Crosses(0.0, 3.0, 3.0, 9.0));  // past the upper-left corner
}

TEST(AlignedDblRect, TheDirectionOfTheSegmentMatters) {
    EXPECT_TRUE(Crosses(3.5, 0.0, 3.5, 5.0));
    EXPECT_FALSE(Crosses(3.5, 5.0, 3.5, 0.0));
    EXPECT_TRUE(Crosses(0.0, 2.5, 7.0, 2.5));
    EXPECT_FALSE(Crosses(7.0, 2.5, 0.0, 2.5));
    EXPECT_FALSE(Crosses(0.0, 4.0, 7.0, 4.0));  // along the top, unlike along the bottom
}

TEST(AlignedDblRect, OfTwoOppositeCornersOneMayLieOnTheLine) {
    EXPECT_TRUE(Crosses(5.0, 4.0, 4.0, 5.0));   // from the upper-right corner
    EXPECT_FALSE(Crosses(2.0, 1.0, 1.0, 2.0));  // from the lower-left corner
}

TEST(AlignedDblRect, OnlyTheStartIsHeldAgainstTheRightSide) {
    EXPECT_FALSE(Crosses(6.0, 2.0, 3.0, 2.0));
    EXPECT_FALSE(Crosses(6.0, 2.0, 8.0, 2.1));
    EXPECT_TRUE(Crosses(3.0, 2.0, 6.0, 2.0));
}

TEST(AlignedDblRect, SegmentsWhollyOnOneSideDoNotCrossThoughTheirLinesDo) {
    EXPECT_FALSE(Crosses(3.0, 5.0, 3.2, 6.0));   // above
    EXPECT_TRUE(Crosses(3.0, 4.0, 3.2, 6.0));    // from the top edge
    EXPECT_FALSE(Crosses(3.0, -1.0, 3.2, 0.0));  // below
    EXPECT_TRUE(Crosses(3.0, -1.0, 3.2, 1.0));   // up to the bottom edge
    EXPECT_FALSE(Crosses(0.0, 2.0, 1.0, 2.1));   // left
    EXPECT_TRUE(Crosses(0.0, 2.0, 2.0, 2.1));    // up to the left edge
}

TEST(AlignedDblRect, SlantedSegmentsThatCutOneCorner) {
    const AlignedDblRect wide(2.0, 1.0, 8.0, 4.0);
    const struct {
        DblPt from;
        DblPt to;
        bool forth;
        bool back;
    } expected[] = {
        {{1.0, 2.5}, {5.0, 5.0}, true, false},   // upper-left
        {{4.0, 0.0}, {1.0, 3.0}, true, false},   // lower-left
        {{8.0, 3.0}, {6.0, 5.0}, true, false},   // upper-right
        {{5.0, 0.0}, {9.0, 3.0}, true, false},   // lower-right
        {{1.0, 3.0}, {4.0, 6.0}, false, false},  // through the upper-left corner itself
        {{3.0, 0.0}, {1.0, 2.0}, false, false},  // the lower-left
        {{8.0, 4.0}, {6.0, 5.0}, true, false},   // the upper-right
        {{7.5, 0.0}, {8.5, 2.0}, true, false},   // the lower-right
    };
    for (const auto& e : expected) {
        EXPECT_EQ(wide.IsIntersectedByLine(e.from, e.to), e.forth) << e.from.x << ", " << e.from.y;
        EXPECT_EQ(wide.IsIntersectedByLine(e.to, e.from), e.back) << e.from.x << ", " << e.from.y;
    }
}

TEST(AlignedDblRect, OneEndBeyondASideOrOnItDoesNotSettleTheMatter) {
    const AlignedDblRect wide(2.0, 1.0, 8.0, 4.0);
    EXPECT_TRUE(wide.IsIntersectedByLine(DblPt(0.0, 4.25), DblPt(10.0, 2.0)));  // from above the top
    EXPECT_TRUE(wide.IsIntersectedByLine(DblPt(8.0, 3.0), DblPt(6.0, 5.0)));    // to above the top
    EXPECT_TRUE(wide.IsIntersectedByLine(DblPt(8.0, 4.0), DblPt(0.0, 4.0)));    // along the top
    EXPECT_TRUE(wide.IsIntersectedByLine(DblPt(4.0, 0.0), DblPt(1.0, 3.0)));    // from below the bottom
    EXPECT_TRUE(wide.IsIntersectedByLine(DblPt(0.0, 1.0), DblPt(9.0, 1.0)));    // along the bottom
    EXPECT_TRUE(wide.IsIntersectedByLine(DblPt(1.0, 2.5), DblPt(5.0, 5.0)));    // from left of the left side
    EXPECT_TRUE(Crosses(3.0, 3.5, 40.0, 0.0));  // to below the bottom, far beyond the right side
}

TEST(AlignedDblRect, HasVertexKnowsTheStoredCornersOnly) {
    EXPECT_TRUE(kBox.HasVertex(DblPt(2.0, 1.0)));
    EXPECT_TRUE(kBox.HasVertex(DblPt(5.0, 4.0)));
    EXPECT_FALSE(kBox.HasVertex(DblPt(2.0, 4.0)));
    EXPECT_FALSE(kBox.HasVertex(DblPt(5.0, 1.0)));
    EXPECT_FALSE(kBox.HasVertex(DblPt(2.0, 1.0000001)));
}

TEST(AlignedDblRect, HandlesAndTheirPositions) {
    const struct {
        int handle;
        double x;
        double y;
    } expected[] = {{0, 2.0, 4.0}, {1, 3.5, 4.0}, {2, 5.0, 4.0}, {3, 2.0, 2.5}, {4, 3.5, 2.5},
                    {5, 5.0, 2.5}, {6, 2.0, 1.0}, {7, 3.5, 1.0}, {8, 5.0, 1.0}};
    for (const auto& e : expected) {
        DblPt p(-1.0, -1.0);
        kBox.GetVertex(static_cast<EntityHandle>(e.handle), p);
        EXPECT_TRUE(IsAt(p, e.x, e.y)) << e.handle;
        EntityHandle h = HandleNone;
        kBox.GetVertexEnum(h, p);
        EXPECT_EQ(int{h}, e.handle);
    }
}

TEST(AlignedDblRect, OtherHandlesAreAtTheOrigin) {
    for (const int handle : {-1, 9, 10, 11, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        DblPt p(-1.0, -1.0);
        kBox.GetVertex(static_cast<EntityHandle>(handle), p);
        EXPECT_TRUE(IsAt(p, 0.0, 0.0)) << handle;
    }
}

int HandleAt(const AlignedDblRect& r, double x, double y) {
    EntityHandle h = HandleUpperLeft;
    r.GetVertexEnum(h, DblPt(x, y));
    return h;
}

TEST(AlignedDblRect, PointsOffTheHandlesHaveNone) {
    EXPECT_EQ(HandleAt(kBox, 3.0, 3.0), 10);
    EXPECT_EQ(HandleAt(kBox, 2.0, 3.0), 10);
    EXPECT_EQ(HandleAt(kBox, 3.0, 4.0), 10);
    EXPECT_EQ(HandleAt(kBox, kNaN, kNaN), 10);
}

TEST(AlignedDblRect, HandlesThatCoincideAreTriedEndsFirst) {
    EXPECT_EQ(HandleAt(AlignedDblRect(), 0.0, 0.0), 0);
    EXPECT_EQ(HandleAt(AlignedDblRect(2.0, 1.0, 2.0, 5.0), 2.0, 3.0), 3);
    EXPECT_EQ(HandleAt(AlignedDblRect(2.0, 1.0, 6.0, 1.0), 4.0, 1.0), 1);
    // The centre rounds to the bottom here, and to the right below.
    EXPECT_EQ(HandleAt(AlignedDblRect(0.0, 0.0, 10.0, 5e-324), 0.0, 0.0), 6);
    const double one = std::nextafter(1.0, 2.0);
    const double two = std::nextafter(one, 2.0);
    ASSERT_EQ(AlignedDblRect(one, 0.0, two, 10.0).CenterX(), two);
    EXPECT_EQ(HandleAt(AlignedDblRect(one, 0.0, two, 10.0), two, 10.0), 2);
}

TEST(AlignedDblRect, OpposingCorners) {
    const struct {
        DblPt corner;
        DblPt diagonal;
        DblPt horizontal;
        DblPt vertical;
    } expected[] = {
        {{2.0, 1.0}, {5.0, 4.0}, {5.0, 1.0}, {2.0, 4.0}},
        {{2.0, 4.0}, {5.0, 1.0}, {5.0, 4.0}, {2.0, 1.0}},
        {{5.0, 4.0}, {2.0, 1.0}, {2.0, 4.0}, {5.0, 1.0}},
        {{5.0, 1.0}, {2.0, 4.0}, {2.0, 1.0}, {5.0, 4.0}},
    };
    for (const auto& e : expected) {
        DblPt out;
        kBox.GetOpposingDiagCorner(e.corner, out);
        EXPECT_TRUE(IsAt(out, e.diagonal.x, e.diagonal.y));
        kBox.GetOpposingHorzCorner(e.corner, out);
        EXPECT_TRUE(IsAt(out, e.horizontal.x, e.horizontal.y));
        kBox.GetOpposingVertCorner(e.corner, out);
        EXPECT_TRUE(IsAt(out, e.vertical.x, e.vertical.y));

        DblPt own = e.corner;
        kBox.GetOpposingDiagCorner(own, own);
        EXPECT_TRUE(IsAt(own, e.diagonal.x, e.diagonal.y));
    }
}

TEST(AlignedDblRect, ANonCornerHasADiagonalOnly) {
    for (const DblPt& p : {DblPt(3.5, 4.0), DblPt(2.0, 3.0), DblPt(9.0, 9.0), DblPt(2.0, 5.0), DblPt(1.0, 4.0)}) {
        DblPt out(-7.0, -8.0);
        kBox.GetOpposingHorzCorner(p, out);
        EXPECT_TRUE(IsAt(out, -7.0, -8.0));
        kBox.GetOpposingVertCorner(p, out);
        EXPECT_TRUE(IsAt(out, -7.0, -8.0));
        kBox.GetOpposingDiagCorner(p, out);
        EXPECT_TRUE(IsAt(out, p.x, p.y));
    }
}

TEST(AlignedDblRect, ClosestPointOfTheBoundary) {
    const AlignedDblRect box(0.0, 0.0, 10.0, 6.0);
    const struct {
        DblPt p;
        DblPt closest;
    } expected[] = {
        {{1.0, 3.0}, {0.0, 3.0}},   {{5.0, 5.0}, {5.0, 6.0}},   {{9.0, 3.0}, {10.0, 3.0}},  {{5.0, 1.0}, {5.0, 0.0}},
        {{-4.0, 3.0}, {0.0, 3.0}},  {{5.0, 9.0}, {5.0, 6.0}},   {{14.0, 3.0}, {10.0, 3.0}}, {{5.0, -2.0}, {5.0, 0.0}},
        {{-1.0, -1.0}, {0.0, 0.0}}, {{12.0, 9.0}, {10.0, 6.0}}, {{4.0, 6.0}, {4.0, 6.0}},
    };
    for (const auto& e : expected) {
        DblPt out;
        box.ClosestPt(e.p, out);
        EXPECT_TRUE(IsAt(out, e.closest.x, e.closest.y));
        DblPt own = e.p;
        box.ClosestPt(own, own);
        EXPECT_TRUE(IsAt(own, e.closest.x, e.closest.y));
    }
}

TEST(AlignedDblRect, TiesGoToTheEarlierSide) {
    const AlignedDblRect square(0.0, 0.0, 2.0, 2.0);
    DblPt out;
    square.ClosestPt(DblPt(1.0, 1.0), out);
    EXPECT_TRUE(IsAt(out, 0.0, 1.0));  // all four: left
    square.ClosestPt(DblPt(1.5, 1.5), out);
    EXPECT_TRUE(IsAt(out, 1.5, 2.0));  // top before right
    square.ClosestPt(DblPt(1.5, 0.5), out);
    EXPECT_TRUE(IsAt(out, 2.0, 0.5));  // right before bottom
    square.ClosestPt(DblPt(0.5, 0.5), out);
    EXPECT_TRUE(IsAt(out, 0.0, 0.5));  // left before bottom
    square.ClosestPt(DblPt(0.5, 1.5), out);
    EXPECT_TRUE(IsAt(out, 0.0, 1.5));  // left before top
    AlignedDblRect(0.0, 0.0, 8.0, 2.0).ClosestPt(DblPt(4.0, 1.0), out);
    EXPECT_TRUE(IsAt(out, 4.0, 2.0));  // top before bottom
}

TEST(AlignedDblRect, TheClosestSideIsFoundByTheExactDistance) {
    // Two distances that differ in the last bit, which the octagonal estimate loses.
    const double nearer = 1.625;
    const double further = std::nextafter(nearer, 2.0);
    ASSERT_EQ(0.96 * nearer, 0.96 * further);
    DblPt out;
    AlignedDblRect(0.0, -10.0, 20.0, 0.0).ClosestPt(DblPt(further, -nearer), out);
    EXPECT_TRUE(IsAt(out, further, 0.0));  // top, though left comes first
    AlignedDblRect(0.0, -10.0, 20.0, 0.0).ClosestPt(DblPt(nearer, -further), out);
    EXPECT_TRUE(IsAt(out, 0.0, -further));  // left
    AlignedDblRect(-20.0, -10.0, 0.0, 0.0).ClosestPt(DblPt(-nearer, -further), out);
    EXPECT_TRUE(IsAt(out, 0.0, -further));  // right, though top comes first
    AlignedDblRect(-20.0, 0.0, 0.0, 10.0).ClosestPt(DblPt(-further, nearer), out);
    EXPECT_TRUE(IsAt(out, -further, 0.0));  // bottom, though right comes first
}

TEST(AlignedDblRect, ClosestPointOfABoxAwayFromTheOrigin) {
    const AlignedDblRect box(30.0, -7.0, 40.0, 5.0);
    const struct {
        DblPt p;
        DblPt closest;
    } expected[] = {
        {{31.0, 0.5}, {30.0, 0.5}},   {{34.0, 4.5}, {34.0, 5.0}},    {{39.5, -1.0}, {40.0, -1.0}},
        {{36.0, -6.0}, {36.0, -7.0}}, {{27.0, -11.0}, {30.0, -7.0}}, {{28.0, 9.0}, {30.0, 5.0}},
        {{43.0, 9.0}, {40.0, 5.0}},   {{44.0, -10.0}, {40.0, -7.0}}, {{0.0, 0.0}, {30.0, 0.0}},
    };
    for (const auto& e : expected) {
        DblPt out;
        box.ClosestPt(e.p, out);
        EXPECT_TRUE(IsAt(out, e.closest.x, e.closest.y));
    }
}

TEST(AlignedDblRect, ClosestPointMayOverwriteACorner) {
    AlignedDblRect r(0.5, 0.0, 3.0, 2.0);
    r.ClosestPt(DblPt(1.0, 1.0), r.LL());
    EXPECT_TRUE(IsAt(r.ll, 0.5, 1.0));
}

TEST(AlignedDblRect, TransformParams) {
    double scaleX = 0.0;
    double scaleY = 0.0;
    double offsetX = 0.0;
    double offsetY = 0.0;
    AlignedDblRect(0.0, 0.0, 2.0, 4.0)
        .GetTransformParams(AlignedDblRect(10.0, 10.0, 14.0, 30.0), scaleX, scaleY, offsetX, offsetY);
    EXPECT_EQ(scaleX, 2.0);
    EXPECT_EQ(scaleY, 5.0);
    EXPECT_EQ(offsetX, 11.0);
    EXPECT_EQ(offsetY, 18.0);

    AlignedDblRect(1.0, 1.0, 1.0, 3.0).GetTransformParams(kBox, scaleX, scaleY, offsetX, offsetY);
    EXPECT_EQ(scaleX, 1.0);
    EXPECT_EQ(scaleY, 1.5);
    AlignedDblRect(1.0, 1.0, 3.0, 1.0).GetTransformParams(kBox, scaleX, scaleY, offsetX, offsetY);
    EXPECT_EQ(scaleX, 1.5);
    EXPECT_EQ(scaleY, 1.0);
    kBox.GetTransformParams(AlignedDblRect(), scaleX, scaleY, offsetX, offsetY);
    EXPECT_EQ(scaleX, 0.0);
    EXPECT_EQ(scaleY, 0.0);
    EXPECT_EQ(offsetX, -3.5);
    EXPECT_EQ(offsetY, -2.5);

    Crossed().GetTransformParams(AlignedDblRect(10.0, 20.0, 22.0, 26.0), scaleX, scaleY, offsetX, offsetY);
    EXPECT_EQ(scaleX, 4.0);
    EXPECT_EQ(scaleY, 2.0);
    EXPECT_EQ(offsetX, 12.5);
    EXPECT_EQ(offsetY, 20.5);
}

TEST(AlignedDblRect, TransformParamsReadTheBoxesFirst) {
    AlignedDblRect target(10.0, 10.0, 14.0, 30.0);
    AlignedDblRect(0.0, 0.0, 2.0, 4.0).GetTransformParams(target, target.ll.x, target.ll.y, target.ur.x, target.ur.y);
    EXPECT_TRUE(Holds(target, 2.0, 5.0, 11.0, 18.0));
}

TEST(AlignedDblRect, TransformMapsTheTwoStoredCornersOnly) {
    Mtx2D m;
    m.m11 = 1.0;
    m.m12 = 1.0;
    m.m21 = -1.0;
    m.m22 = 1.0;
    m.SetType();

    // The bounding box of the turned unit square would be two wide.
    AlignedDblRect square(0.0, 0.0, 1.0, 1.0);
    square.ApplyTransform(&m);
    EXPECT_TRUE(Holds(square, 0.0, 0.0, 0.0, 2.0));

    AlignedDblRect box(1.0, 2.0, 3.0, 5.0);
    box.ApplyTransform(&m);
    EXPECT_TRUE(Holds(box, -2.0, 3.0, -1.0, 8.0));
}

TEST(AlignedDblRect, TransformOrdersTheImages) {
    Mtx2D m;
    m.Scale(-2.0, -3.0);
    m.Translate(10.0, 20.0);
    AlignedDblRect box = kBox;
    box.ApplyTransform(&m);
    EXPECT_TRUE(Holds(box, 0.0, 8.0, 6.0, 17.0));
}

TEST(AlignedDblRect, CloneIsACopyOfTheSameType) {
    const AlignedDblRect crossed = Crossed();
    const std::unique_ptr<ClosedShape> clone(crossed.Clone());
    ASSERT_NE(clone, nullptr);
    const ClosedShape& shape = *clone;
    ASSERT_EQ(typeid(shape), typeid(AlignedDblRect));
    EXPECT_NE(clone.get(), &crossed);
    EXPECT_TRUE(Holds(static_cast<const AlignedDblRect&>(shape), 5.0, 4.0, 2.0, 1.0));
}

TEST(AlignedDblRect, CloneIsNullWithoutMemory) {
    const ClosedShape* clone = &kBox;
    size_t requests = 0;
    {
        const support::AllocationGuard guard(0);
        clone = kBox.Clone();
        requests = guard.Requests();
    }
    EXPECT_EQ(clone, nullptr);
    EXPECT_EQ(requests, 1u);
}

TEST(AlignedDblRect, PrintsAnInitialiserLineByLine) {
    support::TakeDebugTexts();
    AlignedDblRect(2.0, -1.25, 5.0, 4.0).Print();
    const std::vector<std::string> expected = {"DblPt rect[2] = {\n", "DblPt(2.000000, -1.250000),\n",
                                               "DblPt(5.000000, 4.000000)\n", "};\n\n"};
    EXPECT_EQ(support::TakeDebugTexts(), expected);
}

TEST(AlignedDblRect, AssigningTheBaseCopiesNothing) {
    AlignedDblRect r = kBox;
    ClosedShape& base = r;
    EXPECT_EQ(&(base = Crossed()), &base);
    EXPECT_TRUE(Holds(r, 2.0, 1.0, 5.0, 4.0));
    Vellum::Shape& root = r;
    EXPECT_EQ(&(root = Crossed()), &root);
    EXPECT_TRUE(Holds(r, 2.0, 1.0, 5.0, 4.0));
}

}  // namespace
