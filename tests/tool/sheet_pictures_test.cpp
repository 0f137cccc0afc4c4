// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "palette.h"
#include "picture_colours.h"
#include "png_pixels.h"
#include "scratch_directory.h"
#include "tool_run.h"

namespace {

using tool_test::kInk;
using tool_test::kPaper;
using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;
using tool_test::Sample;

class SheetPictures : public testing::Test {
protected:
    PngPixels Draw(std::vector<std::string> options) const {
        options.insert(options.begin(), {"sheet", "-o", scratch.Path("sheet.png")});
        const Outcome outcome = RunTool(options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "");
        return PngPixels(scratch.Path("sheet.png"));
    }

    tool_test::ScratchDirectory scratch;
};

/// How many pixels of a part of a picture have that colour, give or take one in each channel.
int CountIn(const PngPixels& picture, int left, int top, int width, int height, uint32_t colour) {
    const auto channel = [](uint32_t c, int shift) { return static_cast<int>((c >> shift) & 255); };
    int count = 0;
    for (int y = top; y < top + height; ++y) {
        for (int x = left; x < left + width; ++x) {
            bool same = true;
            for (const int shift : {0, 8, 16}) {
                same = same && std::abs(channel(picture.At(x, y), shift) - channel(colour, shift)) <= 1;
            }
            count += same ? 1 : 0;
        }
    }
    return count;
}

uint32_t Hex(const tool::Colour& colour) {
    const auto channel = [](double share) { return static_cast<uint32_t>(std::lround(share * 255.0)); };
    return channel(colour.red) << 16 | channel(colour.green) << 8 | channel(colour.blue);
}

TEST_F(SheetPictures, DrawsEveryCell) {
    const PngPixels sheet = Draw({});
    EXPECT_EQ(sheet.Width(), 1600);
    EXPECT_EQ(sheet.Height(), 1200);
    EXPECT_EQ(sheet.At(1, 1), kPaper);
    EXPECT_EQ(sheet.At(1598, 1198), kPaper);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < (row < 2 ? 4 : 2); ++column) {
            const int left = 12 + column * 397;
            const int top = 12 + row * 297;
            // A caption, and beneath it a shape.
            EXPECT_GT(CountIn(sheet, left, top, 380, 27, kInk), 25) << column << ", " << row;
            EXPECT_GT(CountIn(sheet, left, top + 50, 380, 235, kInk), 30) << column << ", " << row;
        }
    }
}

TEST_F(SheetPictures, ShowsHitTests) {
    const PngPixels sheet = Draw({});
    const uint32_t inside = Hex(tool::PaletteStyle(5).line);
    const uint32_t near = Hex(tool::PaletteStyle(0).line);
    const auto cell = [&](int column, int row, uint32_t colour) {
        return CountIn(sheet, 12 + column * 397, 12 + row * 297, 385, 285, colour);
    };
    for (const auto& [column, row] :
         {std::pair(2, 0), std::pair(3, 0), std::pair(3, 1), std::pair(0, 2), std::pair(0, 3)}) {
        EXPECT_GT(cell(column, row, inside), 1000) << column << ", " << row;
    }
    for (const auto& [column, row] : {std::pair(3, 1), std::pair(0, 3)}) {
        EXPECT_GT(cell(column, row, near), 1000) << column << ", " << row;
    }
    EXPECT_EQ(cell(2, 0, near), 0);
    EXPECT_EQ(cell(0, 0, inside), 0);
}

TEST_F(SheetPictures, ShowsAClearance) {
    constexpr int kLeft = 806;
    constexpr int kTop = 606;
    constexpr int kWidth = 782;
    constexpr int kHeight = 582;
    for (const bool ownMap : {false, true}) {
        const PngPixels sheet =
            ownMap ? Draw({"--map", Sample("countries-110m.geojson"), "--a", "Mozambique", "--b", "Madagascar"})
                   : Draw({});
        EXPECT_GT(CountIn(sheet, kLeft, kTop, kWidth, kHeight, 0xe9cb9f), 20000);
        EXPECT_GT(CountIn(sheet, kLeft, kTop, kWidth, kHeight, 0xa0b9d6), 20000);
        EXPECT_GT(CountIn(sheet, kLeft, kTop, kWidth, kHeight, 0xb02a2a), 80);
        // The other countries.
        EXPECT_EQ(CountIn(sheet, kLeft, kTop, kWidth, kHeight, 0xf7f5f0) > 0, ownMap);
        // The map's frame, and nothing of it beyond.
        constexpr uint32_t kFrame = 0x5d6b78;
        for (const int x : {818, 819, 1574, 1575}) {
            EXPECT_EQ(sheet.At(x, 900), kFrame) << x;
        }
        for (const int y : {656, 657, 1174, 1175}) {
            EXPECT_EQ(sheet.At(1200, y), kFrame) << y;
        }
        for (const auto& [x, y] :
             {std::pair(817, 900), std::pair(1576, 900), std::pair(1200, 655), std::pair(1200, 1176)}) {
            EXPECT_EQ(sheet.At(x, y), kPaper) << x << ", " << y;
        }
        EXPECT_EQ(CountIn(sheet, 0, 0, 1600, 1200, 0xe4eef4), CountIn(sheet, kLeft, kTop, kWidth, kHeight, 0xe4eef4));
    }
}

TEST_F(SheetPictures, FitsItsSize) {
    const PngPixels tall = Draw({"--size", "500x700"});
    EXPECT_EQ(tall.Width(), 500);
    EXPECT_EQ(tall.Height(), 700);
    EXPECT_GT(tall.Width() * tall.Height() - tall.Count(kPaper), 100000);
}

TEST_F(SheetPictures, NeedsNoFonts) {
    const PngPixels usual = Draw({});
    const std::string none = scratch.Write("fonts.conf", "<fontconfig></fontconfig>");
    setenv("FONTCONFIG_FILE", none.c_str(), 1);
    const PngPixels without = Draw({});
    unsetenv("FONTCONFIG_FILE");
    EXPECT_EQ(PngPixels::Differences(usual, without), 0);
}

TEST_F(SheetPictures, DrawsTheOtherFormats) {
    for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
        EXPECT_EQ(RunTool({"sheet", "-o", scratch.Path(name)}).status, 0);
        EXPECT_EQ(scratch.Read(name).substr(0, 5), magic);
    }
    EXPECT_EQ(scratch.Names(), (std::vector<std::string>{"a.pdf", "a.svg"}));
}

}  // namespace
