// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_PATHS_SPATIAL_ORDER_H
#define VELLUM_SRC_PATHS_SPATIAL_ORDER_H

#include <cstdint>

#include "paths/scratch_array.h"
#include "vellum/points.h"

namespace Vellum::internal {

/// Where something lies: as a rule the middle of its box.
struct LayerPlace {
    DblPt at;
    uint32_t layer;
    uint32_t owner;  ///< what lies there, in the caller's numbers
    uint32_t part;   ///< which part of it
};

/// Orders places layer by layer, and within a layer so that those near each other in the order lie near each other
/// in the plane. Infinities and NaN are allowed.
void OrderSpatially(ScratchArray<LayerPlace>& places);

}  // namespace Vellum::internal

#endif
