// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_REFERENCE_CONNECTOR_H
#define VELLUM_TESTS_REFERENCE_CONNECTOR_H

#include <cstdint>
#include <vector>

#include "vellum/points.h"
#include "vellum/rectangles.h"
#include "vellum/shape.h"

namespace reference {

using Points = std::vector<Vellum::DblPt>;

/// A polyline as it is given to the connector, with the extents that it holds.
struct InputLine {
    Points points;
    Vellum::AlignedDblRect extents;
    uint32_t layer;
};

struct InputShape {
    const Vellum::ClosedShape* shape;
    uint32_t layer;
};

struct Connected {
    std::vector<Points> lines;   ///< the output polylines, rebuilt ones first
    std::vector<Points> splits;  ///< the split points of each segment, in the order in which they were found
};

/// `PolylineConnector::ConnectPolylines` as it is defined: every segment of every polyline against every segment of
/// all later ones of its layer, every segment against every shape.
Connected ConnectPolylines(const std::vector<InputLine>& lines, const std::vector<InputShape>& shapes, double tol);

/// The points of a list in the order in which the closest one to @p from is taken from it, again and again.
Points TakenClosestFirst(const Vellum::DblPt& from, Points points);

}  // namespace reference

#endif
