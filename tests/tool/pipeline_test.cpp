// SPDX-License-Identifier: MIT
#include "pipeline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "error.h"

namespace {

using tool::Drawing;
using tool::View;

// A view of 4 by 2 units, of 100 pixels each, around the origin.
View SmallView(double rotation) { return {{}, {Vellum::DblPt(0, 0), 4.0, rotation}, {400, 200}}; }

Drawing WithPolygon(const tool::Polygon& polygon) {
    Drawing drawing;
    drawing.features.resize(1);
    drawing.features[0].geometry.polygons = {polygon};
    return drawing;
}

tool::Geometry ClipOne(const Drawing& drawing, const View& view) {
    tool::Progress progress(false);
    return tool::Clip(drawing, view, progress).at(0);
}

tool::DeviceGeometry ToDeviceOne(const Drawing& drawing, const View& view) {
    tool::Progress progress(false);
    return tool::ToDevice(tool::KeepWhole(drawing, view), view, progress).at(0);
}

bool Holds(const tool::Points& points, const Vellum::DblPt& wanted) {
    return std::any_of(points.begin(), points.end(), [&](const Vellum::DblPt& p) { return p.IsExactly(wanted); });
}

TEST(Pipeline, WhatLiesOutsideIsDropped) {
    Drawing drawing = WithPolygon({{{10, 10}, {11, 10}, {11, 11}, {10, 10}}});
    drawing.features[0].geometry.lines = {{{10, 0}, {20, 1}}};
    drawing.features[0].geometry.points = {{3, 0}, {0, 3}};
    for (const double rotation : {0.0, 33.0}) {
        EXPECT_TRUE(ClipOne(drawing, SmallView(rotation)).Empty());
    }
}

TEST(Pipeline, WhatLiesInsideIsKept) {
    Drawing drawing = WithPolygon({{{0, 0}, {0.5, 0}, {0.5, 0.5}, {0, 0}}});
    drawing.features[0].geometry.lines = {{{0, 0}, {0.5, 0.1}}};
    drawing.features[0].geometry.points = {{0.25, -0.25}};
    for (const double rotation : {0.0, 33.0, 90.0, 180.0, 270.0}) {
        const tool::Geometry clipped = ClipOne(drawing, SmallView(rotation));
        ASSERT_EQ(clipped.polygons.size(), 1U);
        ASSERT_EQ(clipped.polygons[0].size(), 1U);
        EXPECT_EQ(clipped.polygons[0][0].size(), 4U);
        EXPECT_EQ(clipped.lines.size(), 1U);
        EXPECT_EQ(clipped.points.size(), 1U);
    }
}

// A triangle with one corner in the view and two far beyond: its edges are seen, so their ends must stay what they are.
TEST(Pipeline, EdgesThatAreSeenAreNotCut) {
    const tool::Points ring = {{0, 0}, {100, 7}, {90, 11}, {0, 0}};
    for (const double rotation : {0.0, 33.0}) {
        const tool::Geometry clipped = ClipOne(WithPolygon({ring}), SmallView(rotation));
        ASSERT_EQ(clipped.polygons.size(), 1U);
        for (const Vellum::DblPt& corner : ring) {
            EXPECT_TRUE(Holds(clipped.polygons[0][0], corner));
        }
    }
}

TEST(Pipeline, WhatIsNotSeenIsCutNearTheView) {
    const tool::Points ring = {{0, 0}, {3, 0.5}, {1000, 500}, {3, 0.7}, {0, 0}};
    const tool::Geometry clipped = ClipOne(WithPolygon({ring}), SmallView(0.0));
    ASSERT_EQ(clipped.polygons.size(), 1U);
    for (const Vellum::DblPt& p : clipped.polygons[0][0]) {
        EXPECT_LT(std::fabs(p.x), 4.0);
        EXPECT_LT(std::fabs(p.y), 4.0);
    }
}

TEST(Pipeline, HolesStayWithTheirPolygon) {
    const tool::Points outline = {{-50, -50}, {50, -50}, {50, 50}, {-50, 50}, {-50, -50}};
    const tool::Points hole = {{-1, -0.5}, {-1, 0.5}, {1, 0.5}, {1, -0.5}, {-1, -0.5}};
    for (const double rotation : {0.0, 33.0}) {
        const tool::Geometry clipped = ClipOne(WithPolygon({outline, hole}), SmallView(rotation));
        ASSERT_EQ(clipped.polygons.size(), 1U);
        EXPECT_EQ(clipped.polygons[0].size(), 2U);
    }
}

TEST(Pipeline, EveryFeatureKeepsItsPlace) {
    Drawing drawing;
    drawing.features.resize(3);
    drawing.features[0].geometry.points = {{100, 0}};
    drawing.features[2].geometry.points = {{1, 0}};
    tool::Progress progress(false);
    const View view = SmallView(0.0);
    const auto clipped = tool::Clip(drawing, view, progress);
    ASSERT_EQ(clipped.size(), 3U);
    EXPECT_TRUE(clipped[0].Empty());
    EXPECT_TRUE(clipped[1].Empty());
    EXPECT_EQ(clipped[2].points.size(), 1U);
    const auto device = tool::ToDevice(clipped, view, progress);
    ASSERT_EQ(device.size(), 3U);
    ASSERT_EQ(device[2].points.size(), 1U);
    EXPECT_EQ(device[2].points[0].x, 300 * 64);
    EXPECT_EQ(device[2].points[0].y, 100 * 64);
}

// The second ring begins where the first ends; under a turned view the two must still come out as two.
TEST(Pipeline, RingsThatTouchStayApart) {
    const tool::Points first = {{0, 0}, {1, 0}, {1, 1}, {0, 0}};
    const tool::Points second = {{0, 0}, {-1, 0}, {-1, -1}, {0, 0}};
    for (const double rotation : {0.0, 33.0, 90.0}) {
        const tool::DeviceGeometry device = ToDeviceOne(WithPolygon({first, second}), SmallView(rotation));
        ASSERT_EQ(device.polygons.size(), 1U);
        ASSERT_EQ(device.polygons[0].size(), 2U);
        EXPECT_EQ(device.polygons[0][0].size(), 4U);
        EXPECT_EQ(device.polygons[0][1].size(), 4U);
    }
}

TEST(Pipeline, PointsThatFallTogetherAreMerged) {
    const double less = 0.1 / 6400.0;
    Drawing drawing = WithPolygon({{{0, 0}, {less, 0}, {1, 0}, {1, 1}, {0, 0}}});
    drawing.features[0].geometry.lines = {{{0, 0}, {less, less}, {1, 0}}};
    const tool::DeviceGeometry device = ToDeviceOne(drawing, SmallView(0.0));
    EXPECT_EQ(device.polygons.at(0).at(0).size(), 4U);
    EXPECT_EQ(device.lines.at(0).size(), 2U);
}

TEST(Pipeline, WholeDrawingsMustBeInReach) {
    Drawing drawing;
    drawing.features.resize(1);
    drawing.features[0].geometry.points = {{5242, 0}};
    EXPECT_EQ(tool::KeepWhole(drawing, SmallView(0.0)).at(0).points.size(), 1U);
    drawing.features[0].geometry.points = {{5243, 0}};
    EXPECT_THROW(tool::KeepWhole(drawing, SmallView(0.0)), tool::Error);
}

TEST(Pipeline, EndlessEdgesDoNotWrap) {
    Drawing drawing = WithPolygon({{{-1e20, -1e20}, {1e20, -1e20}, {1e20, 1e20}, {-1e20, 1e20}, {-1e20, -1e20}}});
    drawing.features[0].geometry.lines = {{{-1e20, 0}, {1e20, 0}}};
    tool::Progress progress(false);
    for (const double rotation : {0.0, 33.0}) {
        const View view = SmallView(rotation);
        const auto device = tool::ToDevice(tool::Clip(drawing, view, progress), view, progress).at(0);
        ASSERT_EQ(device.polygons.size(), 1U);
        ASSERT_EQ(device.lines.size(), 1U);
        constexpr int kReach = 64 << 20;
        for (const Vellum::int_pt_t& p : device.polygons[0][0]) {
            EXPECT_TRUE(std::abs(p.x) < kReach && std::abs(p.y) < kReach);
        }
        for (const Vellum::int_pt_t& p : device.lines[0]) {
            EXPECT_TRUE(std::abs(p.x) < kReach && std::abs(p.y) < kReach);
        }
    }
}

}  // namespace
