// SPDX-License-Identifier: MIT
#include "clearance_command.h"

#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "canvas.h"
#include "clearance_picture.h"
#include "command_line.h"
#include "feature_clearance.h"
#include "geojson_reader.h"
#include "picture.h"
#include "progress.h"
#include "selection.h"
#include "standard_output.h"
#include "text.h"
#include "view_options.h"

namespace tool {

namespace {

struct ClearanceArguments {
    std::string input;
    std::string a;
    std::string b;
    std::string output;
    ViewOptions view;
};

const char* const kFormat =
    "Prints three lines:\n"
    "  a: (X, Y) on feature INDEX, NAME\n"
    "  b: (X, Y) on feature INDEX, NAME\n"
    "  distance: D\n"
    "\n"
    "The points are the witness points of the two features' outlines and lines, D is the distance between\n"
    "them. All numbers are in the file's units, which are degrees for longitude and latitude, and are as\n"
    "short as they can be without losing anything. A feature without a name ends its line with its index.\n"
    "\n"
    "A SELECTOR of digits is the feature's index in the file, counted from 0. Any other is the value of its\n"
    "property \"name\", in whatever letter case that property is written. Of features with several parts the\n"
    "two parts that come closest count.";

std::string Line(const char* role, const Vellum::DblPt& point, std::size_t index, const Feature& feature) {
    std::string line = std::string(role) + ": " + ExactText(point) + " on feature " + std::to_string(index);
    if (!feature.name.empty()) line += ", " + OneLine(feature.name);
    return line + '\n';
}

/// Measures, draws where that is wanted, and says what is to be printed.
std::string FindClearance(const ClearanceArguments& arguments) {
    if (!arguments.output.empty()) CheckPictureName(arguments.output);
    const ViewRequest request = arguments.view.Request();
    const PictureSize size = arguments.view.Size();

    Progress progress;
    Drawing drawing = ReadGeoJson(arguments.input, progress);
    const std::size_t a = SelectFeature(drawing, arguments.input, "--a", arguments.a);
    const std::size_t b = SelectFeature(drawing, arguments.input, "--b", arguments.b);
    const Feature& featureA = drawing.features[a];
    const Feature& featureB = drawing.features[b];
    const Clearance clearance = MeasureClearance(featureA.geometry, featureB.geometry, progress);
    std::string result = Line("a", clearance.onA, a, featureA) + Line("b", clearance.onB, b, featureB) +
                         "distance: " + ExactText(clearance.distance) + '\n';

    if (!arguments.output.empty()) {
        const ClearancePicture picture(std::move(drawing), a, b, clearance, request, size, progress);
        DrawPicture(
            arguments.output, size, [&picture](Canvas& canvas) { picture.Paint(canvas); }, progress);
    }
    return result;
}

}  // namespace

void AddClearanceCommand(CommandLine& line) {
    Verb verb = line.AddVerb("clearance", "Find where two features of a GeoJSON file come closest");
    const auto arguments = std::make_shared<ClearanceArguments>();
    verb.Text("FILE", arguments->input, "The GeoJSON file").Required();
    verb.Text("--a", arguments->a, "The one feature: its index, counted from 0, or its name")
        .Required()
        .Placeholder("SELECTOR");
    verb.Text("--b", arguments->b, "The other feature").Required().Placeholder("SELECTOR");
    verb.Text("-o,--output", arguments->output, "A picture of it: a " + PictureExtensions() + " file")
        .Placeholder("OUT");
    arguments->view.AddTo(verb, "the two parts that come closest");
    verb.Footer(kFormat);
    verb.Action([arguments] {
        std::cout << FindClearance(*arguments);
        FinishOutput();
    });
}

}  // namespace tool
