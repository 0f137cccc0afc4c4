// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

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
using tool_test::kPale;
using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;

constexpr uint32_t kA = 0xe9cb9f;
constexpr uint32_t kB = 0xa0b9d6;
constexpr uint32_t kWitness = 0xb02a2a;

// A square, a far and a near island under one name, a line, a point, and a square between the first ones.
const char* const kMap = R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"name":"West"},"geometry":{"type":"Polygon","coordinates":[
        [[0,0],[4,0],[4,4],[0,4],[0,0]]]}},
    {"type":"Feature","properties":{"NAME":"East"},"geometry":{"type":"MultiPolygon","coordinates":[
        [[[40,0],[41,0],[41,1],[40,0]]], [[[10,1],[12,1],[12,3],[10,3],[10,1]]]]}},
    {"type":"Feature","properties":{"Name":"road"},"geometry":{"type":"LineString","coordinates":[
        [0.1,-7],[0.1,-3.5],[9,-3.5]]}},
    {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[2,5.5]}},
    {"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[
        [[5,3],[7,3],[7,3.5],[5,3.5],[5,3]]]}}]})";

class ClearancePictures : public testing::Test {
protected:
    Outcome Measure(const std::string& a, const std::string& b, std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"clearance", map, "--a", a, "--b", b});
        return RunTool(options);
    }

    PngPixels Draw(const std::string& a, const std::string& b, std::vector<std::string> options) const {
        options.insert(options.end(), {"-o", scratch.Path("picture.png")});
        const Outcome outcome = Measure(a, b, options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(outcome.out, Measure(a, b).out);
        return PngPixels(scratch.Path("picture.png"));
    }

    tool_test::ScratchDirectory scratch;
    std::string map = scratch.Write("map.geojson", kMap);
};

TEST_F(ClearancePictures, DrawsTheTwoFeaturesAndTheGap) {
    // The nearest parts span (0, 0) to (12, 4): 100 pixels are 5.4 units, and (6, 2) is in the middle.
    const PngPixels picture = Draw("West", "East", {"--size", "240x160"});
    EXPECT_EQ(picture.Width(), 240);
    EXPECT_EQ(picture.Height(), 160);
    EXPECT_EQ(picture.At(40, 80), kA);
    EXPECT_EQ(picture.At(212, 80), kB);
    EXPECT_EQ(picture.At(105, 98), kWitness);
    EXPECT_EQ(picture.At(120, 56), kPale);
    EXPECT_EQ(picture.At(120, 140), kBackground);
    // The witness points at (4, 1) and (10, 1).
    EXPECT_EQ(picture.At(82, 98), kWitness);
    EXPECT_EQ(picture.At(194, 98), kWitness);
    EXPECT_EQ(picture.At(0, 0), 0x5d6b78U);
}

TEST_F(ClearancePictures, LabelsTheGap) {
    const PngPixels picture = Draw("West", "East", {"--size", "240x160"});
    int inked = 0;
    int paper = 0;
    for (int y = 102; y < 118; ++y) {
        for (int x = 120; x < 150; ++x) {
            inked += picture.At(x, y) == kWitness ? 1 : 0;
            paper += picture.At(x, y) == 0xffffff ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 5);
    EXPECT_GT(paper, 10);
}

TEST_F(ClearancePictures, DrawsTheViewThatIsAskedFor) {
    const PngPixels picture =
        Draw("West", "East", {"--center", "7,1.02", "--width", "4", "--rotate", "90", "--size", "100x100"});
    // The gap runs up and down, half a pixel to the left of the middle, through the middle of a column.
    for (int y = 4; y < 96; ++y) {
        EXPECT_EQ(picture.At(49, y), kWitness) << y;
    }
    EXPECT_EQ(picture.Count(kA), 0);
    EXPECT_EQ(picture.Count(kB), 0);
}

TEST_F(ClearancePictures, DrawsLinesAndPoints) {
    const PngPixels picture = Draw("3", "2", {"--center", "1,1", "--width", "16", "--size", "160x160"});
    // The point at (2, 5.5) is witness and in ink, the line from (0.1, -3.5) to the east is B.
    EXPECT_EQ(picture.At(90, 35), kWitness);
    EXPECT_GT(picture.Count(kWitness), 50);
    EXPECT_EQ(picture.Count(kA), 0);
}

TEST_F(ClearancePictures, DrawsAFeatureWithItself) {
    const PngPixels picture = Draw("West", "0", {"--size", "100x100"});
    EXPECT_EQ(picture.At(50, 50), kB);
}

TEST_F(ClearancePictures, DrawsTheOtherFormats) {
    for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
        EXPECT_EQ(Measure("West", "East", {"-o", scratch.Path(name)}).status, 0);
        EXPECT_EQ(scratch.Read(name).substr(0, 5), magic);
    }
    EXPECT_EQ(scratch.Names(), (std::vector<std::string>{"a.pdf", "a.svg", "map.geojson"}));
}

}  // namespace
