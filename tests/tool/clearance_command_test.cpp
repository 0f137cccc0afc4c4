// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "failure_checks.h"
#include "geojson_reader.h"
#include "picture.h"
#include "progress.h"
#include "scratch_directory.h"
#include "text.h"
#include "tool_run.h"
#include "vellum/vellum.h"

namespace {

using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

// A square, a far and a near island under one name, a line, two points, a feature without a geometry, and a square
// between the first ones.
const char* const kMap = R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"name":"West"},"geometry":{"type":"Polygon","coordinates":[
        [[0,0],[4,0],[4,4],[0,4],[0,0]]]}},
    {"type":"Feature","properties":{"NAME":"East"},"geometry":{"type":"MultiPolygon","coordinates":[
        [[[40,0],[41,0],[41,1],[40,0]]], [[[10,1],[12,1],[12,3],[10,3],[10,1]]]]}},
    {"type":"Feature","properties":{"Name":"road"},"geometry":{"type":"LineString","coordinates":[
        [0.1,-7],[0.1,-3.5],[9,-3.5]]}},
    {"type":"Feature","properties":{},"geometry":{"type":"MultiPoint","coordinates":[[2,5.5],[90,90]]}},
    {"type":"Feature","properties":{"name":"nowhere"},"geometry":null},
    {"type":"Feature","properties":{"name":"road"},"geometry":{"type":"Polygon","coordinates":[
        [[5,3],[7,3],[7,3.5],[5,3.5],[5,3]]]}}]})";

class ClearanceCommand : public tool_test::FailureTest {
protected:
    Outcome Measure(const std::string& a, const std::string& b, std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"clearance", map, "--a", a, "--b", b});
        return RunTool(options);
    }

    void ExpectResult(const std::string& a, const std::string& b, const std::string& result) const {
        const Outcome outcome = Measure(a, b);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, result);
        EXPECT_EQ(outcome.err, "");
    }

    void ExpectRefused(const std::vector<std::string>& options, const std::string& message) const {
        std::vector<std::string> arguments = {"clearance", map};
        arguments.insert(arguments.end(), options.begin(), options.end());
        ExpectFailure(arguments, message);
    }

    std::string map = scratch.Write("map.geojson", kMap);
};

TEST_F(ClearanceCommand, PrintsTheWitnessPointsAndTheirDistance) {
    ExpectResult("West", "East",
                 "a: (4, 1) on feature 0, West\n"
                 "b: (10, 1) on feature 1, East\n"
                 "distance: 6\n");
    ExpectResult("East", "West",
                 "a: (10, 1) on feature 1, East\n"
                 "b: (4, 1) on feature 0, West\n"
                 "distance: 6\n");
}

TEST_F(ClearanceCommand, TakesIndicesToo) {
    ExpectResult("0", "2",
                 "a: (0.1, 0) on feature 0, West\n"
                 "b: (0.1, -3.5) on feature 2, road\n"
                 "distance: 3.5\n");
    ExpectResult("3", "West",
                 "a: (2, 5.5) on feature 3\n"
                 "b: (2, 4) on feature 0, West\n"
                 "distance: 1.5\n");
}

TEST_F(ClearanceCommand, AFeatureLiesAtItself) {
    ExpectResult("0", "0",
                 "a: (0, 0) on feature 0, West\n"
                 "b: (0, 0) on feature 0, West\n"
                 "distance: 0\n");
}

// There is no sign: what the library gives for nested shapes is the gap between their outlines.
TEST_F(ClearanceCommand, OfNestedFeaturesIsTheGapOfTheirOutlines) {
    map = scratch.Write("nested", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[
            [[0,0],[8,0],[8,8],[0,8],[0,0]]]}},
        {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[3,4.5]}}]})");
    ExpectResult("0", "1",
                 "a: (0, 4.5) on feature 0\n"
                 "b: (3, 4.5) on feature 1\n"
                 "distance: 3\n");
}

TEST_F(ClearanceCommand, NumbersLoseNothing) {
    map = scratch.Write("points", R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"name":"two\nlines"},"geometry":{"type":"Point","coordinates":[0.1,1e-300]}},
        {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[0.30000000000000004,-1]}}]})");
    ExpectResult("0", "1",
                 "a: (0.1, 1e-300) on feature 0, two?lines\n"
                 "b: (0.30000000000000004, -1) on feature 1\n"
                 "distance: 1.019803902718557\n");
}

TEST_F(ClearanceCommand, IsTheLibrarysOfTheCountries) {
    tool::Progress progress(false);
    const tool::Drawing countries = tool::ReadGeoJson(Sample("countries-110m.geojson"), progress);
    const auto ring = [&countries](const std::string& name) {
        for (const tool::Feature& feature : countries.features) {
            if (feature.name == name) return feature.geometry.polygons.at(0).at(0);
        }
        return tool::Points();
    };
    const tool::Points spain = ring("Spain");
    const tool::Points morocco = ring("Morocco");
    const Vellum::PolygonGeom a(static_cast<unsigned>(spain.size()), spain.data());
    const Vellum::PolygonGeom b(static_cast<unsigned>(morocco.size()), morocco.data());
    Vellum::DblPt onA;
    Vellum::DblPt onB;
    ASSERT_TRUE(Vellum::PolygonPolygonGeomClearance(&a, &b, nullptr, &onA, &onB));
    const auto text = [](const Vellum::DblPt& p) { return tool::ExactText(p.x) + ", " + tool::ExactText(p.y); };
    map = Sample("countries-110m.geojson");
    ExpectResult("Spain", "Morocco",
                 "a: (" + text(onA) + ") on feature 49, Spain\nb: (" + text(onB) +
                     ") on feature 99, Morocco\ndistance: " + tool::ExactText(onA.Dist(onB)) + "\n");
}

TEST_F(ClearanceCommand, Help) {
    const Outcome help = RunTool({"clearance", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* words : {"FILE", "--a", "--b", "--output", "--center", "--width", "--rotate", "--size",
                              "counted from 0", "a: (X, Y) on feature INDEX, NAME", "distance: D", "degrees"}) {
        EXPECT_NE(help.out.find(words), std::string::npos) << words;
    }
}

TEST_F(ClearanceCommand, WrongArguments) {
    ExpectFailure({"clearance"}, "FILE is required");
    ExpectRefused({"--b", "0"}, "--a is required");
    ExpectRefused({"--a", "0"}, "--b is required");
    ExpectRefused({"--a", "0", "--b", "1", "--size", "5"},
                  "--size: \"5\" is not a size WxH of two whole numbers from 1 to 32767");
    ExpectRefused({"--a", "0", "--b", "1", "--width", "0"}, "--width: \"0\" is not a number above 0 and up to 1e30");
    ExpectRefused({"--a", "0", "--b", "1", "-o", scratch.Path("a.svg"), "--width", "1e-300"},
                  "the view is too small: points that close to each other cannot be told apart there");
}

TEST_F(ClearanceCommand, WrongSelectors) {
    ExpectRefused({"--a", "6", "--b", "0"}, map + ": --a: there is no feature 6; the last one is 5");
    ExpectRefused({"--a", "0", "--b", "South"},
                  map + ": --b: no feature is named \"South\"; vellum info lists the names");
    ExpectRefused({"--a", "0", "--b", "east"}, map + ": --b: no feature is named \"east\"; there is \"East\"");
    ExpectRefused({"--a", "road", "--b", "0"},
                  map + ": --a: 2 features are named \"road\"; give the index of one: 2, 5");
    ExpectRefused({"--a", "0", "--b", "nowhere"}, map + ": --b: feature 4 has no geometry");
}

TEST_F(ClearanceCommand, WrongInput) {
    const std::string missing = scratch.Path("none.geojson");
    ExpectFailure({"clearance", missing, "--a", "0", "--b", "1", "-o", scratch.Path("a.svg")},
                  missing + ": cannot be read: No such file or directory");
    map = scratch.Write("bad.geojson", R"({"type":"Point","coordinates":[1]})");
    ExpectRefused({"--a", "0", "--b", "1"}, map + ": coordinates: a position needs 2 coordinates or more");
}

TEST_F(ClearanceCommand, OutputThatCannotBeWritten) {
    const std::vector<std::string> selectors = {"--a", "0", "--b", "1", "-o"};
    const auto refused = [&](const std::string& name, const std::string& cause) {
        std::vector<std::string> options = selectors;
        options.push_back(scratch.Path(name));
        ExpectRefused(options, scratch.Path(name) + cause);
    };
    // The name is looked at before anything is read.
    ExpectFailure({"clearance", scratch.Path("none"), "--a", "0", "--b", "1", "-o", scratch.Path("a.bmp")},
                  scratch.Path("a.bmp") + ": the name of a picture must end in " + tool::PictureExtensions());
    refused("a.bmp", ": the name of a picture must end in " + tool::PictureExtensions());
    refused("none/a.svg", ": cannot be written: No such file or directory");
    std::filesystem::create_directory(scratch.Path("d.svg"));
    refused("d.svg", ": cannot be written: Is a directory");
    ExpectFailureToPrint({"clearance", map, "--a", "0", "--b", "1"});
}

TEST_F(ClearanceCommand, AFormerPictureSurvivesAFailure) {
    scratch.Write("a.svg", "a former picture");
    ExpectRefused({"--a", "0", "--b", "4", "-o", scratch.Path("a.svg")}, map + ": --b: feature 4 has no geometry");
    EXPECT_EQ(scratch.Read("a.svg"), "a former picture");
}

}  // namespace
