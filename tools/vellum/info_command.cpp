// SPDX-License-Identifier: MIT
#include "info_command.h"

#include <array>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "command_line.h"
#include "geojson_reader.h"
#include "measures.h"
#include "progress.h"
#include "standard_output.h"
#include "table.h"
#include "text.h"

namespace tool {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kDigits = 6;
constexpr int kIndent = 2;

const char* const kFormat =
    "For every feature: its index, the type of its geometry, how many parts (rings, lines and single points)\n"
    "and points it has, its extents, the length of its lines and rings, its centroid, and its name. The\n"
    "centroid is the mean of all its points. The last point of a ring, which repeats the first, counts among\n"
    "the points but not in their mean. What a feature does not have is a hyphen, and null in JSON. The totals\n"
    "of the file follow. The table shows 6 digits of each number, JSON holds all.";

struct InfoArguments {
    std::string input;
    bool json = false;
};

struct FeatureInfo {
    std::string name;
    std::string type;
    Measures measures;
    std::optional<Vellum::DblPt> centroid;
};

struct Info {
    std::vector<FeatureInfo> features;
    Measures total;
};

Info InfoOf(const Drawing& drawing, Progress& progress) {
    progress.Begin("measuring", drawing.features.size());
    Info info;
    for (const Feature& feature : drawing.features) {
        const Measures measures = MeasuresOf(feature.geometry);
        info.features.push_back({feature.name, feature.type, measures, CentroidOf(feature.geometry)});
        info.total += measures;
        progress.Advance();
    }
    return info;
}

Info ReadInfo(const std::string& path) {
    Progress progress;
    return InfoOf(ReadGeoJson(path, progress), progress);
}

using InfoTable = Table<12>;

std::string OrHyphen(const std::string& text) { return text.empty() ? "-" : text; }

std::array<std::string, 4> SidesOf(const std::optional<Vellum::AlignedDblRect>& box) {
    if (!box) return {"-", "-", "-", "-"};
    return {RoundedText(box->Left(), kDigits), RoundedText(box->Bottom(), kDigits), RoundedText(box->Right(), kDigits),
            RoundedText(box->Top(), kDigits)};
}

InfoTable::Row RowOf(std::size_t index, const FeatureInfo& feature) {
    const Measures& measures = feature.measures;
    const auto [left, bottom, right, top] = SidesOf(measures.extents);
    return {std::to_string(index),
            OrHyphen(feature.type),
            std::to_string(measures.parts),
            std::to_string(measures.points),
            left,
            bottom,
            right,
            top,
            RoundedText(measures.length, kDigits),
            feature.centroid ? RoundedText(feature.centroid->x, kDigits) : "-",
            feature.centroid ? RoundedText(feature.centroid->y, kDigits) : "-",
            OrHyphen(OneLine(feature.name))};
}

void PrintTable(const Info& info, std::ostream& out) {
    // The type.
    InfoTable table(0b10);
    table.Add({"index", "type", "parts", "points", "left", "bottom", "right", "top", "length", "centroid x",
               "centroid y", "name"});
    for (std::size_t i = 0; i < info.features.size(); ++i) {
        table.Add(RowOf(i, info.features[i]));
    }
    table.Print(out);
    const auto [left, bottom, right, top] = SidesOf(info.total.extents);
    out << "\nfeatures  " << info.features.size() << "\nparts     " << info.total.parts << "\npoints    "
        << info.total.points << "\nextents   " << left << ' ' << bottom << ' ' << right << ' ' << top << "\nlength    "
        << RoundedText(info.total.length, kDigits) << '\n';
}

Json JsonText(const std::string& text) { return text.empty() ? Json() : Json(text); }

Json JsonOf(const std::optional<Vellum::AlignedDblRect>& box) {
    if (!box) return {};
    return {{"left", box->Left()}, {"bottom", box->Bottom()}, {"right", box->Right()}, {"top", box->Top()}};
}

Json JsonOf(const std::optional<Vellum::DblPt>& point) {
    if (!point) return {};
    return {{"x", point->x}, {"y", point->y}};
}

Json JsonOf(const Measures& measures) {
    return {{"parts", measures.parts},
            {"points", measures.points},
            {"extents", JsonOf(measures.extents)},
            {"length", measures.length}};
}

Json JsonOf(std::size_t index, const FeatureInfo& feature) {
    Json json = {{"index", index}, {"name", JsonText(feature.name)}, {"type", JsonText(feature.type)}};
    json.update(JsonOf(feature.measures));
    json["centroid"] = JsonOf(feature.centroid);
    return json;
}

void PrintJson(const Info& info, std::ostream& out) {
    Json features = Json::array();
    for (std::size_t i = 0; i < info.features.size(); ++i) {
        features.push_back(JsonOf(i, info.features[i]));
    }
    Json document;
    document["features"] = std::move(features);
    document["totals"]["features"] = info.features.size();
    document["totals"].update(JsonOf(info.total));
    out << document.dump(kIndent) << '\n';
}

void PrintInfo(const InfoArguments& arguments) {
    const Info info = ReadInfo(arguments.input);
    if (arguments.json) {
        PrintJson(info, std::cout);
    } else {
        PrintTable(info, std::cout);
    }
    FinishOutput();
}

}  // namespace

void AddInfoCommand(CommandLine& line) {
    Verb verb = line.AddVerb("info", "List the features of a GeoJSON file with their measures");
    const auto arguments = std::make_shared<InfoArguments>();
    verb.Text("FILE", arguments->input, "The GeoJSON file").Required();
    verb.Flag("--json", arguments->json, "Print one JSON document instead of a table");
    verb.Footer(kFormat);
    verb.Action([arguments] { PrintInfo(*arguments); });
}

}  // namespace tool
