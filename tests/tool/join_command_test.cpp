// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "failure_checks.h"
#include "geojson_reader.h"
#include "png_pixels.h"
#include "progress.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;
using tool_test::Sample;

constexpr uint32_t kBackground = 0xe4eef4;
constexpr uint32_t kPale = 0xf7f5f0;
constexpr uint32_t kInk = 0x2f3b4a;
constexpr uint32_t kJoining = 0xd0202e;
// The palette's first two colours for lines.
constexpr uint32_t kLayer0 = 0xc3813e;
constexpr uint32_t kLayer1 = 0x5a853e;

// A main line of two parts, a branch that crosses it, and one that ends a quarter of a unit before it; what is no
// line is left out.
const char* const kMap = R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"name":"main","level":1},"geometry":{"type":"MultiLineString","coordinates":[
        [[0,0],[4,0]], [[4,0],[8,0]]]}},
    {"type":"Feature","properties":{"level":2},"geometry":{"type":"LineString","coordinates":[[1,-1],[1,3.5,7]]}},
    {"type":"Feature","properties":{"name":"station"},"geometry":{"type":"Point","coordinates":[1,0]}},
    {"type":"Feature","properties":null,"geometry":{"type":"Polygon","coordinates":[[[0,-1],[9,-1],[9,9],[0,-1]]]}},
    {"type":"Feature","properties":{"level":1.0},"geometry":{"type":"LineString","coordinates":[[6,0.25],[7,3]]}}]})";

std::string Summary(std::size_t in, std::size_t split, std::size_t joining, std::size_t out) {
    return "polylines in: " + std::to_string(in) + "\nsplit points: " + std::to_string(split) +
           "\njoining lines: " + std::to_string(joining) + "\npolylines out: " + std::to_string(out) + "\n";
}

std::string LineText(const std::string& properties, const std::string& coordinates) {
    return R"({"type":"Feature","properties":)" + properties + R"(,"geometry":{"type":"LineString","coordinates":[)" +
           coordinates + "]}}";
}

class JoinCommand : public tool_test::FailureTest {
protected:
    void ExpectSummary(std::vector<std::string> options, const std::string& summary) const {
        options.insert(options.begin(), {"join", map});
        const Outcome outcome = RunTool(options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, summary);
        EXPECT_EQ(outcome.err, "");
    }

    PngPixels Draw(std::vector<std::string> options, const std::string& summary) const {
        options.insert(options.end(), {"-o", scratch.Path("a.png")});
        ExpectSummary(options, summary);
        return PngPixels(scratch.Path("a.png"));
    }

    void ExpectRefused(std::vector<std::string> options, const std::string& message) const {
        options.insert(options.begin(), {"join", map});
        ExpectFailure(options, message);
    }

    std::string map = scratch.Write("map.geojson", kMap);
    std::string out = scratch.Path("out.geojson");
};

TEST_F(JoinCommand, WritesLinesAndJoiningLines) {
    ExpectSummary({"--tol", "0.25", "-o", out}, Summary(4, 3, 1, 5));
    const std::string main = R"({"level":1,"name":"main"})";
    EXPECT_EQ(scratch.Read("out.geojson"),
              "{\"type\":\"FeatureCollection\",\"features\":[\n" + LineText(main, "[0,0],[1,0],[4,0]") + ",\n" +
                  LineText(main, "[4,0],[6,0],[8,0]") + ",\n" + LineText(R"({"level":2})", "[1,-1],[1,0],[1,3.5]") +
                  ",\n" + LineText(R"({"level":1.0})", "[6,0.25],[7,3]") + ",\n" +
                  LineText(R"({"joining":true})", "[6,0.25],[6,0]") + "\n]}\n");
}

TEST_F(JoinCommand, ToleranceZeroSplitsCrossingsAlone) {
    ExpectSummary({"--tol", "0", "-o", out}, Summary(4, 2, 0, 4));
    ExpectSummary({"--tol", "0.24", "-o", out}, Summary(4, 2, 0, 4));
}

TEST_F(JoinCommand, LayersAreJoinedByThemselves) {
    // 1 and 1.0 are equal; the crossing branch has another level.
    ExpectSummary({"--tol", "0.25", "--layer-by", "level", "-o", out}, Summary(4, 1, 1, 5));
    // All but the main line are without a name.
    ExpectSummary({"--tol", "0.25", "--layer-by", "name", "-o", out}, Summary(4, 0, 0, 4));
}

TEST_F(JoinCommand, TakesABareGeometry) {
    map = scratch.Write("line", R"({"type":"LineString","coordinates":[[0,0],[4,0],[2,1],[2,-1]]})");
    ExpectSummary({"--tol", "1", "-o", out}, Summary(1, 0, 0, 1));
    EXPECT_EQ(scratch.Read("out.geojson"), "{\"type\":\"FeatureCollection\",\"features\":[\n" +
                                               LineText("null", "[0,0],[4,0],[2,1],[2,-1]") + "\n]}\n");
}

TEST_F(JoinCommand, TheRailroads) {
    map = Sample("railroads-north-america.geojson");
    ExpectSummary({"--tol", "0.01", "-o", out}, Summary(1127, 175, 2164, 3291));
    tool::Progress progress(false);
    const tool::Drawing before = tool::ReadGeoJson(map, progress);
    const tool::Drawing after = tool::ReadGeoJson(out, progress);
    ASSERT_EQ(after.features.size(), 3291U);
    std::size_t split = 0;
    for (std::size_t i = 0; i < before.features.size(); ++i) {
        const tool::Points& line = before.features[i].geometry.lines.at(0);
        const tool::Points& rebuilt = after.features[i].geometry.lines.at(0);
        split += rebuilt.size() - line.size();
        // Every point is there, in its order and with all its digits.
        std::size_t found = 0;
        for (const Vellum::DblPt& point : rebuilt) {
            if (found < line.size() && point.IsExactly(line[found])) ++found;
        }
        EXPECT_EQ(found, line.size()) << i;
    }
    EXPECT_EQ(split, 175U);
    for (std::size_t i = before.features.size(); i < after.features.size(); ++i) {
        const tool::Points& line = after.features[i].geometry.lines.at(0);
        ASSERT_EQ(line.size(), 2U);
        EXPECT_LT(line[0].Dist(line[1]), 0.0101);
    }
    const nlohmann::json document = nlohmann::json::parse(scratch.Read("out.geojson"));
    EXPECT_EQ(document["features"][1126]["properties"], nlohmann::json::object());
    EXPECT_EQ(document["features"][1127]["properties"], nlohmann::json({{"joining", true}}));
}

TEST_F(JoinCommand, DrawsLayersJoiningLinesAndSplitPoints) {
    map = scratch.Write("drawn.geojson", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"level":1},"geometry":{"type":"LineString","coordinates":[[0,0],[10,0]]}},
        {"type":"Feature","properties":{"level":1},"geometry":{"type":"LineString","coordinates":[[2,-2],[2,2]]}},
        {"type":"Feature","properties":{"level":1},"geometry":{"type":"LineString","coordinates":[[6,2],[7,5]]}},
        {"type":"Feature","properties":{"level":2},"geometry":{"type":"LineString","coordinates":[[0,4],[4,4]]}}]})");
    const std::string land =
        scratch.Write("land", R"({"type":"Polygon","coordinates":[[[8,-9],[99,-9],[99,-1],[8,-1],[8,-9]]]})");
    // A unit is 20 pixels, and the lines that run along an axis run through the middle of a pixel.
    const PngPixels picture = Draw({"--tol", "2", "--layer-by", "level", "--map", land, "--size", "240x200", "--width",
                                    "12", "--center", "4.975,1.025"},
                                   Summary(4, 3, 1, 5));
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

TEST_F(JoinCommand, MarksSplitPointsWhereTheyAreFew) {
    // 32 lines one way and 32 the other: 2048 split points.
    nlohmann::json grid = {{"type", "MultiLineString"}, {"coordinates", nlohmann::json::array()}};
    for (int i = 0; i < 32; ++i) {
        grid["coordinates"].push_back({{i, -1}, {i, 32}});
        grid["coordinates"].push_back({{-1, i}, {32, i}});
    }
    map = scratch.Write("grid", grid.dump());
    const std::string summary = Summary(64, 2048, 0, 64);
    EXPECT_EQ(Draw({"--tol", "0", "--size", "400x400"}, summary).Count(kInk), 0);
    EXPECT_GT(Draw({"--tol", "0", "--size", "400x400", "--center", "10,10", "--width", "20"}, summary).Count(kInk),
              400);
}

TEST_F(JoinCommand, DrawsTheOtherFormats) {
    for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
        ExpectSummary({"--tol", "1", "-o", scratch.Path(name)}, Summary(4, 3, 1, 5));
        EXPECT_EQ(scratch.Read(name).substr(0, 5), magic);
    }
    EXPECT_EQ(scratch.Names(), (std::vector<std::string>{"a.pdf", "a.svg", "map.geojson"}));
}

TEST_F(JoinCommand, Help) {
    const Outcome help = RunTool({"join", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* words : {"FILE", "--tol", "--layer-by", "--output", "--map", "--center", "--width", "--rotate",
                              "--size", "split points: N", "\"joining\""}) {
        EXPECT_NE(help.out.find(words), std::string::npos) << words;
    }
    EXPECT_NE(RunTool({"--help"}).out.find("join "), std::string::npos);
}

TEST_F(JoinCommand, WrongArguments) {
    ExpectFailure({"join"}, "FILE is required");
    ExpectRefused({"-o", out}, "--tol is required");
    ExpectRefused({"--tol", "1"}, "--output is required");
    for (const std::string text : {"-1", "nan", "inf", "1e31", "wide"}) {
        ExpectRefused({"--tol", text, "-o", out}, "--tol: \"" + text + "\" is not a number from 0 to 1e30");
    }
    ExpectRefused({"--tol", "1", "-o", out, "--width", "0"}, "--width: \"0\" is not a number above 0 and up to 1e30");
    ExpectRefused({"--tol", "1", "-o", out, "--size", "5"},
                  "--size: \"5\" is not a size WxH of two whole numbers from 1 to 32767");
    ExpectRefused({"--tol", "1", "-o", out, "--layer-by", "Level"},
                  map + ": --layer-by: no feature has a property \"Level\"");
    ExpectRefused({"--tol", "1", "-o", scratch.Path("a.png"), "--width", "1e-300"},
                  "the view is too small: points that close to each other cannot be told apart there");
}

TEST_F(JoinCommand, WrongInput) {
    const std::string missing = scratch.Path("none");
    ExpectFailure({"join", missing, "--tol", "1", "-o", out}, missing + ": cannot be read: No such file or directory");
    ExpectRefused({"--tol", "1", "-o", scratch.Path("a.png"), "--map", missing},
                  missing + ": cannot be read: No such file or directory");
    map = scratch.Write("empty", "");
    ExpectRefused({"--tol", "1", "-o", out}, map + ": the file is empty");
    map = scratch.Write("collection", R"({"type":"FeatureCollection","features":[]})");
    ExpectRefused({"--tol", "1", "-o", out}, map + ": holds no geometry");
    map = scratch.Write("point", R"({"type":"Point","coordinates":[1,2]})");
    ExpectRefused({"--tol", "1", "-o", out}, map + ": holds no line");
    map = scratch.Write("short", R"({"type":"LineString","coordinates":[[1,2]]})");
    ExpectRefused({"--tol", "1", "-o", out}, map + ": coordinates: a line needs 2 positions or more");
}

TEST_F(JoinCommand, OutputThatCannotBeWritten) {
    // The name is looked at before anything is read.
    for (const char* name : {"a.bmp", "a.json", "geojson"}) {
        ExpectFailure({"join", scratch.Path("none"), "--tol", "1", "-o", scratch.Path(name)},
                      scratch.Path(name) + ": the name must end in .geojson, or in .png, .svg or .pdf for a picture");
    }
    for (const char* name : {"none/a.geojson", "none/a.png"}) {
        ExpectRefused({"--tol", "1", "-o", scratch.Path(name)},
                      scratch.Path(name) + ": cannot be written: No such file or directory");
    }
    std::filesystem::create_directory(scratch.Path("d.geojson"));
    ExpectRefused({"--tol", "1", "-o", scratch.Path("d.geojson")},
                  scratch.Path("d.geojson") + ": cannot be written: Is a directory");
    ExpectFailureToPrint({"join", map, "--tol", "1", "-o", out});
}

// A limit on the size of files stands for a full disk.
TEST_F(JoinCommand, DiskIsFull) {
    map = Sample("railroads-north-america.geojson");
    scratch.Write("out.geojson", "a former file");
    rlimit former = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit tight = {4096, former.rlim_max};
    const auto action = signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    ExpectRefused({"--tol", "0", "-o", out}, out + ": cannot be written: File too large");
    setrlimit(RLIMIT_FSIZE, &former);
    signal(SIGXFSZ, action);
    EXPECT_EQ(scratch.Read("out.geojson"), "a former file");
}

}  // namespace
