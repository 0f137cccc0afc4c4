// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_PATHS_CLIP_CHECKS_H
#define VELLUM_TESTS_PATHS_CLIP_CHECKS_H

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "reference/clipping.h"
#include "vellum/rectangles.h"

namespace paths_tests {

using reference::PointSet;
using Vellum::DblPt;
using Vellum::DblRect;

struct CodedPoint {
    double x;
    double y;
    uint32_t code;
};

/// A set of these points, as they stand.
PointSet SetOf(std::initializer_list<CodedPoint> points);

/// One polygon: code 0 throughout and 2 at the end.
PointSet PolygonOf(std::initializer_list<DblPt> points);

void AppendTo(PointSet& set, const PointSet& more);

/// The clockwise rectangle that begins at its lower left corner.
DblRect Box(double left, double bottom, double right, double top);

/// These four corners, in this order, whether they make a rectangle or not.
DblRect Corners(const DblPt& p0, const DblPt& p1, const DblPt& p2, const DblPt& p3);

/// A clockwise rectangle turned by an angle in degrees; exact where that is a multiple of 90.
DblRect TurnedBox(const DblPt& centre, double halfWidth, double halfHeight, double degrees);

/// What `ClipPolygonSet` appends for a set. It is given a set that holds something and has just the room that
/// `ClipPolygonSetMaxPts` asks for; fails the test if anything but that room is written, or more of it than is
/// counted, or the input.
PointSet Clipped(const PointSet& in, const DblRect& clip);

/// The same for `ClipPolygonSetComplete`.
PointSet ClippedCompletely(const PointSet& in, const DblRect& clip);

/// `ClipPolygonSetMaxPts` of a set.
size_t MaxPtsOf(const PointSet& in);

/// Equal to the bit, but that any NaN is as good as any other.
bool SameBits(double a, double b);

/// Whether the points and codes are the same to the bit, any NaN for any other.
testing::AssertionResult Holds(const PointSet& found, const PointSet& expected);

/// The polygons of a set one by one, which is one after another without stray points.
std::vector<PointSet> PolygonsOf(const PointSet& set);

/// Whether all polygons of `some` are among those of `all`, as they stand and in the same order.
bool IsSelection(const PointSet& some, const PointSet& all);

}  // namespace paths_tests

#endif
