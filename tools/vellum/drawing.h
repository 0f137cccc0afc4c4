// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_DRAWING_H
#define VELLUM_TOOL_DRAWING_H

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "palette.h"
#include "vellum/vellum.h"

namespace tool {

/// Coordinates and views stay within this, so that no product of two of them overflows.
constexpr double kLargestCoordinate = 1e30;

/// What a feature consists of, in whatever coordinates.
template <class Point>
struct GeometryOf {
    using Points = std::vector<Point>;
    /// The outline, then the holes. Each ring ends with the point that it begins with.
    using Polygon = std::vector<Points>;

    std::vector<Polygon> polygons;
    std::vector<Points> lines;
    Points points;

    bool Empty() const { return polygons.empty() && lines.empty() && points.empty(); }
};

using Geometry = GeometryOf<Vellum::DblPt>;
using DeviceGeometry = GeometryOf<Vellum::int_pt_t>;
using Points = Geometry::Points;
using Polygon = Geometry::Polygon;

struct Feature {
    std::string name;
    /// The geometry's type as GeoJSON names it; empty where the feature has none.
    std::string type;
    /// A place in the palette, counted from 1, or a colour; nothing where the feature leaves it to the palette.
    std::variant<std::monostate, std::size_t, Colour> colour;
    Geometry geometry;
};

struct Drawing {
    std::vector<Feature> features;
};

/// What a feature is drawn in; @p position is its place in the drawing.
Style StyleOf(const Feature& feature, std::size_t position);

/// The box around everything in the drawing once @p matrix is applied, or nothing for an empty drawing.
std::optional<Vellum::AlignedDblRect> Extents(const Drawing& drawing, const Vellum::Mtx2D& matrix);

}  // namespace tool

#endif
