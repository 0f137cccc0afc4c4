// SPDX-License-Identifier: MIT
#ifndef VELLUM_TESTS_REFERENCE_CLIPPING_H
#define VELLUM_TESTS_REFERENCE_CLIPPING_H

#include <cstdint>
#include <vector>

#include "vellum/clipping.h"

namespace reference {

/// A poly point set that owns its points.
struct PointSet {
    std::vector<Vellum::real_pt_t> pts;
    std::vector<uint32_t> codes;
};

/// `ClipPolygonSet` as it is defined: every subject edge against every side, with the rings built vertex by vertex.
/// Appends to @p out.
void ClipPolygonSet(const PointSet& in, PointSet& out, const Vellum::DblRect& clip);

/// The area, by the half-planes of the rectangle's sides in turn, of the part of @p in that lies in the convex @p clip.
/// For polygons that do not cross themselves.
double AreaWithin(const PointSet& in, const Vellum::DblRect& clip);

/// The sum of the areas that the polygons of @p set enclose.
double Area(const PointSet& set);

}  // namespace reference

#endif
