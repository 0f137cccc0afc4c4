// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_REFERENCE_TRANSFORMS_H
#define VELLUM_TESTS_REFERENCE_TRANSFORMS_H

#include <cstdint>
#include <vector>

#include "vellum/matrix.h"

namespace reference {

/// The transforms of points as plain loops over single points.

real_pt_t Map(const Vellum::Mtx2D& m, double x, double y);
int32_t RoundToDevice(double v);

std::vector<real_pt_t> ToModel(const Vellum::Mtx2D& m, const std::vector<real_pt_t>& points);
std::vector<int_pt_t> ToDevice(const Vellum::Mtx2D& m, const std::vector<real_pt_t>& points);
std::vector<int_pt_t> ToEighths(const Vellum::Mtx2D& m, const std::vector<real_pt_t>& points);
std::vector<short_pt_t> ToShort(const Vellum::Mtx2D& m, const std::vector<real_pt_t>& points);

struct Box {
    double xMin;
    double yMin;
    double xMax;
    double yMax;
};
Box ExtentsOf(const std::vector<real_pt_t>& points);

/// A polygon after the merging of coincident neighbours.
template <class Point>
struct Polygon {
    std::vector<Point> points;
    std::vector<uint32_t> codes;
};
Polygon<real_pt_t> PolygonToModel(const Vellum::Mtx2D& m, const std::vector<real_pt_t>& points,
                                  const std::vector<uint32_t>& codes);
Polygon<int_pt_t> PolygonToDevice(const Vellum::Mtx2D& m, const std::vector<real_pt_t>& points,
                                  const std::vector<uint32_t>& codes);

}  // namespace reference

#endif
