// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <memory>
#include <type_traits>
#include <vector>

#include "support/point_checks.h"
#include "support/vtable.h"
#include "vellum/pick_regions.h"

// Both compilers lay a polymorphic class out as offsetof says, which the standard only permits.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"

namespace {

using support::IsAt;
using support::VtableSlot;
using Vellum::AlignedDblRect;
using Vellum::DblPt;
using Vellum::PickRect;
using Vellum::PickRegion;

static_assert(sizeof(PickRegion) == sizeof(void*));
static_assert(sizeof(void*) != 8 || (sizeof(PickRect) == 48 && offsetof(PickRect, box) == 8));
static_assert(std::is_base_of_v<PickRegion, PickRect> && !std::is_base_of_v<AlignedDblRect, PickRect>);
static_assert(std::is_abstract_v<PickRegion> && std::is_abstract_v<PickRect>);
static_assert(std::has_virtual_destructor_v<PickRegion>);

template <class T>
using ContainsPoint = bool (T::*)(DblPt&, double);
template <class T>
using ContainsLoose = bool (T::*)(double, double, double);
template <class T>
using Extreme = double (T::*)() const;

// A host's region.
class HostRect : public PickRect {
public:
    using PickRect::PickRect;
    HostRect() = default;
    void Reserved() override {}
};

// Counts the destructions of its objects.
class CountedRect : public HostRect {
public:
    explicit CountedRect(int& count) : destroyed(count) {}
    CountedRect(const CountedRect&) = delete;
    CountedRect& operator=(const CountedRect&) = delete;
    ~CountedRect() override { ++destroyed; }

private:
    int& destroyed;
};

testing::AssertionResult Spans(const HostRect& r, double left, double bottom, double right, double top) {
    if (r.Left() == left && r.Bottom() == bottom && r.Right() == right && r.Top() == top)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "it spans "
                                       << testing::PrintToString(
                                              std::vector<double>{r.Left(), r.Bottom(), r.Right(), r.Top()});
}

bool HoldsLoosePoint(const HostRect& r, double x, double y, double tol) {
    PickRegion& region = const_cast<HostRect&>(r);
    DblPt p(x, y);
    const bool loose = region.Contains(x, y, tol);
    EXPECT_EQ(region.Contains(p, tol), loose);
    return loose;
}

template <class T>
void CheckSlots() {
    // The two destructors come first.
    EXPECT_EQ(VtableSlot(ContainsPoint<T>{&T::Contains}), 2);
    EXPECT_EQ(VtableSlot(ContainsLoose<T>{&T::Contains}), 3);
    EXPECT_EQ(VtableSlot(&T::Reserved), 4);
    EXPECT_EQ(VtableSlot(Extreme<T>{&T::Top}), 5);
    EXPECT_EQ(VtableSlot(Extreme<T>{&T::Bottom}), 6);
    EXPECT_EQ(VtableSlot(Extreme<T>{&T::Left}), 7);
    EXPECT_EQ(VtableSlot(Extreme<T>{&T::Right}), 8);
}

TEST(PickRect, VirtualOperationsKeepTheirSlots) {
    CheckSlots<PickRegion>();
    CheckSlots<PickRect>();
}

TEST(PickRect, IsDestroyedThroughItsBase) {
    int destroyed = 0;
    std::unique_ptr<PickRegion> region = std::make_unique<CountedRect>(destroyed);
    region.reset();
    EXPECT_EQ(destroyed, 1);
}

TEST(PickRect, StartsAtTheOrigin) { EXPECT_TRUE(Spans(HostRect(), 0.0, 0.0, 0.0, 0.0)); }

TEST(PickRect, TakesTwoCornersInAnyOrder) {
    DblPt upper(4.0, 5.0);
    DblPt lower(2.0, 1.0);
    EXPECT_TRUE(Spans(HostRect(upper, lower), 2.0, 1.0, 4.0, 5.0));
    EXPECT_TRUE(Spans(HostRect(lower, upper), 2.0, 1.0, 4.0, 5.0));
    DblPt left(2.0, 5.0);
    DblPt right(4.0, 1.0);
    EXPECT_TRUE(Spans(HostRect(left, right), 2.0, 1.0, 4.0, 5.0));
    EXPECT_TRUE(Spans(HostRect(4.0, 5.0, 2.0, 1.0), 2.0, 1.0, 4.0, 5.0));
    EXPECT_TRUE(Spans(HostRect(2.0, 5.0, 4.0, 1.0), 2.0, 1.0, 4.0, 5.0));
    DblPt a(4.0, 4.0);
    DblPt b(2.0, 2.0);
    EXPECT_TRUE(Spans(HostRect(a, b), 2.0, 2.0, 4.0, 4.0));
}

TEST(PickRect, CopiesTheBox) {
    const HostRect r(2.0, 1.0, 4.0, 5.0);
    const HostRect copy(r);
    EXPECT_TRUE(Spans(copy, 2.0, 1.0, 4.0, 5.0));
    HostRect target;
    PickRect& base = target;
    PickRect& assigned = base = r;
    EXPECT_EQ(&assigned, &target);
    EXPECT_TRUE(Spans(target, 2.0, 1.0, 4.0, 5.0));
}

TEST(PickRect, ToleranceGrowsTheBoxOnAllSides) {
    const HostRect square(4.0, 4.0, 2.0, 2.0);
    EXPECT_TRUE(HoldsLoosePoint(square, 4.5, 3.0, 0.5));
    EXPECT_FALSE(HoldsLoosePoint(square, 4.5, 3.0, 0.4));
    const HostRect r(2.0, 1.0, 4.0, 8.0);
    EXPECT_TRUE(HoldsLoosePoint(r, 1.5, 3.0, 0.5));
    EXPECT_FALSE(HoldsLoosePoint(r, 1.5, 3.0, 0.25));
    EXPECT_TRUE(HoldsLoosePoint(r, 3.0, 0.5, 0.5));
    EXPECT_FALSE(HoldsLoosePoint(r, 3.0, 0.5, 0.25));
    EXPECT_TRUE(HoldsLoosePoint(r, 3.0, 8.5, 0.5));
    EXPECT_FALSE(HoldsLoosePoint(r, 3.0, 8.5, 0.25));
    EXPECT_TRUE(HoldsLoosePoint(r, 4.5, 8.5, 0.5));
}

TEST(PickRect, EdgesCountAsInside) {
    const HostRect r(2.0, 1.0, 4.0, 8.0);
    for (const double x : {2.0, 3.0, 4.0})
        for (const double y : {1.0, 7.0, 8.0})
            EXPECT_TRUE(HoldsLoosePoint(r, x, y, 0.0)) << x << ", " << y;
    EXPECT_FALSE(HoldsLoosePoint(r, 7.0, 3.0, 0.0));
    EXPECT_FALSE(HoldsLoosePoint(r, 3.0, 9.0, 0.0));
    EXPECT_FALSE(HoldsLoosePoint(r, 2.25, 2.0, -0.5));
    EXPECT_FALSE(HoldsLoosePoint(r, std::numeric_limits<double>::quiet_NaN(), 2.0, 1.0));
}

// 0.8 - 3.0 is -2.2, but -2.2 + 3.0 is 0.7999999999999998; 0.8 - 3.3 is -2.5.
TEST(PickRect, TheToleranceGoesToThePoint) {
    EXPECT_FALSE(HoldsLoosePoint(HostRect(0.8, 0.0, 9.0, 1.0), -2.2, 0.0, 3.0));
    EXPECT_TRUE(HoldsLoosePoint(HostRect(0.0, -9.0, 1.0, -2.5), 0.0, 0.8, 3.3));
}

TEST(PickRect, WritesItsCorners) {
    const HostRect r(4.0, 5.0, 2.0, 1.0);
    DblPt ll;
    DblPt ur;
    r.GetPoints(&ll, &ur);
    EXPECT_TRUE(IsAt(ll, 2.0, 1.0));
    EXPECT_TRUE(IsAt(ur, 4.0, 5.0));
}

TEST(PickRect, WritesItsCornersIntoItsOwnBox) {
    HostRect r(4.0, 5.0, 2.0, 1.0);
    r.GetPoints(&r.box.ur, &r.box.ll);
    EXPECT_TRUE(Spans(r, 4.0, 5.0, 2.0, 1.0));
}

}  // namespace
