// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_GEOJSON_WRITER_H
#define VELLUM_TOOL_GEOJSON_WRITER_H

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "drawing.h"
#include "output_file.h"

namespace tool {

/// Whether the file's name asks for GeoJSON; it asks for a picture otherwise. Throws `Error` where it asks for
/// neither.
bool WantsGeoJson(const std::string& path);

/// A line as a feature, its coordinates as short as they can be without losing anything. A line of one point is a
/// Point.
std::string FeatureText(const Points& line, const nlohmann::json& properties);

/// Writes a feature to the file at @p path. Throws `Error` where that fails; nothing is left behind then.
void WriteFeature(const std::string& path, const Points& line, const nlohmann::json& properties);

/// A feature collection on its way into a file.
class GeoJsonWriter {
public:
    /// Throws `Error` where no file can be written there.
    explicit GeoJsonWriter(const std::string& path);

    void Add(const Points& line, const nlohmann::json& properties);

    /// Ends the collection; only now the file has its name. Throws `Error` where anything of it could not be written.
    void Finish();

private:
    void Write(const std::string& text) { file_.Write(text.data(), text.size()); }

    OutputFile file_;
    bool empty_ = true;
};

}  // namespace tool

#endif
