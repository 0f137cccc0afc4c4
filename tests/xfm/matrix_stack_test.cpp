// SPDX-License-Identifier: MIT
#include "vellum/matrix_stack.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "support/allocation_guard.h"
#include "vellum/matrix.h"
#include "xfm/matrix_checks.h"

namespace {

using support::AllocationGuard;
using Vellum::Mtx2D;
using Vellum::Mtx2DStk;
using xfm_tests::HasElements;

static_assert(sizeof(void*) != 8 || sizeof(Mtx2DStk) == 24);
static_assert(offsetof(Mtx2DStk, capacity) == 0 && offsetof(Mtx2DStk, count) == 4 && offsetof(Mtx2DStk, topIndex) == 8);
static_assert(sizeof(void*) != 8 || offsetof(Mtx2DStk, mtx) == 16);
static_assert(!std::is_copy_constructible_v<Mtx2DStk>);
static_assert(std::is_same_v<decltype(std::declval<Mtx2DStk&>().top()), Mtx2D&>);
static_assert(std::is_same_v<decltype(std::declval<const Mtx2DStk&>().top()), const Mtx2D&>);

// A matrix that no other number makes, with marks that its elements do not have.
Mtx2D Numbered(int n) {
    Mtx2D m = xfm_tests::MatrixOf(n, n + 0.125, n + 0.25, n + 0.375, n + 0.5, n + 0.625);
    m.mirror = 100 + n;
    m.type = 200 + n;
    return m;
}

testing::AssertionResult IsNumbered(const Mtx2D& m, int n) {
    if (m.mirror != 100 + n || m.type != 200 + n)
        return testing::AssertionFailure() << "mirror " << m.mirror << ", type " << m.type;
    return HasElements(m, n, n + 0.125, n + 0.25, n + 0.375, n + 0.5, n + 0.625);
}

testing::AssertionResult IsNew(const Mtx2D& m) {
    if (m.mirror != 0 || m.type != Vellum::Mtx2DAxisAligned)
        return testing::AssertionFailure() << "mirror " << m.mirror << ", type " << m.type;
    return HasElements(m, 1.0, 0.0, 0.0, 1.0, 0.0, 0.0);
}

// Pushes the matrices of numbers 1 to n.
void Fill(Mtx2DStk& stack, int n) {
    for (int i = 1; i <= n; ++i)
        ASSERT_TRUE(stack.push(Numbered(i)));
}

// Takes them off again.
void ExpectFilled(Mtx2DStk& stack, int n) {
    ASSERT_EQ(stack.Size(), static_cast<unsigned>(n));
    for (int i = n; i >= 1; --i) {
        EXPECT_EQ(stack.topIndex, i - 1);
        EXPECT_TRUE(IsNumbered(stack.top(), i));
        stack.pop();
    }
    EXPECT_TRUE(stack.empty());
}

Mtx2DStk WithoutAnArray() {
    const AllocationGuard guard(0);
    return Mtx2DStk();
}

TEST(Mtx2DStk, StartsEmptyWithRoomForEight) {
    const Mtx2DStk stack;
    EXPECT_EQ(stack.capacity, 8u);
    EXPECT_EQ(stack.count, 0u);
    EXPECT_EQ(stack.topIndex, -1);
    EXPECT_TRUE(stack.empty());
    EXPECT_EQ(stack.Size(), 0u);
    ASSERT_NE(stack.mtx, nullptr);
    for (int i = 0; i < 9; ++i)
        EXPECT_TRUE(IsNew(stack.mtx[i]));
}

TEST(Mtx2DStk, TheLastMatrixPushedIsOnTop) {
    Mtx2DStk stack;
    Fill(stack, 2);
    EXPECT_EQ(stack.Size(), 2u);
    EXPECT_EQ(stack.topIndex, 1);
    EXPECT_FALSE(stack.empty());
    const Mtx2DStk& constant = stack;
    EXPECT_EQ(&constant.top(), &stack.mtx[1]);
    EXPECT_EQ(&stack.top(), &stack.mtx[1]);
    EXPECT_TRUE(IsNumbered(stack.mtx[0], 1));
    EXPECT_TRUE(IsNumbered(stack.mtx[1], 2));
    stack.pop();
    EXPECT_EQ(stack.Size(), 1u);
    EXPECT_EQ(stack.topIndex, 0);
    EXPECT_TRUE(IsNumbered(stack.top(), 1));
    EXPECT_TRUE(IsNumbered(stack.mtx[1], 2));
}

TEST(Mtx2DStk, StoresCopiesAndComposesNothing) {
    Mtx2DStk stack;
    Mtx2D m;
    m.Scale(2.0, 3.0);
    ASSERT_TRUE(stack.push(m));
    m.Translate(5.0, 7.0);
    EXPECT_TRUE(HasElements(stack.top(), 2.0, 0.0, 0.0, 3.0, 0.0, 0.0));
    Mtx2D other;
    other.Translate(1.0, 2.0);
    ASSERT_TRUE(stack.push(other));
    EXPECT_TRUE(HasElements(stack.top(), 1.0, 0.0, 0.0, 1.0, 1.0, 2.0));
    stack.top().Scale(4.0, 5.0);
    EXPECT_TRUE(HasElements(stack.mtx[1], 4.0, 0.0, 0.0, 5.0, 4.0, 10.0));
    EXPECT_TRUE(HasElements(stack.mtx[0], 2.0, 0.0, 0.0, 3.0, 0.0, 0.0));
}

TEST(Mtx2DStk, TheNinthPushDoublesTheCapacity) {
    Mtx2DStk stack;
    Fill(stack, 8);
    EXPECT_EQ(stack.capacity, 8u);
    ASSERT_TRUE(stack.push(Numbered(9)));
    EXPECT_EQ(stack.capacity, 16u);
    for (int i = 9; i < 17; ++i)
        EXPECT_TRUE(IsNew(stack.mtx[i]));
    ExpectFilled(stack, 9);
    EXPECT_EQ(stack.capacity, 16u);
}

TEST(Mtx2DStk, GrowsTwice) {
    Mtx2DStk stack;
    Fill(stack, 17);
    EXPECT_EQ(stack.capacity, 32u);
    ExpectFilled(stack, 17);
}

TEST(Mtx2DStk, ArraysHaveOneMatrixMoreThanTheCapacity) {
    const AllocationGuard guard(2);
    Mtx2DStk stack;
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 9 * sizeof(Mtx2D));
    ASSERT_TRUE(stack.Realloc());
    EXPECT_EQ(guard.Requests(), 2u);
    EXPECT_EQ(guard.LastSize(), 17 * sizeof(Mtx2D));
    Fill(stack, 16);
    EXPECT_EQ(guard.Requests(), 2u);
}

TEST(Mtx2DStk, ReallocKeepsThePoppedMatricesToo) {
    Mtx2DStk stack;
    Fill(stack, 8);
    stack.pop();
    ASSERT_TRUE(stack.Realloc());
    EXPECT_EQ(stack.capacity, 16u);
    EXPECT_TRUE(IsNumbered(stack.mtx[7], 8));
    ExpectFilled(stack, 7);
}

TEST(Mtx2DStk, PushesAMatrixOfItsOwn) {
    Mtx2DStk stack;
    Fill(stack, 8);
    ASSERT_TRUE(stack.push(stack.mtx[2]));
    EXPECT_TRUE(IsNumbered(stack.top(), 3));
    ASSERT_TRUE(stack.push(stack.top()));
    EXPECT_TRUE(IsNumbered(stack.top(), 3));
    EXPECT_EQ(stack.Size(), 10u);
}

TEST(Mtx2DStk, PopOnAnEmptyStackDoesNothing) {
    Mtx2DStk stack;
    stack.pop();
    EXPECT_EQ(stack.count, 0u);
    EXPECT_EQ(stack.topIndex, -1);
}

TEST(Mtx2DStk, ClearKeepsTheArray) {
    Mtx2DStk stack;
    Fill(stack, 9);
    const Mtx2D* const array = stack.mtx;
    stack.Clear();
    EXPECT_EQ(stack.Size(), 0u);
    EXPECT_TRUE(stack.empty());
    EXPECT_EQ(stack.topIndex, -1);
    EXPECT_EQ(stack.capacity, 16u);
    EXPECT_EQ(stack.mtx, array);
    ASSERT_TRUE(stack.push(Numbered(20)));
    EXPECT_TRUE(IsNumbered(stack.mtx[0], 20));
}

TEST(Mtx2DStk, AnAssignedStackIsACopyOfItsOwn) {
    Mtx2DStk source;
    Fill(source, 9);
    Mtx2DStk target;
    ASSERT_TRUE(target.push(Numbered(30)));
    Mtx2DStk& assigned = target = source;
    EXPECT_EQ(&assigned, &target);
    EXPECT_EQ(target.capacity, 16u);
    EXPECT_NE(target.mtx, source.mtx);
    source.top() = Numbered(40);
    ExpectFilled(target, 9);
    EXPECT_TRUE(IsNumbered(source.top(), 40));
}

TEST(Mtx2DStk, AnAssignedStackHasTheSourcesCapacityAlsoWhereItHadMore) {
    Mtx2DStk target;
    Fill(target, 9);
    Mtx2DStk source;
    Fill(source, 2);
    source.pop();
    {
        const AllocationGuard guard(1);
        target = source;
        EXPECT_EQ(guard.LastSize(), 9 * sizeof(Mtx2D));
    }
    EXPECT_EQ(target.capacity, 8u);
    EXPECT_TRUE(IsNumbered(target.mtx[1], 2));
    ExpectFilled(target, 1);
}

TEST(Mtx2DStk, AssignmentToItselfChangesNothing) {
    Mtx2DStk stack;
    Fill(stack, 3);
    const Mtx2D* const array = stack.mtx;
    const Mtx2DStk& same = stack;
    stack = same;
    EXPECT_EQ(stack.mtx, array);
    ExpectFilled(stack, 3);
}

TEST(Mtx2DStkMemory, AStackThatCannotGrowStaysAsItWas) {
    Mtx2DStk stack;
    Fill(stack, 8);
    const Mtx2D* const array = stack.mtx;
    {
        const AllocationGuard guard(0);
        EXPECT_FALSE(stack.push(Numbered(9)));
        EXPECT_FALSE(stack.Realloc());
        EXPECT_EQ(guard.Requests(), 2u);
    }
    EXPECT_EQ(stack.capacity, 8u);
    EXPECT_EQ(stack.mtx, array);
    ExpectFilled(stack, 8);
}

TEST(Mtx2DStkMemory, ACapacityThatCannotBeDoubledIsAFailedGrowth) {
    constexpr uint32_t kLastDoubled = 0x80000000;
    Mtx2DStk stack;
    const Mtx2D* const array = stack.mtx;
    stack.capacity = kLastDoubled;
    stack.count = kLastDoubled;
    const AllocationGuard guard(1);
    EXPECT_FALSE(stack.Realloc());
    EXPECT_FALSE(stack.push(Numbered(1)));
    EXPECT_EQ(guard.Requests(), 0u);
    EXPECT_EQ(stack.capacity, kLastDoubled);
    EXPECT_EQ(stack.count, kLastDoubled);
    EXPECT_EQ(stack.topIndex, -1);
    EXPECT_EQ(stack.mtx, array);
}

TEST(Mtx2DStkMemory, TheSizeOfAGrownArrayDoesNotWrap) {
    Mtx2DStk stack;
    stack.capacity = 0x7FFFFFFF;
    const AllocationGuard guard(0);
    EXPECT_FALSE(stack.Realloc());
    EXPECT_EQ(guard.LastSize(), size_t{0xFFFFFFFF} * sizeof(Mtx2D));
    EXPECT_EQ(stack.capacity, 0x7FFFFFFFu);
}

TEST(Mtx2DStkMemory, TheSizeOfAnAssignedArrayDoesNotWrap) {
    Mtx2DStk source;
    source.capacity = 0xFFFFFFFF;
    Mtx2DStk target;
    const AllocationGuard guard(0);
    target = source;
    EXPECT_EQ(guard.LastSize(), size_t{0x100000000} * sizeof(Mtx2D));
    EXPECT_EQ(target.capacity, 8u);
}

TEST(Mtx2DStkMemory, AStackWithoutAnArrayIsEmptyAndRefusesMatrices) {
    Mtx2DStk stack = WithoutAnArray();
    const AllocationGuard guard(1);
    EXPECT_EQ(stack.mtx, nullptr);
    EXPECT_EQ(stack.capacity, 8u);
    EXPECT_TRUE(stack.empty());
    EXPECT_FALSE(stack.push(Mtx2D()));
    EXPECT_FALSE(stack.Realloc());
    stack.pop();
    EXPECT_EQ(stack.Size(), 0u);
    EXPECT_EQ(stack.topIndex, -1);
    EXPECT_EQ(guard.Requests(), 0u);
}

TEST(Mtx2DStkMemory, AnAssignmentThatFailsChangesNothing) {
    Mtx2DStk source;
    Fill(source, 9);
    Mtx2DStk target;
    Fill(target, 2);
    const Mtx2D* const array = target.mtx;
    {
        const AllocationGuard guard(0);
        target = source;
        EXPECT_EQ(guard.Requests(), 1u);
    }
    EXPECT_EQ(target.capacity, 8u);
    EXPECT_EQ(target.mtx, array);
    ExpectFilled(target, 2);
}

TEST(Mtx2DStkMemory, AStackAssignedFromOneWithoutAnArrayIsEmpty) {
    Mtx2DStk target;
    Fill(target, 9);
    const Mtx2DStk source = WithoutAnArray();
    ASSERT_EQ(source.mtx, nullptr);
    target = source;
    EXPECT_TRUE(target.empty());
    EXPECT_EQ(target.capacity, 8u);
    Fill(target, 8);
    ExpectFilled(target, 8);
}

}  // namespace
