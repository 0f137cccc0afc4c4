// SPDX-License-Identifier: MIT
#include "route.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "feature_parts.h"

namespace tool {

namespace {

using Vellum::DblPt;
using Vellum::PolylineGeom;

NearestVertex FindNearest(const std::vector<Points>& lines, const DblPt& asked) {
    NearestVertex nearest = {asked, {}, std::numeric_limits<double>::infinity()};
    for (const Points& line : lines) {
        for (const DblPt& vertex : line) {
            const double distance = asked.Dist(vertex);
            if (distance < nearest.distance) nearest = {asked, vertex, distance};
        }
    }
    return nearest;
}

/// The array that an engine takes over, with the polylines in it.
PolylineGeom** NewNetwork(const std::vector<Points>& lines) {
    std::vector<std::unique_ptr<PolylineGeom>> polylines;
    polylines.reserve(lines.size());
    for (const Points& line : lines) {
        polylines.push_back(NewPolyline(line));
    }
    auto* network = new PolylineGeom*[lines.size()];
    std::transform(polylines.begin(), polylines.end(), network, [](auto& polyline) { return polyline.release(); });
    return network;
}

/// Empty where there is no way.
Points FindWay(const std::vector<Points>& lines, const DblPt& from, const DblPt& to) {
    if (from.IsExactly(to)) return {from};
    Vellum::SPTEngine engine(NewNetwork(lines), static_cast<unsigned>(lines.size()));
    if (!engine.BuildSPT(from)) throw std::bad_alloc();
    if (!engine.IsOnPath(to)) return {};
    const std::unique_ptr<const PolylineGeom> back(engine.GenerateSPPolyline(to));
    if (!back) throw std::bad_alloc();
    Points way(back->Start(), back->End());
    std::reverse(way.begin(), way.end());
    return way;
}

double LengthOf(const Points& way) {
    double length = 0.0;
    for (std::size_t i = 1; i < way.size(); ++i) {
        length += way[i - 1].Dist(way[i]);
    }
    return length;
}

}  // namespace

Route FindRoute(const std::vector<Points>& lines, const DblPt& from, const DblPt& to) {
    const NearestVertex nearestFrom = FindNearest(lines, from);
    const NearestVertex nearestTo = FindNearest(lines, to);
    Points way = FindWay(lines, nearestFrom.vertex, nearestTo.vertex);
    const double length = LengthOf(way);
    return {nearestFrom, nearestTo, std::move(way), length};
}

}  // namespace tool
