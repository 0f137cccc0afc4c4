// SPDX-License-Identifier: MIT
#include "draw_command.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "arguments.h"
#include "canvas.h"
#include "error.h"
#include "geojson_reader.h"
#include "output_file.h"
#include "picture.h"
#include "pipeline.h"
#include "progress.h"
#include "statistics.h"
#include "view.h"

namespace tool {

namespace {

/// As the command line gives them; an empty text stands for an option that is not there.
struct DrawArguments {
    std::string input;
    std::string output;
    std::string center;
    std::string width;
    std::string rotation = "0";
    std::string size = "1200x800";
    bool statistics = false;
    bool noClip = false;
};

ViewRequest RequestOf(const DrawArguments& arguments) {
    ViewRequest request;
    if (!arguments.center.empty()) request.center = ParsePoint("--center", arguments.center);
    if (!arguments.width.empty()) request.width = ParseLength("--width", arguments.width);
    request.rotation = ParseNumber("--rotate", arguments.rotation);
    return request;
}

/// Areas lie under lines and lines under points, whatever their order in the file.
void Paint(const Drawing& drawing, const std::vector<DeviceGeometry>& geometries, Canvas& canvas) {
    const auto each = [&](auto paint) {
        for (std::size_t i = 0; i < geometries.size(); ++i) {
            paint(geometries[i], StyleOf(drawing.features[i], i));
        }
    };
    canvas.Background();
    each([&canvas](const DeviceGeometry& geometry, const Style& style) {
        for (const auto& polygon : geometry.polygons) {
            canvas.Polygon(polygon, style.area);
        }
    });
    each([&canvas](const DeviceGeometry& geometry, const Style& style) { canvas.Lines(geometry.lines, style.line); });
    each([&canvas](const DeviceGeometry& geometry, const Style& style) {
        for (const auto& point : geometry.points) {
            canvas.Point(point, style.line);
        }
    });
    canvas.Frame();
}

template <class Geometries>
Counts CountsOf(const Geometries& geometries) {
    Counts counts;
    for (const auto& geometry : geometries) {
        counts.Add(geometry);
    }
    return counts;
}

Counts CountsOf(const Drawing& drawing) {
    Counts counts;
    for (const Feature& feature : drawing.features) {
        counts.Add(feature.geometry);
    }
    return counts;
}

void Draw(const DrawArguments& arguments) {
    const PictureFormat format = FormatOf(arguments.output);
    const PictureSize size = ParseSize("--size", arguments.size);
    const ViewRequest request = RequestOf(arguments);

    Progress progress;
    Statistics statistics;
    const Drawing drawing = statistics.Time("read", [&] { return ReadGeoJson(arguments.input, progress); });
    statistics.Record("read", CountsOf(drawing));

    const View view(drawing, request, size);
    OutputFile file(arguments.output);
    Picture picture(format, size, file);
    const std::vector<Geometry> geometries = statistics.Time(
        "clip", [&] { return arguments.noClip ? KeepWhole(drawing, view) : Clip(drawing, view, progress); });
    statistics.Record("clipped", CountsOf(geometries));

    const std::vector<DeviceGeometry> device =
        statistics.Time("transform", [&] { return ToDevice(geometries, view, progress); });
    statistics.Record("drawn", CountsOf(device));

    statistics.Time("draw", [&] { picture.Paint([&](Canvas& canvas) { Paint(drawing, device, canvas); }, progress); });
    statistics.Time("write", [&] {
        picture.Finish();
        file.Commit();
    });

    if (!arguments.statistics) return;
    statistics.Print(std::cout);
    if (!std::cout.flush()) throw Error("standard output: cannot be written");
}

}  // namespace

void AddDrawCommand(CLI::App& app) {
    CLI::App* verb = app.add_subcommand("draw", "Draw a GeoJSON file as a picture");
    const auto arguments = std::make_shared<DrawArguments>();
    verb->add_option("FILE", arguments->input, "The GeoJSON file")->required();
    verb->add_option("-o,--output", arguments->output, "The picture: a .png, .svg or .pdf file")
        ->required()
        ->type_name("OUT");
    verb->add_option("--center", arguments->center, "The view's centre in model units (default: that of the drawing)")
        ->type_name("X,Y");
    verb->add_option("--width", arguments->width,
                     "The view's width in model units (default: the whole drawing with a margin)")
        ->type_name("W");
    verb->add_option("--rotate", arguments->rotation, "Turn the view counter-clockwise about its centre")
        ->type_name("DEGREES")
        ->capture_default_str();
    verb->add_option("--size", arguments->size, "The picture's size in pixels; its shape gives the view's height")
        ->type_name("WxH")
        ->capture_default_str();
    verb->add_flag("--stats", arguments->statistics, "Print what was read, clipped and drawn, and the time it took");
    verb->add_flag("--no-clip", arguments->noClip, "Hand everything to the renderer, also what lies outside the view");
    verb->callback([arguments] { Draw(*arguments); });
}

}  // namespace tool
