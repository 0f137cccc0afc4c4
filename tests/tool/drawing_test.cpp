// SPDX-License-Identifier: MIT
#include "drawing.h"

#include <gtest/gtest.h>

namespace {

using tool::Feature;

void ExpectSame(const tool::Colour& a, const tool::Colour& b) {
    EXPECT_EQ(a.red, b.red);
    EXPECT_EQ(a.green, b.green);
    EXPECT_EQ(a.blue, b.blue);
}

TEST(Drawing, StyleComesFromColourThenNameThenPosition) {
    Feature feature;
    ExpectSame(tool::StyleOf(feature, 3).area, tool::PaletteStyle(3).area);
    feature.name = std::string("foobar");
    ExpectSame(tool::StyleOf(feature, 3).area, tool::PaletteStyle(3214735720U).area);
    feature.colour = std::size_t{1};
    ExpectSame(tool::StyleOf(feature, 3).area, tool::PaletteStyle(0).area);
}

TEST(Drawing, AColourOfItsOwnIsDrawnAsItIs) {
    Feature feature;
    feature.colour = tool::Rgb(0x336699);
    ExpectSame(tool::StyleOf(feature, 0).area, {0.2, 0.4, 0.6});
    ExpectSame(tool::StyleOf(feature, 0).line, {0.2, 0.4, 0.6});
}

TEST(Drawing, ExtentsOfAnEmptyDrawing) { EXPECT_FALSE(tool::Extents({}, {})); }

TEST(Drawing, ExtentsTakeInEveryKindOfGeometry) {
    tool::Drawing drawing;
    drawing.features.resize(3);
    drawing.features[0].geometry.polygons = {{{{0, 0}, {1, 5}, {2, 0}, {0, 0}}}};
    drawing.features[1].geometry.lines = {{{-3, 1}, {1, 1}}};
    drawing.features[2].geometry.points = {{1, -4}};
    const auto box = tool::Extents(drawing, {});
    ASSERT_TRUE(box);
    EXPECT_EQ(box->Left(), -3.0);
    EXPECT_EQ(box->Bottom(), -4.0);
    EXPECT_EQ(box->Right(), 2.0);
    EXPECT_EQ(box->Top(), 5.0);

    Vellum::Mtx2D quarterTurn;
    quarterTurn.Rotate(90.0, 2);
    const auto turned = tool::Extents(drawing, quarterTurn);
    ASSERT_TRUE(turned);
    EXPECT_EQ(turned->Left(), -5.0);
    EXPECT_EQ(turned->Bottom(), -3.0);
    EXPECT_EQ(turned->Right(), 4.0);
    EXPECT_EQ(turned->Top(), 2.0);
}

}  // namespace
