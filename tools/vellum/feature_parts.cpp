// SPDX-License-Identifier: MIT
#include "feature_parts.h"

#include <new>

namespace tool {

namespace {

Vellum::PolygonGeom PolygonOf(const Points& ring) {
    Vellum::PolygonGeom polygon(static_cast<unsigned>(ring.size()), ring.data());
    if (polygon.NPts() != ring.size()) throw std::bad_alloc();
    return polygon;
}

}  // namespace

std::vector<Part> PartsOf(const Geometry& geometry) {
    std::vector<Part> parts;
    for (const Polygon& polygon : geometry.polygons) {
        for (const Points& ring : polygon) {
            parts.emplace_back(PolygonOf(ring));
        }
    }
    for (const Points& line : geometry.lines) {
        parts.emplace_back(PolylineOf(line));
    }
    for (const Vellum::DblPt& point : geometry.points) {
        parts.emplace_back(PolylineOf({point}));
    }
    return parts;
}

Vellum::PolylineGeom PolylineOf(const Points& points) {
    Vellum::PolylineGeom polyline(static_cast<unsigned>(points.size()), points.data());
    // The array makes a polyline only of two points and more.
    if (points.size() == 1) polyline.AddPoint(points.front());
    if (polyline.NPts() != points.size()) throw std::bad_alloc();
    polyline.RecalcExtents();
    return polyline;
}

std::unique_ptr<Vellum::PolylineGeom> NewPolyline(const Points& points) {
    auto polyline = std::make_unique<Vellum::PolylineGeom>(static_cast<unsigned>(points.size()), points.data());
    if (polyline->NPts() != points.size()) throw std::bad_alloc();
    return polyline;
}

const Vellum::AlignedDblRect& ExtentsOf(const Part& part) {
    return std::visit([](const auto& shape) -> const Vellum::AlignedDblRect& { return shape.Extents(); }, part);
}

}  // namespace tool
