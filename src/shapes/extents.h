// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_EXTENTS_H
#define VELLUM_SRC_SHAPES_EXTENTS_H

#include "vellum/rectangles.h"

namespace Vellum::internal {

template <class Geom>
AlignedDblRect ExtentsOf(const Geom& shape) {
    AlignedDblRect extents;
    shape.GetExtents(extents);
    return extents;
}

}  // namespace Vellum::internal

#endif
