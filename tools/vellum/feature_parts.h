// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_FEATURE_PARTS_H
#define VELLUM_TOOL_FEATURE_PARTS_H

#include <memory>
#include <variant>
#include <vector>

#include "drawing.h"
#include "vellum/vellum.h"

namespace tool {

/// A ring, or a line or a point. A ring ends with the point that it begins with, so that its closing edge is one of the
/// polygon's stored edges; a point is a polyline of that point alone.
using Part = std::variant<Vellum::PolygonGeom, Vellum::PolylineGeom>;

/// What a feature consists of: rings, then lines, then points.
std::vector<Part> PartsOf(const Geometry& geometry);

/// A polyline with its extents, also of a single point. Throws `std::bad_alloc` where there is no memory for it.
Vellum::PolylineGeom PolylineOf(const Points& points);

/// The same as an object that the library can take over; of two points or more.
std::unique_ptr<Vellum::PolylineGeom> NewPolyline(const Points& points);

const Vellum::AlignedDblRect& ExtentsOf(const Part& part);

}  // namespace tool

#endif
