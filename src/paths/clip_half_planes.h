// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_HALF_PLANES_H
#define VELLUM_SRC_PATHS_CLIP_HALF_PLANES_H

#include "paths/clip_polygon.h"
#include "paths/clip_view.h"
#include "paths/clip_writer.h"
#include "paths/scratch_array.h"

namespace Vellum::internal {

struct CodedPoint {
    real_pt_t at;
    uint32_t code;
};

/// Two outlines that take turns as input and output.
struct HalfPlaneMemory {
    ScratchArray<CodedPoint> before;
    ScratchArray<CodedPoint> after;
};

/// Clips @p polygon by the four sides of a convex rectangle in turn and writes what remains. Several pieces come out as
/// one polygon, joined along the sides by stretches there and back that enclose nothing. Points with coordinates that
/// are not finite are passed over. Where memory runs out nothing is written.
void ClipByHalfPlanes(const ClipPolygon& polygon, const ClipView& view, HalfPlaneMemory& memory, ClipWriter& writer);

}  // namespace Vellum::internal

#endif
