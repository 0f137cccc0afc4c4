// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_PATHS_CONNECTOR_CHECKS_H
#define VELLUM_TESTS_PATHS_CONNECTOR_CHECKS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "reference/connector.h"
#include "vellum/connector.h"

namespace paths_tests {

using reference::Points;

struct OwnedShape {
    std::unique_ptr<Vellum::ClosedShape> shape;
    uint32_t layer;
};

/// What a connector is given.
struct Network {
    std::vector<reference::InputLine> lines;
    std::vector<OwnedShape> shapes;
};

/// A line with the extents of its points; those of an empty one are all 0.
reference::InputLine LineOf(const Points& points, uint32_t layer);

/// A new polyline of these points, however few, with these extents.
Vellum::PolylineGeom* NewPolyline(const reference::InputLine& line);

/// Adds copies of a network's polylines and shapes.
void AddTo(Vellum::PolylineConnector& connector, const Network& network);

/// The same, as the reference takes it. Leaves out what is a duplicate.
std::vector<reference::InputShape> ShapesOf(const Network& network);

/// The polylines of an output, which is freed. Fails the test where extents are not those of the points.
std::vector<Points> TakeLines(unsigned count, Vellum::PolylineGeom** out);

/// What a new connector makes of a network.
std::vector<Points> Connected(const Network& network, double tol);

/// Equal to the bit, but that any NaN is as good as any other.
bool SameBits(double a, double b);

/// Whether the lines are the same to the bit, any NaN for any other.
testing::AssertionResult Hold(const std::vector<Points>& found, const std::vector<Points>& expected);

}  // namespace paths_tests

#endif
