// SPDX-License-Identifier: MIT
#ifndef VELLUM_TOOL_LINE_JOINING_H
#define VELLUM_TOOL_LINE_JOINING_H

#include <cstddef>
#include <string>
#include <vector>

#include "drawing.h"

namespace tool {

/// A line of a drawing and the place of its feature.
struct FeatureLine {
    Points points;
    std::size_t feature;
};

/// Lines made into a network.
struct JoinedLines {
    std::vector<Points> lines;    ///< those given, in their order, with the split points put in
    std::vector<Points> joining;  ///< lines of two points, each across a gap
    Points splitPoints;           ///< line by line; where two lines cross, each has one
};

/// All lines of a drawing, feature by feature; polygons and points are left out. Throws `Error`, naming @p file,
/// where there is none.
std::vector<FeatureLine> LinesOf(const Drawing& drawing, const std::string& file);

/// Joins lines that are in the same layer. There must be one line or more, each with its layer in @p layers.
JoinedLines JoinLines(const std::vector<FeatureLine>& lines, const std::vector<unsigned>& layers, double tolerance);

}  // namespace tool

#endif
