// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "failure_checks.h"
#include "picture.h"
#include "tool_run.h"

namespace {

using tool_test::Outcome;
using tool_test::RunTool;
using tool_test::Sample;

class SheetCommand : public tool_test::FailureTest {
protected:
    void ExpectRefused(std::vector<std::string> options, const std::string& message) const {
        options.insert(options.begin(), {"sheet", "-o", scratch.Path("a.svg")});
        ExpectFailure(options, message);
    }
};

TEST_F(SheetCommand, Help) {
    const Outcome help = RunTool({"sheet", "--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* option : {"--output", "--map", "--a", "--b", "--size"}) {
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
    }
    EXPECT_NE(RunTool({"--help"}).out.find("sheet"), std::string::npos);
}

TEST_F(SheetCommand, Failures) {
    const std::string map = Sample("countries-110m.geojson");
    ExpectFailure({"sheet"}, "--output is required");
    ExpectRefused({"--map", map}, "--map requires --a");
    ExpectRefused({"--map", map, "--a", "0"}, "--map requires --b");
    ExpectRefused({"--a", "0"}, "--a requires --map");
    ExpectRefused({"--size", "399x300"}, "--size: the sheet needs 400x300 pixels or more");
    ExpectRefused({"--size", "400x299"}, "--size: the sheet needs 400x300 pixels or more");
    ExpectRefused({"--size", "big"}, "--size: \"big\" is not a size WxH of two whole numbers from 1 to 32767");
    ExpectRefused({"--map", map, "--a", "0", "--b", "Nowhere"},
                  map + ": --b: no feature is named \"Nowhere\"; vellum info lists the names");
    const std::string missing = scratch.Path("none");
    ExpectRefused({"--map", missing, "--a", "0", "--b", "1"}, missing + ": cannot be read: No such file or directory");
    // The name is looked at before anything is read.
    ExpectFailure({"sheet", "-o", scratch.Path("a.bmp"), "--map", missing, "--a", "0", "--b", "1"},
                  scratch.Path("a.bmp") + ": the name of a picture must end in " + tool::PictureExtensions());
    ExpectFailure({"sheet", "-o", scratch.Path("none/a.svg")},
                  scratch.Path("none/a.svg") + ": cannot be written: No such file or directory");
}

}  // namespace
