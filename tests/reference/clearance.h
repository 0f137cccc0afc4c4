// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_REFERENCE_CLEARANCE_H
#define VELLUM_TESTS_REFERENCE_CLEARANCE_H

#include <cstddef>
#include <span>

#include "vellum/points.h"

namespace reference {

/// The nearest pair of two chains as two plain passes find it: the edges of the first against the vertices of the
/// second, then the other way round.
struct Clearance {
    double dist;  ///< DBL_MAX where no pair is at a finite distance
    bool isEdgeOfSecond;
    std::size_t edge;
    std::size_t vertex;
    Vellum::DblPt onA;
    Vellum::DblPt onB;
};

/// Both chains have a point.
Clearance ClearanceOf(std::span<const Vellum::DblPt> a, std::span<const Vellum::DblPt> b);

}  // namespace reference

#endif
