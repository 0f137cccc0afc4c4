// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "support/allocation_guard.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"
#include "support/vtable.h"
#include "vellum/matrix.h"
#include "vellum/rectangles.h"

// Both compilers lay a polymorphic class out as offsetof says, which the standard only permits.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

using support::IsAt;
using support::VtableSlot;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::Mtx2D;

static_assert(sizeof(void*) != 8 || sizeof(DblRect) == 72);
static_assert(offsetof(DblRect, p0) == 8 && offsetof(DblRect, p1) == 24 && offsetof(DblRect, p2) == 40 &&
              offsetof(DblRect, p3) == 56);
static_assert(std::is_base_of_v<ClosedShape, DblRect>);

testing::AssertionResult Holds(const DblRect& r, const DblPt& p0, const DblPt& p1, const DblPt& p2, const DblPt& p3) {
    const DblPt* held[] = {&r.p0, &r.p1, &r.p2, &r.p3};
    const DblPt* expected[] = {&p0, &p1, &p2, &p3};
    for (int i = 0; i < 4; ++i) {
        const auto result = IsAt(*held[i], expected[i]->x, expected[i]->y);
        if (!result) return testing::AssertionFailure() << "corner " << i << ": " << result.message();
    }
    return testing::AssertionSuccess();
}

const DblPt kLeft(0.0, 1.0);
const DblPt kTop(1.0, 2.0);
const DblPt kRight(2.0, 1.0);
const DblPt kBottom(1.0, 0.0);
const DblRect kDiamond(kLeft, kTop, kRight, kBottom);

TEST(DblRect, VirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(VtableSlot(&DblRect::Clone), 2);
    EXPECT_EQ(VtableSlot(&DblRect::Print), 3);
    EXPECT_EQ(VtableSlot(static_cast<bool (DblRect::*)(const DblPt&, double) const>(&DblRect::Contains)), 4);
    EXPECT_EQ(VtableSlot(static_cast<bool (DblRect::*)(double, double, double) const>(&DblRect::Contains)), 5);
    EXPECT_EQ(VtableSlot(&DblRect::GetCentroid), 6);
    EXPECT_EQ(VtableSlot(&DblRect::ApplyTransform), 7);
}

TEST(DblRect, StartsAsTheOrigin) { EXPECT_TRUE(Holds(DblRect(), {}, {}, {}, {})); }

TEST(DblRect, FourPointsInAnyOrderAreChosenByTheirExtremes) {
    int order[] = {0, 1, 2, 3};
    const DblPt corners[] = {kLeft, kTop, kRight, kBottom};
    do {
        const DblPt& a = corners[order[0]];
        const DblPt& b = corners[order[1]];
        const DblPt& c = corners[order[2]];
        const DblPt& d = corners[order[3]];
        EXPECT_TRUE(Holds(DblRect(a, b, c, d), kLeft, kTop, kRight, kBottom));
        EXPECT_TRUE(Holds(DblRect(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y), kLeft, kTop, kRight, kBottom));
        DblRect r;
        r.Set(a, b, c, d);
        EXPECT_TRUE(Holds(r, kLeft, kTop, kRight, kBottom));
        DblRect loose;
        loose.Set(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y);
        EXPECT_TRUE(Holds(loose, kLeft, kTop, kRight, kBottom));
    } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST(DblRect, OnEqualCoordinatesTheLaterPointWins) {
    const DblPt ll(0.0, 0.0);
    const DblPt ul(0.0, 1.0);
    const DblPt ur(1.0, 1.0);
    const DblPt lr(1.0, 0.0);
    EXPECT_TRUE(Holds(DblRect(ll, ul, ur, lr), ul, ur, lr, lr));
    EXPECT_TRUE(Holds(DblRect(lr, ur, ul, ll), ll, ul, ur, ll));
    EXPECT_TRUE(Holds(DblRect(ur, ll, lr, ul), ul, ul, lr, lr));
    EXPECT_TRUE(Holds(DblRect(ul, lr, ll, ur), ll, ur, ur, ll));
}

TEST(DblRect, TwoPointsGiveAnAlignedRectangleInTheirOrder) {
    EXPECT_TRUE(Holds(DblRect(DblPt(0.0, 0.0), DblPt(2.0, 3.0)), {0.0, 0.0}, {0.0, 3.0}, {2.0, 3.0}, {2.0, 0.0}));
    EXPECT_TRUE(Holds(DblRect(DblPt(2.0, 2.0), DblPt(0.0, 0.0)), {2.0, 2.0}, {2.0, 0.0}, {0.0, 0.0}, {0.0, 2.0}));
}

TEST(DblRect, SetExchangesTwoPointsOnlyWhereTheFirstDominates) {
    DblRect r;
    r.Set(DblPt(2.0, 2.0), DblPt(0.0, 0.0));
    EXPECT_TRUE(Holds(r, {0.0, 0.0}, {0.0, 2.0}, {2.0, 2.0}, {2.0, 0.0}));
    r.Set(DblPt(0.0, 0.0), DblPt(2.0, 3.0));
    EXPECT_TRUE(Holds(r, {0.0, 0.0}, {0.0, 3.0}, {2.0, 3.0}, {2.0, 0.0}));
    r.Set(DblPt(2.0, 0.0), DblPt(0.0, 3.0));
    EXPECT_TRUE(Holds(r, {2.0, 0.0}, {2.0, 3.0}, {0.0, 3.0}, {0.0, 0.0}));
    r.Set(DblPt(2.0, 3.0), DblPt(2.0, 0.0));
    EXPECT_TRUE(Holds(r, {2.0, 3.0}, {2.0, 0.0}, {2.0, 0.0}, {2.0, 3.0}));
    r.Set(DblPt(2.0, 3.0), DblPt(0.0, 3.0));
    EXPECT_TRUE(Holds(r, {2.0, 3.0}, {2.0, 3.0}, {0.0, 3.0}, {0.0, 3.0}));
}

TEST(DblRect, SettersReadTheirArgumentsFirst) {
    DblRect r(DblPt(0.0, 0.0), DblPt(2.0, 3.0));
    r.Set(r.p2, r.p0);
    EXPECT_TRUE(Holds(r, {0.0, 0.0}, {0.0, 3.0}, {2.0, 3.0}, {2.0, 0.0}));
    DblRect diamond(kDiamond);
    diamond.p0 = kBottom;
    diamond.p1 = kRight;
    diamond.p2 = kTop;
    diamond.p3 = kLeft;
    diamond.Set(diamond.p0, diamond.p1, diamond.p2, diamond.p3);
    EXPECT_TRUE(Holds(diamond, kLeft, kTop, kRight, kBottom));
}

TEST(DblRect, CopiesItsCorners) {
    EXPECT_TRUE(Holds(DblRect(kDiamond), kLeft, kTop, kRight, kBottom));
    DblRect r;
    EXPECT_EQ(&(r = kDiamond), &r);
    EXPECT_TRUE(Holds(r, kLeft, kTop, kRight, kBottom));
}

TEST(DblRect, GetPtFallsBackToTheFirstCorner) {
    DblRect r = kDiamond;
    EXPECT_EQ(&r.GetPt(0), &r.p0);
    EXPECT_EQ(&r.GetPt(1), &r.p1);
    EXPECT_EQ(&r.GetPt(2), &r.p2);
    EXPECT_EQ(&r.GetPt(3), &r.p3);
    EXPECT_EQ(&r.GetPt(4), &r.p0);
    EXPECT_EQ(&r.GetPt(7), &r.p0);
    EXPECT_EQ(&kDiamond.GetPt(0), &kDiamond.p0);
    EXPECT_EQ(&kDiamond.GetPt(1), &kDiamond.p1);
    EXPECT_EQ(&kDiamond.GetPt(2), &kDiamond.p2);
    EXPECT_EQ(&kDiamond.GetPt(3), &kDiamond.p3);
    EXPECT_EQ(&kDiamond.GetPt(std::numeric_limits<unsigned>::max()), &kDiamond.p0);
}

TEST(DblRect, Accessors) {
    EXPECT_EQ(kDiamond.Left(), 0.0);
    EXPECT_EQ(kDiamond.Top(), 2.0);
    EXPECT_EQ(kDiamond.Right(), 2.0);
    EXPECT_EQ(kDiamond.Bottom(), 0.0);
    EXPECT_EQ(kDiamond.Width(), 2.0);
    EXPECT_EQ(kDiamond.Height(), 2.0);

    // The corners as they stand, whatever their order.
    const DblRect turned(DblPt(9.0, 2.0), DblPt(1.0, 5.0));
    EXPECT_EQ(turned.Left(), 9.0);
    EXPECT_EQ(turned.Top(), 5.0);
    EXPECT_EQ(turned.Right(), 1.0);
    EXPECT_EQ(turned.Bottom(), 2.0);
    EXPECT_EQ(turned.Width(), 8.0);
    EXPECT_EQ(turned.Height(), 3.0);
}

TEST(DblRect, TheCentroidIsTheMeanOfTheCorners) {
    DblPt p;
    kDiamond.GetCentroid(p);
    EXPECT_TRUE(IsAt(p, 1.0, 1.0));
    DblRect r;
    r.p0.Set(1.0, 10.0);
    r.p1.Set(2.0, 20.0);
    r.p2.Set(4.0, 40.0);
    r.p3.Set(8.0, 80.0);
    r.GetCentroid(p);
    EXPECT_TRUE(IsAt(p, 3.75, 37.5));

    // Summed from the first corner on, the first 1 is lost in 1e16 and the second is not.
    r.p0.Set(1e16, -1e16);
    r.p1.Set(1.0, 1.0);
    r.p2.Set(-1e16, 1e16);
    r.p3.Set(1.0, 1.0);
    r.GetCentroid(p);
    EXPECT_TRUE(IsAt(p, 0.25, 0.25));
}

TEST(DblRect, ToRealRectTKeepsTheOrder) {
    real_rect_t record = {};
    kDiamond.ToRealRectT(record);
    EXPECT_TRUE(IsAt(DblPt(record.ll.x, record.ll.y), 0.0, 1.0));
    EXPECT_TRUE(IsAt(DblPt(record.ul.x, record.ul.y), 1.0, 2.0));
    EXPECT_TRUE(IsAt(DblPt(record.ur.x, record.ur.y), 2.0, 1.0));
    EXPECT_TRUE(IsAt(DblPt(record.lr.x, record.lr.y), 1.0, 0.0));
}

TEST(DblRect, IsEqualToIsStrictOnEachCoordinate) {
    EXPECT_TRUE(kDiamond.IsEqualTo(kDiamond, 1e-300));
    EXPECT_FALSE(kDiamond.IsEqualTo(kDiamond, 0.0));
    for (unsigned i = 0; i < 4; ++i) {
        DblRect r = kDiamond;
        r.GetPt(i).x += 0.5;
        EXPECT_FALSE(kDiamond.IsEqualTo(r, 0.5));
        EXPECT_TRUE(kDiamond.IsEqualTo(r, 0.75));
        r = kDiamond;
        r.GetPt(i).y -= 0.5;
        EXPECT_FALSE(kDiamond.IsEqualTo(r, 0.5));
        EXPECT_TRUE(kDiamond.IsEqualTo(r, 0.75));
    }
}

TEST(DblRect, ContainsIgnoresTheTolerance) {
    EXPECT_TRUE(kDiamond.Contains(DblPt(1.0, 1.0), 0.0));
    EXPECT_FALSE(kDiamond.Contains(DblPt(2.5, 1.0), 5.0));
    EXPECT_FALSE(kDiamond.Contains(2.5, 1.0, 5.0));
    EXPECT_TRUE(kDiamond.Contains(1.0, 1.0, -5.0));
    EXPECT_TRUE(kDiamond.Contains(1.0, 1.0, std::numeric_limits<double>::quiet_NaN()));
}

TEST(DblRect, ClockwiseTheRightEdgesAreInsideAndTheLeftOnesNot) {
    EXPECT_FALSE(kDiamond.Contains(0.5, 1.5, 0.0));
    EXPECT_TRUE(kDiamond.Contains(1.5, 1.5, 0.0));
    EXPECT_TRUE(kDiamond.Contains(1.5, 0.5, 0.0));
    EXPECT_FALSE(kDiamond.Contains(0.5, 0.5, 0.0));
    // The corners, from the left one on.
    EXPECT_FALSE(kDiamond.Contains(0.0, 1.0, 0.0));
    EXPECT_FALSE(kDiamond.Contains(1.0, 2.0, 0.0));
    EXPECT_TRUE(kDiamond.Contains(2.0, 1.0, 0.0));
    EXPECT_FALSE(kDiamond.Contains(1.0, 0.0, 0.0));
    // Just beside each edge.
    EXPECT_TRUE(kDiamond.Contains(0.5 + 1e-9, 1.5, 0.0));
    EXPECT_FALSE(kDiamond.Contains(1.5 + 1e-9, 1.5, 0.0));
    EXPECT_FALSE(kDiamond.Contains(1.5 + 1e-9, 0.5, 0.0));
    EXPECT_TRUE(kDiamond.Contains(0.5 + 1e-9, 0.5, 0.0));
    EXPECT_FALSE(kDiamond.Contains(0.5 - 1e-9, 0.5, 0.0));
}

TEST(DblRect, CounterClockwiseTheRightEdgeIsInsideToo) {
    const DblRect r(DblPt(0.0, 2.0), DblPt(2.0, 0.0));
    EXPECT_TRUE(r.Contains(1.0, 1.0, 0.0));
    EXPECT_TRUE(r.Contains(2.0, 1.0, 0.0));
    EXPECT_FALSE(r.Contains(0.0, 1.0, 0.0));
    EXPECT_FALSE(r.Contains(2.5, 1.0, 0.0));
    EXPECT_FALSE(r.Contains(-0.5, 1.0, 0.0));
    // Bottom, and top.
    EXPECT_TRUE(r.Contains(1.0, 0.0, 0.0));
    EXPECT_FALSE(r.Contains(1.0, 2.0, 0.0));
}

TEST(DblRect, ContainsNoNaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(kDiamond.Contains(1.0, nan, 0.0));
    EXPECT_FALSE(kDiamond.Contains(nan, 1.0, 0.0));
}

TEST(DblRect, ContainsARectangleWhoseCornersItContains) {
    DblRect diamond = kDiamond;
    EXPECT_TRUE(diamond.Contains(DblRect(DblPt(0.75, 0.75), DblPt(1.25, 1.25)), 0.0));
    EXPECT_FALSE(diamond.Contains(diamond, 0.0));
    for (unsigned i = 0; i < 4; ++i) {
        DblRect r(DblPt(0.75, 0.75), DblPt(1.25, 1.25));
        r.GetPt(i).Set(9.0, 9.0);
        EXPECT_FALSE(diamond.Contains(r, 0.0));
    }
}

// Answers for points by a rule of its own, and records what it was asked.
class RecordingRect : public DblRect {
public:
    using DblRect::Contains;
    bool Contains(const DblPt& p, double tol) const override {
        asked.push_back(p.x);
        tolerances.push_back(tol);
        return p.x < limit;
    }

    double limit = 0.0;
    mutable std::vector<double> asked;
    mutable std::vector<double> tolerances;
};

TEST(DblRect, ContainsARectangleAsksForItsCornersInOrderUntilOneIsOutside) {
    DblRect r;
    r.p0.x = 1.0;
    r.p1.x = 2.0;
    r.p2.x = 3.0;
    r.p3.x = 4.0;
    RecordingRect asked;
    DblRect& rect = asked;
    asked.limit = 9.0;
    EXPECT_TRUE(rect.Contains(r, 0.25));
    EXPECT_EQ(asked.asked, (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(asked.tolerances, (std::vector<double>(4, 0.25)));
    asked.asked.clear();
    asked.limit = 3.0;
    EXPECT_FALSE(rect.Contains(r, 0.25));
    EXPECT_EQ(asked.asked, (std::vector<double>{1.0, 2.0, 3.0}));
}

// Redefines the test of loose coordinates only.
class LooseRect : public DblRect {
public:
    using DblRect::Contains;
    bool Contains(double x, double y, double tol) const override { return x == 1.0 && y == 2.0 && tol == 3.0; }
};

TEST(DblRect, ContainsAPointAsksForItsCoordinates) {
    const LooseRect r;
    const ClosedShape& shape = r;
    EXPECT_TRUE(shape.Contains(DblPt(1.0, 2.0), 3.0));
    EXPECT_FALSE(shape.Contains(DblPt(2.0, 1.0), 3.0));
}

TEST(DblRect, TransformChoosesTheCornersAnew) {
    Mtx2D m;
    m.m11 = 1.0;
    m.m12 = 1.0;
    m.m21 = -1.0;
    m.m22 = 1.0;
    m.SetType();
    DblRect r(DblPt(0.0, 0.0), DblPt(1.0, 1.0));
    r.ApplyTransform(&m);
    EXPECT_TRUE(Holds(r, {-1.0, 1.0}, {0.0, 2.0}, {1.0, 1.0}, {0.0, 0.0}));
    EXPECT_TRUE(r.Contains(0.0, 1.0, 0.0));

    m.Translate(10.0, 20.0);
    r.ApplyTransform(&m);
    EXPECT_TRUE(Holds(r, {8.0, 22.0}, {10.0, 22.0}, {10.0, 20.0}, {10.0, 20.0}));
}

TEST(DblRect, AnAlignedRectangleLosesACornerInATransform) {
    const Mtx2D identity;
    DblRect r(DblPt(0.0, 0.0), DblPt(1.0, 1.0));
    r.ApplyTransform(&identity);
    EXPECT_TRUE(Holds(r, {0.0, 1.0}, {1.0, 1.0}, {1.0, 0.0}, {1.0, 0.0}));
}

TEST(DblRect, CloneIsACopyOfTheSameType) {
    const std::unique_ptr<ClosedShape> clone(kDiamond.Clone());
    ASSERT_NE(clone, nullptr);
    const ClosedShape& shape = *clone;
    ASSERT_EQ(typeid(shape), typeid(DblRect));
    EXPECT_TRUE(Holds(static_cast<const DblRect&>(shape), kLeft, kTop, kRight, kBottom));
}

TEST(DblRect, CloneIsNullWithoutMemory) {
    const ClosedShape* clone = &kDiamond;
    size_t requests = 0;
    {
        const support::AllocationGuard guard(0);
        clone = kDiamond.Clone();
        requests = guard.Requests();
    }
    EXPECT_EQ(clone, nullptr);
    EXPECT_EQ(requests, 1u);
}

TEST(DblRect, PrintsAnInitialiserWhoseSecondLineLacksItsComma) {
    support::TakeDebugTexts();
    DblRect(DblPt(0.0, 1.5), DblPt(1.0, 2.0), DblPt(2.0, 1.0), DblPt(1.0, -0.125)).Print();
    const std::vector<std::string> expected = {"DblPt rect[4] = {\n",          "DblPt(0.000000, 1.500000),\n",
                                               "DblPt(1.000000, 2.000000)\n",  "DblPt(2.000000, 1.000000),\n",
                                               "DblPt(1.000000, -0.125000)\n", "};\n\n"};
    EXPECT_EQ(support::TakeDebugTexts(), expected);
}

}  // namespace
