// SPDX-License-Identifier: MIT
#include "measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "support/point_checks.h"

namespace {

using tool::Geometry;
using tool::Measures;

void ExpectBox(const std::optional<Vellum::AlignedDblRect>& box, double left, double bottom, double right, double top) {
    ASSERT_TRUE(box);
    EXPECT_TRUE(support::IsAt(box->LL(), left, bottom));
    EXPECT_TRUE(support::IsAt(box->UR(), right, top));
}

TEST(Measures, OfNothing) {
    const Measures measures = tool::MeasuresOf(Geometry());
    EXPECT_EQ(measures.parts, 0U);
    EXPECT_EQ(measures.points, 0U);
    EXPECT_EQ(measures.length, 0.0);
    EXPECT_FALSE(measures.extents);
    EXPECT_FALSE(tool::CentroidOf(Geometry()));
}

// Away from the origin, which must not get into the box.
TEST(Measures, OfAPoint) {
    Geometry geometry;
    geometry.points = {{7, -3}};
    const Measures measures = tool::MeasuresOf(geometry);
    EXPECT_EQ(measures.parts, 1U);
    EXPECT_EQ(measures.points, 1U);
    EXPECT_EQ(measures.length, 0.0);
    ExpectBox(measures.extents, 7, -3, 7, -3);
    EXPECT_TRUE(support::IsAt(tool::CentroidOf(geometry).value(), 7, -3));
}

TEST(Measures, ARingsLengthHasItsClosingEdge) {
    Geometry geometry;
    geometry.polygons = {{{{1, 1}, {4, 1}, {4, 5}, {1, 1}}}};
    const Measures measures = tool::MeasuresOf(geometry);
    EXPECT_EQ(measures.parts, 1U);
    EXPECT_EQ(measures.points, 4U);
    EXPECT_EQ(measures.length, 12.0);
    ExpectBox(measures.extents, 1, 1, 4, 5);
}

TEST(Measures, ARingsCentroidHasEachPointOnce) {
    Geometry geometry;
    geometry.polygons = {{{{1, 1}, {4, 1}, {4, 7}, {1, 1}}}};
    EXPECT_TRUE(support::IsAt(tool::CentroidOf(geometry).value(), 3, 3));
}

TEST(Measures, OfSeveralParts) {
    Geometry geometry;
    geometry.polygons = {{{{0, 0}, {6, 0}, {6, 8}, {0, 0}}, {{4, 1}, {5, 1}, {5, 2}, {4, 1}}}};
    geometry.lines = {{{10, 2}, {10, 9}}, {{-1, 3}, {2, 7}, {2, 6}}};
    geometry.points = {{3, -4}, {8, 20}};
    const Measures measures = tool::MeasuresOf(geometry);
    EXPECT_EQ(measures.parts, 6U);
    EXPECT_EQ(measures.points, 15U);
    EXPECT_DOUBLE_EQ(measures.length, 24.0 + 2.0 + std::sqrt(2.0) + 7.0 + 6.0);
    ExpectBox(measures.extents, -1, -4, 10, 20);
    // All 13 points count alike: their sums are (26, 12) in the rings, (23, 27) in the lines, (11, 16) alone.
    EXPECT_TRUE(support::IsAt(tool::CentroidOf(geometry).value(), 60.0 / 13.0, 55.0 / 13.0));
}

TEST(Measures, Sum) {
    Geometry point;
    point.points = {{7, -3}};
    Geometry line;
    line.lines = {{{1, 2}, {4, 6}}};
    Measures sum;
    sum += tool::MeasuresOf(Geometry());
    EXPECT_FALSE(sum.extents);
    sum += tool::MeasuresOf(point);
    sum += tool::MeasuresOf(Geometry());
    ExpectBox(sum.extents, 7, -3, 7, -3);
    sum += tool::MeasuresOf(line);
    EXPECT_EQ(sum.parts, 2U);
    EXPECT_EQ(sum.points, 3U);
    EXPECT_EQ(sum.length, 5.0);
    ExpectBox(sum.extents, 1, -3, 7, 6);
}

}  // namespace
