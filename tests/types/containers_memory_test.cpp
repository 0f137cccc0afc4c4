// SPDX-License-Identifier: MIT

// The blocks that the containers ask the C allocator for, and what they do without.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "support/malloc_guard.h"
#include "support/point_checks.h"
#include "vellum/containers.h"

namespace {

using support::IsAt;
using support::MallocGuard;
using Vellum::DblPt;
using Vellum::DblPtVec;
using Vellum::DblStk;

void Fill(DblPtVec& v, unsigned n) {
    for (unsigned i = 1; i <= n; ++i)
        ASSERT_TRUE(v.push_back(DblPt(i, -static_cast<double>(i))));
}

void Fill(DblStk& s, unsigned n) {
    for (unsigned i = 1; i <= n; ++i)
        ASSERT_TRUE(s.push(i));
}

DblPtVec VectorWithoutABlock(unsigned capacity) {
    const MallocGuard guard(0);
    return DblPtVec(capacity);
}

DblStk StackWithoutABlock() {
    const MallocGuard guard(0);
    return DblStk();
}

TEST(ContainersMemory, AVectorHasOneBlockOfItsCapacityAndTwoSlots) {
    const MallocGuard guard(3);
    const DblPtVec byDefault;
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 544u);
    const DblPtVec five(5);
    EXPECT_EQ(guard.LastSize(), 112u);
    const DblPtVec none(0);
    EXPECT_EQ(guard.LastSize(), 32u);
    EXPECT_EQ(guard.Requests(), 3u);
}

TEST(ContainersMemory, TheSizeOfAVectorDoesNotWrap) {
    const MallocGuard guard(0);
    const DblPtVec v(0xFFFFFFFF);
    EXPECT_EQ(guard.LastSize(), std::size_t{0x100000001} * 16);
    EXPECT_EQ(v.capacity, 0xFFFFFFFFu);
    EXPECT_EQ(v.buffer, nullptr);
}

TEST(ContainersMemory, AVectorGrowsToTwiceItsCapacityAndTwoSlots) {
    DblPtVec v;
    Fill(v, 31);
    const MallocGuard guard(1);
    ASSERT_TRUE(v.push_back(DblPt(32.0, -32.0)));
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 1056u);
    Fill(v, 31);
    EXPECT_EQ(guard.Requests(), 1u);
}

TEST(ContainersMemory, AVectorWithoutCapacityGrowsToTwo) {
    DblPtVec v(0);
    const MallocGuard guard(1);
    ASSERT_TRUE(v.push_back(DblPt(1.0, -1.0)));
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 64u);
}

TEST(ContainersMemory, AVectorThatCannotGrowStaysAsItWas) {
    DblPtVec v(4);
    Fill(v, 3);
    const DblPt* const block = v.buffer;
    {
        const MallocGuard guard(0);
        EXPECT_FALSE(v.push_back(DblPt(4.0, -4.0)));
        EXPECT_EQ(guard.Requests(), 1u);
    }
    EXPECT_EQ(v.capacity, 4u);
    EXPECT_EQ(v.count, 4u);
    EXPECT_EQ(v.buffer, block);
    ASSERT_TRUE(v.push_back(DblPt(4.0, -4.0)));
    EXPECT_EQ(v.capacity, 8u);
    for (unsigned i = 0; i < 4; ++i)
        EXPECT_TRUE(IsAt(v[i], i + 1.0, -1.0 - i));
}

TEST(ContainersMemory, TheSizeOfAGrownVectorDoesNotWrap) {
    DblPtVec v;
    v.capacity = 0x7FFFFFFF;
    v.count = 0x7FFFFFFF;
    const MallocGuard guard(0);
    EXPECT_FALSE(v.push_back(DblPt(1.0, 2.0)));
    EXPECT_EQ(guard.LastSize(), std::size_t{0x100000000} * 16);
    EXPECT_EQ(v.capacity, 0x7FFFFFFFu);
}

TEST(ContainersMemory, ACapacityThatCannotBeDoubledAsksForNoBlock) {
    DblPtVec v;
    DblStk s;
    v.capacity = v.count = 0x80000000;
    s.capacity = s.count = 0x80000000;
    const MallocGuard guard(2);
    EXPECT_FALSE(v.push_back(DblPt(1.0, 2.0)));
    EXPECT_FALSE(s.push(1.0));
    EXPECT_EQ(guard.Requests(), 0u);
}

TEST(ContainersMemory, AVectorWithoutABlockIsEmptyAndRefusesPoints) {
    for (const unsigned capacity : {0u, 32u}) {
        DblPtVec v = VectorWithoutABlock(capacity);
        const MallocGuard guard(1);
        EXPECT_EQ(v.buffer, nullptr);
        EXPECT_EQ(v.capacity, capacity);
        EXPECT_TRUE(v.empty());
        EXPECT_EQ(v.size(), 0u);
        EXPECT_EQ(v.begin(), nullptr);
        EXPECT_EQ(v.end(), nullptr);
        EXPECT_EQ(v.rbegin(), nullptr);
        EXPECT_EQ(v.rend(), nullptr);
        DblPt elsewhere(1.0, 2.0);
        EXPECT_EQ(v.erase(&elsewhere), nullptr);
        EXPECT_EQ(v.erase(nullptr), nullptr);
        EXPECT_FALSE(v.push_back(elsewhere));
        v.clear();
        EXPECT_EQ(v.count, 1u);
        EXPECT_EQ(guard.Requests(), 0u);
    }
}

TEST(ContainersMemory, AStackHasOneBlockOfNineValues) {
    const MallocGuard guard(1);
    const DblStk s;
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 72u);
}

TEST(ContainersMemory, AStackGrowsToTwiceItsCapacityAndOneValue) {
    DblStk s;
    Fill(s, 8);
    const MallocGuard guard(1);
    ASSERT_TRUE(s.push(9.0));
    EXPECT_EQ(guard.Requests(), 1u);
    EXPECT_EQ(guard.LastSize(), 136u);
    Fill(s, 7);
    EXPECT_EQ(guard.Requests(), 1u);
}

TEST(ContainersMemory, AStackThatCannotGrowStaysAsItWas) {
    DblStk s;
    Fill(s, 8);
    const double* const block = s.buffer;
    {
        const MallocGuard guard(0);
        EXPECT_FALSE(s.push(9.0));
        EXPECT_EQ(guard.Requests(), 1u);
    }
    EXPECT_EQ(s.capacity, 8u);
    EXPECT_EQ(s.count, 8u);
    EXPECT_EQ(s.topIndex, 7);
    EXPECT_EQ(s.buffer, block);
    EXPECT_EQ(s.top(), 8.0);
    ASSERT_TRUE(s.push(9.0));
    for (int i = 9; i >= 1; --i) {
        EXPECT_EQ(s.top(), i);
        s.pop();
    }
}

TEST(ContainersMemory, AStackWithoutABlockIsEmptyAndRefusesValues) {
    DblStk s = StackWithoutABlock();
    const MallocGuard guard(1);
    EXPECT_EQ(s.buffer, nullptr);
    EXPECT_EQ(s.capacity, 8u);
    EXPECT_TRUE(s.empty());
    EXPECT_FALSE(s.push(1.0));
    s.pop();
    EXPECT_EQ(s.Size(), 0u);
    EXPECT_EQ(s.topIndex, -1);
    EXPECT_EQ(guard.Requests(), 0u);
}

}  // namespace
