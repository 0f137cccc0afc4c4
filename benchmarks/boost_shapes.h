// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_BOOST_SHAPES_H
#define VELLUM_BENCHMARKS_BOOST_SHAPES_H

#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/geometry/geometry.hpp>
#include <vector>

#include "vellum/points.h"

namespace VellumBench {

using BoostPoint = boost::geometry::model::d2::point_xy<double>;
using BoostPolygon = boost::geometry::model::polygon<BoostPoint>;
using BoostLine = boost::geometry::model::linestring<BoostPoint>;

inline BoostLine ToBoostLine(const std::vector<Vellum::DblPt>& points) {
    BoostLine line;
    for (const Vellum::DblPt& p : points)
        line.emplace_back(p.x, p.y);
    return line;
}

/// Of an outline whose first point may be repeated at its end.
inline BoostPolygon ToBoostPolygon(const std::vector<Vellum::DblPt>& outline) {
    BoostPolygon polygon;
    for (const Vellum::DblPt& p : outline)
        polygon.outer().emplace_back(p.x, p.y);
    boost::geometry::correct(polygon);
    return polygon;
}

}  // namespace VellumBench

#endif
