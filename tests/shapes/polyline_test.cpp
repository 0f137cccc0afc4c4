// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "shapes/chain_checks.h"
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
using Vellum::PolylineGeom;
using Vellum::Shape;

static_assert(std::is_base_of_v<Shape, PolylineGeom>);
static_assert(!std::is_base_of_v<ClosedShape, PolylineGeom>);
static_assert(!std::is_convertible_v<unsigned, PolylineGeom>);

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kFloatMax = 3.4028234663852886e38;

const DblPt kA(3.0, 20.0);
const DblPt kB(-5.0, 7.0);
const DblPt kC(11.0, -2.0);
const DblPt kD(6.0, 13.0);
const DblPt kP(40.0, 50.0);

PolylineGeom Line(const chains::Points& points) { return chains::Of<PolylineGeom>(points); }

TEST(PolylineGeom, StartsEmpty) {
    const PolylineGeom line;
    EXPECT_TRUE(IsEmpty(line));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(line.NPts(), 0U);
    EXPECT_EQ(line.Pts(), nullptr);
    EXPECT_EQ(line.Start(), nullptr);
    EXPECT_EQ(line.End(), nullptr);
    EXPECT_EQ(line.RStart(), nullptr);
    EXPECT_EQ(line.REnd(), nullptr);
}

TEST(PolylineGeom, IsMadeOfPointsAtTheOrigin) {
    EXPECT_TRUE(IsEmpty(PolylineGeom(0U)));
    EXPECT_TRUE(IsEmpty(PolylineGeom(1U)));
    const PolylineGeom line(3U);
    EXPECT_TRUE(Holds(line, {{}, {}, {}}));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(Holds(PolylineGeom(2U), {{}, {}}));
}

TEST(PolylineGeom, IsMadeOfCoordinates) {
    double xs[] = {3.0, -5.0, 11.0};
    double ys[] = {20.0, 7.0, -2.0};
    const PolylineGeom line(3U, xs, ys);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    EXPECT_TRUE(Holds(PolylineGeom(2U, xs, ys), {kA, kB}));
    EXPECT_TRUE(Spans(PolylineGeom(2U, xs, ys), -5.0, 7.0, 3.0, 20.0));
    EXPECT_TRUE(IsEmpty(PolylineGeom(1U, xs, ys)));
    EXPECT_TRUE(Spans(PolylineGeom(1U, xs, ys), 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(IsEmpty(PolylineGeom(0U, nullptr, nullptr)));
}

TEST(PolylineGeom, IsMadeOfPoints) {
    const DblPt points[] = {kA, kB, kC};
    const PolylineGeom line(3U, points);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_NE(line.Pts(), points);
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    EXPECT_TRUE(Holds(PolylineGeom(2U, points), {kA, kB}));
    EXPECT_TRUE(Spans(PolylineGeom(2U, points), -5.0, 7.0, 3.0, 20.0));
    EXPECT_TRUE(IsEmpty(PolylineGeom(1U, points)));
    EXPECT_TRUE(Spans(PolylineGeom(1U, points), 0.0, 0.0, 0.0, 0.0));
    EXPECT_TRUE(IsEmpty(PolylineGeom(0U, points)));
    EXPECT_TRUE(IsEmpty(PolylineGeom(0U, nullptr)));
}

TEST(PolylineGeom, IsDestroyedThroughItsBase) {
    const std::unique_ptr<Shape> shape = std::make_unique<PolylineGeom>(Line({kA, kB}));
    EXPECT_NE(shape, nullptr);
}

TEST(PolylineGeom, CopiesPointsAndCachedExtents) {
    PolylineGeom line = Line({kA, kB, kC});
    line.extents.TSet(9.0, 8.0, 7.0, 6.0);
    const PolylineGeom copy(line);
    EXPECT_TRUE(Holds(copy, {kA, kB, kC}));
    EXPECT_TRUE(Spans(copy, 9.0, 8.0, 7.0, 6.0));
    EXPECT_NE(copy.pts, line.pts);
}

TEST(PolylineGeom, CopiesASinglePointAndNone) {
    const PolylineGeom single = Line({kA});
    EXPECT_TRUE(Holds(PolylineGeom(single), {kA}));
    PolylineGeom none;
    none.extents.TSet(1.0, 2.0, 3.0, 4.0);
    const PolylineGeom copy(none);
    EXPECT_TRUE(IsEmpty(copy));
    EXPECT_TRUE(Spans(copy, 1.0, 2.0, 3.0, 4.0));

    // A count that was cut down to nothing leaves a block behind; the copy needs none.
    PolylineGeom cut = Line({kA, kB});
    cut.TrimBack(~0U);
    EXPECT_EQ(cut.nPts, 0U);
    EXPECT_TRUE(IsEmpty(PolylineGeom(cut)));
}

TEST(PolylineGeom, AssignsPointsAndCachedExtents) {
    PolylineGeom source = Line({kA, kB, kC});
    source.extents.TSet(9.0, 8.0, 7.0, 6.0);
    PolylineGeom target;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_TRUE(Holds(target, {kA, kB, kC}));
    EXPECT_TRUE(Spans(target, 9.0, 8.0, 7.0, 6.0));
    EXPECT_NE(target.pts, source.pts);

    PolylineGeom longer = Line({kD, kD, kD, kD, kD});
    longer = source;
    EXPECT_TRUE(Holds(longer, {kA, kB, kC}));
    PolylineGeom shorter = Line({kD});
    shorter = source;
    EXPECT_TRUE(Holds(shorter, {kA, kB, kC}));
    EXPECT_TRUE(Holds(source, {kA, kB, kC}));
}

TEST(PolylineGeom, AssignedToItselfIsUnchanged) {
    PolylineGeom line = Line({kA, kB, kC});
    const DblPt* const block = line.pts;
    const PolylineGeom& same = line;
    line = same;
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_EQ(line.pts, block);
}

TEST(PolylineGeom, AssignedAnEmptyOneIsEmpty) {
    PolylineGeom none;
    none.extents.TSet(1.0, 2.0, 3.0, 4.0);
    PolylineGeom line = Line({kA, kB, kC});
    line = none;
    EXPECT_TRUE(IsEmpty(line));
    EXPECT_TRUE(Spans(line, 1.0, 2.0, 3.0, 4.0));
    line = PolylineGeom();
    EXPECT_TRUE(IsEmpty(line));
    EXPECT_TRUE(line.AddPoint(kA));
    EXPECT_TRUE(Holds(line, {kA}));
}

TEST(PolylineGeom, SpliceInsertsPoints) {
    const PolylineGeom src = Line({kA, kB, kC});
    const DblPt ins[] = {kP, kD};
    const PolylineGeom middle(src, 0U, 1U, 2U, ins);
    EXPECT_TRUE(Holds(middle, {kA, kP, kD, kB, kC}));
    EXPECT_TRUE(Spans(middle, -5.0, -2.0, 40.0, 50.0));
    EXPECT_TRUE(Holds(PolylineGeom(src, 1U, 2U, 1U, ins), {kA, kB, kP, kC}));
    EXPECT_TRUE(Holds(PolylineGeom(src, 2U, 3U, 2U, ins), {kA, kB, kC, kP, kD}));
    EXPECT_TRUE(Holds(src, {kA, kB, kC}));
}

TEST(PolylineGeom, SpliceAtTheFrontTakesNothingFromTheHead) {
    const PolylineGeom src = Line({kA, kB});
    const DblPt ins[] = {kP, kD, kC};
    const PolylineGeom line(src, ~0U, 0U, 3U, ins);
    EXPECT_TRUE(Holds(line, {kP, kD, kC, kA, kB}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 40.0, 50.0));
}

TEST(PolylineGeom, SpliceOfNothingIsACopyWithTightExtents) {
    PolylineGeom src = Line({kA, kB, kC});
    src.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    const PolylineGeom line(src, 0U, 1U, 0U, nullptr);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
}

// Where the three ranges overlap the later one wins: the inserted points over the head, the tail over both.
TEST(PolylineGeom, SpliceCopiesHeadThenInsertionThenTail) {
    const PolylineGeom src = Line({kA, kB, kC, kD});
    const DblPt ins[] = {kP, {41.0, 51.0}};
    EXPECT_TRUE(Holds(PolylineGeom(src, 3U, 1U, 2U, ins), {kA, kP, {41.0, 51.0}, kB, kC, kD}));
    EXPECT_TRUE(Holds(PolylineGeom(src, 3U, 0U, 2U, ins), {kP, {41.0, 51.0}, kA, kB, kC, kD}));
}

// A head that ends before the insertion leaves places that nothing fills.
TEST(PolylineGeom, SpliceFillsAGapWithTheOrigin) {
    const PolylineGeom src = Line({kA, kB, kC, kD});
    const DblPt ins[] = {kP};
    const PolylineGeom line(src, 0U, 3U, 1U, ins);
    EXPECT_TRUE(Holds(line, {kA, {}, {}, kP, kD}));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 40.0, 50.0));
}

TEST(PolylineGeom, SpliceIntoAnEmptyOne) {
    const PolylineGeom none;
    const DblPt ins[] = {kA, kB};
    EXPECT_TRUE(Holds(PolylineGeom(none, ~0U, 0U, 2U, ins), {kA, kB}));
    const PolylineGeom single(none, ~0U, 0U, 1U, ins);
    EXPECT_TRUE(Holds(single, {kA}));
    EXPECT_TRUE(Spans(single, 3.0, 20.0, 3.0, 20.0));
    EXPECT_TRUE(IsEmpty(PolylineGeom(none, ~0U, 0U, 0U, nullptr)));
}

TEST(PolylineGeom, SpliceMayInsertTheSourcesOwnPoints) {
    const PolylineGeom src = Line({kA, kB, kC});
    EXPECT_TRUE(Holds(PolylineGeom(src, 0U, 1U, 2U, src.pts + 1), {kA, kB, kC, kB, kC}));
}

TEST(PolylineGeom, ExtendAtTheFrontPrepends) {
    const PolylineGeom src = Line({kA, kB});
    const DblPt ins[] = {kP, kD, kC};
    const PolylineGeom line(src, true, 3U, ins);
    EXPECT_TRUE(Holds(line, {kP, kD, kC, kA, kB}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 40.0, 50.0));
    EXPECT_TRUE(Holds(PolylineGeom(src, true, 1U, ins), {kP, kA, kB}));
    EXPECT_TRUE(Holds(PolylineGeom(src, true, 0U, nullptr), {kA, kB}));
}

TEST(PolylineGeom, ExtendAtTheBackTakesOnlyWhatBringsTheCountUp) {
    const PolylineGeom src = Line({kA, kB});
    const DblPt ins[] = {kP, kD, kC, kP, kD};
    const PolylineGeom line(src, false, 5U, ins);
    EXPECT_TRUE(Holds(line, {kA, kB, kP, kD, kC, {}, {}}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 40.0, 50.0));
    EXPECT_TRUE(Holds(PolylineGeom(src, false, 3U, ins), {kA, kB, kP, {}, {}}));
    EXPECT_TRUE(Holds(PolylineGeom(src, false, 0U, nullptr), {kA, kB}));
}

TEST(PolylineGeom, ExtendAtTheBackByNoMoreThanThereIsTakesNothing) {
    const PolylineGeom src = Line({kA, kB});
    const DblPt ins[] = {kP, kD};
    const PolylineGeom line(src, false, 2U, ins);
    EXPECT_TRUE(Holds(line, {kA, kB, {}, {}}));
    EXPECT_TRUE(Spans(line, -5.0, 0.0, 3.0, 20.0));
    EXPECT_TRUE(Holds(PolylineGeom(src, false, 1U, ins), {kA, kB, {}}));
}

TEST(PolylineGeom, ExtendsAnEmptyOne) {
    const PolylineGeom none;
    const DblPt ins[] = {kA, kB};
    EXPECT_TRUE(Holds(PolylineGeom(none, true, 2U, ins), {kA, kB}));
    EXPECT_TRUE(Holds(PolylineGeom(none, false, 2U, ins), {kA, kB}));
    EXPECT_TRUE(Holds(PolylineGeom(none, false, 1U, ins), {kA}));
    EXPECT_TRUE(IsEmpty(PolylineGeom(none, false, 0U, nullptr)));
    EXPECT_TRUE(IsEmpty(PolylineGeom(none, true, 0U, nullptr)));
}

TEST(PolylineGeom, ExtendComputesTheExtentsFromThePointsAlone) {
    PolylineGeom src = Line({kA, kB});
    src.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    const DblPt ins[] = {kD, kA, kD};
    EXPECT_TRUE(Spans(PolylineGeom(src, true, 3U, ins), -5.0, 7.0, 6.0, 20.0));
    EXPECT_TRUE(Spans(PolylineGeom(PolylineGeom(), false, 2U, ins), 3.0, 13.0, 6.0, 20.0));
}

// No host has 2^32 points; the counts alone say that there is no polyline of so many.
TEST(PolylineGeom, ACountBeyond32BitsIsAFailedAllocation) {
    PolylineGeom huge = Line({kA, kB});
    const DblPt ins[] = {kP, kP, kP};
    huge.nPts = UINT32_MAX;
    EXPECT_TRUE(IsEmpty(PolylineGeom(huge, ~0U, 0U, 3U, ins)));
    EXPECT_TRUE(IsEmpty(PolylineGeom(huge, true, 3U, ins)));
    EXPECT_TRUE(IsEmpty(PolylineGeom(huge, false, 3U, ins)));
    EXPECT_TRUE(Spans(PolylineGeom(huge, true, 3U, ins), 0.0, 0.0, 0.0, 0.0));
    EXPECT_FALSE(huge.AddPoint(kP));
    EXPECT_FALSE(huge.PrependPoint(kP));
    EXPECT_FALSE(huge.InsertPoint(0U, kP));
    EXPECT_EQ(huge.nPts, UINT32_MAX);
    EXPECT_TRUE(Spans(huge, -5.0, 7.0, 3.0, 20.0));
    huge.nPts = 2;
    EXPECT_TRUE(Holds(huge, {kA, kB}));
}

TEST(PolylineGeom, GivesItsPoints) {
    PolylineGeom line = Line({kA, kB, kC});
    EXPECT_EQ(line.NPts(), 3U);
    EXPECT_EQ(line.Pts(), line.pts);
    EXPECT_EQ(line.Start(), line.pts);
    EXPECT_EQ(line.End(), line.pts + 3);
    EXPECT_EQ(line.RStart(), line.pts + 2);
    EXPECT_EQ(line.REnd() + 1, line.pts);
    EXPECT_EQ(&line.First(), line.pts);
    EXPECT_EQ(&line.Last(), line.pts + 2);
    EXPECT_EQ(&line.StartPt(), line.pts);
    EXPECT_EQ(&line.EndPt(), line.pts + 2);
    EXPECT_EQ(&line.Vtx(1), line.pts + 1);
    EXPECT_EQ(&line.Vtx0(1), line.pts + 1);

    const PolylineGeom& fixed = line;
    EXPECT_EQ(fixed.Pts(), line.pts);
    EXPECT_EQ(fixed.Start(), line.pts);
    EXPECT_EQ(fixed.End(), line.pts + 3);
    EXPECT_EQ(fixed.RStart(), line.pts + 2);
    EXPECT_EQ(fixed.REnd() + 1, line.pts);
    EXPECT_EQ(&fixed.First(), line.pts);
    EXPECT_EQ(&fixed.Last(), line.pts + 2);
    EXPECT_EQ(&fixed.EndPt(), line.pts + 2);
    EXPECT_EQ(&fixed.Vtx(2), line.pts + 2);
    EXPECT_EQ(&fixed.Vtx0(2), line.pts + 2);
}

TEST(PolylineGeom, WalksBackwards) {
    const PolylineGeom line = Line({kA, kB, kC});
    std::vector<double> xs;
    for (const DblPt* p = line.RStart(); p != line.REnd(); --p)
        xs.push_back(p->x);
    EXPECT_EQ(xs, (std::vector<double>{11.0, -5.0, 3.0}));

    PolylineGeom cut = Line({kA, kB});
    cut.TrimBack(~0U);
    EXPECT_EQ(cut.RStart(), cut.REnd());
    const PolylineGeom& fixed = cut;
    EXPECT_EQ(fixed.RStart(), fixed.REnd());
}

TEST(PolylineGeom, NextVtxWraps) {
    const PolylineGeom line = Line({kA, kB, kC});
    EXPECT_EQ(&line.NextVtx(0), line.pts);
    EXPECT_EQ(&line.NextVtx(2), line.pts + 2);
    EXPECT_EQ(&line.NextVtx(3), line.pts);
    EXPECT_EQ(&line.NextVtx(7), line.pts + 1);
}

TEST(PolylineGeom, SetLeavesTheExtents) {
    PolylineGeom line = Line({kA, kB, kC});
    line.Set(1, kP);
    EXPECT_TRUE(Holds(line, {kA, kP, kC}));
    line.Set(2, 60.0, 70.0);
    EXPECT_TRUE(Holds(line, {kA, kP, {60.0, 70.0}}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    line.Set(0, line.Vtx(2));
    EXPECT_TRUE(Holds(line, {{60.0, 70.0}, kP, {60.0, 70.0}}));
}

TEST(PolylineGeom, GivesItsExtents) {
    PolylineGeom line = Line({kA, kB, kC});
    EXPECT_EQ(&line.Extents(), &line.extents);
    EXPECT_EQ(&line.LLExtent(), &line.extents.ll);
    EXPECT_EQ(&line.URExtent(), &line.extents.ur);
    AlignedDblRect r;
    line.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, -5.0, -2.0));
    EXPECT_TRUE(IsAt(r.ur, 11.0, 20.0));

    // A crossed box is handed out as it is.
    line.extents.TSet(9.0, 8.0, 7.0, 6.0);
    line.GetExtents(r);
    EXPECT_TRUE(IsAt(r.ll, 9.0, 8.0));
    EXPECT_TRUE(IsAt(r.ur, 7.0, 6.0));
}

TEST(PolylineGeom, GetBBoxCenterIsThatOfTheCachedExtents) {
    PolylineGeom line = Line({kA, kB});
    line.extents.TSet(10.0, 100.0, 14.0, 130.0);
    DblPt c;
    line.GetBBoxCenter(c);
    EXPECT_TRUE(IsAt(c, 12.0, 115.0));

    // Half the size is added to the left and the bottom, in a crossed box too.
    line.extents.TSet(14.0, 130.0, 10.0, 100.0);
    line.GetBBoxCenter(c);
    EXPECT_TRUE(IsAt(c, 16.0, 145.0));
    line.GetBBoxCenter(line.extents.ll);
    EXPECT_TRUE(IsAt(line.extents.ll, 16.0, 145.0));
}

TEST(PolylineGeom, HasVertexIsExact) {
    const PolylineGeom line = Line({kA, kB, kC});
    EXPECT_TRUE(line.HasVertex(kA));
    EXPECT_TRUE(line.HasVertex(kB));
    EXPECT_TRUE(line.HasVertex(kC));
    EXPECT_FALSE(line.HasVertex(kD));
    EXPECT_FALSE(line.HasVertex(DblPt(kA.x, kB.y)));
    EXPECT_FALSE(line.HasVertex(DblPt(std::nextafter(kC.x, 99.0), kC.y)));
    EXPECT_TRUE(PolylineGeom(2U).HasVertex(DblPt(-0.0, 0.0)));
    EXPECT_FALSE(Line({DblPt(kNan, 0.0)}).HasVertex(DblPt(kNan, 0.0)));
    EXPECT_FALSE(PolylineGeom().HasVertex(DblPt()));

    PolylineGeom cut = Line({kA, kB});
    cut.TrimBack(~0U);
    EXPECT_FALSE(cut.HasVertex(kA));
}

TEST(PolylineGeom, TheCentroidIsTheMeanOfThePoints) {
    DblPt c;
    Line({{0.0, 0.0}, {6.0, 0.0}, {6.0, 30.0}, {4.0, 2.0}}).GetCentroid(c);
    EXPECT_TRUE(IsAt(c, 4.0, 8.0));

    // Summed from the first point on, the first 1 is lost in 1e16 and the second is not.
    Line({{1e16, -1e16}, {1.0, 1.0}, {-1e16, 1e16}, {1.0, 1.0}}).GetCentroid(c);
    EXPECT_TRUE(IsAt(c, 0.25, 0.25));
    // Divided after the sum: a third each of 1, 1 and 3 would add up to less.
    Line({{1.0, 3.0}, {1.0, 1.0}, {3.0, 1.0}}).GetCentroid(c);
    EXPECT_TRUE(IsAt(c, 1.6666666666666667, 1.6666666666666667));

    PolylineGeom line = Line({kA, kB});
    line.GetCentroid(line.pts[0]);
    EXPECT_TRUE(IsAt(line.pts[0], -1.0, 13.5));
}

TEST(PolylineGeom, TheCentroidOfNoPointsIsNan) {
    DblPt c;
    PolylineGeom().GetCentroid(c);
    EXPECT_TRUE(std::isnan(c.x));
    EXPECT_TRUE(std::isnan(c.y));
}

TEST(PolylineGeom, ComputeLengthAddsUpTheSegments) {
    EXPECT_EQ(PolylineGeom().ComputeLength(), 0.0);
    EXPECT_EQ(Line({kA}).ComputeLength(), 0.0);
    EXPECT_EQ(Line({{0.0, 0.0}, {3.0, 4.0}}).ComputeLength(), 5.0);
    EXPECT_EQ(Line({{0.0, 0.0}, {3.0, 4.0}, {3.0, 10.0}, {15.0, 5.0}}).ComputeLength(), 24.0);

    // From the first segment on, each 1 is lost in 1e16.
    PolylineGeom line = Line({{0.0, 0.0}, {1e16, 0.0}, {1e16, 1.0}, {1e16, 2.0}});
    EXPECT_EQ(line.ComputeLength(), 1e16);
    line.ReverseVertices();
    EXPECT_EQ(line.ComputeLength(), 1e16 + 2.0);
}

TEST(PolylineGeom, RecalcExtentsStartsFromTheFirstPoint) {
    PolylineGeom line = Line({kA, kB, kC});
    line.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    line.RecalcExtents();
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));

    line.TrimBack(0U);
    line.RecalcExtents();
    EXPECT_TRUE(Spans(line, 3.0, 20.0, 3.0, 20.0));
}

// The comparisons are made as they stand: they pass over a NaN, but never move a bound that is one.
TEST(PolylineGeom, NanInTheExtents) {
    PolylineGeom line = Line({kA, {kNan, -50.0}, {70.0, kNan}, kC});
    line.RecalcExtents();
    EXPECT_TRUE(Spans(line, 3.0, -50.0, 70.0, 20.0));

    line.pts[0].x = kNan;
    line.RecalcExtents();
    EXPECT_TRUE(std::isnan(line.extents.ll.x));
    EXPECT_TRUE(std::isnan(line.extents.ur.x));
    EXPECT_EQ(line.extents.ll.y, -50.0);
    EXPECT_EQ(line.extents.ur.y, 20.0);

    line.pts[0] = DblPt(3.0, kNan);
    line.RecalcExtents();
    EXPECT_EQ(line.extents.ll.x, 3.0);
    EXPECT_EQ(line.extents.ur.x, 70.0);
    EXPECT_TRUE(std::isnan(line.extents.ll.y));
    EXPECT_TRUE(std::isnan(line.extents.ur.y));
}

TEST(PolylineGeom, AddPointAppends) {
    PolylineGeom line;
    EXPECT_TRUE(line.AddPoint(kA));
    EXPECT_TRUE(line.AddPoint(kB));
    EXPECT_TRUE(line.AddPoint(kC));
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
}

TEST(PolylineGeom, AddPointWidensTheExtentsFromTheOrigin) {
    PolylineGeom line;
    EXPECT_TRUE(line.AddPoint(DblPt(5.0, 6.0)));
    EXPECT_TRUE(Spans(line, 0.0, 0.0, 5.0, 6.0));
    EXPECT_TRUE(line.AddPoint(DblPt(-3.0, 2.0)));
    EXPECT_TRUE(Spans(line, -3.0, 0.0, 5.0, 6.0));
    EXPECT_TRUE(line.AddPoint(DblPt(1.0, -4.0)));
    EXPECT_TRUE(Spans(line, -3.0, -4.0, 5.0, 6.0));
    EXPECT_TRUE(line.AddPoint(DblPt(kNan, 7.0)));
    EXPECT_TRUE(Spans(line, -3.0, -4.0, 5.0, 7.0));
    line.RecalcExtents();
    EXPECT_TRUE(Spans(line, -3.0, -4.0, 5.0, 7.0));

    PolylineGeom five;
    EXPECT_TRUE(five.AddPoint(DblPt(5.0, 5.0)));
    EXPECT_TRUE(Spans(five, 0.0, 0.0, 5.0, 5.0));
}

// In crossed extents the far side is not looked at where the near one moved.
TEST(PolylineGeom, AddPointWidensOneSideOfAnAxisAtATime) {
    PolylineGeom line;
    line.extents.TSet(10.0, 100.0, 0.0, 0.0);
    EXPECT_TRUE(line.AddPoint(DblPt(5.0, 50.0)));
    EXPECT_TRUE(Spans(line, 5.0, 50.0, 0.0, 0.0));
    line.extents.TSet(10.0, 100.0, 0.0, 0.0);
    EXPECT_TRUE(line.PrependPoint(DblPt(5.0, 50.0)));
    EXPECT_TRUE(Spans(line, 5.0, 50.0, 0.0, 0.0));
    line.extents.TSet(10.0, 100.0, 0.0, 0.0);
    EXPECT_TRUE(line.InsertPoint(0U, DblPt(12.0, 120.0)));
    EXPECT_TRUE(Spans(line, 10.0, 100.0, 12.0, 120.0));
}

TEST(PolylineGeom, PrependPointComesFirst) {
    PolylineGeom line = Line({kA, kB, kC});
    EXPECT_TRUE(line.PrependPoint(kP));
    EXPECT_TRUE(Holds(line, {kP, kA, kB, kC}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 40.0, 50.0));

    PolylineGeom fresh;
    EXPECT_TRUE(fresh.PrependPoint(kC));
    EXPECT_TRUE(Holds(fresh, {kC}));
    EXPECT_TRUE(Spans(fresh, 0.0, -2.0, 11.0, 0.0));
}

TEST(PolylineGeom, InsertPointComesAfterItsIndex) {
    PolylineGeom line = Line({kA, kB, kC});
    EXPECT_TRUE(line.InsertPoint(0U, kP));
    EXPECT_TRUE(Holds(line, {kA, kP, kB, kC}));
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 40.0, 50.0));
    EXPECT_TRUE(line.InsertPoint(3U, kD));
    EXPECT_TRUE(Holds(line, {kA, kP, kB, kC, kD}));
    EXPECT_TRUE(line.InsertPoint(2U, DblPt(0.0, -9.0)));
    EXPECT_TRUE(Holds(line, {kA, kP, kB, {0.0, -9.0}, kC, kD}));
    EXPECT_TRUE(Spans(line, -5.0, -9.0, 40.0, 50.0));
}

// Growing moves the block, and the point that was passed goes with it.
TEST(PolylineGeom, AddsItsOwnPointsAsTheyWere) {
    PolylineGeom line = Line({kA, kB});
    std::vector<DblPt> expected{kA, kB};
    for (unsigned i = 0; i < 300; ++i) {
        ASSERT_TRUE(line.AddPoint(line.pts[i]));
        expected.push_back(i % 2 == 0 ? kA : kB);
    }
    EXPECT_TRUE(Holds(line, expected));

    PolylineGeom front = Line({kA, kB});
    for (int i = 0; i < 300; ++i)
        ASSERT_TRUE(front.PrependPoint(front.Last()));
    EXPECT_TRUE(IsAt(front.First(), kB.x, kB.y));
    EXPECT_TRUE(IsAt(front.Vtx(300), kA.x, kA.y));
    ASSERT_TRUE(front.PrependPoint(front.pts[300]));
    EXPECT_TRUE(IsAt(front.First(), kA.x, kA.y));

    PolylineGeom middle = Line({kA, kB, kC});
    EXPECT_TRUE(middle.InsertPoint(0U, middle.pts[1]));
    EXPECT_TRUE(Holds(middle, {kA, kB, kB, kC}));
    EXPECT_TRUE(middle.InsertPoint(0U, middle.pts[3]));
    EXPECT_TRUE(Holds(middle, {kA, kC, kB, kB, kC}));
    EXPECT_TRUE(middle.InsertPoint(0U, middle.extents.ll));
    EXPECT_TRUE(Holds(middle, {kA, {-5.0, -2.0}, kC, kB, kB, kC}));
}

TEST(PolylineGeom, MoveVertexToRecomputesTheExtents) {
    PolylineGeom line = Line({kA, kB, kC});
    line.MoveVertexTo(1U, DblPt(4.0, 5.0));
    EXPECT_TRUE(Holds(line, {kA, {4.0, 5.0}, kC}));
    EXPECT_TRUE(Spans(line, 3.0, -2.0, 11.0, 20.0));
    line.MoveVertexTo(line.pts[2], DblPt(-6.0, 30.0));
    EXPECT_TRUE(Holds(line, {kA, {4.0, 5.0}, {-6.0, 30.0}}));
    EXPECT_TRUE(Spans(line, -6.0, 5.0, 4.0, 30.0));
    line.MoveVertexTo(line.pts[0], line.pts[1]);
    EXPECT_TRUE(Holds(line, {{4.0, 5.0}, {4.0, 5.0}, {-6.0, 30.0}}));
    EXPECT_TRUE(Spans(line, -6.0, 5.0, 4.0, 30.0));
    line.MoveVertexTo(1U, line.pts[2]);
    EXPECT_TRUE(Holds(line, {{4.0, 5.0}, {-6.0, 30.0}, {-6.0, 30.0}}));
}

TEST(PolylineGeom, MoveVertexToWithoutSuchAPointDoesNothing) {
    PolylineGeom line = Line({kA, kB, kC});
    line.extents.TSet(-100.0, -100.0, 100.0, 100.0);
    line.MoveVertexTo(3U, kP);
    line.MoveVertexTo(~0U, kP);
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
    EXPECT_TRUE(Spans(line, -100.0, -100.0, 100.0, 100.0));
    PolylineGeom none;
    none.MoveVertexTo(0U, kP);
    EXPECT_TRUE(IsEmpty(none));
    EXPECT_TRUE(Spans(none, 0.0, 0.0, 0.0, 0.0));
}

TEST(PolylineGeom, ReverseVerticesTurnsTheOrderRound) {
    PolylineGeom line = Line({kA, kB, kC});
    line.extents.TSet(9.0, 8.0, 7.0, 6.0);
    line.ReverseVertices();
    EXPECT_TRUE(Holds(line, {kC, kB, kA}));
    EXPECT_TRUE(Spans(line, 9.0, 8.0, 7.0, 6.0));
    PolylineGeom even = Line({kA, kB, kC, kD});
    even.ReverseVertices();
    EXPECT_TRUE(Holds(even, {kD, kC, kB, kA}));
    PolylineGeom single = Line({kA});
    single.ReverseVertices();
    EXPECT_TRUE(Holds(single, {kA}));
    PolylineGeom none;
    none.ReverseVertices();
    EXPECT_TRUE(IsEmpty(none));
}

TEST(PolylineGeom, ApplyTransformMapsPointsAndExtents) {
    Mtx2D m;
    m.m11 = 2.0;
    m.m12 = 3.0;
    m.m21 = 5.0;
    m.m22 = 7.0;
    m.dx = 100.0;
    m.dy = 200.0;
    m.SetType();
    PolylineGeom line = Line({{1.0, 10.0}, {20.0, 3.0}, {-1.0, -2.0}});
    line.ApplyTransform(&m);
    EXPECT_TRUE(Holds(line, {{152.0, 273.0}, {155.0, 281.0}, {88.0, 183.0}}));
    EXPECT_TRUE(Spans(line, 88.0, 183.0, 155.0, 281.0));
}

TEST(PolylineGeom, ApplyTransformLeavesNanOutOfTheExtents) {
    const Mtx2D m;
    PolylineGeom line = Line({{kNan, 4.0}, {7.0, kNan}});
    line.ApplyTransform(&m);
    EXPECT_TRUE(Spans(line, 7.0, 4.0, 7.0, 4.0));
    PolylineGeom nowhere = Line({{kNan, kNan}});
    nowhere.ApplyTransform(&m);
    EXPECT_TRUE(Spans(nowhere, kFloatMax, kFloatMax, -kFloatMax, -kFloatMax));
}

TEST(PolylineGeom, ApplyTransformOfNoPointsDoesNothing) {
    const Mtx2D m;
    PolylineGeom none;
    none.extents.TSet(1.0, 2.0, 3.0, 4.0);
    none.ApplyTransform(&m);
    EXPECT_TRUE(Spans(none, 1.0, 2.0, 3.0, 4.0));
    PolylineGeom cut = Line({kA, kB});
    cut.TrimBack(~0U);
    cut.ApplyTransform(&m);
    EXPECT_TRUE(Spans(cut, -5.0, 7.0, 3.0, 20.0));
}

TEST(PolylineGeom, PrintsAsAnInitialiser) {
    support::TakeDebugTexts();
    Line({{0.0, 0.0}, {1.0, 2.0}}).Print();
    EXPECT_EQ(support::TakeDebugTexts(),
              (std::vector<std::string>{"DblPt polyline[2] = {\n", "DblPt(0.000000, 0.000000),\n",
                                        "DblPt(1.000000, 2.000000)\n", "};\n\n"}));
    Line({{-1.25, 10.5}, {3.0, 4.0}, {1e6, 0.1}}).Print();
    EXPECT_EQ(
        support::TakeDebugTexts(),
        (std::vector<std::string>{"DblPt polyline[3] = {\n", "DblPt(-1.250000, 10.500000),\n",
                                  "DblPt(3.000000, 4.000000),\n", "DblPt(1000000.000000, 0.100000)\n", "};\n\n"}));
    Line({{7.0, 8.0}}).Print();
    EXPECT_EQ(support::TakeDebugTexts(),
              (std::vector<std::string>{"DblPt polyline[1] = {\n", "DblPt(7.000000, 8.000000)\n", "};\n\n"}));
}

TEST(PolylineGeom, PrintsNothingWithoutPoints) {
    support::TakeDebugTexts();
    PolylineGeom().Print();
    PolylineGeom cut = Line({kA, kB});
    cut.TrimBack(~0U);
    cut.Print();
    EXPECT_TRUE(support::TakeDebugTexts().empty());
}

TEST(PolylineGeom, WithoutABlockHasNoPointsWhateverItsCount) {
    PolylineGeom line = Line({kA, kB, kC});
    DblPt* const taken = line.pts;
    line.pts = nullptr;
    Mtx2D m;
    m.dx = 100.0;
    m.SetType();
    support::TakeDebugTexts();
    EXPECT_FALSE(line.HasVertex(kA));
    line.ReverseVertices();
    line.MoveVertexTo(0U, kP);
    line.ApplyTransform(&m);
    line.Print();
    EXPECT_TRUE(support::TakeDebugTexts().empty());
    EXPECT_EQ(line.pts, nullptr);
    EXPECT_TRUE(Spans(line, -5.0, -2.0, 11.0, 20.0));
    line.pts = taken;
    EXPECT_TRUE(Holds(line, {kA, kB, kC}));
}

}  // namespace
