// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "failure_checks.h"
#include "geojson_reader.h"
#include "picture.h"
#include "progress.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

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
    ExpectRefused({"--tol", "1", "-o", scratch.Path("a.svg"), "--width", "1e-300"},
                  "the view is too small: points that close to each other cannot be told apart there");
}

TEST_F(JoinCommand, WrongInput) {
    const std::string missing = scratch.Path("none");
    ExpectFailure({"join", missing, "--tol", "1", "-o", out}, missing + ": cannot be read: No such file or directory");
    ExpectRefused({"--tol", "1", "-o", scratch.Path("a.svg"), "--map", missing},
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
                      scratch.Path(name) + ": the name must end in .geojson, or in " + tool::PictureExtensions() +
                          " for a picture");
    }
    for (const char* name : {"none/a.geojson", "none/a.svg"}) {
        ExpectRefused({"--tol", "1", "-o", scratch.Path(name)},
                      scratch.Path(name) + ": cannot be written: No such file or directory");
    }
    std::filesystem::create_directory(scratch.Path("d.geojson"));
    ExpectRefused({"--tol", "1", "-o", scratch.Path("d.geojson")},
                  scratch.Path("d.geojson") + ": cannot be written: Is a directory");
    ExpectFailureToPrint({"join", map, "--tol", "1", "-o", out});
}

}  // namespace
