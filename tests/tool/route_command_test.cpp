// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "failure_checks.h"
#include "picture.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

// A way along two lines, a line that only crosses it, and one that ends a quarter of a unit from its corner.
const char* const kMap = R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[7,4],[3,4],[3,0]]}},
    {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[0,0],[3,0]]}},
    {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[1,-2],[1,6]]}},
    {"type":"Feature","properties":{},"geometry":{"type":"LineString","coordinates":[[3.25,-0.5],[9,-5]]}},
    {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[3,5]}}]})";

std::string Result(const std::string& length, int vertices, const std::string& from, const std::string& to) {
    return "length: " + length + "\nvertices: " + std::to_string(vertices) + "\nfrom: " + from +
           " from the point asked for\nto: " + to + " from the point asked for\n";
}

class RouteCommand : public tool_test::FailureTest {
protected:
    Outcome Find(const std::string& from, const std::string& to, std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"route", map, "--from", from, "--to", to});
        return RunTool(options);
    }

    void ExpectResult(const std::string& from, const std::string& to, const std::vector<std::string>& options,
                      const std::string& result) const {
        const Outcome outcome = Find(from, to, options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, result);
        EXPECT_EQ(outcome.err, "");
    }

    void ExpectRefused(std::vector<std::string> options, const std::string& message, int status = 2) const {
        options.insert(options.begin(), {"route", map});
        ExpectFailure(options, message, status);
    }

    std::string map = scratch.Write("map.geojson", kMap);
    std::string out = scratch.Path("out.geojson");
};

TEST_F(RouteCommand, PrintsTheWay) {
    ExpectResult("-0.3,0.4", "3,5.25", {}, Result("7", 3, "(0, 0), 0.5", "(3, 4), 1.25"));
    ExpectResult("7,4", "0,0", {}, Result("11", 4, "(7, 4), 0", "(0, 0), 0"));
}

TEST_F(RouteCommand, JoinsFirst) {
    const std::string noWay = map + ": no way leads from (0, 0) to (1, 6); --join closes gaps between lines";
    ExpectRefused({"--from", "0,0", "--to", "1,6"}, noWay, 1);
    ExpectResult("0,0", "1,6", {"--join", "0"}, Result("7", 3, "(0, 0), 0", "(1, 6), 0"));
    // To the end beside the corner it takes a line across the gap.
    ExpectRefused({"--from", "0,0", "--to", "9,-5", "--join", "0"}, map + ": no way leads from (0, 0) to (9, -5)", 1);
    const double length = 3.0 + std::hypot(0.25, 0.5) + std::hypot(5.75, 4.5);
    const Outcome joined = Find("0,0", "9,-5", {"--join", "0.6", "-o", out});
    EXPECT_EQ(joined.status, 0);
    const nlohmann::json way = nlohmann::json::parse(scratch.Read("out.geojson"));
    EXPECT_EQ(way["geometry"]["coordinates"], nlohmann::json::parse("[[0,0],[1,0],[3,0],[3.25,-0.5],[9,-5]]"));
    EXPECT_NEAR(way["properties"]["length"].get<double>(), length, 1e-12);
}

TEST_F(RouteCommand, LayersAreNotLookedAtByJoin) {
    map = scratch.Write("layers", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"layer":1},"geometry":{"type":"LineString","coordinates":[[0,0],[4,0]]}},
        {"type":"Feature","properties":{"layer":2},"geometry":{"type":"LineString","coordinates":[[1,-2],[1,6]]}}]})");
    ExpectResult("0,0", "1,6", {"--join", "0"}, Result("7", 3, "(0, 0), 0", "(1, 6), 0"));
}

TEST_F(RouteCommand, NoWayLeavesNothing) {
    scratch.Write("a.svg", "a former picture");
    for (const char* name : {"a.svg", "b.svg", "b.geojson"}) {
        ExpectRefused({"--from", "0,0", "--to", "1,6", "-o", scratch.Path(name)},
                      map + ": no way leads from (0, 0) to (1, 6); --join closes gaps between lines", 1);
    }
    EXPECT_EQ(scratch.Read("a.svg"), "a former picture");
}

TEST_F(RouteCommand, TheSameVertexIsAWayOfLengthZero) {
    ExpectResult("-1,0", "0,0.25", {"-o", out}, Result("0", 1, "(0, 0), 1", "(0, 0), 0.25"));
    EXPECT_EQ(scratch.Read("out.geojson"),
              R"({"type":"Feature","properties":{"from":[-1.0,0.0],"length":0.0,"to":[0.0,0.25],"vertices":1},)"
              R"("geometry":{"type":"Point","coordinates":[0,0]}})"
              "\n");
}

TEST_F(RouteCommand, WritesTheWay) {
    ExpectResult("-0.3,0.4", "3,5.25", {"-o", out}, Result("7", 3, "(0, 0), 0.5", "(3, 4), 1.25"));
    EXPECT_EQ(scratch.Read("out.geojson"),
              R"({"type":"Feature","properties":{"from":[-0.3,0.4],"length":7.0,"to":[3.0,5.25],"vertices":3},)"
              R"("geometry":{"type":"LineString","coordinates":[[0,0],[3,0],[3,4]]}})"
              "\n");
}

TEST_F(RouteCommand, TheRailroads) {
    map = Sample("railroads-north-america.geojson");
    const Outcome outcome = Find("-74.0,40.7", "-118.2,34.1", {"--join", "0.01", "-o", out});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const nlohmann::json way = nlohmann::json::parse(scratch.Read("out.geojson"));
    const nlohmann::json& points = way["geometry"]["coordinates"];
    EXPECT_EQ(points.front(), nlohmann::json({-74.034169, 40.743476}));
    EXPECT_EQ(points.back(), nlohmann::json({-118.237477, 34.103217}));
    const double length = way["properties"]["length"].get<double>();
    EXPECT_GT(length, std::hypot(44.203308, 6.640259));
    EXPECT_LT(length, 52.0);
    EXPECT_NE(outcome.out.find("vertices: " + std::to_string(points.size()) + "\n"), std::string::npos);

    // The network is the same when it is written by the one verb and read by the other.
    ASSERT_EQ(RunTool({"join", map, "--tol", "0.01", "-o", scratch.Path("network.geojson")}).status, 0);
    map = scratch.Path("network.geojson");
    EXPECT_EQ(Find("-74.0,40.7", "-118.2,34.1").out, outcome.out);

    // No rails lead there.
    map = Sample("railroads-north-america.geojson");
    ExpectRefused({"--from", "-147.7,64.8", "--to", "-74.0,40.7", "--join", "0.01"},
                  map + ": no way leads from (-147.679799, 64.818244) to (-74.034169, 40.743476)", 1);
}

TEST_F(RouteCommand, Help) {
    const Outcome help = RunTool({"route", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* words :
         {"FILE", "--from", "--to", "--join", "--output", "--map", "--from-name", "--to-name", "--center", "--width",
          "--rotate", "--size", "length: L", "vertices: N", "exit status is 1"}) {
        EXPECT_NE(help.out.find(words), std::string::npos) << words;
    }
    EXPECT_NE(RunTool({"--help"}).out.find("route "), std::string::npos);
}

TEST_F(RouteCommand, WrongArguments) {
    ExpectFailure({"route"}, "FILE is required");
    ExpectRefused({"--to", "0,0"}, "--from is required");
    ExpectRefused({"--from", "0,0"}, "--to is required");
    for (const std::string text : {"", "5", "1,2,3", "1;2", "x,2", "1, 2", "nan,1", "1,inf", "1e31,0"}) {
        ExpectRefused({"--from", text, "--to", "0,0"},
                      "--from: \"" + text + "\" is not a point X,Y of two numbers between -1e30 and 1e30");
        ExpectRefused({"--from", "0,0", "--to", text},
                      "--to: \"" + text + "\" is not a point X,Y of two numbers between -1e30 and 1e30");
    }
    const std::vector<std::string> ends = {"--from", "0,0", "--to", "3,4"};
    const auto refused = [&](std::vector<std::string> options, const std::string& message) {
        options.insert(options.begin(), ends.begin(), ends.end());
        ExpectRefused(options, message);
    };
    for (const std::string text : {"-1", "nan", "inf", "wide"}) {
        refused({"--join", text}, "--join: \"" + text + "\" is not a number from 0 to 1e30");
    }
    refused({"--size", "5"}, "--size: \"5\" is not a size WxH of two whole numbers from 1 to 32767");
    refused({"--width", "0"}, "--width: \"0\" is not a number above 0 and up to 1e30");
    refused({"--map", map}, "--map requires --output");
    refused({"-o", scratch.Path("a.svg"), "--width", "1e-300"},
            "the view is too small: points that close to each other cannot be told apart there");
}

TEST_F(RouteCommand, WrongInput) {
    const std::vector<std::string> ends = {"--from", "0,0", "--to", "3,4"};
    const std::string missing = scratch.Path("none");
    ExpectRefused({"--from", "0,0", "--to", "3,4", "-o", scratch.Path("a.svg"), "--map", missing},
                  missing + ": cannot be read: No such file or directory");
    map = missing;
    ExpectRefused(ends, missing + ": cannot be read: No such file or directory");
    map = scratch.Write("empty", "");
    ExpectRefused(ends, map + ": the file is empty");
    map = scratch.Write("polygon", R"({"type":"Polygon","coordinates":[[[0,0],[1,0],[1,1],[0,0]]]})");
    ExpectRefused(ends, map + ": holds no line");
}

TEST_F(RouteCommand, OutputThatCannotBeWritten) {
    const auto refused = [&](const std::string& name, const std::string& cause) {
        ExpectRefused({"--from", "0,0", "--to", "3,4", "-o", scratch.Path(name)}, scratch.Path(name) + cause);
    };
    refused("none/a.geojson", ": cannot be written: No such file or directory");
    refused("none/a.svg", ": cannot be written: No such file or directory");
    std::filesystem::create_directory(scratch.Path("d.geojson"));
    refused("d.geojson", ": cannot be written: Is a directory");
    ExpectFailureToPrint({"route", map, "--from", "0,0", "--to", "3,4"});
    // The name is looked at before anything is read.
    map = scratch.Path("none.geojson");
    refused("a.bmp", ": the name must end in .geojson, or in " + tool::PictureExtensions() + " for a picture");
}

}  // namespace
