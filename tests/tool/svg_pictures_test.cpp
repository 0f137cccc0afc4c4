// SPDX-License-Identifier: MIT
// What a tool that draws SVG only does with the pictures that are asked of it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "failure_checks.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

class SvgPictures : public tool_test::FailureTest {
protected:
    std::string Draw(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"-o", scratch.Path("a.svg")});
        const Outcome outcome = RunTool(arguments);
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        return scratch.Read("a.svg");
    }
};

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST_F(SvgPictures, AMap) {
    const std::string map = scratch.Write("map.geojson", R"({"type":"Feature","properties":{"color":"#336699"},
        "geometry":{"type":"Polygon","coordinates":[[[0,0],[10,0],[10,10],[0,10],[0,0]]]}})");
    EXPECT_EQ(Draw({"draw", map, "--center", "5,5", "--width", "20", "--size", "40x40"}),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"40\" fill=\"none\" "
              "fill-rule=\"evenodd\" stroke-linejoin=\"round\" stroke-linecap=\"round\" "
              "font-family=\"sans-serif\">\n"
              "<rect width=\"40\" height=\"40\" fill=\"#e4eef4\"/>\n"
              "<path d=\"M10 30L30 30L30 10L10 10L10 30Z\" fill=\"#336699\" stroke=\"#314e6e\" "
              "stroke-width=\"0.7\"/>\n"
              "<rect width=\"40\" height=\"40\" stroke=\"#5d6b78\" stroke-width=\"4\"/>\n"
              "</svg>\n");
}

TEST_F(SvgPictures, EveryPolygonOfTheWorld) {
    EXPECT_EQ(Count(Draw({"draw", Sample("countries-110m.geojson")}), "<path "), 288U);
}

TEST_F(SvgPictures, AClearance) {
    const std::string svg =
        Draw({"clearance", Sample("countries-110m.geojson"), "--a", "Spain", "--b", "Morocco", "--size", "300x200"});
    // The two witness points.
    EXPECT_EQ(Count(svg, "<circle "), 2U);
    EXPECT_EQ(Count(svg, "<text "), 1U);
}

TEST_F(SvgPictures, ASheet) {
    const std::string svg = Draw({"sheet"});
    // The picture itself, its cells and what is drawn within each.
    EXPECT_EQ(Count(svg, "<svg "), Count(svg, "</svg>"));
    for (const char* caption : {">Clearance</text>", ">one island to another: "}) {
        EXPECT_EQ(Count(svg, caption), 1U) << caption;
    }
}

TEST_F(SvgPictures, AJoinedNetwork) {
    const std::string lines = scratch.Write(
        "lines", R"({"type":"MultiLineString","coordinates":[[[0,0],[10,0]],[[2,-2],[2,2]],[[6,1],[7,5]]]})");
    const std::string svg = Draw({"join", lines, "--tol", "1.5"});
    // The split points in ink, and the joining line in red.
    EXPECT_EQ(Count(svg, "fill=\"#2f3b4a\""), 3U);
    EXPECT_EQ(Count(svg, "stroke=\"#d0202e\""), 1U);
}

TEST_F(SvgPictures, AWay) {
    const std::string line = scratch.Write("line", R"({"type":"LineString","coordinates":[[0,0],[10,0],[10,9]]})");
    const std::string svg =
        Draw({"route", line, "--from", "0,0", "--to", "10,9", "--from-name", "A", "--to-name", "B & C"});
    EXPECT_EQ(Count(svg, "<circle "), 4U);
    EXPECT_EQ(Count(svg, ">A</text>"), 1U);
    EXPECT_EQ(Count(svg, ">B &amp; C</text>"), 1U);
}

TEST_F(SvgPictures, NamesWithOtherLetters) {
    const std::string map = scratch.Write("map.geojson", R"({"type":"Point","coordinates":[1,2]})");
    const std::string picture = scratch.Path("Gr\u00f6\u00dfe \u2192.svg");
    EXPECT_EQ(RunTool({"draw", map, "-o", picture}).err, "");
    EXPECT_EQ(RunTool({"info", picture}).err, "vellum: " + picture + ": line 1, column 1: not JSON: invalid literal\n");
    EXPECT_EQ(scratch.Names(), (std::vector<std::string>{"Gr\u00f6\u00dfe \u2192.svg", "map.geojson"}));
}

TEST_F(SvgPictures, OtherFormatsAreRefused) {
    for (const char* name : {"a.png", "a.pdf"}) {
        const std::string message =
            scratch.Path(name) + ": this build of vellum draws SVG pictures only, not PNG or PDF";
        ExpectFailure({"draw", Sample("countries-110m.geojson"), "-o", scratch.Path(name)}, message);
        ExpectFailure({"sheet", "-o", scratch.Path(name)}, message);
        ExpectFailure({"clearance", "none", "--a", "0", "--b", "1", "-o", scratch.Path(name)}, message);
        ExpectFailure({"join", "none", "--tol", "1", "-o", scratch.Path(name)}, message);
        ExpectFailure({"route", "none", "--from", "0,0", "--to", "1,1", "-o", scratch.Path(name)}, message);
    }
}

}  // namespace
