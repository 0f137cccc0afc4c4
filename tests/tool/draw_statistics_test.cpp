// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "scratch_directory.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

TEST(DrawStatistics, CountsAndTimes) {
    const tool_test::ScratchDirectory scratch;
    // A square with a hole and a line in the view, a square and a point beyond it.
    const std::string map = scratch.Write("map.geojson", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[
            [[0,0],[4,0],[4,4],[0,4],[0,0]],[[1,1],[2,1],[2,2],[1,1]]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[0,0],[4,4]]}},
        {"type":"Feature","properties":{},"geometry":null},
        {"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[
            [[100,0],[104,0],[104,4],[100,4],[100,0]]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[100,100]}}]})");
    const Outcome outcome = RunTool({"draw", map, "-o", scratch.Path("a.svg"), "--center", "2,2", "--width", "6",
                                     "--rotate", "30", "--size", "60x60", "--stats"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::string counts =
        "            features  polygons     rings     lines    points\n"
        "read               4         2         3         1        17\n"
        "clipped            2         1         2         1        11\n"
        "drawn              2         1         2         1        11\n"
        "\n";
    ASSERT_EQ(outcome.out.substr(0, counts.size()), counts);
    std::istringstream times(outcome.out.substr(counts.size()));
    for (const char* stage : {"read", "clip", "transform", "draw", "write"}) {
        std::string name;
        double milliseconds = -1.0;
        std::string unit;
        times >> name >> milliseconds >> unit;
        EXPECT_EQ(name, stage);
        EXPECT_GE(milliseconds, 0.0);
        EXPECT_EQ(unit, "ms");
    }
    std::string rest;
    EXPECT_FALSE(times >> rest) << rest;
}

TEST(DrawStatistics, TheWorld) {
    const tool_test::ScratchDirectory scratch;
    const Outcome outcome = RunTool({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path("a.svg"), "--stats"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.out.find("\nread             177       288       289         0     10654\n"), std::string::npos)
        << outcome.out;
    EXPECT_NE(outcome.out.find("\nclipped          177       288       289         0     10654\n"), std::string::npos)
        << outcome.out;
}

TEST(DrawStatistics, NothingIsPrintedUnasked) {
    const tool_test::ScratchDirectory scratch;
    const Outcome outcome = RunTool({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path("a.svg")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "");
}

TEST(DrawHelp, HelpAndVersion) {
    const Outcome version = RunTool({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "vellum " VELLUM_VERSION "\n");
    const Outcome help = RunTool({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("draw"), std::string::npos);
    const Outcome drawHelp = RunTool({"draw", "--help"});
    EXPECT_EQ(drawHelp.status, 0);
    for (const char* option :
         {"FILE", "--output", "--center", "--width", "--rotate", "--size", "--stats", "--no-clip"}) {
        EXPECT_NE(drawHelp.out.find(option), std::string::npos) << option;
    }
}

}  // namespace
