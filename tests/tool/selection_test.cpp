// SPDX-License-Identifier: MIT
#include "selection.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "error.h"

namespace {

tool::Drawing Named(const std::vector<std::string>& names) {
    tool::Drawing drawing;
    for (const std::string& name : names) {
        tool::Feature& feature = drawing.features.emplace_back();
        feature.name = name;
        feature.geometry.points = {{1, 2}};
    }
    return drawing;
}

std::string ErrorOf(const tool::Drawing& drawing, const std::string& selector) {
    try {
        tool::SelectFeature(drawing, "map", "--a", selector);
    } catch (const tool::Error& error) {
        return error.what();
    }
    return "no error";
}

std::size_t Select(const tool::Drawing& drawing, const std::string& selector) {
    return tool::SelectFeature(drawing, "map", "--a", selector);
}

TEST(Selection, DigitsAreAnIndex) {
    const tool::Drawing drawing = Named({"a", "0", "c"});
    EXPECT_EQ(Select(drawing, "0"), 0U);
    EXPECT_EQ(Select(drawing, "2"), 2U);
    EXPECT_EQ(Select(drawing, "002"), 2U);
    EXPECT_EQ(ErrorOf(drawing, "3"), "map: --a: there is no feature 3; the last one is 2");
    EXPECT_EQ(ErrorOf(drawing, "99999999999999999999999"),
              "map: --a: there is no feature 99999999999999999999999; the last one is 2");
}

TEST(Selection, AnythingElseIsAName) {
    const tool::Drawing drawing = Named({"", "a", "-1", "1 a", "C\u00f4te"});
    EXPECT_EQ(Select(drawing, "a"), 1U);
    EXPECT_EQ(Select(drawing, "-1"), 2U);
    EXPECT_EQ(Select(drawing, "1 a"), 3U);
    EXPECT_EQ(Select(drawing, "C\u00f4te"), 4U);
}

TEST(Selection, ANameThatIsNotThere) {
    const tool::Drawing drawing = Named({"", "France", "Spain"});
    EXPECT_EQ(ErrorOf(drawing, "Frankreich"),
              "map: --a: no feature is named \"Frankreich\"; vellum info lists the names");
    EXPECT_EQ(ErrorOf(drawing, "spain"), "map: --a: no feature is named \"spain\"; there is \"Spain\"");
    // A feature without a name is not named by an empty one.
    EXPECT_EQ(ErrorOf(drawing, ""), "map: --a: no feature is named \"\"; vellum info lists the names");
}

TEST(Selection, ANameOfSeveralFeatures) {
    EXPECT_EQ(ErrorOf(Named({"Elbe", "Amur", "Elbe"}), "Elbe"),
              "map: --a: 2 features are named \"Elbe\"; give the index of one: 0, 2");
    EXPECT_EQ(ErrorOf(Named({"Elbe", "Elbe", "Elbe", "Elbe", "Elbe"}), "Elbe"),
              "map: --a: 5 features are named \"Elbe\"; give the index of one: 0, 1, 2, 3, 4");
    EXPECT_EQ(ErrorOf(Named({"Elbe", "Elbe", "Elbe", "Elbe", "Elbe", "Elbe"}), "Elbe"),
              "map: --a: 6 features are named \"Elbe\"; give the index of one: 0, 1, 2, 3, 4, ...");
}

TEST(Selection, AFeatureWithoutGeometry) {
    tool::Drawing drawing = Named({"a", "b"});
    drawing.features[1].geometry = {};
    EXPECT_EQ(ErrorOf(drawing, "b"), "map: --a: feature 1 has no geometry");
    EXPECT_EQ(ErrorOf(drawing, "1"), "map: --a: feature 1 has no geometry");
}

}  // namespace
