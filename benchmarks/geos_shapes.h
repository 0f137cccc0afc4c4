// SPDX-License-Identifier: MIT
#ifndef VELLUM_BENCHMARKS_GEOS_SHAPES_H
#define VELLUM_BENCHMARKS_GEOS_SHAPES_H

#include <geos_c.h>

#include <vector>

#include "vellum/points.h"

namespace VellumBench {

/// A context of GEOS and the geometries made in it, which it releases.
class GeosShapes {
public:
    GeosShapes() : context(GEOS_init_r()) {}
    GeosShapes(const GeosShapes&) = delete;
    GeosShapes& operator=(const GeosShapes&) = delete;
    ~GeosShapes() {
        for (GEOSGeometry* geometry : made)
            GEOSGeom_destroy_r(context, geometry);
        GEOS_finish_r(context);
    }

    GEOSContextHandle_t Context() const { return context; }
    const GEOSGeometry* Point(const Vellum::DblPt& p) { return Keep(GEOSGeom_createPointFromXY_r(context, p.x, p.y)); }
    const GEOSGeometry* Line(const std::vector<Vellum::DblPt>& points) {
        return Keep(GEOSGeom_createLineString_r(context, Sequence(points)));
    }
    const GEOSGeometry* MultiLine(const std::vector<std::vector<Vellum::DblPt>>& lines) {
        std::vector<GEOSGeometry*> parts;
        for (const auto& points : lines)
            parts.push_back(GEOSGeom_createLineString_r(context, Sequence(points)));
        return Keep(GEOSGeom_createCollection_r(context, GEOS_MULTILINESTRING, parts.data(),
                                                static_cast<unsigned>(parts.size())));
    }
    /// Of an outline whose first point may be repeated at its end.
    const GEOSGeometry* Polygon(std::vector<Vellum::DblPt> outline) {
        if (!outline.front().IsExactly(outline.back())) outline.push_back(outline.front());
        GEOSGeometry* ring = GEOSGeom_createLinearRing_r(context, Sequence(outline));
        return Keep(GEOSGeom_createPolygon_r(context, ring, nullptr, 0));
    }

private:
    GEOSCoordSequence* Sequence(const std::vector<Vellum::DblPt>& points) const {
        return GEOSCoordSeq_copyFromBuffer_r(context, &points[0].x, static_cast<unsigned>(points.size()), 0, 0);
    }
    const GEOSGeometry* Keep(GEOSGeometry* geometry) {
        made.push_back(geometry);
        return geometry;
    }

    GEOSContextHandle_t context;
    std::vector<GEOSGeometry*> made;
};

}  // namespace VellumBench

#endif
