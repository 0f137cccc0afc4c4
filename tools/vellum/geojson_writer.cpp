// SPDX-License-Identifier: MIT
#include "geojson_writer.h"

#include <filesystem>
#include <nlohmann/json.hpp>

#include "error.h"
#include "picture.h"
#include "platform.h"
#include "text.h"

namespace tool {

namespace {

std::string PositionText(const Vellum::DblPt& point) {
    return '[' + ExactText(point.x) + ',' + ExactText(point.y) + ']';
}

std::string LineText(const Points& line) {
    std::string text;
    for (const Vellum::DblPt& point : line) {
        text += (text.empty() ? '[' : ',') + PositionText(point);
    }
    return text + ']';
}

std::string GeometryText(const Points& line) {
    if (line.size() == 1) return R"({"type":"Point","coordinates":)" + PositionText(line.front()) + '}';
    return R"({"type":"LineString","coordinates":)" + LineText(line) + '}';
}

}  // namespace

bool WantsGeoJson(const std::string& path) {
    if (PathOf(path).extension() == ".geojson") return true;
    if (NamesPicture(path)) return false;
    throw Error(path + ": the name must end in .geojson, or in " + PictureExtensions() + " for a picture");
}

std::string FeatureText(const Points& line, const nlohmann::json& properties) {
    return R"({"type":"Feature","properties":)" + properties.dump() + R"(,"geometry":)" + GeometryText(line) + '}';
}

void WriteFeature(const std::string& path, const Points& line, const nlohmann::json& properties) {
    const std::string text = FeatureText(line, properties) + '\n';
    OutputFile file(path);
    file.Write(text.data(), text.size());
    file.Commit();
}

GeoJsonWriter::GeoJsonWriter(const std::string& path) : file_(path) {
    Write(R"({"type":"FeatureCollection","features":[)");
}

void GeoJsonWriter::Add(const Points& line, const nlohmann::json& properties) {
    Write((empty_ ? "\n" : ",\n") + FeatureText(line, properties));
    empty_ = false;
}

void GeoJsonWriter::Finish() {
    Write("\n]}\n");
    file_.Commit();
}

}  // namespace tool
