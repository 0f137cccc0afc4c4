// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "failure_checks.h"
#include "png_pixels.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::PngPixels;
using tool_test::RunTool;
using tool_test::Sample;

constexpr uint32_t kBackground = 0xe4eef4;
constexpr uint32_t kPale = 0xf7f5f0;
constexpr uint32_t kPaper = 0xffffff;
constexpr uint32_t kInk = 0x2f3b4a;
constexpr uint32_t kNetwork = 0x7289a3;
constexpr uint32_t kWay = 0xd0202e;

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

    PngPixels Draw(const std::string& from, const std::string& to, std::vector<std::string> options) const {
        options.insert(options.end(), {"-o", scratch.Path("a.png")});
        const Outcome outcome = Find(from, to, options);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        return PngPixels(scratch.Path("a.png"));
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
    scratch.Write("a.png", "a former picture");
    for (const char* name : {"a.png", "b.png", "b.svg", "b.geojson"}) {
        ExpectRefused({"--from", "0,0", "--to", "1,6", "-o", scratch.Path(name)},
                      map + ": no way leads from (0, 0) to (1, 6); --join closes gaps between lines", 1);
    }
    EXPECT_EQ(scratch.Read("a.png"), "a former picture");
}

TEST_F(RouteCommand, TheSameVertexIsAWayOfLengthZero) {
    ExpectResult("-1,0", "0,0.25", {"-o", out}, Result("0", 1, "(0, 0), 1", "(0, 0), 0.25"));
    EXPECT_EQ(scratch.Read("out.geojson"),
              R"({"type":"Feature","properties":{"from":[-1.0,0.0],"length":0.0,"to":[0.0,0.25],"vertices":1},)"
              R"("geometry":{"type":"Point","coordinates":[0,0]}})"
              "\n");
    EXPECT_EQ(Draw("-1,0", "0,0.25", {"--size", "100x100"}).At(50, 50), kInk);
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

class RoutePicture : public RouteCommand {
protected:
    RoutePicture() {
        map = scratch.Write("drawn.geojson", R"({"type":"MultiLineString","coordinates":[
            [[0,0],[10,0]], [[10,0],[10,5]], [[-30,-5.05],[40,-5.05]]]})");
    }

    // A unit is 10 pixels, and the middle of the picture is at (5, 0).
    const std::vector<std::string> view = {"--center", "5,0", "--width", "20", "--size", "200x160"};
};

TEST_F(RoutePicture, ShowsTheWayInItsNetwork) {
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

TEST_F(RoutePicture, NamesTheEnds) {
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

TEST_F(RoutePicture, KeepsNamesInside) {
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

TEST_F(RoutePicture, ShowsTheWholeWayByItself) {
    // The way is 10 by 5 units, with a margin of 8 percent: an end is 8 pixels from the picture's sides.
    const PngPixels picture = Draw("0,0", "10,5", {"--size", "216x108"});
    EXPECT_EQ(picture.At(8, 103), kInk);
    EXPECT_EQ(picture.At(108, 103), kWay);
}

TEST_F(RoutePicture, InTheOtherFormats) {
    for (const auto& [name, magic] : {std::pair("a.svg", "<?xml"), std::pair("a.pdf", "%PDF-")}) {
        EXPECT_EQ(Find("0,0", "10,5", {"-o", scratch.Path(name)}).status, 0);
        EXPECT_EQ(scratch.Read(name).substr(0, 5), magic);
    }
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
    refused({"-o", scratch.Path("a.png"), "--width", "1e-300"},
            "the view is too small: points that close to each other cannot be told apart there");
}

TEST_F(RouteCommand, WrongInput) {
    const std::vector<std::string> ends = {"--from", "0,0", "--to", "3,4"};
    const std::string missing = scratch.Path("none");
    ExpectRefused({"--from", "0,0", "--to", "3,4", "-o", scratch.Path("a.png"), "--map", missing},
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
    refused("none/a.pdf", ": cannot be written: No such file or directory");
    std::filesystem::create_directory(scratch.Path("d.geojson"));
    refused("d.geojson", ": cannot be written: Is a directory");
    ExpectFailureToPrint({"route", map, "--from", "0,0", "--to", "3,4"});
    // The name is looked at before anything is read.
    map = scratch.Path("none.geojson");
    refused("a.bmp", ": the name must end in .geojson, or in .png, .svg or .pdf for a picture");
}

}  // namespace
