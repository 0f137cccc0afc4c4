// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "shapes/chain_checks.h"
#include "support/allocation_guard.h"
#include "support/debug_capture.h"
#include "support/point_checks.h"
#include "vellum/matrix.h"
#include "vellum/polylines.h"

namespace {

using chains::Holds;
using chains::IsEmpty;
using chains::Spans;
using support::IsAt;
using Vellum::AlignedDblRect;
using Vellum::ClosedShape;
using Vellum::DblPt;
using Vellum::Mtx2D;
using Vellum::PolygonGeom;
using Vellum::PolylineGeom;

static_assert(std::is_base_of_v<ClosedShape, PolygonGeom>);
static_assert(!std::is_base_of_v<PolylineGeom, PolygonGeom>);
static_assert(!std::is_convertible_v<unsigned, PolygonGeom>);

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kFloatMax = 3.4028234663852886e38;

const DblPt kA(3.0, 20.0);
const DblPt kB(-5.0, 7.0);
const DblPt kC(11.0, -2.0);
const DblPt kD(6.0, 13.0);
const DblPt kP(40.0, 50.0);

PolygonGeom Ring(const chains::Points& points) { return chains::Of<PolygonGeom>(points); }

TEST(PolygonGeom, StartsEmpty) {
    const PolygonGeom ring;
    EXPECT_TRUE(IsEmpty(ring));
    EXPECT_TRUE(Spans(ring, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(ring.NPts(), 0U);
    EXPECT_EQ(ring.Pts(), nullptr);
    EXPECT_EQ(ring.Start(), nullptr);
    EXPECT_EQ(ring.End(), nullptr);
}

TEST(PolygonGeom, IsMadeOfPointsAtTheOrigin) {
    EXPECT_TRUE(IsEmpty(PolygonGeom(0U)));
    EXPECT_TRUE(IsEmpty(PolygonGeom(1U)));
    EXPECT_TRUE(Holds(PolygonGeom(2U), {{}, {}}));
    const PolygonGeom ring(3U);
    EXPECT_TRUE(Holds(ring, {{}, {}, {}}));
    EXPECT_TRUE(Spans(ring, 0.0, 0.0, 0.0, 0.0));
}

TEST(PolygonGeom, IsMadeOfCoordinates) {
    double xs[] = {3.0, -5.0, 11.0};
    double ys[] = {20.0, 7.0, -2.0};
    const PolygonGeom ring(3U, xs, ys);
    EXPECT_TRUE(Holds(ring, {kA, kB, kC}));
    EXPECT_TRUE(Spans(ring, -5.0, -2.0, 11.0, 20.0));
    EXPECT_TRUE(Holds(PolygonGeom(2U, xs, ys), {kA, kB}));
    EXPECT_TRUE(Spans(PolygonGeom(2U, xs, ys), -5.0, 7.0, 3.0, 20.0));
    EXPECT_TRUE(IsEmpty(PolygonGeom(1U, xs, ys)));
    EXPECT_TRUE(Spans(PolygonGeom(1U, xs, ys), 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(IsEmpty(PolygonGeom(0U, nullptr, nullptr)));
}

TEST(PolygonGeom, IsMadeOfPoints) {
    const DblPt points[] = {kA, kB, kC};
    const PolygonGeom ring(3U, points);
    EXPECT_TRUE(Holds(ring, {kA, kB, kC}));
    EXPECT_NE(ring.Pts(), points);
    EXPECT_TRUE(Spans(ring, -5.0, -2.0, 11.0, 20.0));
    EXPECT_TRUE(Holds(PolygonGeom(2U, points), {kA, kB}));
    EXPECT_TRUE(IsEmpty(PolygonGeom(1U, points)));
    EXPECT_TRUE(Spans(PolygonGeom(1U, points), 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(IsEmpty(PolygonGeom(0U, nullptr)));
}

TEST(PolygonGeom, CopiesPointsAndCachedExtents) {
    PolygonGeom ring = Ring({kA, kB, kC});
    ring.extents.TSet(9.0, 8.0, 7.0, 6.0);
    const PolygonGeom copy(ring);
    EXPECT_TRUE(Holds(copy, {kA, kB, kC}));
    EXPECT_TRUE(Spans(copy, 9.0, 8.0, 7.0, 6.0));
    EXPECT_NE(copy.pts, ring.pts);

    PolygonGeom assigned = Ring({kD});
    EXPECT_EQ(&(assigned = ring), &assigned);
    EXPECT_TRUE(Holds(assigned, {kA, kB, kC}));
    EXPECT_TRUE(Spans(assigned, 9.0, 8.0, 7.0, 6.0));
    EXPECT_NE(assigned.pts, ring.pts);
}

TEST(PolygonGeom, AssignedToItselfIsUnchanged) {
    PolygonGeom ring = Ring({kA, kB, kC});
    const DblPt* const block = ring.pts;
    const PolygonGeom& same = ring;
    ring = same;
    EXPECT_TRUE(Holds(ring, {kA, kB, kC}));
    EXPECT_EQ(ring.pts, block);
}

TEST(PolygonGeom, AssignedAnEmptyOneIsEmpty) {
    PolygonGeom none;
    none.extents.TSet(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(IsEmpty(PolygonGeom(none)));
    PolygonGeom ring = Ring({kA, kB, kC});
    ring = none;
    EXPECT_TRUE(IsEmpty(ring));
    EXPECT_TRUE(Spans(ring, 1.0, 2.0, 3.0, 4.0));
}

TEST(PolygonGeom, GivesItsPoints) {
    PolygonGeom ring = Ring({kA, kB, kC});
    EXPECT_EQ(ring.NPts(), 3U);
    EXPECT_EQ(ring.Pts(), ring.pts);
    EXPECT_EQ(ring.Start(), ring.pts);
    EXPECT_EQ(ring.End(), ring.pts + 3);
    EXPECT_EQ(&ring.First(), ring.pts);
    EXPECT_EQ(&ring.Last(), ring.pts + 2);
    EXPECT_EQ(&ring.StartPt(), ring.pts);
    EXPECT_EQ(&ring.EndPt(), ring.pts + 2);
    EXPECT_EQ(&ring.Vtx(1), ring.pts + 1);

    const PolygonGeom& fixed = ring;
    EXPECT_EQ(fixed.Pts(), ring.pts);
    EXPECT_EQ(fixed.Start(), ring.pts);
    EXPECT_EQ(fixed.End(), ring.pts + 3);
    EXPECT_EQ(&fixed.First(), ring.pts);
    EXPECT_EQ(&fixed.Last(), ring.pts + 2);
    EXPECT_EQ(&fixed.EndPt(), ring.pts + 2);
    EXPECT_EQ(&fixed.Vtx(1), ring.pts + 1);
}

TEST(PolygonGeom, GivesItsExtents) {
    PolygonGeom ring = Ring({kA, kB, kC});
    EXPECT_EQ(&ring.Extents(), &ring.extents);
    EXPECT_EQ(&ring.LLExtent(), &ring.extents.ll);
    EXPECT_EQ(&ring.URExtent(), &ring.extents.ur);
    AlignedDblRect r;
    ring.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, -5.0, -2.0));
    EXPECT_TRUE(IsAt(r.ur, 11.0, 20.0));
    DblPt c;
    ring.GetBBoxCenter(c);
    EXPECT_TRUE(IsAt(c, 3.0, 9.0));

    // A crossed box is handed out as it is.
    ring.extents.TSet(9.0, 8.0, 7.0, 6.0);
    ring.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 9.0, 8.0));
    EXPECT_TRUE(IsAt(r.ur, 7.0, 6.0));
    ring.extents.TSet(14.0, 130.0, 10.0, 100.0);
    ring.GetBBoxCenter(c);
    EXPECT_TRUE(IsAt(c, 16.0, 145.0));
}

TEST(PolygonGeom, SetLeavesTheExtents) {
    PolygonGeom ring = Ring({kA, kB, kC});
    ring.Set(1, 60.0, 70.0);
    EXPECT_TRUE(Holds(ring, {kA, {60.0, 70.0}, kC}));
    EXPECT_TRUE(Spans(ring, -5.0, -2.0, 11.0, 20.0));
}

TEST(PolygonGeom, HasVertexIsExact) {
    const PolygonGeom ring = Ring({kA, kB, kC});
    EXPECT_TRUE(ring.HasVertex(kA));
    EXPECT_TRUE(ring.HasVertex(kC));
    EXPECT_FALSE(ring.HasVertex(DblPt(kA.x, kB.y)));
    EXPECT_FALSE(ring.HasVertex(DblPt(kC.x, std::nextafter(kC.y, 0.0))));
    EXPECT_FALSE(PolygonGeom().HasVertex(DblPt()));
}

TEST(PolygonGeom, AddPointAppendsAndWidensTheExtents) {
    PolygonGeom ring;
    DblPt p(5.0, 6.0);
    EXPECT_TRUE(ring.AddPoint(p));
    EXPECT_TRUE(Spans(ring, 0.0, 0.0, 5.0, 6.0));
    p.Set(-3.0, 8.0);
    EXPECT_TRUE(ring.AddPoint(p));
    EXPECT_TRUE(Holds(ring, {{5.0, 6.0}, {-3.0, 8.0}}));
    EXPECT_TRUE(Spans(ring, -3.0, 0.0, 5.0, 8.0));
}

TEST(PolygonGeom, AddsItsOwnPointsAsTheyWere) {
    PolygonGeom ring = Ring({kA, kB});
    std::vector<DblPt> expected{kA, kB};
    for (unsigned i = 0; i < 300; ++i) {
        ASSERT_TRUE(ring.AddPoint(ring.pts[i]));
        expected.push_back(i % 2 == 0 ? kA : kB);
    }
    EXPECT_TRUE(Holds(ring, expected));
}

TEST(PolygonGeom, ACountBeyond32BitsIsAFailedAllocation) {
    PolygonGeom huge = Ring({kA, kB});
    DblPt p = kP;
    huge.nPts = UINT32_MAX;
    EXPECT_FALSE(huge.AddPoint(p));
    EXPECT_EQ(huge.nPts, UINT32_MAX);
    EXPECT_TRUE(Spans(huge, -5.0, 7.0, 3.0, 20.0));
    huge.nPts = 2;
    EXPECT_TRUE(Holds(huge, {kA, kB}));
}

TEST(PolygonGeom, MoveVertexToRecomputesTheExtents) {
    PolygonGeom ring = Ring({kA, kB, kC});
    ring.MoveVertexTo(1U, DblPt(4.0, 5.0));
    EXPECT_TRUE(Holds(ring, {kA, {4.0, 5.0}, kC}));
    EXPECT_TRUE(Spans(ring, 3.0, -2.0, 11.0, 20.0));
    ring.MoveVertexTo(0U, ring.pts[1]);
    EXPECT_TRUE(Holds(ring, {{4.0, 5.0}, {4.0, 5.0}, kC}));
    EXPECT_TRUE(Spans(ring, 4.0, -2.0, 11.0, 5.0));
}

TEST(PolygonGeom, MoveVertexToWithoutSuchAPointDoesNothing) {
    PolygonGeom ring = Ring({kA, kB, kC});
    ring.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    ring.MoveVertexTo(3U, kP);
    ring.MoveVertexTo(~0U, kP);
    EXPECT_TRUE(Holds(ring, {kA, kB, kC}));
    EXPECT_TRUE(Spans(ring, -100.0, -100.0, 100.0, 100.0));
    PolygonGeom none;
    none.MoveVertexTo(0U, kP);
    EXPECT_TRUE(IsEmpty(none));
}

// Nothing is nearer than the start of the search, whose segment lies at the origin and has no length.
TEST(PolygonGeom, ClosestPtIsTheOrigin) {
    const PolygonGeom ring = Ring({kA, kB, kC});
    DblPt out(1.0, 2.0);
    ring.ClosestPt(DblPt(3.0, 19.0), out);
    EXPECT_TRUE(IsAt(out, 0.0, 0.0));
    out.Set(1.0, 2.0);
    ring.ClosestPt(kA, out);
    EXPECT_TRUE(IsAt(out, 0.0, 0.0));
    out.Set(1.0, 2.0);
    PolygonGeom().ClosestPt(DblPt(-3.0, -4.0), out);
    EXPECT_TRUE(IsAt(out, 0.0, 0.0));
    DblPt p(6.0, 7.0);
    ring.ClosestPt(p, p);
    EXPECT_TRUE(IsAt(p, 0.0, 0.0));
    // On a segment that is vertical the y of the point is clamped, which keeps a NaN and the sign of a zero.
    ring.ClosestPt(DblPt(3.0, kNan), out);
    EXPECT_EQ(out.x, 0.0);
    EXPECT_TRUE(std::isnan(out.y));
    ring.ClosestPt(DblPt(3.0, -0.0), out);
    EXPECT_TRUE(IsAt(out, 0.0, 0.0));
    EXPECT_TRUE(std::signbit(out.y));
}

TEST(PolygonGeom, ClonesItself) {
    PolygonGeom ring = Ring({kA, kB, kC});
    ring.extents.TSet(9.0, 8.0, 7.0, 6.0);
    const ClosedShape& shape = ring;
    const std::unique_ptr<ClosedShape> clone(shape.Clone());
    ASSERT_NE(clone, nullptr);
    const ClosedShape& cloned = *clone;
    ASSERT_EQ(typeid(cloned), typeid(PolygonGeom));
    const auto& copy = static_cast<const PolygonGeom&>(cloned);
    EXPECT_TRUE(Holds(copy, {kA, kB, kC}));
    EXPECT_TRUE(Spans(copy, 9.0, 8.0, 7.0, 6.0));
    EXPECT_NE(copy.pts, ring.pts);
}

TEST(PolygonGeom, CloneIsNullWithoutMemory) {
    const PolygonGeom ring = Ring({kA, kB, kC});
    const support::AllocationGuard guard(0);
    EXPECT_EQ(ring.Clone(), nullptr);
    EXPECT_EQ(guard.Requests(), 1U);
}

TEST(PolygonGeom, PrintsAsAPolyline) {
    support::TakeDebugTexts();
    Ring({{-1.25, 10.5}, {3.0, 4.0}, {1e6, 0.1}}).Print();
    EXPECT_EQ(
        support::TakeDebugTexts(),
        (std::vector<std::string>{"DblPt polyline[3] = {\n", "DblPt(-1.250000, 10.500000),\n",
                                  "DblPt(3.000000, 4.000000),\n", "DblPt(1000000.000000, 0.100000)\n", "};\n\n"}));
    Ring({{7.0, 8.0}}).Print();
    EXPECT_EQ(support::TakeDebugTexts(),
              (std::vector<std::string>{"DblPt polyline[1] = {\n", "DblPt(7.000000, 8.000000)\n", "};\n\n"}));
    PolygonGeom().Print();
    EXPECT_TRUE(support::TakeDebugTexts().empty());
}

TEST(PolygonGeom, TheCentroidIsTheMeanOfThePoints) {
    DblPt c;
    Ring({{0.0, 0.0}, {10.0, 0.0}, {0.0, 10.0}}).GetCentroid(c);
    EXPECT_TRUE(IsAt(c, 10.0 / 3.0, 10.0 / 3.0));
    Ring({{0.0, 0.0}, {6.0, 0.0}, {6.0, 30.0}, {4.0, 2.0}}).GetCentroid(c);
    EXPECT_TRUE(IsAt(c, 4.0, 8.0));
    // Summed from the first point on, the first 1 is lost in 1e16 and the second is not.
    Ring({{1e16, -1e16}, {1.0, 1.0}, {-1e16, 1e16}, {1.0, 1.0}}).GetCentroid(c);
    EXPECT_TRUE(IsAt(c, 0.25, 0.25));
    PolygonGeom().GetCentroid(c);
    EXPECT_TRUE(std::isnan(c.x));
    EXPECT_TRUE(std::isnan(c.y));
}

TEST(PolygonGeom, ApplyTransformMapsPointsAndExtents) {
    Mtx2D m;
    m.m11 = 2.0;
    m.m12 = 3.0;
    m.m21 = 5.0;
    m.m22 = 7.0;
    m.dx = 100.0;
    m.dy = 200.0;
    m.SetType();
    PolygonGeom ring = Ring({{1.0, 10.0}, {20.0, 3.0}, {-1.0, -2.0}});
    ring.ApplyTransform(&m);
    EXPECT_TRUE(Holds(ring, {{152.0, 273.0}, {155.0, 281.0}, {88.0, 183.0}}));
    EXPECT_TRUE(Spans(ring, 88.0, 183.0, 155.0, 281.0));

    PolygonGeom nowhere = Ring({{kNan, kNan}});
    nowhere.ApplyTransform(&m);
    EXPECT_TRUE(Spans(nowhere, kFloatMax, kFloatMax, -kFloatMax, -kFloatMax));
    PolygonGeom none;
    none.extents.TSet(1.0, 2.0, 3.0, 4.0);
    none.ApplyTransform(&m);
    EXPECT_TRUE(Spans(none, 1.0, 2.0, 3.0, 4.0));
}

TEST(PolygonGeom, WithoutABlockHasNoPointsWhateverItsCount) {
    PolygonGeom ring = Ring({kA, kB, kC});
    DblPt* const taken = ring.pts;
    ring.pts = nullptr;
    Mtx2D m;
    m.dx = 100.0;
    m.SetType();
    support::TakeDebugTexts();
    EXPECT_FALSE(ring.HasVertex(kA));
    EXPECT_FALSE(ring.Contains(2.0, 7.0, 0.0));
    EXPECT_FALSE(ring.Contains(DblPt(2.0, 7.0), 0.0));
    ring.MoveVertexTo(0U, kP);
    ring.ApplyTransform(&m);
    ring.Print();
    EXPECT_TRUE(support::TakeDebugTexts().empty());
    EXPECT_EQ(ring.pts, nullptr);
    EXPECT_TRUE(Spans(ring, -5.0, -2.0, 11.0, 20.0));
    ring.pts = taken;
    EXPECT_TRUE(Holds(ring, {kA, kB, kC}));
}

/// The answer for a point, which must be the same in both forms and with every tolerance.
bool Contains(const PolygonGeom& ring, double x, double y) {
    const bool answer = ring.Contains(DblPt(x, y), 0.0);
    for (const double tol : {0.0, 1.0, 1e9, -1e9, kNan}) {
        EXPECT_EQ(ring.Contains(DblPt(x, y), tol), answer) << x << ", " << y << " with " << tol;
        EXPECT_EQ(ring.Contains(x, y, tol), answer) << x << ", " << y << " with " << tol;
    }
    return answer;
}

const chains::Points kSquare{{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}};

TEST(PolygonContains, BottomAndRightOfASquareInEitherDirection) {
    const PolygonGeom clockwise = Ring({kSquare[3], kSquare[2], kSquare[1], kSquare[0]});
    for (const PolygonGeom& square : {Ring(kSquare), clockwise}) {
        EXPECT_TRUE(Contains(square, 5.0, 5.0));
        EXPECT_TRUE(Contains(square, 0.001, 9.999));
        EXPECT_FALSE(Contains(square, 15.0, 5.0));
        EXPECT_FALSE(Contains(square, -5.0, 5.0));
        EXPECT_FALSE(Contains(square, 5.0, 15.0));
        EXPECT_FALSE(Contains(square, 5.0, -5.0));
        EXPECT_FALSE(Contains(square, 0.0, 5.0));
        EXPECT_TRUE(Contains(square, 5.0, 0.0));
        EXPECT_TRUE(Contains(square, 10.0, 5.0));
        EXPECT_FALSE(Contains(square, 5.0, 10.0));
        EXPECT_TRUE(Contains(square, 10.0, 0.0));
        EXPECT_FALSE(Contains(square, 0.0, 0.0));
        EXPECT_FALSE(Contains(square, 10.0, 10.0));
        EXPECT_FALSE(Contains(square, 0.0, 10.0));
    }
}

TEST(PolygonContains, WhateverTheTolerance) {
    EXPECT_FALSE(Contains(Ring(kSquare), 10.0000001, 5.0));
    EXPECT_FALSE(Contains(Ring(kSquare), -1e-300, 5.0));
}

TEST(PolygonContains, WhereverTheRingStarts) {
    for (size_t first = 0; first < 4; ++first) {
        const PolygonGeom square =
            Ring({kSquare[first], kSquare[(first + 1) % 4], kSquare[(first + 2) % 4], kSquare[(first + 3) % 4]});
        EXPECT_TRUE(Contains(square, 3.0, 2.0));
        EXPECT_FALSE(Contains(square, 0.0, 2.0));
        EXPECT_TRUE(Contains(square, 10.0, 2.0));
    }
}

TEST(PolygonContains, BothLobesOfAFigureEight) {
    const PolygonGeom eight = Ring({{0.0, 0.0}, {10.0, 10.0}, {10.0, 0.0}, {0.0, 10.0}});
    EXPECT_TRUE(Contains(eight, 1.0, 5.0));
    EXPECT_TRUE(Contains(eight, 9.0, 5.0));
    EXPECT_FALSE(Contains(eight, 5.0, 9.0));
    EXPECT_FALSE(Contains(eight, 5.0, 1.0));
}

TEST(PolygonContains, WhatIsWoundRoundTwiceAndNotWhatIsUnwound) {
    const PolygonGeom twice =
        Ring({{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}, {0.0, 0.0}, {5.0, 0.0}, {5.0, 5.0}, {0.0, 5.0}});
    EXPECT_TRUE(Contains(twice, 2.0, 2.0));
    EXPECT_TRUE(Contains(twice, 7.0, 7.0));
    const PolygonGeom hole =
        Ring({{0.0, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}, {0.0, 0.0}, {0.0, 5.0}, {5.0, 5.0}, {5.0, 0.0}});
    EXPECT_FALSE(Contains(hole, 2.0, 2.0));
    EXPECT_TRUE(Contains(hole, 7.0, 7.0));
}

// The apex counts for neither of its edges, the foot for both.
TEST(PolygonContains, CornersAtTheHeightOfThePoint) {
    const PolygonGeom diamond = Ring({{5.0, 0.0}, {10.0, 5.0}, {5.0, 10.0}, {0.0, 5.0}});
    EXPECT_TRUE(Contains(diamond, 4.0, 5.0));
    EXPECT_FALSE(Contains(diamond, -1.0, 5.0));
    EXPECT_FALSE(Contains(diamond, 11.0, 5.0));
    EXPECT_TRUE(Contains(diamond, 10.0, 5.0));
    EXPECT_FALSE(Contains(diamond, 0.0, 5.0));
    EXPECT_FALSE(Contains(diamond, 5.0, 10.0));
    EXPECT_FALSE(Contains(diamond, 4.0, 10.0));
    EXPECT_FALSE(Contains(diamond, 4.0, 0.0));
    EXPECT_FALSE(Contains(diamond, 5.0, 0.0));
}

TEST(PolygonContains, NothingInFewerThanThreePoints) {
    EXPECT_FALSE(Contains(PolygonGeom(), 0.0, 0.0));
    EXPECT_FALSE(Contains(Ring({kA}), kA.x, kA.y));
    EXPECT_FALSE(Contains(Ring({kA}), 0.0, 0.0));
    EXPECT_FALSE(Contains(PolygonGeom(2U), 0.0, 0.0));

    // There and back: on the edge itself the two ways cancel.
    const PolygonGeom edge = Ring({{0.0, 0.0}, {4.0, 8.0}});
    EXPECT_FALSE(Contains(edge, 2.0, 4.0));
    EXPECT_FALSE(Contains(edge, 3.0, 4.0));
    EXPECT_FALSE(Contains(edge, 1.0, 4.0));
}

TEST(PolygonContains, RegardlessOfTheCachedExtents) {
    PolygonGeom square = Ring(kSquare);
    square.extents.TSet(100.0, 100.0, 200.0, 200.0);
    EXPECT_TRUE(Contains(square, 5.0, 5.0));
    square.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    EXPECT_FALSE(Contains(square, 15.0, 5.0));
    EXPECT_TRUE(Spans(square, -100.0, -100.0, 100.0, 100.0));
}

TEST(PolygonContains, NothingThatIsNan) {
    const PolygonGeom square = Ring(kSquare);
    EXPECT_FALSE(Contains(square, kNan, 5.0));
    EXPECT_FALSE(Contains(square, 5.0, kNan));
    EXPECT_FALSE(Contains(square, kInfinity, 5.0));
    // An edge with a NaN counts for nothing: without the left side only what the right one adds is left.
    const PolygonGeom open = Ring({{kNan, 0.0}, {10.0, 0.0}, {10.0, 10.0}, {0.0, 10.0}});
    EXPECT_TRUE(Contains(open, 5.0, 5.0));
    EXPECT_TRUE(Contains(open, -5.0, 5.0));
    EXPECT_FALSE(Contains(open, 11.0, 5.0));
}

TEST(PolygonContains, InARingOfManyPoints) {
    PolygonGeom comb;  // teeth of height 10 and width 1, the sides of which stand upright
    for (int tooth = 0; tooth < 50; ++tooth) {
        DblPt points[] = {{2.0 * tooth, 1.0}, {2.0 * tooth, 10.0}, {2.0 * tooth + 1.0, 10.0}, {2.0 * tooth + 1.0, 1.0}};
        for (DblPt& p : points)
            ASSERT_TRUE(comb.AddPoint(p));
    }
    DblPt lowerRight(99.0, 0.0);
    DblPt lowerLeft(0.0, 0.0);
    ASSERT_TRUE(comb.AddPoint(lowerRight));
    ASSERT_TRUE(comb.AddPoint(lowerLeft));
    for (int tooth = 0; tooth < 50; ++tooth) {
        EXPECT_TRUE(Contains(comb, 2.0 * tooth + 0.5, 5.0)) << tooth;
        EXPECT_FALSE(Contains(comb, 2.0 * tooth + 1.5, 5.0)) << tooth;
        EXPECT_TRUE(Contains(comb, 2.0 * tooth + 1.0, 5.0)) << tooth;
        EXPECT_FALSE(Contains(comb, 2.0 * tooth, 5.0)) << tooth;
        EXPECT_TRUE(Contains(comb, 2.0 * tooth + 0.5, 0.5)) << tooth;
        EXPECT_FALSE(Contains(comb, 2.0 * tooth + 0.5, 10.0)) << tooth;
    }
    EXPECT_FALSE(Contains(comb, -0.5, 5.0));
    EXPECT_FALSE(Contains(comb, 50.0, -1.0));
}

}  // namespace
