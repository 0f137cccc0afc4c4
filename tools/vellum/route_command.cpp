// SPDX-License-Identifier: MIT
#include "route_command.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "arguments.h"
#include "canvas.h"
#include "command_line.h"
#include "error.h"
#include "geojson_reader.h"
#include "geojson_writer.h"
#include "line_joining.h"
#include "picture.h"
#include "progress.h"
#include "route.h"
#include "route_picture.h"
#include "standard_output.h"
#include "text.h"
#include "view_options.h"

namespace tool {

namespace {

const char* const kFormat =
    "Prints four lines:\n"
    "  length: L\n"
    "  vertices: N\n"
    "  from: (X, Y), D from the point asked for\n"
    "  to: (X, Y), D from the point asked for\n"
    "\n"
    "The way runs along the lines of FILE, which meet where they share a vertex, between the vertices nearest\n"
    "to the two points. Where these are the same it is that vertex alone, and its length 0. All numbers are\n"
    "in the file's units, which are degrees for longitude and latitude, and are as short as they can be\n"
    "without losing anything. The way is the cheapest by an estimate of lengths that is right within 4 percent,\n"
    "so it may be a few percent longer than the shortest; L is its exact length.\n"
    "\n"
    "GeoJSON holds one feature, a LineString with the properties \"length\", \"vertices\", \"from\" and \"to\"; a\n"
    "way of one vertex is a Point. Where there is no way the exit status is 1, after any other failure it is 2.";

struct RouteArguments {
    std::string input;
    std::string from;
    std::string to;
    std::string tolerance;
    std::string output;
    std::string map;
    EndNames names;
    ViewOptions view;
};

/// What the command line asks for, where it can be read.
struct RouteQuestion {
    explicit RouteQuestion(const RouteArguments& arguments)
        : from(ParsePoint("--from", arguments.from)),
          to(ParsePoint("--to", arguments.to)),
          request(arguments.view.Request()),
          size(arguments.view.Size()) {
        if (!arguments.tolerance.empty()) tolerance = ParseTolerance("--join", arguments.tolerance);
        if (!arguments.output.empty()) wantsGeoJson = WantsGeoJson(arguments.output);
    }

    Vellum::DblPt from;
    Vellum::DblPt to;
    std::optional<double> tolerance;
    std::optional<bool> wantsGeoJson;
    ViewRequest request;
    PictureSize size;
};

std::vector<Points> Joined(const std::vector<FeatureLine>& lines, double tolerance) {
    JoinedLines joined = JoinLines(lines, std::vector<unsigned>(lines.size(), 0), tolerance);
    std::move(joined.joining.begin(), joined.joining.end(), std::back_inserter(joined.lines));
    return std::move(joined.lines);
}

/// The lines of the file, joined where that is asked for.
std::vector<Points> ReadNetwork(const std::string& file, const std::optional<double>& tolerance, Progress& progress) {
    std::vector<FeatureLine> lines = LinesOf(ReadGeoJson(file, progress), file);
    if (tolerance) return Joined(lines, *tolerance);
    std::vector<Points> network;
    network.reserve(lines.size());
    for (FeatureLine& line : lines) {
        network.push_back(std::move(line.points));
    }
    return network;
}

[[noreturn]] void FailWithoutWay(const std::string& file, const Route& route, bool joined) {
    const std::string advice = joined ? "" : "; --join closes gaps between lines";
    throw NotThere(file + ": no way leads from " + ExactText(route.from.vertex) + " to " + ExactText(route.to.vertex) +
                   advice);
}

void WriteGeoJson(const std::string& path, const Route& route) {
    const auto position = [](const Vellum::DblPt& point) { return nlohmann::json::array({point.x, point.y}); };
    WriteFeature(path, route.way,
                 {{"length", route.length},
                  {"vertices", route.way.size()},
                  {"from", position(route.from.asked)},
                  {"to", position(route.to.asked)}});
}

void Draw(const RouteArguments& arguments, const RouteQuestion& question, const std::vector<Points>& network,
          const Route& route, Progress& progress) {
    Drawing map = arguments.map.empty() ? Drawing() : ReadGeoJson(arguments.map, progress);
    const RoutePicture picture(std::move(map), network, route, arguments.names, question.request, question.size,
                               progress);
    DrawPicture(
        arguments.output, question.size, [&picture](Canvas& canvas) { picture.Paint(canvas); }, progress);
}

std::string EndText(const char* name, const NearestVertex& end) {
    return std::string(name) + ": " + ExactText(end.vertex) + ", " + ExactText(end.distance) +
           " from the point asked for\n";
}

std::string Summary(const Route& route) {
    return "length: " + ExactText(route.length) + "\nvertices: " + std::to_string(route.way.size()) + '\n' +
           EndText("from", route.from) + EndText("to", route.to);
}

/// Finds the way, writes it where that is wanted, and says what is to be printed.
std::string FindWay(const RouteArguments& arguments) {
    const RouteQuestion question(arguments);
    Progress progress;
    const std::vector<Points> network = ReadNetwork(arguments.input, question.tolerance, progress);
    const Route route = FindRoute(network, question.from, question.to);
    if (route.way.empty()) FailWithoutWay(arguments.input, route, question.tolerance.has_value());
    if (question.wantsGeoJson) {
        if (*question.wantsGeoJson) {
            WriteGeoJson(arguments.output, route);
        } else {
            Draw(arguments, question, network, route, progress);
        }
    }
    return Summary(route);
}

}  // namespace

void AddRouteCommand(CommandLine& line) {
    Verb verb = line.AddVerb("route", "Find the way between two points along the lines of a GeoJSON file");
    const auto arguments = std::make_shared<RouteArguments>();
    verb.Text("FILE", arguments->input, "The GeoJSON file").Required();
    verb.Text("--from", arguments->from, "Where the way begins: at the vertex nearest to this point")
        .Required()
        .Placeholder("X,Y");
    verb.Text("--to", arguments->to, "Where it ends").Required().Placeholder("X,Y");
    verb.Text("--join", arguments->tolerance, "First join the lines as vellum join does, with gaps of T at most")
        .Placeholder("T");
    const std::string formats = "a .geojson file, or a " + PictureExtensions() + " picture with the network";
    Option output = verb.Text("-o,--output", arguments->output, "The way: " + formats).Placeholder("OUT");
    verb.Text("--map", arguments->map, "A GeoJSON file to draw under the network in a picture")
        .Placeholder("FILE")
        .Needs(output);
    verb.Text("--from-name", arguments->names.from, "What the picture calls the beginning")
        .Placeholder("TEXT")
        .ShowDefault();
    verb.Text("--to-name", arguments->names.to, "What the picture calls the end").Placeholder("TEXT").ShowDefault();
    arguments->view.AddTo(verb, "the way");
    verb.Footer(kFormat);
    verb.Action([arguments] {
        std::cout << FindWay(*arguments);
        FinishOutput();
    });
}

}  // namespace tool
