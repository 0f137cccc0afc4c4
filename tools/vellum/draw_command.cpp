// SPDX-License-Identifier: MIT
#include "draw_command.h"

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "canvas.h"
#include "command_line.h"
#include "geojson_reader.h"
#include "map_painting.h"
#include "picture.h"
#include "pipeline.h"
#include "progress.h"
#include "standard_output.h"
#include "statistics.h"
#include "view.h"
#include "view_options.h"

namespace tool {

namespace {

struct DrawArguments {
    std::string input;
    std::string output;
    ViewOptions view;
    bool statistics = false;
    bool noClip = false;
};

std::vector<Style> StylesOf(const Drawing& drawing) {
    std::vector<Style> styles;
    for (std::size_t i = 0; i < drawing.features.size(); ++i) {
        styles.push_back(StyleOf(drawing.features[i], i));
    }
    return styles;
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

Statistics DrawMap(const DrawArguments& arguments) {
    CheckPictureName(arguments.output);
    const PictureSize size = arguments.view.Size();
    const ViewRequest request = arguments.view.Request();

    Progress progress;
    Statistics statistics;
    const Drawing drawing = statistics.Time("read", [&] { return ReadGeoJson(arguments.input, progress); });
    statistics.Record("read", CountsOf(drawing));

    const View view(drawing, request, size);
    const std::unique_ptr<Picture> picture = NewPicture(arguments.output, size);
    const std::vector<Geometry> geometries = statistics.Time(
        "clip", [&] { return arguments.noClip ? KeepWhole(drawing, view) : Clip(drawing, view, progress); });
    statistics.Record("clipped", CountsOf(geometries));

    const std::vector<DeviceGeometry> device =
        statistics.Time("transform", [&] { return ToDevice(geometries, view, progress); });
    statistics.Record("drawn", CountsOf(device));

    statistics.Time("draw", [&] {
        const auto paint = [&device, styles = StylesOf(drawing)](Canvas& canvas) {
            canvas.Background();
            PaintFeatures(device, styles, canvas);
            canvas.Frame();
        };
        picture->Paint(paint, progress);
    });
    statistics.Time("write", [&] { picture->Finish(); });

    return statistics;
}

void Draw(const DrawArguments& arguments) {
    const Statistics statistics = DrawMap(arguments);
    if (!arguments.statistics) return;
    statistics.Print(std::cout);
    FinishOutput();
}

}  // namespace

void AddDrawCommand(CommandLine& line) {
    Verb verb = line.AddVerb("draw", "Draw a GeoJSON file as a picture");
    const auto arguments = std::make_shared<DrawArguments>();
    verb.Text("FILE", arguments->input, "The GeoJSON file").Required();
    verb.Text("-o,--output", arguments->output, "The picture: a " + PictureExtensions() + " file")
        .Required()
        .Placeholder("OUT");
    arguments->view.AddTo(verb, "the whole drawing");
    verb.Flag("--stats", arguments->statistics, "Print what was read, clipped and drawn, and the time it took");
    verb.Flag("--no-clip", arguments->noClip, "Hand everything to the renderer, also what lies outside the view");
    verb.Action([arguments] { Draw(*arguments); });
}

}  // namespace tool
