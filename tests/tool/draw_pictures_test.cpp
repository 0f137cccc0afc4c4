// SPDX-License-Identifier: MIT
// From the file to the pixels.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "picture_colours.h"
#include "png_pixels.h"
#include "scratch_directory.h"
#include "tool_run.h"

namespace {

using tool_test::kBackground;
using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;
using tool_test::Sample;
using tool_test::ScratchDirectory;

PngPixels DrawPng(const ScratchDirectory& scratch, const std::string& map, std::vector<std::string> options) {
    options.insert(options.begin(), {"draw", map, "-o", scratch.Path("picture.png")});
    const Outcome outcome = RunTool(options);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    return PngPixels(scratch.Path("picture.png"));
}

std::string ColouredFeature(const std::string& colour, const std::string& type, const std::string& coordinates) {
    return R"({"type":"Feature","properties":{"color":")" + colour + R"("},"geometry":{"type":")" + type +
           R"(","coordinates":)" + coordinates + "}}";
}

std::string Collection(const std::string& features) {
    return R"({"type":"FeatureCollection","features":[)" + features + "]}";
}

struct ViewCase {
    const char* map;
    const char* center;
    const char* width;
    const char* rotation;
};

void PrintTo(const ViewCase& view, std::ostream* out) {
    *out << view.map << " at " << view.center << ", width " << view.width << ", turned " << view.rotation;
}

class ClippedPicture : public testing::TestWithParam<ViewCase> {};

TEST_P(ClippedPicture, IsTheWholeDrawingsPicture) {
    const ViewCase& view = GetParam();
    const ScratchDirectory scratch;
    const std::vector<std::string> options = {"--center", view.center,   "--width", view.width,
                                              "--rotate", view.rotation, "--size",  "320x240"};
    const PngPixels clipped = DrawPng(scratch, Sample(view.map), options);
    std::vector<std::string> whole = options;
    whole.push_back("--no-clip");
    EXPECT_EQ(PngPixels::Differences(clipped, DrawPng(scratch, Sample(view.map), whole)), 0);
    EXPECT_GT(clipped.Width() * clipped.Height() - clipped.Count(kBackground), 1500) << "hardly anything in the view";
}

INSTANTIATE_TEST_SUITE_P(Views, ClippedPicture,
                         testing::Values(ViewCase{"countries-110m.geojson", "12,50", "45", "30"},
                                         ViewCase{"countries-110m.geojson", "12,50", "45", "0"},
                                         ViewCase{"countries-110m.geojson", "12,50", "20", "137.5"},
                                         ViewCase{"countries-110m.geojson", "100,30", "90", "-45"},
                                         ViewCase{"countries-110m.geojson", "-70,-50", "20", "0.001"},
                                         ViewCase{"countries-110m.geojson", "8,47", "3", "200"},
                                         ViewCase{"countries-110m.geojson", "29,-29.5", "6", "77"},
                                         ViewCase{"countries-110m.geojson", "6.1,49.8", "0.3", "15"},
                                         ViewCase{"countries-110m.geojson", "0,-85", "120", "90"},
                                         ViewCase{"land-50m.geojson", "12,50", "20", "30"},
                                         ViewCase{"land-50m.geojson", "24,38", "8", "180"},
                                         ViewCase{"land-50m.geojson", "179,-17", "3", "62"},
                                         ViewCase{"land-50m.geojson", "-70,-50", "20", "270"},
                                         ViewCase{"land-50m.geojson", "50,42", "20", "11"},
                                         ViewCase{"rivers-50m.geojson", "-55,-10", "40", "25"},
                                         ViewCase{"rivers-50m.geojson", "20,48", "12", "300"},
                                         ViewCase{"railroads-north-america.geojson", "-95,40", "20", "45"},
                                         ViewCase{"railroads-north-america.geojson", "-87.7,41.9", "2", "0"}));

// A square of 10 units with a hole of 2 in its middle. Both run the same way round, so that only the even-odd rule
// tells the hole.
class HolePicture : public testing::Test {
protected:
    HolePicture() {
        map = scratch.Write("map.geojson", ColouredFeature("#336699", "Polygon",
                                                           "[[[0,0],[10,0],[10,10],[0,10],[0,0]],"
                                                           "[[4,4],[6,4],[6,6],[4,6],[4,4]]]"));
    }

    ScratchDirectory scratch;
    std::string map;
};

TEST_F(HolePicture, Whole) {
    const PngPixels picture = DrawPng(scratch, map, {"--center", "5,5", "--width", "12", "--size", "120x120"});
    EXPECT_EQ(picture.Width(), 120);
    EXPECT_EQ(picture.Height(), 120);
    EXPECT_EQ(picture.At(60, 60), kBackground);
    EXPECT_EQ(picture.At(53, 66), kBackground);
    EXPECT_EQ(picture.At(30, 60), 0x336699U);
    EXPECT_EQ(picture.At(100, 20), 0x336699U);
    EXPECT_EQ(picture.At(5, 60), kBackground);
}

// Views within the hole and on its edge; nothing may be seen of where the clipping cut.
TEST_F(HolePicture, CutThrough) {
    for (const char* rotation : {"0", "90", "45", "180"}) {
        const PngPixels picture =
            DrawPng(scratch, map, {"--center", "5,5", "--width", "1.3", "--size", "120x120", "--rotate", rotation});
        EXPECT_EQ(picture.Count(kBackground), 116 * 116) << rotation;
    }
    const PngPixels picture = DrawPng(scratch, map, {"--center", "4,5", "--width", "1", "--size", "120x120"});
    EXPECT_EQ(picture.At(110, 60), kBackground);
    EXPECT_EQ(picture.At(10, 60), 0x336699U);
    EXPECT_EQ(picture.At(3, 3), 0x336699U);
    EXPECT_EQ(picture.At(3, 116), 0x336699U);
}

TEST_F(HolePicture, ViewWithinTheArea) {
    const PngPixels picture =
        DrawPng(scratch, map, {"--center", "2,2", "--width", "1", "--size", "120x120", "--rotate", "20"});
    EXPECT_EQ(picture.Count(0x336699), 116 * 116);
}

TEST_F(HolePicture, EveryPictureHasAFrame) {
    const PngPixels picture = DrawPng(scratch, map, {"--size", "40x30"});
    for (int x = 0; x < 40; ++x) {
        EXPECT_EQ(picture.At(x, 0), 0x5d6b78U);
        EXPECT_EQ(picture.At(x, 29), 0x5d6b78U);
    }
    EXPECT_EQ(picture.At(0, 15), 0x5d6b78U);
    EXPECT_EQ(picture.At(39, 15), 0x5d6b78U);
    EXPECT_NE(picture.At(2, 2), 0x5d6b78U);
}

TEST(DrawPictures, ViewsTurnCounterClockwise) {
    const ScratchDirectory scratch;
    // Red to the east of the origin, green to the north.
    const std::string map = scratch.Write(
        "map.geojson", Collection(ColouredFeature("#cc0000", "Polygon", "[[[3,-1],[5,-1],[5,1],[3,1],[3,-1]]]") + ',' +
                                  ColouredFeature("#00cc00", "Polygon", "[[[-1,3],[1,3],[1,5],[-1,5],[-1,3]]]")));
    const auto turned = [&](const std::string& rotation) {
        return DrawPng(scratch, map, {"--center", "0,0", "--width", "12", "--size", "120x120", "--rotate", rotation});
    };
    const PngPixels upright = turned("0");
    EXPECT_EQ(upright.At(100, 60), 0xcc0000U);
    EXPECT_EQ(upright.At(60, 20), 0x00cc00U);
    const PngPixels quarter = turned("90");
    EXPECT_EQ(quarter.At(60, 100), 0xcc0000U);
    EXPECT_EQ(quarter.At(100, 60), 0x00cc00U);
    const PngPixels eighth = turned("45");
    EXPECT_EQ(eighth.At(88, 88), 0xcc0000U);
    EXPECT_EQ(eighth.At(88, 32), 0x00cc00U);
}

TEST(DrawPictures, TheDefaultViewShowsEverything) {
    const ScratchDirectory scratch;
    const std::string map =
        scratch.Write("map.geojson", ColouredFeature("#336699", "Polygon", "[[[0,0],[8,0],[8,2],[0,2],[0,0]]]"));
    for (const char* rotation : {"0", "30", "90", "211"}) {
        const PngPixels picture = DrawPng(scratch, map, {"--size", "200x100", "--rotate", rotation});
        EXPECT_EQ(picture.At(100, 50), 0x336699U) << rotation;
        for (int i = 3; i < 97; ++i) {
            EXPECT_EQ(picture.At(3, i), kBackground);
            EXPECT_EQ(picture.At(196, i), kBackground);
            EXPECT_EQ(picture.At(2 * i, 2), kBackground);
            EXPECT_EQ(picture.At(2 * i, 97), kBackground);
        }
    }
}

TEST(DrawPictures, LinesAndPoints) {
    const ScratchDirectory scratch;
    const std::string map =
        scratch.Write("map.geojson", Collection(ColouredFeature("#aa0000", "LineString", "[[-9,2.05],[9,2.05]]") + ',' +
                                                ColouredFeature("#0000aa", "MultiPoint", "[[1,-2],[-3,-2]]")));
    const PngPixels picture = DrawPng(scratch, map, {"--center", "0,0", "--width", "10", "--size", "100x100"});
    for (int x = 2; x < 98; ++x) {
        EXPECT_EQ(picture.At(x, 29), 0xaa0000U) << x;
        EXPECT_EQ(picture.At(x, 26), kBackground);
        EXPECT_EQ(picture.At(x, 32), kBackground);
    }
    EXPECT_EQ(picture.At(60, 70), 0x0000aaU);
    EXPECT_EQ(picture.At(20, 70), 0x0000aaU);
    EXPECT_EQ(picture.At(60, 76), kBackground);
}

TEST(DrawPictures, WhatReachesFarBeyondTheViewDoesNotWrap) {
    const ScratchDirectory scratch;
    const std::string map = scratch.Write(
        "map.geojson", Collection(ColouredFeature("#336699", "Polygon",
                                                  "[[[-1e9,-1e9],[1e9,-1e9],[1e9,1e9],[-1e9,1e9],[-1e9,-1e9]]]") +
                                  ',' + ColouredFeature("#aa0000", "LineString", "[[-1e9,-1e9],[1e9,1e9]]")));
    const PngPixels picture = DrawPng(scratch, map, {"--center", "0,0", "--width", "0.001", "--size", "100x100"});
    for (int i = 4; i < 96; ++i) {
        EXPECT_EQ(picture.At(i, 99 - i), 0xaa0000U) << i;
    }
    EXPECT_EQ(picture.At(20, 20), 0x336699U);
    EXPECT_EQ(picture.At(80, 80), 0x336699U);
}

TEST(DrawPictures, EdgesAreSmooth) {
    const ScratchDirectory scratch;
    const std::string map = scratch.Write("map.geojson", ColouredFeature("#000000", "LineString", "[[-9,-1],[9,1.3]]"));
    const PngPixels picture = DrawPng(scratch, map, {"--center", "0,0", "--width", "10", "--size", "100x100"});
    int between = 0;
    for (int x = 2; x < 98; ++x) {
        for (int y = 2; y < 98; ++y) {
            between += picture.At(x, y) != kBackground && picture.At(x, y) != 0 ? 1 : 0;
        }
    }
    EXPECT_GT(between, 150);
}

TEST(DrawPictures, LargePicturesHaveNoSeams) {
    const ScratchDirectory scratch;
    const std::string map =
        scratch.Write("map.geojson", ColouredFeature("#336699", "Polygon", "[[[0,0],[8,0],[8,8],[0,8],[0,0]]]"));
    const PngPixels picture = DrawPng(scratch, map, {"--center", "4,4", "--width", "6", "--size", "600x550"});
    EXPECT_EQ(picture.Count(0x336699), 596 * 546);
}

TEST(DrawPictures, WhereTheyCannotBeWritten) {
    const ScratchDirectory scratch;
    for (const char* name : {"none/a.png", "none/a.pdf"}) {
        const Outcome outcome = RunTool({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path(name)});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.err, "vellum: " + scratch.Path(name) + ": cannot be written: No such file or directory\n");
    }
    const Outcome named = RunTool({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path("a.bmp")});
    EXPECT_EQ(named.err,
              "vellum: " + scratch.Path("a.bmp") + ": the name of a picture must end in .png, .svg or .pdf\n");
}

TEST(DrawPictures, VectorFormats) {
    const ScratchDirectory scratch;
    for (const char* rotation : {"0", "30"}) {
        for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
            const Outcome outcome = RunTool({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path(name),
                                             "--center", "12,50", "--width", "45", "--rotate", rotation});
            EXPECT_EQ(outcome.status, 0);
            EXPECT_EQ(outcome.err, "");
            const std::string text = scratch.Read(name);
            EXPECT_EQ(text.substr(0, 5), magic);
            EXPECT_GT(text.size(), 5000U);
        }
        const std::string svg = scratch.Read("a.svg");
        EXPECT_NE(svg.find("<svg"), std::string::npos);
        EXPECT_NE(svg.find("</svg>"), std::string::npos);
    }
    EXPECT_EQ(scratch.Names(), (std::vector<std::string>{"a.pdf", "a.svg"}));
}

}  // namespace
