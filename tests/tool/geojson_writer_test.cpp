// SPDX-License-Identifier: MIT
#include "geojson_writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "error.h"
#include "geojson_reader.h"
#include "picture.h"
#include "progress.h"
#include "scratch_directory.h"
#include "support/point_checks.h"

namespace {

using tool_test::ScratchDirectory;

TEST(GeoJsonWriter, NamesAskForAFormat) {
    EXPECT_TRUE(tool::WantsGeoJson("dir.png/a.geojson"));
    EXPECT_FALSE(tool::WantsGeoJson("a.svg"));
    for (const std::string name : {"a", "a.json", "a.GEOJSON", ".geojson", "a.geojson.gz"}) {
        try {
            tool::WantsGeoJson(name);
            ADD_FAILURE() << name;
        } catch (const tool::Error& error) {
            EXPECT_EQ(error.what(),
                      name + ": the name must end in .geojson, or in " + tool::PictureExtensions() + " for a picture");
        }
    }
}

TEST(GeoJsonWriter, TextOfAFeature) {
    EXPECT_EQ(tool::FeatureText({{0.1, -2}, {1e30, 0.30000000000000004}}, {{"joining", true}}),
              R"({"type":"Feature","properties":{"joining":true},)"
              R"("geometry":{"type":"LineString","coordinates":[[0.1,-2],[1e+30,0.30000000000000004]]}})");
    EXPECT_EQ(tool::FeatureText({{3, 4}}, nullptr),
              R"({"type":"Feature","properties":null,"geometry":{"type":"Point","coordinates":[3,4]}})");
}

TEST(GeoJsonWriter, CollectionReadsBackAsItWas) {
    const ScratchDirectory scratch;
    const std::vector<tool::Points> lines = {{{1.0 / 3.0, -74.034169}, {5e-324, 1e-7}, {123456789.123456789, -1e30}},
                                             {{0, 0}, {std::numeric_limits<double>::min(), 0.1 + 0.2}}};
    tool::GeoJsonWriter writer(scratch.Path("a.geojson"));
    writer.Add(lines[0], {{"name", "a \"quoted\" line\n\u00e9"}});
    writer.Add(lines[1], nullptr);
    // Nothing has that name before the end.
    EXPECT_EQ(scratch.Read("a.geojson"), "");
    writer.Finish();
    EXPECT_EQ(scratch.Names(), std::vector<std::string>{"a.geojson"});

    tool::Progress progress(false);
    const tool::Drawing drawing = tool::ReadGeoJson(scratch.Path("a.geojson"), progress);
    ASSERT_EQ(drawing.features.size(), 2U);
    EXPECT_EQ(drawing.features[0].name, "a \"quoted\" line\n\u00e9");
    for (std::size_t i = 0; i < 2; ++i) {
        const tool::Points& line = drawing.features[i].geometry.lines.at(0);
        ASSERT_EQ(line.size(), lines[i].size());
        for (std::size_t j = 0; j < line.size(); ++j) {
            EXPECT_TRUE(support::IsAt(line[j], lines[i][j].x, lines[i][j].y)) << i << ", " << j;
        }
    }
}

TEST(GeoJsonWriter, AnUnfinishedFileLeavesNothing) {
    const ScratchDirectory scratch;
    {
        tool::GeoJsonWriter writer(scratch.Path("a.geojson"));
        writer.Add({{0, 0}, {1, 1}}, nullptr);
    }
    EXPECT_TRUE(scratch.Names().empty());
}

TEST(GeoJsonWriter, OneFeature) {
    const ScratchDirectory scratch;
    tool::WriteFeature(scratch.Path("a.geojson"), {{1, 2}, {3, 4}}, {{"length", 0.1}});
    EXPECT_EQ(scratch.Read("a.geojson"), R"({"type":"Feature","properties":{"length":0.1},)"
                                         R"("geometry":{"type":"LineString","coordinates":[[1,2],[3,4]]}})"
                                         "\n");
}

}  // namespace
