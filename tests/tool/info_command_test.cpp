// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "failure_checks.h"
#include "scratch_directory.h"
#include "tool_run.h"

namespace {

using Json = nlohmann::json;
using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

const char* const kMap = R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"name":"square"},"geometry":{"type":"Polygon","coordinates":[
        [[0,0],[4,0],[4,4],[0,4],[0,0]],[[1,1],[2,1],[2,2],[1,1]]]}},
    {"type":"Feature","properties":{"NAME":"C\u00f4te\nd'Azur"},"geometry":{"type":"MultiLineString","coordinates":[
        [[-3,10.5],[0,14.5]],[[1,1],[1,2]]]}},
    {"type":"Feature","properties":null,"geometry":null},
    {"type":"Feature","properties":{},"geometry":{"type":"Point","coordinates":[1234567.25,0.1]}}]})";

class InfoCommand : public tool_test::FailureTest {
protected:
    std::string map = scratch.Write("map.geojson", kMap);
};

TEST_F(InfoCommand, PrintsATable) {
    const Outcome outcome = RunTool({"info", map});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              "index  type             parts  points         left  bottom        right   top   length   centroid x  "
              "centroid y  name\n"
              "    0  Polygon              2       9            0       0            4     4  19.4142      1.85714  "
              "   1.71429  square\n"
              "    1  MultiLineString      2       4           -3       1            1  14.5        6        -0.25  "
              "         7  C\u00f4te?d'Azur\n"
              "    2  -                    0       0            -       -            -     -        0            -  "
              "         -  -\n"
              "    3  Point                1       1  1.23457e+06     0.1  1.23457e+06   0.1        0  1.23457e+06  "
              "       0.1  -\n"
              "\n"
              "features  4\n"
              "parts     5\n"
              "points    14\n"
              "extents   -3 0 1.23457e+06 14.5\n"
              "length    25.4142\n");
}

TEST_F(InfoCommand, PrintsJson) {
    const Outcome outcome = RunTool({"info", map, "--json"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out.substr(0, 2), "{\n");
    EXPECT_EQ(outcome.out.back(), '\n');
    EXPECT_EQ(Json::parse(outcome.out), Json::parse(R"({
        "features": [
            {"index": 0, "name": "square", "type": "Polygon", "parts": 2, "points": 9,
             "extents": {"left": 0, "bottom": 0, "right": 4, "top": 4}, "length": 19.414213562373096,
             "centroid": {"x": 1.8571428571428572, "y": 1.7142857142857142}},
            {"index": 1, "name": "C\u00f4te\nd'Azur", "type": "MultiLineString", "parts": 2, "points": 4,
             "extents": {"left": -3, "bottom": 1, "right": 1, "top": 14.5}, "length": 6,
             "centroid": {"x": -0.25, "y": 7}},
            {"index": 2, "name": null, "type": null, "parts": 0, "points": 0,
             "extents": null, "length": 0, "centroid": null},
            {"index": 3, "name": null, "type": "Point", "parts": 1, "points": 1,
             "extents": {"left": 1234567.25, "bottom": 0.1, "right": 1234567.25, "top": 0.1}, "length": 0,
             "centroid": {"x": 1234567.25, "y": 0.1}}],
        "totals": {"features": 4, "parts": 5, "points": 14,
                   "extents": {"left": -3, "bottom": 0, "right": 1234567.25, "top": 14.5},
                   "length": 25.414213562373096}})"));
}

TEST_F(InfoCommand, JsonHoldsTheLargestCoordinates) {
    map = scratch.Write("large", R"({"type":"LineString","coordinates":[[-1e30,-1e30],[1e30,1e30],[-1e30,-1e30]]})");
    const Outcome outcome = RunTool({"info", map, "--json"});
    EXPECT_EQ(outcome.status, 0);
    const Json json = Json::parse(outcome.out);
    EXPECT_DOUBLE_EQ(json["totals"]["length"].get<double>(), 4e30 * std::sqrt(2.0));
}

TEST_F(InfoCommand, OfTheSamples) {
    for (const auto& [name, features, points] :
         {std::tuple("countries-110m.geojson", 177, 10654), std::tuple("land-50m.geojson", 1420, 60669),
          std::tuple("railroads-north-america.geojson", 1127, 66341), std::tuple("rivers-50m.geojson", 461, 25641)}) {
        const Json json = Json::parse(RunTool({"info", Sample(name), "--json"}).out);
        EXPECT_EQ(json["features"].size(), features) << name;
        EXPECT_EQ(json["totals"]["features"], features) << name;
        EXPECT_EQ(json["totals"]["points"], points) << name;
    }
}

TEST_F(InfoCommand, Help) {
    const Outcome help = RunTool({"info", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* words : {"FILE", "--json", "mean of all its points"}) {
        EXPECT_NE(help.out.find(words), std::string::npos) << words;
    }
}

TEST_F(InfoCommand, Failures) {
    ExpectFailure({"info"}, "FILE is required");
    ExpectFailure({"info", map, "--xml"}, "The following argument was not expected: --xml");
    const std::string missing = scratch.Path("none.geojson");
    ExpectFailure({"info", missing}, missing + ": cannot be read: No such file or directory");
    const std::string bad = scratch.Write("bad", R"({"type":"Feature","geometry":{"type":"Point"}})");
    ExpectFailure({"info", bad, "--json"}, bad + ": geometry: has no member \"coordinates\"");
    const std::string empty = scratch.Write("empty", R"({"type":"FeatureCollection","features":[]})");
    ExpectFailure({"info", empty}, empty + ": holds no geometry");
    ExpectFailureToPrint({"info", map});
    ExpectFailureToPrint({"info", map, "--json"});
}

}  // namespace
