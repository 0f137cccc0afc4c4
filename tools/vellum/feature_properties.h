// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_FEATURE_PROPERTIES_H
#define VELLUM_TOOL_FEATURE_PROPERTIES_H

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "drawing.h"

namespace tool {

class Progress;

/// A drawing with everything that the file says about its features.
struct DescribedDrawing {
    Drawing drawing;
    std::vector<nlohmann::json> properties;  ///< one for each feature: an object, or null where it has none
};

/// Reads a GeoJSON file as `ReadGeoJson` does. Throws `Error` as that does, and where properties are nested too
/// deeply.
DescribedDrawing ReadDescribedGeoJson(const std::string& path, Progress& progress);

/// The same for a text at hand.
DescribedDrawing ParseDescribedGeoJson(const std::string& text, const std::string& name, Progress& progress);

/// For each feature the number of its layer. Features are in one layer where the values that they have for the
/// property are equal; to have none is the same as to have null. The layers are counted from 0 in the order of their
/// first features. Throws `Error`, naming @p file, where no feature has the property.
std::vector<unsigned> LayersBy(const std::string& property, const std::vector<nlohmann::json>& properties,
                               const std::string& file);

}  // namespace tool

#endif
