// SPDX-License-Identifier: MIT

// What blocks polylines and polygons ask for, and what becomes of them where there are none.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "shapes/chain_checks.h"
#include "support/malloc_guard.h"
#include "vellum/matrix.h"
#include "vellum/polylines.h"

namespace {

using chains::Holds;
using chains::IsEmpty;
using chains::Spans;
using support::MallocGuard;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::Mtx2D;
using Vellum::PolygonGeom;
using Vellum::PolylineGeom;

constexpr size_t kPointSize = 16;

const DblPt kA(3.0, 20.0);
const DblPt kB(-5.0, 7.0);
const DblPt kC(11.0, -2.0);
const DblPt kP(40.0, 50.0);

template <class Chain>
class ChainMemory : public testing::Test {
protected:
    /// A, B and C, with extents that do not fit.
    ChainMemory() : chain(chains::Of<Chain>({kA, kB, kC})) { chain.extents.TSet(9.0, 8.0, 7.0, 6.0); }

    testing::AssertionResult IsUnchanged() const {
        const auto points = Holds(chain, {kA, kB, kC});
        return points ? Spans(chain, 9.0, 8.0, 7.0, 6.0) : points;
    }

    Chain chain;
};

using Chains = testing::Types<PolylineGeom, PolygonGeom>;
TYPED_TEST_SUITE(ChainMemory, Chains, );

TYPED_TEST(ChainMemory, ConstructorsAskForExactlyTheirPoints) {
    double xs[] = {3.0, -5.0, 11.0};
    double ys[] = {20.0, 7.0, -2.0};
    const DblPt points[] = {kA, kB, kC};
    const MallocGuard guard(4);
    const TypeParam origins(5U);
    EXPECT_EQ(guard.LastSize(), 5 * kPointSize);
    const TypeParam fromCoordinates(3U, xs, ys);
    EXPECT_EQ(guard.LastSize(), 3 * kPointSize);
    const TypeParam fromPoints(2U, points);
    EXPECT_EQ(guard.LastSize(), 2 * kPointSize);
    const TypeParam copy(this->chain);
    EXPECT_EQ(guard.LastSize(), 3 * kPointSize);
    EXPECT_EQ(guard.Requests(), 4U);
}

TYPED_TEST(ChainMemory, EmptyChainsAskForNothing) {
    const TypeParam none;
    const MallocGuard guard(0);
    const DblPt points[] = {kA};
    EXPECT_TRUE(IsEmpty(TypeParam(0U)));
    EXPECT_TRUE(IsEmpty(TypeParam(1U)));
    EXPECT_TRUE(IsEmpty(TypeParam(1U, points)));
    EXPECT_TRUE(IsEmpty(TypeParam(none)));
    this->chain = none;
    EXPECT_TRUE(IsEmpty(this->chain));
    EXPECT_EQ(guard.Requests(), 0U);
}

TYPED_TEST(ChainMemory, ConstructorsOfPointsAtTheOriginLeaveAnEmptyChain) {
    const MallocGuard guard(0);
    const TypeParam refused(3U);
    EXPECT_TRUE(IsEmpty(refused));
    EXPECT_TRUE(Spans(refused, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(guard.Requests(), 1U);
}

TYPED_TEST(ChainMemory, SizesDoNotOverflow) {
    const MallocGuard guard(0);
    const TypeParam refused(UINT32_MAX);
    EXPECT_TRUE(IsEmpty(refused));
    EXPECT_EQ(guard.LastSize(), UINT32_MAX * kPointSize);
}

TYPED_TEST(ChainMemory, CopiesWithoutABlockAreEmptyAndKeepTheExtents) {
    const MallocGuard guard(0);
    const TypeParam copy(this->chain);
    EXPECT_TRUE(IsEmpty(copy));
    EXPECT_TRUE(Spans(copy, 9.0, 8.0, 7.0, 6.0));
    EXPECT_TRUE(this->IsUnchanged());
}

TYPED_TEST(ChainMemory, AssignmentWithoutABlockChangesNothing) {
    const auto source = chains::Of<TypeParam>({kP, kP, kP, kP});
    TypeParam none;
    const MallocGuard guard(0);
    this->chain = source;
    EXPECT_TRUE(this->IsUnchanged());
    EXPECT_EQ(guard.LastSize(), 4 * kPointSize);
    none = source;
    EXPECT_TRUE(IsEmpty(none));
    EXPECT_TRUE(Spans(none, 0.0, 0.0, 0.0, 0.0));
}

TYPED_TEST(ChainMemory, AssignmentFitsTheBlock) {
    const auto shorter = chains::Of<TypeParam>({kP, kP});
    {
        const MallocGuard refusal(0);
        this->chain = shorter;
        EXPECT_TRUE(this->IsUnchanged());
    }
    const MallocGuard guard(1);
    this->chain = shorter;
    EXPECT_TRUE(Holds(this->chain, {kP, kP}));
    EXPECT_EQ(guard.LastSize(), 2 * kPointSize);
}

TYPED_TEST(ChainMemory, AssignmentToItselfAsksForNothing) {
    const TypeParam& same = this->chain;
    const MallocGuard guard(0);
    this->chain = same;
    EXPECT_TRUE(this->IsUnchanged());
    EXPECT_EQ(guard.Requests(), 0U);
}

TYPED_TEST(ChainMemory, AddPointGrowsByOne) {
    DblPt p = kP;
    TypeParam none;
    const MallocGuard guard(2);
    EXPECT_TRUE(this->chain.AddPoint(p));
    EXPECT_EQ(guard.LastSize(), 4 * kPointSize);
    EXPECT_TRUE(none.AddPoint(p));
    EXPECT_EQ(guard.LastSize(), 1 * kPointSize);
    EXPECT_EQ(guard.Requests(), 2U);
}

TYPED_TEST(ChainMemory, AddPointWithoutABlockChangesNothing) {
    DblPt p = kP;
    TypeParam none;
    const MallocGuard guard(0);
    EXPECT_FALSE(this->chain.AddPoint(p));
    EXPECT_TRUE(this->IsUnchanged());
    EXPECT_FALSE(none.AddPoint(p));
    EXPECT_TRUE(IsEmpty(none));
    EXPECT_TRUE(Spans(none, 0.0, 0.0, 0.0, 0.0));
}

TYPED_TEST(ChainMemory, NothingElseAsksForABlock) {
    const Mtx2D m;
    DblPt out;
    const MallocGuard guard(0);
    this->chain.MoveVertexTo(1U, kP);
    this->chain.Set(1, 2.0, 3.0);
    this->chain.ApplyTransform(&m);
    this->chain.GetCentroid(out);
    EXPECT_TRUE(this->chain.HasVertex(kA));
    EXPECT_EQ(guard.Requests(), 0U);
}

TEST(PolylineMemory, ConstructorsLeaveAnEmptyPolyline) {
    double xs[] = {3.0, -5.0, 11.0};
    double ys[] = {20.0, 7.0, -2.0};
    const DblPt points[] = {kA, kB, kC};
    const auto src = chains::Of<PolylineGeom>({kA, kB});
    const MallocGuard guard(0);
    const PolylineGeom refused[] = {PolylineGeom(3U, xs, ys), PolylineGeom(3U, points),
                                    PolylineGeom(src, 0U, 1U, 3U, points), PolylineGeom(src, true, 3U, points),
                                    PolylineGeom(src, false, 3U, points)};
    EXPECT_EQ(guard.Requests(), 5U);
    for (const PolylineGeom& line : refused) {
        EXPECT_TRUE(IsEmpty(line));
        EXPECT_TRUE(Spans(line, 0.0, 0.0, 0.0, 0.0));
    }
}

TEST(PolylineMemory, SpliceAndExtendAskForTheSumOfTheirPoints) {
    const DblPt points[] = {kP, kP, kP};
    auto src = chains::Of<PolylineGeom>({kA, kB});
    {
        const MallocGuard guard(3);
        const PolylineGeom spliced(src, 0U, 1U, 3U, points);
        EXPECT_EQ(guard.LastSize(), 5 * kPointSize);
        const PolylineGeom prepended(src, true, 1U, points);
        EXPECT_EQ(guard.LastSize(), 3 * kPointSize);
        const PolylineGeom appended(src, false, 2U, points);
        EXPECT_EQ(guard.LastSize(), 4 * kPointSize);
    }
    const MallocGuard guard(0);
    src.nPts = 0x80000000U;
    const PolylineGeom most(src, true, 0x7FFFFFFFU, points);
    EXPECT_EQ(guard.LastSize(), 0xFFFFFFFFU * kPointSize);
    const PolylineGeom tooMany(src, true, 0x80000000U, points);
    EXPECT_EQ(guard.Requests(), 1U);
    src.nPts = 2;
}

TEST(PolylineMemory, PrependAndInsertWithoutABlockChangeNothing) {
    auto line = chains::Of<PolylineGeom>({kA, kB, kC});
    const MallocGuard guard(0);
    EXPECT_FALSE(line.PrependPoint(kP));
    EXPECT_FALSE(line.InsertPoint(1U, kP));
    EXPECT_EQ(guard.LastSize(), 4 * kPointSize);
    EXPECT_EQ(guard.Requests(), 2U);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
}

// The block is that of the count, not of what it was before it was cut.
TEST(PolylineMemory, GrowsFromTheCountThatATrimLeft) {
    auto line = chains::Of<PolylineGeom>({kA, kB, kC});
    line.TrimBack(0U);
    const MallocGuard guard(1);
    EXPECT_TRUE(line.AddPoint(kP));
    EXPECT_EQ(guard.LastSize(), 2 * kPointSize);
    EXPECT_TRUE(Holds(line, {kA, kP}));
}

TEST(PolylineMemory, AppendVerticesLeavesOutWhatFindsNoBlock) {
    auto line = chains::Of<PolylineGeom>({kA, kB});
    const auto other = chains::Of<PolylineGeom>({kB, kC, kP, kP});
    const MallocGuard guard(1);
    line.AppendVertices(&other, 0U, 3U, 0.5);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_EQ(guard.Requests(), 3U);
}

TEST(PolylineMemory, AppendVerticesLeavesThePolylineTurnedRoundWithoutABlock) {
    auto line = chains::Of<PolylineGeom>({kA, kB});
    const auto other = chains::Of<PolylineGeom>({kA, kC});
    const MallocGuard guard(0);
    line.AppendVertices(&other, 0U, 1U, 0.5);
    EXPECT_TRUE(Holds(line, {kB, kA}));
    EXPECT_EQ(guard.Requests(), 1U);
}

// Cut down to no points, a polyline still has its block.
TEST(PolylineMemory, TrimmingNoPointsToAPointReusesTheBlock) {
    auto cut = chains::Of<PolylineGeom>({kA, kB});
    cut.TrimBack(~0U);
    const MallocGuard guard(0);
    EXPECT_TRUE(cut.Trim(kC, kC, true));
    EXPECT_TRUE(Holds(cut, {kC}));
    EXPECT_EQ(guard.Requests(), 0U);
}

TEST(PolylineMemory, TrimmingAsksForABlockOnlyWhereThereIsNone) {
    auto line = chains::Of<PolylineGeom>({{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}});
    PolylineGeom none;
    const MallocGuard guard(0);
    EXPECT_TRUE(line.Trim(DblPt(4.0, 0.0), DblPt(10.0, 6.0), false));
    line.TrimFront(kP, 1U);
    line.TrimBack(kP, 1U);
    EXPECT_TRUE(line.Trim(kA, kA, true));
    EXPECT_TRUE(Holds(line, {kA}));
    EXPECT_EQ(guard.Requests(), 0U);

    EXPECT_FALSE(none.Trim(kA, kA, true));
    EXPECT_TRUE(IsEmpty(none));
    EXPECT_EQ(guard.LastSize(), kPointSize);
}

TEST(PolygonMemory, ConstructorsGiveTheExtentsOfPointsThatFindNoBlock) {
    double xs[] = {3.0, -5.0, 11.0};
    double ys[] = {20.0, 7.0, -2.0};
    const DblPt points[] = {kA, kB, kC};
    const MallocGuard guard(0);
    const PolygonGeom fromCoordinates(3U, xs, ys);
    EXPECT_TRUE(IsEmpty(fromCoordinates));
    EXPECT_TRUE(Spans(fromCoordinates, -5.0, -2.0, 11.0, 20.0));
    const PolygonGeom fromPoints(2U, points);
    EXPECT_TRUE(IsEmpty(fromPoints));
    EXPECT_TRUE(Spans(fromPoints, -5.0, 7.0, 3.0, 20.0));
}

TEST(PolygonMemory, ACloneWithoutABlockIsEmpty) {
    const auto ring = chains::Of<PolygonGeom>({kA, kB, kC});
    const MallocGuard guard(0);
    const std::unique_ptr<ClosedShape> clone(ring.Clone());
    ASSERT_NE(clone, nullptr);
    const auto& copy = static_cast<const PolygonGeom&>(*clone);
    EXPECT_TRUE(IsEmpty(copy));
    EXPECT_TRUE(Spans(copy, -5.0, -2.0, 11.0, 20.0));
    EXPECT_FALSE(copy.Contains(3.0, 7.0, 0.0));
}

TEST(PolygonMemory, ContainmentAsksForNothing) {
    PolygonGeom ring;
    for (int i = 0; i < 100; ++i) {
        DblPt p(i < 50 ? i : 100 - i, i < 50 ? 0.0 : 9.0);
        ASSERT_TRUE(ring.AddPoint(p));
    }
    const MallocGuard guard(0);
    EXPECT_TRUE(ring.Contains(25.0, 5.0, 0.0));
    EXPECT_EQ(guard.Requests(), 0U);
}

}  // namespace
