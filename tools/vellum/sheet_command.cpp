// SPDX-License-Identifier: MIT
#include "sheet_command.h"

#include <memory>
#include <string>
#include <utility>

#include "arguments.h"
#include "canvas.h"
#include "clearance_picture.h"
#include "command_line.h"
#include "feature_clearance.h"
#include "geojson_reader.h"
#include "picture.h"
#include "progress.h"
#include "selection.h"
#include "sheet.h"
#include "text.h"

namespace tool {

namespace {

constexpr int kDigits = 4;

struct SheetArguments {
    std::string output;
    std::string map;
    std::string a;
    std::string b;
    std::string size = "1600x1200";
};

/// A map and two of its features.
struct Pair {
    Drawing drawing;
    std::size_t a;
    std::size_t b;
};

Feature Island(const char* name, const Points& shore) {
    Feature island;
    island.name = name;
    island.geometry.polygons = {{shore}};
    return island;
}

/// What is measured where no map is given.
Pair Islands() {
    return {{{Island("one island", {{1, 1}, {5, 0}, {7, 3}, {6, 7}, {3, 8}, {0, 5}, {1, 1}}),
              Island("another", {{11, 2}, {14, 1}, {16, 4}, {13, 6}, {15, 8}, {11, 9}, {9, 5}, {11, 2}})}},
            0,
            1};
}

Pair ReadPair(const SheetArguments& arguments, Progress& progress) {
    if (arguments.map.empty()) return Islands();
    Drawing drawing = ReadGeoJson(arguments.map, progress);
    const std::size_t a = SelectFeature(drawing, arguments.map, "--a", arguments.a);
    const std::size_t b = SelectFeature(drawing, arguments.map, "--b", arguments.b);
    return {std::move(drawing), a, b};
}

std::string TitleOf(const Pair& pair, std::size_t index) {
    const std::string& name = pair.drawing.features[index].name;
    return name.empty() ? "feature " + std::to_string(index) : OneLine(name);
}

void DrawSheet(const SheetArguments& arguments) {
    CheckPictureName(arguments.output);
    const PictureSize size = ParseSize("--size", arguments.size);
    const Sheet sheet(size);

    Progress progress;
    Pair pair = ReadPair(arguments, progress);
    const Clearance clearance =
        MeasureClearance(pair.drawing.features[pair.a].geometry, pair.drawing.features[pair.b].geometry, progress);
    const std::string note = TitleOf(pair, pair.a) + " to " + TitleOf(pair, pair.b) + ": " +
                             RoundedText(clearance.distance, kDigits) + " between the witness points";
    const ClearancePicture map(std::move(pair.drawing), pair.a, pair.b, clearance, {}, sheet.MapSize(), progress);
    const auto paint = [&](Canvas& canvas) { sheet.Paint(canvas, "Clearance", note, [&] { map.Paint(canvas); }); };
    DrawPicture(arguments.output, size, paint, progress);
}

}  // namespace

void AddSheetCommand(CommandLine& line) {
    Verb verb = line.AddVerb("sheet", "Draw every shape of the library with its extents and its hit tests");
    const auto arguments = std::make_shared<SheetArguments>();
    verb.Text("-o,--output", arguments->output, "The picture: a " + PictureExtensions() + " file")
        .Required()
        .Placeholder("OUT");
    Option map = verb.Text("--map", arguments->map, "A GeoJSON file for the clearance (default: two islands)")
                     .Placeholder("FILE");
    Option a = verb.Text("--a", arguments->a, "The one feature: its index, counted from 0, or its name")
                   .Placeholder("SELECTOR")
                   .Needs(map);
    Option b = verb.Text("--b", arguments->b, "The other feature").Placeholder("SELECTOR").Needs(map);
    map.Needs(a).Needs(b);
    verb.Text("--size", arguments->size, "The picture's size in pixels").Placeholder("WxH").ShowDefault();
    verb.Action([arguments] { DrawSheet(*arguments); });
}

}  // namespace tool
