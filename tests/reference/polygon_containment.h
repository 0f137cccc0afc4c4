// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_REFERENCE_POLYGON_CONTAINMENT_H
#define VELLUM_TESTS_REFERENCE_POLYGON_CONTAINMENT_H

#include <cstddef>
#include <cstdint>

#include "vellum/points.h"

namespace reference {

/// The winding number of a ring about a point as a plain loop over its edges, the closing one last.
int64_t WindingNumber(const Vellum::DblPt* pts, size_t count, double x, double y);

/// Whether the ring winds around the point.
bool RingContains(const Vellum::DblPt* pts, size_t count, double x, double y);

}  // namespace reference

#endif
