// SPDX-License-Identifier: MIT
#include "measures.h"

#include "feature_parts.h"

namespace tool {

namespace {

/// Of a ring the closing edge counts too: the last point is there.
Measures MeasuresOf(const Points& part) {
    const Vellum::PolylineGeom polyline = PolylineOf(part);
    return {1, polyline.NPts(), polyline.Extents(), polyline.ComputeLength()};
}

/// Each point once: rings without their last one.
Points Vertices(const Geometry& geometry) {
    Points vertices;
    for (const Polygon& polygon : geometry.polygons) {
        for (const Points& ring : polygon) {
            vertices.insert(vertices.end(), ring.begin(), ring.end() - 1);
        }
    }
    for (const Points& line : geometry.lines) {
        vertices.insert(vertices.end(), line.begin(), line.end());
    }
    vertices.insert(vertices.end(), geometry.points.begin(), geometry.points.end());
    return vertices;
}

}  // namespace

Measures MeasuresOf(const Geometry& geometry) {
    Measures sum;
    for (const Polygon& polygon : geometry.polygons) {
        for (const Points& ring : polygon) {
            sum += MeasuresOf(ring);
        }
    }
    for (const Points& line : geometry.lines) {
        sum += MeasuresOf(line);
    }
    for (const Vellum::DblPt& point : geometry.points) {
        sum += MeasuresOf(Points{point});
    }
    return sum;
}

std::optional<Vellum::DblPt> CentroidOf(const Geometry& geometry) {
    if (geometry.Empty()) return std::nullopt;
    Vellum::DblPt centroid;
    PolylineOf(Vertices(geometry)).GetCentroid(centroid);
    return centroid;
}

Measures& operator+=(Measures& sum, const Measures& other) {
    sum.parts += other.parts;
    sum.points += other.points;
    sum.length += other.length;
    if (!sum.extents) {
        sum.extents = other.extents;
    } else if (other.extents) {
        *sum.extents += *other.extents;
    }
    return sum;
}

}  // namespace tool
