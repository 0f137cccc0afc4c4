// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_CROSSING_H
#define VELLUM_SRC_PATHS_CLIP_CROSSING_H

#include "paths/clip_polygon.h"
#include "paths/clip_view.h"
#include "paths/scratch_array.h"

namespace Vellum::internal {

/// A place where the outline of a polygon meets a side of the rectangle. It stands for two vertices, one in the
/// polygon's ring and one in the rectangle's.
struct Crossing {
    real_pt_t at;
    double alphaSubject;  ///< how far along the polygon's edge, in (0, 1]
    double alphaClip;     ///< how far along the side, in (0, 1]
    size_t edge;          ///< the last point of the run of equal points that the edge starts at
    unsigned side;
    bool turnsLeft;  ///< the side runs to the left of the edge's direction
};

/// What came of holding an edge against the four sides.
struct EdgeFindings {
    /// The crossings hang on a rounding: a corner lies on the edge's line as far as can be told, or the edge has the
    /// direction of a side that it may touch.
    bool isDelicate;
    bool isIncomplete;  ///< working memory ran out
};

/// Appends the crossings of one edge, which starts at the vertex of point @p edge and ends at @p end, by ascending
/// parameter; equal parameters keep the order of the sides.
EdgeFindings FindCrossings(const ClipPolygon& polygon, size_t edge, const real_pt_t& end, const ClipView& view,
                           ScratchArray<Crossing>& crossings);

}  // namespace Vellum::internal

#endif
