// SPDX-License-Identifier: MIT
#include "statistics.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(Statistics, CountsEverything) {
    tool::Geometry geometry;
    geometry.polygons = {{{{0, 0}, {1, 0}, {1, 1}, {0, 0}}, {{0, 0}, {1, 0}, {1, 1}, {0, 0}}}, {{{0, 0}, {1, 0}}}};
    geometry.lines = {{{0, 0}, {1, 0}, {2, 0}}};
    geometry.points = {{0, 0}, {1, 1}};
    tool::Counts counts;
    counts.Add(geometry);
    counts.Add(tool::Geometry());
    EXPECT_EQ(counts.features, 1U);
    EXPECT_EQ(counts.polygons, 2U);
    EXPECT_EQ(counts.rings, 3U);
    EXPECT_EQ(counts.lines, 1U);
    EXPECT_EQ(counts.points, 15U);
}

TEST(Statistics, PrintsTwoTables) {
    tool::Statistics statistics;
    EXPECT_EQ(statistics.Time("read", [] { return 7; }), 7);
    statistics.Record("read", {1, 2, 3, 4, 5});
    statistics.Record("clipped", {6, 7, 8, 9, 1234567});
    std::ostringstream out;
    statistics.Print(out);
    const std::string text = out.str();
    EXPECT_EQ(text.substr(0, text.find("\n\n") + 2),
              "            features  polygons     rings     lines    points\n"
              "read               1         2         3         4         5\n"
              "clipped            6         7         8         9   1234567\n"
              "\n");
    EXPECT_NE(text.find("\nread      "), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 4), " ms\n");
}

}  // namespace
