// SPDX-License-Identifier: MIT
#include "feature_properties.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "error.h"
#include "geojson_reader.h"
#include "input_file.h"
#include "json_document.h"
#include "json_place.h"

namespace tool {

namespace {

using Json = nlohmann::json;

// What compares and writes values calls itself for every level.
constexpr int kDeepestProperties = 64;

bool FitsDepth(const Json& value, int depth) {
    if (!value.is_structured()) return true;
    return depth > 0 &&
           std::all_of(value.begin(), value.end(), [depth](const Json& inner) { return FitsDepth(inner, depth - 1); });
}

/// Takes the properties out of a feature, or null out of a bare geometry.
Json TakeProperties(Json& feature, const JsonPlace& place, const std::string& file) {
    const auto properties = feature.find("properties");
    if (feature["type"] != "Feature" || properties == feature.end()) return {};
    if (!FitsDepth(*properties, kDeepestProperties)) {
        throw Error(file + ": " + place.Member("properties").Text() + ": properties are nested too deeply");
    }
    return std::move(*properties);
}

/// @p document is one that could be read as a drawing.
std::vector<Json> TakeAllProperties(Json& document, const std::string& file) {
    const JsonPlace root;
    if (document["type"] != "FeatureCollection") return {TakeProperties(document, root, file)};
    const JsonPlace list = root.Member("features");
    std::vector<Json> properties;
    for (Json& feature : document["features"]) {
        properties.push_back(TakeProperties(feature, list.Element(properties.size()), file));
    }
    return properties;
}

}  // namespace

DescribedDrawing ReadDescribedGeoJson(const std::string& path, Progress& progress) {
    return ParseDescribedGeoJson(ReadFile(path), path, progress);
}

DescribedDrawing ParseDescribedGeoJson(const std::string& text, const std::string& name, Progress& progress) {
    Json document = ParseGeoJsonDocument(text, name);
    Drawing drawing = DrawingOf(document, name, progress);
    return {std::move(drawing), TakeAllProperties(document, name)};
}

std::vector<unsigned> LayersBy(const std::string& property, const std::vector<Json>& properties,
                               const std::string& file) {
    std::map<Json, unsigned> layersOfValues;
    std::vector<unsigned> layers;
    bool found = false;
    for (const Json& each : properties) {
        const bool has = each.contains(property);
        found = found || has;
        const auto next = static_cast<unsigned>(layersOfValues.size());
        layers.push_back(layersOfValues.try_emplace(has ? each[property] : Json(), next).first->second);
    }
    if (!found) throw Error(file + ": --layer-by: no feature has a property \"" + property + '"');
    return layers;
}

}  // namespace tool
