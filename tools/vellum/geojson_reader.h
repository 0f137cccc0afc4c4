// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_GEOJSON_READER_H
#define VELLUM_TOOL_GEOJSON_READER_H

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "drawing.h"

namespace tool {

class Progress;

/// Reads a GeoJSON file: a feature collection, a feature or a bare geometry. Null geometries, and geometries without
/// coordinates, which mean the same, are left out; their features stay. A feature's name is its property "name", in
/// whatever letter case that is written.
///
/// Throws `Error` for anything else that is not GeoJSON: one line that names the file, the place in it and the cause. A
/// file in which there is nothing to draw is an error too.
Drawing ReadGeoJson(const std::string& path, Progress& progress);

/// The same for a text at hand; @p name stands for the file in messages.
Drawing ParseGeoJson(const std::string& text, const std::string& name, Progress& progress);

/// The two steps of it: the text becomes a JSON document, and that a drawing.
nlohmann::json ParseGeoJsonDocument(const std::string& text, const std::string& name);
Drawing DrawingOf(const nlohmann::json& document, const std::string& name, Progress& progress);

}  // namespace tool

#endif
