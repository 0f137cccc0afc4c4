// SPDX-License-Identifier: MIT
#ifndef VELLUM_SRC_SHAPES_CLEARANCE_SEARCH_H
#define VELLUM_SRC_SHAPES_CLEARANCE_SEARCH_H

#include <cstddef>
#include <span>

#include "shapes/clearance_kernels.h"
#include "vellum/points.h"

namespace Vellum::internal {

/// What a search did.
struct SearchEffort {
    size_t bounds = 0;     ///< pairs of boxes held against each other
    size_t distances = 0;  ///< distances of a vertex and an edge computed
};

/// Of all pairs of an edge of one chain and a vertex of the other the nearest by the octagonal estimate, and of equally
/// near ones the first. Both chains have a point. The edges of @p a, with vertices of @p b, come before those of @p b,
/// which are numbered from a.size() on. Where there is no pair at a finite distance, `dist` is DBL_MAX and the edge and
/// the vertex are 0.
NearestPair FindNearestPair(std::span<const DblPt> a, std::span<const DblPt> b, const ClearanceKernels& kernels,
                            SearchEffort& effort);

/// A point on each of two chains.
struct Witnesses {
    DblPt onA;
    DblPt onB;
};

/// The vertex of that pair and the nearest point of its edge; the first points of both where there is no pair.
Witnesses FindWitnesses(std::span<const DblPt> a, std::span<const DblPt> b);

}  // namespace Vellum::internal

#endif
