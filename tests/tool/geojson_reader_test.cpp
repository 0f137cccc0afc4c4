// SPDX-License-Identifier: MIT
#include "geojson_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "error.h"
#include "progress.h"
#include "scratch_directory.h"

namespace {

tool::Drawing Parse(const std::string& text) {
    tool::Progress progress(false);
    return tool::ParseGeoJson(text, "map", progress);
}

tool::Geometry ParseGeometry(const std::string& text) { return Parse(text).features.at(0).geometry; }

std::string ErrorOf(const std::string& text) {
    try {
        Parse(text);
    } catch (const tool::Error& error) {
        return error.what();
    }
    return "no error";
}

std::string InCollection(const std::string& features) {
    return R"({"type":"FeatureCollection","features":[)" + features + "]}";
}

std::string AsFeature(const std::string& geometry) {
    return R"({"type":"Feature","properties":null,"geometry":)" + geometry + "}";
}

std::string Geometry(const std::string& type, const std::string& coordinates) {
    return R"({"type":")" + type + R"(","coordinates":)" + coordinates + "}";
}

void ExpectPoints(const tool::Points& points, const std::vector<Vellum::DblPt>& expected) {
    ASSERT_EQ(points.size(), expected.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_TRUE(points[i].IsExactly(expected[i])) << "point " << i;
    }
}

const char* const kRing = "[[0,0],[4,0],[4,4],[0,0]]";
const char* const kHole = "[[1,1],[2,1],[2,2],[1,1]]";

TEST(GeoJsonReader, Point) {
    const tool::Geometry geometry = ParseGeometry(Geometry("Point", "[1.5,-2]"));
    ExpectPoints(geometry.points, {{1.5, -2.0}});
    EXPECT_TRUE(geometry.lines.empty());
    EXPECT_TRUE(geometry.polygons.empty());
}

TEST(GeoJsonReader, MultiPoint) {
    ExpectPoints(ParseGeometry(Geometry("MultiPoint", "[[1,2],[3,4]]")).points, {{1, 2}, {3, 4}});
}

TEST(GeoJsonReader, LineString) {
    const tool::Geometry geometry = ParseGeometry(Geometry("LineString", "[[1,2],[3,4],[5,6]]"));
    ASSERT_EQ(geometry.lines.size(), 1U);
    ExpectPoints(geometry.lines[0], {{1, 2}, {3, 4}, {5, 6}});
}

TEST(GeoJsonReader, MultiLineString) {
    const tool::Geometry geometry = ParseGeometry(Geometry("MultiLineString", "[[[1,2],[3,4]],[[5,6],[7,8]]]"));
    ASSERT_EQ(geometry.lines.size(), 2U);
    ExpectPoints(geometry.lines[1], {{5, 6}, {7, 8}});
}

TEST(GeoJsonReader, PolygonWithHole) {
    const std::string rings = std::string("[") + kRing + ',' + kHole + ']';
    const tool::Geometry geometry = ParseGeometry(Geometry("Polygon", rings));
    ASSERT_EQ(geometry.polygons.size(), 1U);
    ASSERT_EQ(geometry.polygons[0].size(), 2U);
    ExpectPoints(geometry.polygons[0][0], {{0, 0}, {4, 0}, {4, 4}, {0, 0}});
    ExpectPoints(geometry.polygons[0][1], {{1, 1}, {2, 1}, {2, 2}, {1, 1}});
}

TEST(GeoJsonReader, MultiPolygon) {
    const std::string rings = std::string("[[") + kRing + ',' + kHole + "],[" + kHole + "]]";
    const tool::Geometry geometry = ParseGeometry(Geometry("MultiPolygon", rings));
    ASSERT_EQ(geometry.polygons.size(), 2U);
    EXPECT_EQ(geometry.polygons[0].size(), 2U);
    EXPECT_EQ(geometry.polygons[1].size(), 1U);
}

TEST(GeoJsonReader, CollectionOfCollections) {
    const tool::Geometry geometry = ParseGeometry(
        R"({"type":"GeometryCollection","geometries":[)" + Geometry("Point", "[1,2]") +
        R"(,null,{"type":"GeometryCollection","geometries":[)" + Geometry("LineString", "[[1,2],[3,4]]") + "]}]}");
    EXPECT_EQ(geometry.points.size(), 1U);
    EXPECT_EQ(geometry.lines.size(), 1U);
}

TEST(GeoJsonReader, AltitudesAreLeftOut) {
    ExpectPoints(ParseGeometry(Geometry("MultiPoint", "[[1,2,300],[3,4,5,6]]")).points, {{1, 2}, {3, 4}});
}

TEST(GeoJsonReader, SingleFeature) {
    const tool::Drawing drawing = Parse(
        R"({"type":"Feature","properties":{"name":"Oslo","color":5.0},"geometry":{"type":"Point","coordinates":[1,2]}})");
    ASSERT_EQ(drawing.features.size(), 1U);
    EXPECT_EQ(drawing.features[0].name, "Oslo");
    EXPECT_EQ(std::get<std::size_t>(drawing.features[0].colour), 5U);
}

TEST(GeoJsonReader, NullAndEmptyGeometriesAreLeftOut) {
    const tool::Drawing drawing = Parse(InCollection(
        AsFeature("null") + ',' + AsFeature(Geometry("Point", "[]")) + ',' + AsFeature(Geometry("Polygon", "[]")) +
        ',' + AsFeature(Geometry("MultiPolygon", "[[]]")) + ',' + AsFeature(Geometry("Point", "[1,2]"))));
    ASSERT_EQ(drawing.features.size(), 5U);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_TRUE(drawing.features[i].geometry.Empty()) << i;
    }
    EXPECT_EQ(drawing.features[4].geometry.points.size(), 1U);
}

TEST(GeoJsonReader, PropertiesThatSayNoNameAndNoColourArePassedOver) {
    for (const char* properties :
         {R"({"name":null,"color":null})", R"({"name":7,"color":0})", R"({"color":2.5})", R"({"color":9})",
          R"({"color":-1})", R"({"color":"red"})", R"({"color":[1]})", "{}", "null"}) {
        const tool::Drawing drawing = Parse(R"({"type":"Feature","properties":)" + std::string(properties) +
                                            R"(,"geometry":{"type":"Point","coordinates":[1,2]}})");
        EXPECT_EQ(drawing.features[0].name, "") << properties;
        EXPECT_TRUE(std::holds_alternative<std::monostate>(drawing.features[0].colour)) << properties;
    }
}

TEST(GeoJsonReader, ColourInHexadecimal) {
    const tool::Drawing drawing =
        Parse(R"({"type":"Feature","properties":{"color":"#336699"},"geometry":{"type":"Point","coordinates":[1,2]}})");
    EXPECT_EQ(std::get<tool::Colour>(drawing.features[0].colour).green, 0.4);
}

TEST(GeoJsonReader, SyntaxErrorsNameLineAndColumn) {
    EXPECT_EQ(ErrorOf("{\n  \"type\": ,"),
              "map: line 2, column 11: not JSON: unexpected ','; expected '[', '{', or a literal");
    EXPECT_EQ(ErrorOf("[1,2"), "map: line 1, column 5: not JSON: unexpected end of input; expected ']'");
    EXPECT_EQ(ErrorOf("[]\n\n]"), "map: line 3, column 1: not JSON: unexpected ']'; expected end of input");
    EXPECT_EQ(ErrorOf("[1e999]"), "map: line 1, column 6: not JSON: number overflow parsing '1e999'");
    EXPECT_EQ(ErrorOf(" "),
              "map: line 1, column 2: not JSON: unexpected end of input; "
              "expected '[', '{', or a literal");
}

TEST(GeoJsonReader, SyntaxErrorsDoNotQuoteTheFile) {
    EXPECT_EQ(ErrorOf("[\"" + std::string(100000, 'x')),
              "map: line 1, column 100003: not JSON: invalid string: missing closing quote");
}

TEST(GeoJsonReader, NothingToDraw) {
    EXPECT_EQ(ErrorOf(""), "map: the file is empty");
    EXPECT_EQ(ErrorOf(InCollection("")), "map: holds no geometry");
    EXPECT_EQ(ErrorOf(InCollection(AsFeature("null"))), "map: holds no geometry");
    EXPECT_EQ(ErrorOf(Geometry("Polygon", "[]")), "map: holds no geometry");
    EXPECT_EQ(ErrorOf(R"({"type":"GeometryCollection","geometries":[]})"), "map: holds no geometry");
}

TEST(GeoJsonReader, ErrorsInTheStructure) {
    EXPECT_EQ(ErrorOf("[]"), "map: must be a GeoJSON object, not an array");
    EXPECT_EQ(ErrorOf("null"), "map: must be a GeoJSON object, not null");
    EXPECT_EQ(ErrorOf("{}"), "map: has no member \"type\"");
    EXPECT_EQ(ErrorOf(R"({"type":1})"), "map: type: must be a string, not a number");
    EXPECT_EQ(ErrorOf(R"({"type":"Circle"})"), "map: type: unknown type \"Circle\"");
    EXPECT_EQ(ErrorOf(R"({"type":")" + std::string(50, 'a') + R"("})"),
              "map: type: unknown type \"" + std::string(40, 'a') + "...\"");
    EXPECT_EQ(ErrorOf(R"({"type":"FeatureCollection"})"), "map: has no member \"features\"");
    EXPECT_EQ(ErrorOf(R"({"type":"FeatureCollection","features":{}})"),
              "map: features: must be an array, not an object");
    EXPECT_EQ(ErrorOf(InCollection("true")), "map: features[0]: must be a GeoJSON object, not a boolean");
    EXPECT_EQ(ErrorOf(InCollection(AsFeature("null") + ',' + Geometry("Point", "[1,2]"))),
              "map: features[1].type: must be \"Feature\", not \"Point\"");
    EXPECT_EQ(ErrorOf(InCollection(R"({"type":"Feature"})")), "map: features[0]: has no member \"geometry\"");
    EXPECT_EQ(ErrorOf(InCollection(R"({"type":"Feature","properties":[],"geometry":null})")),
              "map: features[0].properties: must be an object or null, not an array");
    EXPECT_EQ(ErrorOf(InCollection(AsFeature("[]"))),
              "map: features[0].geometry: must be a GeoJSON object, not an array");
    EXPECT_EQ(ErrorOf(InCollection(AsFeature(R"({"type":"Point"})"))),
              "map: features[0].geometry: has no member \"coordinates\"");
    EXPECT_EQ(ErrorOf(R"({"type":"GeometryCollection","geometries":[{"type":"Disc"}]})"),
              "map: geometries[0].type: unknown type \"Disc\"");
}

tool::Feature WithProperties(const std::string& properties) {
    return Parse(R"({"type":"Feature","properties":)" + properties +
                 R"(,"geometry":{"type":"Point","coordinates":[1,2]}})")
        .features.at(0);
}

TEST(GeoJsonReader, TheNameMayBeWrittenInAnyCase) {
    EXPECT_EQ(WithProperties(R"({"NAME":"Oslo"})").name, "Oslo");
    EXPECT_EQ(WithProperties(R"({"Name":"Oslo"})").name, "Oslo");
    EXPECT_EQ(WithProperties(R"({"NAME":"Paris","name":"Oslo"})").name, "Oslo");
    EXPECT_EQ(WithProperties(R"({"NAME":"Oslo","name":7})").name, "Oslo");
    EXPECT_EQ(WithProperties(R"({"names":"Oslo","nam":"Oslo","NAME":7})").name, "");
}

TEST(GeoJsonReader, FeaturesKnowTheirGeometrysType) {
    const tool::Drawing drawing = Parse(
        InCollection(AsFeature(Geometry("MultiPoint", "[[1,2]]")) + ',' + AsFeature("null") + ',' +
                     AsFeature(Geometry("LineString", "[]")) + ',' +
                     AsFeature(R"({"type":"GeometryCollection","geometries":[)" + Geometry("Point", "[3,4]") + "]}")));
    ASSERT_EQ(drawing.features.size(), 4U);
    EXPECT_EQ(drawing.features[0].type, "MultiPoint");
    EXPECT_EQ(drawing.features[1].type, "");
    EXPECT_EQ(drawing.features[2].type, "LineString");
    EXPECT_EQ(drawing.features[3].type, "GeometryCollection");
    EXPECT_EQ(Parse(Geometry("Point", "[1,2]")).features.at(0).type, "Point");
}

TEST(GeoJsonReader, ErrorsInCoordinates) {
    EXPECT_EQ(ErrorOf(InCollection(AsFeature("null") + ',' +
                                   AsFeature(Geometry("MultiPolygon", "[[[[0,0],[4,0],[4,\"4\"],[0,0]]]]")))),
              "map: features[1].geometry.coordinates[0][0][2][1]: a coordinate must be a number, not a string");
    EXPECT_EQ(ErrorOf(Geometry("Point", "7")), "map: coordinates: must be an array, not a number");
    EXPECT_EQ(ErrorOf(Geometry("Point", "[7]")), "map: coordinates: a position needs 2 coordinates or more");
    EXPECT_EQ(ErrorOf(Geometry("Point", "[1,2,null]")), "map: coordinates[2]: a coordinate must be a number, not null");
    EXPECT_EQ(ErrorOf(Geometry("Point", "[1,-2e30]")),
              "map: coordinates[1]: a coordinate must lie between -1e30 and 1e30");
    EXPECT_EQ(ErrorOf(Geometry("LineString", "[[1,2]]")), "map: coordinates: a line needs 2 positions or more");
    EXPECT_EQ(ErrorOf(Geometry("MultiLineString", "[[[1,2],[3,4]],[1,2]]")),
              "map: coordinates[1][0]: must be an array, not a number");
    EXPECT_EQ(ErrorOf(Geometry("Polygon", "[7]")), "map: coordinates[0]: must be an array, not a number");
    EXPECT_EQ(ErrorOf(Geometry("Polygon", "[[[0,0],[1,0],[0,0]]]")),
              "map: coordinates[0]: a ring needs 4 positions or more");
    EXPECT_EQ(ErrorOf(Geometry("Polygon", std::string("[") + kRing + ",[[0,0],[1,0],[1,1],[0,1]]]")),
              "map: coordinates[1]: a ring must end with the position it begins with");
}

TEST(GeoJsonReader, CollectionsMayNotNestWithoutEnd) {
    std::string text = Geometry("Point", "[1,2]");
    for (int depth = 0; depth < 64; ++depth) {
        text = R"({"type":"GeometryCollection","geometries":[)" + text + "]}";
    }
    EXPECT_EQ(ErrorOf(text), "no error");
    std::string open;
    for (int depth = 0; depth < 100000; ++depth) {
        open += R"({"type":"GeometryCollection","geometries":[)";
    }
    for (int depth = 0; depth < 100000; ++depth) {
        open += "]}";
    }
    EXPECT_NE(ErrorOf(open).find("geometry collections are nested too deeply"), std::string::npos);
}

TEST(GeoJsonReader, FilesThatCannotBeRead) {
    const tool_test::ScratchDirectory scratch;
    tool::Progress progress(false);
    for (const auto& [path, cause] : {std::pair(scratch.Path("none"), "No such file or directory"),
                                      std::pair(scratch.Path("."), "Is a directory")}) {
        try {
            tool::ReadGeoJson(path, progress);
            ADD_FAILURE() << path << " was read";
        } catch (const tool::Error& error) {
            EXPECT_EQ(error.what(), path + ": cannot be read: " + cause);
        }
    }
}

TEST(GeoJsonReader, ReadsAFile) {
    const tool_test::ScratchDirectory scratch;
    tool::Progress progress(false);
    const tool::Drawing drawing =
        tool::ReadGeoJson(scratch.Write("map", Geometry("MultiPoint", "[[1,2],[3,4]]")), progress);
    EXPECT_EQ(drawing.features.at(0).geometry.points.size(), 2U);
}

}  // namespace
