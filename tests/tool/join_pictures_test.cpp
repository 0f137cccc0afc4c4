// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdint>
#include <nlohmann/json.hpp>
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
using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;

constexpr uint32_t kJoining = 0xd0202e;
// The palette's first two colours for lines.
constexpr uint32_t kLayer0 = 0xc3813e;
constexpr uint32_t kLayer1 = 0x5a853e;

class JoinPictures : public testing::Test {
protected:
    PngPixels Draw(const std::string& map, std::vector<std::string> options, const std::string& summary) const {
        options.insert(options.begin(), {"join", map, "-o", scratch.Path("a.png")});
        const Outcome outcome = RunTool(options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, summary);
        EXPECT_EQ(outcome.err, "");
        return PngPixels(scratch.Path("a.png"));
    }

    const tool_test::ScratchDirectory scratch;
};

TEST_F(JoinPictures, ShowLayersJoiningLinesAndSplitPoints) {
    const std::string map = scratch.Write("drawn.geojson", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"level":1},"geometry":{"type":"LineString","coordinates":[[0,0],[10,0]]}},
        {"type":"Feature","properties":{"level":1},"geometry":{"type":"LineString","coordinates":[[2,-2],[2,2]]}},
        {"type":"Feature","properties":{"level":1},"geometry":{"type":"LineString","coordinates":[[6,2],[7,5]]}},
        {"type":"Feature","properties":{"level":2},"geometry":{"type":"LineString","coordinates":[[0,4],[4,4]]}}]})");
    const std::string land =
        scratch.Write("land", R"({"type":"Polygon","coordinates":[[[8,-9],[99,-9],[99,-1],[8,-1],[8,-9]]]})");
    // A unit is 20 pixels, and the lines that run along an axis run through the middle of a pixel.
    const PngPixels picture = Draw(map,
                                   {"--tol", "2", "--layer-by", "level", "--map", land, "--size", "240x200", "--width",
                                    "12", "--center", "4.975,1.025"},
                                   "polylines in: 4\nsplit points: 3\njoining lines: 1\npolylines out: 5\n");
    const auto at = [&picture](double x, double y) {
        return picture.At(static_cast<int>(120 + (x - 4.975) * 20), static_cast<int>(100 - (y - 1.025) * 20));
    };
    EXPECT_EQ(at(4, 0), kLayer0);
    EXPECT_EQ(at(2, 1), kLayer0);
    EXPECT_EQ(at(2, 4), kLayer1);
    EXPECT_EQ(at(2, 0), kInk);
    EXPECT_EQ(at(6, 1), kJoining);
    EXPECT_EQ(at(6, 2), kJoining);
    EXPECT_EQ(at(10, -3), kPale);
    EXPECT_EQ(at(5, -3), kBackground);
    EXPECT_EQ(picture.At(0, 0), 0x5d6b78U);
}

TEST_F(JoinPictures, MarkSplitPointsWhereTheyAreFew) {
    // 32 lines one way and 32 the other: 2048 split points.
    nlohmann::json grid = {{"type", "MultiLineString"}, {"coordinates", nlohmann::json::array()}};
    for (int i = 0; i < 32; ++i) {
        grid["coordinates"].push_back({{i, -1}, {i, 32}});
        grid["coordinates"].push_back({{-1, i}, {32, i}});
    }
    const std::string map = scratch.Write("grid", grid.dump());
    const std::string summary = "polylines in: 64\nsplit points: 2048\njoining lines: 0\npolylines out: 64\n";
    EXPECT_EQ(Draw(map, {"--tol", "0", "--size", "400x400"}, summary).Count(kInk), 0);
    EXPECT_GT(Draw(map, {"--tol", "0", "--size", "400x400", "--center", "10,10", "--width", "20"}, summary).Count(kInk),
              400);
}

TEST_F(JoinPictures, InTheOtherFormats) {
    const std::string map = scratch.Write("map", R"({"type":"LineString","coordinates":[[0,0],[4,0]]})");
    for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
        EXPECT_EQ(RunTool({"join", map, "--tol", "1", "-o", scratch.Path(name)}).status, 0);
        EXPECT_EQ(scratch.Read(name).substr(0, 5), magic);
    }
    EXPECT_EQ(scratch.Names(), (std::vector<std::string>{"a.pdf", "a.svg", "map"}));
}

}  // namespace
