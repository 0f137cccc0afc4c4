// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_CLIP_WINDING_H
#define VELLUM_SRC_PATHS_CLIP_WINDING_H

#include "paths/clip_polygon.h"
#include "paths/clip_view.h"

namespace Vellum::internal {

inline real_pt_t CornerOf(const ClipView& view, unsigned i) { return {view.Side(i).x, view.Side(i).y}; }

/// The winding number of the rectangle's four corners about @p p.
int WindingOfCorners(const ClipView& view, const real_pt_t& p);

/// The winding number of @p polygon about @p p.
int WindingOfOutline(const ClipPolygon& polygon, const real_pt_t& p);

}  // namespace Vellum::internal

#endif
