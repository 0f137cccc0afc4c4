// SPDX-License-Identifier: MIT
#include "feature_properties.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "error.h"
#include "progress.h"

namespace {

using Json = nlohmann::json;

std::string MessageOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const tool::Error& error) {
        return error.what();
    }
    return "no error";
}

tool::DescribedDrawing Parse(const std::string& text) {
    tool::Progress progress(false);
    return tool::ParseDescribedGeoJson(text, "map", progress);
}

std::string Nested(int depth) {
    const auto count = static_cast<std::size_t>(depth - 1);
    const std::string value = std::string(count, '[') + std::string(count, ']');
    return R"({"type":"Feature","properties":{"a":)" + value +
           R"(},"geometry":{"type":"LineString","coordinates":[[0,0],[1,2]]}})";
}

TEST(FeatureProperties, OfACollection) {
    const tool::DescribedDrawing described = Parse(R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"name":"a","tracks":2,"of":{"x":[1,null]}},
         "geometry":{"type":"LineString","coordinates":[[0,0],[1,2]]}},
        {"type":"Feature","properties":null,"geometry":null},
        {"type":"Feature","geometry":null}]})");
    ASSERT_EQ(described.drawing.features.size(), 3U);
    EXPECT_EQ(described.drawing.features[0].name, "a");
    EXPECT_EQ(described.drawing.features[0].geometry.lines.size(), 1U);
    ASSERT_EQ(described.properties.size(), 3U);
    EXPECT_EQ(described.properties[0], Json::parse(R"({"name":"a","tracks":2,"of":{"x":[1,null]}})"));
    EXPECT_TRUE(described.properties[1].is_null());
    EXPECT_TRUE(described.properties[2].is_null());
}

TEST(FeatureProperties, OfAFeatureAndOfAGeometry) {
    const std::string line = R"({"type":"LineString","coordinates":[[0,0],[1,2]],"properties":{"not":"these"}})";
    const tool::DescribedDrawing feature = Parse(R"({"type":"Feature","properties":{"a":1},"geometry":)" + line + "}");
    ASSERT_EQ(feature.properties.size(), 1U);
    EXPECT_EQ(feature.properties[0], Json::parse(R"({"a":1})"));
    const tool::DescribedDrawing geometry = Parse(line);
    ASSERT_EQ(geometry.properties.size(), 1U);
    EXPECT_TRUE(geometry.properties[0].is_null());
}

TEST(FeatureProperties, WhatIsNoDrawing) {
    EXPECT_EQ(MessageOf([] { Parse(""); }), "map: the file is empty");
    EXPECT_EQ(MessageOf([] { Parse("[]"); }), "map: must be a GeoJSON object, not an array");
}

TEST(FeatureProperties, MayNotBeNestedTooDeeply) {
    EXPECT_EQ(Parse(Nested(64)).properties.size(), 1U);
    EXPECT_EQ(MessageOf([] { Parse(Nested(65)); }), "map: properties: properties are nested too deeply");
    EXPECT_EQ(MessageOf([] { Parse(Nested(1000000)); }), "map: properties: properties are nested too deeply");
    const std::string second =
        R"({"type":"FeatureCollection","features":[{"type":"Feature","geometry":null},)" + Nested(65) + "]}";
    EXPECT_EQ(MessageOf([&] { Parse(second); }), "map: features[1].properties: properties are nested too deeply");
}

TEST(FeatureProperties, EqualValuesShareALayer) {
    const std::vector<Json> properties = {{{"level", "main"}},
                                          {{"level", 1}},
                                          {{"level", "1"}},
                                          {{"other", 1}},
                                          {{"level", nullptr}},
                                          {{"level", 1.0}},
                                          {{"level", {{"a", {1}}}}},
                                          {{"level", "main"}},
                                          nullptr,
                                          {{"level", {{"a", {1}}}}}};
    EXPECT_EQ(tool::LayersBy("level", properties, "map"), (std::vector<unsigned>{0, 1, 2, 3, 3, 1, 4, 0, 3, 4}));
}

TEST(FeatureProperties, APropertyThatNoFeatureHas) {
    const std::vector<Json> properties = {{{"level", 1}}, nullptr};
    EXPECT_EQ(MessageOf([&] { tool::LayersBy("Level", properties, "map"); }),
              "map: --layer-by: no feature has a property \"Level\"");
    EXPECT_EQ(tool::LayersBy("level", {{{"level", nullptr}}}, "map"), std::vector<unsigned>{0});
}

}  // namespace
