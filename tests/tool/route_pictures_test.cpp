// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "picture_colours.h"
#include "png_pixels.h"
#include "scratch_directory.h"
#include "tool_run.h"

namespace {

using tool_test::kBackground;
using tool_test::kInk;
using tool_test::kPale;
using tool_test::kPaper;
using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;

constexpr uint32_t kNetwork = 0x7289a3;
constexpr uint32_t kWay = 0xd0202e;

class RoutePictures : public testing::Test {
protected:
    Outcome Find(const std::string& from, const std::string& to, std::vector<std::string> options) const {
        options.insert(options.begin(), {"route", map, "--from", from, "--to", to});
        return RunTool(options);
    }

    PngPixels Draw(const std::string& from, const std::string& to, std::vector<std::string> options) const {
        options.insert(options.end(), {"-o", scratch.Path("a.png")});
        const Outcome outcome = Find(from, to, options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        return PngPixels(scratch.Path("a.png"));
    }

    const tool_test::ScratchDirectory scratch;
    std::string map = scratch.Write("map.geojson", R"({"type":"MultiLineString","coordinates":[
        [[0,0],[10,0]], [[10,0],[10,5]], [[-30,-5.05],[40,-5.05]]]})");
    // A unit is 10 pixels, and the middle of the picture is at (5, 0).
    const std::vector<std::string> view = {"--center", "5,0", "--width", "20", "--size", "200x160"};
};

TEST_F(RoutePictures, ShowTheWayInItsNetwork) {
    std::vector<std::string> options = view;
    const std::string land =
        scratch.Write("land", R"({"type":"Polygon","coordinates":[[[-9,-9],[9,-9],[9,-6],[-9,-6],[-9,-9]]]})");
    options.insert(options.end(), {"--map", land});
    const PngPixels picture = Draw("0,0", "10,5", options);
    EXPECT_EQ(picture.At(100, 79), kWay);
    EXPECT_EQ(picture.At(100, 80), kWay);
    EXPECT_EQ(picture.At(149, 60), kWay);
    EXPECT_EQ(picture.At(100, 77), kPaper);
    EXPECT_EQ(picture.At(100, 130), kNetwork);
    EXPECT_EQ(picture.At(50, 80), kInk);
    EXPECT_EQ(picture.At(150, 30), kInk);
    EXPECT_EQ(picture.At(100, 150), kPale);
    EXPECT_EQ(picture.At(100, 100), kBackground);
    EXPECT_EQ(picture.At(0, 0), 0x5d6b78U);
}

/// The columns in which a label above a row has ink: the first, and one past the last.
std::pair<int, int> InkedColumns(const PngPixels& picture, int top, int bottom) {
    int left = picture.Width();
    int right = 0;
    for (int y = top; y < bottom; ++y) {
        for (int x = 0; x < picture.Width(); ++x) {
            if (picture.At(x, y) != kInk) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
        }
    }
    return {left, right};
}

TEST_F(RoutePictures, NameTheEnds) {
    // Of the end at (10, 5), which lies at (150, 30), there is nothing but its name above row 20.
    const auto [left, right] = InkedColumns(Draw("0,0", "10,5", view), 3, 20);
    EXPECT_NEAR((left + right) * 0.5, 150.0, 2.0);
    std::vector<std::string> named = view;
    named.insert(named.end(), {"--to-name", "Lille", "--from-name", ""});
    const PngPixels picture = Draw("0,0", "10,5", named);
    const auto [namedLeft, namedRight] = InkedColumns(picture, 3, 20);
    EXPECT_NEAR((namedLeft + namedRight) * 0.5, 150.0, 2.0);
    EXPECT_GT(namedRight - namedLeft, right - left + 8);
    // The other has none.
    EXPECT_EQ(InkedColumns(picture, 45, 72), std::pair(200, 0));
    EXPECT_LT(InkedColumns(Draw("0,0", "10,5", view), 45, 72).first, 50);
}

TEST_F(RoutePictures, KeepNamesInside) {
    // The ends are at the picture's upper corners, where no name has room above or beside them.
    map = scratch.Write("line", R"({"type":"LineString","coordinates":[[0,0],[10,0]]})");
    const PngPixels picture = Draw(
        "0,0", "10,0",
        {"--center", "5,-4.8", "--width", "10.4", "--size", "208x200", "--from-name", "Hill", "--to-name", "Hill"});
    const auto half = [&](int from, int to) {
        int count = 0;
        for (int y = 14; y < 40; ++y) {
            for (int x = from; x < to; ++x) {
                count += picture.At(x, y) == kInk ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(half(0, 6), half(202, 208));
    EXPECT_GT(half(16, 104), 10);
    EXPECT_GT(half(104, 192), 10);
}

TEST_F(RoutePictures, ShowAWayOfOneVertex) {
    EXPECT_EQ(Draw("-1,0", "0,0.25", {"--size", "100x100"}).At(50, 50), kInk);
}

TEST_F(RoutePictures, ShowTheWholeWayByItself) {
    // The way is 10 by 5 units, with a margin of 8 percent: an end is 8 pixels from the picture's sides.
    const PngPixels picture = Draw("0,0", "10,5", {"--size", "216x108"});
    EXPECT_EQ(picture.At(8, 103), kInk);
    EXPECT_EQ(picture.At(108, 103), kWay);
}

TEST_F(RoutePictures, InTheOtherFormats) {
    for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
        EXPECT_EQ(Find("0,0", "10,5", {"-o", scratch.Path(name)}).status, 0);
        EXPECT_EQ(scratch.Read(name).substr(0, 5), magic);
    }
}

}  // namespace
