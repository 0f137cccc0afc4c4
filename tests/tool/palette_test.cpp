// SPDX-License-Identifier: MIT
#include "palette.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(Palette, RepeatsAndNeighboursDiffer) {
    const std::size_t size = tool::PaletteSize();
    ASSERT_GE(size, 7U);
    for (std::size_t i = 0; i < size; ++i) {
        const tool::Colour colour = tool::PaletteStyle(i).area;
        const tool::Colour again = tool::PaletteStyle(i + size).area;
        const tool::Colour next = tool::PaletteStyle(i + 1).area;
        EXPECT_TRUE(colour.red == again.red && colour.green == again.green && colour.blue == again.blue);
        EXPECT_TRUE(colour.red != next.red || colour.green != next.green || colour.blue != next.blue);
    }
}

TEST(Palette, LinesAreDarkerThanAreas) {
    for (std::size_t i = 0; i < tool::PaletteSize(); ++i) {
        const tool::Style style = tool::PaletteStyle(i);
        EXPECT_LT(style.line.red + style.line.green + style.line.blue + 0.5,
                  style.area.red + style.area.green + style.area.blue);
    }
}

TEST(Palette, NameHashIsTheSameEverywhere) {
    EXPECT_EQ(tool::NameHash(""), 2166136261U);
    EXPECT_EQ(tool::NameHash("a"), 3826002220U);
    EXPECT_EQ(tool::NameHash("foobar"), 3214735720U);
}

TEST(Palette, ParsesColours) {
    const auto colour = tool::ParseColour("#ff8000");
    ASSERT_TRUE(colour);
    EXPECT_EQ(colour->red, 1.0);
    EXPECT_EQ(colour->green, 128.0 / 255.0);
    EXPECT_EQ(colour->blue, 0.0);
    EXPECT_TRUE(tool::ParseColour("#FFaa00"));
    for (const char* text : {"", "#", "ff8000", "#ff800", "#ff80000", "#ff800g", "#-f8000", "red"}) {
        EXPECT_FALSE(tool::ParseColour(text)) << text;
    }
}

TEST(Palette, Mix) {
    const tool::Colour half = tool::Mix({0.0, 0.5, 1.0}, {1.0, 0.5, 0.0}, 0.25);
    EXPECT_EQ(half.red, 0.25);
    EXPECT_EQ(half.green, 0.5);
    EXPECT_EQ(half.blue, 0.75);
}

}  // namespace
