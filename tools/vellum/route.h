// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_ROUTE_H
#define VELLUM_TOOL_ROUTE_H

#include <vector>

#include "drawing.h"

namespace tool {

/// A vertex of a network, found from a point that was asked for.
struct NearestVertex {
    Vellum::DblPt asked;
    Vellum::DblPt vertex;
    double distance;
};

/// The way through a network between the vertices nearest to two points.
struct Route {
    NearestVertex from;
    NearestVertex to;
    Points way;     ///< a single vertex where both are the same, empty where no way leads from the one to the other
    double length;  ///< the sum of the distances along the way
};

/// Finds the way through lines that meet where they share a vertex. There must be one line or more. Of vertices at
/// the same distance from a point the first is taken.
Route FindRoute(const std::vector<Points>& lines, const Vellum::DblPt& from, const Vellum::DblPt& to);

}  // namespace tool

#endif
