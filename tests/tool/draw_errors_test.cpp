// SPDX-License-Identifier: MIT
// Every failure is one line on standard error and status 2, and leaves no file behind.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "failure_checks.h"
#include "picture.h"
#include "tool_run.h"

namespace {

using tool_test::Sample;

class DrawErrors : public tool_test::FailureTest {
protected:
    /// Draws a sample with further options, and expects that to fail.
    void ExpectRefused(std::vector<std::string> options, const std::string& message) const {
        options.insert(options.begin(), {"draw", Sample("countries-110m.geojson"), "-o", scratch.Path("a.svg")});
        ExpectFailure(options, message);
    }

    /// Draws a file with this text, and expects that to fail.
    void ExpectUnreadable(const std::string& text, const std::string& message) const {
        const std::string file = scratch.Write("map.geojson", text);
        ExpectFailure({"draw", file, "-o", scratch.Path("a.svg")}, file + message);
    }
};

TEST_F(DrawErrors, Arguments) {
    ExpectFailure({}, "a verb is required; vellum --help lists them");
    ExpectFailure({"paint"}, "a verb is required; vellum --help lists them");
    ExpectFailure({"draw"}, "FILE is required");
    ExpectFailure({"draw", Sample("countries-110m.geojson")}, "--output is required");
    ExpectRefused({"--shade"}, "The following argument was not expected: --shade");
    ExpectRefused({"--size", "1600"}, "--size: \"1600\" is not a size WxH of two whole numbers from 1 to 32767");
    ExpectRefused({"--size", "0x0"}, "--size: \"0x0\" is not a size WxH of two whole numbers from 1 to 32767");
    ExpectRefused({"--center", "12"}, "--center: \"12\" is not a point X,Y of two numbers between -1e30 and 1e30");
    ExpectRefused({"--width", "-5"}, "--width: \"-5\" is not a number above 0 and up to 1e30");
    ExpectRefused({"--rotate", "north"}, "--rotate: \"north\" is not a number between -1e30 and 1e30");
    ExpectRefused({"--width", "1e-300"},
                  "the view is too small: points that close to each other cannot be told apart there");
    ExpectRefused({"--width", "0.001", "--no-clip"},
                  "--no-clip: the drawing reaches too far beyond this view to be drawn whole");
}

TEST_F(DrawErrors, Output) {
    const std::string map = Sample("countries-110m.geojson");
    for (const char* name : {"a.bmp", "a", "svg", "a.svg.gz", "a.SVG"}) {
        ExpectFailure({"draw", map, "-o", scratch.Path(name)},
                      scratch.Path(name) + ": the name of a picture must end in " + tool::PictureExtensions());
    }
    ExpectFailure({"draw", map, "-o", scratch.Path("none/a.svg")},
                  scratch.Path("none/a.svg") + ": cannot be written: No such file or directory");
    std::filesystem::create_directory(scratch.Path("d.svg"));
    ExpectFailure({"draw", map, "-o", scratch.Path("d.svg")},
                  scratch.Path("d.svg") + ": cannot be written: Is a directory");
    ExpectFailureToPrint({"draw", map, "-o", scratch.Path("a.svg"), "--stats"});
}

TEST_F(DrawErrors, AFormerPictureSurvivesAFailure) {
    scratch.Write("a.svg", "a former picture");
    ExpectUnreadable("{}", ": has no member \"type\"");
    EXPECT_EQ(scratch.Read("a.svg"), "a former picture");
}

TEST_F(DrawErrors, Input) {
    const std::string missing = scratch.Path("none.geojson");
    ExpectFailure({"draw", missing, "-o", scratch.Path("a.svg")},
                  missing + ": cannot be read: No such file or directory");
    ExpectFailure({"draw", scratch.Path("."), "-o", scratch.Path("a.svg")},
                  scratch.Path(".") + ": cannot be read: Is a directory");
    ExpectUnreadable("", ": the file is empty");
    ExpectUnreadable(R"({"type":"FeatureCollection","features":[]})", ": holds no geometry");
    ExpectUnreadable("<svg/>", ": line 1, column 1: not JSON: invalid literal");
    ExpectUnreadable("{\"type\":\n\"Point\",}",
                     ": line 2, column 9: not JSON: unexpected '}'; expected string literal");
    ExpectUnreadable(R"({"type":"Feature","geometry":{"type":"Polygon","coordinates":[[[0,0],[1,0],[1,true],[0,0]]]}})",
                     ": geometry.coordinates[0][2][1]: a coordinate must be a number, not a boolean");
}

TEST_F(DrawErrors, AMessageIsOneLineWhateverItQuotes) {
    ExpectUnreadable(R"({"type":"Poly\ngon\u0007"})", ": type: unknown type \"Poly?gon?\"");
}

}  // namespace
