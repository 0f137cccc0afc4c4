// SPDX-License-Identifier: MIT
#include "vellum/containers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/point_checks.h"

namespace {

using support::IsAt;
using Vellum::DblPt;
using Vellum::DblPtVec;
using Vellum::DblStk;

static_assert(sizeof(void*) != 8 || (sizeof(DblPtVec) == 16 && sizeof(DblStk) == 24));
static_assert(offsetof(DblPtVec, capacity) == 0 && offsetof(DblPtVec, count) == 4 && offsetof(DblPtVec, buffer) == 8);
static_assert(offsetof(DblStk, capacity) == 0 && offsetof(DblStk, count) == 4 && offsetof(DblStk, topIndex) == 8);
static_assert(sizeof(void*) != 8 || offsetof(DblStk, buffer) == 16);
static_assert(std::is_standard_layout_v<DblPtVec> && std::is_standard_layout_v<DblStk>);
static_assert(!std::is_copy_constructible_v<DblPtVec> && !std::is_copy_constructible_v<DblStk>);
static_assert(!std::is_convertible_v<unsigned, DblPtVec>);
static_assert(std::is_same_v<decltype(std::declval<const DblStk&>().top()), double>);

constexpr uint32_t kLastDoubled = 0x80000000;

// Appends (1, -1), (2, -2) and so on.
void Fill(DblPtVec& v, unsigned n) {
    for (unsigned i = 1; i <= n; ++i)
        ASSERT_TRUE(v.push_back(DblPt(i, -static_cast<double>(i))));
}

// Whether the vector holds the points (x, -x).
testing::AssertionResult Holds(DblPtVec& v, const std::vector<double>& xs) {
    if (v.size() != xs.size()) return testing::AssertionFailure() << "holds " << v.size() << " points";
    for (unsigned i = 0; i < v.size(); ++i) {
        const auto result = IsAt(v[i], xs[i], -xs[i]);
        if (!result) return testing::AssertionFailure() << "point " << i << ": " << result.message();
    }
    return testing::AssertionSuccess();
}

TEST(DblPtVec, StartsEmptyWithRoomFor32Slots) {
    const DblPtVec v;
    EXPECT_EQ(v.capacity, 32u);
    EXPECT_EQ(v.count, 1u);
    EXPECT_EQ(v.size(), 0u);
    EXPECT_TRUE(v.empty());
    ASSERT_NE(v.buffer, nullptr);
    EXPECT_EQ(v.begin(), v.end());
    EXPECT_EQ(v.rbegin(), v.rend());
    EXPECT_EQ(v.rend() + 1, v.begin());
    EXPECT_EQ(v.rend(), v.buffer);
}

TEST(DblPtVec, TakesItsCapacityFromTheCaller) {
    const DblPtVec v(5);
    EXPECT_EQ(v.capacity, 5u);
    EXPECT_EQ(v.count, 1u);
}

TEST(DblPtVec, KeepsPointsInTheirOrder) {
    DblPtVec v;
    Fill(v, 3);
    EXPECT_TRUE(Holds(v, {1.0, 2.0, 3.0}));
    EXPECT_FALSE(v.empty());
    EXPECT_EQ(v.count, 4u);
    EXPECT_EQ(v.begin(), v.buffer + 1);
    EXPECT_EQ(v.end(), v.buffer + 4);
    EXPECT_EQ(v.rbegin(), v.buffer + 3);
    EXPECT_EQ(v.rend(), v.buffer);
}

TEST(DblPtVec, ElementsCanBeWritten) {
    DblPtVec v;
    Fill(v, 3);
    v[1] = DblPt(7.0, -7.0);
    EXPECT_TRUE(Holds(v, {1.0, 7.0, 3.0}));
}

TEST(DblPtVec, PointersWalkBackwardsToTheSentinel) {
    DblPtVec v;
    Fill(v, 3);
    std::vector<double> xs;
    for (const DblPt* p = v.rbegin(); p != v.rend(); --p)
        xs.push_back(p->x);
    EXPECT_EQ(xs, std::vector<double>({3.0, 2.0, 1.0}));
}

TEST(DblPtVec, GrowsByDoublingAtThe32ndPoint) {
    DblPtVec v;
    Fill(v, 31);
    EXPECT_EQ(v.capacity, 32u);
    ASSERT_TRUE(v.push_back(DblPt(32.0, -32.0)));
    EXPECT_EQ(v.capacity, 64u);
    EXPECT_EQ(v.size(), 32u);
    for (unsigned i = 0; i < 32; ++i)
        EXPECT_TRUE(IsAt(v[i], i + 1.0, -1.0 - i));
    for (unsigned i = 33; i <= 64; ++i)
        ASSERT_TRUE(v.push_back(DblPt(i, 0.0)));
    EXPECT_EQ(v.capacity, 128u);
    EXPECT_TRUE(IsAt(v[0], 1.0, -1.0));
    EXPECT_TRUE(IsAt(v[63], 64.0, 0.0));
}

// The sanitizers watch the block's ends.
TEST(DblPtVec, StaysInsideTheBlockHoweverSmall) {
    for (const unsigned n : {0u, 1u, 2u, 3u}) {
        SCOPED_TRACE(n);
        DblPtVec v(n);
        ASSERT_TRUE(v.push_back(DblPt(1.0, -1.0)));
        EXPECT_EQ(v.capacity, n < 2 ? 2u : n);
        const DblPt* const end = v.erase(v.begin());
        EXPECT_EQ(end, v.end());
        EXPECT_TRUE(v.empty());
        Fill(v, 9);
        EXPECT_TRUE(Holds(v, {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 9.0}));
        EXPECT_EQ(v.capacity, n == 3 ? 12u : 16u);
        for (unsigned left = 9; left > 0; --left) {
            ASSERT_NE(v.erase(v.rbegin()), nullptr);
            EXPECT_EQ(v.size(), left - 1);
        }
    }
}

TEST(DblPtVec, AppendsAPointOfItsOwn) {
    DblPtVec v(2);
    ASSERT_TRUE(v.push_back(DblPt(1.0, -1.0)));
    ASSERT_TRUE(v.push_back(v[0]));
    EXPECT_EQ(v.capacity, 4u);
    ASSERT_TRUE(v.push_back(*v.rbegin()));
    ASSERT_TRUE(v.push_back(v[1]));
    EXPECT_TRUE(Holds(v, {1.0, 1.0, 1.0, 1.0}));
}

TEST(DblPtVec, ACapacityThatCannotBeDoubledIsAFailedGrowth) {
    DblPtVec v;
    Fill(v, 2);
    const DblPt* const block = v.buffer;
    v.capacity = kLastDoubled;
    v.count = kLastDoubled;
    EXPECT_FALSE(v.push_back(DblPt(3.0, -3.0)));
    EXPECT_EQ(v.capacity, kLastDoubled);
    EXPECT_EQ(v.count, kLastDoubled);
    EXPECT_EQ(v.buffer, block);
}

TEST(DblPtVec, EraseMovesTheFollowingPointsDown) {
    DblPtVec v;
    Fill(v, 3);
    const DblPt* const erased = v.erase(v.begin() + 1);
    EXPECT_EQ(erased, v.begin() + 1);
    EXPECT_TRUE(IsAt(*erased, 3.0, -3.0));
    EXPECT_TRUE(Holds(v, {1.0, 3.0}));
    EXPECT_EQ(v.count, 3u);
}

TEST(DblPtVec, EraseTakesTheFirstAndTheLastPoint) {
    DblPtVec v;
    Fill(v, 4);
    const DblPt* const first = v.erase(v.begin());
    EXPECT_EQ(first, v.begin());
    EXPECT_TRUE(Holds(v, {2.0, 3.0, 4.0}));
    const DblPt* const end = v.erase(v.rbegin());
    EXPECT_EQ(end, v.end());
    EXPECT_TRUE(Holds(v, {2.0, 3.0}));
}

TEST(DblPtVec, EraseMovesTheSpareSlotToo) {
    DblPtVec v;
    Fill(v, 2);
    v.clear();
    Fill(v, 1);
    const DblPt* const end = v.erase(v.begin());
    EXPECT_TRUE(IsAt(*end, 2.0, -2.0));
}

TEST(DblPtVec, EraseOfWhatIsNoElementChangesNothing) {
    DblPtVec v(8);
    Fill(v, 3);
    EXPECT_EQ(v.erase(v.end()), nullptr);
    EXPECT_EQ(v.erase(v.end() + 1), nullptr);
    EXPECT_EQ(v.erase(v.rend()), nullptr);
    EXPECT_EQ(v.erase(nullptr), nullptr);
    EXPECT_TRUE(Holds(v, {1.0, 2.0, 3.0}));
}

TEST(DblPtVec, EraseInAnEmptyVectorGivesNull) {
    DblPtVec v;
    EXPECT_EQ(v.erase(v.begin()), nullptr);
    EXPECT_EQ(v.erase(v.rbegin()), nullptr);
    EXPECT_EQ(v.count, 1u);
}

TEST(DblPtVec, ClearKeepsTheBlock) {
    DblPtVec v;
    Fill(v, 40);
    const DblPt* const block = v.buffer;
    v.clear();
    EXPECT_TRUE(v.empty());
    EXPECT_EQ(v.size(), 0u);
    EXPECT_EQ(v.capacity, 64u);
    EXPECT_EQ(v.buffer, block);
    Fill(v, 2);
    EXPECT_TRUE(Holds(v, {1.0, 2.0}));
}

TEST(DblPtVec, AdvanceDoesNothing) {
    DblPtVec v;
    Fill(v, 3);
    v.advance(v.begin(), 2);
    v.advance(nullptr, 1);
    EXPECT_TRUE(Holds(v, {1.0, 2.0, 3.0}));
}

TEST(DblPtVec, AssignmentSharesTheBlock) {
    DblPtVec source(40);
    Fill(source, 2);
    DblPtVec target;
    Fill(target, 3);
    DblPt* const former = target.buffer;
    DblPtVec& assigned = target = source;
    EXPECT_EQ(&assigned, &target);
    EXPECT_EQ(target.buffer, source.buffer);
    EXPECT_EQ(target.capacity, 40u);
    EXPECT_EQ(target.count, 3u);
    source[1] = DblPt(8.0, -8.0);
    EXPECT_TRUE(Holds(target, {1.0, 8.0}));
    // The former block was not freed.
    EXPECT_TRUE(IsAt(former[3], 3.0, -3.0));
    std::free(former);
    source.buffer = nullptr;
}

TEST(DblStk, StartsEmptyWithRoomForEight) {
    const DblStk s;
    EXPECT_EQ(s.capacity, 8u);
    EXPECT_EQ(s.count, 0u);
    EXPECT_EQ(s.topIndex, -1);
    EXPECT_NE(s.buffer, nullptr);
    EXPECT_EQ(s.Size(), 0u);
    EXPECT_TRUE(s.empty());
}

TEST(DblStk, TheLastValuePushedIsOnTop) {
    DblStk s;
    ASSERT_TRUE(s.push(1.5));
    EXPECT_EQ(s.top(), 1.5);
    EXPECT_EQ(s.topIndex, 0);
    ASSERT_TRUE(s.push(-2.5));
    EXPECT_EQ(s.top(), -2.5);
    EXPECT_EQ(s.topIndex, 1);
    EXPECT_EQ(s.Size(), 2u);
    EXPECT_FALSE(s.empty());
    EXPECT_EQ(s.buffer[0], 1.5);
    EXPECT_EQ(s.buffer[1], -2.5);
    s.pop();
    EXPECT_EQ(s.top(), 1.5);
    EXPECT_EQ(s.Size(), 1u);
    EXPECT_EQ(s.topIndex, 0);
}

TEST(DblStk, NinePushesTakeOneGrowth) {
    DblStk s;
    for (int i = 1; i <= 8; ++i)
        ASSERT_TRUE(s.push(i));
    EXPECT_EQ(s.capacity, 8u);
    ASSERT_TRUE(s.push(9.0));
    EXPECT_EQ(s.capacity, 16u);
    EXPECT_EQ(s.Size(), 9u);
    EXPECT_EQ(s.topIndex, 8);
    for (int i = 9; i >= 1; --i) {
        EXPECT_EQ(s.top(), i);
        s.pop();
    }
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.capacity, 16u);
}

TEST(DblStk, PopOnAnEmptyStackDoesNothing) {
    DblStk s;
    s.pop();
    EXPECT_EQ(s.Size(), 0u);
    EXPECT_EQ(s.topIndex, -1);
    ASSERT_TRUE(s.push(4.0));
    EXPECT_EQ(s.buffer[0], 4.0);
}

TEST(DblStk, PushesAValueOfItsOwn) {
    DblStk s;
    for (int i = 1; i <= 8; ++i)
        ASSERT_TRUE(s.push(i));
    ASSERT_TRUE(s.push(s.buffer[2]));
    EXPECT_EQ(s.top(), 3.0);
    ASSERT_TRUE(s.push(s.top()));
    EXPECT_EQ(s.top(), 3.0);
    EXPECT_EQ(s.Size(), 10u);
}

TEST(DblStk, ACapacityThatCannotBeDoubledIsAFailedGrowth) {
    DblStk s;
    const double* const block = s.buffer;
    s.capacity = kLastDoubled;
    s.count = kLastDoubled;
    EXPECT_FALSE(s.push(1.0));
    EXPECT_EQ(s.capacity, kLastDoubled);
    EXPECT_EQ(s.count, kLastDoubled);
    EXPECT_EQ(s.topIndex, -1);
    EXPECT_EQ(s.buffer, block);
}

TEST(DblStk, ClearKeepsTheBlock) {
    DblStk s;
    for (int i = 0; i < 9; ++i)
        ASSERT_TRUE(s.push(i));
    const double* const block = s.buffer;
    s.Clear();
    EXPECT_TRUE(s.empty());
    EXPECT_EQ(s.topIndex, -1);
    EXPECT_EQ(s.capacity, 16u);
    EXPECT_EQ(s.buffer, block);
    ASSERT_TRUE(s.push(5.0));
    EXPECT_EQ(s.buffer[0], 5.0);
}

TEST(DblStk, AssignmentSharesTheBlock) {
    DblStk source;
    for (int i = 1; i <= 9; ++i)
        ASSERT_TRUE(source.push(i));
    DblStk target;
    ASSERT_TRUE(target.push(-1.0));
    double* const former = target.buffer;
    DblStk& assigned = target = source;
    EXPECT_EQ(&assigned, &target);
    EXPECT_EQ(target.buffer, source.buffer);
    EXPECT_EQ(target.capacity, 16u);
    EXPECT_EQ(target.count, 9u);
    EXPECT_EQ(target.topIndex, 8);
    EXPECT_EQ(target.top(), 9.0);
    // The former block was not freed.
    EXPECT_EQ(former[0], -1.0);
    std::free(former);
    source.buffer = nullptr;
}

}  // namespace
