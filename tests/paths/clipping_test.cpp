// SPDX-License-Identifier: MIT

// `ClipPolygonSet` and `ClipPolygonSetMaxPts` by examples worked out by hand. Where nothing else is said the rectangle
// is the square from (0, 0) to (10, 10), whose sides lead up, right, down and back to the left.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <thread>
#include <vector>

#include "paths/clip_checks.h"
#include "vellum/clipping.h"

namespace {

using paths_tests::AppendTo;
using paths_tests::Box;
using paths_tests::Clipped;
using paths_tests::Corners;
using paths_tests::Holds;
using paths_tests::MaxPtsOf;
using paths_tests::PolygonOf;
using paths_tests::SetOf;
using reference::PointSet;
using Vellum::DblPt;
using Vellum::DblRect;
using Vellum::DrwPSetT;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

// By so much of an edge's length a hit at its start is moved into it.
constexpr double kNudge = 0x1p-23;

const DblRect kSquare = Box(0, 0, 10, 10);
const DblRect kDiamond = Corners({0, 10}, {10, 20}, {20, 10}, {10, 0});
const PointSet kNothing;

// Laps over the square's upper right corner.
const PointSet kLapping = PolygonOf({{5, 5}, {15, 5}, {15, 15}, {5, 15}});
const PointSet kLappingClipped = PolygonOf({{10, 5}, {10, 10}, {5, 10}, {5, 5}});
const PointSet kSmall = PolygonOf({{2, 2}, {4, 2}, {4, 4}});

// ---- Splitting ----

TEST(ClipPolygonSet, SkipsEndCodesAtTheBeginning) {
    PointSet in = SetOf({{1, 1, 2}, {2, 1, 3}, {2, 2, 2}});
    AppendTo(in, kSmall);
    EXPECT_TRUE(Holds(Clipped(in, kSquare), kSmall));
}

TEST(ClipPolygonSet, SkipsEndCodesBetweenPolygons) {
    PointSet in = kSmall;
    AppendTo(in, SetOf({{1, 1, 3}, {9, 9, 2}}));
    AppendTo(in, kLapping);
    PointSet expected = kSmall;
    AppendTo(expected, kLappingClipped);
    EXPECT_TRUE(Holds(Clipped(in, kSquare), expected));
}

TEST(ClipPolygonSet, IgnoresATailWithoutAnEndCode) {
    PointSet in = kSmall;
    AppendTo(in, SetOf({{1, 1, 0}, {3, 1, 1}, {3, 3, 0}, {1, 3, 7}}));
    EXPECT_TRUE(Holds(Clipped(in, kSquare), kSmall));
    EXPECT_TRUE(Holds(Clipped(SetOf({{1, 1, 0}, {3, 1, 0}, {3, 3, 0}}), kSquare), kNothing));
}

TEST(ClipPolygonSet, OnlyEndCodesGiveNothing) {
    EXPECT_TRUE(Holds(Clipped(SetOf({{1, 1, 2}, {3, 1, 3}, {3, 3, 2}}), kSquare), kNothing));
}

TEST(ClipPolygonSet, ReadsNothingWhereThereIsNoPoint) {
    for (const int32_t count : {0, -1, std::numeric_limits<int32_t>::min()}) {
        DrwPSetT in{count, nullptr, nullptr};
        DrwPSetT out{3, nullptr, nullptr};
        DblRect clip = kSquare;
        Vellum::ClipPolygonSet(&in, &out, &clip);
        EXPECT_EQ(out.numPts, 3);
        Vellum::ClipPolygonSetComplete(&in, &out, &clip);
        EXPECT_EQ(out.numPts, 3);
        EXPECT_EQ(Vellum::ClipPolygonSetMaxPts(&in), 0u);
    }
}

TEST(ClipPolygonSet, EachPolygonInTurn) {
    PointSet in = kLapping;
    in.codes.back() = 3;  // ends a polygon as 2 does
    AppendTo(in, SetOf({{1, 1, 0}, {2, 1, 0}, {2, 2, 3}}));
    AppendTo(in, PolygonOf({{20, 20}, {30, 20}, {30, 30}}));
    AppendTo(in, PolygonOf({{-9, -9}, {20, -9}, {20, 20}, {-9, 20}}));
    AppendTo(in, PolygonOf({{8, 1}, {12, 1}, {12, 2}, {8, 2}}));
    PointSet expected = SetOf({{10, 5, 0}, {10, 10, 0}, {5, 10, 1}, {5, 5, 2}});
    AppendTo(expected, SetOf({{1, 1, 0}, {2, 1, 0}, {2, 2, 3}}));
    AppendTo(expected, PolygonOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}}));
    AppendTo(expected, PolygonOf({{10, 1}, {10, 2}, {8, 2}, {8, 1}}));
    EXPECT_TRUE(Holds(Clipped(in, kSquare), expected));
}

// ---- Polygons that are none ----

TEST(ClipPolygonSet, OnePointGivesNothing) {
    EXPECT_TRUE(Holds(Clipped(SetOf({{5, 5, 2}}), kSquare), kNothing));
    EXPECT_TRUE(Holds(Clipped(SetOf({{5, 5, 0}}), kSquare), kNothing));
}

TEST(ClipPolygonSet, ARingOfOneVertexGivesNothing) {
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{5, 5}, {5, 5}}), kSquare), kNothing));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{5, 5}, {5, 5}, {5, 5}, {5, 5}}), kSquare), kNothing));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{0.0, 5}, {-0.0, 5}, {0.0, 5}}), Box(-10, 0, 10, 10)), kNothing));
}

TEST(ClipPolygonSet, TwoPointsAreAPolygon) {
    const PointSet inside = SetOf({{2, 5, 1}, {5, 5, 3}});
    EXPECT_TRUE(Holds(Clipped(inside, kSquare), inside));
    // There and back; each way meets each of two sides.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-5, 5}, {15, 5}}), kSquare), PolygonOf({{0, 5}, {0, 5}, {10, 5}, {10, 5}})));
}

// ---- One within the other ----

TEST(ClipPolygonSet, APolygonWithinIsCopiedAsItStands) {
    const PointSet in = SetOf({{2, 2, 1}, {2, 2, 0}, {4, 2, 7}, {4, 2, 7}, {4, 4, 4294967295u}, {4, 4, 1}, {2, 2, 3}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), in));
}

TEST(ClipPolygonSet, ARectangleWithinGivesItsCorners) {
    const PointSet in = SetOf({{-5, -5, 1}, {15, -5, 1}, {15, 15, 7}, {-5, 15, 3}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), SetOf({{0, 0, 0}, {0, 10, 0}, {10, 10, 0}, {10, 0, 2}})));
    // In the order in which they are held, whatever that is.
    EXPECT_TRUE(Holds(Clipped(in, Box(10, 0, 0, 10)), SetOf({{10, 0, 0}, {10, 10, 0}, {0, 10, 0}, {0, 0, 2}})));
    EXPECT_TRUE(Holds(Clipped(in, Box(10, 10, 0, 0)), SetOf({{10, 10, 0}, {10, 0, 0}, {0, 0, 0}, {0, 10, 2}})));
}

TEST(ClipPolygonSet, APolygonOutsideGivesNothing) {
    for (const DblPt& at : {DblPt(-20, 5), DblPt(20, 5), DblPt(5, -20), DblPt(5, 20), DblPt(-20, -20), DblPt(20, 20)}) {
        const PointSet in = PolygonOf({{at.x, at.y}, {at.x + 2, at.y}, {at.x + 2, at.y + 2}});
        EXPECT_TRUE(Holds(Clipped(in, kSquare), kNothing));
    }
}

TEST(ClipPolygonSet, APolygonThatOnlyGoesRoundGivesNothing) {
    // From above down one side, along below and up the other, and all the way back.
    const PointSet in = PolygonOf({{-5, -5}, {15, -5}, {15, 15}, {12, 15}, {12, -2}, {-2, -2}, {-2, 15}, {-5, 15}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), kNothing));
}

TEST(ClipPolygonSet, WindingCountsBothWays) {
    // Twice round the square, the same way; and once each way, which leaves it outside.
    const PointSet twice = PolygonOf({{-5, -5}, {15, -5}, {15, 15}, {-5, 15}, {-5, -5}, {16, -5}, {16, 16}, {-5, 16}});
    EXPECT_TRUE(Holds(Clipped(twice, kSquare), PolygonOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}})));
    const PointSet undone = PolygonOf({{-5, -5}, {15, -5}, {15, 15}, {-5, 15}, {-5, -5}, {-5, 16}, {16, 16}, {16, -5}});
    EXPECT_TRUE(Holds(Clipped(undone, kSquare), kNothing));
}

// A polygon that lies wholly inside is kept only if an edge of it is apart from a side to the left and one to the
// right, or one below and one above.
TEST(ClipPolygonSet, ATurnedRectangleDropsWhatIsNotProvenToBeWithin) {
    // An edge left of the two right-hand sides and an edge right of the two left-hand ones.
    const PointSet wide = PolygonOf({{5, 9}, {5, 11}, {15, 11}, {15, 9}});
    EXPECT_TRUE(Holds(Clipped(wide, kDiamond), wide));
    // An edge below the two upper sides and one above the two lower ones.
    const PointSet tall = PolygonOf({{9, 5}, {11, 5}, {11, 15}, {9, 15}});
    EXPECT_TRUE(Holds(Clipped(tall, kDiamond), tall));
    // Right in the middle; only its lower edge is apart from a side.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{9, 9}, {11, 9}, {10, 11}}), kDiamond), kNothing));
    // All of it is left of the two right-hand sides, and nothing is right of any.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{7, 9.5}, {9, 9.5}, {8, 10.5}}), kDiamond), kNothing));
}

TEST(ClipPolygonSet, ATurnedRectangleWithinHasToBeProvenToo) {
    const PointSet corners = PolygonOf({{0, 10}, {10, 20}, {20, 10}, {10, 0}});
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-5, -5}, {25, -5}, {25, 25}, {-5, 25}}), kDiamond), corners));
    // A triangle about it: only its lower edge is apart from any side.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-40, -5}, {60, -5}, {10, 60}}), kDiamond), kNothing));
}

// Where an edge is apart from a side in two ways the first that holds counts, of right, left, above and below as seen
// from the edge. The last edge is right of the first side and below it, which counts as right of it alone.
TEST(ClipPolygonSet, AnEdgeIsApartInOneWayOnly) {
    const DblRect clip = Corners({3, 8}, {1, 5}, {3, 0}, {8, 0});
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{6, 1}, {4, 6}, {5, 4}}), clip), kNothing));
}

// ---- Crossings ----

TEST(ClipPolygonSet, LapsOverACorner) { EXPECT_TRUE(Holds(Clipped(kLapping, kSquare), kLappingClipped)); }

TEST(ClipPolygonSet, TracesBeginAtTheFirstCrossing) {
    // The same outline from another point on and the other way round.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{15, 15}, {15, 5}, {5, 5}, {5, 15}}), kSquare),
                      PolygonOf({{10, 5}, {10, 10}, {5, 10}, {5, 5}})));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{15, 15}, {5, 15}, {5, 5}, {15, 5}}), kSquare),
                      PolygonOf({{5, 10}, {10, 10}, {10, 5}, {5, 5}})));
}

TEST(ClipPolygonSet, CornersOnTheWayComeInTheOrderOfTheWalk) {
    // A strip across two corners, below a line and above it.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-5, 4}, {15, 6}, {15, -5}, {-5, -5}}), kSquare),
                      PolygonOf({{0, 4.5}, {0, 0}, {10, 0}, {10, 5.5}})));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-5, 4}, {15, 6}, {15, 15}, {-5, 15}}), kSquare),
                      PolygonOf({{0, 4.5}, {0, 10}, {10, 10}, {10, 5.5}})));
}

TEST(ClipPolygonSet, SeveralPiecesInTheOrderOfTheirFirstCrossings) {
    // A comb from below with two teeth.
    const PointSet comb = PolygonOf({{2, -2}, {2, 5}, {4, 5}, {4, -1}, {6, -1}, {6, 5}, {8, 5}, {8, -2}});
    PointSet expected = PolygonOf({{2, 0}, {4, 0}, {4, 5}, {2, 5}});
    AppendTo(expected, PolygonOf({{6, 0}, {8, 0}, {8, 5}, {6, 5}}));
    EXPECT_TRUE(Holds(Clipped(comb, kSquare), expected));
    // It is the place in the outline that counts: the same comb from its second tooth on.
    const PointSet turned = PolygonOf({{6, -1}, {6, 5}, {8, 5}, {8, -2}, {2, -2}, {2, 5}, {4, 5}, {4, -1}});
    PointSet exchanged = PolygonOf({{6, 0}, {8, 0}, {8, 5}, {6, 5}});
    AppendTo(exchanged, PolygonOf({{2, 0}, {4, 0}, {4, 5}, {2, 5}}));
    EXPECT_TRUE(Holds(Clipped(turned, kSquare), exchanged));
}

TEST(ClipPolygonSet, APieceMayTakeInCrossingsOfSeveralEdges) {
    // Round an open letter C about the square, whose gap is a strip of it.
    const PointSet in = PolygonOf({{-5, 12}, {-5, 8}, {15, 8}, {15, 6}, {-5, 6}, {-5, 4}, {15, 4}, {15, 12}});
    PointSet expected = PolygonOf({{0, 8}, {0, 10}, {10, 10}, {10, 8}});
    AppendTo(expected, PolygonOf({{10, 6}, {10, 4}, {0, 4}, {0, 6}}));
    EXPECT_TRUE(Holds(Clipped(in, kSquare), expected));
}

TEST(ClipPolygonSet, RepeatedPointsCountOnceInAPiece) {
    const PointSet in = SetOf({{5, 5, 1}, {5, 5, 0}, {15, 5, 0}, {15, 5, 7}, {15, 15, 0}, {5, 15, 0}, {5, 15, 2}});
    // The first of the equal points gives its code.
    EXPECT_TRUE(Holds(Clipped(in, kSquare), SetOf({{10, 5, 0}, {10, 10, 0}, {5, 10, 0}, {5, 5, 3}})));
}

TEST(ClipPolygonSet, ZerosOfBothSignsAreEqual) {
    const PointSet in = SetOf({{-5, -0.0, 1}, {5, 0.0, 1}, {5, -0.0, 0}, {5, 3, 0}, {-5, 3, 2}});
    EXPECT_TRUE(Holds(Clipped(in, Box(0, -5, 10, 5)), SetOf({{0, 0, 0}, {0, 3, 0}, {5, 3, 0}, {5, 0, 3}})));
}

TEST(ClipPolygonSet, AClosingPointIsAVertex) {
    const PointSet in = SetOf({{5, 5, 0}, {15, 5, 0}, {15, 15, 0}, {5, 15, 0}, {5, 5, 3}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), SetOf({{10, 5, 0}, {10, 10, 0}, {5, 10, 0}, {5, 5, 1}, {5, 5, 2}})));
}

// ---- Codes ----

TEST(ClipPolygonSet, CrossingsCarryTheCodeOfTheirEdge) {
    // The walk along the rectangle begins with the rectangle's own vertex, whose code is 0.
    const PointSet in = SetOf({{5, 5, 1}, {15, 5, 0}, {15, 15, 7}, {5, 15, 3}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), SetOf({{10, 5, 0}, {10, 10, 0}, {5, 10, 1}, {5, 5, 3}})));
}

TEST(ClipPolygonSet, OtherCodesAreCarriedButAtTheEnd) {
    const PointSet in =
        SetOf({{5, 5, 7}, {7, 5, 9}, {15, 5, 0}, {15, 15, 0}, {5, 15, 4}, {4, 11, 4294967295u}, {4, 9, 2}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare),
                      SetOf({{10, 5, 0}, {10, 10, 0}, {4, 10, 4294967295u}, {4, 9, 0}, {5, 5, 7}, {7, 5, 2}})));
}

TEST(ClipPolygonSet, TheLastCodeBecomesAnEnd) {
    for (const uint32_t code : {0u, 1u, 7u, 4u}) {
        const PointSet in = SetOf({{5, 5, code}, {15, 5, 0}, {15, 15, 0}, {5, 15, 2}});
        const uint32_t end = code == 1 ? 3 : 2;
        EXPECT_TRUE(Holds(Clipped(in, kSquare), SetOf({{10, 5, 0}, {10, 10, 0}, {5, 10, 0}, {5, 5, end}})));
    }
}

TEST(ClipPolygonSet, AnEndCodeInsideAPieceIsOpened) {
    // The polygon's last point, with its code 3, comes first in the piece.
    const PointSet in = SetOf({{15, 5, 0}, {15, 15, 0}, {5, 15, 0}, {5, 8, 0}, {5, 5, 3}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), SetOf({{5, 10, 0}, {10, 10, 0}, {10, 5, 1}, {5, 5, 1}, {5, 8, 2}})));
}

// ---- Vertices on the rectangle ----

TEST(ClipPolygonSet, AHitAtTheStartOfAnEdgeIsMovedIntoIt) {
    const PointSet in = PolygonOf({{8, 2}, {8, 6}, {0, 5}});
    // The last edge starts on the left side and leads (8, -3) away; the one before ends there and is hit at its end.
    EXPECT_TRUE(Holds(Clipped(in, kSquare), PolygonOf({{0, 5}, {0x1p-20, 5 - 3 * kNudge}, {8, 2}, {8, 6}})));
}

TEST(ClipPolygonSet, APolygonThatBeginsOnTheRectangleMayBeLost) {
    // The same from its vertex on the side: that counts as inside, so the first crossing is taken for an exit.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{0, 5}, {8, 2}, {8, 6}}), kSquare),
                      PolygonOf({{0x1p-20, 5 - 3 * kNudge}, {0, 5}, {0, 5}})));
}

TEST(ClipPolygonSet, AVertexThatTouchesFromOutsideLeavesASliver) {
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{10, 5}, {18, 1}, {18, 9}}), kSquare),
                      PolygonOf({{10 + 0x1p-20, 5 - 0x1p-21}, {10, 5}, {10, 5}})));
}

TEST(ClipPolygonSet, HitsAtOnePlaceOfASideKeepTheirOrder) {
    // The outline passes through the corner (0, 0), which is the start of the first side, where the hit is moved, and
    // the end of the last. Both are halfway along the edge. With the first side first the piece about the corner is
    // one walk each way, and the rest of the triangle goes with the wrong part of the square.
    PointSet expected = PolygonOf({{0, 0}, {0, 0}, {0, 0}});
    AppendTo(expected, PolygonOf({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 5}, {5, 5}}));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-5, 5}, {5, -5}, {5, 5}}), kSquare), expected));
}

TEST(ClipPolygonSet, AHitAtTheStartOfASideIsMovedIntoItToo) {
    // The first edge passes through the first side's start, which counts as 2 up the side; the second meets the side at
    // 1 and so comes before it. The first edge's hit on the last side is the one too many that comes back to nothing.
    const DblRect clip = Box(0, 0, 0x1p24, 0x1p24);
    EXPECT_TRUE(Holds(Clipped(SetOf({{-1, -1, 1}, {1, 1, 0}, {-1, 1, 2}}), clip),
                      SetOf({{0, 0, 0}, {0, 1, 0}, {-1, 1, 0}, {-1, -1, 3}})));
}

TEST(ClipPolygonSet, EdgesAlongASideHaveNoCrossingWithIt) {
    // Their neighbours have, at their starts and ends. Up the side, down it, and a whole side's length beyond its end.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{0, 2}, {0, 8}, {5, 5}}), kSquare),
                      PolygonOf({{5 * kNudge, 8 - 3 * kNudge}, {0, 2}, {0, 2}, {0, 8}})));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{0, 8}, {0, 2}, {5, 5}}), kSquare),
                      PolygonOf({{5 * kNudge, 2 + 3 * kNudge}, {0, 8}, {0, 8}, {0, 2}})));
    EXPECT_TRUE(
        Holds(Clipped(PolygonOf({{0, 5}, {0, 15}, {-5, 10}}), kSquare), PolygonOf({{0, 10}, {0, 10}, {0, 5}, {0, 5}})));
}

TEST(ClipPolygonSet, APolygonEqualToTheRectangle) {
    // Every edge hits the two sides that it does not lie on, at its start and at its end.
    EXPECT_TRUE(
        Holds(Clipped(PolygonOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}}), kSquare), PolygonOf({{0, 10 * kNudge},
                                                                                            {0, 0},
                                                                                            {0, 0},
                                                                                            {10 - 10 * kNudge, 0},
                                                                                            {10, 0},
                                                                                            {10, 0},
                                                                                            {10, 10 - 10 * kNudge},
                                                                                            {10, 10},
                                                                                            {10, 10},
                                                                                            {10 * kNudge, 10},
                                                                                            {0, 10},
                                                                                            {0, 10}})));
}

// ---- Directions ----

TEST(ClipPolygonSet, EdgesOfOneDirectionDoNotCross) {
    // The edge goes a side's length up and 2^-23 to the right, across the left side: that counts as another direction.
    const DblRect clip = Box(0, 0, 16, 16);
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-0x1p-24, 1}, {0x1p-24, 17}, {20, 20}, {-20, 20}}), clip),
                      PolygonOf({{0, 9}, {0, 16}, {7 * 0x1p-27, 16}})));
    // Half as much to the right does not. What is left is one crossing, with the upper side, and each of the two walks
    // goes all the way round.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-0x1p-25, 1}, {0x1p-25, 17}, {20, 20}, {-20, 20}}), clip),
                      PolygonOf({{7 * 0x1p-28, 16},
                                 {16, 16},
                                 {16, 0},
                                 {0, 0},
                                 {0, 16},
                                 {7 * 0x1p-28, 16},
                                 {0x1p-25, 17},
                                 {20, 20},
                                 {-20, 20},
                                 {-0x1p-25, 1}})));
}

TEST(ClipPolygonSet, WhatIsSmallerThanTheDifferenceOfDirectionsHasNoCrossings) {
    const DblRect clip = Box(0, 0, 1e-8, 1e-8);
    EXPECT_TRUE(
        Holds(Clipped(PolygonOf({{5e-9, -1e-8}, {1.5e-8, -1e-8}, {1.5e-8, 2e-8}, {5e-9, 2e-8}}), clip), kNothing));
    const PointSet within = PolygonOf({{2e-9, 2e-9}, {4e-9, 2e-9}, {4e-9, 4e-9}});
    EXPECT_TRUE(Holds(Clipped(within, clip), within));
    // Its first vertex is within; that is all it takes.
    const PointSet beyond = PolygonOf({{5e-9, 5e-9}, {1.5e-8, 5e-9}, {5e-9, 7e-9}});
    EXPECT_TRUE(Holds(Clipped(beyond, clip), beyond));
}

TEST(ClipPolygonSet, TheSmallestProductsAreParallel) {
    // The edge down across the left side is 2^-129 wide; times the side's 8 that makes 2^-126, which is no crossing.
    const DblRect clip = Box(0, 0, 8, 8);
    const PointSet roundBoth =
        PolygonOf({{0, 6}, {0, 8}, {8, 8}, {8, 0}, {0, 0}, {0, 6}, {-0x1p-130, 6}, {0x1p-130, 2}, {4, 2}, {4, 6}});
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-0x1p-130, 6}, {0x1p-130, 2}, {4, 2}, {4, 6}}), clip), roundBoth));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{4, 6}, {4, 2}, {0x1p-130, 2}, {-0x1p-130, 6}}), clip), roundBoth));
    // Twice as wide it is one.
    const PointSet cut = PolygonOf({{0, 4}, {0, 6}, {4, 6}, {4, 2}, {0x1p-129, 2}});
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-0x1p-129, 6}, {0x1p-129, 2}, {4, 2}, {4, 6}}), clip), cut));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{4, 6}, {4, 2}, {0x1p-129, 2}, {-0x1p-129, 6}}), clip), cut));
}

// ---- Traces without an end ----

// The first vertex lies on the left side and is hit twice, at the start of the first edge (a hair beyond it) and at the
// end of the last. With the crossings on the second edge, (0, 2/3) and (1/4, 0), and on the last, (1, 0), that makes
// five. The trace from the first goes on between the second and the third for ever and is discarded; the one from the
// fourth comes back.
const PointSet kEndless = PolygonOf({{0, 1}, {-2, 6}, {1, -2}, {3, -2}});

TEST(ClipPolygonSet, ATraceThatNeverEndsIsDiscardedAndTheRestGoesOn) {
    const DblRect clip = Box(0, 0, 4, 4);
    const PointSet piece = PolygonOf({{1, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 1}});
    EXPECT_TRUE(Holds(Clipped(kEndless, clip), piece));
    PointSet in = kEndless;
    AppendTo(in, PolygonOf({{1, 1}, {2, 1}, {2, 2}}));
    AppendTo(in, kEndless);
    PointSet expected = piece;
    AppendTo(expected, PolygonOf({{1, 1}, {2, 1}, {2, 2}}));
    AppendTo(expected, piece);
    EXPECT_TRUE(Holds(Clipped(in, clip), expected));
}

TEST(ClipPolygonSet, NothingIsLeftWhereNoTraceEnds) {
    // One vertex on the lower side, where the outline passes from inside to outside: hit twice, and crossed once.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{1, 0}, {4, -2}, {-2, 5}}), Box(0, 0, 4, 4)), kNothing));
}

// ---- Numbers that are none, and those without end ----

TEST(ClipPolygonSet, EdgesToNanHaveNoCrossings) {
    // One crossing is left, and each walk goes all the way round.
    const PointSet in = PolygonOf({{5, 5}, {15, 5}, {15, 15}, {5, 15}, {kNan, 10}});
    EXPECT_TRUE(Holds(
        Clipped(in, kSquare),
        PolygonOf(
            {{10, 5}, {10, 0}, {0, 0}, {0, 10}, {10, 10}, {10, 5}, {5, 5}, {kNan, 10}, {5, 15}, {15, 15}, {15, 5}})));
}

TEST(ClipPolygonSet, NanDoesNotKeepAPolygonFromBeingCopied) {
    const PointSet in = PolygonOf({{2, 2}, {4, 2}, {4, 4}, {kNan, 3}});
    EXPECT_TRUE(Holds(Clipped(in, kSquare), in));
    // NaN is not equal to itself, so this is a ring of two; it proves nothing and is nowhere.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{kNan, 5}, {kNan, 5}}), kSquare), kNothing));
}

TEST(ClipPolygonSet, EdgesToInfinity) {
    // They meet a side at the start of the edge, as computed, but nowhere along the side.
    const PointSet ray = PolygonOf({{5, 5}, {kInfinity, 5}, {5, 6}});
    EXPECT_TRUE(Holds(Clipped(ray, kSquare), ray));
    EXPECT_TRUE(Holds(
        Clipped(
            PolygonOf(
                {{-kInfinity, -kInfinity}, {kInfinity, -kInfinity}, {kInfinity, kInfinity}, {-kInfinity, kInfinity}}),
            kSquare),
        kNothing));
    const PointSet oneCrossing = PolygonOf({{5, 5}, {15, 5}, {15, 15}, {-kInfinity, 15}});
    EXPECT_TRUE(Holds(
        Clipped(oneCrossing, kSquare),
        PolygonOf(
            {{10, 5}, {10, 0}, {0, 0}, {0, 10}, {10, 10}, {10, 5}, {5, 5}, {-kInfinity, 15}, {15, 15}, {15, 5}})));
}

TEST(ClipPolygonSet, ProductsThatOverflowAreNoCrossings) {
    const DblRect clip = Box(-1e300, -1e300, 1e300, 1e300);
    const PointSet in = PolygonOf({{0, 0}, {1e301, 0}, {0, 1e301}});
    EXPECT_TRUE(Holds(Clipped(in, clip), in));
}

TEST(ClipPolygonSet, SignedZerosAreKept) {
    const PointSet within = PolygonOf({{-0.0, 0.0}, {0.5, -0.0}, {0.0, 0.5}});
    EXPECT_TRUE(Holds(Clipped(within, Box(-1, -1, 1, 1)), within));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{-5, -5}, {15, -5}, {15, 15}, {-5, 15}}), Box(-0.0, -0.0, 10, 10)),
                      PolygonOf({{-0.0, -0.0}, {-0.0, 10}, {10, 10}, {10, -0.0}})));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{5, -0.0}, {15, -0.0}, {15, 5}, {5, 5}}), Box(-10, -10, 10, 10)),
                      PolygonOf({{10, 0.0}, {10, 5}, {5, 5}, {5, -0.0}})));
}

// ---- Rectangles that are none ----

TEST(ClipPolygonSet, ARectangleWithoutSize) {
    const PointSet about = PolygonOf({{-1, -1}, {1, -1}, {1, 1}, {-1, 1}});
    EXPECT_TRUE(Holds(Clipped(about, DblRect()), PolygonOf({{0, 0}, {0, 0}, {0, 0}, {0, 0}})));
    EXPECT_TRUE(Holds(Clipped(about, Box(2, 2, 2, 2)), kNothing));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{0, 0}, {1, -1}, {1, 1}, {-1, 1}}), DblRect()), kNothing));
}

TEST(ClipPolygonSet, ARectangleWithoutHeight) {
    // Each of its long sides is crossed at the same two places.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{2, -1}, {4, -1}, {4, 1}, {2, 1}}), Box(0, 0, 10, 0)),
                      PolygonOf({{4, 0}, {2, 0}, {2, 0}, {4, 0}})));
}

TEST(ClipPolygonSet, CornersThatAreEqualAreAllKept) {
    EXPECT_TRUE(
        Holds(Clipped(PolygonOf({{-5, -5}, {15, -5}, {15, 15}, {-5, 15}}), Corners({0, 0}, {0, 0}, {10, 0}, {0, 10})),
              PolygonOf({{0, 0}, {0, 0}, {10, 0}, {0, 10}})));
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{1, 1}, {20, 1}, {20, 2}, {1, 2}}), Corners({0, 0}, {0, 0}, {10, 0}, {0, 10})),
                      PolygonOf({{9, 1}, {8, 2}, {1, 2}, {1, 1}})));
}

TEST(ClipPolygonSet, ACrossedRectangle) {
    // A bow: up to the right, down, up to the left, down. A band through it; where the bow crosses itself, at (5, 5),
    // the walk goes straight on.
    EXPECT_TRUE(Holds(Clipped(PolygonOf({{2, 4}, {8, 4}, {8, 6}, {2, 6}}), Corners({0, 0}, {10, 10}, {10, 0}, {0, 10})),
                      PolygonOf({{4, 4}, {6, 6}, {8, 6}, {8, 4}, {6, 4}, {4, 6}, {2, 6}, {2, 4}})));
}

TEST(ClipPolygonSet, ARectangleWithNan) {
    // Only the two sides without NaN are crossed, of which the polygon meets one.
    EXPECT_TRUE(Holds(
        Clipped(kLapping, Corners({0, 0}, {kNan, 10}, {10, 10}, {10, 0})),
        PolygonOf({{10, 5}, {10, 0}, {0, 0}, {kNan, 10}, {10, 10}, {10, 5}, {5, 5}, {5, 15}, {15, 15}, {15, 5}})));
    EXPECT_TRUE(Holds(Clipped(kLapping, Corners({kNan, kNan}, {kNan, kNan}, {kNan, kNan}, {kNan, kNan})), kNothing));
}

TEST(ClipPolygonSet, AnInfiniteRectangleHoldsNothing) {
    EXPECT_TRUE(Holds(Clipped(kSmall, Box(-kInfinity, -kInfinity, kInfinity, kInfinity)), kNothing));
}

// ---- Between calls ----

TEST(ClipPolygonSet, CallsAddUp) {
    std::vector<Vellum::real_pt_t> pts(200);
    std::vector<uint32_t> codes(200);
    DrwPSetT out{0, pts.data(), codes.data()};
    PointSet expected;
    DblRect clip = kSquare;
    for (const PointSet* set : {&kLapping, &kSmall, &kLapping}) {
        PointSet given = *set;
        DrwPSetT in{static_cast<int32_t>(given.pts.size()), given.pts.data(), given.codes.data()};
        Vellum::ClipPolygonSet(&in, &out, &clip);
        AppendTo(expected, set == &kLapping ? kLappingClipped : kSmall);
        const auto count = static_cast<std::ptrdiff_t>(out.numPts);
        const PointSet soFar{{pts.begin(), pts.begin() + count}, {codes.begin(), codes.begin() + count}};
        EXPECT_TRUE(Holds(soFar, expected));
    }
}

TEST(ClipPolygonSet, ThreadsDoNotDisturbEachOther) {
    PointSet in;
    PointSet expected;
    for (int i = 0; i < 500; ++i) {
        AppendTo(in, kLapping);
        AppendTo(expected, kLappingClipped);
    }
    std::vector<PointSet> found(4);
    std::vector<std::thread> threads;
    for (PointSet& result : found)
        threads.emplace_back([&in, &result] { result = Clipped(in, kSquare); });
    for (std::thread& thread : threads)
        thread.join();
    for (const PointSet& result : found)
        EXPECT_TRUE(Holds(result, expected));
}

// ---- The most points that come out ----

// All vertices twice, four crossings on each edge, with two points each, and the rectangle's corners; an edge from the
// last point back to an equal first one has none.
TEST(ClipPolygonSetMaxPts, CountsVerticesAndEdges) {
    EXPECT_EQ(MaxPtsOf(PolygonOf({{0, 0}, {1, 0}, {0, 1}})), 2u * 3 + 8 * 3 + 4);
    EXPECT_EQ(MaxPtsOf(PolygonOf({{0, 0}, {1, 0}, {0, 1}, {0, 0}})), 2u * 4 + 8 * 3 + 4);
    EXPECT_EQ(MaxPtsOf(PolygonOf({{0, 0}, {1, 0}})), 2u * 2 + 8 * 2 + 4);
    EXPECT_EQ(MaxPtsOf(PolygonOf({{0, 0}, {0, 0}, {1, 0}, {1, 0}, {0, 1}, {0, 1}})), 2u * 3 + 8 * 3 + 4);
    EXPECT_EQ(MaxPtsOf(PolygonOf({{kNan, 0}, {kNan, 0}})), 2u * 2 + 8 * 2 + 4);
}

TEST(ClipPolygonSetMaxPts, LeavesRoomForACopy) {
    PointSet in;
    for (int i = 0; i < 99; ++i)
        AppendTo(in, SetOf({{1, 1, 0}}));
    AppendTo(in, SetOf({{2, 1, 2}}));
    EXPECT_EQ(MaxPtsOf(in), 100u);
    EXPECT_TRUE(Holds(Clipped(in, kSquare), in));
}

TEST(ClipPolygonSetMaxPts, NoPolygonNeedsNoRoom) {
    EXPECT_EQ(MaxPtsOf(kNothing), 0u);
    EXPECT_EQ(MaxPtsOf(SetOf({{1, 1, 2}, {2, 2, 3}})), 0u);
    EXPECT_EQ(MaxPtsOf(SetOf({{1, 1, 0}, {2, 2, 0}, {3, 1, 0}})), 0u);
    EXPECT_EQ(MaxPtsOf(PolygonOf({{1, 1}, {1, 1}, {1, 1}})), 0u);
}

TEST(ClipPolygonSetMaxPts, AddsUpPolygons) {
    PointSet in = SetOf({{1, 1, 2}});
    AppendTo(in, kSmall);
    AppendTo(in, SetOf({{1, 1, 3}}));
    AppendTo(in, kLapping);
    AppendTo(in, SetOf({{1, 1, 0}, {2, 2, 0}}));
    EXPECT_EQ(MaxPtsOf(in), (2u * 3 + 8 * 3 + 4) + (2u * 4 + 8 * 4 + 4));
}

}  // namespace
