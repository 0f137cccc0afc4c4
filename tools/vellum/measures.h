// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_MEASURES_H
#define VELLUM_TOOL_MEASURES_H

#include <cstddef>
#include <optional>

#include "drawing.h"
#include "vellum/vellum.h"

namespace tool {

/// What can be said in numbers about a feature, or about all that a drawing holds.
struct Measures {
    std::size_t parts = 0;   ///< rings, lines and single points
    std::size_t points = 0;  ///< as the file has them: the last point of a ring counts though it repeats the first
    std::optional<Vellum::AlignedDblRect> extents;
    double length = 0.0;  ///< of all lines and rings
};

Measures MeasuresOf(const Geometry& geometry);

/// The mean of all points, whatever part they are of. The last point of a ring is left out.
std::optional<Vellum::DblPt> CentroidOf(const Geometry& geometry);

/// Adds what another feature holds.
Measures& operator+=(Measures& sum, const Measures& other);

}  // namespace tool

#endif
