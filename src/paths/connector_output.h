// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CONNECTOR_OUTPUT_H
#define VELLUM_SRC_PATHS_CONNECTOR_OUTPUT_H

#include <cstddef>
#include <cstdint>

#include "paths/scratch_array.h"
#include "vellum/containers.h"
#include "vellum/points.h"
#include "vellum/polylines.h"

namespace Vellum::internal {

/// The split point that is taken next: the closest one to @p from; among equal distances the first. A NaN is neither
/// closer than anything nor is anything closer: it is taken when it comes first. There must be a point.
DblPt* FindClosest(const DblPt& from, const DblPtVec& points);

/// Rebuilds polylines with their split points.
class ConnectorOutput {
public:
    /// A new polyline of the points of @p input and, between the ends of each segment, those of its split points
    /// that do not repeat the point before; in the order in which `FindClosest` from the segment's start takes them.
    /// Null where there is no memory.
    /// @param splits  one list for each segment, null where it is not split; null where no segment is.
    PolylineGeom* Rebuild(const PolylineGeom& input, const DblPtVec* const* splits);

    /// How often the distances of two split points were compared.
    size_t Comparisons() const { return comparisons_; }

private:
    struct Split {
        double dist;
        uint32_t after;
        uint32_t index;
    };

    bool Fill(PolylineGeom& output, const PolylineGeom& input, const DblPtVec* const* splits);
    bool Order(const DblPt& from, const DblPtVec& points);

    ScratchArray<Split> order_;
    size_t comparisons_ = 0;
};

}  // namespace Vellum::internal

#endif
