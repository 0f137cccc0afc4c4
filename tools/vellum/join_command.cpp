// SPDX-License-Identifier: MIT
#include "join_command.h"

#include <cstddef>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "arguments.h"
#include "canvas.h"
#include "command_line.h"
#include "feature_properties.h"
#include "geojson_reader.h"
#include "geojson_writer.h"
#include "join_picture.h"
#include "line_joining.h"
#include "picture.h"
#include "progress.h"
#include "standard_output.h"
#include "view_options.h"

namespace tool {

namespace {

using Json = nlohmann::json;

const char* const kFormat =
    "Where two lines of a layer cross, both get a point there. Where an end of one comes within T of another,\n"
    "a line of two points joins them. T is in the file's units; with 0 crossings alone count. Features are in\n"
    "one layer where their values for PROPERTY are equal, and so are all that have none or null.\n"
    "\n"
    "Prints four lines:\n"
    "  polylines in: N\n"
    "  split points: N\n"
    "  joining lines: N\n"
    "  polylines out: N\n"
    "\n"
    "Only the lines of FILE count. In GeoJSON they come first, in their order, each as a LineString with the\n"
    "properties of its feature; the joining lines follow, with the property \"joining\". Coordinates are as\n"
    "short as they can be without losing anything. A picture has a colour for each layer and the joining lines\n"
    "in red, and marks the split points where it shows 2000 or fewer.";

struct JoinArguments {
    std::string input;
    std::string tolerance;
    std::string layerBy;
    std::string output;
    std::string map;
    ViewOptions view;
};

/// The layer of each line.
std::vector<unsigned> LayersOf(const std::vector<FeatureLine>& lines, const std::vector<Json>& properties,
                               const JoinArguments& arguments) {
    std::vector<unsigned> layers(lines.size(), 0);
    if (arguments.layerBy.empty()) return layers;
    const std::vector<unsigned> layersOfFeatures = LayersBy(arguments.layerBy, properties, arguments.input);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        layers[i] = layersOfFeatures[lines[i].feature];
    }
    return layers;
}

void Write(const std::string& path, const JoinedLines& joined, const std::vector<FeatureLine>& lines,
           const std::vector<Json>& properties) {
    GeoJsonWriter writer(path);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        writer.Add(joined.lines[i], properties[lines[i].feature]);
    }
    for (const Points& line : joined.joining) {
        writer.Add(line, {{"joining", true}});
    }
    writer.Finish();
}

std::string Summary(const JoinedLines& joined) {
    const std::size_t in = joined.lines.size();
    const std::size_t joining = joined.joining.size();
    return "polylines in: " + std::to_string(in) + "\nsplit points: " + std::to_string(joined.splitPoints.size()) +
           "\njoining lines: " + std::to_string(joining) + "\npolylines out: " + std::to_string(in + joining) + '\n';
}

/// Joins, writes the result, and says what is to be printed.
std::string Join(const JoinArguments& arguments) {
    const bool wantsGeoJson = WantsGeoJson(arguments.output);
    const double tolerance = ParseTolerance("--tol", arguments.tolerance);
    const ViewRequest request = arguments.view.Request();
    const PictureSize size = arguments.view.Size();

    Progress progress;
    const DescribedDrawing file = ReadDescribedGeoJson(arguments.input, progress);
    const std::vector<FeatureLine> lines = LinesOf(file.drawing, arguments.input);
    const std::vector<unsigned> layers = LayersOf(lines, file.properties, arguments);
    const JoinedLines joined = JoinLines(lines, layers, tolerance);

    if (wantsGeoJson) {
        Write(arguments.output, joined, lines, file.properties);
    } else {
        Drawing map = arguments.map.empty() ? Drawing() : ReadGeoJson(arguments.map, progress);
        const JoinPicture picture(std::move(map), joined, layers, request, size, progress);
        DrawPicture(
            arguments.output, size, [&picture](Canvas& canvas) { picture.Paint(canvas); }, progress);
    }
    return Summary(joined);
}

}  // namespace

void AddJoinCommand(CommandLine& line) {
    Verb verb = line.AddVerb("join", "Join the lines of a GeoJSON file into a network");
    const auto arguments = std::make_shared<JoinArguments>();
    verb.Text("FILE", arguments->input, "The GeoJSON file").Required();
    verb.Text("--tol", arguments->tolerance, "The widest gap that is joined").Required().Placeholder("T");
    verb.Text("--layer-by", arguments->layerBy, "Join only features that have the same value for this property")
        .Placeholder("PROPERTY");
    verb.Text("-o,--output", arguments->output, "The result: a .geojson file, or a " + PictureExtensions() + " picture")
        .Required()
        .Placeholder("OUT");
    verb.Text("--map", arguments->map, "A GeoJSON file to draw under the lines of a picture").Placeholder("FILE");
    arguments->view.AddTo(verb, "all lines");
    verb.Footer(kFormat);
    verb.Action([arguments] {
        std::cout << Join(*arguments);
        FinishOutput();
    });
}

}  // namespace tool
