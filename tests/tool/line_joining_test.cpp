// SPDX-License-Identifier: MIT
#include "line_joining.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "error.h"
#include "support/point_checks.h"

namespace {

using tool::FeatureLine;
using tool::JoinedLines;
using tool::Points;

void ExpectPoints(const Points& points, const Points& expected) {
    ASSERT_EQ(points.size(), expected.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_TRUE(support::IsAt(points[i], expected[i].x, expected[i].y)) << i;
    }
}

JoinedLines Join(const std::vector<Points>& lines, double tolerance, std::vector<unsigned> layers = {}) {
    std::vector<FeatureLine> all;
    for (const Points& line : lines) {
        all.push_back({line, 0});
    }
    layers.resize(lines.size());
    return tool::JoinLines(all, layers, tolerance);
}

TEST(LineJoining, LinesOfADrawingWithTheirFeatures) {
    tool::Drawing drawing;
    drawing.features.resize(4);
    drawing.features[0].geometry.points = {{9, 9}};
    drawing.features[1].geometry.lines = {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}};
    drawing.features[2].geometry.polygons = {{{{0, 0}, {1, 5}, {2, 0}, {0, 0}}}};
    drawing.features[3].geometry.lines = {{{-1, 0}, {0, -2}}};
    const std::vector<FeatureLine> lines = tool::LinesOf(drawing, "map");
    ASSERT_EQ(lines.size(), 3U);
    ExpectPoints(lines[0].points, {{1, 2}, {3, 4}});
    ExpectPoints(lines[1].points, {{5, 6}, {7, 8}});
    ExpectPoints(lines[2].points, {{-1, 0}, {0, -2}});
    EXPECT_EQ(lines[0].feature, 1U);
    EXPECT_EQ(lines[1].feature, 1U);
    EXPECT_EQ(lines[2].feature, 3U);
}

TEST(LineJoining, ADrawingWithoutLines) {
    tool::Drawing drawing;
    drawing.features.resize(1);
    drawing.features[0].geometry.points = {{9, 9}};
    try {
        tool::LinesOf(drawing, "map");
        ADD_FAILURE();
    } catch (const tool::Error& error) {
        EXPECT_EQ(std::string(error.what()), "map: holds no line");
    }
}

TEST(LineJoining, CrossingLinesAreSplit) {
    const JoinedLines joined = Join({{{0, 0}, {4, 0}, {4, 7}}, {{1, -1}, {1, 3}}}, 0.0);
    ASSERT_EQ(joined.lines.size(), 2U);
    ExpectPoints(joined.lines[0], {{0, 0}, {1, 0}, {4, 0}, {4, 7}});
    ExpectPoints(joined.lines[1], {{1, -1}, {1, 0}, {1, 3}});
    EXPECT_TRUE(joined.joining.empty());
    ExpectPoints(joined.splitPoints, {{1, 0}, {1, 0}});
}

TEST(LineJoining, GapsAreJoinedUpToTheTolerance) {
    // An end half a unit from an end, and an end a quarter of a unit from an interior.
    const std::vector<Points> lines = {{{0, 0}, {10, 0}}, {{10, 0.5}, {12, 5}}, {{4, 0.25}, {5, 3}}};
    const JoinedLines joined = Join(lines, 0.5);
    ASSERT_EQ(joined.joining.size(), 2U);
    ExpectPoints(joined.joining[0], {{10, 0}, {10, 0.5}});
    ExpectPoints(joined.joining[1], {{4, 0.25}, {4, 0}});
    ExpectPoints(joined.lines[0], {{0, 0}, {4, 0}, {10, 0}});
    ExpectPoints(joined.lines[1], lines[1]);
    ExpectPoints(joined.lines[2], lines[2]);
    ExpectPoints(joined.splitPoints, {{4, 0}});

    EXPECT_EQ(Join(lines, 0.3).joining.size(), 1U);
    EXPECT_TRUE(Join(lines, 0.0).joining.empty());
}

TEST(LineJoining, LayersKeepLinesApart) {
    const std::vector<Points> lines = {{{0, 0}, {4, 0}}, {{1, -1}, {1, 3}}, {{3, -1}, {3, 3}}};
    const JoinedLines joined = Join(lines, 0.5, {7, 2, 7});
    ExpectPoints(joined.lines[0], {{0, 0}, {3, 0}, {4, 0}});
    ExpectPoints(joined.lines[1], lines[1]);
    ExpectPoints(joined.lines[2], {{3, -1}, {3, 0}, {3, 3}});
}

TEST(LineJoining, ASingleLineStaysAsItIs) {
    const Points line = {{0, 0}, {4, 0}, {4, 0}, {2, -1}, {2, 1}};
    const JoinedLines joined = Join({line}, 1.0);
    ASSERT_EQ(joined.lines.size(), 1U);
    ExpectPoints(joined.lines[0], line);
    EXPECT_TRUE(joined.joining.empty());
    EXPECT_TRUE(joined.splitPoints.empty());
}

}  // namespace
